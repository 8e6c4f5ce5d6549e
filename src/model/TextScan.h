#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <array>
#include <cstring>
#include <optional>

// Byte-level helpers shared by the readers and writers: line splitting, piece splitting and strict
// number parsing on UTF-8 text, so that only names and providers are ever converted to QString.
namespace TextScan {

enum class Breaks {
    // LF, VT, FF, CR, NEL, LS and PS each end a line; CR LF therefore gives an extra empty line.
    unicode,
    // Only LF ends a line; a CR stays at the end of its line.
    lineFeed,
};

// Length in bytes of the line break that starts at `at` (1 to 3), or 0 when none starts there.
qsizetype breakLength(QByteArrayView text, qsizetype at, Breaks breaks);
// Offset of the next line break at or after `from`, or text.size() when there is none.
qsizetype nextBreak(QByteArrayView text, qsizetype from, Breaks breaks);

// Calls `f` with every line, in order; the same lines as Lines yields, without its look-ahead.
template<typename F>
void forEachLine(QByteArrayView text, Breaks breaks, F &&f)
{
    qsizetype start = 0;
    while (true) {
        const qsizetype end = nextBreak(text, start, breaks);
        f(text.sliced(start, end - start));
        if (end == text.size())
            return;
        start = end + breakLength(text, end, breaks);
    }
}

// Walks the lines of a text with a look-ahead of a few lines. A text of n breaks has n + 1 lines,
// so an empty text is one empty line and a final break is followed by an empty last line.
class Lines
{
public:
    explicit Lines(QByteArrayView text, Breaks breaks = Breaks::unicode);

    // The line `ahead` positions after the current one (0 to 3), or none past the last line.
    std::optional<QByteArrayView> peek(int ahead = 0);
    void advance(int count = 1);
    bool atEnd() { return !peek(0); }

private:
    bool fill();

    QByteArrayView m_text;
    Breaks m_breaks;
    qsizetype m_next = 0; // start of the first line not yet in the window
    bool m_done = false;  // the last line has entered the window
    QByteArrayView m_window[4];
    int m_first = 0;
    int m_count = 0;
};

// Offset of the first `c` at or after `from`, or -1; plain memchr without the generic search.
inline qsizetype indexOf(QByteArrayView text, char c, qsizetype from = 0)
{
    if (from >= text.size())
        return -1;
    const void *hit = std::memchr(text.data() + from, c, size_t(text.size() - from));
    return hit ? static_cast<const char *>(hit) - text.data() : -1;
}

// Splits at `separator`, dropping empty pieces. Stores at most `capacity` pieces and returns how
// many non-empty pieces there are in all.
int splitPieces(QByteArrayView text, char separator, QByteArrayView *pieces, int capacity);

// Like splitPieces, but stops after `capacity` pieces (and returns at most that), and reads each
// piece as strictHex would in the same pass.
int splitHexPieces(QByteArrayView text, char separator, QByteArrayView *pieces, std::optional<quint32> *values,
                   int capacity);

// The value of each byte as a hexadecimal digit, -1 for any other byte.
inline constexpr std::array<qint8, 256> hexDigitValues = [] {
    std::array<qint8, 256> digits{};
    digits.fill(-1);
    for (int c = '0'; c <= '9'; ++c)
        digits[c] = qint8(c - '0');
    for (int c = 'a'; c <= 'f'; ++c)
        digits[c] = digits[c - 'a' + 'A'] = qint8(c - 'a' + 10);
    return digits;
}();

// Exactly `Count` hexadecimal digits at `digits`, or none when one is not a digit.
template<int Count>
inline std::optional<quint32> fixedHex(const char *digits)
{
    static_assert(Count > 0 && Count <= 8);
    quint32 value = 0;
    int invalid = 0; // negative once any byte is no digit
    for (int i = 0; i < Count; ++i) {
        const int digit = hexDigitValues[uchar(digits[i])];
        invalid |= digit;
        value = value << 4 | uint(digit & 15);
    }
    return invalid < 0 ? std::nullopt : std::optional(value);
}

// Non-empty, hexadecimal digits only (either case), value within 32 bits (leading zeros allowed).
std::optional<quint32> strictHex(QByteArrayView digits);
std::optional<quint32> strictHex(QStringView digits);
// Non-empty, decimal digits only, within 32 bits.
std::optional<quint32> unsignedDecimal(QByteArrayView digits);
// An optional "+" or "-" followed by decimal digits, within 64 bits.
std::optional<qint64> signedDecimal(QStringView text);
std::optional<qint64> signedDecimal(QByteArrayView text);

// `tenths` / 10 with one decimal place followed by `direction`, exactly as "%.1f" prints it
// ("19.2E", "-0.5E", "179.9W").
QString degreeLabel(qint64 tenths, char direction);

// UTF-8 decoding of a slice with invalid bytes replaced. Unlike QString::fromUtf8 a leading
// byte-order mark stays in the text as U+FEFF, because slices are parts of a larger text.
QString decoded(QByteArrayView bytes);
// The slice less its last character, where a character is what decoding would yield: a whole
// valid sequence, or a single byte that decodes to a replacement character. `storage` holds the
// bytes when they had to be re-encoded (a non-ASCII last character).
QByteArrayView withoutLastCharacter(QByteArrayView bytes, QByteArray &storage);

} // namespace TextScan
