// The service database: both readers, the in-place writer, hostile and cut input, and a generated
// list whose every service is known in advance.

#include "LameDB.h"
#include "ListGenerator.h"
#include "TestSupport.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray v4(const QByteArray &services, const QByteArray &transponders = {})
{
    return "eDVB services /4/\ntransponders\n" + transponders + "end\nservices\n" + services + "end\nEdited by hand\n";
}

QByteArray v5(const QByteArray &lines)
{
    return "eDVB services /5/\n" + lines + '\n';
}

const QByteArray astra = "00c00000:0437:0001\n\ts 11836500:27500000:1:2:192:2:0\n/\n";
const QByteArray twoServices = "0083:00c00000:0437:0001:1:0\nA\np:ARD\n0084:00c00000:0437:0001:1:0\nB\np:ZDF\n";
const ServiceKey first{0x83, 0x437, 1, 0xc00000};
const ServiceKey second{0x84, 0x437, 1, 0xc00000};
const ServiceEdits deleteFirst{{first, ServiceEdit::deletion()}};
const ServiceEdits deleteSecond{{second, ServiceEdit::deletion()}};

QStringList names(const LameDB::Database &database)
{
    QStringList result;
    for (const Service &service : database.services)
        result << service.name;
    return result;
}

} // namespace

class LameDBTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void headersAndPieces()
    {
        // Format 4 reads the first service, format 5 the second.
        const QByteArray body = "\ntransponders\nend\nservices\n0083:00c00000:0437:0001:1:0\nFour\np:\nend\n"
                                "s:84:c00000:437:1:1:0,\"Five\"\n";
        QCOMPARE(names(LameDB::parse("eDVB services /5/" + body)), QStringList{u"Five"_s});
        QCOMPARE(names(LameDB::parse("eDVB services /4/" + body)), QStringList{u"Four"_s});
        QCOMPARE(names(LameDB::parse("eDVB services /3/" + body)), QStringList{u"Four"_s});
        QCOMPARE(LameDB::parse("eDVB services /4/").services.size(), 0);
        for (const char *text : {"eDVB services /6/\n", "\xef\xbb\xbf" "eDVB services /4/\n", "\neDVB services /4/\n",
                                 " eDVB services /4/\n", "edvb services /4/\n", "eDVB services /", "", "#NAME A (TV)\n"}) {
            try {
                LameDB::parse(text);
                QFAIL(text);
            } catch (const LameDBError &error) {
                QCOMPARE(error.errorCase(), LameDBError::unknownFormat);
                QCOMPARE(error.description(), u"Unbekanntes lamedb-Format."_s);
                QCOMPARE(QByteArray(error.what()), "Unbekanntes lamedb-Format.");
            }
        }

        const std::pair<const char *, quint32> hex[] = {
            {"00c00000", 0xc00000u}, {"EEEE0000", 0xeeee0000u}, {"ffffffff", 0xffffffffu}, {"0000000000437", 0x437u},
            {" \t0437 ", 0x437u}, {"\xc2\xa0" "ff", 0xffu}, {"100000000", 0}, {"", 0}, {"  ", 0}, {"04g7", 0},
            {"0x10", 0}, {"-1", 0}, {"04 37", 0}};
        for (const auto &[piece, value] : hex)
            QCOMPARE(LameDB::hex(piece), value);
        QCOMPARE(LameDB::tpKey(0xffffffff, 0, 0xffff), u"4294967295:0:65535"_s);
        const std::pair<const char *, const char *> providers[] = {
            {"p:ARD,c:000065,f:40", "ARD"}, {"c:0000ff,p:,f:40", ""}, {"c:0000ff,f:40", ""}, {"", ""}, {",,p:ORF,", "ORF"},
            {"p:A,p:B", "A"}, {"P:A,p:B", "B"}, {"xp:A,p:B", "B"}, {"p:a:b", "a:b"},
            {"p:13.0Â°E", "13.0Â°E"}}; // the reader repairs, not this
        for (const auto &[line, provider] : providers)
            QCOMPARE(LameDB::provider(line), QString::fromUtf8(provider));
    }

    void format4()
    {
        // A five-piece service header skips itself and the two lines after it, a two-piece transponder
        // header only itself; a later transponder replaces an earlier one, services are all kept.
        auto database = LameDB::parseV4(v4("0083:00c00000:0437:0001:25\nlost name\nlost data\n"
                                           "0083:00c00000:0437:0001:1:0\n Das Erste HD \np:ARD,c:000065\n"
                                           "0084:00c00000:0437:0001:2:0\nBayern 3\nc:0000ff,p:,f:40\n"
                                           "0085:00c00000:0437:0001::0:7\nno type\np:X\n" // the number moves up
                                           "0086:00c00000:0437:0001:x:0:1\nbad type\np:X\n"
                                           "0001:00820000:0001:0001:25:0:2\nelsewhere\np:\n"
                                           "0083:00c00000:0437:0001:25:0\ntwin\np:\n"
                                           "2b66:00c00000:03f3:0001:25:0\nÃ–sterreich\np:DVB-S2 8PSK 10758V 13.0Â°E\n",
                                           "00c00000:0437\n" + astra + "00820000:0001:0001\n\ts 1:2:3:4:130:2:0\n/\n"
                                           "ffff0000:0001:03e8\n\tc 425000:6875000:2:5:0:0:0\n/\n"
                                           "00820000:0001:0001\n\ts 1:2:3:4:3592:2:0\n/\n"));
        QCOMPARE(database.transponders,
                 (QHash<QString, Transponder>{
                     {u"12582912:1079:1"_s, {0xc00000, 0x437, 1, u"s 11836500:27500000:1:2:192:2:0"_s}},
                     {u"8519680:1:1"_s, {0x820000, 1, 1, u"s 1:2:3:4:3592:2:0"_s}},
                     {u"4294901760:1:1000"_s, {0xffff0000, 1, 0x3e8, u"c 425000:6875000:2:5:0:0:0"_s}}}));
        QCOMPARE(database.services,
                 (QList<Service>{{first, 1, u" Das Erste HD "_s, u"ARD"_s, u"19.2E"_s},
                                 {second, 2, u"Bayern 3"_s, {}, u"19.2E"_s},
                                 {{0x85, 0x437, 1, 0xc00000}, 0, u"no type"_s, u"X"_s, u"19.2E"_s},
                                 {{0x86, 0x437, 1, 0xc00000}, 1, u"bad type"_s, u"X"_s, u"19.2E"_s},
                                 {{1, 1, 1, 0x820000}, 25, u"elsewhere"_s, {}, u"0.8W"_s},
                                 {first, 25, u"twin"_s, {}, u"19.2E"_s},
                                 {{0x2b66, 0x3f3, 1, 0xc00000}, 25, u"Österreich"_s, u"DVB-S2 8PSK 10758V 13.0°E"_s, {}}}));
        // Reading is by position: without its "/" a transponder takes the next header as its third
        // line, and the tuning line after that reads as a header of its own.
        database = LameDB::parseV4(v4({}, "00c00000:0437:0001\n\ts 1:2:3:4:192:2:0\n00c00000:0438:0001\n\ts 1:2:3\n/\n"));
        QCOMPARE(database.transponders.size(), 2);
        QCOMPARE(database.transponders.value(LameDB::tpKey(0, 2, 3)).data, u"/"_s);
        // Without "transponders" nothing is read; without "services" the transponders still are.
        QCOMPARE(LameDB::parseV4(v4(twoServices).replace("transponders\n", "")).services.size(), 0);
        database = LameDB::parseV4("eDVB services /4/\ntransponders\n" + astra + "end\n");
        QCOMPARE(database.transponders.size(), 1);
        QCOMPARE(database.services.size(), 0);
        // Cut files: a service needs all three lines (an empty data line counts); "end" is not needed.
        const QByteArray full = v4(twoServices, astra);
        QCOMPARE(names(LameDB::parseV4(full.left(full.indexOf("\nB\n")))), QStringList{u"A"_s});
        QCOMPARE(names(LameDB::parseV4(full.left(full.indexOf("p:ZDF") - 1))), QStringList{u"A"_s});
        QCOMPARE(names(LameDB::parseV4(full.left(full.indexOf("p:ZDF")))), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(names(LameDB::parseV4(full.left(full.indexOf("end\nEdited")))), (QStringList{u"A"_s, u"B"_s}));
    }

    void format5()
    {
        const auto database = LameDB::parseV5(v5("# comment\ns:0005:00c00000:0437:0001:1:0,\"before its transponder\"\n"
                                                 "t:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\n"
                                                 "t:ffff0000:0001:03e8,c:425000:6875000:2:5:0:0:0\n"
                                                 "t:eeee0000:000e:22d4,t:682000000:0:5:5:3:2:4:4:2:0:0:0\n"
                                                 "s:0083:00c00000:0437:0001:1:0,\"Das Erste HD\",p:ARD,c:000065\n"
                                                 "s:0001:ffff0000:0001:03e8:2:0,\"Radio\"\n"
                                                 "s:0002:eeee0000:000e:22d4:25:0,\"DVB-T\",c:0000ff,p:,f:40\n"
                                                 "s:0003:00c00000:0437:0001:x:0,\"type x\"\n"
                                                 "s:0004:00c00000:0437:0001:1:0,\"A\"B\",p:X\n" // the name ends at the second quote
                                                 "s:0006:00c00000:0437:0001:1:0,\"Kanal â€“ 1\",p:Câble\n# Edited by hand"));
        QCOMPARE(database.transponders,
                 (QHash<QString, Transponder>{
                     {u"12582912:1079:1"_s, {0xc00000, 0x437, 1, u"s 11836500:27500000:1:2:192:2:0"_s}},
                     {u"4294901760:1:1000"_s, {0xffff0000, 1, 0x3e8, u"c 425000:6875000:2:5:0:0:0"_s}},
                     {u"4008574976:14:8916"_s, {0xeeee0000, 14, 0x22d4, u"t 682000000:0:5:5:3:2:4:4:2:0:0:0"_s}}}));
        QCOMPARE(database.services, (QList<Service>{{{5, 0x437, 1, 0xc00000}, 1, u"before its transponder"_s, {}, {}},
                                                    {first, 1, u"Das Erste HD"_s, u"ARD"_s, u"19.2E"_s},
                                                    {{1, 1, 0x3e8, 0xffff0000}, 2, u"Radio"_s, {}, u"Kabel"_s},
                                                    {{2, 14, 0x22d4, 0xeeee0000}, 25, u"DVB-T"_s, {}, u"Terrestrisch"_s},
                                                    {{3, 0x437, 1, 0xc00000}, 1, u"type x"_s, {}, u"19.2E"_s},
                                                    {{4, 0x437, 1, 0xc00000}, 1, u"A"_s, u"X"_s, u"19.2E"_s},
                                                    {{6, 0x437, 1, 0xc00000}, 1, u"Kanal – 1"_s, u"Câble"_s, u"19.2E"_s}}));

        // One service line each and the type read from it; none: the line is skipped. The character
        // before the first quote is dropped whatever it is.
        const std::pair<const char *, std::optional<quint32>> services[] = {
            {"s:83:c00000:437:1:25:0,\"N\"", 25u}, {"s:83:c00000:437:1:25:0,\"N", {}}, {"s:83:c00000:437:1:25:0,N", {}},
            {"s:83:c00000:437:1,\"N\"", {}}, {"s:83:c00000:437:1:25:0\"N\"", 25u}, {"s:83:c00000:437:1:25\"N\"", 2u},
            {"s:83:c00000:437:1:2é\"N\"", 2u}, {"s:83:c00000:437:1:2\xff\"N\"", 2u}, {"s:\"N\"", {}},
            {"s:83:c00000:437:1:4294967296:0,\"N\"", 1u}, {"s:83:c00000:437:1:4294967295:0,\"N\"", 4294967295u},
            {"s:0083:00c00000:0437:0001:25:0,\"N\"", 25u}, {"s:0083:00c00000:0437:0001:25,\"N\"", 25u},
            {"s:0083:00c00000:0437:0001:,\"N\"", {}}, {"S:83:c00000:437:1:25:0,\"N\"", {}}, {" s:83:c00000:437:1:25:0,\"N\"", {}},
            {"s83:c00000:437:1:25:0,\"N\"", {}}};
        for (const auto &[line, type] : services) {
            const auto read = LameDB::parseV5(v5(line)).services;
            QCOMPARE(read.isEmpty() ? std::nullopt : std::optional(read[0].type), type);
        }
        // One transponder line each and its data; none: the line is skipped.
        const std::pair<const char *, const char *> transponders[] = {
            {"t:c00000:437:1,s:1:2:3:4:192:2:0", "s 1:2:3:4:192:2:0"}, {"t:c00000:437:1,x", "x"},
            {"t:c00000:437:1,s 1:2", "s 1:2"}, {"t:c00000:437:1, s:1 ", " s:1 "}, {"t:c00000:437:1,", ""},
            {"t:c00000:437:1,😀:1", "😀 1"}, {"t:c00000:437:1,s:1:2,MIS/PLS:1:0:0", "s 1:2,MIS/PLS:1:0:0"},
            {"t:c00000:437:1", nullptr}, {"t:c00000:437,s:1", nullptr}};
        for (const auto &[line, data] : transponders) {
            const auto read = LameDB::parseV5(v5(line)).transponders;
            QCOMPARE(read.isEmpty() ? std::nullopt : std::optional(read.begin()->data),
                     data ? std::optional(QString::fromUtf8(data)) : std::nullopt);
        }
    }

    // Both readers and the writer read a service header the same way.
    void keys()
    {
        const std::pair<const char *, ServiceKey> cases[] = {
            {"0083:00c00000:0437:0001", first}, {"83:C00000:437:1", first}, {"000000083:c00000:437:1", first},
            {"1000000ff:c00000:437:1", {0, 0x437, 1, 0xc00000}}, {"83:c0000g:437:1", {0x83, 0x437, 1, 0}},
            {"0083:00c0000g:0437:0001", {0x83, 0x437, 1, 0}}, {" 083:00c00000:0437:0001", first},
            {"0083:00C00000:0437:0001", first}, {" 83 :c00000:437:1", first}, {"83::c00000:437:1", first}};
        for (const auto &[header, key] : cases) {
            const ServiceEdits rename{{key, ServiceEdit::rename(u"M"_s)}};
            for (const QByteArray &text : {v5("s:" + QByteArray(header) + ":1:0,\"N\""), v4(header + ":1:0\nN\np:\n"_ba)}) {
                QCOMPARE(LameDB::parse(text).services.value(0).key, key);
                QCOMPARE(LameDB::parse(LameDB::applying(rename, text)).services.value(0).name, u"M"_s);
            }
        }
    }

    // Every Unicode line break ends a line; invalid bytes and controls stay in names.
    void hostileText()
    {
        const QByteArray lf = v5("t:c00000:437:1,s:1:2:3:4:192:2:0\ns:83:c00000:437:1:1:0,\"A\",p:X\ns:84:c00000:437:1:1:0,\"B\"");
        for (const char *lineBreak : {"\r\n", "\r", "\x0b", "\x0c", "\xc2\x85", "\xe2\x80\xa8", "\xe2\x80\xa9"})
            QCOMPARE(LameDB::parseV5(QByteArray(lf).replace("\n", lineBreak)).services, LameDB::parseV5(lf).services);
        // A break inside a name cuts the line before its closing quote. Not breaks: a lone C2 or
        // E2 80 without its last byte.
        QCOMPARE(LameDB::parseV5(v5("s:83:c00000:437:1:1:0,\"A\xe2\x80\xa8" "B\"")).services.size(), 0);
        QCOMPARE(names(LameDB::parseV5(v5("s:83:c00000:437:1:1:0,\"A\xc2\xa0" "B\xe2\x80\xa7\""))),
                 QStringList{u"A\u00a0B\u2027"_s});
        // Format 4 with CR LF: the extra empty lines shift the pairs and triples out of step.
        const auto shifted = LameDB::parseV4(v4("0083:00c00000:0437:0001:1:0\nA\np:\n", astra).replace("\n", "\r\n"));
        QCOMPARE(shifted.transponders.size(), 1);
        QCOMPARE(shifted.transponders.begin()->data, QString());
        QCOMPARE(shifted.services.size(), 0);

        const auto database = LameDB::parseV5(v5("s:83:c00000:437:1:1:0,\"Bad \xff\xfe name\",p:Pro\xc3\n"
                                                 "s:84:c00000:437:1:1:0,\"Zero" + QByteArray(1, '\0') + "Byte\"\n"
                                                 "s:85:c00000:437:1:1:0,\"\xef\xbb\xbf" "BOM\""));
        QCOMPARE(names(database), (QStringList{u"Bad \ufffd\ufffd name"_s, u"Zero"_s + QChar(0) + u"Byte"_s, u"\ufeffBOM"_s}));
        QCOMPARE(database.services[0].provider, u"Pro\ufffd"_s);
    }

    // The generator knows what each service must read as, independently of the reader; a file
    // cut anywhere reads as the start of the whole, less a cut last service.
    void generatedLists()
    {
        const ListGenerator::List list = ListGenerator::generate({.services = 3000, .transponders = 150, .bouquets = 0});
        const auto format5 = LameDB::parse(list.lamedb5);
        const auto format4 = LameDB::parse(list.lamedb);
        QCOMPARE(format5.services, list.services);
        QCOMPARE(format4.services, list.services);
        QCOMPARE(format5.transponders, format4.transponders);
        QCOMPARE(format5.transponders.size(), 150);

        const ListGenerator::List small = ListGenerator::generate({.services = 120, .transponders = 12, .bouquets = 0});
        for (const QByteArray &whole : {small.lamedb5, small.lamedb}) {
            for (qsizetype length = 20; length < whole.size(); length += 5) { // the header is 17 bytes
                const auto part = LameDB::parse(whole.left(length)).services;
                QVERIFY(part.size() <= small.services.size());
                const qsizetype kept = qMax<qsizetype>(part.size() - 1, 0);
                QCOMPARE(part.first(kept), small.services.first(kept));
                if (!part.isEmpty())
                    QCOMPARE(part.last().key, small.services[part.size() - 1].key);
            }
        }
    }

    void applyingFormat5()
    {
        // Nothing to apply, or nothing of it there: the same bytes, also for text the reader rejects.
        for (const QByteArray &text : {"not a database\r\n"_ba, QByteArray(), v4(twoServices)})
            QCOMPARE(LameDB::applying({}, text), text);
        QCOMPARE(LameDB::applying({{{9, 9, 9, 9}, ServiceEdit::deletion()}}, v4(twoServices, astra)), v4(twoServices, astra));

        const QByteArray head = "eDVB services /5/\r\nt:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\r\n";
        const QByteArray text = head + "s:0083:00c00000:0437:0001:1:0,\"Das Erste HD\",p:ARD,c:000065\r\n"
                                       "s:0084:00c00000:0437:0001:1:0,\"ZDF\",p:ZDF\r\ns:0083:00C00000:437:1:25:0,\"Twin\"\r\n# end\r\n";
        // Quotes become apostrophes, the data pieces and the carriage returns stay, both twins change.
        QCOMPARE(LameDB::applying({{first, ServiceEdit::rename(u"Das \"Erste\" Ã¶"_s)}}, text),
                 head + "s:0083:00c00000:0437:0001:1:0,\"Das 'Erste' Ã¶\",p:ARD,c:000065\r\n"
                        "s:0084:00c00000:0437:0001:1:0,\"ZDF\",p:ZDF\r\ns:0083:00C00000:437:1:25:0,\"Das 'Erste' Ã¶\"\r\n# end\r\n");
        QCOMPARE(LameDB::applying({{second, ServiceEdit::deletion()}, {first, ServiceEdit::rename(u"1"_s)}}, text),
                 head + "s:0083:00c00000:0437:0001:1:0,\"1\",p:ARD,c:000065\r\ns:0083:00C00000:437:1:25:0,\"1\"\r\n# end\r\n");
        // Deleting the last line of a text without a final line end leaves none behind.
        QCOMPARE(LameDB::applying(deleteSecond, "eDVB services /5/\ns:84:c00000:437:1:1:0,\"Z\""), "eDVB services /5/"_ba);
        QCOMPARE(LameDB::applying(deleteSecond, v5("s:84:c00000:437:1:1:0,\"Z\"")), "eDVB services /5/\n"_ba);
        // Lines the reader skips are kept: no closing quote, too few pieces.
        const QByteArray skipped = v5("s:84:c00000:437:1:1:0,\"Z\ns:84:c00000:437:1,\"Z\"");
        QCOMPARE(LameDB::applying(deleteSecond, skipped), skipped);
    }

    void applyingFormat4()
    {
        const QByteArray text = v4(twoServices, astra);
        // Deleting removes exactly the three lines; transponders, "end" and the tail stay.
        QCOMPARE(LameDB::applying(deleteFirst, text), v4("0084:00c00000:0437:0001:1:0\nB\np:ZDF\n", astra));
        // A new name is written as typed: quotes and mis-encoded letters stay.
        QCOMPARE(LameDB::applying({{second, ServiceEdit::rename(u"\"Z\" Ã¶"_s)}}, text),
                 v4(QByteArray(twoServices).replace("\nB\n", "\n\"Z\" Ã¶\n"), astra));
        // Carriage returns: "services\r" opens no block, so nothing changes.
        const QByteArray crlf = QByteArray(text).replace("\n", "\r\n");
        QCOMPARE(LameDB::applying(deleteFirst, crlf), crlf);
        // A header among the last two lines is kept.
        const QByteArray cut = "eDVB services /4/\nservices\n0083:00c00000:0437:0001:1:0\nDas Erste HD";
        QCOMPARE(LameDB::applying(deleteFirst, cut), cut);
        // Unlike the reader, a short header skips one line only, so the next header is edited.
        QCOMPARE(LameDB::applying({{first, ServiceEdit::rename(u"B"_s)}},
                                  "eDVB services /4/\nservices\nbad:line\n0083:00c00000:0437:0001:1:0\nA\np:\nend\n"),
                 "eDVB services /4/\nservices\nbad:line\n0083:00c00000:0437:0001:1:0\nB\np:\nend\n"_ba);
        // Lines outside the service block are never edited; a second "services" line opens it again.
        const QByteArray outside = "eDVB services /4/\n0083:00c00000:0437:0001:1:0\nA\np:\nservices\nend\n"
                                   "0083:00c00000:0437:0001:1:0\nB\np:\n";
        QCOMPARE(LameDB::applying(deleteFirst, outside), outside);
        QCOMPARE(LameDB::applying(deleteFirst, outside + "services\n0083:00c00000:0437:0001:1:0\nC\np:\nend\n"),
                 outside + "services\nend\n");
        // Deleting the very last service of a text without final line end drops its line feed too.
        QCOMPARE(LameDB::applying(deleteFirst, "eDVB services /4/\nservices\n0083:00c00000:0437:0001:1:0\nA\np:"),
                 "eDVB services /4/\nservices"_ba);
    }
};

QTEST_GUILESS_MAIN(LameDBTest)
#include "LameDBTest.moc"
