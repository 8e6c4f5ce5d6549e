// The records and the text beneath every reader: service references both ways, position labels,
// picon file names, the satellites.xml scanner, the repair of mis-encoded names, UTF-8 repair and
// the line splitting every reader and writer shares.

#include "BouquetEntry.h"
#include "Picon.h"
#include "Satellites.h"
#include "Service.h"
#include "TestSupport.h"
#include "TextRepair.h"
#include "TextScan.h"
#include "Transponder.h"
#include "Utf8.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

std::optional<ServiceKey> keyOf(const QString &reference)
{
    return BouquetEntry{freshId(), reference, std::nullopt}.serviceKey();
}

std::optional<QString> text(const char *utf8)
{
    return utf8 ? std::optional(QString::fromUtf8(utf8)) : std::nullopt;
}

// UTF-8 read as Latin-1 and written back: the layer a repair must peel off.
QString misDecoded(const QString &text, int layers = 1)
{
    return layers == 0 ? text : misDecoded(QString::fromLatin1(text.toUtf8()), layers - 1);
}

// The lines as QString's own decoding sees them, split at the same break characters.
QList<QByteArray> referenceLines(const QByteArray &bytes, TextScan::Breaks breaks)
{
    static const QRegularExpression unicode(u"[\\n\\x0b\\x0c\\r\\x{85}\\x{2028}\\x{2029}]"_s);
    static const QRegularExpression lineFeed(u"\\n"_s);
    QList<QByteArray> lines;
    for (const QString &line : QString::fromUtf8(bytes).split(breaks == TextScan::Breaks::unicode ? unicode : lineFeed))
        lines << line.toUtf8();
    return lines;
}

} // namespace

class RecordsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void references()
    {
        // The type, letter case, the first piece and everything after the seventh piece do not count.
        for (const char *reference : {"1:0:19:2B66:3F3:1:C00000:0:0:0:", "1:0:1:2b66:3f3:1:c00000:0:0:0:",
                                      "1:0:1:2B66:3F3:1:C00000", "x:0::2B66:3F3:1:C00000:0:0:0:http%3a//x:Name"})
            QCOMPARE(keyOf(QString::fromUtf8(reference)), (ServiceKey{0x2b66, 0x3f3, 1, 0xc00000}));
        QCOMPARE(keyOf(u"1:0:1:FFFFFFFF:0:0:00000000FFFF0000:0:0:0:"_s), (ServiceKey{0xffffffff, 0, 0, 0xffff0000}));
        for (const char *reference :
             {"1:64:0:0:0:0:0:0:0:0:", "1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.a.tv\" ORDER BY bouquet",
              "1:0:1:0:437:1:C00000:0:0:0:", "1:0:1:83:437:1", "1:0:1:83::1:C00000:0:0:0:", "1:0:1:83:437:1::0:0:0:",
              "1:00:1:83:437:1:C00000:0:0:0:", "1:0:1:0x83:437:1:C00000:0:0:0:", "1:0:1: 83:437:1:C00000:0:0:0:",
              "1:0:1:+83:437:1:C00000:0:0:0:", "1:0:1:83:43G:1:C00000:0:0:0:", "1:0:1:100000000:437:1:C00000:0:0:0:",
              "1:0:1:８３:437:1:C00000:0:0:0:", ""})
            QVERIFY2(!keyOf(QString::fromUtf8(reference)), reference);

        // Upper case without padding, and it reads back to the same key.
        const Service service{ServiceKey{0x0abc, 0xffffffff, 0, 0xeeee0000}, 0x19, {}, {}, {}};
        QCOMPARE(reference(service), u"1:0:19:ABC:FFFFFFFF:0:EEEE0000:0:0:0:"_s);
        QCOMPARE(keyOf(reference(service)), service.key);
        QCOMPARE(reference(1, ServiceKey{0x83, 0x437, 1, 0xc00000}), u"1:0:1:83:437:1:C00000:0:0:0:"_s);

        const std::pair<QString, bool> markers[] = {{markerReference.toString(), true}, {u"1:640:0:0:0:0:0:0:0:0:"_s, false},
            {u"1:64:E3:0:0:0:0:0:0:0::##### Kino #####"_s, true}, {u"1:0:1:83:437:1:C00000:0:0:0:"_s, false}};
        for (const auto &[reference, marker] : markers)
            QCOMPARE((BouquetEntry{freshId(), reference, {}}.isMarker()), marker);
    }

    void records()
    {
        const std::pair<const char *, const char *> positions[] = {
            {"s 11836500:27500000:1:2:192:2:0", "19.2E"}, {"s 1:2:3:4:1800:2:0", "180.0E"}, {"s 1:2:3:4:0:2:0", "0.0E"},
            {"s 1:2:3:4:1801:2:0", "179.9W"}, {"s 1:2:3:4:3592:2:0", "0.8W"}, {"s 1:2:3:4:3550:2:0", "5.0W"},
            // Negative positions stay east on purpose; they do not meet the satellites.xml labels.
            {"s 1:2:3:4:-50:2:0", "-5.0E"}, {"s 1:2:3:4:-8:2:0", "-0.8E"}, {"s 1:2:3:4:+130:2:0", "13.0E"},
            {"s 1:2:3:4:3601:2:0", "-0.1W"}, {"s 11494000::22000000:1:2:130:2:0", "13.0E"},
            {"s 11229000:22000000:1:2:192:2:0:1:2:2:2", "19.2E"}, {"s 1:2:3:4:abc:2:0", nullptr},
            {"s 1:2:3:4: 192:2:0", nullptr}, {"s 11494000:22000000:1:2", nullptr}, {"c 346000000:6900000:2:5:0", "Kabel"},
            {"t 474000000:0:5:5:3:2:4:4:2:0:0:0", "Terrestrisch"}, {"a 474000000:0:5", nullptr},
            {"s:11494000:22000000:1:2:192:2:0", nullptr}, {"", nullptr}};
        for (const auto &[data, label] : positions)
            QCOMPARE((Transponder{0, 0, 0, QString::fromUtf8(data)}.position()), text(label));

        for (quint32 type : {0u, 1u, 2u, 10u, 0x19u, 0x1fu, 0x10au})
            QCOMPARE((Service{{}, type, {}, {}, {}}.kind()), type == 2 || type == 10 ? MediaKind::radio : MediaKind::tv);
        QCOMPARE(MediaKind::fromRawValue(u"radio"), std::optional(MediaKind(MediaKind::radio)));
        QCOMPARE(MediaKind::fromRawValue(u"TV"), std::nullopt);
        QCOMPARE(MediaKind(MediaKind::radio).title(), u"Radio"_s);
        QCOMPARE((QSet<ServiceKey>{ServiceKey{1, 2, 3, 4}, ServiceKey{4, 3, 2, 1}, ServiceKey{1, 2, 3, 4}}.size()), 2);
        const BouquetEntry entry;
        QVERIFY(!entry.id.isNull() && entry.id != BouquetEntry().id);
        QCOMPARE(entry.id.version(), QUuid::Random);
    }

    void piconFileNames()
    {
        const std::pair<const char *, QStringList> cases[] = {
            {"1:0:19:2B66:3F3:1:C00000:0:0:0:", {u"1_0_19_2B66_3F3_1_C00000_0_0_0.png"_s, u"1_0_1_2B66_3F3_1_C00000_0_0_0.png"_s}},
            {"1:0:1:6dca:44d:1:c00000:0:0:0:", {u"1_0_1_6DCA_44D_1_C00000_0_0_0.png"_s}},
            {"1:64:0:0:0:0:0:0:0:0:", {u"1_64_0_0_0_0_0_0_0_0.png"_s, u"1_64_1_0_0_0_0_0_0_0.png"_s}},
            {"1:0:1:6DCA:44D:1:C00000:0:0:0", {u"1_0_1_6DCA_44D_1_C00000_0_0_0.png"_s}},
            {"1:0:1:1E0:2D85:12D:0:0:0:0:http%3A//0.0.0.0%3A9999/a:(TV) tdp HD", {u"1_0_1_1E0_2D85_12D_0_0_0_0.png"_s}},
            {"1:0:1f:2:40b:1:c00000:0:0:0:", {u"1_0_1F_2_40B_1_C00000_0_0_0.png"_s, u"1_0_1_2_40B_1_C00000_0_0_0.png"_s}},
            {"1:0:1:6DCA:44D:1:C00000:0:0", {}}, {"4097:0:1:6DCA:44D:1:C00000:0:0:0:http%3a//x", {}}, {"", {}}};
        for (const auto &[reference, names] : cases)
            QCOMPARE(Picon::fileNames(QString::fromUtf8(reference)), names);
    }

    void satellites()
    {
        const std::pair<int, const char *> labels[] = {
            {192, "19.2E"}, {0, "0.0E"}, {1800, "180.0E"}, {1801, "179.9W"}, {3550, "5.0W"}, {-50, "5.0W"}, {-8, "0.8W"},
            {-1771, "177.1W"}, {-1800, "180.0E"}, {3601, "-0.1W"}, {-3601, "-0.1E"},
            {std::numeric_limits<int>::min(), "-214748004.8E"}};
        for (const auto &[position, label] : labels)
            QCOMPARE(Satellites::key(position), QString::fromUtf8(label));

        // Tag text, attribute, value.
        const std::tuple<const char16_t *, const char16_t *, const char *> attributes[] = {
            {u"name=\"Astra\" position=\"192\"", u"position", "192"}, {u"name=\"Astra\" position=\"192\"", u"name", "Astra"},
            {u"name='Astra' position='192'", u"position", "192"}, {u"name=\"A\" position = \"192\"", u"position", nullptr},
            {u"name=\"A\"\tposition=\"192\"", u"position", nullptr}, {u"satname=\"A\"", u"name", nullptr},
            {u"x name=\"A name='B'", u"name", "B"}, {u"x name=\"A", u"name", nullptr},
            {u"x name=\"A\" name=\"B\"", u"name", "A"}, {u"x name='A' name=\"B\"", u"name", "B"},
            {u"x position=\"\"", u"position", ""}, {u"x flags=\" position=\"7\" position=\"192\"", u"position", "7"},
            {u"name=\"A\"", u"position", nullptr}};
        for (const auto &[tag, name, value] : attributes)
            QCOMPARE(Satellites::attribute(QStringView(name), QStringView(tag)), text(value));

        const QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- <sat name=\"comment\" -->\n<satellites>\n"
                               "\t<sat name=\"Astra 1KR/1L/1M/1N (19.2E)\" flags=\"1\" position=\"192\">\n"
                               "\t\t<transponder frequency=\"10714000\" position=\"130\"/>\n\t</sat>\n"
                               "\t<sat name=\"Old 5W\" position=\"-50\"/>\n"
                               "\t<sat name=\"New 5W &amp;amp; &quot;x&quot; &apos;y&apos; &lt;z&gt; &#233;\" position=\"3550\"/>\n"
                               "\t<sat position='130' name='Hot Bird'>\n\t<sat name=\"spaced\" position = \"282\">\n"
                               "\t<sat name=\"decimal\" position=\"28.2\">\n\t<sat name=\"plus\" position=\"+235\">\n"
                               "\t<sat name=\"\" position=\"90\">\n\t<sat name=\"no position\">\n"
                               "\t<sat name=\"empty\" position=\"\">\n\t<sat\tname=\"tab\" position=\"100\">\n"
                               "\t<SAT name=\"upper\" position=\"110\">\n</satellites>\n";
        QCOMPARE(Satellites::parse(xml), (QHash<QString, QString>{
                                              {u"19.2E"_s, u"Astra 1KR/1L/1M/1N (19.2E)"_s}, {u"13.0E"_s, u"Hot Bird"_s},
                                              {u"5.0W"_s, u"New 5W &amp; \"x\" 'y' <z> &#233;"_s},
                                              {u"23.5E"_s, u"plus"_s}, {u"9.0E"_s, QString()}}));
        // Broken files: nothing, a tag cut before its ">" (and all after it), a ">" inside a value,
        // a position beyond any integer, invalid UTF-8.
        for (const char *broken : {"", "<satellites></satellites>", "<sat name=\"A\" position=\"192\"",
                                   "<sat name=\"a>b\" position=\"192\">", "<sat name=\"A\" position=\"99999999999999999999\">"})
            QCOMPARE(Satellites::parse(broken).size(), 0);
        QCOMPARE(Satellites::parse("<sat name=\"A\" position=\"192\"><sat name=\"B\" position=\"130\"").size(), 1);
        QCOMPARE(Satellites::parse("<sat name=\"T\xfcrksat\" position=\"420\">").value(u"42.0E"_s), u"T\ufffdrksat"_s);
    }

    void fix()
    {
        const std::pair<QString, QString> cases[] = {
            {u"Ã¶sterreich"_s, u"österreich"_s}, {u"19.2Â°E"_s, u"19.2°E"_s}, {u"Ã–sterreich"_s, u"Österreich"_s},
            {u"SATÃ\u0090THE KINGDOM SAT"_s, u"SATÐTHE KINGDOM SAT"_s}, // a Latin-1 control character
            {u"Kanal â€“ Eins â‚¬"_s, u"Kanal – Eins €"_s},
            {misDecoded(u"Zürich"_s, 2), u"Zürich"_s}, {misDecoded(u"Zürich"_s, 3), u"Zürich"_s},
            // Not repairable or nothing to repair: a real "â" or "Â", correct accents, a Cyrillic letter
            // or a mix of code pages beside mojibake.
            {u"Château"_s, u"Château"_s}, {u"Â"_s, u"Â"_s}, {u"Télé Zürich"_s, u"Télé Zürich"_s},
            {u"Ã¶ ж"_s, u"Ã¶ ж"_s}, {u"Ã¶€\u0081"_s, u"Ã¶€\u0081"_s}, {u"Das Erste HD"_s, u"Das Erste HD"_s},
            {QString(), QString()}};
        for (const auto &[text, fixed] : cases) {
            QCOMPARE(TextRepair::fix(text), fixed);
            QCOMPARE(TextRepair::fix(fixed), fixed); // repairing twice gives what repairing once gives
        }
        // Three layers at most.
        QCOMPARE(TextRepair::fix(misDecoded(u"Zürich"_s, 4)), misDecoded(u"Zürich"_s));

        const std::pair<QString, const char16_t *> undone[] = {
            {u"Ã–"_s, u"Ö"}, {u"Ã\u0096"_s, u"Ö"}, {u"Château"_s, nullptr}, {u"ж"_s, nullptr}, {u"abc"_s, u"abc"},
            {u"Ã\u0081"_s, u"Á"}}; // a byte Windows-1252 leaves undefined falls back to Latin-1
        for (const auto &[text, result] : undone)
            QCOMPARE(TextRepair::undo(text), result ? std::optional(QString::fromUtf16(result)) : std::nullopt);
    }

    void fixFile()
    {
        const auto fixed = TextRepair::fixFile("eDVB services /4/\r\nÃ–sterreich\r\np:13.0Â°E,c:0001\n\nChâteau\nÃ¶ Ã¶");
        QCOMPARE(fixed.text, QByteArray("eDVB services /4/\r\nÖsterreich\r\np:13.0°E,c:0001\n\nChâteau\nö ö"));
        QCOMPARE(fixed.fixedLines, 3);
        // Nothing to repair: the very same bytes, also invalid ones.
        for (const QByteArray &clean : {QByteArray(), "a\nb\xff\r\n\n"_ba}) {
            QCOMPARE(TextRepair::fixFile(clean).text, clean);
            QCOMPARE(TextRepair::fixFile(clean).fixedLines, 0);
        }
        // A break other than a line feed does not end a line here.
        const auto joined = TextRepair::fixFile("Ã¶\x0bÃ¶\rÃ¶\n");
        QCOMPARE(joined.fixedLines, 1);
        QCOMPARE(joined.text, QByteArray("ö\x0bö\rö\n"));
    }

    void utf8()
    {
        const std::pair<QByteArray, QByteArray> cases[] = {
            {"abc", "abc"}, {"\xc3\xb6\xe2\x82\xac\xf0\x9f\x98\x80", "\xc3\xb6\xe2\x82\xac\xf0\x9f\x98\x80"},
            {"T\xfcrk", "T\xef\xbf\xbdrk"}, {"a\xe2\x82", "a\xef\xbf\xbd\xef\xbf\xbd"},
            {"\xc0\xaf", "\xef\xbf\xbd\xef\xbf\xbd"}, {"\xed\xa0\x80", "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd"},
            {"\xef\xbb\xbf" "a\xff", "\xef\xbb\xbf" "a\xef\xbf\xbd"}}; // the byte-order mark is kept
        for (const auto &[bytes, repaired] : cases) {
            QCOMPARE(Utf8::isValid(bytes), bytes == repaired);
            QCOMPARE(Utf8::repaired(bytes), repaired);
            QVERIFY(Utf8::isValid(repaired));
            if (bytes == repaired) // valid text is handed back without a copy
                QCOMPARE(Utf8::repaired(bytes).constData(), bytes.constData());
        }
    }

    void lines()
    {
        // Long enough for the sixteen-byte steps, with breaks at and across step boundaries.
        QByteArray longText(70, 'x');
        longText[15] = '\n';
        longText.replace(30, 3, "\xe2\x80\xa9").replace(46, 2, "\xc2\x85")[63] = '\r';
        for (const QByteArray &text :
             {QByteArray(), QByteArray("abc"), QByteArray("a\nb\n"), QByteArray("a\r\nb\r\n"), QByteArray("a\n\rb"),
              QByteArray("1\n2\x0b" "3\x0c" "4\r5\xc2\x85" "6\xe2\x80\xa8" "7\xe2\x80\xa9" "8"),
              QByteArray("\xc2\xa0\xe2\x80\xa7\xe2\x81\xa8\xc3\x85\xc2"), QByteArray("a\xe2\x80"),
              QByteArray("\xe2\x80\xc2\x85\xf0\xe2\x80\xa8\xed\xa0\x80\n"), longText}) {
            for (const auto breaks : {TextScan::Breaks::unicode, TextScan::Breaks::lineFeed}) {
                // Slices are repaired one by one, which must equal splitting the repaired whole.
                QList<QByteArray> scanned, walked;
                TextScan::forEachLine(text, breaks, [&](QByteArrayView line) {
                    scanned << Utf8::repaired(line.toByteArray());
                });
                for (TextScan::Lines walker(text, breaks); const auto line = walker.peek(); walker.advance())
                    walked << Utf8::repaired(line->toByteArray());
                QCOMPARE(scanned, referenceLines(text, breaks));
                QCOMPARE(walked, referenceLines(text, breaks));
            }
        }

        TextScan::Lines lines("a\nb\nc");
        QCOMPARE(lines.peek(2), std::optional<QByteArrayView>("c"));
        QCOMPARE(lines.peek(3), std::nullopt);
        lines.advance(2);
        QVERIFY(lines.peek(0) == "c" && !lines.peek(1));
        lines.advance(5);
        QVERIFY(lines.atEnd());
    }
};

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
