#include "BoxLogWatch.h"
#include "Error.h"
#include "ListFixture.h"
#include "Paths.h"
#include "Store.h"
#include "TestSupport.h"

#include <QCoro/QCoroTimer>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <stdexcept>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using ListFixture::key;

namespace {

QString read(const QString &path)
{
    return QString::fromUtf8(TestSupport::readFile(path));
}

// Bouquets without their per-load ids, for comparing two loads of the same files.
QStringList describe(const BouquetLists &lists)
{
    QStringList lines;
    for (MediaKind kind : MediaKind::allCases()) {
        for (const Bouquet &bouquet : lists.value(kind)) {
            lines << kind.rawValue() + u' ' + bouquet.fileName + u' ' + bouquet.name;
            for (const BouquetEntry &entry : bouquet.entries)
                lines << entry.reference + u" | "_s + entry.description.value_or(u"<none>"_s);
        }
    }
    return lines;
}

void setHost(Store &store, const QString &host)
{
    BoxSettings settings = store.settings();
    settings.host = host;
    store.setSettings(settings);
}

} // namespace

// Opening and saving list folders, the recent folders and the reopening at start, the operation
// runner with its log lines, and the per-box folders, on real files.
class StoreFoldersTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    // A fresh copy of the list fixture for each test and row.
    QString m_list;

private slots:
    void initTestCase()
    {
        TestSupport::isolateUserFolders();
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    void init()
    {
        QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
        QDir(Paths::dataDir()).removeRecursively();
        m_list = m_dir.filePath(QString::fromLatin1(QTest::currentTestFunction()) + u'/' +
                                QString::fromLatin1(QTest::currentDataTag()).replace(u' ', u'_') + u"/list"_s);
        ListFixture::write(m_list);
    }

    void bothDatabases_data()
    {
        QTest::addColumn<QByteArray>("lamedb");
        QTest::addColumn<QString>("note");
        QList<ListFixture::FixtureService> services = ListFixture::services();
        QTest::newRow("same services") << ListFixture::lamedb4(services) << QString();
        QTest::newRow("one service fewer") << ListFixture::lamedb4(services.mid(1))
                                           << u" Hinweis: lamedb und lamedb5 enthalten unterschiedliche Sender."_s;
        services[0].name = u"Anders benannt"_s;
        QTest::newRow("same keys, other names") << ListFixture::lamedb4(services) << QString();
        QTest::newRow("unreadable lamedb") << QByteArray("eDVB services /9/\n") << QString();
    }

    void bothDatabases()
    {
        QFETCH(QByteArray, lamedb);
        QFETCH(QString, note);
        TestSupport::writeFile(m_list + u"/lamedb"_s, lamedb);
        const BoxLogWatch watch;
        Store store;
        store.load(m_list);
        QCOMPARE(store.status(), u"9 Sender (lamedb5), 2 TV- und 1 Radio-Bouquets geladen."_s + note);
        QCOMPARE(store.lamedbTexts(), (QMap<QString, QByteArray>{{u"lamedb"_s, lamedb},
                                                                 {u"lamedb5"_s, TestSupport::readFile(m_list + u"/lamedb5"_s)}}));
        QCOMPARE(store.baseServices().first().name, u"Das Erste HD"_s);
        QCOMPARE(store.satelliteNames().value(u"19.2E"_s), u"Astra 1KR/1L/1M/1N (19.2E)"_s);
        QCOMPARE(store.satelliteNames().size(), 2);
        QCOMPARE(store.folder(), QDir::cleanPath(m_list));
        QVERIFY(!store.isDirty());
        QCOMPARE(store.selectedBouquetID(), store.currentBouquets().first().id);
        QCOMPARE(watch.entries(), note.isEmpty() ? QStringList()
                                                 : QStringList{u"     Ordner     lamedb (8) und lamedb5 (9) unterscheiden sich"_s});
    }

    void onlyLamedb()
    {
        const QByteArray lamedb = ListFixture::lamedb4(ListFixture::services());
        QFile::remove(m_list + u"/lamedb5"_s);
        TestSupport::writeFile(m_list + u"/lamedb"_s, lamedb);
        // A folder named like a database is not one.
        QDir().mkpath(m_list + u"/lamedb5"_s);
        Store store;
        store.setKind(MediaKind::radio);
        store.load(m_list);
        QCOMPARE(store.status(), u"9 Sender (lamedb), 2 TV- und 1 Radio-Bouquets geladen."_s);
        QCOMPARE(store.lamedbTexts().keys(), QStringList{u"lamedb"_s});
        // Loading keeps the kind and selects its first bouquet.
        QCOMPARE(ListFixture::bouquetNames(store), QStringList{u"Radio"_s});
        QCOMPARE(store.selectedBouquetID(), store.currentBouquets().first().id);
        const QString elsewhere = m_dir.filePath(u"onlyLamedb-copy"_s);
        QCOMPARE(store.save(elsewhere).last(), u"lamedb"_s);
        QCOMPARE(TestSupport::readFile(elsewhere + u"/lamedb"_s), lamedb);
        QVERIFY(!QFileInfo::exists(elsewhere + u"/lamedb5"_s));
    }

    void missingAndHostileBouquetFiles()
    {
        const QString line = u"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"%1\" ORDER BY bouquet\n"_s;
        TestSupport::writeFile(
            m_list + u"/bouquets.tv"_s,
            (u"#NAME User - Bouquets (TV)\n"_s + line.arg(u"userbouquet.gone.tv"_s) + line.arg(u"../outside.tv"_s) +
             line.arg(u"sub/inner.tv"_s) + line.arg(u"userbouquet.favourites.tv"_s) +
             u"#DESCRIPTION FROM BOUQUET \"userbouquet.radio.radio\"\n"
             u"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.sport.tv\" ORDER BY bouquet ex\"tra\n"
             u"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.unterminated.tv\n"_s +
             line.arg(QString()))
                .toUtf8());
        const QByteArray outside = "#NAME Draußen\n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n";
        TestSupport::writeFile(QFileInfo(m_list).path() + u"/outside.tv"_s, outside);
        TestSupport::writeFile(m_list + u"/sub/inner.tv"_s, outside);
        Store store;
        store.load(m_list);
        QCOMPARE(ListFixture::bouquetNames(store), (QStringList{u"Favoriten"_s, u"Sport"_s}));
        QCOMPARE(store.status(), u"9 Sender (lamedb5), 2 TV- und 1 Radio-Bouquets geladen. Fehlende Dateien: "
                                 u"userbouquet.gone.tv, ../outside.tv, sub/inner.tv, "_s);
        // Nothing is written under those names, neither here nor in another folder.
        store.createBouquet(u"Neu"_s);
        const QString copy = m_list + u"/copy"_s;
        for (const QString &target : {m_list, copy}) {
            QCOMPARE(store.save(target),
                     (QStringList{u"bouquets.tv"_s, u"userbouquet.favourites.tv"_s, u"userbouquet.sport.tv"_s,
                                  u"userbouquet.neu.tv"_s, u"bouquets.radio"_s, u"userbouquet.radio.radio"_s} +
                      (target == copy ? QStringList{u"lamedb5"_s} : QStringList())));
        }
        QCOMPARE(TestSupport::readFile(QFileInfo(m_list).path() + u"/outside.tv"_s), outside);
        QCOMPARE(TestSupport::readFile(m_list + u"/sub/inner.tv"_s), outside);
        QVERIFY(!QFileInfo::exists(m_list + u"/outside.tv"_s));
        QVERIFY(!QFileInfo::exists(copy + u"/sub"_s));
    }

    void loadFailuresChangeNothing()
    {
        Store store;
        store.load(m_list);
        store.addMarker(u"ungespeichert"_s);
        const Snapshot before = store.snapshot();
        const QString status = store.status();
        const QList<Service> services = store.services();
        // The new lamedb5 (none: the folder is missing; empty: the file is), the error and its code.
        const QString missing = u"Im Ordner liegt weder lamedb noch lamedb5."_s;
        const QList<std::tuple<std::optional<QByteArray>, QString, int>> breakages{
            {std::nullopt, missing, 1},
            {QByteArray(), missing, 1},
            {"eDVB services /6/\n", u"Unbekanntes lamedb-Format."_s, 0},
            {"\xEF\xBB\xBF" + ListFixture::lamedb5(ListFixture::services()), u"Unbekanntes lamedb-Format."_s, 0}};
        for (const auto &[lamedb5, description, code] : breakages) {
            const QString broken = m_dir.filePath(u"broken/"_s + QString::number(code) + description.left(3));
            if (lamedb5) {
                ListFixture::write(broken);
                if (lamedb5->isEmpty())
                    QFile::remove(broken + u"/lamedb5"_s);
                else
                    TestSupport::writeFile(broken + u"/lamedb5"_s, *lamedb5);
            }
            try {
                store.load(broken);
                QFAIL("loaded a broken folder");
            } catch (const Error &error) {
                QCOMPARE(error.description(), description);
                QCOMPARE(error.code(), code);
                QCOMPARE(error.domain(), code == 1 ? u"Corvandel"_s : error.domain());
            }
            QCOMPARE(store.snapshot(), before);
            QCOMPARE(store.services(), services);
            QCOMPARE(store.status(), status);
            QCOMPARE(store.folder(), QDir::cleanPath(m_list));
            QVERIFY(store.isDirty() && store.canUndo());
            QVERIFY(!store.open(broken));
            QCOMPARE(store.errorMessage(), u"„%1“ konnte nicht geladen werden: %2"_s.arg(store.label(broken), description));
            QCOMPARE(store.recentFolders(), QStringList{QDir::cleanPath(m_list)});
        }
    }

    void saveHereAndElsewhere()
    {
        TestSupport::writeFile(m_list + u"/lamedb"_s, ListFixture::lamedb4(ListFixture::services()));
        Store store;
        store.load(m_list);
        // Changed on disk after loading: a save into this folder must leave the databases alone.
        const QByteArray onDisk = ListFixture::lamedb5(ListFixture::services()) + "# changed on disk\n";
        TestSupport::writeFile(m_list + u"/lamedb5"_s, onDisk);
        const QStringList bouquetFiles{u"bouquets.tv"_s, u"userbouquet.favourites.tv"_s, u"userbouquet.sport.tv"_s,
                                       u"bouquets.radio"_s, u"userbouquet.radio.radio"_s};
        QCOMPARE(store.save(m_list + u"/./"_s), bouquetFiles);
        QCOMPARE(TestSupport::readFile(m_list + u"/lamedb5"_s), onDisk);
        QCOMPARE(read(m_list + u"/bouquets.tv"_s),
                 u"#NAME User - Bouquets (TV)\n"
                 u"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.favourites.tv\" ORDER BY bouquet\n"
                 u"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.sport.tv\" ORDER BY bouquet\n"_s);
        QCOMPARE(read(m_list + u"/userbouquet.favourites.tv"_s),
                 u"#NAME Favoriten\n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n#SERVICE 1:64:0:0:0:0:0:0:0:0:\n"
                 u"#DESCRIPTION Nachrichten\n#SERVICE 1:0:19:84:437:1:C00000:0:0:0:\n"
                 u"#SERVICE 1:0:1:85:437:1:C00000:0:0:0:\n"_s);

        // Elsewhere the databases come along, as loaded, "lamedb" before "lamedb5"; the folder, the
        // dirty flag and the recent folders stay.
        store.renameBouquet(store.currentBouquets().first().id, u"Umbenannt"_s);
        const QString elsewhere = m_dir.filePath(u"elsewhere/deeper"_s);
        QCOMPARE(store.save(elsewhere), (bouquetFiles + QStringList{u"lamedb"_s, u"lamedb5"_s}));
        QCOMPARE(TestSupport::readFile(elsewhere + u"/lamedb5"_s), ListFixture::lamedb5(ListFixture::services()));
        QVERIFY(read(elsewhere + u"/userbouquet.favourites.tv"_s).startsWith(u"#NAME Umbenannt\n"_s));
        QVERIFY(read(m_list + u"/userbouquet.favourites.tv"_s).startsWith(u"#NAME Favoriten\n"_s));
        QCOMPARE(store.folder(), QDir::cleanPath(m_list));
        QVERIFY(store.isDirty());
        QCOMPARE(store.recentFolders(), QStringList{QDir::cleanPath(m_list)});

        // A pending service edit is applied to both databases, in their own formats, here too.
        store.renameService(key(0x85), u"ARTE"_s);
        store.deleteServices({key(0x88)});
        QCoro::waitFor(store.saveToCurrentFolder());
        QVERIFY(!store.isDirty() && !store.busy() && !store.errorMessage());
        QCOMPARE(store.status(), u"Gespeichert in %1."_s.arg(QDir::cleanPath(m_list)));
        QList<ListFixture::FixtureService> expected = ListFixture::services();
        expected[2].name = u"ARTE"_s;
        expected.removeAt(5);
        QCOMPARE(read(m_list + u"/lamedb5"_s), QString::fromUtf8(ListFixture::lamedb5(expected)));
        QCOMPARE(read(m_list + u"/lamedb"_s), QString::fromUtf8(ListFixture::lamedb4(expected)));
        QVERIFY(read(m_list + u"/userbouquet.favourites.tv"_s).startsWith(u"#NAME Umbenannt\n"_s));
        // Saving keeps the history and the edits.
        QVERIFY(store.canUndo());
        QCOMPARE(store.serviceEdits().size(), 2);
    }

    void recentFolders()
    {
        QStringList folders;
        for (int i = 1; i <= 6; ++i) {
            folders << m_dir.filePath(u"recent/"_s + QString::number(i));
            TestSupport::writeFile(folders.last() + u"/lamedb5"_s, ListFixture::lamedb5(ListFixture::services()));
        }
        Store store;
        QVERIFY(store.recentFolders().isEmpty());
        for (int i = 0; i < 5; ++i)
            QVERIFY(store.open(folders.at(i) + u'/'));
        QVERIFY(store.open(folders.at(1)));
        QCOMPARE(store.recentFolders(), (QStringList{folders[1], folders[4], folders[3], folders[2], folders[0]}));
        QVERIFY(store.open(folders.at(5)));
        const QStringList expected{folders[5], folders[1], folders[4], folders[3], folders[2]};
        QCOMPARE(store.recentFolders(), expected);
        QCOMPARE(QSettings(u"Corvandel"_s, u"Corvandel"_s).value(u"recentFolders"_s).toStringList(), expected);
        // A new store starts with the stored list.
        QCOMPARE(Store().recentFolders(), expected);
    }

    void restoreLastList_data()
    {
        QTest::addColumn<QVariant>("autoLoadLast");
        QTest::addColumn<bool>("recentHasList");
        QTest::addColumn<QString>("host");
        QTest::addColumn<QString>("expected");
        QTest::newRow("setting absent") << QVariant() << true << QString() << u"recent"_s;
        QTest::newRow("setting on") << QVariant(true) << true << u"127.0.0.1"_s << u"recent"_s;
        QTest::newRow("setting off") << QVariant(false) << true << QString() << QString();
        QTest::newRow("recent folder gone, box copy") << QVariant() << false << u" 127.0.0.1 "_s << u"box"_s;
        QTest::newRow("recent folder gone, no host") << QVariant() << false << QString() << QString();
    }

    void restoreLastList()
    {
        QFETCH(QVariant, autoLoadLast);
        QFETCH(bool, recentHasList);
        QFETCH(QString, host);
        QFETCH(QString, expected);
        QSettings preferences(u"Corvandel"_s, u"Corvandel"_s);
        if (autoLoadLast.isValid())
            preferences.setValue(u"autoLoadLast"_s, autoLoadLast);
        preferences.setValue(u"recentFolders"_s, QStringList{m_list});
        preferences.sync();
        if (!recentHasList)
            QFile::remove(m_list + u"/lamedb5"_s);
        const QString boxCopy = Paths::dataDir() + u"/127.0.0.1"_s;
        ListFixture::write(boxCopy);
        QFile::remove(boxCopy + u"/userbouquet.sport.tv"_s);

        Store store;
        setHost(store, host);
        store.restoreLastList();
        QVERIFY(!store.errorMessage());
        const QString loaded = u"9 Sender (lamedb5), %1 TV- und 1 Radio-Bouquets geladen."_s;
        if (expected.isEmpty()) {
            QVERIFY(store.services().isEmpty());
            QCOMPARE(store.status(), u"Keine Senderliste geladen."_s);
        } else if (expected == u"recent") {
            QCOMPARE(store.folder(), QDir::cleanPath(m_list));
            QCOMPARE(store.status(), u"Zuletzt verwendete Liste geladen (list – %1). "_s.arg(QFileInfo(m_list).path()) +
                                         loaded.arg(2));
        } else {
            QCOMPARE(store.folder(), QDir::cleanPath(boxCopy));
            QCOMPARE(store.status(), u"Zuletzt verwendete Liste geladen (Box-Kopie 127.0.0.1). "_s + loaded.arg(1) +
                                         u" Fehlende Dateien: userbouquet.sport.tv"_s);
        }
        // Once a list is loaded, restoring does nothing more.
        store.addMarker(u"x"_s);
        store.restoreLastList();
        QCOMPARE(store.isDirty(), !expected.isEmpty());
    }

    void corpusRoundTrip_data()
    {
        QTest::addColumn<QString>("folder");
        const QStringList folders = TestSupport::corpusListFolders();
        if (folders.isEmpty())
            QSKIP("the corpus of real channel lists is not there");
        for (const QString &folder : folders)
            QTest::newRow(qPrintable(QDir(TestSupport::corpusDir()).relativeFilePath(folder))) << folder;
    }

    void corpusRoundTrip()
    {
        QFETCH(QString, folder);
        Store first;
        if (!QFileInfo::exists(folder + u"/lamedb"_s) && !QFileInfo::exists(folder + u"/lamedb5"_s)) {
            QVERIFY(!first.open(folder));
            QVERIFY(first.errorMessage()->endsWith(u"Im Ordner liegt weder lamedb noch lamedb5."_s));
            return;
        }
        first.load(folder);
        QVERIFY(!first.baseServices().isEmpty());
        QTemporaryDir out;
        QVERIFY(first.save(out.path()).contains(u"bouquets.tv"_s));
        Store second;
        second.load(out.path());
        QCOMPARE(second.baseServices(), first.baseServices());
        QCOMPARE(describe(second.bouquets()), describe(first.bouquets()));
        QCOMPARE(second.lamedbTexts(), first.lamedbTexts());
        QVERIFY(!second.status().contains(u"Fehlende Dateien"_s));
    }

    void failedSaves_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::newRow("a folder where a bouquet file goes") << u"folder"_s;
        QTest::newRow("a file where the folder goes") << u"file"_s;
        QTest::newRow("disk full") << u"full"_s;
    }

    void failedSaves()
    {
        QFETCH(QString, fault);
        Store store;
        store.load(m_list);
        store.renameBouquet(store.currentBouquets().first().id, u"Neu benannt"_s);
        // Files after the failing one must keep what they hold.
        const QByteArray radio = "#NAME Radio von Hand\n";
        TestSupport::writeFile(m_list + u"/userbouquet.radio.radio"_s, radio);
        const QByteArray sport = TestSupport::readFile(m_list + u"/userbouquet.sport.tv"_s);
        if (fault == u"file") {
            const QString blocker = m_dir.filePath(u"failedSaves/blocker"_s);
            TestSupport::writeFile(blocker, "not a folder");
            try {
                store.save(blocker + u"/list"_s);
                QFAIL("saved below a file");
            } catch (const Error &error) {
                QCOMPARE(error.description(), u"Der Ordner „%1/list“ konnte nicht angelegt werden."_s.arg(blocker));
            }
            QCOMPARE(TestSupport::readFile(blocker), QByteArray("not a folder"));
            QVERIFY(store.isDirty());
            return;
        }
        if (fault == u"folder") {
            QFile::remove(m_list + u"/userbouquet.sport.tv"_s);
            QDir().mkpath(m_list + u"/userbouquet.sport.tv"_s);
            QCoro::waitFor(store.saveToCurrentFolder());
        } else {
            // The sport bouquet grows beyond what the "disk" takes.
            QStringList references;
            for (int sid = 1; sid <= 3000; ++sid)
                references << u"1:0:1:%1:437:1:C00000:0:0:0:"_s.arg(sid, 0, 16);
            store.insert(references, store.currentBouquets().at(1).id);
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit previous{};
            getrlimit(RLIMIT_FSIZE, &previous);
            rlimit limit = previous;
            limit.rlim_cur = 32 * 1024;
            setrlimit(RLIMIT_FSIZE, &limit);
            QCoro::waitFor(store.saveToCurrentFolder());
            setrlimit(RLIMIT_FSIZE, &previous);
        }
        const QString prefix = u"„userbouquet.sport.tv“ konnte nicht gespeichert werden: "_s;
        QVERIFY2(store.errorMessage().value_or(QString()).startsWith(prefix), qPrintable(store.errorMessage().value_or(QString())));
        QVERIFY(store.errorMessage()->size() > prefix.size());
        QVERIFY(store.isDirty() && !store.busy());
        // Written before the failure: the index and the renamed bouquet; nothing after it, and no
        // temporary files are left behind.
        QVERIFY(read(m_list + u"/userbouquet.favourites.tv"_s).startsWith(u"#NAME Neu benannt\n"_s));
        QCOMPARE(TestSupport::readFile(m_list + u"/userbouquet.radio.radio"_s), radio);
        if (fault == u"full")
            QCOMPARE(TestSupport::readFile(m_list + u"/userbouquet.sport.tv"_s), sport);
        QCOMPARE(QDir(m_list).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 (QStringList{u"bouquets.radio"_s, u"bouquets.tv"_s, u"lamedb5"_s, u"satellites.xml"_s,
                              u"userbouquet.favourites.tv"_s, u"userbouquet.radio.radio"_s, u"userbouquet.sport.tv"_s}));
    }

    void perform_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("failure");
        QTest::addColumn<bool>("early");
        QTest::addColumn<QString>("logged");
        QTest::newRow("ellipsis") << u"Teste Verbindung…"_s << QString() << false << u"Teste Verbindung"_s;
        QTest::newRow("no ellipsis") << u"Teste Verbindung"_s << QString() << false << u"Teste Verbindung"_s;
        QTest::newRow("dots and blanks") << u" …Speichere... "_s << QString() << false << u"Speichere"_s;
        QTest::newRow("error of the program") << u"Lade von der Box…"_s << u"Keine Verbindung zur Box."_s << false
                                              << u"Lade von der Box"_s;
        QTest::newRow("standard exception") << u"Lade…"_s << u"kaputt"_s << false << u"Lade"_s;
        QTest::newRow("thrown before the first wait") << u"Lade…"_s << u"sofort kaputt"_s << true << u"Lade"_s;
    }

    void perform()
    {
        QFETCH(QString, label);
        QFETCH(QString, failure);
        QFETCH(bool, early);
        QFETCH(QString, logged);
        Store store;
        setHost(store, u"192.168.0.10"_s);
        store.setStatus(u"Vorher"_s);
        QSignalSpy finished(&store, &Store::operationFinished);
        QSignalSpy busy(&store, &Store::busyChanged);
        const BoxLogWatch watch;
        std::optional<QString> busyInside;
        QCoro::Task<> task = store.perform(label, [&]() -> QCoro::Task<> {
            if (early)
                throw MessageError(failure);
            busyInside = store.busy();
            store.setStatus(u"Halb fertig"_s);
            co_await QCoro::sleepFor(20ms);
            if (failure == u"kaputt")
                throw std::runtime_error("kaputt");
            if (!failure.isEmpty())
                throw MessageError(failure, u"Corvandel"_s, 2);
        });
        // perform returns while the operation waits.
        QCOMPARE(store.busy(), early ? std::nullopt : std::optional<QString>(label));
        QCOMPARE(finished.count(), early ? 1 : 0);
        QCoro::waitFor(task);
        QCOMPARE(finished.count(), 1);
        QCOMPARE(busyInside, early ? std::nullopt : std::optional<QString>(label));
        QCOMPARE(store.busy(), std::nullopt);
        QCOMPARE(busy.count(), 2);
        QCOMPARE(store.errorMessage(), failure.isEmpty() ? std::nullopt : std::optional<QString>(failure));
        // The status keeps what the operation last put there.
        QCOMPARE(store.status(), early ? u"Vorher"_s : u"Halb fertig"_s);
        const QStringList entries = watch.entries();
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries.at(0), u">>>  Aufgabe    "_s + logged + u" – Box 192.168.0.10"_s);
        const QString end = failure.isEmpty() ? u"OK   Aufgabe    %1: fertig in \\d+\\.\\d\\d s – Halb fertig"_s
                                              : u"ERR  Aufgabe    %1: abgebrochen nach \\d+\\.\\d\\d s – "_s +
                                                    QRegularExpression::escape(failure);
        QVERIFY2(QRegularExpression(u'^' + end.arg(QRegularExpression::escape(logged)) + u'$').match(entries.at(1)).hasMatch(),
                 qPrintable(entries.at(1)));
    }

    void boxFolders()
    {
        // The host, the folder's name, and whether the host was resolved.
        const QList<std::tuple<QString, QString, bool>> hosts{
            {QString(), u"box"_s, false},
            {u"  "_s, u"box"_s, false},
            {u" 127.0.0.1 "_s, u"127.0.0.1"_s, true},
            {u"box/with/slash"_s, u"box_with_slash"_s, false},
            {u".."_s, u"__"_s, false},
            {u".teil"_s, u"_teil"_s, false},
            // The names of the picon cache, the backups and the password file.
            {u"Picons"_s, u"_Picons"_s, false},
            {u"Sicherungen"_s, u"_Sicherungen"_s, false},
            {u"passwords.json"_s, u"_passwords.json"_s, false}};
        for (const auto &[host, name, resolved] : hosts) {
            Store store;
            setHost(store, host);
            QCOMPARE(store.boxFolderName(), name);
            QCOMPARE(store.resolvedHosts().contains(host.trimmed()), resolved);
            QCOMPARE(store.workDir(), Paths::dataDir() + u'/' + name);
            QCOMPARE(QFileInfo(store.workDir()).absolutePath(), QDir::cleanPath(Paths::dataDir()));
        }

        // A host name merges its folders into its address's, once per session.
        if (Store::ipv4(u"localhost"_s) != std::optional<QString>(u"127.0.0.1"_s))
            QSKIP("localhost does not resolve to 127.0.0.1 here");
        QCOMPARE(Store::ipv4(u"box/with/slash"_s), std::nullopt);
        const QString data = Paths::dataDir();
        TestSupport::writeFile(data + u"/localhost/lamedb5"_s, "from the name");
        TestSupport::writeFile(data + u"/Picons/localhost/p.png"_s, "x");
        Store store;
        setHost(store, u" localhost"_s);
        QCOMPARE(store.boxFolderName(), u"127.0.0.1"_s);
        QCOMPARE(store.resolvedHosts().value(u"localhost"_s), u"127.0.0.1"_s);
        QCOMPARE(TestSupport::readFile(data + u"/127.0.0.1/lamedb5"_s), QByteArray("from the name"));
        QVERIFY(QFileInfo::exists(data + u"/Picons/127.0.0.1/p.png"_s));
        QVERIFY(!QFileInfo::exists(data + u"/localhost"_s));
        TestSupport::writeFile(data + u"/localhost/later"_s, "x");
        QCOMPARE(store.workDir(), data + u"/127.0.0.1"_s);
        QVERIFY(QFileInfo::exists(data + u"/localhost/later"_s));
    }

    void mergeFolders()
    {
        const QString data = Paths::dataDir();
        for (const auto &[path, bytes] : QList<std::pair<QString, QByteArray>>{
                 {u"/old/lamedb"_s, "old lamedb"}, {u"/old/bouquets.tv"_s, "old index"}, {u"/new/lamedb"_s, "new lamedb"},
                 {u"/Picons/old/a.png"_s, "a"}, {u"/Picons/old/.hidden"_s, "h"},
                 {u"/Sicherungen/old/2024-03-01_08-05-09/lamedb"_s, "backup"}, {u"/../outside/file"_s, "x"}})
            TestSupport::writeFile(data + path, bytes);
        const BoxLogWatch watch;
        Store::mergeFolders(u"old"_s, u"new"_s);
        // Existing entries win; the source keeps what could not move.
        QCOMPARE(TestSupport::readFile(data + u"/new/lamedb"_s), QByteArray("new lamedb"));
        QCOMPARE(TestSupport::readFile(data + u"/new/bouquets.tv"_s), QByteArray("old index"));
        QCOMPARE(QDir(data + u"/old"_s).entryList(QDir::Files), QStringList{u"lamedb"_s});
        QVERIFY(QFileInfo::exists(data + u"/Picons/new/a.png"_s) && QFileInfo::exists(data + u"/Picons/new/.hidden"_s));
        QVERIFY(!QFileInfo::exists(data + u"/Picons/old"_s));
        QCOMPARE(TestSupport::readFile(data + u"/Sicherungen/new/2024-03-01_08-05-09/lamedb"_s), QByteArray("backup"));
        QVERIFY(!QFileInfo::exists(data + u"/Sicherungen/old"_s));
        // Nothing to merge: no log line. Names that leave the data folder are refused.
        Store::mergeFolders(u"absent"_s, u"new"_s);
        Store::mergeFolders(u".."_s, u"new"_s);
        Store::mergeFolders(u"../outside"_s, u"new"_s);
        QVERIFY(QFileInfo::exists(data + u"/../outside/file"_s));
        QCOMPARE(watch.entries(), (QStringList{u"     Ordner     Daten von „old“ nach „new“ übernommen"_s,
                                               u"     Ordner     Daten von „Picons/old“ nach „Picons/new“ übernommen"_s,
                                               u"     Ordner     Daten von „Sicherungen/old“ nach „Sicherungen/new“ übernommen"_s}));
    }

    void label()
    {
        Store store;
        const QString home = QDir::homePath();
        QCOMPARE(store.label(Paths::dataDir() + u"/192.168.1.5"_s), u"Box-Kopie 192.168.1.5"_s);
        QCOMPARE(store.label(Paths::dataDir() + u"/Sicherungen/192.168.1.5/2024-03-01_08-05-09/"_s),
                 u"Box-Kopie 2024-03-01_08-05-09"_s);
        QCOMPARE(store.label(home + u"/Listen/Astra"_s), u"Astra – ~/Listen"_s);
        QCOMPARE(store.label(home + u"/Astra"_s), u"Astra – ~"_s);
        QCOMPARE(store.label(u"/srv/listen/../enigma/Astra"_s), u"Astra – /srv/enigma"_s);
        // Only whole folder names count as the data folder or the home folder.
        QCOMPARE(store.label(Paths::dataDir() + u"x/list"_s), u"list – "_s + Paths::dataDir() + u'x');
        QCOMPARE(store.label(home + u"x/Astra"_s), u"Astra – "_s + home + u'x');
    }
};

QTEST_GUILESS_MAIN(StoreFoldersTest)
#include "StoreFoldersTest.moc"
