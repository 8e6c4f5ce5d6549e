// The service database: both readers, the in-place writer, hostile input, and round trips over
// every database of the corpus and a generated list of 100,000 services.

#include "CorpusFiles.h"
#include "LameDB.h"
#include "ListGenerator.h"
#include "TestSupport.h"
#include "Utf8.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray v4(const QByteArray &services, const QByteArray &transponders = {})
{
    return "eDVB services /4/\ntransponders\n" + transponders + "end\nservices\n" + services + "end\nEdited by hand\n";
}

const QByteArray astra = "00c00000:0437:0001\n\ts 11836500:27500000:1:2:192:2:0\n/\n";

QStringList names(const LameDB::Database &database)
{
    QStringList result;
    for (const Service &service : database.services)
        result << service.name;
    return result;
}

// Counted without the reader: "s:" lines of a format-5 text.
qsizetype countFormat5Services(const QByteArray &text)
{
    qsizetype count = 0;
    for (const QByteArray &line : text.split('\n'))
        count += line.startsWith("s:");
    return count;
}

// Lines of the format-4 service block, between "services" and the next "end".
std::pair<qsizetype, qsizetype> format4ServiceBlock(const QList<QByteArray> &lines)
{
    const qsizetype first = lines.indexOf("services") + 1;
    return {first, lines.indexOf("end", first)};
}

// A service whose key occurs once, near the middle, so that an edit touches exactly its lines.
qsizetype uniqueServiceNearMiddle(const LameDB::Database &database)
{
    QHash<ServiceKey, int> counts;
    for (const Service &service : database.services)
        ++counts[service.key];
    for (qsizetype i = database.services.size() / 2; i < database.services.size(); ++i) {
        if (counts.value(database.services.at(i).key) == 1)
            return i;
    }
    return -1;
}

} // namespace

class LameDBTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void headers_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("known");
        QTest::newRow("format 5") << QByteArray("eDVB services /5/\n") << true;
        QTest::newRow("format 4") << QByteArray("eDVB services /4/\n") << true;
        QTest::newRow("format 3") << QByteArray("eDVB services /3/\n") << true;
        QTest::newRow("no line end") << QByteArray("eDVB services /4/") << true;
        QTest::newRow("format 6") << QByteArray("eDVB services /6/\n") << false;
        QTest::newRow("byte-order mark") << QByteArray("\xef\xbb\xbf" "eDVB services /4/\n") << false;
        QTest::newRow("blank line first") << QByteArray("\neDVB services /4/\n") << false;
        QTest::newRow("leading blank") << QByteArray(" eDVB services /4/\n") << false;
        QTest::newRow("lower case") << QByteArray("edvb services /4/\n") << false;
        QTest::newRow("cut header") << QByteArray("eDVB services /") << false;
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("a bouquet") << QByteArray("#NAME Favourites (TV)\n") << false;
    }

    void headers()
    {
        QFETCH(QByteArray, text);
        QFETCH(bool, known);
        try {
            LameDB::parse(text);
            QVERIFY(known);
        } catch (const LameDBError &error) {
            QVERIFY(!known);
            QCOMPARE(error.errorCase(), LameDBError::unknownFormat);
            QCOMPARE(error.description(), u"Unbekanntes lamedb-Format."_s);
            QCOMPARE(QByteArray(error.what()), "Unbekanntes lamedb-Format.");
        }
    }

    void format3ReadsLikeFormat4()
    {
        const QByteArray text = v4("0083:00c00000:0437:0001:1:0\nDas Erste HD\np:ARD\n", astra);
        QByteArray format3 = text;
        format3.replace("/4/", "/3/");
        const auto a = LameDB::parse(text);
        const auto b = LameDB::parse(format3);
        QCOMPARE(b.services, a.services);
        QCOMPARE(b.transponders, a.transponders);
        QCOMPARE(a.services.size(), 1);
    }

    void hex_data()
    {
        QTest::addColumn<QByteArray>("piece");
        QTest::addColumn<quint32>("value");
        QTest::newRow("padded lower") << QByteArray("00c00000") << 0xc00000u;
        QTest::newRow("upper") << QByteArray("EEEE0000") << 0xeeee0000u;
        QTest::newRow("largest") << QByteArray("ffffffff") << 0xffffffffu;
        QTest::newRow("leading zeros") << QByteArray("0000000000437") << 0x437u;
        QTest::newRow("blanks trimmed") << QByteArray(" \t0437 ") << 0x437u;
        QTest::newRow("no-break space trimmed") << QByteArray("\xc2\xa0" "ff") << 0xffu;
        QTest::newRow("overflow") << QByteArray("100000000") << 0u;
        QTest::newRow("empty") << QByteArray() << 0u;
        QTest::newRow("blanks only") << QByteArray("  ") << 0u;
        QTest::newRow("not hex") << QByteArray("04g7") << 0u;
        QTest::newRow("0x prefix") << QByteArray("0x10") << 0u;
        QTest::newRow("sign") << QByteArray("-1") << 0u;
        QTest::newRow("inner blank") << QByteArray("04 37") << 0u;
    }

    void hex()
    {
        QFETCH(QByteArray, piece);
        QFETCH(quint32, value);
        QCOMPARE(LameDB::hex(piece), value);
    }

    void tpKey()
    {
        QCOMPARE(LameDB::tpKey(0x00c00000, 0x0437, 1), u"12582912:1079:1"_s);
        QCOMPARE(LameDB::tpKey(0xffffffff, 0, 0xffff), u"4294967295:0:65535"_s);
    }

    void provider_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("provider");
        QTest::newRow("first piece") << QByteArray("p:ARD,c:000065,f:40") << u"ARD"_s;
        QTest::newRow("present but empty") << QByteArray("c:0000ff,p:,f:40") << QString();
        QTest::newRow("none") << QByteArray("c:0000ff,f:40") << QString();
        QTest::newRow("empty line") << QByteArray() << QString();
        QTest::newRow("empty pieces skipped") << QByteArray(",,p:ORF,") << u"ORF"_s;
        QTest::newRow("first of two") << QByteArray("p:A,p:B") << u"A"_s;
        QTest::newRow("upper-case P is not it") << QByteArray("P:A,p:B") << u"B"_s;
        QTest::newRow("must start the piece") << QByteArray("xp:A,p:B") << u"B"_s;
        QTest::newRow("colons kept") << QByteArray("p:a:b") << u"a:b"_s;
        QTest::newRow("not repaired") << QByteArray("p:13.0Â°E") << u"13.0Â°E"_s;
    }

    void provider()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, provider);
        QCOMPARE(LameDB::provider(line), provider);
    }

    void format4()
    {
        const QByteArray text = v4("0083:00c00000:0437:0001:1:0\n Das Erste HD \np:ARD,c:000065\n"
                                   "0084:00c00000:0437:0001:2:0\nBayern 3\nc:0000ff,p:,f:40\n"
                                   "0085:00c00000:0437:0001::0:7\nno type\np:X\n"
                                   "0086:00c00000:0437:0001:x:0:1\nbad type\np:X\n"
                                   "0001:00820000:0001:0001:25:0:2\nelsewhere\np:\n"
                                   "2b66:00c00000:03f3:0001:25:0\nÃ–sterreich\np:DVB-S2 8PSK 10758V 13.0Â°E\n",
                                   astra + "ffff0000:0001:03e8\n\tc 425000:6875000:2:5:0:0:0\n/\n");
        const auto database = LameDB::parseV4(text);
        QCOMPARE(database.transponders.size(), 2);
        QCOMPARE(database.transponders.value(u"12582912:1079:1"_s),
                 (Transponder{0xc00000, 0x437, 1, u"s 11836500:27500000:1:2:192:2:0"_s}));
        QCOMPARE(database.transponders.value(LameDB::tpKey(0xffff0000, 1, 0x3e8)).data, u"c 425000:6875000:2:5:0:0:0"_s);

        QCOMPARE(database.services.size(), 6);
        QCOMPARE(database.services[0],
                 (Service{ServiceKey{0x83, 0x437, 1, 0xc00000}, 1, u" Das Erste HD "_s, u"ARD"_s, u"19.2E"_s}));
        QCOMPARE(database.services[1].type, 2u);
        QCOMPARE(database.services[1].provider, QString());
        // An empty type piece is dropped, so the service number moves into its place.
        QCOMPARE(database.services[2].type, 0u);
        QCOMPARE(database.services[3].type, 1u);
        QCOMPARE(database.services[4].position, QString()); // its transponder is missing
        QCOMPARE(database.services[5].name, u"Österreich"_s);
        QCOMPARE(database.services[5].provider, u"DVB-S2 8PSK 10758V 13.0°E"_s);
    }

    void format4SkipsMalformedLines()
    {
        // A two-piece transponder header is skipped alone; the next line is read as a header.
        const QByteArray transponders = "00c00000:0437\n" + astra;
        // A five-piece service header skips itself and the two lines after it.
        const QByteArray services = "0083:00c00000:0437:0001:25\nlost name\nlost data\n"
                                    "0084:00c00000:0437:0001:1:0\nKept\np:ARD\n";
        const auto database = LameDB::parseV4(v4(services, transponders));
        QCOMPARE(database.transponders.keys(), QList<QString>{u"12582912:1079:1"_s});
        QCOMPARE(names(database), QStringList{u"Kept"_s});

        // Reading is by position: without its "/" a transponder takes the next header as its third
        // line, and the tuning line after that reads as a header of its own.
        const auto shifted = LameDB::parseV4(v4({}, "00c00000:0437:0001\n\ts 1:2:3:4:192:2:0\n"
                                                    "00c00000:0438:0001\n\ts 1:2:3:4:130:2:0\n/\n"));
        QCOMPARE(shifted.transponders.size(), 2);
        QCOMPARE(shifted.transponders.value(LameDB::tpKey(0, 2, 3)).data, u"/"_s);
    }

    void format4Blocks()
    {
        // Without "transponders" nothing is read, also not the services.
        QByteArray noTransponders = v4("0083:00c00000:0437:0001:1:0\nA\np:\n");
        noTransponders.replace("transponders\n", "");
        QCOMPARE(LameDB::parseV4(noTransponders).services.size(), 0);

        // Without "services" the transponders are still read.
        const auto onlyTransponders = LameDB::parseV4("eDVB services /4/\ntransponders\n" + astra + "end\n");
        QCOMPARE(onlyTransponders.transponders.size(), 1);
        QCOMPARE(onlyTransponders.services.size(), 0);

        // A later transponder with the same key replaces the earlier one; duplicates of services stay.
        const auto twice = LameDB::parseV4(v4("0083:00c00000:0437:0001:1:0\nA\np:\n0083:00c00000:0437:0001:25:0\nB\np:\n",
                                              astra + "00c00000:0437:0001\n\ts 1:2:3:4:130:2:0\n/\n"));
        QCOMPARE(twice.transponders.size(), 1);
        QCOMPARE(twice.services.size(), 2);
        QCOMPARE(twice.services[0].position, u"13.0E"_s);
        QCOMPARE(twice.services[0].key, twice.services[1].key);
    }

    void format4Truncated()
    {
        const QByteArray full = v4("0083:00c00000:0437:0001:1:0\nA\np:ARD\n0084:00c00000:0437:0001:1:0\nB\np:ZDF\n", astra);
        // Cut inside the last service: fewer than three lines remain, so it is lost.
        const qsizetype cut = full.indexOf("\nB\n");
        QCOMPARE(names(LameDB::parseV4(full.left(cut))), QStringList{u"A"_s});
        // Cut before "end" but after a whole service: everything so far is kept.
        const qsizetype beforeEnd = full.indexOf("end\nEdited");
        QCOMPARE(names(LameDB::parseV4(full.left(beforeEnd))), (QStringList{u"A"_s, u"B"_s}));
        // Cut after the name line without a line end: the data line is missing.
        QCOMPARE(names(LameDB::parseV4(full.left(full.indexOf("p:ZDF")))), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(names(LameDB::parseV4(full.left(full.indexOf("p:ZDF") - 1))), QStringList{u"A"_s});
        // Every prefix reads without failing and never yields more than the whole.
        for (qsizetype length = 0; length <= full.size(); ++length)
            QVERIFY(LameDB::parseV4(full.left(length)).services.size() <= 2);
    }

    // A file cut anywhere reads as the start of the whole: every service but a cut last one is
    // read exactly as from the whole file.
    void truncatedFiles()
    {
        ListGenerator::Options options;
        options.services = 120;
        options.transponders = 12;
        options.bouquets = 0;
        const ListGenerator::List list = ListGenerator::generate(options);
        for (const QByteArray &whole : {list.lamedb5, list.lamedb}) {
            const auto full = LameDB::parse(whole).services;
            for (qsizetype length = 0; length < whole.size(); length += 5) {
                const QByteArray cut = whole.left(length);
                const bool known = cut.size() >= 17; // the whole header
                const auto part = known ? LameDB::parse(cut).services : QList<Service>();
                QVERIFY(part.size() <= full.size());
                for (qsizetype i = 0; i + 1 < part.size(); ++i)
                    QCOMPARE(part[i], full[i]);
                if (!part.isEmpty())
                    QCOMPARE(part.last().key, full[part.size() - 1].key);
            }
        }
    }

    void format5()
    {
        const QByteArray text = "eDVB services /5/\n# comment\n"
                                "t:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\n"
                                "t:ffff0000:0001:03e8,c:425000:6875000:2:5:0:0:0\n"
                                "t:eeee0000:000e:22d4,t:682000000:0:5:5:3:2:4:4:2:0:0:0\n"
                                "s:0083:00c00000:0437:0001:1:0,\"Das Erste HD\",p:ARD,c:000065\n"
                                "s:0001:ffff0000:0001:03e8:2:0,\"Radio\"\n"
                                "s:0002:eeee0000:000e:22d4:25:0,\"DVB-T\",c:0000ff,p:,f:40\n"
                                "s:0003:00c00000:0437:0001:x:0,\"type x\"\n"
                                "s:0004:00c00000:0437:0001:1:0,\"A\"B\",p:X\n"
                                "# Edited by hand\n";
        const auto database = LameDB::parseV5(text);
        QCOMPARE(database.transponders.size(), 3);
        QCOMPARE(database.transponders.value(LameDB::tpKey(0xc00000, 0x437, 1)).data,
                 u"s 11836500:27500000:1:2:192:2:0"_s);
        QCOMPARE(database.services.size(), 5);
        QCOMPARE(database.services[0],
                 (Service{ServiceKey{0x83, 0x437, 1, 0xc00000}, 1, u"Das Erste HD"_s, u"ARD"_s, u"19.2E"_s}));
        QCOMPARE(database.services[1].position, u"Kabel"_s);
        QCOMPARE(database.services[1].type, 2u);
        QCOMPARE(database.services[2].position, u"Terrestrisch"_s);
        QCOMPARE(database.services[2].provider, QString());
        QCOMPARE(database.services[3].type, 1u);
        // The name ends at the second quote; the rest of the line is data.
        QCOMPARE(database.services[4].name, u"A"_s);
        QCOMPARE(database.services[4].provider, u"X"_s);
    }

    void format5Lines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("services");
        QTest::addColumn<quint32>("type");
        QTest::newRow("well formed") << QByteArray("s:83:c00000:437:1:25:0,\"N\"") << 1 << 25u;
        QTest::newRow("unterminated name") << QByteArray("s:83:c00000:437:1:25:0,\"N") << 0 << 0u;
        QTest::newRow("no quote") << QByteArray("s:83:c00000:437:1:25:0,N") << 0 << 0u;
        QTest::newRow("four pieces") << QByteArray("s:83:c00000:437:1,\"N\"") << 0 << 0u;
        // The character before the quote is dropped whatever it is.
        QTest::newRow("no comma") << QByteArray("s:83:c00000:437:1:25:0\"N\"") << 1 << 25u;
        QTest::newRow("no comma, no number") << QByteArray("s:83:c00000:437:1:25\"N\"") << 1 << 2u;
        QTest::newRow("multi-byte last character") << QByteArray("s:83:c00000:437:1:2é\"N\"") << 1 << 2u;
        QTest::newRow("invalid last byte") << QByteArray("s:83:c00000:437:1:2\xff\"N\"") << 1 << 2u;
        QTest::newRow("quote right after s:") << QByteArray("s:\"N\"") << 0 << 0u;
        QTest::newRow("type overflow") << QByteArray("s:83:c00000:437:1:4294967296:0,\"N\"") << 1 << 1u;
        QTest::newRow("largest type") << QByteArray("s:83:c00000:437:1:4294967295:0,\"N\"") << 1 << 4294967295u;
        QTest::newRow("box layout") << QByteArray("s:0083:00c00000:0437:0001:25:0,\"N\"") << 1 << 25u;
        QTest::newRow("box layout, no number") << QByteArray("s:0083:00c00000:0437:0001:25,\"N\"") << 1 << 25u;
        QTest::newRow("box layout, type cut") << QByteArray("s:0083:00c00000:0437:0001:,\"N\"") << 0 << 0u;
        QTest::newRow("upper-case S") << QByteArray("S:83:c00000:437:1:25:0,\"N\"") << 0 << 0u;
        QTest::newRow("blank first") << QByteArray(" s:83:c00000:437:1:25:0,\"N\"") << 0 << 0u;
    }

    void format5Lines()
    {
        QFETCH(QByteArray, line);
        QFETCH(int, services);
        QFETCH(quint32, type);
        const auto database = LameDB::parseV5("eDVB services /5/\n" + line + '\n');
        QCOMPARE(database.services.size(), services);
        if (services)
            QCOMPARE(database.services[0].type, type);
    }

    void keys_data()
    {
        QTest::addColumn<QByteArray>("header");
        QTest::addColumn<ServiceKey>("key");
        QTest::newRow("padded") << QByteArray("0083:00c00000:0437:0001") << ServiceKey{0x83, 0x437, 1, 0xc00000};
        QTest::newRow("upper case") << QByteArray("83:C00000:437:1") << ServiceKey{0x83, 0x437, 1, 0xc00000};
        QTest::newRow("nine digits, leading zero") << QByteArray("000000083:c00000:437:1")
                                                   << ServiceKey{0x83, 0x437, 1, 0xc00000};
        QTest::newRow("nine digits, too large") << QByteArray("1000000ff:c00000:437:1") << ServiceKey{0, 0x437, 1, 0xc00000};
        QTest::newRow("not hex") << QByteArray("83:c0000g:437:1") << ServiceKey{0x83, 0x437, 1, 0};
        QTest::newRow("box layout, not hex") << QByteArray("0083:00c0000g:0437:0001") << ServiceKey{0x83, 0x437, 1, 0};
        QTest::newRow("box layout, blank") << QByteArray(" 083:00c00000:0437:0001") << ServiceKey{0x83, 0x437, 1, 0xc00000};
        QTest::newRow("box layout, upper case") << QByteArray("0083:00C00000:0437:0001") << ServiceKey{0x83, 0x437, 1, 0xc00000};
        QTest::newRow("blanks") << QByteArray(" 83 :c00000:437:1") << ServiceKey{0x83, 0x437, 1, 0xc00000};
        QTest::newRow("empty pieces dropped") << QByteArray("83::c00000:437:1") << ServiceKey{0x83, 0x437, 1, 0xc00000};
    }

    // Both formats and the writer read a service header the same way.
    void keys()
    {
        QFETCH(QByteArray, header);
        QFETCH(ServiceKey, key);
        const auto v5 = LameDB::parseV5("eDVB services /5/\ns:" + header + ":1:0,\"N\"\n");
        QCOMPARE(v5.services.value(0).key, key);
        const auto v4Read = LameDB::parseV4(v4(header + ":1:0\nN\np:\n"));
        QCOMPARE(v4Read.services.value(0).key, key);
        const ServiceEdits rename{{key, ServiceEdit::rename(u"M"_s)}};
        QCOMPARE(LameDB::parseV5(LameDB::applying(rename, "eDVB services /5/\ns:" + header + ":1:0,\"N\"\n")).services.value(0).name,
                 u"M"_s);
        QCOMPARE(LameDB::parseV4(LameDB::applying(rename, v4(header + ":1:0\nN\np:\n"))).services.value(0).name, u"M"_s);
    }

    void format5Transponders_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("data"); // null: not read
        QTest::newRow("satellite") << QByteArray("t:c00000:437:1,s:1:2:3:4:192:2:0") << u"s 1:2:3:4:192:2:0"_s;
        QTest::newRow("kept as is") << QByteArray("t:c00000:437:1,x") << u"x"_s;
        QTest::newRow("second not a colon") << QByteArray("t:c00000:437:1,s 1:2") << u"s 1:2"_s;
        QTest::newRow("not trimmed") << QByteArray("t:c00000:437:1, s:1 ") << u" s:1 "_s;
        QTest::newRow("empty data") << QByteArray("t:c00000:437:1,") << u""_s;
        QTest::newRow("two-unit first character") << QByteArray("t:c00000:437:1,😀:1") << u"😀 1"_s;
        QTest::newRow("multistream") << QByteArray("t:c00000:437:1,s:1:2:3:4:192:2:0:1:2:0:2,MIS/PLS:1:0:0")
                                     << u"s 1:2:3:4:192:2:0:1:2:0:2,MIS/PLS:1:0:0"_s;
        QTest::newRow("no comma") << QByteArray("t:c00000:437:1") << QString();
        QTest::newRow("two pieces") << QByteArray("t:c00000:437,s:1") << QString();
    }

    void format5Transponders()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, data);
        const auto database = LameDB::parseV5("eDVB services /5/\n" + line + '\n');
        QCOMPARE(database.transponders.size(), data.isNull() ? 0 : 1);
        if (!data.isNull())
            QCOMPARE(database.transponders.begin()->data, data);
    }

    void format5PositionOnlyFromEarlierTransponders()
    {
        const auto database = LameDB::parseV5("eDVB services /5/\n"
                                               "s:83:c00000:437:1:1:0,\"before\"\n"
                                               "t:c00000:437:1,s:1:2:3:4:192:2:0\n"
                                               "s:84:c00000:437:1:1:0,\"after\"\n");
        QCOMPARE(database.services[0].position, QString());
        QCOMPARE(database.services[1].position, u"19.2E"_s);
    }

    // Every Unicode line break ends a line; CR LF reads like LF in format 5.
    void lineBreaks()
    {
        const QByteArray lf = "eDVB services /5/\nt:c00000:437:1,s:1:2:3:4:192:2:0\ns:83:c00000:437:1:1:0,\"A\",p:X\n"
                              "s:84:c00000:437:1:1:0,\"B\"\n";
        for (const QByteArray &lineBreak : {QByteArray("\r\n"), QByteArray("\r"), QByteArray("\x0b"), QByteArray("\x0c"),
                                            QByteArray("\xc2\x85"), QByteArray("\xe2\x80\xa8"), QByteArray("\xe2\x80\xa9")}) {
            QByteArray text = lf;
            text.replace("\n", lineBreak);
            QCOMPARE(LameDB::parseV5(text).services, LameDB::parseV5(lf).services);
        }
        // A break inside a name cuts the service line before its closing quote.
        const auto cut = LameDB::parseV5("eDVB services /5/\ns:83:c00000:437:1:1:0,\"A\xe2\x80\xa8" "B\"\n");
        QCOMPARE(cut.services.size(), 0);
        // Not breaks: a lone C2 or E2 80 without its last byte, and the other C1 controls.
        const auto kept = LameDB::parseV5("eDVB services /5/\ns:83:c00000:437:1:1:0,\"A\xc2\xa0" "B\xe2\x80\xa7\"\n");
        QCOMPARE(names(kept), QStringList{u"A\u00a0B\u2027"_s});

        // Format 4 with CR LF: the extra empty lines shift the pairs and triples out of step.
        QByteArray crlf = v4("0083:00c00000:0437:0001:1:0\nA\np:\n", astra);
        crlf.replace("\n", "\r\n");
        const auto shifted = LameDB::parseV4(crlf);
        QCOMPARE(shifted.transponders.size(), 1);
        QCOMPARE(shifted.transponders.begin()->data, QString());
        QCOMPARE(shifted.services.size(), 0);
    }

    void invalidUtf8AndControls()
    {
        const QByteArray text = "eDVB services /5/\n"
                                "s:83:c00000:437:1:1:0,\"Bad \xff\xfe name\",p:Pro\xc3\n"
                                "s:84:c00000:437:1:1:0,\"Zero"
            + QByteArray(1, '\0')
            + "Byte\"\n"
              "s:85:c00000:437:1:1:0,\"\xef\xbb\xbf"
              "BOM\"\n";
        const auto database = LameDB::parseV5(text);
        QCOMPARE(database.services.size(), 3);
        QCOMPARE(database.services[0].name, u"Bad \ufffd\ufffd name"_s);
        QCOMPARE(database.services[0].provider, u"Pro\ufffd"_s);
        QCOMPARE(database.services[1].name, u"Zero"_s + QChar(0) + u"Byte"_s);
        QCOMPARE(database.services[1].name.size(), 9);
        // A byte-order mark inside the text is a character like any other.
        QCOMPARE(database.services[2].name, u"\ufeffBOM"_s);
    }

    void namesAreRepaired()
    {
        const auto database = LameDB::parseV5("eDVB services /5/\n"
                                              "s:83:c00000:437:1:1:0,\"Ã–sterreich 1\",p:ORF\n"
                                              "s:84:c00000:437:1:1:0,\"Château\",p:Câble\n"
                                              "s:85:c00000:437:1:1:0,\"Ã¶ ж\",p:p\n");
        QCOMPARE(names(database), (QStringList{u"Österreich 1"_s, u"Château"_s, u"Ã¶ ж"_s}));
        QCOMPARE(database.services[1].provider, u"Câble"_s);
    }

    // The generator knows what each service must read as, independently of the reader.
    void generatedList()
    {
        ListGenerator::Options options;
        options.services = 3000;
        options.transponders = 150;
        options.bouquets = 4;
        const ListGenerator::List list = ListGenerator::generate(options);
        const auto v5 = LameDB::parse(list.lamedb5);
        const auto v4 = LameDB::parse(list.lamedb);
        QCOMPARE(v5.services.size(), list.services.size());
        for (qsizetype i = 0; i < list.services.size(); ++i) {
            QCOMPARE(v5.services.at(i), list.services.at(i));
            QCOMPARE(v4.services.at(i), list.services.at(i));
        }
        QCOMPARE(v5.transponders, v4.transponders);
        QCOMPARE(v5.transponders.size(), options.transponders);
    }

    void applyingNothing()
    {
        // Also for text the reader would reject.
        for (const QByteArray &text : {QByteArray("not a database\r\n"), QByteArray(), v4("0083:00c00000:0437:0001:1:0\nA\np:\n")})
            QCOMPARE(LameDB::applying({}, text), text);
        // An edit of a service that is not there changes no byte either.
        const ServiceEdits absent{{ServiceKey{9, 9, 9, 9}, ServiceEdit::deletion()}};
        const QByteArray text = v4("0083:00c00000:0437:0001:1:0\nA\np:\n", astra);
        QCOMPARE(LameDB::applying(absent, text), text);
    }

    void applyingFormat5()
    {
        const QByteArray text = "eDVB services /5/\r\n"
                                "t:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\r\n"
                                "s:0083:00c00000:0437:0001:1:0,\"Das Erste HD\",p:ARD,c:000065\r\n"
                                "s:0084:00c00000:0437:0001:1:0,\"ZDF\",p:ZDF\r\n"
                                "s:0083:00C00000:437:1:25:0,\"Twin\"\r\n"
                                "# end\r\n";
        const ServiceKey first{0x83, 0x437, 1, 0xc00000};
        const ServiceKey second{0x84, 0x437, 1, 0xc00000};
        // Quotes become apostrophes, the data pieces and the carriage returns stay, both twins change.
        QCOMPARE(LameDB::applying({{first, ServiceEdit::rename(u"Das \"Erste\" Ã¶"_s)}}, text),
                 QByteArray("eDVB services /5/\r\n"
                            "t:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\r\n"
                            "s:0083:00c00000:0437:0001:1:0,\"Das 'Erste' Ã¶\",p:ARD,c:000065\r\n"
                            "s:0084:00c00000:0437:0001:1:0,\"ZDF\",p:ZDF\r\n"
                            "s:0083:00C00000:437:1:25:0,\"Das 'Erste' Ã¶\"\r\n"
                            "# end\r\n"));
        QCOMPARE(LameDB::applying({{second, ServiceEdit::deletion()}, {first, ServiceEdit::rename(u"1"_s)}}, text),
                 QByteArray("eDVB services /5/\r\n"
                            "t:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\r\n"
                            "s:0083:00c00000:0437:0001:1:0,\"1\",p:ARD,c:000065\r\n"
                            "s:0083:00C00000:437:1:25:0,\"1\"\r\n"
                            "# end\r\n"));
        // Deleting the last line of a text without a final line end leaves none behind.
        QCOMPARE(LameDB::applying({{second, ServiceEdit::deletion()}}, "eDVB services /5/\ns:84:c00000:437:1:1:0,\"Z\""),
                 QByteArray("eDVB services /5/"));
        QCOMPARE(LameDB::applying({{second, ServiceEdit::deletion()}}, "eDVB services /5/\ns:84:c00000:437:1:1:0,\"Z\"\n"),
                 QByteArray("eDVB services /5/\n"));
        // Lines the reader skips are kept: no closing quote, too few pieces.
        const QByteArray skipped = "eDVB services /5/\ns:84:c00000:437:1:1:0,\"Z\ns:84:c00000:437:1,\"Z\"\n";
        QCOMPARE(LameDB::applying({{second, ServiceEdit::deletion()}}, skipped), skipped);
    }

    void applyingFormat4()
    {
        const QByteArray services = "0083:00c00000:0437:0001:1:0\nDas Erste HD\np:ARD\n"
                                    "0084:00c00000:0437:0001:1:0\nZDF\np:ZDF\n";
        const QByteArray text = v4(services, astra);
        const ServiceKey first{0x83, 0x437, 1, 0xc00000};
        const ServiceKey second{0x84, 0x437, 1, 0xc00000};
        // Deleting removes exactly the three lines; transponders, "end" and the tail stay.
        QCOMPARE(LameDB::applying({{first, ServiceEdit::deletion()}}, text),
                 v4("0084:00c00000:0437:0001:1:0\nZDF\np:ZDF\n", astra));
        // A new name is written as typed: quotes and mis-encoded letters stay.
        QCOMPARE(LameDB::applying({{second, ServiceEdit::rename(u"\"Z\" Ã¶"_s)}}, text),
                 v4("0083:00c00000:0437:0001:1:0\nDas Erste HD\np:ARD\n0084:00c00000:0437:0001:1:0\n\"Z\" Ã¶\np:ZDF\n",
                    astra));

        // Carriage returns: "services\r" opens no block, so nothing changes.
        QByteArray crlf = text;
        crlf.replace("\n", "\r\n");
        QCOMPARE(LameDB::applying({{first, ServiceEdit::deletion()}}, crlf), crlf);

        // A header among the last two lines is kept.
        const QByteArray cut = "eDVB services /4/\nservices\n0083:00c00000:0437:0001:1:0\nDas Erste HD";
        QCOMPARE(LameDB::applying({{first, ServiceEdit::deletion()}}, cut), cut);

        // Unlike the reader, a short header skips one line only, so the next header is edited.
        const QByteArray shortHeader = "eDVB services /4/\nservices\nbad:line\n0083:00c00000:0437:0001:1:0\nA\np:\nend\n";
        QCOMPARE(LameDB::applying({{first, ServiceEdit::rename(u"B"_s)}}, shortHeader),
                 QByteArray("eDVB services /4/\nservices\nbad:line\n0083:00c00000:0437:0001:1:0\nB\np:\nend\n"));

        // Lines outside the service block are never edited, also when they look like a service.
        const QByteArray outside = "eDVB services /4/\n0083:00c00000:0437:0001:1:0\nA\np:\nservices\nend\n"
                                   "0083:00c00000:0437:0001:1:0\nB\np:\n";
        QCOMPARE(LameDB::applying({{first, ServiceEdit::deletion()}}, outside), outside);
        // A second "services" line opens the block again.
        const QByteArray reopened = outside + "services\n0083:00c00000:0437:0001:1:0\nC\np:\nend\n";
        QCOMPARE(LameDB::applying({{first, ServiceEdit::deletion()}}, reopened), outside + "services\nend\n");

        // Deleting the very last service of a text without final line end drops its line feed too.
        const QByteArray last = "eDVB services /4/\nservices\n0083:00c00000:0437:0001:1:0\nA\np:";
        QCOMPARE(LameDB::applying({{first, ServiceEdit::deletion()}}, last), QByteArray("eDVB services /4/\nservices"));
    }

    void corpusDatabases_data()
    {
        QTest::addColumn<QString>("path");
        const QStringList paths = CorpusFiles::matching({u"lamedb"_s, u"lamedb5"_s});
        if (paths.isEmpty())
            QSKIP("corpus not present");
        for (const QString &path : paths)
            QTest::newRow(CorpusFiles::rowName(path).constData()) << path;
    }

    // Reading counts every service record; an edit changes exactly the lines of its service.
    void corpusDatabases()
    {
        QFETCH(QString, path);
        const QByteArray text = Utf8::repaired(TestSupport::readFile(path));
        QVERIFY(!text.isEmpty());
        const bool format5 = text.startsWith("eDVB services /5/");
        const auto database = LameDB::parse(text);
        QList<QByteArray> lines = text.split('\n');
        const auto [blockStart, blockEnd] = format4ServiceBlock(lines);
        const qsizetype expectedCount = format5 ? countFormat5Services(text) : (blockEnd - blockStart) / 3;
        QCOMPARE(database.services.size(), expectedCount);
        QVERIFY(!database.transponders.isEmpty());

        // The editor writes back every byte when nothing is edited.
        QCOMPARE(LameDB::applying({}, text), text);
        QCOMPARE(LameDB::applying({{ServiceKey{0xfffffff, 1, 2, 3}, ServiceEdit::deletion()}}, text), text);

        const qsizetype index = uniqueServiceNearMiddle(database);
        QVERIFY(index >= 0);
        const Service &service = database.services.at(index);
        // Line numbers of the service found without the reader: the index-th record of the file.
        qsizetype recordLine = -1;
        if (format5) {
            qsizetype seen = -1;
            for (qsizetype i = 0; i < lines.size() && seen < index; ++i) {
                if (lines[i].startsWith("s:") && ++seen == index)
                    recordLine = i;
            }
        } else {
            recordLine = blockStart + 3 * index;
        }
        QVERIFY(recordLine >= 0);

        const QString newName = u"Umbenannt \"neu\""_s;
        QList<QByteArray> renamedLines = lines;
        if (format5) {
            QByteArray &line = renamedLines[recordLine];
            const qsizetype open = line.indexOf('"');
            line = line.left(open + 1) + "Umbenannt 'neu'" + line.mid(line.indexOf('"', open + 1));
        } else {
            renamedLines[recordLine + 1] = newName.toUtf8();
        }
        const QByteArray renamed = LameDB::applying({{service.key, ServiceEdit::rename(newName)}}, text);
        QCOMPARE(renamed, renamedLines.join('\n'));
        auto expectedServices = database.services;
        expectedServices[index].name = format5 ? u"Umbenannt 'neu'"_s : newName;
        QCOMPARE(LameDB::parse(renamed).services, expectedServices);

        QList<QByteArray> deletedLines = lines;
        deletedLines.remove(recordLine, format5 ? 1 : 3);
        const QByteArray deleted = LameDB::applying({{service.key, ServiceEdit::deletion()}}, text);
        QCOMPARE(deleted, deletedLines.join('\n'));
        expectedServices.remove(index);
        QCOMPARE(LameDB::parse(deleted).services, expectedServices);
        QCOMPARE(LameDB::parse(deleted).transponders, database.transponders);
    }

    // Both files of a folder that has them hold the same services (some names were edited in one).
    void corpusFormatsAgree()
    {
        int folders = 0;
        for (const QString &folder : TestSupport::corpusListFolders()) {
            const QByteArray v4 = TestSupport::readFile(folder + u"/lamedb"_s);
            const QByteArray v5 = TestSupport::readFile(folder + u"/lamedb5"_s);
            if (v4.isEmpty() || v5.isEmpty())
                continue;
            ++folders;
            const auto a = LameDB::parse(Utf8::repaired(v4));
            const auto b = LameDB::parse(Utf8::repaired(v5));
            QCOMPARE(a.services.size(), b.services.size());
            for (qsizetype i = 0; i < a.services.size(); ++i) {
                QCOMPARE(a.services[i].key, b.services[i].key);
                QCOMPARE(a.services[i].type, b.services[i].type);
                QCOMPARE(a.services[i].position, b.services[i].position);
            }
            QCOMPARE(a.transponders.keys().size(), b.transponders.keys().size());
        }
        if (folders == 0)
            QSKIP("corpus not present");
    }
};

QTEST_GUILESS_MAIN(LameDBTest)
#include "LameDBTest.moc"
