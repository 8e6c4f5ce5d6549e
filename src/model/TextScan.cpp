#include "TextScan.h"

#include <array>
#include <charconv>
#include <cstring>
#include <limits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace TextScan {

namespace {

// Only these lead bytes can start a break: the C0 breaks, NEL (C2 85), LS and PS (E2 80 A8/A9).
inline bool mayStartBreak(uchar b)
{
    return uchar(b - 0x0a) < 4 || b == 0xc2 || b == 0xe2;
}

inline uint codeOf(char c)
{
    return uchar(c);
}

inline uint codeOf(QChar c)
{
    return c.unicode();
}

inline int hexDigit(uint c)
{
    return c < 256 ? hexDigitValues[c] : -1;
}

template<typename View>
std::optional<quint32> parseHex(View digits)
{
    if (digits.isEmpty())
        return std::nullopt;
    if (digits.size() <= 8) {
        // The usual case: eight digits cannot overflow.
        quint32 value = 0;
        for (auto c : digits) {
            const int digit = hexDigit(codeOf(c));
            if (digit < 0)
                return std::nullopt;
            value = value * 16 + uint(digit);
        }
        return value;
    }
    quint64 value = 0;
    for (auto c : digits) {
        const int digit = hexDigit(codeOf(c));
        if (digit < 0)
            return std::nullopt;
        value = value * 16 + uint(digit);
        if (value > 0xffffffffULL)
            return std::nullopt;
    }
    return quint32(value);
}

template<typename View>
std::optional<qint64> parseSigned(View text)
{
    bool negative = false;
    const uint sign = text.isEmpty() ? 0 : codeOf(text.front());
    if (sign == '+' || sign == '-') {
        negative = sign == '-';
        text = text.sliced(1);
    }
    if (text.isEmpty())
        return std::nullopt;
    // Accumulate negatively so that the lowest value fits too.
    qint64 value = 0;
    for (auto c : text) {
        const uint u = codeOf(c);
        if (u < '0' || u > '9')
            return std::nullopt;
        const int digit = int(u - '0');
        if (value < (std::numeric_limits<qint64>::min() + digit) / 10)
            return std::nullopt;
        value = value * 10 - digit;
    }
    if (!negative) {
        if (value == std::numeric_limits<qint64>::min())
            return std::nullopt;
        value = -value;
    }
    return value;
}

} // namespace

qsizetype breakLength(QByteArrayView text, qsizetype at, Breaks breaks)
{
    const auto b = uchar(text[at]);
    if (breaks == Breaks::lineFeed)
        return b == '\n' ? 1 : 0;
    if (uchar(b - 0x0a) < 4)
        return 1;
    const qsizetype left = text.size() - at;
    if (b == 0xc2 && left >= 2 && uchar(text[at + 1]) == 0x85)
        return 2;
    if (b == 0xe2 && left >= 3 && uchar(text[at + 1]) == 0x80
        && (uchar(text[at + 2]) == 0xa8 || uchar(text[at + 2]) == 0xa9))
        return 3;
    return 0;
}

qsizetype nextBreak(QByteArrayView text, qsizetype from, Breaks breaks)
{
    const char *data = text.data();
    const qsizetype size = text.size();
    if (breaks == Breaks::lineFeed) {
        const void *hit = from < size ? std::memchr(data + from, '\n', size_t(size - from)) : nullptr;
        return hit ? static_cast<const char *>(hit) - data : size;
    }
    qsizetype i = from;
#if defined(__SSE2__)
    // Sixteen bytes at a time: most lines hold no byte that could start a break.
    const __m128i base = _mm_set1_epi8(0x0a);
    const __m128i three = _mm_set1_epi8(3);
    const __m128i nel = _mm_set1_epi8(char(0xc2));
    const __m128i separator = _mm_set1_epi8(char(0xe2));
    for (; i + 16 <= size; i += 16) {
        const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(data + i));
        const __m128i shifted = _mm_sub_epi8(v, base);
        const __m128i control = _mm_cmpeq_epi8(_mm_min_epu8(shifted, three), shifted);
        const __m128i lead = _mm_or_si128(_mm_cmpeq_epi8(v, nel), _mm_cmpeq_epi8(v, separator));
        unsigned mask = unsigned(_mm_movemask_epi8(_mm_or_si128(control, lead)));
        while (mask) {
            const qsizetype at = i + __builtin_ctz(mask);
            if (breakLength(text, at, breaks))
                return at;
            mask &= mask - 1;
        }
    }
#endif
    for (; i < size; ++i) {
        if (mayStartBreak(uchar(data[i])) && breakLength(text, i, breaks))
            return i;
    }
    return size;
}

Lines::Lines(QByteArrayView text, Breaks breaks)
    : m_text(text)
    , m_breaks(breaks)
{
}

bool Lines::fill()
{
    if (m_done)
        return false;
    const qsizetype end = nextBreak(m_text, m_next, m_breaks);
    m_window[(m_first + m_count) % 4] = m_text.sliced(m_next, end - m_next);
    ++m_count;
    if (end == m_text.size())
        m_done = true;
    else
        m_next = end + breakLength(m_text, end, m_breaks);
    return true;
}

std::optional<QByteArrayView> Lines::peek(int ahead)
{
    Q_ASSERT(ahead >= 0 && ahead < 4);
    while (m_count <= ahead) {
        if (!fill())
            return std::nullopt;
    }
    return m_window[(m_first + ahead) % 4];
}

void Lines::advance(int count)
{
    for (; count > 0; --count) {
        if (m_count == 0 && !fill())
            return;
        m_first = (m_first + 1) % 4;
        --m_count;
    }
}

int splitPieces(QByteArrayView text, char separator, QByteArrayView *pieces, int capacity)
{
    // Pieces are a few bytes long: a plain loop beats a memchr call per piece.
    int count = 0;
    const char *data = text.data();
    const qsizetype size = text.size();
    qsizetype start = 0;
    for (qsizetype i = 0; i <= size; ++i) {
        if (i < size && data[i] != separator)
            continue;
        if (i > start) {
            if (count < capacity)
                pieces[count] = QByteArrayView(data + start, i - start);
            ++count;
        }
        start = i + 1;
    }
    return count;
}

int splitHexPieces(QByteArrayView text, char separator, QByteArrayView *pieces, std::optional<quint32> *values,
                   int capacity)
{
    // Headers are parsed once per service: one pass, no branch per digit.
    int count = 0;
    const auto *p = reinterpret_cast<const uchar *>(text.data());
    const auto *end = p + text.size();
    const auto sep = uchar(separator);
    while (p < end && count < capacity) {
        if (*p == sep) {
            ++p;
            continue;
        }
        const uchar *start = p;
        quint32 value = 0;
        int invalid = 0; // negative once any byte is no hexadecimal digit
        do {
            const int digit = hexDigitValues[*p];
            invalid |= digit;
            value = value * 16 + uint(digit & 15);
        } while (++p < end && *p != sep);
        pieces[count] = QByteArrayView(reinterpret_cast<const char *>(start), p - start);
        if (invalid < 0)
            values[count] = std::nullopt;
        else if (p - start <= 8)
            values[count] = value;
        else
            values[count] = strictHex(pieces[count]); // leading zeros or an overflow
        ++count;
    }
    return count;
}

std::optional<quint32> strictHex(QByteArrayView digits)
{
    return parseHex(digits);
}

std::optional<quint32> strictHex(QStringView digits)
{
    return parseHex(digits);
}

std::optional<quint32> unsignedDecimal(QByteArrayView digits)
{
    if (digits.isEmpty())
        return std::nullopt;
    quint64 value = 0;
    for (char c : digits) {
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + uint(c - '0');
        if (value > 0xffffffffULL)
            return std::nullopt;
    }
    return quint32(value);
}

std::optional<qint64> signedDecimal(QStringView text)
{
    return parseSigned(text);
}

std::optional<qint64> signedDecimal(QByteArrayView text)
{
    return parseSigned(text);
}

QString degreeLabel(qint64 tenths, char direction)
{
    // Within this range the double tenths / 10.0 rounds back to the same digits.
    if (tenths > 1'000'000'000'000 || tenths < -1'000'000'000'000)
        return QString::asprintf("%.1f%c", double(tenths) / 10.0, direction);
    const quint64 magnitude = tenths < 0 ? 0 - quint64(tenths) : quint64(tenths);
    char buffer[48];
    char *end = buffer;
    if (tenths < 0)
        *end++ = '-';
    end = std::to_chars(end, buffer + 40, magnitude / 10).ptr;
    *end++ = '.';
    *end++ = char('0' + magnitude % 10);
    *end++ = direction;
    return QString::fromLatin1(buffer, end - buffer);
}

QString decoded(QByteArrayView bytes)
{
    // Most names and providers are ASCII: widen them without the decoder's bookkeeping.
    if (bytes.size() <= 64) {
        QString text(bytes.size(), Qt::Uninitialized);
        char16_t *out = reinterpret_cast<char16_t *>(text.data());
        uchar high = 0;
        for (char c : bytes) {
            high |= uchar(c);
            *out++ = char16_t(uchar(c));
        }
        if (high < 0x80)
            return text;
    }
    static constexpr char bom[] = "\xef\xbb\xbf";
    qsizetype boms = 0;
    while (bytes.sliced(boms * 3).startsWith(QByteArrayView(bom, 3)))
        ++boms;
    if (boms == 0)
        return QString::fromUtf8(bytes);
    return QString(boms, QChar(0xfeff)) + QString::fromUtf8(bytes.sliced(boms * 3));
}

QByteArrayView withoutLastCharacter(QByteArrayView bytes, QByteArray &storage)
{
    if (bytes.isEmpty())
        return bytes;
    if (uchar(bytes.back()) < 0x80)
        return bytes.chopped(1);
    QString text = decoded(bytes);
    const bool pair = text.size() >= 2 && text.back().isLowSurrogate() && text.at(text.size() - 2).isHighSurrogate();
    text.chop(pair ? 2 : 1);
    storage = text.toUtf8();
    return storage;
}

} // namespace TextScan
