#include "Backups.h"
#include "FTPClient.h"
#include "Paths.h"
#include "Store.h"
#include "SyncFixture.h"
#include "TestSupport.h"

#include <QDesktopServices>
#include <QDir>
#include <QLocale>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace SyncFixture;

// The local backups of a box: names, labels, the list, pruning, restoring, the file manager.
class BackupsTest : public QObject
{
    Q_OBJECT

public slots:
    // Stands in for the file manager.
    void openFolder(const QUrl &url) { m_opened << url; }

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void backupNames_data();
    void backupNames();
    void labels_data();
    void labels();
    void listNewestFirst();
    void backupNowPrunesToThirty();
    void backupsInOneSecond();
    void emptyBoxMakesNoBackup();
    void restore();
    void failedRestoreKeepsWorkFolder();
    void showBackupsInFileManager();

private:
    QString backupRoot() const { return Paths::dataDir() + u"/Sicherungen/127.0.0.1"_s; }
    static BoxSettings localSettings();

    QList<QUrl> m_opened;
};

void BackupsTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    QDesktopServices::setUrlHandler(u"file"_s, this, "openFolder");
}

void BackupsTest::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(u"file"_s);
}

void BackupsTest::init()
{
    QDir(Paths::dataDir()).removeRecursively();
    QLocale::setDefault(QLocale::c());
}

BoxSettings BackupsTest::localSettings()
{
    BoxSettings settings;
    settings.host = u"127.0.0.1"_s;
    return settings;
}

void BackupsTest::backupNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("valid");

    QTest::newRow("backup") << u"2024-03-01_08-05-09"_s << true;
    QTest::newRow("a time skipped by the clock change") << u"2024-03-31_02-30-00"_s << true;
    QTest::newRow("notes") << u"notes"_s << false;
    QTest::newRow("short month") << u"2024-3-01_08-05-09"_s << false;
    QTest::newRow("blank instead of underscore") << u"2024-03-01 08-05-09"_s << false;
    QTest::newRow("no such day") << u"2024-02-30_08-05-09"_s << false;
    QTest::newRow("trailing text") << u"2024-03-01_08-05-09x"_s << false;
    QTest::newRow("half-made backup") << u".2024-03-01_08-05-09.teil"_s << false;
}

void BackupsTest::backupNames()
{
    QFETCH(QString, name);
    QFETCH(bool, valid);
    QCOMPARE(Backups::backupTime(name).has_value(), valid);
}

void BackupsTest::labels_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("date");

    const QLocale german(QLocale::German, QLocale::Germany);
    QTest::newRow("German") << german << u"/data/Sicherungen/box/2024-03-01_08-05-09"_s << u"1. März 2024"_s;
    QTest::newRow("file URL") << german << u"file:///data/Sicherungen/box/2024-12-24_08-05-00/"_s
                              << u"24. Dez. 2024"_s;
    QTest::newRow("English") << QLocale(QLocale::English, QLocale::UnitedStates)
                             << u"/data/2024-03-01_08-05-09"_s << u"Mar 1, 2024"_s;
    QTest::newRow("no backup name") << german << u"/data/Sicherungen/box/notes"_s << QString();
}

void BackupsTest::labels()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, url);
    QFETCH(QString, date);

    QLocale::setDefault(locale);
    Store store;
    Backups backups(store);
    // The date abbreviated, the time short, without seconds.
    const QString expected = date.isEmpty() ? u"notes"_s
                                            : date + u", "_s + locale.toString(QTime(8, 5), QLocale::ShortFormat);
    QCOMPARE(backups.backupLabel(url), expected);
}

void BackupsTest::listNewestFirst()
{
    for (const QString &name : {u"2024-01-02_00-00-00"_s, u"2025-06-01_12-00-00"_s, u"2023-12-31_23-59-59"_s, u"notes"_s,
                                u".2026-02-01_00-00-00.teil"_s})
        QVERIFY(QDir().mkpath(backupRoot() + u'/' + name));
    QVERIFY(TestSupport::writeFile(backupRoot() + u"/2026-01-01_00-00-00"_s, "a file, not a backup"));
    Store store;
    store.setSettings(localSettings());
    Backups backups(store);
    QCOMPARE(store.backups(), QStringList({backupRoot() + u"/2025-06-01_12-00-00"_s,
                                           backupRoot() + u"/2024-01-02_00-00-00"_s,
                                           backupRoot() + u"/2023-12-31_23-59-59"_s}));

    // The list follows the box of the settings ...
    const QString other = Paths::dataDir() + u"/Sicherungen/other.invalid/2020-01-01_00-00-00"_s;
    QVERIFY(QDir().mkpath(other));
    BoxSettings settings = localSettings();
    settings.host = u"other.invalid"_s;
    store.setSettings(settings);
    QCOMPARE(store.backups(), QStringList{other});

    // ... and is read again whenever a list folder is opened.
    store.setSettings(localSettings());
    QVERIFY(QDir().mkpath(backupRoot() + u"/2027-01-01_00-00-00"_s));
    store.load(corpusFolder(u"mtcnl-ziggo-cable"_s));
    QCOMPARE(store.backups().size(), 4);
    QCOMPARE(store.backups().first(), backupRoot() + u"/2027-01-01_00-00-00"_s);
}

void BackupsTest::backupNowPrunesToThirty()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    copyToBox(box, source);
    const QDateTime start(QDate(2020, 1, 1), QTime(6, 0));
    for (int day = 0; day < Backups::limit; ++day) {
        const QString name = QLocale::c().toString(start.addDays(day), Backups::nameFormat);
        QVERIFY(TestSupport::writeFile(backupRoot() + u'/' + name + u"/lamedb"_s, "older\n"));
    }
    QVERIFY(QDir().mkpath(backupRoot() + u"/notes"_s));
    Store store;
    store.setSettings(settingsFor(box));
    Backups backups(store);
    QCOMPARE(store.backups().size(), Backups::limit);
    const QString oldest = store.backups().last();
    const QString secondOldest = store.backups().at(Backups::limit - 2);
    BusyTrail trail(store);

    QCoro::waitFor(backups.backupNow());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QCOMPARE(store.status(), u"Liste von 127.0.0.1 gesichert."_s);
    QCOMPARE(store.backups().size(), Backups::limit);
    QVERIFY(!QFileInfo::exists(oldest));
    QCOMPARE(store.backups().last(), secondOldest);
    QVERIFY(QFileInfo::exists(backupRoot() + u"/notes"_s));
    const QString newest = store.backups().first();
    const std::optional<QDateTime> made = Backups::backupTime(QFileInfo(newest).fileName());
    const QDateTime now = QDateTime::currentDateTime();
    QVERIFY(made && qAbs(made->secsTo(QDateTime(now.date(), now.time(), Qt::UTC))) < 60);
    QCOMPARE(entries(newest), listFileNames(source));
    QVERIFY(sameFiles(source, newest, listFileNames(source)));

    const QStringList labels = trail.labels();
    QCOMPARE(labels.first(), u"Sichere die Liste auf der Box…"_s);
    QCOMPARE(labels.last(), u"-"_s);
    std::optional<QStringList> saved = progress(labels, u"Sichere"_s);
    QVERIFY(saved);
    saved->sort();
    QCOMPARE(*saved, listFileNames(source));
}

void BackupsTest::backupsInOneSecond()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    copyToBox(box, corpusFolder(u"mtcnl-ziggo-cable"_s), {u"bouquets.tv"_s, u"userbouquet.dbe00.tv"_s});
    Store store;
    store.setSettings(settingsFor(box));
    Backups backups(store);
    const FTPClient ftp(settingsFor(box));

    const std::optional<QString> first = QCoro::waitFor(backups.backupBox(ftp));
    const std::optional<QString> second = QCoro::waitFor(backups.backupBox(ftp));
    QVERIFY(first && second);
    QVERIFY(*first != *second);
    QCOMPARE(store.backups(), QStringList({*second, *first}));
    for (const QString &backup : {*first, *second})
        QCOMPARE(entries(backup), QStringList({u"bouquets.tv"_s, u"userbouquet.dbe00.tv"_s}));
}

void BackupsTest::emptyBoxMakesNoBackup()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/settings"_s), "config.misc.firstrun=false\n"));
    Store store;
    store.setSettings(settingsFor(box));
    Backups backups(store);

    QCoro::waitFor(backups.backupNow());
    QCOMPARE(store.errorMessage(), std::nullopt);
    QCOMPARE(store.status(), u"Liste von 127.0.0.1 gesichert."_s);
    QVERIFY(store.backups().isEmpty());
    QVERIFY(!QFileInfo::exists(backupRoot()));
}

void BackupsTest::restore()
{
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    const QString backup = backupRoot() + u"/2024-03-01_08-05-09"_s;
    for (const QString &name : listFileNames(source))
        QVERIFY(TestSupport::writeFile(backup + u'/' + name, TestSupport::readFile(source + u'/' + name)));
    const QString workDir = Paths::dataDir() + u"/127.0.0.1"_s;
    QVERIFY(TestSupport::writeFile(workDir + u"/userbouquet.stale.tv"_s, "#NAME stale\n"));
    Store store;
    store.load(corpusFolder(u"horsti58-enigma2-settings/enigma2"_s));
    store.setSettings(localSettings());
    Backups backups(store);

    backups.restoreBackup(backup);
    QCOMPARE(store.errorMessage(), std::nullopt);
    QCOMPARE(store.folder(), workDir);
    QVERIFY(store.isDirty());
    QCOMPARE(store.status(), u"Sicherung vom "_s + backups.backupLabel(backup) +
                                 u" geladen – mit „Senden“ auf die Box zurückspielen."_s);
    QCOMPARE(entries(workDir), listFileNames(source));
    QVERIFY(sameFiles(source, workDir, listFileNames(source)));
    Store reference;
    reference.load(source);
    QCOMPARE(store.services().size(), reference.services().size());
    QCOMPARE(store.backups(), QStringList{backup});
    QCOMPARE(entries(Paths::dataDir()), QStringList({u"127.0.0.1"_s, u"Sicherungen"_s}));
}

void BackupsTest::failedRestoreKeepsWorkFolder()
{
    const QString source = corpusFolder(u"mtcnl-ziggo-cable"_s);
    const QString workDir = Paths::dataDir() + u"/127.0.0.1"_s;
    for (const QString &name : listFileNames(source))
        QVERIFY(TestSupport::writeFile(workDir + u'/' + name, TestSupport::readFile(source + u'/' + name)));
    const QString backup = backupRoot() + u"/2024-03-01_08-05-09"_s;
    QVERIFY(TestSupport::writeFile(backup + u"/bouquets.tv"_s, "#NAME Bouquets (TV)\n"));
    Store store;
    store.setSettings(localSettings());
    store.load(workDir);
    const qsizetype services = store.services().size();
    const QString status = store.status();
    Backups backups(store);

    backups.restoreBackup(backup);
    QCOMPARE(store.errorMessage(), std::optional<QString>(u"Im Ordner liegt weder lamedb noch lamedb5."_s));
    store.setErrorMessage(std::nullopt);
    backups.restoreBackup(backupRoot() + u"/2024-03-01_08-05-10"_s);
    QVERIFY(store.errorMessage().has_value());

    QCOMPARE(store.status(), status);
    QVERIFY(!store.isDirty());
    QCOMPARE(store.services().size(), services);
    QCOMPARE(entries(workDir), listFileNames(source));
    QVERIFY(sameFiles(source, workDir, listFileNames(source)));
    QCOMPARE(entries(Paths::dataDir()), QStringList({u"127.0.0.1"_s, u"Sicherungen"_s}));
}

void BackupsTest::showBackupsInFileManager()
{
    Store store;
    store.setSettings(localSettings());
    Backups backups(store);
    m_opened.clear();
    backups.showBackupsInFinder();
    QVERIFY(QFileInfo(backupRoot()).isDir());
    QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(backupRoot())});
}

QTEST_GUILESS_MAIN(BackupsTest)
#include "BackupsTest.moc"
