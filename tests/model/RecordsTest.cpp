// Service references both ways, position labels, the records' equality, and picon file names.

#include "BouquetEntry.h"
#include "MediaKind.h"
#include "Picon.h"
#include "Service.h"
#include "TestSupport.h"
#include "Transponder.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(std::optional<ServiceKey>)
Q_DECLARE_METATYPE(std::optional<QString>)

class RecordsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void serviceKeyOfReference_data()
    {
        QTest::addColumn<QString>("reference");
        QTest::addColumn<std::optional<ServiceKey>>("key");
        const ServiceKey zdf{0x2b66, 0x3f3, 1, 0xc00000};
        QTest::newRow("HD type") << u"1:0:19:2B66:3F3:1:C00000:0:0:0:"_s << std::optional(zdf);
        QTest::newRow("type 1, same key") << u"1:0:1:2B66:3F3:1:C00000:0:0:0:"_s << std::optional(zdf);
        QTest::newRow("lower case") << u"1:0:1:2b66:3f3:1:c00000:0:0:0:"_s << std::optional(zdf);
        QTest::newRow("seven pieces") << u"1:0:1:2B66:3F3:1:C00000"_s << std::optional(zdf);
        QTest::newRow("stream tail ignored") << u"1:0:1:2B66:3F3:1:C00000:0:0:0:http%3a//x:Name"_s
                                             << std::optional(zdf);
        QTest::newRow("first and type unchecked") << u"x:0::2B66:3F3:1:C00000:0:0:0:"_s << std::optional(zdf);
        QTest::newRow("full 32 bits") << u"1:0:1:FFFFFFFF:0:0:00000000FFFF0000:0:0:0:"_s
                                      << std::optional(ServiceKey{0xffffffff, 0, 0, 0xffff0000});
        QTest::newRow("marker") << u"1:64:0:0:0:0:0:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("sub-bouquet") << u"1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.a.tv\" ORDER BY bouquet"_s
                                     << std::optional<ServiceKey>();
        QTest::newRow("sid 0") << u"1:0:1:0:437:1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("six pieces") << u"1:0:1:83:437:1"_s << std::optional<ServiceKey>();
        QTest::newRow("empty tsid") << u"1:0:1:83::1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("empty namespace") << u"1:0:1:83:437:1::0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("flags 00") << u"1:00:1:83:437:1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("0x prefix") << u"1:0:1:0x83:437:1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("blank in sid") << u"1:0:1: 83:437:1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("sign") << u"1:0:1:+83:437:1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("over 32 bits") << u"1:0:1:100000000:437:1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("not hex") << u"1:0:1:83:43G:1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("full-width digits") << u"1:0:1:８３:437:1:C00000:0:0:0:"_s << std::optional<ServiceKey>();
        QTest::newRow("empty") << QString() << std::optional<ServiceKey>();
    }

    void serviceKeyOfReference()
    {
        QFETCH(QString, reference);
        QFETCH(std::optional<ServiceKey>, key);
        const BouquetEntry entry{freshId(), reference, std::nullopt};
        QCOMPARE(entry.serviceKey(), key);
    }

    void referenceOfService()
    {
        Service service;
        service.key = ServiceKey{0x83, 0x437, 1, 0x00c00000};
        service.type = 1;
        QCOMPARE(reference(service), u"1:0:1:83:437:1:C00000:0:0:0:"_s);

        // No padding and upper case, whatever the magnitude.
        service.key = ServiceKey{0x0abc, 0xffffffff, 0, 0xeeee0000};
        service.type = 0x19;
        QCOMPARE(reference(service), u"1:0:19:ABC:FFFFFFFF:0:EEEE0000:0:0:0:"_s);

        // The written reference reads back to the same key.
        const BouquetEntry entry{freshId(), reference(service), std::nullopt};
        QCOMPARE(entry.serviceKey(), service.key);
    }

    void markers()
    {
        QVERIFY((BouquetEntry{freshId(), markerReference.toString(), u"Sport"_s}.isMarker()));
        QVERIFY((BouquetEntry{freshId(), u"1:64:E3:0:0:0:0:0:0:0::##### Kino #####"_s, {}}.isMarker()));
        QVERIFY(!(BouquetEntry{freshId(), u"1:0:1:83:437:1:C00000:0:0:0:"_s, {}}.isMarker()));
        QVERIFY(!(BouquetEntry{freshId(), u"1:640:0:0:0:0:0:0:0:0:"_s, {}}.isMarker()));
    }

    void position_data()
    {
        QTest::addColumn<QString>("data");
        QTest::addColumn<std::optional<QString>>("label");
        const auto label = [](const char *text) { return std::optional(QString::fromUtf8(text)); };
        QTest::newRow("Astra") << u"s 11836500:27500000:1:2:192:2:0"_s << label("19.2E");
        QTest::newRow("180.0E") << u"s 11494000:22000000:1:2:1800:2:0"_s << label("180.0E");
        QTest::newRow("179.9W") << u"s 11494000:22000000:1:2:1801:2:0"_s << label("179.9W");
        QTest::newRow("Thor") << u"s 10778000:28000000:0:3:3592:2:0"_s << label("0.8W");
        QTest::newRow("5.0W") << u"s 11494000:22000000:1:2:3550:2:0"_s << label("5.0W");
        QTest::newRow("zero") << u"s 11494000:22000000:1:2:0:2:0"_s << label("0.0E");
        QTest::newRow("negative stays east") << u"s 12687000:27500000:0:3:-50:2:0"_s << label("-5.0E");
        QTest::newRow("small negative") << u"s 12687000:27500000:0:3:-8:2:0"_s << label("-0.8E");
        QTest::newRow("plus sign") << u"s 12687000:27500000:0:3:+130:2:0"_s << label("13.0E");
        QTest::newRow("beyond 3600") << u"s 1:2:3:4:3601:2:0"_s << label("-0.1W");
        QTest::newRow("empty pieces dropped") << u"s 11494000::22000000:1:2:130:2:0"_s << label("13.0E");
        QTest::newRow("DVB-S2 fields") << u"s 11229000:22000000:1:2:192:2:0:1:2:2:2"_s << label("19.2E");
        QTest::newRow("unreadable") << u"s 11494000:22000000:1:2:abc:2:0"_s << std::optional<QString>();
        QTest::newRow("blank around") << u"s 11494000:22000000:1:2: 192:2:0"_s << std::optional<QString>();
        QTest::newRow("four pieces") << u"s 11494000:22000000:1:2"_s << std::optional<QString>();
        QTest::newRow("cable") << u"c 346000000:6900000:2:5:0"_s << label("Kabel");
        QTest::newRow("terrestrial") << u"t 474000000:0:5:5:3:2:4:4:2:0:0:0"_s << label("Terrestrisch");
        QTest::newRow("ATSC") << u"a 474000000:0:5"_s << std::optional<QString>();
        QTest::newRow("no blank after tag") << u"s:11494000:22000000:1:2:192:2:0"_s << std::optional<QString>();
        QTest::newRow("empty") << QString() << std::optional<QString>();
    }

    void position()
    {
        QFETCH(QString, data);
        QFETCH(std::optional<QString>, label);
        QCOMPARE((Transponder{0, 0, 0, data}.position()), label);
    }

    void mediaKinds()
    {
        QCOMPARE(MediaKind(MediaKind::tv).rawValue(), u"tv"_s);
        QCOMPARE(MediaKind(MediaKind::radio).rawValue(), u"radio"_s);
        QCOMPARE(MediaKind(MediaKind::tv).title(), u"TV"_s);
        QCOMPARE(MediaKind(MediaKind::radio).title(), u"Radio"_s);
        QCOMPARE(MediaKind::allCases()[0], MediaKind::tv);
        QCOMPARE(MediaKind::fromRawValue(u"radio"), std::optional(MediaKind(MediaKind::radio)));
        QCOMPARE(MediaKind::fromRawValue(u"TV"), std::nullopt);

        Service service;
        for (quint32 type : {2u, 10u}) {
            service.type = type;
            QCOMPARE(service.kind(), MediaKind::radio);
        }
        for (quint32 type : {0u, 1u, 0x19u, 0x1fu, 0x0au + 0x100u}) {
            service.type = type;
            QCOMPARE(service.kind(), MediaKind::tv);
        }
    }

    // Records that differ in one field must not compare equal; hashing must follow equality.
    void equalityAndHashing()
    {
        const BouquetEntry entry{freshId(), u"1:64:0:0:0:0:0:0:0:0:"_s, std::nullopt};
        BouquetEntry described = entry;
        described.description = QString();
        QVERIFY(entry != described); // absent and empty are different
        QCOMPARE(entry, BouquetEntry(entry));
        QCOMPARE(qHash(entry), qHash(BouquetEntry(entry)));

        QSet<ServiceKey> keys{ServiceKey{1, 2, 3, 4}, ServiceKey{4, 3, 2, 1}, ServiceKey{1, 2, 3, 4}};
        QCOMPARE(keys.size(), 2);

        Service a{ServiceKey{1, 2, 3, 4}, 1, u"A"_s, u"P"_s, u"19.2E"_s};
        Service b = a;
        QCOMPARE(qHash(a), qHash(b));
        b.position = u"13.0E"_s;
        QVERIFY(a != b);

        const BouquetEntry fresh;
        QVERIFY(!fresh.id.isNull());
        QVERIFY(fresh.id != BouquetEntry().id);
        QCOMPARE(fresh.id.version(), QUuid::Random);
    }

    void piconFileNames_data()
    {
        QTest::addColumn<QString>("reference");
        QTest::addColumn<QStringList>("names");
        QTest::newRow("HD service") << u"1:0:19:2B66:3F3:1:C00000:0:0:0:"_s
                                    << QStringList{u"1_0_19_2B66_3F3_1_C00000_0_0_0.png"_s,
                                                   u"1_0_1_2B66_3F3_1_C00000_0_0_0.png"_s};
        QTest::newRow("lower case type 1") << u"1:0:1:6dca:44d:1:c00000:0:0:0:"_s
                                           << QStringList{u"1_0_1_6DCA_44D_1_C00000_0_0_0.png"_s};
        QTest::newRow("marker") << u"1:64:0:0:0:0:0:0:0:0:"_s
                                << QStringList{u"1_64_0_0_0_0_0_0_0_0.png"_s, u"1_64_1_0_0_0_0_0_0_0.png"_s};
        QTest::newRow("ten pieces") << u"1:0:1:6DCA:44D:1:C00000:0:0:0"_s
                                    << QStringList{u"1_0_1_6DCA_44D_1_C00000_0_0_0.png"_s};
        QTest::newRow("tail dropped") << u"1:0:1:1E0:2D85:12D:0:0:0:0:http%3A//0.0.0.0%3A9999/a:(TV) tdp HD"_s
                                      << QStringList{u"1_0_1_1E0_2D85_12D_0_0_0_0.png"_s};
        QTest::newRow("lower-case type") << u"1:0:1f:2:40b:1:c00000:0:0:0:"_s
                                         << QStringList{u"1_0_1F_2_40B_1_C00000_0_0_0.png"_s,
                                                        u"1_0_1_2_40B_1_C00000_0_0_0.png"_s};
        QTest::newRow("nine pieces") << u"1:0:1:6DCA:44D:1:C00000:0:0"_s << QStringList();
        QTest::newRow("stream") << u"4097:0:1:6DCA:44D:1:C00000:0:0:0:http%3a//x"_s << QStringList();
        QTest::newRow("empty") << QString() << QStringList();
    }

    void piconFileNames()
    {
        QFETCH(QString, reference);
        QFETCH(QStringList, names);
        QCOMPARE(Picon::fileNames(reference), names);
    }

    // Every picon in the corpus is found under the first name of its service's reference.
    void piconsOfCorpus()
    {
        const QString dir = TestSupport::corpusDir() + u"/picons/srp-grey-border-100x60/picons"_s;
        if (TestSupport::corpusDir().isEmpty() || !QFileInfo(dir).isDir())
            QSKIP("corpus not present");
        const QStringList files = QDir(dir).entryList({u"*.png"_s}, QDir::Files);
        QVERIFY(!files.isEmpty());
        for (const QString &file : files) {
            const QString reference = file.chopped(4).replace(u'_', u':') + u':';
            QCOMPARE(Picon::fileNames(reference).value(0), file);
        }
    }
};

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
