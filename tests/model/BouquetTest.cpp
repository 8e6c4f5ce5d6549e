// Bouquet files read and written, the index files, and new bouquet file names; round trips over
// every bouquet and index file of the corpus.

#include "Bouquet.h"
#include "CorpusFiles.h"
#include "BouquetIndex.h"
#include "TestSupport.h"
#include "Utf8.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Entry
{
    QString reference;
    std::optional<QString> description;
};

QList<Entry> entries(const Bouquet &bouquet)
{
    QList<Entry> result;
    for (const BouquetEntry &entry : bouquet.entries)
        result.append({entry.reference, entry.description});
    return result;
}

bool operator==(const Entry &a, const Entry &b)
{
    return a.reference == b.reference && a.description == b.description;
}

// What writing a read file must give, worked out line by line without the reader: the last
// "#NAME " line (or the file name) first, then the "#SERVICE " lines, each with the first
// "#DESCRIPTION " line that follows it.
QByteArray expectedRewrite(const QByteArray &file, const QString &fileName)
{
    QByteArray name = fileName.toUtf8();
    QByteArray body;
    bool describable = false;
    for (QByteArray line : file.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.startsWith("#NAME ")) {
            name = line.mid(6);
        } else if (line.startsWith("#SERVICE ")) {
            body += line + '\n';
            describable = true;
        } else if (line.startsWith("#DESCRIPTION ") && describable) {
            body += line + '\n';
            describable = false;
        }
    }
    return "#NAME " + name + '\n' + body;
}

} // namespace

class BouquetTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void parse()
    {
        const QByteArray text = "#NAME Sport\n"
                                "#SERVICE 1:0:19:2B66:3F3:1:C00000:0:0:0:\n"
                                "#DESCRIPTION ZDF (Favorit)\n"
                                "#DESCRIPTION second one dropped\n"
                                "#SERVICE 1:64:0:0:0:0:0:0:0:0:\n"
                                "#DESCRIPTION --- Fußball ---\n"
                                "#SERVICE 4097:0:1:9735:AF56:EC:0:0:0:0:https%3a//x.example/a.m3u8:Big Time Rush\n"
                                "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.a.tv\" ORDER BY bouquet\n"
                                "#DESCRIPTION \n"
                                "#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n";
        const Bouquet bouquet = Bouquet::parse(u"userbouquet.sport.tv"_s, MediaKind::tv, text);
        QCOMPARE(bouquet.fileName, u"userbouquet.sport.tv"_s);
        QCOMPARE(bouquet.name, u"Sport"_s);
        QCOMPARE(bouquet.kind, MediaKind::tv);
        QCOMPARE(entries(bouquet),
                 (QList<Entry>{{u"1:0:19:2B66:3F3:1:C00000:0:0:0:"_s, u"ZDF (Favorit)"_s},
                               {u"1:64:0:0:0:0:0:0:0:0:"_s, u"--- Fußball ---"_s},
                               {u"4097:0:1:9735:AF56:EC:0:0:0:0:https%3a//x.example/a.m3u8:Big Time Rush"_s, {}},
                               {u"1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.a.tv\" ORDER BY bouquet"_s, u""_s},
                               {u"1:0:1:83:437:1:C00000:0:0:0:"_s, {}}}));
        QVERIFY(bouquet.entries[1].isMarker());
        QCOMPARE(bouquet.entries[0].serviceKey(), (ServiceKey{0x2b66, 0x3f3, 1, 0xc00000}));
        // Only the second piece is checked, so a stream names a service too; a sub-bouquet does not.
        QCOMPARE(bouquet.entries[2].serviceKey(), (ServiceKey{0x9735, 0xaf56, 0xec, 0}));
        QCOMPARE(bouquet.entries[3].serviceKey(), std::nullopt);

        // Every entry has its own identity, and so has every read.
        QSet<QUuid> ids;
        for (const BouquetEntry &entry : bouquet.entries)
            ids.insert(entry.id);
        QCOMPARE(ids.size(), bouquet.entries.size());
        QVERIFY(Bouquet::parse(bouquet.fileName, bouquet.kind, text).id != bouquet.id);
    }

    void droppedLines_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("entries");
        QTest::newRow("no #NAME") << QByteArray("#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n") << u"f.tv"_s << 1;
        QTest::newRow("#NAME alone") << QByteArray("#NAME\n#NAME \n") << QString() << 0;
        QTest::newRow("#NAME without blank") << QByteArray("#NAMEX\n") << u"f.tv"_s << 0;
        QTest::newRow("later #NAME wins") << QByteArray("#NAME A\n#NAME B\n") << u"B"_s << 0;
        QTest::newRow("#SERVICE without blank") << QByteArray("#SERVICE1:0:1:83:437:1:C00000:0:0:0:\n") << u"f.tv"_s << 0;
        QTest::newRow("#SERVICE: form") << QByteArray("#SERVICE: 1:0:1:83:437:1:C00000:0:0:0:\n") << u"f.tv"_s << 0;
        QTest::newRow("lower case") << QByteArray("#name A\n#service 1:0:1:83:437:1:C00000:0:0:0:\n") << u"f.tv"_s << 0;
        QTest::newRow("leading blank") << QByteArray(" #NAME A\n") << u"f.tv"_s << 0;
        QTest::newRow("description first") << QByteArray("#DESCRIPTION x\n#NAME A\n") << u"A"_s << 0;
        QTest::newRow("comments and blanks") << QByteArray("#NAME A\n\n# comment\n#IPTV abc\n#SORT x\n") << u"A"_s << 0;
        QTest::newRow("byte-order mark") << QByteArray("\xef\xbb\xbf#NAME A\n") << u"f.tv"_s << 0;
        QTest::newRow("empty file") << QByteArray() << u"f.tv"_s << 0;
        QTest::newRow("only a line end") << QByteArray("\r\n") << u"f.tv"_s << 0;
    }

    void droppedLines()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, name);
        QFETCH(int, entries);
        const Bouquet bouquet = Bouquet::parse(u"f.tv"_s, MediaKind::tv, text);
        QCOMPARE(bouquet.name, name);
        QCOMPARE(bouquet.entries.size(), entries);
    }

    void lineBreaks()
    {
        const QByteArray lf = "#NAME Österreich\n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n#DESCRIPTION ORF 1\n";
        const Bouquet expected = Bouquet::parse(u"f.tv"_s, MediaKind::tv, lf);
        for (const QByteArray &lineBreak : {QByteArray("\r\n"), QByteArray("\r"), QByteArray("\n\r"), QByteArray("\xc2\x85"),
                                            QByteArray("\xe2\x80\xa8"), QByteArray("\xe2\x80\xa9"), QByteArray("\x0b")}) {
            QByteArray text = lf;
            text.replace("\n", lineBreak);
            const Bouquet bouquet = Bouquet::parse(u"f.tv"_s, MediaKind::tv, text);
            QCOMPARE(bouquet.name, expected.name);
            QCOMPARE(entries(bouquet), entries(expected));
            QCOMPARE(bouquet.serialized(), expected.serialized());
        }
        // A break inside a reference cuts it there; the rest is an unknown line.
        const Bouquet cut = Bouquet::parse(u"f.tv"_s, MediaKind::tv, "#SERVICE 1:0:1:83\xc2\x85:437:1:C00000:0:0:0:\n");
        QCOMPARE(cut.entries.size(), 1);
        QCOMPARE(cut.entries[0].reference, u"1:0:1:83"_s);
    }

    // A file cut anywhere keeps the entries before the cut as they were.
    void truncatedFile()
    {
        const QByteArray whole = "#NAME Sport\r\n#SERVICE 1:64:0:0:0:0:0:0:0:0:\r\n#DESCRIPTION --- Fußball ---\r\n"
                                 "#SERVICE 1:0:19:2B66:3F3:1:C00000:0:0:0:\r\n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\r\n"
                                 "#DESCRIPTION Eins\r\n";
        const QList<Entry> full = entries(Bouquet::parse(u"f.tv"_s, MediaKind::tv, whole));
        for (qsizetype length = 0; length <= whole.size(); ++length) {
            const Bouquet part = Bouquet::parse(u"f.tv"_s, MediaKind::tv, whole.left(length));
            const QList<Entry> read = entries(part);
            QVERIFY(read.size() <= full.size());
            for (qsizetype i = 0; i + 1 < read.size(); ++i)
                QCOMPARE(read[i], full[i]);
            QVERIFY(part.name == u"f.tv"_s || u"Sport"_s.startsWith(part.name));
        }
    }

    void invalidUtf8()
    {
        const Bouquet bouquet = Bouquet::parse(u"f.tv"_s, MediaKind::radio, "#NAME Caf\xe9\n#SERVICE a\xff\xfe" "b\n");
        QCOMPARE(bouquet.name, u"Caf\ufffd"_s);
        QCOMPARE(bouquet.entries[0].reference, u"a\ufffd\ufffdb"_s);
        QCOMPARE(bouquet.serialized(), QByteArray("#NAME Caf\xef\xbf\xbd\n#SERVICE a\xef\xbf\xbd\xef\xbf\xbd" "b\n"));
    }

    void serialized()
    {
        Bouquet bouquet;
        bouquet.fileName = u"userbouquet.neu.tv"_s;
        bouquet.name = u"Neu ä"_s;
        QCOMPARE(bouquet.serialized(), QByteArray("#NAME Neu \xc3\xa4\n"));
        bouquet.entries = {BouquetEntry{freshId(), markerReference.toString(), u"Nachrichten"_s},
                           BouquetEntry{freshId(), u"1:0:1:83:437:1:C00000:0:0:0:"_s, std::nullopt},
                           BouquetEntry{freshId(), u"1:0:1:84:437:1:C00000:0:0:0:"_s, u""_s}};
        QCOMPARE(bouquet.serialized(), QByteArray("#NAME Neu \xc3\xa4\n"
                                                  "#SERVICE 1:64:0:0:0:0:0:0:0:0:\n#DESCRIPTION Nachrichten\n"
                                                  "#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n"
                                                  "#SERVICE 1:0:1:84:437:1:C00000:0:0:0:\n#DESCRIPTION \n"));
        // Written text reads back to the same bouquet.
        const Bouquet again = Bouquet::parse(bouquet.fileName, MediaKind::tv, bouquet.serialized());
        QCOMPARE(again.name, bouquet.name);
        QCOMPARE(entries(again), entries(bouquet));
    }

    void index()
    {
        QCOMPARE(BouquetIndex::serialized(MediaKind::tv, {}), QByteArray("#NAME User - Bouquets (TV)\n"));
        QCOMPARE(BouquetIndex::serialized(MediaKind::radio, {}), QByteArray("#NAME User - Bouquets (Radio)\n"));
        Bouquet a;
        a.fileName = u"userbouquet.favourites.tv"_s;
        a.name = u"Not in the index"_s;
        Bouquet b;
        b.fileName = u"userbouquet.österreich.tv"_s;
        QCOMPARE(BouquetIndex::serialized(MediaKind::tv, {a, b}),
                 QByteArray("#NAME User - Bouquets (TV)\n"
                            "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.favourites.tv\" ORDER BY bouquet\n"
                            "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.\xc3\xb6sterreich.tv\" ORDER BY bouquet\n"));
        QCOMPARE(BouquetIndex::serialized(MediaKind::radio, {a}),
                 QByteArray("#NAME User - Bouquets (Radio)\n"
                            "#SERVICE 1:7:2:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.favourites.tv\" ORDER BY bouquet\n"));
        // What is written is read back in the same order.
        QCOMPARE(BouquetIndex::fileNames(BouquetIndex::serialized(MediaKind::tv, {b, a})),
                 (QStringList{b.fileName, a.fileName}));
    }

    void indexFileNames_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("names");
        QTest::newRow("box style") << QByteArray("#NAME User - Bouquets (TV)\r\n"
                                                 "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.a.tv\" ORDER BY bouquet\r\n"
                                                 "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.b.tv\" ORDER BY bouquet\r\n")
                                   << QStringList{u"userbouquet.a.tv"_s, u"userbouquet.b.tv"_s};
        QTest::newRow("extra words") << QByteArray("#SERVICE x FROM BOUQUET \"userbouquet.x.tv\" and \"more\" words")
                                     << QStringList{u"userbouquet.x.tv"_s};
        QTest::newRow("colon form") << QByteArray("#SERVICE: 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.c.tv\"")
                                    << QStringList{u"userbouquet.c.tv"_s};
        QTest::newRow("no closing quote") << QByteArray("#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.a.tv")
                                          << QStringList();
        QTest::newRow("two blanks") << QByteArray("#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET  \"userbouquet.a.tv\"")
                                    << QStringList();
        QTest::newRow("not a #SERVICE line") << QByteArray("#DESCRIPTION FROM BOUQUET \"userbouquet.a.tv\"\n"
                                                           " #SERVICE FROM BOUQUET \"userbouquet.b.tv\"")
                                             << QStringList();
        QTest::newRow("empty name kept") << QByteArray("#SERVICE FROM BOUQUET \"\"") << QStringList{QString()};
        QTest::newRow("hostile names kept") << QByteArray("#SERVICE FROM BOUQUET \"../etc/passwd\"\n#SERVICE FROM BOUQUET \"a/b\"")
                                            << QStringList{u"../etc/passwd"_s, u"a/b"_s};
        QTest::newRow("no final line end") << QByteArray("#SERVICE FROM BOUQUET \"userbouquet.a.tv\" ORDER BY bouquet")
                                           << QStringList{u"userbouquet.a.tv"_s};
        QTest::newRow("NEL inside the name") << QByteArray("#SERVICE FROM BOUQUET \"a\xc2\x85" "b\"") << QStringList();
    }

    void indexFileNames()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, names);
        QCOMPARE(BouquetIndex::fileNames(text), names);
    }

    void safeFileNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("safe");
        QTest::newRow("usual") << u"userbouquet.favourites.tv"_s << true;
        QTest::newRow("sub-bouquet") << u"subbouquet.ec_pluto_tv.tv"_s << true;
        QTest::newRow("letters beyond ASCII") << u"userbouquet.österreich.radio"_s << true;
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("dot") << u"."_s << false;
        QTest::newRow("dot dot") << u".."_s << false;
        QTest::newRow("parent") << u"../userbouquet.a.tv"_s << false;
        QTest::newRow("dots inside") << u"userbouquet..tv"_s << false;
        QTest::newRow("slash") << u"a/b"_s << false;
        QTest::newRow("absolute") << u"/etc/enigma2/userbouquet.a.tv"_s << false;
        QTest::newRow("backslash") << u"a\\b"_s << false;
        QTest::newRow("NUL") << u"a"_s + QChar(0) + u"b"_s << false;
    }

    void safeFileNames()
    {
        QFETCH(QString, name);
        QFETCH(bool, safe);
        QCOMPARE(BouquetIndex::isSafeFileName(name), safe);
    }

    void newFileName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("radio");
        QTest::addColumn<QStringList>("existing");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("plain") << u"Sport HD"_s << false << QStringList() << u"userbouquet.sport_hd.tv"_s;
        QTest::newRow("taken") << u"Sport HD"_s << false << QStringList{u"userbouquet.sport_hd.tv"_s}
                               << u"userbouquet.sport_hd2.tv"_s;
        QTest::newRow("both taken") << u"Sport HD"_s << false
                                    << QStringList{u"userbouquet.sport_hd.tv"_s, u"userbouquet.sport_hd2.tv"_s}
                                    << u"userbouquet.sport_hd3.tv"_s;
        QTest::newRow("gap") << u"Sport HD"_s << false
                             << QStringList{u"userbouquet.sport_hd.tv"_s, u"userbouquet.sport_hd3.tv"_s}
                             << u"userbouquet.sport_hd2.tv"_s;
        QTest::newRow("other kind free") << u"Sport HD"_s << true << QStringList{u"userbouquet.sport_hd.tv"_s}
                                         << u"userbouquet.sport_hd.radio"_s;
        QTest::newRow("case-sensitive") << u"Sport"_s << false << QStringList{u"userbouquet.Sport.tv"_s}
                                        << u"userbouquet.sport.tv"_s;
        QTest::newRow("umlaut") << u"Österreich"_s << true << QStringList() << u"userbouquet.osterreich.radio"_s;
        QTest::newRow("accents") << u"Télé Café Ñ"_s << false << QStringList() << u"userbouquet.tele_cafe_n.tv"_s;
        QTest::newRow("decomposed input") << u"Te\u0301le\u0301"_s << false << QStringList() << u"userbouquet.tele.tv"_s;
        QTest::newRow("no decomposition") << u"Øresund ß"_s << false << QStringList() << u"userbouquet.øresund_ß.tv"_s;
        QTest::newRow("other scripts") << u"Россия 1"_s << false << QStringList() << u"userbouquet.россия_1.tv"_s;
        QTest::newRow("Hangul whole") << u"한국"_s << false << QStringList() << u"userbouquet.한국.tv"_s;
        QTest::newRow("exclamation marks") << u"!!!"_s << false << QStringList() << u"userbouquet.___.tv"_s;
        QTest::newRow("runs and ends kept") << u" a -- b "_s << false << QStringList() << u"userbouquet._a____b_.tv"_s;
        QTest::newRow("empty") << QString() << false << QStringList() << u"userbouquet.neu.tv"_s;
        QTest::newRow("empty, neu taken") << QString() << false << QStringList{u"userbouquet.neu.tv"_s}
                                          << u"userbouquet.neu2.tv"_s;
        QTest::newRow("superscript and fraction") << u"x²½"_s << false << QStringList() << u"userbouquet.x²½.tv"_s;
        QTest::newRow("roman numeral") << u"Ⅻ"_s << false << QStringList() << u"userbouquet.ⅻ.tv"_s;
        QTest::newRow("quote and slash") << u"a\"b/c.d"_s << false << QStringList() << u"userbouquet.a_b_c_d.tv"_s;
        QTest::newRow("one per character") << u"a😀b"_s << false << QStringList() << u"userbouquet.a_b.tv"_s;
        QTest::newRow("flag is one character") << u"🇩🇪"_s << false << QStringList() << u"userbouquet._.tv"_s;
    }

    void newFileName()
    {
        QFETCH(QString, name);
        QFETCH(bool, radio);
        QFETCH(QStringList, existing);
        QFETCH(QString, fileName);
        const QString made = BouquetIndex::newFileName(name, radio ? MediaKind::radio : MediaKind::tv,
                                                       QSet<QString>(existing.cbegin(), existing.cend()));
        QCOMPARE(made, fileName);
        QVERIFY(BouquetIndex::isSafeFileName(made));
        QVERIFY(!made.contains(u'"'));
    }

    void corpusBouquets_data()
    {
        QTest::addColumn<QString>("path");
        const QStringList files = CorpusFiles::matching({u"userbouquet.*"_s, u"subbouquet.*"_s});
        if (files.isEmpty())
            QSKIP("corpus not present");
        for (const QString &file : files)
            QTest::newRow(CorpusFiles::rowName(file).constData()) << file;
    }

    // Writing what was read gives the file less the lines the format drops, with line feeds.
    void corpusBouquets()
    {
        QFETCH(QString, path);
        const QByteArray file = Utf8::repaired(TestSupport::readFile(path));
        const QString fileName = QFileInfo(path).fileName();
        const Bouquet bouquet = Bouquet::parse(fileName, path.endsWith(u".radio"_s) ? MediaKind::radio : MediaKind::tv,
                                               file);
        QCOMPARE(bouquet.serialized(), expectedRewrite(file, fileName));
        qsizetype serviceLines = 0;
        for (const QByteArray &line : file.split('\n'))
            serviceLines += line.startsWith("#SERVICE ");
        QCOMPARE(bouquet.entries.size(), serviceLines);
    }

    void corpusIndexes()
    {
        const QStringList files = CorpusFiles::matching({u"bouquets.tv"_s, u"bouquets.radio"_s});
        if (files.isEmpty())
            QSKIP("corpus not present");
        static const QRegularExpression phrase(u"FROM BOUQUET \"([^\"]*)\""_s);
        for (const QString &path : files) {
            const QByteArray text = Utf8::repaired(TestSupport::readFile(path));
            QStringList expected;
            for (const QByteArray &line : text.split('\n')) {
                const auto match = phrase.match(QString::fromUtf8(line));
                if (line.startsWith("#SERVICE") && match.hasMatch())
                    expected << match.captured(1);
            }
            QVERIFY2(!expected.isEmpty(), qPrintable(path));
            QCOMPARE(BouquetIndex::fileNames(text), expected);
            for (const QString &name : expected)
                QVERIFY2(BouquetIndex::isSafeFileName(name), qPrintable(name));
        }
    }
};

QTEST_GUILESS_MAIN(BouquetTest)
#include "BouquetTest.moc"
