// The bundled example list must open cleanly and show what the editor does: both database
// formats alike, every bouquet and service it names present, a repair to make, box-style files.

#include "Bouquet.h"
#include "BouquetIndex.h"
#include "LameDB.h"
#include "Satellites.h"
#include "TestSupport.h"
#include "Utf8.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class ExampleListTest : public QObject
{
    Q_OBJECT

private:
    QByteArray read(const QString &name) const { return TestSupport::readFile(m_dir + u'/' + name); }

    QString m_dir;

private slots:
    void initTestCase()
    {
        TestSupport::isolateUserFolders();
        m_dir = TestSupport::examplesDir();
        QVERIFY(QFileInfo(m_dir + u"/lamedb5"_s).isFile());
    }

    void databasesAgree()
    {
        const auto v5 = LameDB::parse(read(u"lamedb5"_s));
        const auto v4 = LameDB::parse(read(u"lamedb"_s));
        QCOMPARE(v4.services, v5.services);
        QCOMPARE(v4.transponders, v5.transponders);
        QVERIFY(v5.services.size() >= 60 && v5.services.size() <= 120);
        QVERIFY(v5.transponders.size() >= 8 && v5.transponders.size() <= 12);

        QSet<QString> positions;
        for (const Service &service : v5.services)
            positions.insert(service.position);
        for (const QString &position : {u"19.2E"_s, u"13.0E"_s, u"0.8W"_s, u"Kabel"_s, u"Terrestrisch"_s})
            QVERIFY2(positions.contains(position), qPrintable(position));
        QVERIFY(!positions.contains(QString()));

        // Mis-encoded names are stored that way and read repaired.
        QVERIFY(read(u"lamedb5"_s).contains("\"Ã–1\""));
        QVERIFY(std::any_of(v5.services.cbegin(), v5.services.cend(),
                            [](const Service &service) { return service.name == u"Ö1"_s; }));
        QVERIFY(std::any_of(v5.services.cbegin(), v5.services.cend(),
                            [](const Service &service) { return service.provider.contains(u"13.0°E"_s); }));
        bool radio = false;
        for (const Service &service : v5.services)
            radio = radio || service.kind() == MediaKind::radio;
        QVERIFY(radio);
    }

    // As the box writes them: line feeds, lower-case zero-padded keys, Thor's position as 3592.
    void databaseFormatting()
    {
        const QByteArray v4 = read(u"lamedb"_s);
        const QByteArray v5 = read(u"lamedb5"_s);
        QVERIFY(!v4.contains('\r') && !v5.contains('\r'));
        QVERIFY(v4.endsWith('\n') && v5.endsWith('\n'));
        QVERIFY(Utf8::isValid(v4) && Utf8::isValid(v5));
        static const QRegularExpression key(u"^[0-9a-f]{4}:[0-9a-f]{8}:[0-9a-f]{4}:[0-9a-f]{4}:[0-9]+:0$"_s);
        const QList<QByteArray> lines = v4.split('\n');
        const qsizetype first = lines.indexOf("services") + 1;
        const qsizetype end = lines.indexOf("end", first);
        QVERIFY(first > 0 && end > first);
        for (qsizetype i = first; i < end; i += 3) {
            QVERIFY2(key.match(QString::fromUtf8(lines[i])).hasMatch(), lines[i].constData());
            QVERIFY(lines[i + 2].startsWith("p:"));
        }
        QVERIFY(v4.contains(":3592:"));
        QVERIFY(v5.contains("\nt:ffff0000:") && v5.contains("\nt:eeee0000:"));
    }

    void bouquetsResolve()
    {
        const auto database = LameDB::parse(read(u"lamedb5"_s));
        QSet<ServiceKey> keys;
        for (const Service &service : database.services)
            keys.insert(service.key);

        int markers = 0, streams = 0, subBouquets = 0, overrides = 0;
        QStringList pending;
        for (MediaKind kind : MediaKind::allCases()) {
            const QByteArray index = read(u"bouquets."_s + kind.rawValue());
            QVERIFY(index.endsWith("\r\n"));
            const QStringList names = BouquetIndex::fileNames(index);
            QVERIFY(!names.isEmpty());
            pending += names;
        }
        QSet<QString> seen;
        while (!pending.isEmpty()) {
            const QString fileName = pending.takeFirst();
            QVERIFY2(BouquetIndex::isSafeFileName(fileName), qPrintable(fileName));
            seen.insert(fileName);
            const QByteArray text = read(fileName);
            QVERIFY2(!text.isEmpty(), qPrintable(fileName));
            QVERIFY(text.endsWith("\r\n") && !text.contains("\n\n"));
            const Bouquet bouquet = Bouquet::parse(fileName, fileName.endsWith(u".radio"_s) ? MediaKind::radio : MediaKind::tv, text);
            QVERIFY(bouquet.name != fileName);
            QVERIFY(!bouquet.entries.isEmpty());
            for (const BouquetEntry &entry : bouquet.entries) {
                if (entry.isMarker()) {
                    ++markers;
                    QVERIFY(entry.description && !entry.description->isEmpty());
                } else if (const auto key = entry.serviceKey()) {
                    QVERIFY2(keys.contains(*key), qPrintable(entry.reference));
                    overrides += entry.description.has_value();
                } else if (entry.reference.startsWith(u"4097:"_s)) {
                    ++streams;
                    QVERIFY(entry.reference.contains(u"http%3a//"_s));
                } else {
                    // A sub-bouquet: its file is there and read in turn.
                    const QStringList linked = BouquetIndex::fileNames("#SERVICE " + entry.reference.toUtf8());
                    QCOMPARE(linked.size(), 1);
                    ++subBouquets;
                    if (!seen.contains(linked[0]))
                        pending.append(linked[0]);
                }
            }
        }
        QVERIFY(markers >= 5);
        QVERIFY(streams >= 1);
        QCOMPARE(subBouquets, 1);
        QVERIFY(overrides >= 1);
        QVERIFY(seen.size() >= 4);

        // No file in the folder is left out of the lists.
        const QStringList files = QDir(m_dir).entryList({u"userbouquet.*"_s, u"subbouquet.*"_s}, QDir::Files);
        QCOMPARE(QSet<QString>(files.cbegin(), files.cend()), seen);
    }

    void satellitesNamed()
    {
        const auto names = Satellites::parse(read(u"satellites.xml"_s));
        const auto database = LameDB::parse(read(u"lamedb"_s));
        for (const Transponder &transponder : database.transponders) {
            if (transponder.data.startsWith(u"s "_s))
                QVERIFY2(names.contains(*transponder.position()), qPrintable(*transponder.position()));
        }
        QCOMPARE(names.value(u"0.8W"_s), u"Thor 5/6/7 & Intelsat 10-02 (0.8W)"_s);
    }
};

QTEST_GUILESS_MAIN(ExampleListTest)
#include "ExampleListTest.moc"
