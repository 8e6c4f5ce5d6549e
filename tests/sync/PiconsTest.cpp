#include "FakeBox.h"
#include "PiconArchives.h"
#include "Picons.h"
#include "Store.h"
#include "SyncFixture.h"
#include "TestSupport.h"

#include "Paths.h"

#include <QCoroTask>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace PiconArchives;
using SyncFixture::BusyTrail;
using SyncFixture::entries;

namespace {

struct TestService
{
    quint32 sid;
    quint32 tsid;
    quint32 onid;
    quint32 ns;
    quint32 type;
    QByteArray name;
};

// The services of the list: their picons are the corpus's. D's picon is stored on boxes under
// the type-1 name only; B has none on the box.
const QList<TestService> listServices{
    {0x283D, 0x3FB, 1, 0xC00000, 0x19, "A"}, {0x2B66, 0x3F3, 1, 0xC00000, 0x19, "B"},
    {0x445D, 0x453, 1, 0xC00000, 1, "C"},    {0xEF10, 0x421, 1, 0xC00000, 0x19, "D"},
};
const QString pngA = u"1_0_19_283D_3FB_1_C00000_0_0_0.png"_s;
const QString pngB = u"1_0_19_2B66_3F3_1_C00000_0_0_0.png"_s;
const QString pngC = u"1_0_1_445D_453_1_C00000_0_0_0.png"_s;
const QString pngD = u"1_0_1_EF10_421_1_C00000_0_0_0.png"_s;
// Picons of services the list does not have.
const QString pngX = u"1_0_16_1006_451_35_C00000_0_0_0.png"_s;
const QString pngY = u"1_0_1F_2_40B_1_C00000_0_0_0.png"_s;
const QString boxPicons = u"/usr/share/enigma2/picon/"_s;

QByteArray lamedb(const QList<TestService> &services)
{
    QByteArray text = "eDVB services /4/\ntransponders\nend\nservices\n";
    for (const TestService &s : services) {
        text += QString::asprintf("%04x:%08x:%04x:%04x:%u:0\n", s.sid, s.ns, s.tsid, s.onid, s.type).toUtf8();
        text += s.name + "\np:Test\n";
    }
    return text + "end\n";
}

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

// The labels among the trail's that start with the prefix, in order.
QStringList labelsStartingWith(const SyncFixture::BusyTrail &trail, const QString &prefix)
{
    QStringList found;
    for (const QString &label : trail.labels()) {
        if (label.startsWith(prefix))
            found << label;
    }
    return found;
}

// The outcome of a search for the picon folder: the folder, or the error it ended with.
struct Search
{
    std::optional<PiconDirectory> found;
    QString description;
    QString domain;
    int code = 0;
};

QCoro::Task<Search> searching(Picons &picons, QStringList candidates, bool forUpload)
{
    Search search;
    try {
        search.found = co_await picons.findPiconDirectory(candidates, forUpload);
    } catch (const Error &error) {
        search.description = error.description();
        search.domain = error.domain();
        search.code = error.code();
    }
    co_return search;
}

// QCoro::waitFor never returns from a task that throws, hence the detour.
Search search(Picons &picons, const QStringList &candidates, bool forUpload)
{
    return QCoro::waitFor(searching(picons, candidates, forUpload));
}

} // namespace

class PiconsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void candidates();
    void discovery();
    void discoveryFailures();
    void downloadTwice();
    void downloadInBatches();
    void downloadNeedsList();
    void indexFollowsBox();
    void uploadChoices();
    void uploadToEmptyBox();
    void packageWithoutPicons();
    void damagedPackageAndCancel();

private:
    // Starts the box on a fresh folder, makes a store that reaches it and loads the list.
    void startBox(const QList<TestService> &services = listServices);
    void putOnBox(const QString &boxPath, const QByteArray &bytes);
    QByteArray corpusPicon(const QString &name) const;
    QString cacheFolder() const { return Paths::dataDir() + u"/Picons/127.0.0.1"_s; }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<FakeBox> m_box;
    std::unique_ptr<Store> m_store;
    std::unique_ptr<Picons> m_picons;
    QString m_corpusPicons;
};

void PiconsTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    const QString corpus = TestSupport::corpusDir();
    if (corpus.isEmpty())
        QSKIP("the corpus picons are missing");
    m_corpusPicons = corpus + u"/picons/srp-grey-border-100x60/picons"_s;
}

void PiconsTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    // Each test starts with an empty data folder: no cache, no extraction folders.
    QDir(Paths::dataDir()).removeRecursively();
}

void PiconsTest::cleanup()
{
    m_picons.reset();
    m_store.reset();
    m_box.reset();
}

void PiconsTest::startBox(const QList<TestService> &services)
{
    m_box = std::make_unique<FakeBox>();
    QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
    m_store = std::make_unique<Store>();
    m_store->setSettings(SyncFixture::settingsFor(*m_box));
    m_picons = std::make_unique<Picons>(*m_store);

    const QString list = m_dir->filePath(u"list"_s);
    QVERIFY(TestSupport::writeFile(list + u"/lamedb"_s, lamedb(services)));
    QSignalSpy reloaded(m_picons.get(), &Picons::piconsChanged);
    m_store->load(list);
    QCOMPARE(m_store->services().size(), services.size());
    QCOMPARE(reloaded.size(), 1);
}

void PiconsTest::putOnBox(const QString &boxPath, const QByteArray &bytes)
{
    QVERIFY(TestSupport::writeFile(m_box->path(boxPath), bytes));
}

QByteArray PiconsTest::corpusPicon(const QString &name) const
{
    return TestSupport::readFile(m_corpusPicons + u'/' + name);
}

void PiconsTest::candidates()
{
    Store store;
    Picons picons(store);
    BoxSettings settings = store.settings();
    const QStringList defaults{u"/usr/share/enigma2/picon/"_s, u"/media/hdd/picon/"_s,   u"/media/usb/picon/"_s,
                               u"/media/mmc/picon/"_s,         u"/media/sdcard/picon/"_s, u"/picon/"_s,
                               u"/data/picon/"_s,              u"/usr/share/enigma2/XPicons/picon/"_s};
    const QList<QPair<QString, QStringList>> cases{
        {QString(), defaults},
        {u" \t "_s, defaults},
        {u"media/hdd/picon"_s, {u"/media/hdd/picon/"_s}},
        {u" /picon "_s, {u"/picon/"_s}},
        {u"/"_s, {u"/"_s}},
    };
    for (const auto &[directory, expected] : cases) {
        settings.piconDirectory = directory;
        store.setSettings(settings);
        QCOMPARE(picons.piconCandidates(), expected);
    }
}

void PiconsTest::discovery()
{
    startBox();
    BusyTrail trail(*m_store);
    putOnBox(u"/media/hdd/picon/"_s + pngA, corpusPicon(pngA));
    putOnBox(u"/usr/share/enigma2/picon/readme.txt"_s, "no pictures here");
    putOnBox(u"/media/usb/picon/LOGO.PNG"_s, corpusPicon(pngC));

    // The settings' folder is the only candidate, however it is typed.
    BoxSettings settings = m_store->settings();
    settings.piconDirectory = u"media/hdd/picon"_s;
    m_store->setSettings(settings);
    Search result = search(*m_picons, m_picons->piconCandidates(), false);
    QCOMPARE(result.found, (PiconDirectory{u"/media/hdd/picon/"_s, {pngA}}));
    QCOMPARE(trail.labels(), QStringList{u"Suche Picons in /media/hdd/picon/…"_s});

    // Blanks count as no setting: the default candidates are searched in order, a folder without
    // picons is passed over, and a folder holding only LOGO.PNG counts.
    QVERIFY(QFile::remove(m_box->path(u"/media/hdd/picon/"_s + pngA)));
    settings.piconDirectory = u"   "_s;
    m_store->setSettings(settings);
    for (const bool forUpload : {false, true}) {
        const qsizetype before = trail.labels().size();
        result = search(*m_picons, m_picons->piconCandidates(), forUpload);
        QCOMPARE(result.found, (PiconDirectory{u"/media/usb/picon/"_s, {u"LOGO.PNG"_s}}));
        QCOMPARE(trail.labels().mid(before),
                 (QStringList{u"Suche Picons in /usr/share/enigma2/picon/…"_s, u"Suche Picons in /media/hdd/picon/…"_s,
                              u"Suche Picons in /media/usb/picon/…"_s}));
    }

    // For the upload, the first folder that could be listed serves when none holds a picon, and
    // the first candidate when none could be listed at all.
    result = search(*m_picons, {u"/missing/"_s, u"/media/hdd/picon/"_s, boxPicons}, true);
    QCOMPARE(result.found, (PiconDirectory{u"/media/hdd/picon/"_s, {}}));
    result = search(*m_picons, {u"/missing/"_s, u"/gone/"_s}, true);
    QCOMPARE(result.found, (PiconDirectory{u"/missing/"_s, {}}));
}

void PiconsTest::discoveryFailures()
{
    startBox();
    putOnBox(u"/usr/share/enigma2/picon/readme.txt"_s, "no pictures here");
    const QString expected = u"Keine Picons auf der Box gefunden. Geprüft: /usr/share/enigma2/picon/, "
                             "/media/hdd/picon/, /media/usb/picon/, /media/mmc/picon/, /media/sdcard/picon/, "
                             "/picon/, /data/picon/, /usr/share/enigma2/XPicons/picon/. "
                             "Das Verzeichnis kannst du in den Einstellungen angeben."_s;
    Search result = search(*m_picons, m_picons->piconCandidates(), false);
    QCOMPARE(result.found, std::nullopt);
    QCOMPARE(result.description, expected);
    QCOMPARE(result.domain, u"Corvandel"_s);
    QCOMPARE(result.code, 3);
    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(m_store->errorMessage().value_or(QString()), expected);
    QVERIFY(!m_store->busy());

    // A box that cannot be reached is reported as such after the first folder, not as a box
    // without picons after all eight.
    m_box.reset();
    BusyTrail trail(*m_store);
    result = search(*m_picons, m_picons->piconCandidates(), true);
    QCOMPARE(result.found, std::nullopt);
    QVERIFY2(result.description.startsWith(u"FTP-Fehler: "_s), qPrintable(result.description));
    QCOMPARE(trail.labels().size(), 1);
}

void PiconsTest::downloadTwice()
{
    startBox();
    putOnBox(boxPicons + pngA, corpusPicon(pngA));
    putOnBox(boxPicons + pngC, corpusPicon(pngC));
    // D is a type-0x19 service whose picon the box keeps under the type-1 name.
    putOnBox(boxPicons + pngD, corpusPicon(u"1_0_19_EF10_421_1_C00000_0_0_0.png"_s));
    putOnBox(boxPicons + pngX, corpusPicon(pngX));
    putOnBox(boxPicons + pngY, corpusPicon(pngY));
    BusyTrail trail(*m_store);
    QSignalSpy changed(m_picons.get(), &Picons::piconsChanged);

    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(m_store->errorMessage(), std::nullopt);
    QCOMPARE(m_store->status(),
             u"Picons aus /usr/share/enigma2/picon/: 3 neu geladen, 0 vorhanden (5 Dateien auf der Box)."_s);
    QCOMPARE(trail.labels().first(), u"Suche Picons auf der Box…"_s);
    QCOMPARE(labelsStartingWith(trail, u"Lade Picons"_s), QStringList{u"Lade Picons 3/3…"_s});
    QCOMPARE(entries(cacheFolder()), sorted({pngA, pngC, pngD}));
    QCOMPARE(TestSupport::readFile(cacheFolder() + u'/' + pngA), corpusPicon(pngA));
    QCOMPARE(m_store->piconCount(), 3);
    QCOMPARE(m_store->piconNames(), (QSet<QString>{pngA, pngC, pngD}));
    QCOMPARE(changed.size(), 1);

    // Images come from the cache folder, through the type-1 name when needed.
    const QList<Service> &services = m_store->services();
    auto serviceNamed = [&services](const QString &name) {
        return *std::find_if(services.cbegin(), services.cend(), [&name](const Service &s) { return s.name == name; });
    };
    const std::optional<QImage> a = m_picons->picon(serviceNamed(u"A"_s));
    QVERIFY(a);
    QCOMPARE(*a, QImage(m_corpusPicons + u'/' + pngA));
    QCOMPARE(a->size(), QSize(100, 60));
    const std::optional<QImage> d = m_picons->picon(serviceNamed(u"D"_s));
    QVERIFY(d);
    QCOMPARE(*d, QImage(m_corpusPicons + u"/1_0_19_EF10_421_1_C00000_0_0_0.png"_s));
    QCOMPARE(m_picons->picon(serviceNamed(u"B"_s)), std::nullopt);
    // A stream reference carries its URL after the tenth field.
    QVERIFY(m_picons->picon(u"1:0:1:445D:453:1:C00000:0:0:0:http%3a//example.org/tv:C"_s));
    QCOMPARE(m_picons->picon(u"1:0:1:445D:453:1:C00000:0:0"_s), std::nullopt);
    // Once loaded, an image is served from memory.
    QVERIFY(QFile::remove(cacheFolder() + u'/' + pngA));
    QCOMPARE(m_picons->picon(serviceNamed(u"A"_s)), a);

    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(m_store->status(),
             u"Picons aus /usr/share/enigma2/picon/: 1 neu geladen, 2 vorhanden (5 Dateien auf der Box)."_s);
    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(m_store->status(),
             u"Picons aus /usr/share/enigma2/picon/: 0 neu geladen, 3 vorhanden (5 Dateien auf der Box)."_s);
    QCOMPARE(labelsStartingWith(trail, u"Lade Picons"_s), (QStringList{u"Lade Picons 3/3…"_s, u"Lade Picons 1/1…"_s}));
    QCOMPARE(entries(cacheFolder()), sorted({pngA, pngC, pngD}));
}

void PiconsTest::downloadInBatches()
{
    QList<TestService> many;
    for (quint32 sid = 1; sid <= 206; ++sid)
        many.append({sid, 1, 1, 0xC00000, 1, "S" + QByteArray::number(sid)});
    startBox(many);
    const QByteArray png = corpusPicon(pngC);
    // The box has two picons more than the list needs, and lacks the one of service 100.
    for (quint32 sid = 1; sid <= 208; ++sid) {
        if (sid != 100)
            putOnBox(boxPicons + u"1_0_1_%1_1_1_C00000_0_0_0.png"_s.arg(QString::number(sid, 16).toUpper()), png);
    }
    BusyTrail trail(*m_store);

    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(m_store->errorMessage(), std::nullopt);
    QCOMPARE(labelsStartingWith(trail, u"Lade Picons"_s),
             (QStringList{u"Lade Picons 200/205…"_s, u"Lade Picons 205/205…"_s}));
    QCOMPARE(m_store->piconCount(), 205);
    QCOMPARE(m_store->status(),
             u"Picons aus /usr/share/enigma2/picon/: 205 neu geladen, 0 vorhanden (207 Dateien auf der Box)."_s);
    QVERIFY(!QFileInfo::exists(cacheFolder() + u"/1_0_1_64_1_1_C00000_0_0_0.png"_s));
    QVERIFY(!QFileInfo::exists(cacheFolder() + u"/1_0_1_CF_1_1_C00000_0_0_0.png"_s));
    QCOMPARE(TestSupport::readFile(cacheFolder() + u"/1_0_1_CE_1_1_C00000_0_0_0.png"_s), png);
}

void PiconsTest::downloadNeedsList()
{
    Store store;
    Picons picons(store);
    BusyTrail trail(store);
    QCoro::waitFor(picons.downloadPicons());
    QCOMPARE(store.errorMessage().value_or(QString()),
             u"Bitte zuerst eine Senderliste laden – Picons werden passend zu den Sendern geladen."_s);
    QVERIFY(trail.labels().isEmpty());
}

void PiconsTest::indexFollowsBox()
{
    startBox();
    putOnBox(boxPicons + pngA, corpusPicon(pngA));
    QCoro::waitFor(m_picons->downloadPicons());
    QCOMPARE(m_store->piconCount(), 1);

    // Another host has a cache of its own.
    QSignalSpy changed(m_picons.get(), &Picons::piconsChanged);
    BoxSettings settings = m_store->settings();
    const QString ownHost = settings.host;
    settings.host = u"192.0.2.7"_s;
    m_store->setSettings(settings);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_store->piconCount(), 0);
    QCOMPARE(m_picons->picon(u"1:0:19:283D:3FB:1:C00000:0:0:0:"_s), std::nullopt);

    settings.host = ownHost;
    m_store->setSettings(settings);
    QCOMPARE(m_store->piconCount(), 1);
    QVERIFY(m_picons->picon(u"1:0:19:283D:3FB:1:C00000:0:0:0:"_s));

    // Files that appear in the cache are seen by the next reload, with the folder load.
    QVERIFY(TestSupport::writeFile(cacheFolder() + u'/' + pngC, corpusPicon(pngC)));
    QVERIFY(TestSupport::writeFile(cacheFolder() + u"/notes.txt"_s, "x"));
    m_store->load(m_dir->filePath(u"list"_s));
    QCOMPARE(m_store->piconNames(), (QSet<QString>{pngA, pngC}));
}

void PiconsTest::uploadChoices()
{
    startBox();
    putOnBox(boxPicons + pngB, "OLD");
    putOnBox(boxPicons + pngY, corpusPicon(pngY));
    // A package with A and B (both of the list), C under a lower-case name and X (not of the list).
    const QString package = m_dir->filePath(u"Picons Test.zip"_s);
    QVERIFY(write(package, Format::zip,
                  {file("picon/" + pngA.toUtf8(), corpusPicon(pngA)), file("picon/" + pngB.toUtf8(), corpusPicon(pngB)),
                   file("picon/" + pngC.toLower().toUtf8(), corpusPicon(pngC)),
                   file("picon/" + pngX.toUtf8(), corpusPicon(pngX))}));
    const QString extraction = Paths::dataDir() + u"/Picon-Pakete/Picons Test"_s;
    QSignalSpy planChanged(m_picons.get(), &Picons::piconUploadPlanChanged);
    BusyTrail trail(*m_store);

    QCoro::waitFor(m_picons->preparePiconUpload(package));
    QCOMPARE(m_store->errorMessage(), std::nullopt);
    QVERIFY(m_picons->piconUploadPlan());
    QCOMPARE(planChanged.size(), 1);
    PiconUploadPlan plan = *m_picons->piconUploadPlan();
    QCOMPARE(plan.directory, boxPicons);
    QCOMPARE(plan.existing, (QSet<QString>{pngB, pngY}));
    QCOMPARE(plan.matching, (QSet<QString>{pngA, pngB, pngC}));
    QCOMPARE(plan.package.source, package);
    QCOMPARE(plan.package.root, extraction);
    QVERIFY(!plan.uploadAll);
    QVERIFY(!plan.overwrite);
    QCOMPARE(plan.count(false, false), 2);
    QCOMPARE(plan.count(false, true), 3);
    QCOMPARE(plan.count(true, false), 3);
    QCOMPARE(plan.count(true, true), 4);
    QCOMPARE(m_store->status(), u"Picon-Paket „Picons Test.zip“: 4 Picons, 3 passend zur Liste, Ziel /usr/share/enigma2/picon/."_s);
    QCOMPARE(trail.labels().first(), u"Öffne Picon-Paket…"_s);

    // Only the missing matching ones.
    QCoro::waitFor(m_picons->uploadPicons());
    QCOMPARE(m_store->errorMessage(), std::nullopt);
    QCOMPARE(m_store->status(), u"2 Picons nach /usr/share/enigma2/picon/ hochgeladen."_s);
    QCOMPARE(labelsStartingWith(trail, u"Lade Picons hoch"_s), (QStringList{u"Lade Picons hoch…"_s, u"Lade Picons hoch 2/2…"_s}));
    QCOMPARE(entries(m_box->path(boxPicons)), sorted({pngA, pngB, pngC, pngY}));
    QCOMPARE(TestSupport::readFile(m_box->path(boxPicons + pngC)), corpusPicon(pngC));
    QCOMPARE(TestSupport::readFile(m_box->path(boxPicons + pngB)), QByteArray("OLD"));
    QCOMPARE(entries(cacheFolder()), sorted({pngA, pngC}));
    QCOMPARE(m_store->piconCount(), 2);
    QVERIFY(!m_picons->piconUploadPlan());
    QVERIFY(!QFileInfo::exists(extraction));
    QVERIFY(QFileInfo::exists(package));

    // With overwrite: B is replaced, X still stays home.
    QCoro::waitFor(m_picons->preparePiconUpload(package));
    QCOMPARE(m_picons->piconUploadPlan()->existing, (QSet<QString>{pngA, pngB, pngC, pngY}));
    planChanged.clear();
    m_picons->setOverwrite(true);
    m_picons->setOverwrite(true);
    QCOMPARE(planChanged.size(), 1);
    QCOMPARE(m_picons->piconUploadPlan()->files().size(), 3);
    QCoro::waitFor(m_picons->uploadPicons());
    QCOMPARE(m_store->status(), u"3 Picons nach /usr/share/enigma2/picon/ hochgeladen."_s);
    QCOMPARE(TestSupport::readFile(m_box->path(boxPicons + pngB)), corpusPicon(pngB));
    QCOMPARE(entries(m_box->path(boxPicons)), sorted({pngA, pngB, pngC, pngY}));
    QCOMPARE(entries(cacheFolder()), sorted({pngA, pngB, pngC}));

    // Everything in the package, without overwriting: only X is new.
    QCoro::waitFor(m_picons->preparePiconUpload(package));
    m_picons->setUploadAll(true);
    plan = *m_picons->piconUploadPlan();
    QCOMPARE(plan.files(), (QList<PiconFile>{{extraction + u"/picon/"_s + pngX, pngX}}));
    QCoro::waitFor(m_picons->uploadPicons());
    QCOMPARE(m_store->status(), u"1 Picons nach /usr/share/enigma2/picon/ hochgeladen."_s);
    QCOMPARE(entries(m_box->path(boxPicons)), sorted({pngA, pngB, pngC, pngX, pngY}));
    QCOMPARE(TestSupport::readFile(m_box->path(boxPicons + pngX)), corpusPicon(pngX));
    QCOMPARE(m_store->piconCount(), 4);
    QVERIFY(!QFileInfo::exists(extraction));
}

void PiconsTest::uploadToEmptyBox()
{
    // No picon folder anywhere: the first candidate is created by the upload.
    startBox();
    const QString ipk = m_dir->filePath(u"enigma2-picons_1.0_all.ipk"_s);
    QVERIFY(writeIpk(ipk, {file("usr/share/enigma2/picon/" + pngA.toUtf8(), corpusPicon(pngA))}));
    QCoro::waitFor(m_picons->preparePiconUpload(ipk));
    QCOMPARE(m_store->errorMessage(), std::nullopt);
    QCOMPARE(m_picons->piconUploadPlan()->directory, boxPicons);
    QCoro::waitFor(m_picons->uploadPicons());
    QCOMPARE(m_store->errorMessage(), std::nullopt);
    QCOMPARE(entries(m_box->path(boxPicons)), QStringList{pngA});
    QCOMPARE(TestSupport::readFile(m_box->path(boxPicons + pngA)), corpusPicon(pngA));
}

void PiconsTest::packageWithoutPicons()
{
    startBox();
    const QString package = m_dir->filePath(u"leer.zip"_s);
    QVERIFY(write(package, Format::zip, {file("logo.png", corpusPicon(pngA))}));
    QCoro::waitFor(m_picons->preparePiconUpload(package));
    QCOMPARE(m_store->errorMessage().value_or(QString()),
             u"In „leer.zip“ wurden keine Picons mit Service-Referenz-Namen (1_0_…png) gefunden."_s);
    QVERIFY(!m_picons->piconUploadPlan());
    QVERIFY(!QFileInfo::exists(Paths::dataDir() + u"/Picon-Pakete/leer"_s));

    // A picked folder without picons is reported by its own name and stays.
    const QString folder = m_dir->filePath(u"Ordner"_s);
    QVERIFY(TestSupport::writeFile(folder + u"/logo.png"_s, "x"));
    m_store->setErrorMessage(std::nullopt);
    QCoro::waitFor(m_picons->preparePiconUpload(folder + u'/'));
    QCOMPARE(m_store->errorMessage().value_or(QString()),
             u"In „Ordner“ wurden keine Picons mit Service-Referenz-Namen (1_0_…png) gefunden."_s);
    QVERIFY(QFileInfo::exists(folder + u"/logo.png"_s));
}

void PiconsTest::damagedPackageAndCancel()
{
    startBox();
    const QString broken = m_dir->filePath(u"kaputt.tar.gz"_s);
    QVERIFY(TestSupport::writeFile(broken, "\x1f\x8b\x08 this is no gzip stream"));
    QCoro::waitFor(m_picons->preparePiconUpload(broken));
    QVERIFY2(m_store->errorMessage().value_or(QString()).startsWith(u"Das Paket konnte nicht entpackt werden: "_s),
             qPrintable(m_store->errorMessage().value_or(QString())));
    QVERIFY(!m_picons->piconUploadPlan());
    QVERIFY(!m_store->busy());

    // Cancelling a plan removes its extraction folder; opening another package replaces it.
    const QString first = m_dir->filePath(u"eins.tar.xz"_s);
    const QString second = m_dir->filePath(u"zwei.7z"_s);
    QVERIFY(write(first, Format::tarXz, {file(pngA.toUtf8(), corpusPicon(pngA))}));
    QVERIFY(write(second, Format::sevenZip, {file(pngC.toUtf8(), corpusPicon(pngC))}));
    m_store->setErrorMessage(std::nullopt);
    QCoro::waitFor(m_picons->preparePiconUpload(first));
    QCOMPARE(m_store->errorMessage(), std::nullopt);
    QVERIFY(QFileInfo::exists(Paths::dataDir() + u"/Picon-Pakete/eins"_s));
    QCoro::waitFor(m_picons->preparePiconUpload(second));
    QVERIFY(!QFileInfo::exists(Paths::dataDir() + u"/Picon-Pakete/eins"_s));
    QCOMPARE(m_picons->piconUploadPlan()->matching, QSet<QString>{pngC});

    QSignalSpy planChanged(m_picons.get(), &Picons::piconUploadPlanChanged);
    m_picons->cancelPiconUpload();
    QCOMPARE(planChanged.size(), 1);
    QVERIFY(!m_picons->piconUploadPlan());
    QVERIFY(!QFileInfo::exists(Paths::dataDir() + u"/Picon-Pakete/zwei"_s));
    // Nothing was sent.
    QVERIFY(!QFileInfo::exists(m_box->path(boxPicons)));
}

QTEST_GUILESS_MAIN(PiconsTest)
#include "PiconsTest.moc"
