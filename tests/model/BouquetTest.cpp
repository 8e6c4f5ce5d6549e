// Bouquet files read and written, the index files, and the names of new bouquet files.

#include "Bouquet.h"
#include "BouquetIndex.h"
#include "TestSupport.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Entries without their random ids, to compare with what a file must give.
using Entries = QList<std::pair<QString, std::optional<QString>>>;

Entries entries(const Bouquet &bouquet)
{
    Entries result;
    for (const BouquetEntry &entry : bouquet.entries)
        result.append({entry.reference, entry.description});
    return result;
}

Bouquet parsed(const QByteArray &text, MediaKind kind = MediaKind::tv)
{
    return Bouquet::parse(u"f.tv"_s, kind, text);
}

} // namespace

class BouquetTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void parse()
    {
        const QByteArray text = "#NAME Sport\n#SERVICE 1:0:19:2B66:3F3:1:C00000:0:0:0:\n#DESCRIPTION ZDF (Favorit)\n"
                                "#DESCRIPTION second one dropped\n#SERVICE 1:64:0:0:0:0:0:0:0:0:\n"
                                "#DESCRIPTION --- Fußball ---\n"
                                "#SERVICE 4097:0:1:9735:AF56:EC:0:0:0:0:https%3a//x.example/a.m3u8:Big Time Rush\n"
                                "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.a.tv\" ORDER BY bouquet\n"
                                "#DESCRIPTION \n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n";
        const Bouquet bouquet = Bouquet::parse(u"userbouquet.sport.tv"_s, MediaKind::radio, text);
        QCOMPARE(bouquet.fileName, u"userbouquet.sport.tv"_s);
        QCOMPARE(bouquet.name, u"Sport"_s);
        QCOMPARE(bouquet.kind, MediaKind::radio);
        QCOMPARE(entries(bouquet),
                 (Entries{{u"1:0:19:2B66:3F3:1:C00000:0:0:0:"_s, u"ZDF (Favorit)"_s},
                          {u"1:64:0:0:0:0:0:0:0:0:"_s, u"--- Fußball ---"_s},
                          {u"4097:0:1:9735:AF56:EC:0:0:0:0:https%3a//x.example/a.m3u8:Big Time Rush"_s, {}},
                          {u"1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.a.tv\" ORDER BY bouquet"_s, u""_s},
                          {u"1:0:1:83:437:1:C00000:0:0:0:"_s, {}}}));
        // Only the second piece is checked, so a stream names a service too; a sub-bouquet does not.
        QCOMPARE(bouquet.entries[2].serviceKey(), (ServiceKey{0x9735, 0xaf56, 0xec, 0}));
        QCOMPARE(bouquet.entries[3].serviceKey(), std::nullopt);
        // Every entry has its own identity, and so has every read.
        QSet<QUuid> ids{bouquet.id, Bouquet::parse(bouquet.fileName, bouquet.kind, text).id};
        for (const BouquetEntry &entry : bouquet.entries)
            ids.insert(entry.id);
        QCOMPARE(ids.size(), bouquet.entries.size() + 2);

        // Lines that are dropped, and the name and entry count left.
        const std::tuple<QByteArray, QString, int> dropped[] = {
            {"#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n", u"f.tv"_s, 1}, {"#NAME\n#NAME \n", QString(), 0},
            {"#NAMEX\n", u"f.tv"_s, 0}, {"#NAME A\n#NAME B\n", u"B"_s, 0},
            {"#SERVICE1:0:1:83:437:1:C00000:0:0:0:\n", u"f.tv"_s, 0}, {"#SERVICE: 1:0:1:83:437:1:C00000:0:0:0:\n", u"f.tv"_s, 0},
            {"#name A\n#service 1:0:1:83:437:1:C00000:0:0:0:\n", u"f.tv"_s, 0}, {" #NAME A\n", u"f.tv"_s, 0},
            {"#DESCRIPTION x\n#NAME A\n", u"A"_s, 0}, {"#NAME A\n\n# comment\n#IPTV abc\n#SORT x\n", u"A"_s, 0},
            {"\xef\xbb\xbf#NAME A\n", u"f.tv"_s, 0}, {"", u"f.tv"_s, 0}, {"\r\n", u"f.tv"_s, 0}};
        for (const auto &[lines, name, count] : dropped) {
            QCOMPARE(parsed(lines).name, name);
            QCOMPARE(parsed(lines).entries.size(), count);
        }
    }

    void hostileText()
    {
        const QByteArray lf = "#NAME Österreich\n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n#DESCRIPTION ORF 1\n";
        for (const QByteArray &lineBreak : {QByteArray("\r\n"), QByteArray("\r"), QByteArray("\n\r"), QByteArray("\xc2\x85"),
                                            QByteArray("\xe2\x80\xa8"), QByteArray("\xe2\x80\xa9"), QByteArray("\x0b")}) {
            const Bouquet bouquet = parsed(QByteArray(lf).replace("\n", lineBreak));
            QCOMPARE(bouquet.name, u"Österreich"_s);
            QCOMPARE(entries(bouquet), entries(parsed(lf)));
            QCOMPARE(bouquet.serialized(), lf);
        }
        // A break inside a reference cuts it there; the rest is an unknown line.
        QCOMPARE(entries(parsed("#SERVICE 1:0:1:83\xc2\x85:437:1:C00000:0:0:0:\n")), (Entries{{u"1:0:1:83"_s, {}}}));

        const Bouquet invalid = parsed("#NAME Caf\xe9\n#SERVICE a\xff\xfe" "b\n", MediaKind::radio);
        QCOMPARE(invalid.name, u"Caf\ufffd"_s);
        QCOMPARE(invalid.entries[0].reference, u"a\ufffd\ufffdb"_s);
        QCOMPARE(invalid.serialized(), QByteArray("#NAME Caf\xef\xbf\xbd\n#SERVICE a\xef\xbf\xbd\xef\xbf\xbd" "b\n"));

        // A file cut anywhere keeps the entries before the cut as they were.
        const QByteArray whole = "#NAME Sport\r\n#SERVICE 1:64:0:0:0:0:0:0:0:0:\r\n#DESCRIPTION --- Fußball ---\r\n"
                                 "#SERVICE 1:0:19:2B66:3F3:1:C00000:0:0:0:\r\n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\r\n"
                                 "#DESCRIPTION Eins\r\n";
        const Entries full = entries(parsed(whole));
        for (qsizetype length = 0; length <= whole.size(); ++length) {
            const Bouquet part = parsed(whole.left(length));
            const qsizetype kept = qMax<qsizetype>(part.entries.size() - 1, 0);
            QVERIFY(part.entries.size() <= full.size());
            QCOMPARE(entries(part).first(kept), full.first(kept));
            QVERIFY(part.name == u"f.tv"_s || u"Sport"_s.startsWith(part.name));
        }
    }

    void serialized()
    {
        Bouquet bouquet{freshId(), u"userbouquet.neu.tv"_s, u"Neu ä"_s, MediaKind::tv, {}};
        QCOMPARE(bouquet.serialized(), QByteArray("#NAME Neu \xc3\xa4\n"));
        bouquet.entries = {BouquetEntry{freshId(), markerReference.toString(), u"Nachrichten"_s},
                           BouquetEntry{freshId(), u"1:0:1:83:437:1:C00000:0:0:0:"_s, std::nullopt},
                           BouquetEntry{freshId(), u"1:0:1:84:437:1:C00000:0:0:0:"_s, u""_s}};
        const QByteArray text = "#NAME Neu \xc3\xa4\n#SERVICE 1:64:0:0:0:0:0:0:0:0:\n#DESCRIPTION Nachrichten\n"
                                "#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n#SERVICE 1:0:1:84:437:1:C00000:0:0:0:\n"
                                "#DESCRIPTION \n";
        QCOMPARE(bouquet.serialized(), text);
        QCOMPARE(entries(parsed(text)), entries(bouquet));

        QCOMPARE(BouquetIndex::serialized(MediaKind::tv, {}), QByteArray("#NAME User - Bouquets (TV)\n"));
        QCOMPARE(BouquetIndex::serialized(MediaKind::radio, {}), QByteArray("#NAME User - Bouquets (Radio)\n"));
        const Bouquet other{freshId(), u"userbouquet.österreich.tv"_s, {}, MediaKind::tv, {}};
        QCOMPARE(BouquetIndex::serialized(MediaKind::tv, {bouquet, other}),
                 QByteArray("#NAME User - Bouquets (TV)\n"
                            "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.neu.tv\" ORDER BY bouquet\n"
                            "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.\xc3\xb6sterreich.tv\" ORDER BY bouquet\n"));
        QCOMPARE(BouquetIndex::serialized(MediaKind::radio, {bouquet}),
                 QByteArray("#NAME User - Bouquets (Radio)\n"
                            "#SERVICE 1:7:2:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.neu.tv\" ORDER BY bouquet\n"));
        QCOMPARE(BouquetIndex::fileNames(BouquetIndex::serialized(MediaKind::tv, {other, bouquet})),
                 (QStringList{other.fileName, bouquet.fileName}));
    }

    void indexFileNames()
    {
        const std::pair<QByteArray, QStringList> cases[] = {
            {"#NAME User - Bouquets (TV)\r\n"
             "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.a.tv\" ORDER BY bouquet\r\n"
             "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.b.tv\" ORDER BY bouquet\r\n",
             {u"userbouquet.a.tv"_s, u"userbouquet.b.tv"_s}},
            {"#SERVICE x FROM BOUQUET \"userbouquet.x.tv\" and \"more\" words", {u"userbouquet.x.tv"_s}},
            {"#SERVICE: 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.c.tv\"", {u"userbouquet.c.tv"_s}},
            {"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.a.tv", {}},
            {"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET  \"userbouquet.a.tv\"", {}},
            {"#DESCRIPTION FROM BOUQUET \"userbouquet.a.tv\"\n #SERVICE FROM BOUQUET \"userbouquet.b.tv\"", {}},
            {"#SERVICE FROM BOUQUET \"\"", {QString()}},
            // Hostile names are read as they are; opening the folder refuses them.
            {"#SERVICE FROM BOUQUET \"../etc/passwd\"\n#SERVICE FROM BOUQUET \"a/b\"", {u"../etc/passwd"_s, u"a/b"_s}},
            {"#SERVICE FROM BOUQUET \"a\xc2\x85" "b\"", {}}};
        for (const auto &[text, names] : cases)
            QCOMPARE(BouquetIndex::fileNames(text), names);

        for (const QString &name : {u"userbouquet.favourites.tv"_s, u"subbouquet.ec_pluto_tv.tv"_s, u"userbouquet.österreich.radio"_s})
            QVERIFY2(BouquetIndex::isSafeFileName(name), qPrintable(name));
        for (const QString &name : {QString(), u"."_s, u".."_s, u"../userbouquet.a.tv"_s, u"userbouquet..tv"_s, u"a/b"_s,
                                    u"/etc/enigma2/userbouquet.a.tv"_s, u"a\\b"_s, u"a"_s + QChar(0) + u"b"_s})
            QVERIFY2(!BouquetIndex::isSafeFileName(name), qPrintable(name));
    }

    void newFileName()
    {
        // Name, radio, names in use, the new file name.
        const QStringList sport{u"userbouquet.sport_hd.tv"_s, u"userbouquet.sport_hd2.tv"_s};
        const std::tuple<const char16_t *, bool, QStringList, const char16_t *> cases[] = {
            {u"Sport HD", false, {}, u"userbouquet.sport_hd.tv"}, {u"Sport HD", false, sport.first(1), u"userbouquet.sport_hd2.tv"},
            {u"Sport HD", false, sport, u"userbouquet.sport_hd3.tv"}, {u"Sport HD", true, sport, u"userbouquet.sport_hd.radio"},
            {u"Sport HD", false, {sport[0], u"userbouquet.sport_hd3.tv"_s}, u"userbouquet.sport_hd2.tv"},
            {u"Sport", false, {u"userbouquet.Sport.tv"_s}, u"userbouquet.sport.tv"},
            {u"", false, {}, u"userbouquet.neu.tv"}, {u"", false, {u"userbouquet.neu.tv"_s}, u"userbouquet.neu2.tv"},
            {u"Österreich", true, {}, u"userbouquet.osterreich.radio"}, {u"Télé Café Ñ", false, {}, u"userbouquet.tele_cafe_n.tv"},
            {u"Te\u0301le\u0301", false, {}, u"userbouquet.tele.tv"}, {u"Øresund ß", false, {}, u"userbouquet.øresund_ß.tv"},
            {u"Россия 1", false, {}, u"userbouquet.россия_1.tv"}, {u"한국", false, {}, u"userbouquet.한국.tv"},
            {u"!!!", false, {}, u"userbouquet.___.tv"}, {u" a -- b ", false, {}, u"userbouquet._a____b_.tv"},
            {u"x²½", false, {}, u"userbouquet.x²½.tv"}, {u"Ⅻ", false, {}, u"userbouquet.ⅻ.tv"},
            {u"a\"b/c.d", false, {}, u"userbouquet.a_b_c_d.tv"}, {u"🇩🇪", false, {}, u"userbouquet._.tv"},
            {u"a😀b", false, {}, u"userbouquet.a_b.tv"}}; // one "_" per character, not per UTF-16 unit
        for (const auto &[name, radio, existing, fileName] : cases) {
            const QString made = BouquetIndex::newFileName(QString::fromUtf16(name), radio ? MediaKind::radio : MediaKind::tv,
                                                           QSet<QString>(existing.cbegin(), existing.cend()));
            QCOMPARE(made, QString::fromUtf16(fileName));
            QVERIFY(BouquetIndex::isSafeFileName(made));
        }
    }
};

QTEST_GUILESS_MAIN(BouquetTest)
#include "BouquetTest.moc"
