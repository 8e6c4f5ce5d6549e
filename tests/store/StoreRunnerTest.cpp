#include "BoxLog.h"
#include "Error.h"
#include "Paths.h"
#include "Store.h"
#include "TestSupport.h"

#include <QCoro/QCoroTimer>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <chrono>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QStringList logLines()
{
    BoxLog::shared().flush();
    return QString::fromUtf8(TestSupport::readFile(BoxLog::shared().filePath()))
        .split(u'\n', Qt::SkipEmptyParts);
}

void setHost(Store &store, const QString &host)
{
    BoxSettings settings = store.settings();
    settings.host = host;
    store.setSettings(settings);
}

void touch(const QString &path, const QByteArray &bytes = "x")
{
    TestSupport::writeFile(path, bytes);
}

} // namespace

// The operation runner with its log lines, and the per-box folders.
class StoreRunnerTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void performLogsSuccess_data();
    void performLogsSuccess();
    void performReportsFailures_data();
    void performReportsFailures();
    void boxFolderName_data();
    void boxFolderName();
    void mergeFolders();
    void hostNamesMergeIntoTheirAddress();
    void label();
};

void StoreRunnerTest::initTestCase()
{
    TestSupport::isolateUserFolders();
}

void StoreRunnerTest::performLogsSuccess_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("logged");
    QTest::newRow("ellipsis") << u"Teste Verbindung…"_s << u"Teste Verbindung"_s;
    QTest::newRow("no ellipsis") << u"Teste Verbindung"_s << u"Teste Verbindung"_s;
    QTest::newRow("dots and blanks") << u" …Speichere... "_s << u"Speichere"_s;
}

void StoreRunnerTest::performLogsSuccess()
{
    QFETCH(QString, label);
    QFETCH(QString, logged);
    Store store;
    setHost(store, u"192.168.0.10"_s);
    QSignalSpy finished(&store, &Store::operationFinished);
    QSignalSpy busy(&store, &Store::busyChanged);
    const qsizetype before = logLines().size();

    std::optional<QString> busyInside;
    QCoro::Task<> task = store.perform(label, [&]() -> QCoro::Task<> {
        busyInside = store.busy();
        co_await QCoro::sleepFor(20ms);
        store.setStatus(u"Alles gut"_s);
    });
    // perform returns while the operation waits.
    QCOMPARE(store.busy(), std::optional<QString>(label));
    QCOMPARE(finished.count(), 0);
    QCoro::waitFor(task);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(busyInside, std::optional<QString>(label));
    QCOMPARE(store.busy(), std::nullopt);
    QCOMPARE(busy.count(), 2);
    QVERIFY(!store.errorMessage());

    const QStringList lines = logLines().mid(before);
    QCOMPARE(lines.size(), 2);
    const QRegularExpression start(u"^\\d\\d:\\d\\d:\\d\\d  >>>  Aufgabe    "_s +
                                   QRegularExpression::escape(logged + u" – Box 192.168.0.10"_s) + u'$');
    QVERIFY2(start.match(lines.at(0)).hasMatch(), qPrintable(lines.at(0)));
    const QRegularExpression end(u"^\\d\\d:\\d\\d:\\d\\d  OK   Aufgabe    "_s +
                                 QRegularExpression::escape(logged) +
                                 u": fertig in \\d+\\.\\d\\d s – Alles gut$"_s);
    QVERIFY2(end.match(lines.at(1)).hasMatch(), qPrintable(lines.at(1)));
}

void StoreRunnerTest::performReportsFailures_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("description");
    QTest::newRow("error of the program") << 0 << u"Keine Verbindung zur Box."_s;
    QTest::newRow("standard exception") << 1 << u"kaputt"_s;
    QTest::newRow("thrown before the first wait") << 2 << u"sofort kaputt"_s;
}

void StoreRunnerTest::performReportsFailures()
{
    QFETCH(int, kind);
    QFETCH(QString, description);
    Store store;
    setHost(store, u"box.local"_s);
    store.setStatus(u"Vorher"_s);
    const qsizetype before = logLines().size();
    QCoro::Task<> task = store.perform(u"Lade von der Box…"_s, [&]() -> QCoro::Task<> {
        if (kind == 2) throw MessageError(description);
        store.setStatus(u"Halb fertig"_s);
        co_await QCoro::sleepFor(30ms);
        if (kind == 0) throw MessageError(description, u"Corvandel"_s, 2);
        throw std::runtime_error("kaputt");
    });
    QCoro::waitFor(task);
    QCOMPARE(store.errorMessage(), std::optional<QString>(description));
    QCOMPARE(store.busy(), std::nullopt);
    // The status keeps what the operation last put there.
    QCOMPARE(store.status(), kind == 2 ? u"Vorher"_s : u"Halb fertig"_s);

    const QStringList lines = logLines().mid(before);
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(0).endsWith(u"  >>>  Aufgabe    Lade von der Box – Box box.local"_s));
    const QRegularExpression failed(
        u"^\\d\\d:\\d\\d:\\d\\d  ERR  Aufgabe    Lade von der Box: abgebrochen nach "
        u"\\d+\\.\\d\\d s – "_s +
        QRegularExpression::escape(description) + u'$');
    QVERIFY2(failed.match(lines.at(1)).hasMatch(), qPrintable(lines.at(1)));
}

void StoreRunnerTest::boxFolderName_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("remembered");
    QTest::newRow("no host") << QString() << u"box"_s << false;
    QTest::newRow("blanks only") << u"  "_s << u"box"_s << false;
    QTest::newRow("address with blanks") << u" 127.0.0.1 "_s << u"127.0.0.1"_s << true;
    QTest::newRow("unresolvable with slashes") << u"box/with/slash"_s << u"box_with_slash"_s << false;
    QTest::newRow("unresolvable dots") << u".."_s << u"__"_s << false;
    QTest::newRow("hidden name") << u".teil"_s << u"_teil"_s << false;
    QTest::newRow("the picon cache's name") << u"Picons"_s << u"_Picons"_s << false;
    QTest::newRow("the backups' name") << u"Sicherungen"_s << u"_Sicherungen"_s << false;
    QTest::newRow("the password file's name") << u"passwords.json"_s << u"_passwords.json"_s << false;
}

void StoreRunnerTest::boxFolderName()
{
    QFETCH(QString, host);
    QFETCH(QString, expected);
    QFETCH(bool, remembered);
    Store store;
    setHost(store, host);
    QCOMPARE(store.boxFolderName(), expected);
    QCOMPARE(store.resolvedHosts().contains(host.trimmed()), remembered);
    QCOMPARE(store.workDir(), Paths::dataDir() + u'/' + expected);
    QVERIFY(QFileInfo(store.workDir()).absolutePath() == QDir::cleanPath(Paths::dataDir()));
}

void StoreRunnerTest::mergeFolders()
{
    const QString data = Paths::dataDir();
    touch(data + u"/old/lamedb"_s, "old lamedb");
    touch(data + u"/old/bouquets.tv"_s, "old index");
    touch(data + u"/new/lamedb"_s, "new lamedb");
    touch(data + u"/Picons/old/a.png"_s);
    touch(data + u"/Picons/old/.hidden"_s);
    touch(data + u"/Sicherungen/old/2024-03-01_08-05-09/lamedb"_s, "backup");
    const qsizetype before = logLines().size();

    Store::mergeFolders(u"old"_s, u"new"_s);
    // Existing entries win; the source keeps what could not move.
    QCOMPARE(TestSupport::readFile(data + u"/new/lamedb"_s), QByteArray("new lamedb"));
    QCOMPARE(TestSupport::readFile(data + u"/new/bouquets.tv"_s), QByteArray("old index"));
    QCOMPARE(QDir(data + u"/old"_s).entryList(QDir::Files), QStringList{u"lamedb"_s});
    QVERIFY(QFileInfo::exists(data + u"/Picons/new/a.png"_s));
    QVERIFY(QFileInfo::exists(data + u"/Picons/new/.hidden"_s));
    QVERIFY(!QFileInfo::exists(data + u"/Picons/old"_s));
    QCOMPARE(TestSupport::readFile(data + u"/Sicherungen/new/2024-03-01_08-05-09/lamedb"_s),
             QByteArray("backup"));
    QVERIFY(!QFileInfo::exists(data + u"/Sicherungen/old"_s));

    const QStringList lines = logLines().mid(before);
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).endsWith(u"       Ordner     Daten von „old“ nach „new“ übernommen"_s));
    QVERIFY(lines.at(1).endsWith(u"Daten von „Picons/old“ nach „Picons/new“ übernommen"_s));
    QVERIFY(lines.at(2).endsWith(u"Daten von „Sicherungen/old“ nach „Sicherungen/new“ übernommen"_s));

    // Nothing to merge: no log line. Names that leave the data folder are refused.
    touch(data + u"/../outside/file"_s);
    Store::mergeFolders(u"absent"_s, u"new"_s);
    Store::mergeFolders(u".."_s, u"new"_s);
    Store::mergeFolders(u"../outside"_s, u"new"_s);
    QCOMPARE(logLines().size(), before + 3);
    QVERIFY(QFileInfo::exists(data + u"/../outside/file"_s));
}

void StoreRunnerTest::hostNamesMergeIntoTheirAddress()
{
    if (Store::ipv4(u"localhost"_s) != std::optional<QString>(u"127.0.0.1"_s))
        QSKIP("localhost does not resolve to 127.0.0.1 here");
    const QString data = Paths::dataDir();
    touch(data + u"/localhost/lamedb5"_s, "from the name");
    touch(data + u"/Picons/localhost/p.png"_s);
    Store store;
    setHost(store, u" localhost"_s);
    QCOMPARE(store.boxFolderName(), u"127.0.0.1"_s);
    QCOMPARE(store.resolvedHosts().value(u"localhost"_s), u"127.0.0.1"_s);
    QCOMPARE(TestSupport::readFile(data + u"/127.0.0.1/lamedb5"_s), QByteArray("from the name"));
    QVERIFY(QFileInfo::exists(data + u"/Picons/127.0.0.1/p.png"_s));
    QVERIFY(!QFileInfo::exists(data + u"/localhost"_s));

    // Once per session: a folder made under the name later stays where it is.
    touch(data + u"/localhost/later"_s);
    QCOMPARE(store.workDir(), data + u"/127.0.0.1"_s);
    QVERIFY(QFileInfo::exists(data + u"/localhost/later"_s));
    QCOMPARE(Store::ipv4(u"box/with/slash"_s), std::nullopt);
}

void StoreRunnerTest::label()
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

QTEST_GUILESS_MAIN(StoreRunnerTest)
#include "StoreRunnerTest.moc"
