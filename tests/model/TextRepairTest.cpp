// The repair of mis-encoded names, UTF-8 validation and repair, and the line splitting every reader
// and writer shares.

#include "TestSupport.h"
#include "TextRepair.h"
#include "TextScan.h"
#include "Utf8.h"

#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(std::optional<QString>)

namespace {

// UTF-8 read as Latin-1 and written back: the layer a repair must peel off.
QString misDecoded(const QString &text)
{
    return QString::fromLatin1(text.toUtf8());
}

// The lines of a text as the Unicode-aware QString sees them, split at the same break characters.
QList<QByteArray> referenceLines(const QByteArray &bytes, bool lineFeedOnly)
{
    const QString text = QString::fromUtf8(bytes);
    QList<QByteArray> lines;
    QString line;
    for (QChar c : text) {
        const char16_t u = c.unicode();
        const bool isBreak = lineFeedOnly ? u == u'\n'
                                          : (u >= 0x0a && u <= 0x0d) || u == 0x85 || u == 0x2028 || u == 0x2029;
        if (isBreak) {
            lines << line.toUtf8();
            line.clear();
        } else {
            line += c;
        }
    }
    lines << line.toUtf8();
    return lines;
}

// Slices are repaired one by one, which must equal splitting the repaired whole.
QList<QByteArray> scannedLines(const QByteArray &bytes, TextScan::Breaks breaks)
{
    QList<QByteArray> lines;
    TextScan::forEachLine(bytes, breaks, [&lines](QByteArrayView line) { lines << Utf8::repaired(line.toByteArray()); });
    return lines;
}

QList<QByteArray> walkedLines(const QByteArray &bytes, TextScan::Breaks breaks)
{
    QList<QByteArray> lines;
    TextScan::Lines walker(bytes, breaks);
    while (const auto line = walker.peek()) {
        lines << Utf8::repaired(line->toByteArray());
        walker.advance();
    }
    return lines;
}

} // namespace

class TextRepairTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void fix_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("fixed");
        QTest::newRow("umlaut") << u"Ã¶sterreich"_s << u"österreich"_s;
        QTest::newRow("degree sign") << u"19.2Â°E"_s << u"19.2°E"_s;
        QTest::newRow("Windows-1252 byte") << u"Ã–sterreich"_s << u"Österreich"_s;
        QTest::newRow("Latin-1 control") << u"SATÃ\u0090THE KINGDOM SAT"_s << u"SATÐTHE KINGDOM SAT"_s;
        QTest::newRow("three bytes") << u"Kanal â€“ Eins â‚¬"_s << u"Kanal – Eins €"_s;
        QTest::newRow("two layers") << misDecoded(misDecoded(u"Zürich"_s)) << u"Zürich"_s;
        QTest::newRow("three layers") << misDecoded(misDecoded(misDecoded(u"Zürich"_s))) << u"Zürich"_s;
        QTest::newRow("four layers stop after three") << misDecoded(misDecoded(misDecoded(misDecoded(u"Zürich"_s))))
                                                      << misDecoded(u"Zürich"_s);
        QTest::newRow("real â") << u"Château"_s << u"Château"_s;
        QTest::newRow("real Â alone") << u"Â"_s << u"Â"_s;
        QTest::newRow("correct accents untouched") << u"Télé Zürich"_s << u"Télé Zürich"_s;
        QTest::newRow("Cyrillic next to mojibake") << u"Ã¶ ж"_s << u"Ã¶ ж"_s;
        QTest::newRow("mixed Windows-1252 and C1") << u"Ã¶€\u0081"_s << u"Ã¶€\u0081"_s;
        QTest::newRow("ASCII") << u"Das Erste HD"_s << u"Das Erste HD"_s;
        QTest::newRow("empty") << QString() << QString();
    }

    void fix()
    {
        QFETCH(QString, text);
        QFETCH(QString, fixed);
        QCOMPARE(TextRepair::fix(text), fixed);
        // Repairing twice gives what repairing once gives, for text within three layers.
        if (!QByteArray(QTest::currentDataTag()).startsWith("four"))
            QCOMPARE(TextRepair::fix(TextRepair::fix(text)), fixed);
    }

    void undo_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<std::optional<QString>>("undone");
        QTest::newRow("Windows-1252") << u"Ã–"_s << std::optional(u"Ö"_s);
        QTest::newRow("Latin-1 fallback") << u"Ã\u0096"_s << std::optional(u"Ö"_s);
        QTest::newRow("not UTF-8 afterwards") << u"Château"_s << std::optional<QString>();
        QTest::newRow("not in either code page") << u"ж"_s << std::optional<QString>();
        QTest::newRow("ASCII undoes to itself") << u"abc"_s << std::optional(u"abc"_s);
        QTest::newRow("undefined byte, then Latin-1") << u"Ã\u0081"_s << std::optional(u"Á"_s);
    }

    void undo()
    {
        QFETCH(QString, text);
        QFETCH(std::optional<QString>, undone);
        QCOMPARE(TextRepair::undo(text), undone);
    }

    void fixFile()
    {
        QCOMPARE(TextRepair::fixFile({}).text, QByteArray());
        QCOMPARE(TextRepair::fixFile({}).fixedLines, 0);

        const QByteArray text = "eDVB services /4/\r\n"
                                "Ã–sterreich\r\n"
                                "p:13.0Â°E,c:0001\n"
                                "\n"
                                "Château\n"
                                "Ã¶ Ã¶";
        const auto fixed = TextRepair::fixFile(text);
        QCOMPARE(fixed.text, QByteArray("eDVB services /4/\r\nÖsterreich\r\np:13.0°E,c:0001\n\nChâteau\nö ö"));
        QCOMPARE(fixed.fixedLines, 3);

        // Nothing to repair: the very same bytes, also invalid ones.
        const QByteArray clean = "a\nb\xff\r\n\n";
        QCOMPARE(TextRepair::fixFile(clean).text, clean);
        QCOMPARE(TextRepair::fixFile(clean).fixedLines, 0);
        // A break other than a line feed does not end a line here.
        const auto joined = TextRepair::fixFile("Ã¶\x0bÃ¶\rÃ¶\n");
        QCOMPARE(joined.fixedLines, 1);
        QCOMPARE(joined.text, QByteArray("ö\x0bö\rö\n"));
    }

    void utf8_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("repaired");
        QTest::newRow("ASCII") << QByteArray("abc") << QByteArray("abc");
        QTest::newRow("valid") << QByteArray("\xc3\xb6\xe2\x82\xac\xf0\x9f\x98\x80") << QByteArray("\xc3\xb6\xe2\x82\xac\xf0\x9f\x98\x80");
        QTest::newRow("Latin-1 byte") << QByteArray("T\xfcrk") << QByteArray("T\xef\xbf\xbdrk");
        QTest::newRow("cut sequence") << QByteArray("a\xe2\x82") << QByteArray("a\xef\xbf\xbd\xef\xbf\xbd");
        QTest::newRow("overlong") << QByteArray("\xc0\xaf") << QByteArray("\xef\xbf\xbd\xef\xbf\xbd");
        QTest::newRow("surrogate") << QByteArray("\xed\xa0\x80") << QByteArray("\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd");
        QTest::newRow("BOM kept") << QByteArray("\xef\xbb\xbf" "a\xff") << QByteArray("\xef\xbb\xbf" "a\xef\xbf\xbd");
    }

    void utf8()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, repaired);
        QCOMPARE(Utf8::isValid(bytes), bytes == repaired);
        QCOMPARE(Utf8::repaired(bytes), repaired);
        QVERIFY(Utf8::isValid(repaired));
        if (bytes == repaired) // valid text is handed back without a copy
            QCOMPARE(Utf8::repaired(bytes).constData(), bytes.constData());
    }

    void lines_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("one line") << QByteArray("abc");
        QTest::newRow("final break") << QByteArray("a\nb\n");
        QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n");
        QTest::newRow("LF CR") << QByteArray("a\n\rb");
        QTest::newRow("all breaks") << QByteArray("1\n2\x0b" "3\x0c" "4\r5\xc2\x85" "6\xe2\x80\xa8" "7\xe2\x80\xa9" "8");
        QTest::newRow("near misses") << QByteArray("\xc2\xa0\xe2\x80\xa7\xe2\x81\xa8\xc3\x85\xc2");
        QTest::newRow("cut separator at the end") << QByteArray("a\xe2\x80");
        QTest::newRow("invalid around breaks") << QByteArray("\xe2\x80\xc2\x85\xf0\xe2\x80\xa8\xed\xa0\x80\n");
        // Long enough for the sixteen-byte steps, with breaks at and across step boundaries.
        QByteArray longText(70, 'x');
        longText[15] = '\n';
        longText.replace(30, 3, "\xe2\x80\xa9");
        longText.replace(46, 2, "\xc2\x85");
        longText[63] = '\r';
        QTest::newRow("long") << longText;
    }

    void lines()
    {
        QFETCH(QByteArray, text);
        QCOMPARE(scannedLines(text, TextScan::Breaks::unicode), referenceLines(text, false));
        QCOMPARE(scannedLines(text, TextScan::Breaks::lineFeed), referenceLines(text, true));
        QCOMPARE(walkedLines(text, TextScan::Breaks::unicode), referenceLines(text, false));
        QCOMPARE(walkedLines(text, TextScan::Breaks::lineFeed), referenceLines(text, true));
    }

    void lookAhead()
    {
        TextScan::Lines lines("a\nb\nc");
        QCOMPARE(lines.peek(2), std::optional<QByteArrayView>("c"));
        QCOMPARE(lines.peek(3), std::nullopt);
        QCOMPARE(lines.peek(0), std::optional<QByteArrayView>("a"));
        lines.advance(2);
        QCOMPARE(lines.peek(0), std::optional<QByteArrayView>("c"));
        QCOMPARE(lines.peek(1), std::nullopt);
        lines.advance(5);
        QVERIFY(lines.atEnd());
    }
};

QTEST_GUILESS_MAIN(TextRepairTest)
#include "TextRepairTest.moc"
