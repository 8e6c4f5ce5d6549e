#include "Backups.h"
#include "BoxListing.h"
#include "BoxLog.h"
#include "BoxSync.h"
#include "Error.h"
#include "FakeBox.h"
#include "Paths.h"
#include "PiconArchives.h"
#include "PiconPackage.h"
#include "PiconUploadPlan.h"
#include "Picons.h"
#include "Store.h"
#include "TestSupport.h"
#include "TextRepair.h"
#include "Utf8.h"
#include "Zapper.h"

#include <QDesktopServices>
#include <QDirIterator>
#include <QImage>
#include <QLocale>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace PiconArchives;

Q_DECLARE_METATYPE(PiconArchives::Format)

namespace {

// A store with its backups and box operations, pointed at a box.
struct Session
{
    explicit Session(const BoxSettings &settings) { store.setSettings(settings); }
    Store store;
    Backups backups{store};
    BoxSync sync{store, backups};
};

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

QStringList entries(const QString &folder)
{
    return sorted(
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot));
}

// Copies the named files (all when empty) of a folder into another.
void copyFiles(const QString &from, const QString &to, const QStringList &names = {})
{
    for (const QString &name : names.isEmpty() ? QDir(from).entryList(QDir::Files) : names)
        TestSupport::writeFile(to + u'/' + name, TestSupport::readFile(from + u'/' + name));
}

bool sameFiles(const QString &folder, const QString &other, const QStringList &names)
{
    return std::all_of(names.cbegin(), names.cend(), [&](const QString &name) {
        const QString path = folder + u'/' + name;
        return QFileInfo::exists(path) &&
               TestSupport::readFile(path) == TestSupport::readFile(other + u'/' + name);
    });
}

QStringList queried(const FakeBox &box, const QString &path, const QString &key)
{
    QStringList values;
    for (const FakeBoxRequest &request : box.journal()) {
        if (request.path == path) values << request.value(key);
    }
    return values;
}

// The description of the Error a task threw, or a null string when it succeeded.
QString failureOf(QCoro::Task<> task, std::pair<QString, int> *origin = nullptr)
{
    return QCoro::waitFor([](QCoro::Task<> awaited, std::pair<QString, int> *origin) -> QCoro::Task<QString> {
        try {
            co_await std::move(awaited);
        } catch (const Error &error) {
            if (origin) *origin = {error.domain(), error.code()};
            co_return error.description();
        }
        co_return QString();
    }(std::move(task), origin));
}

// Every busy label the store showed while this lived, in order, "-" for none. Runs an action once,
// the first time a label passes a test.
class Trail : public QObject
{
public:
    explicit Trail(Store &store, std::function<bool(const QString &)> test = {},
                   std::function<void()> action = {})
        : m_test(std::move(test))
        , m_action(std::move(action))
    {
        connect(&store, &Store::busyChanged, this, [this, &store] {
            m_labels << store.busy().value_or(u"-"_s);
            if (m_action && m_test(m_labels.last())) std::exchange(m_action, nullptr)();
        });
    }
    const QStringList &labels() const { return m_labels; }

private:
    QStringList m_labels;
    std::function<bool(const QString &)> m_test;
    std::function<void()> m_action;
};

// The names of the labels "<verb> NAME (i/n)…", in order; empty unless the counters run from 1
// without a gap, up to n when the work was complete.
QStringList progress(const QStringList &labels, const QString &verb, bool complete = true)
{
    const QRegularExpression pattern(u'^' + QRegularExpression::escape(verb) +
                                     u" (.+) \\((\\d+)/(\\d+)\\)…$"_s);
    QStringList names;
    qsizetype total = -1;
    for (const QString &label : labels) {
        const QRegularExpressionMatch match = pattern.match(label);
        if (!match.hasMatch()) continue;
        names << match.captured(1);
        if (match.captured(2).toLongLong() != names.size() ||
            (total >= 0 && match.captured(3).toLongLong() != total))
            return {};
        total = match.captured(3).toLongLong();
    }
    return complete && names.size() != std::max<qsizetype>(total, 0) ? QStringList() : names;
}

QStringList namesOf(const QList<PiconFile> &files)
{
    QStringList names;
    for (const PiconFile &file : files)
        names << file.name;
    return names;
}

// The picons of the picon tests' list, as the corpus has them. D's is kept on boxes under the
// type-1 name only, B has none on the box; X and Y are of services the list does not have.
const QString pngA = u"1_0_19_283D_3FB_1_C00000_0_0_0.png"_s;
const QString pngB = u"1_0_19_2B66_3F3_1_C00000_0_0_0.png"_s;
const QString pngC = u"1_0_1_445D_453_1_C00000_0_0_0.png"_s;
const QString pngD = u"1_0_1_EF10_421_1_C00000_0_0_0.png"_s;
const QString pngX = u"1_0_16_1006_451_35_C00000_0_0_0.png"_s;
const QString pngY = u"1_0_1F_2_40B_1_C00000_0_0_0.png"_s;
const QString boxPicons = u"/usr/share/enigma2/picon/"_s;
const QString reload = u"/web/servicelistreload"_s;

} // namespace

// The box operations of the store (download, upload after a backup, connection test, repair,
// backups, zapping) and its picons (packages, upload plan, download, index, upload), end to end
// against the receiver test double with the real curl.
class SyncTest : public QObject
{
    Q_OBJECT

public slots:
    void openFolder(const QUrl &url) { m_opened << url; }

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(u"file"_s); }
    void roundTrip();
    void testConnection();
    void failureKeepsEverything_data();
    void failureKeepsEverything();
    void upload();
    void repair();
    void backups();
    void zap();
    void openArchive_data();
    void openArchive();
    void openIpk();
    void extractionFolders();
    void refusedPackage_data();
    void refusedPackage();
    void piconDiscovery();
    void piconDownload();
    void piconUpload();
    void piconPreparationFailures();

private:
    static QString corpusFolder(const QString &name) { return TestSupport::corpusDir() + u'/' + name; }
    // The channel-list files of a folder: the files a download fetches.
    static QStringList listFileNames(const QString &folder) { return BoxListing::listFiles(entries(folder)); }
    static QString shown(const Store &store) { return store.errorMessage().value_or(store.status()); }
    static QString workDir() { return Paths::dataDir() + u"/127.0.0.1"_s; }
    static QString backupRoot() { return Paths::dataDir() + u"/Sicherungen/127.0.0.1"_s; }
    static QString cacheFolder() { return Paths::dataDir() + u"/Picons/127.0.0.1"_s; }
    static QString storeExtractions() { return Paths::dataDir() + u"/Picon-Pakete"_s; }
    // Opens a writable copy of (the named files of) a corpus folder: the document before an operation.
    void openCopy(Store &store, const QString &corpus, const QStringList &names = {});
    // Starts the box for the picon tests and loads a list of four services and more.
    void startBox(quint32 more = 0);
    void putOnBox(const QString &at, QByteArray bytes) { TestSupport::writeFile(m_box->path(at), bytes); }
    QByteArray corpusPicon(const QString &name) const { return TestSupport::readFile(m_corpusPicons + name); }
    // Packages opened here, not by the store, are unpacked below this folder.
    QString workBase() const { return m_dir.filePath(u"work"_s); }
    QString packagePath(const QString &name) const { return m_dir.filePath(u"packages/"_s + name); }
    QString extractionFolder(const QString &name) const { return workBase() + u"/Picon-Pakete/"_s + name; }

    QTemporaryDir m_dir;
    std::unique_ptr<FakeBox> m_box;
    std::unique_ptr<Store> m_store;
    std::unique_ptr<Picons> m_picons;
    QString m_corpusPicons;
    QList<QUrl> m_opened;
};

void SyncTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    // Backup names must read back unchanged even for the hour the clock skips in spring.
    qputenv("TZ", "Europe/Berlin");
    QDesktopServices::setUrlHandler(u"file"_s, this, "openFolder");
    if (TestSupport::corpusDir().isEmpty()) QSKIP("the corpus of channel lists is missing");
    m_corpusPicons = corpusFolder(u"picons/srp-grey-border-100x60/picons/"_s);
}

void SyncTest::init()
{
    QDir(Paths::dataDir()).removeRecursively();
    QDir(m_dir.path()).removeRecursively();
    QVERIFY(QDir().mkpath(m_dir.filePath(u"packages"_s)) && QDir().mkpath(workBase()));
}

void SyncTest::cleanup()
{
    m_picons.reset();
    m_store.reset();
    m_box.reset();
}

void SyncTest::openCopy(Store &store, const QString &corpus, const QStringList &names)
{
    copyFiles(corpusFolder(corpus), m_dir.filePath(u"open"_s), names);
    store.load(m_dir.filePath(u"open"_s));
}

void SyncTest::roundTrip()
{
    const QString source = corpusFolder(u"horsti58-enigma2-settings/enigma2"_s);
    const QStringList names = listFileNames(source);
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString onBox = box.path(u"/etc/enigma2"_s);
    copyFiles(source, onBox);
    // Not part of the list, or a name that reads as a path elsewhere: never fetched nor backed up.
    for (const QString &other : {u"settings"_s, u"lamedb.bak"_s, u"Lamedb"_s, u"bouquets.tv.del"_s,
                                 u"userbouquetx.tv"_s, u"userbouquet.x\\..\\..\\escape.tv"_s})
        QVERIFY(TestSupport::writeFile(onBox + u'/' + other, "x\n"));
    copyFiles(corpusFolder(u"satellites-xml/oe-alliance-tuxbox-common/src"_s), box.path(u"/etc/tuxbox"_s),
              {u"satellites.xml"_s});
    Session session(box.settingsAs<BoxSettings>());
    Store &store = session.store;
    Trail loading(store);

    QCoro::waitFor(session.sync.downloadFromBox());
    Store reference;
    reference.load(source);
    QCOMPARE(std::pair(shown(store), store.folder()),
             std::pair(u"Von 127.0.0.1 geladen: "_s + reference.status(), workDir()));
    QCOMPARE(entries(workDir()), sorted(names + QStringList{u"satellites.xml"_s}));
    QVERIFY(sameFiles(source, workDir(), names));
    QCOMPARE(sorted(progress(loading.labels(), u"Lade"_s)), names);
    QCOMPARE(QStringList{loading.labels().first()} + loading.labels().last(2),
             QStringList({u"Lade von der Box…"_s, u"Lade satellites.xml…"_s, u"-"_s}));

    store.setKind(MediaKind::tv);
    store.renameService(store.services().first().key, u"Prüfsender Ä"_s);
    store.createBouquet(u"Neue Liste"_s);
    const QString newFile = store.selectedBouquet()->fileName;

    Trail sending(store);
    QCoro::waitFor(session.sync.uploadToBox());
    QVERIFY(!store.isDirty());
    const QStringList labels = sending.labels();
    QCOMPARE(sorted(progress(labels, u"Sichere"_s)), names);
    const QStringList sent = progress(labels, u"Sende"_s);
    QVERIFY(labels.contains(u"Sende an die Box…"_s));
    QCOMPARE(QStringList{labels.first()} + labels.last(2),
             QStringList({u"Sichere die Liste auf der Box…"_s, u"Lade Bouquets auf der Box neu…"_s, u"-"_s}));
    for (const QString &name : {u"lamedb"_s, u"lamedb5"_s, u"bouquets.tv"_s, u"bouquets.radio"_s, newFile})
        QVERIFY2(sent.contains(name), qPrintable(name));
    QCOMPARE(shown(store), u"%1 Dateien gesendet, Bouquets auf der Box neu geladen."_s.arg(sent.size()));
    // The box holds what was sent; the backup holds the previous list byte for byte, and nothing else.
    QVERIFY(sameFiles(workDir(), onBox, sent));
    QCOMPARE(store.backups().size(), 1);
    QCOMPARE(entries(store.backups().first()), names);
    QVERIFY(sameFiles(source, store.backups().first(), names));
    QCOMPARE(queried(box, reload, u"mode"_s), QStringList{u"0"_s});
}

void SyncTest::testConnection()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    // The files on the box, the folder as typed, the outcome.
    const QList<std::tuple<QStringList, QString, QString>> cases{
        {{u"lamedb"_s, u"bouquets.tv"_s}, u"/etc/enigma2/"_s, u"lamedb gefunden."_s},
        {{u"lamedb5"_s}, u"etc/enigma2"_s, u"lamedb gefunden."_s},
        {{u"lamedb.bak"_s}, u"/etc/enigma2/"_s, u"aber keine lamedb!"_s}};
    for (const auto &[files, directory, status] : cases) {
        QDir(box.path(u"/etc/enigma2"_s)).removeRecursively();
        for (const QString &file : files)
            QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/"_s + file), "x\n"));
        BoxSettings settings = box.settingsAs<BoxSettings>();
        settings.directory = directory;
        Session session(settings);
        Trail trail(session.store);
        QCoro::waitFor(session.sync.testConnection());
        QCOMPARE(shown(session.store),
                 u"Verbindung OK: %1 Dateien in /etc/enigma2/, %2"_s.arg(files.size()).arg(status));
        QCOMPARE(trail.labels(), QStringList({u"Teste Verbindung…"_s, u"-"_s}));
    }
}

void SyncTest::failureKeepsEverything_data()
{
    QTest::addColumn<bool>("upload");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("code");

    const QString noBackup = u"Sicherung fehlgeschlagen, es wurde nichts gesendet: FTP-Fehler: "_s;
    QTest::newRow("download, no database on the box")
        << false << u"no database"_s
        << u"Weder lamedb noch lamedb5 im Verzeichnis /etc/enigma2/ auf der Box gefunden."_s << 2;
    QTest::newRow("download, connection dropped") << false << u"drop"_s << u"FTP-Fehler: "_s << 0;
    QTest::newRow("upload, connection dropped during the backup") << true << u"drop"_s << noBackup << 3;
}

void SyncTest::failureKeepsEverything()
{
    QFETCH(bool, upload);
    QFETCH(QString, fault);
    QFETCH(QString, message);
    QFETCH(int, code);

    FakeBoxOptions options;
    // Inside the first list file.
    options.dropAfter = fault == u"drop" ? 4096 : -1;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    const QString onBox = box.path(u"/etc/enigma2"_s);
    copyFiles(source, onBox, fault == u"no database" ? QStringList{u"bouquets.tv"_s} : QStringList{});
    const QStringList boxFiles = entries(onBox);
    // A work folder from an earlier download and an edited document, which must both survive.
    QVERIFY(TestSupport::writeFile(workDir() + u"/lamedb"_s, "earlier download\n"));
    Session session(box.settingsAs<BoxSettings>());
    Store &store = session.store;
    openCopy(store, u"mtcnl-ziggo-cable"_s);
    store.renameBouquet(store.currentBouquets().first().id, u"Geändert"_s);
    const auto document = [&store] {
        return std::tuple(store.folder(), store.isDirty(), store.services().size());
    };
    const auto before = document();

    std::pair<QString, int> origin;
    const QString failure =
        failureOf(upload ? session.sync.runUpload() : session.sync.runDownload(), &origin);
    QVERIFY2(failure.startsWith(message), qPrintable(failure));
    if (code) QCOMPARE(origin, std::pair(u"Corvandel"_s, code));
    QCOMPARE(document(), before);
    QCOMPARE(entries(Paths::dataDir()).filter(u"127.0.0.1"_s), QStringList{u"127.0.0.1"_s});
    QCOMPARE(entries(workDir()), QStringList{u"lamedb"_s});
    QCOMPARE(TestSupport::readFile(workDir() + u"/lamedb"_s), QByteArray("earlier download\n"));
    QVERIFY(store.backups().isEmpty() && entries(backupRoot()).isEmpty());
    QCOMPARE(entries(onBox), boxFiles);
    QVERIFY(sameFiles(source, onBox, boxFiles));
    QCOMPARE(queried(box, reload, u"mode"_s), QStringList());
}

void SyncTest::upload()
{
    // An empty box needs no backup; a refused reload leaves the list sent.
    QTemporaryDir root;
    FakeBoxOptions options;
    options.root = root.path();
    options.httpStatus = 401;
    auto box = std::make_unique<FakeBox>(options);
    QVERIFY2(box->isRunning(), qPrintable(box->errorString()));
    const QString onBox = root.path() + u"/etc/enigma2"_s;
    Session session(box->settingsAs<BoxSettings>());
    Store &store = session.store;
    openCopy(store, u"mtcnl-ziggo-cable"_s);
    store.renameBouquet(store.currentBouquets().first().id, u"Geändert"_s);
    QCoro::waitFor(session.sync.uploadToBox());
    QVERIFY(!store.isDirty());
    QVERIFY(store.backups().isEmpty() && !QFileInfo::exists(session.backups.backupFolder()));
    // Saved into another folder than it came from, the list goes out complete.
    const QStringList sent = listFileNames(onBox);
    QCOMPARE(sent, listFileNames(workDir()));
    QVERIFY(sameFiles(workDir(), onBox, sent));
    QCOMPARE(queried(*box, reload, u"mode"_s), QStringList{u"0"_s});
    QCOMPARE(shown(store), u"%1 Dateien gesendet. Neuladen per HTTP fehlgeschlagen: "
                           u"HTTP-Fehler 401 beim Neuladen der Senderliste."_s.arg(sent.size()));

    // Opened from the work folder, a list whose bouquets alone changed sends only those and reloads
    // with mode 2, after a backup; an edit made while the files travel keeps the list unsent.
    store.load(workDir());
    store.setSelectedBouquetID(store.bouquets().value(MediaKind::tv).first().id);
    store.moveEntries({1}, 0);
    Trail resending(
        store, [](const QString &label) { return label.startsWith(u"Sende ") && label.contains(u"(1/"); },
        [&store] { store.createBouquet(u"Unterwegs"_s); });
    QCoro::waitFor(session.sync.uploadToBox());
    QVERIFY(store.isDirty());
    const QStringList bouquetsOnly = progress(resending.labels(), u"Sende"_s);
    QVERIFY(!bouquetsOnly.isEmpty() && !bouquetsOnly.contains(u"lamedb"_s));
    QCOMPARE(queried(*box, reload, u"mode"_s), QStringList({u"0"_s, u"2"_s}));
    QCOMPARE(store.backups().size(), 1);
    // Spares the next backup the wait for the next second.
    QDir(backupRoot()).removeRecursively();

    // The box goes away after the first file of the next upload has arrived: that one is new, the
    // others and the backup are as the box held them.
    const QString previous = m_dir.filePath(u"previous"_s);
    copyFiles(onBox, previous);
    store.createBouquet(u"Neu"_s);
    Trail trail(
        store, [](const QString &label) { return label.startsWith(u"Sende ") && label.contains(u" (2/"); },
        [&box] { box.reset(); });
    QCoro::waitFor(session.sync.uploadToBox());
    QVERIFY(!box && store.isDirty());
    QVERIFY2(shown(store).startsWith(u"FTP-Fehler: "_s), qPrintable(shown(store)));
    const QStringList sending = progress(trail.labels(), u"Sende"_s, false);
    QCOMPARE(sending.size(), 2);
    QVERIFY(sameFiles(workDir(), onBox, {sending.first()}));
    QVERIFY(TestSupport::readFile(onBox + u'/' + sending.first()) !=
            TestSupport::readFile(previous + u'/' + sending.first()));
    QCOMPARE(listFileNames(onBox), sent);
    QStringList untouched = sent;
    untouched.removeOne(sending.first());
    QVERIFY(sameFiles(previous, onBox, untouched));
    QCOMPARE(store.backups().size(), 1);
    QVERIFY(sameFiles(previous, store.backups().first(), sent));
}

void SyncTest::repair()
{
    const QString damaged = corpusFolder(u"djgueto-listadecanales"_s);
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString onBox = box.path(u"/etc/enigma2"_s);
    // The box's databases are repaired already, those of the open copy are not.
    for (const QString &name : BoxSync::lamedbNames) {
        const QByteArray bytes = Utf8::repaired(TestSupport::readFile(damaged + u'/' + name));
        QVERIFY(TestSupport::writeFile(onBox + u'/' + name, TextRepair::fixFile(bytes).text));
    }
    Session session(box.settingsAs<BoxSettings>());
    Store &store = session.store;
    openCopy(store, u"djgueto-listadecanales"_s, BoxSync::lamedbNames);
    session.sync.prepareLamedbRepair();
    QVERIFY(store.lamedbRepairCount().value_or(0) > 0);

    Trail checking(store);
    QCoro::waitFor(session.sync.repairLamedbOnBox());
    QCOMPARE(store.lamedbRepairCount(), std::nullopt);
    QCOMPARE(shown(store), u"Nichts zu reparieren."_s);
    QVERIFY(checking.labels().contains(u"Repariere lamedb…"_s) &&
            checking.labels().contains(u"Repariere lamedb5…"_s));
    // The box keeps its files (the backup made first equals them), is not reloaded, and no
    // download follows.
    QCOMPARE(store.backups().size(), 1);
    QVERIFY(sameFiles(onBox, store.backups().first(), BoxSync::lamedbNames));
    QCOMPARE(queried(box, reload, u"mode"_s), QStringList());
    QVERIFY(!checking.labels().contains(u"Lade von der Box…"_s));

    // A damaged lamedb5 alone, not even valid UTF-8, is fixed on the box and downloaded again.
    QVERIFY(QFile::remove(onBox + u"/lamedb"_s));
    QByteArray lamedb5 = TestSupport::readFile(damaged + u"/lamedb5"_s);
    lamedb5.replace("# Transponders:", "# Transponders\xff:");
    QVERIFY(TestSupport::writeFile(onBox + u"/lamedb5"_s, lamedb5));
    QCoro::waitFor(session.sync.downloadFromBox());
    session.sync.prepareLamedbRepair();
    const int count = store.lamedbRepairCount().value_or(0);
    QVERIFY(count > 0);
    QDir(backupRoot()).removeRecursively();
    Trail repairing(store);
    QCoro::waitFor(session.sync.repairLamedbOnBox());
    QVERIFY2(shown(store).startsWith(u"Von 127.0.0.1 geladen: "_s), qPrintable(shown(store)));
    const QStringList labels = repairing.labels();
    QCOMPARE(labels.first(), u"Repariere Zeichen in der lamedb…"_s);
    QVERIFY(labels.join(u'|').contains(u"Repariere lamedb5…|Lade die Senderliste auf der Box neu…|-"_s));
    QVERIFY(!labels.contains(u"Repariere lamedb…"_s));
    BoxLog::shared().flush();
    const QString log = QString::fromUtf8(TestSupport::readFile(BoxLog::shared().filePath()));
    for (const QString &line :
         {u"Reparatur  lamedb5: %1 Zeilen korrigiert"_s,
          u" – %1 Zeilen in der lamedb repariert und auf der Box neu geladen (vorher gesichert)."_s})
        QVERIFY2(log.contains(line.arg(count)), qPrintable(line));

    // Fixed line for line and reloaded; the backup holds the damaged file; the document is clean.
    const QByteArray repaired = TestSupport::readFile(onBox + u"/lamedb5"_s);
    QCOMPARE(TextRepair::fixFile(repaired).fixedLines, 0);
    QCOMPARE(repaired.count('\n'), lamedb5.count('\n'));
    QVERIFY(repaired.contains("°E") && !QFileInfo::exists(onBox + u"/lamedb"_s));
    QCOMPARE(queried(box, reload, u"mode"_s), QStringList{u"0"_s});
    QCOMPARE(store.backups().size(), 1);
    QCOMPARE(TestSupport::readFile(store.backups().first() + u"/lamedb5"_s), lamedb5);
    session.sync.prepareLamedbRepair();
    QCOMPARE(store.status(), u"In der lamedb gibt es keine falsch kodierten Zeichen."_s);
}

void SyncTest::backups()
{
    // Thirty backups, one of them at a time the clock skips in spring, and entries that are none.
    for (int day = 0; day < Backups::limit - 1; ++day) {
        const QDateTime time = QDateTime(QDate(2020, 1, 1), QTime(6, 0)).addDays(day);
        QVERIFY(QDir().mkpath(backupRoot() + u'/' + QLocale::c().toString(time, Backups::nameFormat)));
    }
    for (const QString &name :
         {u"2024-03-31_02-30-00"_s, u"notes"_s, u".2026-02-01_00-00-00.teil"_s, u"2024-3-01_08-05-09"_s,
          u"2024-03-01 08-05-09"_s, u"2024-02-30_08-05-09"_s, u"2024-03-01_08-05-09x"_s})
        QVERIFY(QDir().mkpath(backupRoot() + u'/' + name));
    QVERIFY(TestSupport::writeFile(backupRoot() + u"/2026-01-01_00-00-00"_s, "a file, not a backup"));
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    const QStringList names = listFileNames(source);
    copyFiles(source, box.path(u"/etc/enigma2"_s), names);
    Session session(box.settingsAs<BoxSettings>());
    Store &store = session.store;
    const QStringList before = store.backups();
    QCOMPARE(before.size(), Backups::limit);
    QCOMPARE(std::pair(before.first(), before.last()),
             std::pair(backupRoot() + u"/2024-03-31_02-30-00"_s, backupRoot() + u"/2020-01-01_06-00-00"_s));
    // Labels: the date abbreviated, the time short; a folder that is no backup keeps its name.
    const QLocale german(QLocale::German, QLocale::Germany), english(QLocale::English, QLocale::UnitedStates);
    QLocale::setDefault(german);
    QCOMPARE(session.backups.backupLabel(QUrl::fromLocalFile(before.last() + u'/').toString()),
             u"1. Jan. 2020, "_s + german.toString(QTime(6, 0), QLocale::ShortFormat));
    QCOMPARE(session.backups.backupLabel(backupRoot() + u"/2024-02-30_08-05-09"_s), u"2024-02-30_08-05-09"_s);
    QLocale::setDefault(english);
    QCOMPARE(session.backups.backupLabel(before.first()),
             u"Mar 31, 2024, "_s + english.toString(QTime(2, 30), QLocale::ShortFormat));
    QLocale::setDefault(QLocale::c());

    // Two backups within one second get folders of their own; the oldest ones go.
    Trail trail(store);
    QCoro::waitFor(session.backups.backupNow());
    QCoro::waitFor(session.backups.backupNow());
    QCOMPARE(std::pair(shown(store), trail.labels().first()),
             std::pair(u"Liste von 127.0.0.1 gesichert."_s, u"Sichere die Liste auf der Box…"_s));
    QCOMPARE(store.backups().mid(2), before.mid(0, Backups::limit - 2));
    QVERIFY(!QFileInfo::exists(before.last()) && QFileInfo::exists(backupRoot() + u"/notes"_s));
    const QDateTime now = QDateTime::currentDateTime();
    for (const QString &backup : store.backups().mid(0, 2)) {
        const std::optional<QDateTime> made = Backups::backupTime(QFileInfo(backup).fileName());
        QVERIFY(made && qAbs(made->secsTo(QDateTime(now.date(), now.time(), Qt::UTC))) < 60);
        QCOMPARE(entries(backup), names);
    }

    // The list follows the box of the settings and is read again whenever a list folder opens.
    const QString other = Paths::dataDir() + u"/Sicherungen/other.invalid/2020-01-01_00-00-00"_s;
    QVERIFY(QDir().mkpath(other));
    BoxSettings settings = box.settingsAs<BoxSettings>();
    settings.host = u"other.invalid"_s;
    store.setSettings(settings);
    QCOMPARE(store.backups(), QStringList{other});
    store.setSettings(box.settingsAs<BoxSettings>());
    QVERIFY(QDir().mkpath(backupRoot() + u"/2027-01-01_00-00-00"_s));
    copyFiles(source, workDir(), names);
    store.load(workDir());
    QCOMPARE(store.backups().first(), backupRoot() + u"/2027-01-01_00-00-00"_s);

    // Restoring one that does not open leaves the work folder and the document alone; a good one
    // replaces the work folder completely and is marked as not yet sent.
    const auto document = [&store] {
        return std::tuple(store.status(), store.isDirty(), store.services().size());
    };
    const auto opened = document();
    session.backups.restoreBackup(store.backups().first());
    QCOMPARE(store.errorMessage(), std::optional<QString>(u"Im Ordner liegt weder lamedb noch lamedb5."_s));
    QCOMPARE(document(), opened);
    QCOMPARE(entries(workDir()), names);
    QVERIFY(sameFiles(source, workDir(), names));
    QCOMPARE(entries(Paths::dataDir()), QStringList({u"127.0.0.1"_s, u"Sicherungen"_s}));
    store.setErrorMessage(std::nullopt);
    QVERIFY(TestSupport::writeFile(workDir() + u"/userbouquet.stale.tv"_s, "#NAME stale\n"));
    const QString good = store.backups().at(1);
    session.backups.restoreBackup(QUrl::fromLocalFile(good + u'/').toString());
    QCOMPARE(shown(store), u"Sicherung vom "_s + session.backups.backupLabel(good) +
                               u" geladen – mit „Senden“ auf die Box zurückspielen."_s);
    QVERIFY(store.folder() == workDir() && store.isDirty());
    QCOMPARE(entries(workDir()), names);
    QCOMPARE(entries(Paths::dataDir()), QStringList({u"127.0.0.1"_s, u"Sicherungen"_s}));

    // The file manager shows the folder, made when it is missing.
    QDir(backupRoot()).removeRecursively();
    session.backups.showBackupsInFinder();
    QVERIFY(QFileInfo(backupRoot()).isDir());
    QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(backupRoot())});
}

void SyncTest::zap()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    Store store;
    store.load(corpusFolder(u"mtcnl-ziggo-cable"_s));
    store.setSettings(box.settingsAs<BoxSettings>());
    Zapper zapper(store);
    QSignalSpy busy(&store, &Store::busyChanged);
    // The references the box was switched to so far, after zapping the focused item.
    const auto zapFocused = [&] {
        QCoro::waitFor(zapper.zapFocused());
        return queried(box, u"/web/zap"_s, u"sRef"_s);
    };
    const QList<Bouquet> tv = store.bouquets().value(MediaKind::tv);
    QVERIFY(tv.size() >= 2 && tv.at(0).entries.size() >= 2 && !tv.at(1).entries.isEmpty());
    const BouquetEntry entry = tv.at(0).entries.first();

    // In the entry list only a single entry of the selected bouquet counts, and no marker.
    store.setSelectedBouquetID(tv.at(0).id);
    store.addMarker(u"Nachrichten"_s);
    const BouquetEntry marker = store.selectedBouquet()->entries.last();
    for (const auto &[bouquet, selection] :
         {std::pair(QUuid(), EntryIds{entry.id}),
          std::pair(tv.at(0).id, EntryIds{entry.id, tv.at(0).entries.at(1).id}),
          std::pair(tv.at(0).id, EntryIds{marker.id}),
          std::pair(tv.at(0).id, EntryIds{tv.at(1).entries.first().id})}) {
        store.setSelectedBouquetID(bouquet);
        store.setEntrySelection(selection);
        QCOMPARE(zapFocused(), QStringList());
    }
    store.setEntrySelection({entry.id});
    QCOMPARE(zapFocused(), QStringList{entry.reference});
    QCOMPARE(shown(store), u"Box auf „%1“ umgeschaltet."_s.arg(store.displayName(entry)));

    // In the service table a single selected service counts.
    store.setEntryListActive(false);
    const Service service = store.services().at(store.services().size() / 2);
    store.setServiceSelection({service.key, store.services().first().key});
    QCOMPARE(zapFocused().size(), 1);
    store.setServiceSelection({service.key});
    QCOMPARE(zapFocused(), QStringList({entry.reference, reference(service)}));
    QCOMPARE(shown(store), u"Box auf „%1“ umgeschaltet."_s.arg(service.name));
    // Zapping runs beside the operations: it never shows as busy.
    QCOMPARE(busy.size(), 0);

    // A refused request leaves the status as it was.
    BoxSettings settings = box.settingsAs<BoxSettings>();
    settings.password = u"wrong"_s;
    store.setSettings(settings);
    QCoro::waitFor(zapper.zap(reference(service), service.name));
    QCOMPARE(shown(store), u"Umschalten fehlgeschlagen: HTTP-Fehler 401 beim Neuladen der Senderliste."_s);
    QCOMPARE(store.status(), u"Box auf „%1“ umgeschaltet."_s.arg(service.name));
}

void SyncTest::startBox(quint32 more)
{
    m_box = std::make_unique<FakeBox>();
    QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
    m_store = std::make_unique<Store>();
    m_store->setSettings(m_box->settingsAs<BoxSettings>());
    m_picons = std::make_unique<Picons>(*m_store);
    // Services A, B, C, D (see their picons above), then services 1 to `more` of type 1.
    QList<std::tuple<quint32, quint32, quint32>> services{
        {0x283D, 0x3FB, 0x19}, {0x2B66, 0x3F3, 0x19}, {0x445D, 0x453, 1}, {0xEF10, 0x421, 0x19}};
    for (quint32 sid = 1; sid <= more; ++sid)
        services.append({sid, 1, 1});
    QByteArray lamedb = "eDVB services /4/\ntransponders\nend\nservices\n";
    for (const auto &[sid, tsid, type] : services)
        lamedb += QString::asprintf("%04x:00c00000:%04x:0001:%u:0\nS\np:T\n", sid, tsid, type).toUtf8();
    QVERIFY(TestSupport::writeFile(m_dir.filePath(u"list/lamedb"_s), lamedb + "end\n"));
    QSignalSpy reloaded(m_picons.get(), &Picons::piconsChanged);
    m_store->load(m_dir.filePath(u"list"_s));
    QCOMPARE(m_store->services().size(), services.size());
    QCOMPARE(reloaded.size(), 1);
}

void SyncTest::openArchive_data()
{
    QTest::addColumn<Format>("format");
    QTest::addColumn<QString>("ending");
    for (const auto &[format, ending] :
         {std::pair(Format::zip, u".zip"_s), std::pair(Format::tarGz, u".tar.gz"_s),
          std::pair(Format::tarGz, u".tgz"_s), std::pair(Format::tarXz, u".TAR.XZ"_s),
          std::pair(Format::tarXz, u".txz"_s), std::pair(Format::tarBz2, u".tar.bz2"_s),
          std::pair(Format::tarBz2, u".tbz2"_s), std::pair(Format::tar, u".tar"_s),
          std::pair(Format::sevenZip, u".7z"_s)})
        QTest::newRow(qPrintable(ending)) << format << ending;
}

void SyncTest::openArchive()
{
    QFETCH(Format, format);
    QFETCH(QString, ending);

    // The corpus picons, one also in lower case, beside files that are no picons: nine or eleven
    // pieces, a first piece other than 1, a piece that is no hex number, another ending, an archive
    // ending inside the name. Picked by a file URL.
    QList<Entry> entries{file("extra/" + pngB.toLower().chopped(4).toUtf8() + ".Png", "lower")};
    QStringList expected{pngB};
    for (const QString &name : QDir(m_corpusPicons).entryList(QDir::Files)) {
        entries << file("picons/" + name.toUtf8(), corpusPicon(name));
        expected << name;
    }
    for (const QByteArray name :
         {"1_0_1_A_1_1_0_0_0.png", "1_0_1_A_1_1_0_0_0_0_0.png", "2_0_1_A_1_1_0_0_0_0.png",
          "01_0_1_A_1_1_0_0_0_0.png", "1_0_1_G1_1_1_0_0_0_0.png", "1_0_1_１_1_1_0_0_0_0.png",
          "1_0_1_A B_1_1_0_0_0_0.png", "1_0_1_A_1_1_0_0_0_0.svg", "1_0_1_A_1_1_0_0_0_0.png.bak", ".png",
          "logo.zip.png", "README.txt"})
        entries << file("no/" + name, "no picon");
    const QString archive = packagePath(u"My Picons"_s + ending);
    QVERIFY(write(archive, format, entries));

    const PiconPackage package = PiconPackage::open(QUrl::fromLocalFile(archive).toString(), workBase());
    QCOMPARE(std::pair(package.source, package.root), std::pair(archive, extractionFolder(u"My Picons"_s)));
    QCOMPARE(namesOf(package.files), sorted(expected));
    // Every picon holds the bytes of the archive entry at its place.
    for (const PiconFile &picon : package.files) {
        const QString inPackage = QDir(package.root).relativeFilePath(picon.path);
        QCOMPARE(TestSupport::readFile(picon.path),
                 inPackage.startsWith(u"extra/") ? QByteArray("lower") : corpusPicon(inPackage.mid(7)));
    }
}

void SyncTest::openIpk()
{
    // Archives inside the package are unpacked one level deep, such as the parts of an ipk. Picon
    // sets alias one logo under several services with relative links.
    const QString ipk = packagePath(u"enigma2-picons-srp_1.0_all.ipk"_s);
    const QByteArray folder = "usr/share/enigma2/picon/";
    QVERIFY(writeIpk(ipk, {file(folder + pngA.toUtf8(), "A"), softLink(folder + pngB.toUtf8(), pngA.toUtf8()),
                           hardLink(folder + pngC.toUtf8(), "./" + folder + pngA.toUtf8()),
                           file("innermost.zip", bytes(Format::zip, {file(pngD.toUtf8(), "D")}))}));

    const PiconPackage package = PiconPackage::open(ipk, workBase());
    QCOMPARE(package.root, extractionFolder(u"enigma2-picons-srp_1.0_all"_s));
    QCOMPARE(namesOf(package.files), QStringList({pngA, pngB, pngC}));
    const QString data = package.root + u"/data-inhalt/"_s;
    QCOMPARE(package.files.at(0).path, data + QString::fromUtf8(folder) + pngA);
    QVERIFY(QFileInfo(package.files.at(1).path).isSymLink());
    for (const PiconFile &picon : package.files)
        QCOMPARE(TestSupport::readFile(picon.path), QByteArray("A"));
    QVERIFY(QFileInfo::exists(data + u"innermost.zip"_s) && !QFileInfo::exists(data + u"innermost-inhalt"_s));
}

void SyncTest::extractionFolders()
{
    // A picked folder is scanned where it is, archives in it stay packed, and it is never removed.
    const QString folder = m_dir.filePath(u"unpacked"_s);
    QVERIFY(TestSupport::writeFile(folder + u"/a/b/"_s + pngC, "C"));
    QVERIFY(TestSupport::writeFile(folder + u"/"_s + pngA.toLower(), "A"));
    QVERIFY(TestSupport::writeFile(folder + u"/picons.zip"_s, "no archive"));
    const PiconPackage picked = PiconPackage::open(folder, workBase());
    QCOMPARE(picked.files,
             (QList<PiconFile>{{folder + u'/' + pngA.toLower(), pngA}, {folder + u"/a/b/"_s + pngC, pngC}}));
    QVERIFY(!QFileInfo::exists(workBase() + u"/Picon-Pakete"_s));

    // A package named "..zip" must not unpack into (and first empty) the folder of all packages.
    QVERIFY(TestSupport::writeFile(extractionFolder(u"other"_s) + u"/file"_s, "kept"));
    QVERIFY(write(packagePath(u"..zip"_s), Format::zip, {file(pngA.toUtf8(), "A")}));
    const PiconPackage dots = PiconPackage::open(packagePath(u"..zip"_s), workBase());
    QCOMPARE(QFileInfo(dots.root).path(), workBase() + u"/Picon-Pakete"_s);
    QCOMPARE(namesOf(dots.files), QStringList{pngA});
    QVERIFY(PiconPackage::discardExtracted(dots, workBase()));
    QCOMPARE(TestSupport::readFile(extractionFolder(u"other"_s) + u"/file"_s), QByteArray("kept"));

    // Opening a package again replaces its extraction folder.
    const QString archive = packagePath(u"p.tar.gz"_s);
    QVERIFY(write(archive, Format::tarGz, {file(pngA.toUtf8(), "first")}));
    const PiconPackage first = PiconPackage::open(archive, workBase());
    QVERIFY(TestSupport::writeFile(first.root + u"/stale/"_s + pngC, "stale"));
    QVERIFY(write(archive, Format::tarGz, {file(pngA.toUtf8(), "second")}));
    const PiconPackage second = PiconPackage::open(archive, workBase());
    QCOMPARE(second.files, (QList<PiconFile>{{first.root + u'/' + pngA, pngA}}));
    QCOMPARE(TestSupport::readFile(second.files.first().path), QByteArray("second"));
    QVERIFY(PiconPackage::discardExtracted(second, workBase()));
    QVERIFY(!QFileInfo::exists(second.root) && QFileInfo::exists(archive));

    // Only folders directly below the extraction folder, not picked ones, are ever removed.
    const PiconPackage own{extractionFolder(u"other"_s), extractionFolder(u"other"_s), {}};
    for (const PiconPackage &package :
         {picked, own, PiconPackage{archive, workBase() + u"/Picon-Pakete"_s, {}},
          PiconPackage{archive, extractionFolder(u"x/../../.."_s), {}}})
        QVERIFY2(!PiconPackage::discardExtracted(package, workBase()), qPrintable(package.root));
    QVERIFY(QFileInfo::exists(folder + u"/a/b/"_s + pngC) && QFileInfo::exists(own.root + u"/file"_s));
    QVERIFY(PiconPackage::discardExtracted(PiconPackage{archive, own.root, {}}, workBase()));
    QVERIFY(!QFileInfo::exists(own.root));
}

void SyncTest::refusedPackage_data()
{
    QTest::addColumn<QString>("fileName");
    // Written as an archive when there are entries, else as these bytes.
    QTest::addColumn<QList<Entry>>("archived");
    QTest::addColumn<Format>("format");
    QTest::addColumn<QByteArray>("content");

    const QByteArray a = pngA.toUtf8();
    const QByteArray tarGz = bytes(Format::tarGz, {file(a, QByteArray(200000, 'x'))});
    QTemporaryDir dir;
    QVERIFY(writeIpk(dir.filePath(u"p.ipk"_s), {file(a, QByteArray(100000, 'x'))}));
    const QByteArray ipk = TestSupport::readFile(dir.filePath(u"p.ipk"_s));
    const auto damaged = [](const char *tag, const QString &name, const QByteArray &content) {
        QTest::newRow(tag) << name << QList<Entry>() << Format::zip << content;
    };
    damaged("truncated tar.gz", u"cut.tar.gz"_s, tarGz.left(tarGz.size() / 2));
    damaged("truncated ipk", u"cut.ipk"_s, ipk.left(ipk.size() - 100));
    damaged("no archive at all", u"text.zip"_s, "This is not a zip file.\n");
    damaged("missing", u"missing.zip"_s, QByteArray());
    // An mtree listing names files of this computer as the content of its entries.
    // work/Picon-Pakete/hostile/../../.. is the temporary folder, which holds "outside".
    const QByteArray outside = QFile::encodeName(m_dir.filePath(u"outside"_s));
    damaged("content from elsewhere", u"listing.tar"_s,
            "#mtree\n" + a + " type=file contents=" + outside + "/secret.txt\n");

    const auto hostile = [](const char *tag, Format format, const QList<Entry> &entries) {
        QTest::newRow(tag) << u"hostile.tar"_s << entries << format << QByteArray();
    };
    hostile("dot-dot file, zip", Format::zip, {file("ok/../../../evil.png", "evil")});
    hostile("absolute path", Format::tarGz, {file(outside + "/evil.png", "evil")});
    hostile("absolute link, then through it", Format::tar,
            {softLink("link", outside), file("link/evil.png", "evil")});
    hostile("relative link out, then through it", Format::zip,
            {softLink("link", "../../../outside"), file("link/evil.png", "evil")});
    // By its text the second link stays inside; through the first one it climbs three levels.
    hostile("link out through another link", Format::tar,
            {softLink("d1/d2/d3/x", "../../.."), softLink(a, "d1/d2/d3/x/../../../outside/secret.txt")});
    hostile("hard link out", Format::tar, {hardLink(a, "../../outside/secret.txt")});
}

void SyncTest::refusedPackage()
{
    QFETCH(QString, fileName);
    QFETCH(QList<Entry>, archived);
    QFETCH(Format, format);
    QFETCH(QByteArray, content);

    const QString outside = m_dir.filePath(u"outside"_s);
    QVERIFY(TestSupport::writeFile(outside + u"/secret.txt"_s, "secret"));
    const QString archive = packagePath(fileName);
    if (!archived.isEmpty())
        QVERIFY(write(archive, format, archived));
    else if (!content.isEmpty())
        QVERIFY(TestSupport::writeFile(archive, content));
    const QByteArray before = TestSupport::readFile(archive);

    try {
        PiconPackage::open(archive, workBase());
        QFAIL("the package was opened");
    } catch (const PackageError &error) {
        QVERIFY2(error.description().startsWith(u"Das Paket konnte nicht entpackt werden: "_s) &&
                     !error.text().isEmpty(),
                 qPrintable(error.description()));
    }
    // Nothing half unpacked is left behind, nothing outside was touched, the package is as it was.
    QCOMPARE(entries(workBase() + u"/Picon-Pakete"_s), QStringList());
    QCOMPARE(entries(outside), QStringList{u"secret.txt"_s});
    QCOMPARE(TestSupport::readFile(outside + u"/secret.txt"_s), QByteArray("secret"));
    QDirIterator all(m_dir.path(), QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext())
        QVERIFY2(all.nextFileInfo().fileName() != u"evil.png", qPrintable(all.filePath()));
    QCOMPARE(TestSupport::readFile(archive), before);
}

void SyncTest::piconDiscovery()
{
    // Without a list there is nothing to match picons with.
    Store empty;
    Picons none(empty);
    QCoro::waitFor(none.downloadPicons());
    QCOMPARE(shown(empty),
             u"Bitte zuerst eine Senderliste laden – Picons werden passend zu den Sendern geladen."_s);

    // The picon folder is searched for, for a download or an upload.
    startBox();
    QString failure;
    std::pair<QString, int> origin;
    const auto search = [&](const QStringList &candidates, bool forUpload) {
        std::optional<PiconDirectory> found;
        failure = failureOf(
            [&]() -> QCoro::Task<> {
                found = co_await m_picons->findPiconDirectory(candidates, forUpload);
            }(),
            &origin);
        return found;
    };
    // Without a folder of its own every default folder is searched, and none holds a picon.
    putOnBox(boxPicons + u"readme.txt"_s, "no pictures here");
    const QString nothing = u"Keine Picons auf der Box gefunden. Geprüft: /usr/share/enigma2/picon/, "
                            u"/media/hdd/picon/, /media/usb/picon/, /media/mmc/picon/, /media/sdcard/picon/, "
                            u"/picon/, /data/picon/, /usr/share/enigma2/XPicons/picon/. "
                            u"Das Verzeichnis kannst du in den Einstellungen angeben."_s;
    QCOMPARE(search(m_picons->piconCandidates(), false), std::nullopt);
    QCOMPARE(std::pair(failure, origin), std::pair(nothing, std::pair(u"Corvandel"_s, 3)));
    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(shown(*m_store), nothing);

    // The settings' folder is the only candidate, however it is typed; blanks count as none. The
    // defaults are searched in order, a folder without picons is passed over, and one holding only
    // LOGO.PNG counts.
    putOnBox(u"/media/hdd/picon/"_s + pngA, corpusPicon(pngA));
    putOnBox(u"/media/usb/picon/LOGO.PNG"_s, corpusPicon(pngC));
    Trail trail(*m_store);
    BoxSettings settings = m_store->settings();
    for (const auto &[typed, found] :
         {std::pair(u"media/hdd/picon"_s, PiconDirectory{u"/media/hdd/picon/"_s, {pngA}}),
          std::pair(u" \t "_s, PiconDirectory{u"/media/usb/picon/"_s, {u"LOGO.PNG"_s}})}) {
        settings.piconDirectory = typed;
        m_store->setSettings(settings);
        QCOMPARE(search(m_picons->piconCandidates(), false), found);
        QFile::remove(m_box->path(u"/media/hdd/picon/"_s + pngA));
    }
    QCOMPARE(
        trail.labels(),
        (QStringList{u"Suche Picons in /media/hdd/picon/…"_s, u"Suche Picons in /usr/share/enigma2/picon/…"_s,
                     u"Suche Picons in /media/hdd/picon/…"_s, u"Suche Picons in /media/usb/picon/…"_s}));

    // For the upload, the first folder that holds a picon, else the first that could be listed,
    // else the first candidate.
    const QString hdd = u"/media/hdd/picon/"_s, usb = u"/media/usb/picon/"_s;
    QCOMPARE(search({u"/missing/"_s, hdd, usb}, true), (PiconDirectory{usb, {u"LOGO.PNG"_s}}));
    QCOMPARE(search({u"/missing/"_s, hdd, boxPicons}, true), (PiconDirectory{hdd, {}}));
    QCOMPARE(search({u"/missing/"_s, u"/gone/"_s}, true), (PiconDirectory{u"/missing/"_s, {}}));

    // A box that cannot be reached is reported as such after the first folder, not after all.
    m_box.reset();
    const qsizetype before = trail.labels().size();
    QCOMPARE(search(Picons::defaultCandidates(), true), std::nullopt);
    QVERIFY2(failure.startsWith(u"FTP-Fehler: "_s), qPrintable(failure));
    QCOMPARE(trail.labels().size(), before + 1);
}

void SyncTest::piconDownload()
{
    // Beside the four services, 200 more: the download runs in batches of 200 names.
    startBox(200);
    for (const QString &name : {pngA, pngC, pngX, pngY})
        putOnBox(boxPicons + name, corpusPicon(name));
    // D is a type-0x19 service whose picon the box keeps under the type-1 name.
    putOnBox(boxPicons + pngD, corpusPicon(u"1_0_19_EF10_421_1_C00000_0_0_0.png"_s));
    for (quint32 sid = 1; sid <= 200; ++sid)
        putOnBox(boxPicons + u"1_0_1_%1_1_1_C00000_0_0_0.png"_s.arg(QString::number(sid, 16).toUpper()),
                 corpusPicon(pngC));
    Trail trail(*m_store);
    QSignalSpy changed(m_picons.get(), &Picons::piconsChanged);

    // Only the picons of the list's services that the box has.
    const QString from = u"Picons aus /usr/share/enigma2/picon/: "_s;
    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(shown(*m_store), from + u"203 neu geladen, 0 vorhanden (205 Dateien auf der Box)."_s);
    QCOMPARE(trail.labels().first(), u"Suche Picons auf der Box…"_s);
    QCOMPARE(trail.labels().filter(u"Lade Picons"_s),
             QStringList({u"Lade Picons 200/203…"_s, u"Lade Picons 203/203…"_s}));
    QCOMPARE(std::pair(m_store->piconCount(), entries(cacheFolder()).size()), std::pair(203, qsizetype(203)));
    QVERIFY(m_store->piconNames().contains(pngD) && !m_store->piconNames().contains(pngX));
    QCOMPARE(TestSupport::readFile(cacheFolder() + u'/' + pngA), corpusPicon(pngA));
    QCOMPARE(changed.size(), 1);

    // Images come from the cache folder, through the type-1 name when needed, and once loaded
    // from memory.
    const QString referenceA = u"1:0:19:283D:3FB:1:C00000:0:0:0:"_s;
    const std::optional<QImage> a = m_picons->picon(referenceA);
    QCOMPARE(a, std::optional(QImage(m_corpusPicons + pngA)));
    QCOMPARE(m_picons->picon(u"1:0:19:EF10:421:1:C00000:0:0:0:"_s),
             std::optional(QImage(m_corpusPicons + u"1_0_19_EF10_421_1_C00000_0_0_0.png"_s)));
    QCOMPARE(m_picons->picon(u"1:0:19:2B66:3F3:1:C00000:0:0:0:"_s), std::nullopt);
    QVERIFY(QFile::remove(cacheFolder() + u'/' + pngA));
    QCOMPARE(m_picons->picon(referenceA), a);

    // Again: only what the cache lacks.
    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(shown(*m_store), from + u"1 neu geladen, 202 vorhanden (205 Dateien auf der Box)."_s);
    QCOMPARE(trail.labels().filter(u"Lade Picons"_s).last(), u"Lade Picons 1/1…"_s);

    // Another host has a cache of its own.
    changed.clear();
    BoxSettings settings = m_store->settings();
    settings.host = u"192.0.2.7"_s;
    m_store->setSettings(settings);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_store->piconCount(), 0);
    QCOMPARE(m_picons->picon(referenceA), std::nullopt);
    // Back on this box its cache is read again; other files there are no picons.
    QVERIFY(TestSupport::writeFile(cacheFolder() + u"/notes.txt"_s, "x"));
    settings.host = u"127.0.0.1"_s;
    m_store->setSettings(settings);
    QCOMPARE(m_store->piconCount(), 203);
}

void SyncTest::piconUpload()
{
    startBox();
    putOnBox(boxPicons + pngA, corpusPicon(pngA));
    putOnBox(boxPicons + pngB, "OLD");
    putOnBox(boxPicons + pngY, corpusPicon(pngY));
    // A package with A (twice), B, C (lower case) and D (its type-1 name) of the list, and X.
    const QString package = m_dir.filePath(u"Picons Test.zip"_s);
    QList<Entry> content{file("picon2/" + pngA.toUtf8(), "second copy"),
                         file("picon/" + pngC.toLower().toUtf8(), corpusPicon(pngC))};
    for (const QString &name : {pngA, pngB, pngD, pngX})
        content << file("picon/" + name.toUtf8(), corpusPicon(name));
    QVERIFY(write(package, Format::zip, content));
    QSignalSpy planChanged(m_picons.get(), &Picons::piconUploadPlanChanged);
    Trail trail(*m_store);
    QCoro::waitFor(m_picons->preparePiconUpload(package));
    QCOMPARE(shown(*m_store),
             u"Picon-Paket „Picons Test.zip“: 5 Picons, 4 passend zur Liste, Ziel %1."_s.arg(boxPicons));
    QCOMPARE(trail.labels().first(), u"Öffne Picon-Paket…"_s);
    QCOMPARE(planChanged.size(), 1);
    const PiconUploadPlan plan = *m_picons->piconUploadPlan();
    QCOMPARE(std::tuple(plan.directory, plan.existing, plan.matching),
             std::tuple(boxPicons, QSet<QString>{pngA, pngB, pngY}, QSet<QString>{pngA, pngB, pngC, pngD}));
    // Per choice: only the matching ones or all, only those missing or overwriting.
    QCOMPARE((QList<int>{plan.count(false, false), plan.count(false, true), plan.count(true, false),
                         plan.count(true, true), plan.existingCount(false), plan.existingCount(true)}),
             (QList<int>{2, 4, 3, 5, 2, 2}));

    // Only the missing matching ones: C and D.
    QCoro::waitFor(m_picons->uploadPicons());
    QCOMPARE(shown(*m_store), u"2 Picons nach /usr/share/enigma2/picon/ hochgeladen."_s);
    QCOMPARE(trail.labels().filter(u"Lade Picons hoch"_s),
             QStringList({u"Lade Picons hoch…"_s, u"Lade Picons hoch 2/2…"_s}));
    QCOMPARE(entries(m_box->path(boxPicons)), sorted({pngA, pngB, pngC, pngD, pngY}));
    QCOMPARE(TestSupport::readFile(m_box->path(boxPicons + pngC)), corpusPicon(pngC));
    QCOMPARE(TestSupport::readFile(m_box->path(boxPicons + pngB)), QByteArray("OLD"));
    QCOMPARE(entries(cacheFolder()), sorted({pngC, pngD}));
    QCOMPARE(m_store->piconCount(), 2);
    QVERIFY(!m_picons->piconUploadPlan());
    QVERIFY(entries(storeExtractions()).isEmpty() && QFileInfo::exists(package));

    // All of the package, overwriting: B is replaced, X is sent as well, A from its first folder.
    QCoro::waitFor(m_picons->preparePiconUpload(package));
    planChanged.clear();
    m_picons->setOverwrite(true);
    m_picons->setOverwrite(true);
    m_picons->setUploadAll(true);
    QCOMPARE(planChanged.size(), 2);
    QCoro::waitFor(m_picons->uploadPicons());
    QCOMPARE(shown(*m_store), u"5 Picons nach /usr/share/enigma2/picon/ hochgeladen."_s);
    for (const QString &name : {pngA, pngB, pngX})
        QCOMPARE(TestSupport::readFile(m_box->path(boxPicons + name)), corpusPicon(name));
    QCOMPARE(entries(cacheFolder()), sorted({pngA, pngB, pngC, pngD, pngX}));
    QCOMPARE(m_store->piconCount(), 5);
}

void SyncTest::piconPreparationFailures()
{
    startBox();
    // A package without service-reference picons, a picked folder without them, a damaged package.
    const QString empty = m_dir.filePath(u"leer.zip"_s);
    QVERIFY(write(empty, Format::zip, {file("logo.png", corpusPicon(pngA))}));
    const QString folder = m_dir.filePath(u"Ordner"_s);
    QVERIFY(TestSupport::writeFile(folder + u"/logo.png"_s, "x"));
    const QString broken = m_dir.filePath(u"kaputt.tar.gz"_s);
    QVERIFY(TestSupport::writeFile(broken, "\x1f\x8b\x08 this is no gzip stream"));
    const QString noPicons = u"In „%1“ wurden keine Picons mit Service-Referenz-Namen (1_0_…png) gefunden."_s;
    for (const auto &[url, error] :
         {std::pair(empty, noPicons.arg(u"leer.zip"_s)), std::pair(folder + u'/', noPicons.arg(u"Ordner"_s)),
          std::pair(broken, u"Das Paket konnte nicht entpackt werden: "_s)}) {
        QCoro::waitFor(m_picons->preparePiconUpload(url));
        QVERIFY2(shown(*m_store).startsWith(error), qPrintable(url));
        QVERIFY(!m_picons->piconUploadPlan() && !m_store->busy());
    }
    QVERIFY(entries(storeExtractions()).isEmpty() && QFileInfo::exists(folder + u"/logo.png"_s));

    // Opening another package replaces the plan and its extraction folder; cancelling, or closing,
    // removes it. Nothing is sent.
    const QString first = m_dir.filePath(u"eins.tar.xz"_s);
    const QString second = m_dir.filePath(u"zwei.7z"_s);
    QVERIFY(write(first, Format::tarXz, {file(pngA.toUtf8(), corpusPicon(pngA))}));
    QVERIFY(write(second, Format::sevenZip, {file(pngC.toUtf8(), corpusPicon(pngC))}));
    QCoro::waitFor(m_picons->preparePiconUpload(first));
    QCOMPARE(entries(storeExtractions()), QStringList{u"eins"_s});
    QCoro::waitFor(m_picons->preparePiconUpload(second));
    QCOMPARE(entries(storeExtractions()), QStringList{u"zwei"_s});
    QCOMPARE(m_picons->piconUploadPlan()->matching, QSet<QString>{pngC});
    QSignalSpy planChanged(m_picons.get(), &Picons::piconUploadPlanChanged);
    m_picons->cancelPiconUpload();
    QCOMPARE(planChanged.size(), 1);
    QVERIFY(!m_picons->piconUploadPlan() && entries(storeExtractions()).isEmpty());
    QCoro::waitFor(m_picons->preparePiconUpload(first));
    m_picons.reset();
    QVERIFY(entries(storeExtractions()).isEmpty() && !QFileInfo::exists(m_box->path(boxPicons)));
}

QTEST_GUILESS_MAIN(SyncTest)
#include "SyncTest.moc"
