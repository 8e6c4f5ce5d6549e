#include "Backups.h"
#include "BoxListing.h"
#include "BoxSync.h"
#include "Paths.h"
#include "Store.h"
#include "SyncFixture.h"
#include "TestSupport.h"
#include "TextRepair.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace SyncFixture;

// Download, upload with backup, connection test and repair, end to end against the receiver test
// double with the real curl.
class BoxSyncTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void roundTrip();
    void testConnection_data();
    void testConnection();
    void downloadFailureKeepsEverything_data();
    void downloadFailureKeepsEverything();
    void uploadSendsNothingWithoutBackup_data();
    void uploadSendsNothingWithoutBackup();
    void uploadInterrupted();
    void uploadWithRefusedReload();
    void uploadToEmptyBox();
    void hostileNames_data();
    void hostileNames();
    void hostileNameOnTheBox();
    void boxFolderName_data();
    void boxFolderName();
    void foldersMergeOncePerSession();
    void repairNeedsDamagedLines();
    void repairWhenBoxIsClean();
    void repairDamagedLamedb5();

private:
    QString workDir() const { return Paths::dataDir() + u"/127.0.0.1"_s; }
    // The double for a fault of the data rows ("drop": the connection closes after 4 kB), and the
    // settings that reach it ("wrong password", "unreachable").
    static FakeBoxOptions optionsFor(const QString &fault);
    static BoxSettings settingsWith(const FakeBox &box, const QString &fault);
    // A writable copy of a corpus folder, opened by the store: the document before a box operation.
    void openLocalCopy(Store &store, const QString &corpus);

    QTemporaryDir m_local;
};

void BoxSyncTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    if (TestSupport::corpusDir().isEmpty())
        QSKIP("the corpus of channel lists is missing");
}

void BoxSyncTest::init()
{
    QDir(Paths::dataDir()).removeRecursively();
    QDir(m_local.path()).removeRecursively();
    QDir().mkpath(m_local.path());
}

FakeBoxOptions BoxSyncTest::optionsFor(const QString &fault)
{
    FakeBoxOptions options;
    if (fault == u"drop")
        options.dropAfter = 4096;
    return options;
}

BoxSettings BoxSyncTest::settingsWith(const FakeBox &box, const QString &fault)
{
    if (fault == u"unreachable")
        return unreachableSettings();
    BoxSettings settings = settingsFor(box);
    if (fault == u"wrong password")
        settings.password = u"wrong"_s;
    return settings;
}

void BoxSyncTest::openLocalCopy(Store &store, const QString &corpus)
{
    const QString folder = m_local.path() + u"/open"_s;
    const QString source = corpusFolder(corpus);
    for (const QString &name : QDir(source).entryList(QDir::Files))
        QVERIFY(TestSupport::writeFile(folder + u'/' + name, TestSupport::readFile(source + u'/' + name)));
    store.load(folder);
}

void BoxSyncTest::roundTrip()
{
    const QString source = corpusFolder(u"horsti58-enigma2-settings/enigma2"_s);
    const QStringList names = listFileNames(source);
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    copyToBox(box, source);
    // Not part of the list: never fetched, never backed up.
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/settings"_s), "config.misc.firstrun=false\n"));
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/lamedb.bak"_s), "eDVB services /4/\n"));
    const QString satellites = corpusFolder(u"satellites-xml/oe-alliance-tuxbox-common/src/satellites.xml"_s);
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/tuxbox/satellites.xml"_s), TestSupport::readFile(satellites)));

    Session session(settingsFor(box));
    Store &store = session.store;
    BusyTrail trail(store);
    LogWatch log;

    QCoro::waitFor(session.sync.downloadFromBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QCOMPARE(store.folder(), workDir());
    QStringList downloaded = names + QStringList{u"satellites.xml"_s};
    downloaded.sort();
    QCOMPARE(entries(workDir()), downloaded);
    QVERIFY(sameFiles(source, workDir(), names));
    QVERIFY(!store.satelliteNames().isEmpty());
    Store reference;
    reference.load(source);
    QCOMPARE(store.status(), u"Von 127.0.0.1 geladen: "_s + reference.status());
    QCOMPARE(store.services().size(), reference.services().size());
    QStringList labels = trail.labels();
    QCOMPARE(labels.first(), u"Lade von der Box…"_s);
    std::optional<QStringList> fetched = progress(labels, u"Lade"_s);
    QVERIFY(fetched);
    fetched->sort();
    QCOMPARE(*fetched, names);
    QCOMPARE(labels.mid(labels.size() - 2), QStringList({u"Lade satellites.xml…"_s, u"-"_s}));
    QVERIFY(log.entries().contains(u">>>  Aufgabe    Lade von der Box – Box 127.0.0.1"_s));

    // Edits: a renamed service, moved entries, a new bouquet.
    store.setKind(MediaKind::tv);
    const Bouquet first = store.currentBouquets().first();
    QVERIFY(first.entries.size() > 3);
    store.setSelectedBouquetID(first.id);
    const BouquetEntry moved = first.entries.first();
    const std::optional<Service> service = store.service(moved);
    QVERIFY(service);
    store.renameService(service->key, u"Prüfsender Ä"_s);
    store.moveEntries({0}, 3);
    store.createBouquet(u"Neue Liste"_s);
    const QString newFile = store.selectedBouquet()->fileName;
    store.add({*store.service(moved)});
    QVERIFY(store.isDirty());

    trail.clear();
    QCoro::waitFor(session.sync.uploadToBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QVERIFY(!store.isDirty());
    labels = trail.labels();
    QCOMPARE(labels.first(), u"Sichere die Liste auf der Box…"_s);
    std::optional<QStringList> saved = progress(labels, u"Sichere"_s);
    QVERIFY(saved);
    saved->sort();
    QCOMPARE(*saved, names);
    const std::optional<QStringList> sent = progress(labels, u"Sende"_s);
    QVERIFY(sent);
    QVERIFY(labels.contains(u"Sende an die Box…"_s));
    QCOMPARE(labels.mid(labels.size() - 2), QStringList({u"Lade Bouquets auf der Box neu…"_s, u"-"_s}));
    for (const QString &name : {u"lamedb"_s, u"lamedb5"_s, u"bouquets.tv"_s, u"bouquets.radio"_s, newFile})
        QVERIFY2(sent->contains(name), qPrintable(name));
    QCOMPARE(store.status(), u"%1 Dateien gesendet, Bouquets auf der Box neu geladen."_s.arg(sent->size()));
    const QStringList logged = log.entries();
    QVERIFY(std::any_of(logged.cbegin(), logged.cend(), [&](const QString &entry) {
        return entry.startsWith(u"OK   Aufgabe    Sichere die Liste auf der Box: fertig in "_s)
            && entry.endsWith(u" – "_s + store.status());
    }));

    // The box holds what was sent, the edits included.
    QVERIFY(sameFiles(workDir(), box.path(u"/etc/enigma2"_s), *sent));
    for (const QString &database : {u"lamedb"_s, u"lamedb5"_s})
        QVERIFY(TestSupport::readFile(box.path(u"/etc/enigma2/"_s + database)).contains("Prüfsender Ä"));
    QVERIFY(TestSupport::readFile(box.path(u"/etc/enigma2/bouquets.tv"_s)).contains(newFile.toUtf8()));
    QList<QByteArray> lines = TestSupport::readFile(box.path(u"/etc/enigma2/"_s + first.fileName)).split('\n');
    lines.removeIf([](const QByteArray &line) { return !line.startsWith("#SERVICE "); });
    QCOMPARE(lines.at(2), "#SERVICE " + moved.reference.toUtf8());
    QCOMPARE(TestSupport::readFile(box.path(u"/etc/enigma2/settings"_s)), QByteArray("config.misc.firstrun=false\n"));

    // The backup holds the box's previous list byte for byte, and nothing else.
    QCOMPARE(store.backups().size(), 1);
    QCOMPARE(entries(store.backups().first()), names);
    QVERIFY(sameFiles(source, store.backups().first(), names));

    QList<FakeBoxRequest> reloads = requests(box, u"/web/servicelistreload"_s);
    QCOMPARE(reloads.size(), 1);
    QCOMPARE(reloads.first().value(u"mode"_s), u"0"_s);

    // A second document from the box shows the edits; sending bouquets only reloads with mode 2.
    Session second(settingsFor(box));
    Store &again = second.store;
    QCoro::waitFor(second.sync.downloadFromBox());
    QCOMPARE(again.errorMessage(), std::nullopt);
    QCOMPARE(again.serviceIndex().value(service->key).name, u"Prüfsender Ä"_s);
    const QList<Bouquet> tv = again.bouquets().value(MediaKind::tv);
    QVERIFY(std::any_of(tv.cbegin(), tv.cend(), [](const Bouquet &bouquet) { return bouquet.name == u"Neue Liste"; }));
    again.setSelectedBouquetID(tv.first().id);
    again.moveEntries({1}, 0);
    BusyTrail againTrail(again);
    QCoro::waitFor(second.sync.uploadToBox());
    QCOMPARE(again.errorMessage(), std::nullopt);
    const std::optional<QStringList> bouquetsOnly = progress(againTrail.labels(), u"Sende"_s);
    QVERIFY(bouquetsOnly);
    QVERIFY(!bouquetsOnly->contains(u"lamedb"_s) && !bouquetsOnly->contains(u"lamedb5"_s));
    reloads = requests(box, u"/web/servicelistreload"_s);
    QCOMPARE(reloads.size(), 2);
    QCOMPARE(reloads.last().value(u"mode"_s), u"2"_s);
    QCOMPARE(again.backups().size(), 2);
}

void BoxSyncTest::testConnection_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("error");

    QTest::newRow("both databases") << QStringList{u"lamedb"_s, u"lamedb5"_s, u"bouquets.tv"_s} << u"/etc/enigma2/"_s
                                    << u"secret"_s << u"Verbindung OK: 3 Dateien in /etc/enigma2/, lamedb gefunden."_s
                                    << QString();
    QTest::newRow("lamedb5 only, folder without slashes")
        << QStringList{u"lamedb5"_s, u"settings"_s} << u"etc/enigma2"_s << u"secret"_s
        << u"Verbindung OK: 2 Dateien in /etc/enigma2/, lamedb gefunden."_s << QString();
    QTest::newRow("no database") << QStringList{u"lamedb.bak"_s, u"bouquets.tv"_s} << u"/etc/enigma2/"_s
                                 << u"secret"_s << u"Verbindung OK: 2 Dateien in /etc/enigma2/, aber keine lamedb!"_s
                                 << QString();
    QTest::newRow("wrong password") << QStringList{u"lamedb"_s} << u"/etc/enigma2/"_s << u"wrong"_s << QString()
                                    << u"FTP-Fehler: "_s;
}

void BoxSyncTest::testConnection()
{
    QFETCH(QStringList, files);
    QFETCH(QString, directory);
    QFETCH(QString, password);
    QFETCH(QString, status);
    QFETCH(QString, error);

    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    for (const QString &file : std::as_const(files))
        QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/"_s + file), "x\n"));
    BoxSettings settings = settingsFor(box);
    settings.directory = directory;
    settings.password = password;
    Session session(settings);
    Store &store = session.store;
    BusyTrail trail(store);
    LogWatch log;
    const QString before = store.status();

    QCoro::waitFor(session.sync.testConnection());
    QCOMPARE(trail.labels(), QStringList({u"Teste Verbindung…"_s, u"-"_s}));
    QCOMPARE(log.entries().first(), u">>>  Aufgabe    Teste Verbindung – Box 127.0.0.1"_s);
    if (error.isEmpty()) {
        QCOMPARE(store.errorMessage(), std::nullopt);
        QCOMPARE(store.status(), status);
    } else {
        QVERIFY(store.errorMessage().value_or(QString()).startsWith(error));
        QCOMPARE(store.status(), before);
        QVERIFY(log.entries().last().startsWith(u"ERR  Aufgabe    Teste Verbindung: abgebrochen nach "_s));
    }
}

void BoxSyncTest::downloadFailureKeepsEverything_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("code");

    QTest::newRow("no database on the box")
        << u"no database"_s << u"Weder lamedb noch lamedb5 im Verzeichnis /etc/enigma2/ auf der Box gefunden."_s << 2;
    QTest::newRow("wrong password") << u"wrong password"_s << u"FTP-Fehler: "_s << 0;
    QTest::newRow("connection dropped") << u"drop"_s << u"FTP-Fehler: "_s << 0;
    QTest::newRow("box unreachable") << u"unreachable"_s << u"FTP-Fehler: "_s << 0;
}

void BoxSyncTest::downloadFailureKeepsEverything()
{
    QFETCH(QString, fault);
    QFETCH(QString, message);
    QFETCH(int, code);

    FakeBox box(optionsFor(fault));
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    copyToBox(box, corpusFolder(u"mtcnl-ziggo-cable"_s),
              fault == u"no database" ? QStringList{u"bouquets.tv"_s, u"userbouquet.dbe00.tv"_s} : QStringList{});

    // A work folder from an earlier download and an open document that must both survive.
    QVERIFY(TestSupport::writeFile(workDir() + u"/lamedb"_s, "earlier download\n"));
    Session session(settingsWith(box, fault));
    Store &store = session.store;
    openLocalCopy(store, u"horsti58-enigma2-settings/enigma2"_s);
    const QString folder = store.folder();
    const qsizetype services = store.services().size();

    const std::optional<Failure> failure = failureOf(session.sync.runDownload());
    QVERIFY(failure);
    QVERIFY2(failure->description.startsWith(message), qPrintable(failure->description));
    QCOMPARE(failure->code, code);
    if (code)
        QCOMPARE(failure->domain, u"Corvandel"_s);
    QCoro::waitFor(session.sync.downloadFromBox());
    // curl's own text of a refused connection carries the milliseconds it took.
    const auto withoutTimings = [](QString text) {
        return text.replace(QRegularExpression(u" after \\d+ ms"_s), u" after … ms"_s);
    };
    QVERIFY(store.errorMessage());
    QCOMPARE(withoutTimings(*store.errorMessage()), withoutTimings(failure->description));
    QCOMPARE(store.busy(), std::nullopt);

    QCOMPARE(store.folder(), folder);
    QCOMPARE(store.services().size(), services);
    QCOMPARE(entries(Paths::dataDir()), QStringList{u"127.0.0.1"_s});
    QCOMPARE(entries(workDir()), QStringList{u"lamedb"_s});
    QCOMPARE(TestSupport::readFile(workDir() + u"/lamedb"_s), QByteArray("earlier download\n"));
}

void BoxSyncTest::uploadSendsNothingWithoutBackup_data()
{
    QTest::addColumn<QString>("fault");
    QTest::newRow("box unreachable") << u"unreachable"_s;
    QTest::newRow("wrong password") << u"wrong password"_s;
    QTest::newRow("connection dropped during the backup") << u"drop"_s;
}

void BoxSyncTest::uploadSendsNothingWithoutBackup()
{
    QFETCH(QString, fault);

    FakeBox box(optionsFor(fault));
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    copyToBox(box, source);
    Session session(settingsWith(box, fault));
    Store &store = session.store;
    openLocalCopy(store, u"mtcnl-ziggo-cable"_s);
    store.renameBouquet(store.currentBouquets().first().id, u"Geändert"_s);

    const std::optional<Failure> failure = failureOf(session.sync.runUpload());
    QVERIFY(failure);
    QVERIFY2(failure->description.startsWith(u"Sicherung fehlgeschlagen, es wurde nichts gesendet: FTP-Fehler: "_s),
             qPrintable(failure->description));
    QCOMPARE(failure->domain, u"Corvandel"_s);
    QCOMPARE(failure->code, 3);
    QCoro::waitFor(session.sync.uploadToBox());
    QVERIFY(store.errorMessage().value_or(QString()).startsWith(u"Sicherung fehlgeschlagen, es wurde nichts gesendet: "_s));

    QVERIFY(store.isDirty());
    QVERIFY(store.backups().isEmpty());
    QCOMPARE(entries(session.backups.backupFolder()), QStringList());
    QVERIFY(!QFileInfo::exists(workDir()));
    QVERIFY(sameFiles(source, box.path(u"/etc/enigma2"_s), QDir(source).entryList(QDir::Files)));
    QVERIFY(requests(box, u"/web/servicelistreload"_s).isEmpty());
}

void BoxSyncTest::uploadInterrupted()
{
    QTemporaryDir root;
    FakeBoxOptions options;
    options.root = root.path();
    auto box = std::make_unique<FakeBox>(options);
    QVERIFY2(box->isRunning(), qPrintable(box->errorString()));
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    const QStringList names = listFileNames(source);
    copyToBox(*box, source);

    Session session(settingsFor(*box));
    Store &store = session.store;
    QCoro::waitFor(session.sync.downloadFromBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    store.renameService(store.services().first().key, u"Umbenannt"_s);

    // The box goes away after the first file has arrived.
    BusyTrail trail(store);
    trail.onLabel([](const QString &label) { return label.startsWith(u"Sende ") && label.contains(u" (2/"); },
                  [&box] { box.reset(); });
    QCoro::waitFor(session.sync.uploadToBox());
    QVERIFY(!box);
    QVERIFY2(store.errorMessage().value_or(QString()).startsWith(u"FTP-Fehler: "_s),
             qPrintable(store.errorMessage().value_or(QString())));
    QVERIFY(store.isDirty());

    const std::optional<QStringList> sent = progress(trail.labels(), u"Sende"_s, false);
    QVERIFY(sent && sent->size() == 2);
    const QString boxFolder = root.path() + u"/etc/enigma2"_s;
    QVERIFY(sameFiles(workDir(), boxFolder, {sent->first()}));
    QStringList untouched = names;
    untouched.removeOne(sent->first());
    QVERIFY(sameFiles(source, boxFolder, untouched));
    QCOMPARE(store.backups().size(), 1);
    QVERIFY(sameFiles(source, store.backups().first(), names));
}

void BoxSyncTest::uploadWithRefusedReload()
{
    FakeBoxOptions options;
    options.httpStatus = 401;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    copyToBox(box, corpusFolder(u"mtcnl-ziggo-cable"_s));
    Session session(settingsFor(box));
    Store &store = session.store;
    QCoro::waitFor(session.sync.downloadFromBox());
    store.renameBouquet(store.currentBouquets().first().id, u"Geändert"_s);

    BusyTrail trail(store);
    QCoro::waitFor(session.sync.uploadToBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QVERIFY(!store.isDirty());
    const std::optional<QStringList> sent = progress(trail.labels(), u"Sende"_s);
    QVERIFY(sent && !sent->isEmpty());
    QCOMPARE(store.status(), u"%1 Dateien gesendet. Neuladen per HTTP fehlgeschlagen: "
                             u"HTTP-Fehler 401 beim Neuladen der Senderliste."_s.arg(sent->size()));
    const QList<FakeBoxRequest> reloads = requests(box, u"/web/servicelistreload"_s);
    QCOMPARE(reloads.size(), 1);
    QCOMPARE(reloads.first().value(u"mode"_s), u"2"_s);
    QVERIFY(TestSupport::readFile(box.path(u"/etc/enigma2/"_s + store.currentBouquets().first().fileName))
                .startsWith("#NAME Geändert\n"));
}

void BoxSyncTest::uploadToEmptyBox()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    Session session(settingsFor(box));
    Store &store = session.store;
    openLocalCopy(store, u"mtcnl-ziggo-cable"_s);
    // An edit made while the files travel is not on the box: the list stays unsent.
    bool edited = false;
    connect(&store, &Store::busyChanged, &store, [&] {
        if (!edited && store.busy().value_or(QString()).contains(u"(2/"_s)) {
            edited = true;
            store.createBouquet(u"Unterwegs"_s);
        }
    });

    QCoro::waitFor(session.sync.uploadToBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QVERIFY(edited);
    QVERIFY(store.isDirty());
    QVERIFY(store.backups().isEmpty());
    QVERIFY(!QFileInfo::exists(session.backups.backupFolder()));
    // Saved into another folder than it came from, the list goes out complete.
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    const QStringList sent = listFileNames(box.path(u"/etc/enigma2"_s));
    QCOMPARE(sent, listFileNames(workDir()));
    QVERIFY(sameFiles(workDir(), box.path(u"/etc/enigma2"_s), sent));
    QVERIFY(sameFiles(source, box.path(u"/etc/enigma2"_s), {u"lamedb"_s}));
    QCOMPARE(requests(box, u"/web/servicelistreload"_s).first().value(u"mode"_s), u"0"_s);
}

void BoxSyncTest::hostileNames_data()
{
    QTest::addColumn<QStringList>("listing");
    QTest::addColumn<QStringList>("kept");

    QTest::newRow("list files in listing order")
        << QStringList{u"lamedb5"_s, u"settings"_s, u"bouquets.tv"_s, u"userbouquet.favourites.tv"_s, u"lamedb.bak"_s,
                       u"bouquets.radio"_s, u"lamedb"_s, u"userbouquet.dbe00.radio"_s, u"Lamedb"_s, u"bouquets.tv.del"_s}
        << QStringList{u"lamedb5"_s, u"bouquets.tv"_s, u"userbouquet.favourites.tv"_s, u"bouquets.radio"_s,
                       u"lamedb"_s, u"userbouquet.dbe00.radio"_s};
    QTest::newRow("names that leave the folder")
        << QStringList{u"userbouquet.../../../.bashrc"_s, u"userbouquet.x/../../y.tv"_s, u"/etc/enigma2/lamedb"_s,
                       u"userbouquet.a\\..\\..\\b.tv"_s, u"userbouquet..tv"_s, u"userbouquet.a\\b.tv"_s,
                       u"userbouquet.ok.tv"_s}
        << QStringList{u"userbouquet.ok.tv"_s};
    QTest::newRow("empty and dot names") << QStringList{QString(), u"."_s, u".."_s, u"userbouquet.\0.tv"_s}
                                         << QStringList();
}

void BoxSyncTest::hostileNames()
{
    QFETCH(QStringList, listing);
    QFETCH(QStringList, kept);
    QCOMPARE(BoxListing::listFiles(listing), kept);
}

void BoxSyncTest::hostileNameOnTheBox()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    copyToBox(box, source);
    // A name that a Windows-minded reader would take for a path two folders up.
    const QString hostile = u"userbouquet.x\\..\\..\\escape.tv"_s;
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/"_s + hostile), "#NAME escape\n"));
    Session session(settingsFor(box));
    Store &store = session.store;

    QCoro::waitFor(session.sync.downloadFromBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QCoro::waitFor(session.backups.backupNow());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QCOMPARE(entries(workDir()), listFileNames(source));
    QCOMPARE(store.backups().size(), 1);
    QCOMPARE(entries(store.backups().first()), listFileNames(source));
    QDirIterator all(TestSupport::isolateUserFolders(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext())
        QVERIFY2(!all.next().contains(u"escape"_s), qPrintable(all.filePath()));
}

void BoxSyncTest::boxFolderName_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("resolved");

    QTest::newRow("address") << u"127.0.0.1"_s << u"127.0.0.1"_s << true;
    QTest::newRow("name that resolves, with blanks") << u" localhost "_s << u"127.0.0.1"_s << true;
    QTest::newRow("name that does not resolve") << u"no-such-box.invalid"_s << u"no-such-box.invalid"_s << false;
    QTest::newRow("slashes") << u"a/b.invalid"_s << u"a_b.invalid"_s << false;
    QTest::newRow("dot dot") << u".."_s << u"__"_s << false;
    QTest::newRow("empty") << QString() << u"box"_s << false;
    QTest::newRow("blanks") << u"   "_s << u"box"_s << false;
}

void BoxSyncTest::boxFolderName()
{
    QFETCH(QString, host);
    QFETCH(QString, name);
    QFETCH(bool, resolved);

    Store store;
    BoxSettings settings;
    settings.host = host;
    store.setSettings(settings);
    QCOMPARE(store.boxFolderName(), name);
    QCOMPARE(store.workDir(), Paths::dataDir() + u'/' + name);
    QCOMPARE(store.resolvedHosts().contains(host.trimmed()), resolved);
    Backups backups(store);
    QCOMPARE(backups.backupFolder(), Paths::dataDir() + u"/Sicherungen/"_s + name);
}

void BoxSyncTest::foldersMergeOncePerSession()
{
    const QString data = Paths::dataDir();
    QVERIFY(TestSupport::writeFile(data + u"/localhost/lamedb"_s, "under the name\n"));
    QVERIFY(TestSupport::writeFile(data + u"/localhost/userbouquet.only.tv"_s, "#NAME only\n"));
    QVERIFY(TestSupport::writeFile(data + u"/127.0.0.1/lamedb"_s, "under the address\n"));
    QVERIFY(TestSupport::writeFile(data + u"/Picons/localhost/1_0_1_1_1_1_0_0_0_0.png"_s, "png"));
    QVERIFY(TestSupport::writeFile(data + u"/Sicherungen/localhost/2024-01-02_03-04-05/lamedb"_s, "backup\n"));

    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    copyToBox(box, corpusFolder(u"mtcnl-ziggo-cable"_s));
    BoxSettings settings = settingsFor(box);
    settings.host = u"localhost"_s;
    LogWatch log;
    Session session(settings);
    Store &store = session.store;

    // Listed at once: the backup made under the name now belongs to the address.
    QCOMPARE(store.backups(), QStringList{data + u"/Sicherungen/127.0.0.1/2024-01-02_03-04-05"_s});
    QCOMPARE(TestSupport::readFile(data + u"/127.0.0.1/lamedb"_s), QByteArray("under the address\n"));
    QCOMPARE(TestSupport::readFile(data + u"/localhost/lamedb"_s), QByteArray("under the name\n"));
    QVERIFY(QFileInfo::exists(data + u"/127.0.0.1/userbouquet.only.tv"_s));
    QVERIFY(QFileInfo::exists(data + u"/Picons/127.0.0.1/1_0_1_1_1_1_0_0_0_0.png"_s));
    QVERIFY(!QFileInfo::exists(data + u"/Picons/localhost"_s));
    QVERIFY(!QFileInfo::exists(data + u"/Sicherungen/localhost"_s));
    const QStringList merged = log.entries().filter(u"Ordner"_s);
    QCOMPARE(merged, QStringList({u"     Ordner     Daten von „localhost“ nach „127.0.0.1“ übernommen"_s,
                                  u"     Ordner     Daten von „Picons/localhost“ nach „Picons/127.0.0.1“ übernommen"_s,
                                  u"     Ordner     Daten von „Sicherungen/localhost“ nach „Sicherungen/127.0.0.1“ übernommen"_s}));

    // Later in the session the name is known: no second merge, the download lands under the address.
    QVERIFY(TestSupport::writeFile(data + u"/Picons/localhost/later.png"_s, "png"));
    QCoro::waitFor(session.sync.downloadFromBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QCOMPARE(store.folder(), data + u"/127.0.0.1"_s);
    QVERIFY(QFileInfo::exists(data + u"/Picons/localhost/later.png"_s));
    QCOMPARE(log.entries().filter(u"Ordner"_s), merged);
}

void BoxSyncTest::repairNeedsDamagedLines()
{
    Session session(BoxSettings{});
    Store &store = session.store;
    const QString before = store.status();
    session.sync.prepareLamedbRepair();
    QCOMPARE(store.status(), before);

    openLocalCopy(store, u"mtcnl-ziggo-cable"_s);
    session.sync.prepareLamedbRepair();
    QCOMPARE(store.lamedbRepairCount(), std::nullopt);
    QCOMPARE(store.status(), u"In der lamedb gibt es keine falsch kodierten Zeichen."_s);

    // Without a box address the repair ends before anything happens, and no download follows.
    const QString folder = store.folder();
    BusyTrail trail(store);
    QCoro::waitFor(session.sync.repairLamedbOnBox());
    QCOMPARE(store.errorMessage(),
             std::optional<QString>(u"Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen."_s));
    QCOMPARE(trail.labels(), QStringList({u"Repariere Zeichen in der lamedb…"_s, u"-"_s}));
    QCOMPARE(store.folder(), folder);
}

void BoxSyncTest::repairWhenBoxIsClean()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString clean = corpusFolder(u"horsti58-enigma2-settings/enigma2"_s);
    copyToBox(box, clean);
    Session session(settingsFor(box));
    Store &store = session.store;
    openLocalCopy(store, u"djgueto-listadecanales"_s);
    const QString folder = store.folder();

    session.sync.prepareLamedbRepair();
    QVERIFY(store.lamedbRepairCount().value_or(0) > 0);
    BusyTrail trail(store);
    QCoro::waitFor(session.sync.repairLamedbOnBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QCOMPARE(store.lamedbRepairCount(), std::nullopt);
    QCOMPARE(store.status(), u"Nichts zu reparieren."_s);
    QCOMPARE(store.backups().size(), 1);
    QVERIFY(sameFiles(clean, store.backups().first(), listFileNames(clean)));
    QVERIFY(sameFiles(clean, box.path(u"/etc/enigma2"_s), QDir(clean).entryList(QDir::Files)));
    QVERIFY(requests(box, u"/web/servicelistreload"_s).isEmpty());
    // No download follows when nothing changed on the box.
    QCOMPARE(store.folder(), folder);
    QVERIFY(trail.labels().contains(u"Repariere lamedb…"_s));
    QVERIFY(trail.labels().contains(u"Repariere lamedb5…"_s));
    QVERIFY(!trail.labels().contains(u"Lade von der Box…"_s));
}

void BoxSyncTest::repairDamagedLamedb5()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString damaged = corpusFolder(u"djgueto-listadecanales"_s);
    QStringList names = listFileNames(damaged);
    names.removeOne(u"lamedb"_s);
    copyToBox(box, damaged, names);
    // A file that is not even valid UTF-8 is repaired as well.
    QByteArray lamedb5 = TestSupport::readFile(damaged + u"/lamedb5"_s);
    lamedb5.replace("# Transponders:", "# Transponders\xff:");
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/lamedb5"_s), lamedb5));

    Session session(settingsFor(box));
    Store &store = session.store;
    QCoro::waitFor(session.sync.downloadFromBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    session.sync.prepareLamedbRepair();
    const int count = store.lamedbRepairCount().value_or(0);
    QVERIFY(count > 0);

    LogWatch log;
    BusyTrail trail(store);
    QCoro::waitFor(session.sync.repairLamedbOnBox());
    QCOMPARE(store.errorMessage(), std::nullopt);
    const QStringList repairLabels{u"Repariere Zeichen in der lamedb…"_s, u"Repariere lamedb5…"_s,
                                   u"Lade die Senderliste auf der Box neu…"_s, u"-"_s};
    QCOMPARE(trail.labels().mid(0, 1), repairLabels.mid(0, 1));
    QVERIFY(trail.labels().join(u'|').contains(repairLabels.mid(1).join(u'|')));
    QVERIFY(!trail.labels().contains(u"Repariere lamedb…"_s));
    QCOMPARE(trail.labels().at(trail.labels().indexOf(u"-"_s) + 1), u"Lade von der Box…"_s);

    // Fixed on the box, line for line, and reloaded there.
    const QByteArray repaired = TestSupport::readFile(box.path(u"/etc/enigma2/lamedb5"_s));
    QCOMPARE(TextRepair::fixFile(repaired).fixedLines, 0);
    QCOMPARE(repaired.count('\n'), lamedb5.count('\n'));
    QVERIFY(repaired.contains("°E"));
    QVERIFY(!QFileInfo::exists(box.path(u"/etc/enigma2/lamedb"_s)));
    const QList<FakeBoxRequest> reloads = requests(box, u"/web/servicelistreload"_s);
    QCOMPARE(reloads.size(), 1);
    QCOMPARE(reloads.first().value(u"mode"_s), u"0"_s);
    const QStringList entries = log.entries();
    QVERIFY(entries.contains(u"     Reparatur  lamedb5: %1 Zeilen korrigiert"_s.arg(count)));
    QVERIFY(std::any_of(entries.cbegin(), entries.cend(), [&](const QString &entry) {
        return entry.startsWith(u"OK   Aufgabe    Repariere Zeichen in der lamedb: fertig in "_s)
            && entry.endsWith(u" – %1 Zeilen in der lamedb repariert und auf der Box neu geladen (vorher gesichert)."_s
                                  .arg(count));
    }));

    // The backup holds the damaged file; the document was downloaded again and is clean.
    QCOMPARE(store.backups().size(), 1);
    QCOMPARE(TestSupport::readFile(store.backups().first() + u"/lamedb5"_s), lamedb5);
    QVERIFY(store.status().startsWith(u"Von 127.0.0.1 geladen: "_s));
    QCOMPARE(TestSupport::readFile(workDir() + u"/lamedb5"_s), repaired);
    session.sync.prepareLamedbRepair();
    QCOMPARE(store.status(), u"In der lamedb gibt es keine falsch kodierten Zeichen."_s);
}

QTEST_GUILESS_MAIN(BoxSyncTest)
#include "BoxSyncTest.moc"
