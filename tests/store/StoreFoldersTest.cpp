#include "BoxLog.h"
#include "Error.h"
#include "ListFixture.h"
#include "Paths.h"
#include "Store.h"
#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
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
                lines << u"  "_s + entry.reference + u" | "_s + entry.description.value_or(u"<none>"_s);
        }
    }
    return lines;
}

QStringList bouquetNames(const Store &store)
{
    QStringList names;
    for (const Bouquet &bouquet : store.currentBouquets())
        names << bouquet.name;
    return names;
}

QStringList logLines()
{
    BoxLog::shared().flush();
    return read(BoxLog::shared().filePath()).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

// Opening and saving list folders, the recent folders and the reopening at start, on real files.
class StoreFoldersTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void bothDatabases_data();
    void bothDatabases();
    void onlyLamedb();
    void missingAndHostileBouquetFiles();
    void loadFailuresChangeNothing_data();
    void loadFailuresChangeNothing();
    void saveIntoTheSameFolderAndElsewhere();
    void saveAsLeavesFolderAndDirtyFlag();
    void recentFolders();
    void restoreLastList_data();
    void restoreLastList();
    void corpusRoundTrip_data();
    void corpusRoundTrip();
    void failedSaves_data();
    void failedSaves();

private:
    QTemporaryDir m_dir;
    QString m_list;
};

void StoreFoldersTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

void StoreFoldersTest::init()
{
    QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
    m_list = m_dir.path() + u'/' + QString::fromLatin1(QTest::currentTestFunction()) + u'/' +
             QString::fromLatin1(QTest::currentDataTag()).replace(u' ', u'_') + u"/list"_s;
    ListFixture::write(m_list);
}

void StoreFoldersTest::bothDatabases_data()
{
    QTest::addColumn<QByteArray>("lamedb");
    QTest::addColumn<QString>("note");
    const QList<ListFixture::FixtureService> services = ListFixture::services();
    QTest::newRow("same services") << ListFixture::lamedb4(services) << QString();
    QTest::newRow("one service fewer")
        << ListFixture::lamedb4(services.mid(1))
        << u" Hinweis: lamedb und lamedb5 enthalten unterschiedliche Sender."_s;
    QList<ListFixture::FixtureService> renamed = services;
    renamed[0].name = u"Anders benannt"_s;
    QTest::newRow("same keys, other names") << ListFixture::lamedb4(renamed) << QString();
    QTest::newRow("unreadable lamedb") << QByteArray("eDVB services /9/\n") << QString();
}

void StoreFoldersTest::bothDatabases()
{
    QFETCH(QByteArray, lamedb);
    QFETCH(QString, note);
    TestSupport::writeFile(m_list + u"/lamedb"_s, lamedb);
    const qsizetype logged = logLines().size();
    Store store;
    store.load(m_list);

    QCOMPARE(store.status(), u"9 Sender (lamedb5), 2 TV- und 1 Radio-Bouquets geladen."_s + note);
    QCOMPARE(store.lamedbTexts().keys(), (QStringList{u"lamedb"_s, u"lamedb5"_s}));
    QCOMPARE(store.lamedbTexts().value(u"lamedb"_s), lamedb);
    QCOMPARE(store.baseServices().first().name, u"Das Erste HD"_s);
    QCOMPARE(store.serviceIndex().value(key(0x86)).position, u"13.0E"_s);
    QCOMPARE(store.satelliteNames().value(u"19.2E"_s), u"Astra 1KR/1L/1M/1N (19.2E)"_s);
    QCOMPARE(store.satelliteNames().size(), 2);
    QCOMPARE(store.folder(), QDir::cleanPath(m_list));
    QVERIFY(!store.isDirty());
    QCOMPARE(store.selectedBouquetID(), store.currentBouquets().first().id);

    const QStringList added = logLines().mid(logged);
    if (note.isEmpty()) {
        QVERIFY(added.filter(u"unterscheiden sich"_s).isEmpty());
    } else {
        QCOMPARE(added.size(), 1);
        QVERIFY2(added.first().endsWith(u"  Ordner     lamedb (8) und lamedb5 (9) unterscheiden sich"_s),
                 qPrintable(added.first()));
    }
}

void StoreFoldersTest::onlyLamedb()
{
    const QByteArray lamedb = ListFixture::lamedb4(ListFixture::services());
    QFile::remove(m_list + u"/lamedb5"_s);
    TestSupport::writeFile(m_list + u"/lamedb"_s, lamedb);
    // Folders named like a database are not one.
    QDir().mkpath(m_list + u"/lamedb5"_s);
    Store store;
    store.setKind(MediaKind::radio);
    store.load(m_list);
    QCOMPARE(store.status(), u"9 Sender (lamedb), 2 TV- und 1 Radio-Bouquets geladen."_s);
    QCOMPARE(store.lamedbTexts().keys(), QStringList{u"lamedb"_s});
    QCOMPARE(store.serviceIndex().value(key(0x83)).position, u"19.2E"_s);
    // Loading keeps the kind and selects its first bouquet.
    QCOMPARE(store.kind(), MediaKind(MediaKind::radio));
    QCOMPARE(bouquetNames(store), QStringList{u"Radio"_s});
    QCOMPARE(store.selectedBouquetID(), store.currentBouquets().first().id);

    const QString elsewhere = m_dir.path() + u"/onlyLamedb-copy"_s;
    const QStringList written = store.save(elsewhere);
    QCOMPARE(written.last(), u"lamedb"_s);
    QVERIFY(!written.contains(u"lamedb5"_s));
    QCOMPARE(TestSupport::readFile(elsewhere + u"/lamedb"_s), lamedb);
    QVERIFY(!QFileInfo::exists(elsewhere + u"/lamedb5"_s));
}

void StoreFoldersTest::missingAndHostileBouquetFiles()
{
    TestSupport::writeFile(
        m_list + u"/bouquets.tv"_s,
        "#NAME User - Bouquets (TV)\n"
        "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.gone.tv\" ORDER BY bouquet\n"
        "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"../outside.tv\" ORDER BY bouquet\n"
        "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"sub/inner.tv\" ORDER BY bouquet\n"
        "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.favourites.tv\" ORDER BY bouquet\n"
        "#DESCRIPTION FROM BOUQUET \"userbouquet.radio.radio\"\n"
        "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.sport.tv\" ORDER BY bouquet ex\"tra\n"
        "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"userbouquet.unterminated.tv\n"
        "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"\" ORDER BY bouquet\n");
    const QByteArray outside = "#NAME Draußen\n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n";
    TestSupport::writeFile(QFileInfo(m_list).path() + u"/outside.tv"_s, outside);
    TestSupport::writeFile(m_list + u"/sub/inner.tv"_s, outside);
    Store store;
    store.load(m_list);
    QCOMPARE(bouquetNames(store), (QStringList{u"Favoriten"_s, u"Sport"_s}));
    QCOMPARE(store.status(), u"9 Sender (lamedb5), 2 TV- und 1 Radio-Bouquets geladen. Fehlende Dateien: "
                             u"userbouquet.gone.tv, ../outside.tv, sub/inner.tv, "_s);

    // Nothing is written under those names, neither here nor in another folder.
    store.createBouquet(u"Neu"_s);
    const QString copy = m_list + u"/copy"_s;
    for (const QString &target : {m_list, copy}) {
        const QStringList written = store.save(target);
        QCOMPARE(written,
                 (QStringList{u"bouquets.tv"_s, u"userbouquet.favourites.tv"_s, u"userbouquet.sport.tv"_s,
                              u"userbouquet.neu.tv"_s, u"bouquets.radio"_s, u"userbouquet.radio.radio"_s} +
                  (target == copy ? QStringList{u"lamedb5"_s} : QStringList())));
    }
    QCOMPARE(TestSupport::readFile(QFileInfo(m_list).path() + u"/outside.tv"_s), outside);
    QCOMPARE(TestSupport::readFile(m_list + u"/sub/inner.tv"_s), outside);
    QVERIFY(!QFileInfo::exists(m_list + u"/outside.tv"_s));
    QVERIFY(!QFileInfo::exists(copy + u"/sub"_s));
}

void StoreFoldersTest::loadFailuresChangeNothing_data()
{
    QTest::addColumn<QString>("breakage");
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("code");
    QTest::newRow("no database") << u"remove"_s << u"Im Ordner liegt weder lamedb noch lamedb5."_s << 1;
    QTest::newRow("unknown header") << u"header"_s << u"Unbekanntes lamedb-Format."_s << 0;
    QTest::newRow("byte order mark") << u"bom"_s << u"Unbekanntes lamedb-Format."_s << 0;
    QTest::newRow("no folder") << u"folder"_s << u"Im Ordner liegt weder lamedb noch lamedb5."_s << 1;
}

void StoreFoldersTest::loadFailuresChangeNothing()
{
    QFETCH(QString, breakage);
    QFETCH(QString, description);
    QFETCH(int, code);
    Store store;
    store.load(m_list);
    store.addMarker(u"ungespeichert"_s);
    const Snapshot before = store.snapshot();
    const QString status = store.status();
    const QList<Service> services = store.services();

    const QString broken = m_dir.path() + u"/broken-"_s + breakage;
    if (breakage == u"remove") {
        ListFixture::write(broken);
        QFile::remove(broken + u"/lamedb5"_s);
    } else if (breakage == u"header") {
        ListFixture::write(broken);
        TestSupport::writeFile(broken + u"/lamedb5"_s, "eDVB services /6/\n");
    } else if (breakage == u"bom") {
        ListFixture::write(broken);
        TestSupport::writeFile(broken + u"/lamedb5"_s,
                               "\xEF\xBB\xBF" + ListFixture::lamedb5(ListFixture::services()));
    }
    try {
        store.load(broken);
        QFAIL("loaded a broken folder");
    } catch (const Error &error) {
        QCOMPARE(error.description(), description);
        QCOMPARE(error.code(), code);
        if (code == 1) QCOMPARE(error.domain(), u"Corvandel"_s);
    }
    QCOMPARE(store.snapshot(), before);
    QCOMPARE(store.services(), services);
    QCOMPARE(store.status(), status);
    QCOMPARE(store.folder(), QDir::cleanPath(m_list));
    QVERIFY(store.isDirty());
    QVERIFY(store.canUndo());

    QVERIFY(!store.open(broken));
    QCOMPARE(store.errorMessage(),
             u"„%1“ konnte nicht geladen werden: %2"_s.arg(store.label(broken), description));
    QCOMPARE(store.recentFolders(), QStringList{QDir::cleanPath(m_list)});
}

void StoreFoldersTest::saveIntoTheSameFolderAndElsewhere()
{
    TestSupport::writeFile(m_list + u"/lamedb"_s, ListFixture::lamedb4(ListFixture::services()));
    Store store;
    store.load(m_list);
    // Changed on disk after loading: a save into this folder must leave the databases alone.
    const QByteArray onDisk = ListFixture::lamedb5(ListFixture::services()) + "# changed on disk\n";
    TestSupport::writeFile(m_list + u"/lamedb5"_s, onDisk);

    const QStringList bouquetFiles{u"bouquets.tv"_s, u"userbouquet.favourites.tv"_s,
                                   u"userbouquet.sport.tv"_s, u"bouquets.radio"_s,
                                   u"userbouquet.radio.radio"_s};
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

    // Elsewhere the databases come along, as loaded, "lamedb" before "lamedb5".
    const QString elsewhere = m_dir.path() + u"/elsewhere/deeper"_s;
    QCOMPARE(store.save(elsewhere), (bouquetFiles + QStringList{u"lamedb"_s, u"lamedb5"_s}));
    QCOMPARE(TestSupport::readFile(elsewhere + u"/lamedb5"_s), ListFixture::lamedb5(ListFixture::services()));

    // A pending service edit is applied to both databases, in their own formats, here too.
    store.renameService(key(0x85), u"ARTE"_s);
    store.deleteServices({key(0x88)});
    QCOMPARE(store.save(m_list), (bouquetFiles + QStringList{u"lamedb"_s, u"lamedb5"_s}));
    QList<ListFixture::FixtureService> expected = ListFixture::services();
    expected[2].name = u"ARTE"_s;
    expected.removeAt(5);
    QCOMPARE(read(m_list + u"/lamedb5"_s), QString::fromUtf8(ListFixture::lamedb5(expected)));
    QCOMPARE(read(m_list + u"/lamedb"_s), QString::fromUtf8(ListFixture::lamedb4(expected)));
    // Saving keeps the history and the edits.
    QVERIFY(store.canUndo());
    QCOMPARE(store.serviceEdits().size(), 2);
}

void StoreFoldersTest::saveAsLeavesFolderAndDirtyFlag()
{
    Store store;
    store.load(m_list);
    store.renameBouquet(store.currentBouquets().first().id, u"Umbenannt"_s);
    const QString other = m_dir.path() + u"/saveAs"_s;
    store.save(other);
    QCOMPARE(store.folder(), QDir::cleanPath(m_list));
    QVERIFY(store.isDirty());
    QCOMPARE(store.recentFolders(), QStringList{QDir::cleanPath(m_list)});
    QVERIFY(read(other + u"/userbouquet.favourites.tv"_s).startsWith(u"#NAME Umbenannt\n"_s));
    QVERIFY(read(m_list + u"/userbouquet.favourites.tv"_s).startsWith(u"#NAME Favoriten\n"_s));

    QCoro::waitFor(store.saveToCurrentFolder());
    QVERIFY(!store.isDirty());
    QVERIFY(!store.busy());
    QVERIFY(!store.errorMessage());
    QCOMPARE(store.status(), u"Gespeichert in %1."_s.arg(QDir::cleanPath(m_list)));
    QVERIFY(read(m_list + u"/userbouquet.favourites.tv"_s).startsWith(u"#NAME Umbenannt\n"_s));
    QVERIFY(store.canUndo());
}

void StoreFoldersTest::recentFolders()
{
    QStringList folders;
    for (int i = 1; i <= 6; ++i) {
        folders << m_dir.path() + u"/recent/"_s + QString::number(i);
        TestSupport::writeFile(folders.last() + u"/lamedb5"_s, ListFixture::lamedb5(ListFixture::services()));
    }
    Store store;
    QVERIFY(store.recentFolders().isEmpty());
    for (int i = 0; i < 5; ++i)
        QVERIFY(store.open(folders.at(i) + u'/'));
    QVERIFY(store.open(folders.at(1)));
    QCOMPARE(store.recentFolders(),
             (QStringList{folders[1], folders[4], folders[3], folders[2], folders[0]}));
    QVERIFY(store.open(folders.at(5)));
    const QStringList expected{folders[5], folders[1], folders[4], folders[3], folders[2]};
    QCOMPARE(store.recentFolders(), expected);
    QCOMPARE(QSettings(u"Corvandel"_s, u"Corvandel"_s).value(u"recentFolders"_s).toStringList(), expected);
    // A new store starts with the stored list.
    QCOMPARE(Store().recentFolders(), expected);
}

void StoreFoldersTest::restoreLastList_data()
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

void StoreFoldersTest::restoreLastList()
{
    QFETCH(QVariant, autoLoadLast);
    QFETCH(bool, recentHasList);
    QFETCH(QString, host);
    QFETCH(QString, expected);
    QSettings preferences(u"Corvandel"_s, u"Corvandel"_s);
    if (autoLoadLast.isValid()) preferences.setValue(u"autoLoadLast"_s, autoLoadLast);
    preferences.setValue(u"recentFolders"_s, QStringList{m_list});
    preferences.sync();
    if (!recentHasList) QFile::remove(m_list + u"/lamedb5"_s);
    const QString boxCopy = Paths::dataDir() + u"/127.0.0.1"_s;
    ListFixture::write(boxCopy);
    QFile::remove(boxCopy + u"/userbouquet.sport.tv"_s);

    Store store;
    BoxSettings settings = store.settings();
    settings.host = host;
    store.setSettings(settings);
    store.restoreLastList();
    if (expected.isEmpty()) {
        QVERIFY(store.services().isEmpty());
        QCOMPARE(store.status(), u"Keine Senderliste geladen."_s);
        QVERIFY(!store.errorMessage());
        return;
    }
    QVERIFY(!store.errorMessage());
    const QString loaded = expected == u"recent" ? QDir::cleanPath(m_list) : QDir::cleanPath(boxCopy);
    QCOMPARE(store.folder(), loaded);
    if (expected == u"recent") {
        QCOMPARE(store.status(),
                 u"Zuletzt verwendete Liste geladen (list – %1). "
                 u"9 Sender (lamedb5), 2 TV- und 1 Radio-Bouquets geladen."_s.arg(QFileInfo(m_list).path()));
    } else {
        QCOMPARE(store.status(), u"Zuletzt verwendete Liste geladen (Box-Kopie 127.0.0.1). "
                                 u"9 Sender (lamedb5), 1 TV- und 1 Radio-Bouquets geladen. "
                                 u"Fehlende Dateien: userbouquet.sport.tv"_s);
    }
    // Once a list is loaded, restoring does nothing more.
    store.addMarker(u"x"_s);
    store.restoreLastList();
    QVERIFY(store.isDirty());
}

void StoreFoldersTest::corpusRoundTrip_data()
{
    QTest::addColumn<QString>("folder");
    const QStringList folders = TestSupport::corpusListFolders();
    if (folders.isEmpty()) QSKIP("the corpus of real channel lists is not there");
    for (const QString &folder : folders)
        QTest::newRow(qPrintable(QDir(TestSupport::corpusDir()).relativeFilePath(folder))) << folder;
}

void StoreFoldersTest::corpusRoundTrip()
{
    QFETCH(QString, folder);
    Store first;
    const bool hasDatabase =
        QFileInfo::exists(folder + u"/lamedb"_s) || QFileInfo::exists(folder + u"/lamedb5"_s);
    if (!hasDatabase) {
        QVERIFY(!first.open(folder));
        QVERIFY(first.errorMessage()->endsWith(u"Im Ordner liegt weder lamedb noch lamedb5."_s));
        return;
    }
    first.load(folder);
    QVERIFY(!first.baseServices().isEmpty());

    QTemporaryDir out;
    const QStringList written = first.save(out.path());
    QVERIFY(written.contains(u"bouquets.tv"_s));
    Store second;
    second.load(out.path());
    QCOMPARE(second.baseServices(), first.baseServices());
    QCOMPARE(describe(second.bouquets()), describe(first.bouquets()));
    QCOMPARE(second.lamedbTexts(), first.lamedbTexts());
    QVERIFY(!second.status().contains(u"Fehlende Dateien"_s));

    // An edit of each kind, saved into the folder and read back.
    const Service renamed = second.baseServices().first();
    second.renameService(renamed.key, u"Umbenannt im Test"_s);
    if (second.currentBouquets().isEmpty()) second.createBouquet(u"Neu im Test"_s);
    second.renameBouquet(second.selectedBouquetID(), u"Bouquet im Test"_s);
    second.addMarker(u"Marker im Test"_s);
    QCoro::waitFor(second.saveToCurrentFolder());
    QVERIFY2(!second.errorMessage(), qPrintable(second.errorMessage().value_or(QString())));

    Store third;
    third.load(out.path());
    for (const Service &service : third.baseServices()) {
        if (service.key == renamed.key) QCOMPARE(service.name, u"Umbenannt im Test"_s);
    }
    QCOMPARE(third.baseServices().size(), first.baseServices().size());
    const Bouquet shown = third.currentBouquets().first();
    QCOMPARE(shown.name, u"Bouquet im Test"_s);
    QCOMPARE(shown.entries.last().description, std::optional<QString>(u"Marker im Test"_s));
    QVERIFY(shown.entries.last().isMarker());
}

void StoreFoldersTest::failedSaves_data()
{
    QTest::addColumn<QString>("fault");
    QTest::newRow("a folder where a bouquet file goes") << u"folder"_s;
    QTest::newRow("a file where the folder goes") << u"file"_s;
    QTest::newRow("disk full") << u"full"_s;
}

void StoreFoldersTest::failedSaves()
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
        const QString blocker = m_dir.path() + u"/failedSaves/blocker"_s;
        TestSupport::writeFile(blocker, "not a folder");
        try {
            store.save(blocker + u"/list"_s);
            QFAIL("saved below a file");
        } catch (const Error &error) {
            QVERIFY(error.description().startsWith(u"Der Ordner „"_s));
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

    QVERIFY(store.errorMessage());
    const QString prefix = u"„userbouquet.sport.tv“ konnte nicht gespeichert werden: "_s;
    QVERIFY2(store.errorMessage()->startsWith(prefix), qPrintable(*store.errorMessage()));
    QVERIFY(store.errorMessage()->size() > prefix.size());
    QVERIFY(store.isDirty());
    QVERIFY(!store.busy());
    // Written before the failure: the index and the renamed bouquet.
    QVERIFY(read(m_list + u"/userbouquet.favourites.tv"_s).startsWith(u"#NAME Neu benannt\n"_s));
    QCOMPARE(TestSupport::readFile(m_list + u"/userbouquet.radio.radio"_s), radio);
    if (fault == u"full") QCOMPARE(TestSupport::readFile(m_list + u"/userbouquet.sport.tv"_s), sport);
    // No temporary files are left behind.
    const QStringList names = QDir(m_list).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    QCOMPARE(names, (QStringList{u"bouquets.radio"_s, u"bouquets.tv"_s, u"lamedb5"_s, u"satellites.xml"_s,
                                 u"userbouquet.favourites.tv"_s, u"userbouquet.radio.radio"_s,
                                 u"userbouquet.sport.tv"_s}));
}

QTEST_GUILESS_MAIN(StoreFoldersTest)
#include "StoreFoldersTest.moc"
