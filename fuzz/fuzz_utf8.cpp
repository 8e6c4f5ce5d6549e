// UTF-8 repair and the byte-level line splitting against the same done on decoded text.

#include "FuzzCheck.h"
#include "TextScan.h"
#include "Utf8.h"

#include <QList>

namespace {

QList<QString> decodedLines(const QString &text, bool lineFeedOnly)
{
    QList<QString> lines;
    QString line;
    for (QChar c : text) {
        const char16_t u = c.unicode();
        if (lineFeedOnly ? u == u'\n' : (u >= 0x0a && u <= 0x0d) || u == 0x85 || u == 0x2028 || u == 0x2029) {
            lines << line;
            line.clear();
        } else {
            line += c;
        }
    }
    lines << line;
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray bytes = fuzzInput(data, size).toByteArray();
    const QByteArray repaired = Utf8::repaired(bytes);
    FUZZ_CHECK(Utf8::isValid(repaired));
    FUZZ_CHECK(Utf8::isValid(bytes) == (repaired == bytes));
    const QString text = TextScan::decoded(bytes);
    FUZZ_CHECK(text.toUtf8() == repaired);

    for (const auto breaks : {TextScan::Breaks::unicode, TextScan::Breaks::lineFeed}) {
        QList<QString> lines;
        TextScan::forEachLine(bytes, breaks, [&lines](QByteArrayView line) { lines << TextScan::decoded(line); });
        FUZZ_CHECK(lines == decodedLines(text, breaks == TextScan::Breaks::lineFeed));
        TextScan::Lines walker(bytes, breaks);
        for (const QString &line : lines) {
            const auto next = walker.peek();
            FUZZ_CHECK(next && TextScan::decoded(*next) == line);
            walker.advance();
        }
        FUZZ_CHECK(walker.atEnd());
    }
    return 0;
}
