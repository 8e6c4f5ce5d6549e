#include "TextRepair.h"

#include "TextScan.h"

namespace TextRepair {

namespace {

// Windows-1252 bytes 0x80 to 0x9F; 0 marks the five bytes the code page leaves undefined.
constexpr char16_t windows1252High[32] = {
    0x20ac, 0,      0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017d, 0,      0,      0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0,      0x017e, 0x0178,
};

enum class CodePage { windows1252, latin1 };

// The byte of `c` in the code page, or -1 when the page has no such character.
inline int byteOf(char16_t c, CodePage page)
{
    if (c < 0x80 || (c >= 0xa0 && c <= 0xff))
        return c;
    if (page == CodePage::latin1)
        return c <= 0xff ? c : -1;
    if (c < 0x100)
        return -1; // C1 controls: Windows-1252 puts printable characters there
    for (int i = 0; i < 32; ++i) {
        if (windows1252High[i] == c)
            return 0x80 + i;
    }
    return -1;
}

// The bytes of `s` in a single-byte code page, when every character exists there.
std::optional<QByteArray> encoded(const QString &s, CodePage page)
{
    QByteArray bytes(s.size(), Qt::Uninitialized);
    char *out = bytes.data();
    for (QChar c : s) {
        const int byte = byteOf(c.unicode(), page);
        if (byte < 0)
            return std::nullopt;
        *out++ = char(byte);
    }
    return bytes;
}

bool hasLeadCharacter(const QString &s)
{
    for (QChar c : s) {
        const char16_t u = c.unicode();
        if (u == 0x00c2 || u == 0x00c3 || u == 0x00e2)
            return true;
    }
    return false;
}

} // namespace

std::optional<QString> undo(const QString &s)
{
    for (CodePage page : {CodePage::windows1252, CodePage::latin1}) {
        const auto bytes = encoded(s, page);
        if (bytes && bytes->isValidUtf8())
            return TextScan::decoded(*bytes);
    }
    return std::nullopt;
}

QString fix(const QString &s)
{
    QString text = s;
    for (int pass = 0; pass < 3; ++pass) {
        if (!hasLeadCharacter(text))
            return text;
        const auto reversed = undo(text);
        if (!reversed || *reversed == text)
            return text;
        text = *reversed;
    }
    return text;
}

FixedFile fixFile(const QByteArray &text)
{
    FixedFile result;
    QByteArray out;
    bool changed = false;
    qsizetype copied = 0; // bytes of `text` already accounted for in `out`
    TextScan::Lines lines(text, TextScan::Breaks::lineFeed);
    while (const auto line = lines.peek()) {
        lines.advance();
        // "Â", "Ã" and "â" are all encoded with the lead byte C3; lines without it stay as they are.
        if (!line->contains('\xc3'))
            continue;
        const QString before = TextScan::decoded(*line);
        const QString after = fix(before);
        if (after == before)
            continue;
        ++result.fixedLines;
        if (!changed) {
            out.reserve(text.size());
            changed = true;
        }
        const qsizetype start = line->data() - text.constData();
        out.append(text.constData() + copied, start - copied);
        out.append(after.toUtf8());
        copied = start + line->size();
    }
    if (!changed) {
        result.text = text;
        return result;
    }
    out.append(text.constData() + copied, text.size() - copied);
    result.text = out;
    return result;
}

} // namespace TextRepair
