#include "BoxLog.h"
#include "Paths.h"
#include "TestSupport.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>
#include <memory>
#include <thread>

using namespace Qt::StringLiterals;

class BoxLogTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void entryLine_data();
    void entryLine();
    void curlHint_data();
    void curlHint();
    void freshInstall();
    void dayHeaderAfterMidnight();
    void restartKeepsDay();
    void dayIsRecoveredFromTailOnly();
    void rotation_data();
    void rotation();
    void tail();
    void clear();
    void callOrderAcrossThreads();
    void changedArrivesOnOwnThread();
    void unwritableFolder();
    void sharedLogLivesInStateFolder();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    // The injected clock: tests move it.
    std::shared_ptr<QDateTime> m_now;
    std::unique_ptr<BoxLog> makeLog(const QString &folder = {});
    QString logText() const { return QString::fromUtf8(TestSupport::readFile(m_dir->filePath(u"Box.log"_s))); }
};

namespace {

const QString monday = u"――― Montag, 03.03.2025 ―――"_s;
const QString tuesday = u"――― Dienstag, 04.03.2025 ―――"_s;

QDateTime at(int day, int hour, int minute, int second)
{
    return QDateTime(QDate(2025, 3, day), QTime(hour, minute, second));
}

} // namespace

void BoxLogTest::initTestCase()
{
    TestSupport::isolateUserFolders();
}

void BoxLogTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_now = std::make_shared<QDateTime>(at(3, 10, 0, 0));
}

std::unique_ptr<BoxLog> BoxLogTest::makeLog(const QString &folder)
{
    auto now = m_now;
    return std::make_unique<BoxLog>(folder.isEmpty() ? m_dir->path() : folder, [now] { return *now; });
}

void BoxLogTest::entryLine_data()
{
    QTest::addColumn<BoxLog::Level>("level");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("expected");
    QTest::newRow("info") << BoxLog::Level::info << u"FTP"_s << u"Verzeichnis lesen: x"_s
                          << u"09:05:07       FTP        Verzeichnis lesen: x"_s;
    QTest::newRow("ok, HTTP padded with five blanks") << BoxLog::Level::ok << u"HTTP"_s << u"m"_s
                                                      << u"09:05:07  OK   HTTP       m"_s;
    QTest::newRow("error carries the filter mark") << BoxLog::Level::error << u"Telnet"_s << u"m"_s
                                                   << u"09:05:07  ERR  Telnet     m"_s;
    QTest::newRow("task") << BoxLog::Level::task << u"Aufgabe"_s << u"Lade von der Box"_s
                          << u"09:05:07  >>>  Aufgabe    Lade von der Box"_s;
    QTest::newRow("long category is not cut") << BoxLog::Level::info << u"Reparatur1"_s << u"m"_s
                                              << u"09:05:07       Reparatur1  m"_s;
    QTest::newRow("line breaks stay on one line") << BoxLog::Level::error << u"FTP"_s << u"a\nb\r\nc"_s
                                                  << u"09:05:07  ERR  FTP        a | b | c"_s;
}

void BoxLogTest::entryLine()
{
    QFETCH(BoxLog::Level, level);
    QFETCH(QString, category);
    QFETCH(QString, message);
    QFETCH(QString, expected);
    QCOMPARE(BoxLog::entryLine(QTime(9, 5, 7), level, category, message), expected);
}

void BoxLogTest::curlHint_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("hint");
    QTest::newRow("6") << 6 << u"Box-Adresse nicht auflösbar"_s;
    QTest::newRow("7") << 7 << u"Verbindung abgelehnt / Box nicht erreichbar"_s;
    QTest::newRow("9") << 9 << u"Anmeldung abgelehnt (Benutzer/Passwort)"_s;
    QTest::newRow("19") << 19 << u"Datei auf der Box nicht gefunden"_s;
    QTest::newRow("25") << 25 << u"Hochladen abgelehnt (Schreibrechte? Speicher voll?)"_s;
    QTest::newRow("28") << 28 << u"Zeitüberschreitung"_s;
    QTest::newRow("55") << 55 << u"Verbindung während der Übertragung abgebrochen"_s;
    QTest::newRow("56") << 56 << u"Verbindung während der Übertragung abgebrochen"_s;
    QTest::newRow("67") << 67 << u"Anmeldung abgelehnt (Benutzer/Passwort)"_s;
    QTest::newRow("78") << 78 << u"Datei auf der Box nicht gefunden"_s;
    QTest::newRow("3 has none") << 3 << QString();
    QTest::newRow("0 has none") << 0 << QString();
}

void BoxLogTest::curlHint()
{
    QFETCH(int, code);
    QFETCH(QString, hint);
    QCOMPARE(BoxLog::curlHint(code), hint);
}

void BoxLogTest::freshInstall()
{
    const QString folder = m_dir->filePath(u"state/Corvandel"_s);
    {
        auto log = makeLog(folder);
        QVERIFY(QFileInfo(folder).isDir());
        log->writeBanner();
        log->flush();
        QCOMPARE(log->filePath(), folder + u"/Box.log"_s);
    }
    const QString text = QString::fromUtf8(TestSupport::readFile(folder + u"/Box.log"_s));
    QVERIFY2(QRegularExpression(u"^Corvandel v\\d+\\.\\d+\\.\\d+ \\(Build \\d*\\) gestartet$"_s)
                 .match(BoxLog::bannerMessage())
                 .hasMatch(),
             qPrintable(BoxLog::bannerMessage()));
    QCOMPARE(text, monday + u"\n10:00:00       App        "_s + BoxLog::bannerMessage() + u'\n');
}

void BoxLogTest::dayHeaderAfterMidnight()
{
    auto log = makeLog();
    *m_now = at(3, 23, 59, 59);
    log->write(BoxLog::Level::info, u"FTP"_s, u"vor Mitternacht"_s);
    *m_now = at(4, 0, 0, 1);
    log->write(BoxLog::Level::ok, u"FTP"_s, u"nach Mitternacht"_s);
    log->write(BoxLog::Level::ok, u"FTP"_s, u"gleicher Tag"_s);
    log->flush();
    QCOMPARE(logText(), monday + u"\n23:59:59       FTP        vor Mitternacht\n"_s + tuesday +
                            u"\n00:00:01  OK   FTP        nach Mitternacht\n00:00:01  OK   FTP        gleicher Tag\n"_s);
}

void BoxLogTest::restartKeepsDay()
{
    makeLog()->write(BoxLog::Level::info, u"App"_s, u"erster Start"_s);
    *m_now = at(3, 18, 0, 0);
    makeLog()->write(BoxLog::Level::info, u"App"_s, u"zweiter Start"_s);
    *m_now = at(4, 8, 0, 0);
    makeLog()->write(BoxLog::Level::info, u"App"_s, u"am nächsten Tag"_s);
    QCOMPARE(logText(), monday + u"\n10:00:00       App        erster Start\n18:00:00       App        zweiter Start\n"_s +
                            tuesday + u"\n08:00:00       App        am nächsten Tag\n"_s);
}

void BoxLogTest::dayIsRecoveredFromTailOnly()
{
    // A header buried deeper than the scanned tail is not found: the next entry repeats it.
    const QByteArray filler = QByteArray(99, 'x') + '\n';
    QByteArray deep = monday.toUtf8() + '\n';
    while (deep.size() < BoxLog::dayScanBytes + 1000)
        deep += filler;
    QVERIFY(TestSupport::writeFile(m_dir->filePath(u"Box.log"_s), deep));
    makeLog()->write(BoxLog::Level::info, u"App"_s, u"Start"_s);
    QCOMPARE(logText().count(monday), 2);

    // Within the tail it is found.
    QByteArray shallow = QByteArray(BoxLog::dayScanBytes + 1000, 'y') + '\n' + monday.toUtf8() + '\n' + filler;
    QVERIFY(TestSupport::writeFile(m_dir->filePath(u"Box.log"_s), shallow));
    makeLog()->write(BoxLog::Level::info, u"App"_s, u"Start"_s);
    QCOMPARE(logText().count(monday), 1);
    QVERIFY(logText().endsWith(QString::fromLatin1(filler) + u"10:00:00       App        Start\n"_s));
}

void BoxLogTest::rotation_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<bool>("rotated");
    QTest::newRow("at the limit") << BoxLog::maxSize << false;
    QTest::newRow("one byte over") << BoxLog::maxSize + 1 << true;
}

void BoxLogTest::rotation()
{
    QFETCH(qint64, size);
    QFETCH(bool, rotated);
    const QByteArray big = monday.toUtf8() + '\n' + QByteArray(size - monday.toUtf8().size() - 1, 'z');
    QCOMPARE(big.size(), size);
    QVERIFY(TestSupport::writeFile(m_dir->filePath(u"Box.log"_s), big));
    QVERIFY(TestSupport::writeFile(m_dir->filePath(u"Box.1.log"_s), "older generation\n"));
    makeLog()->write(BoxLog::Level::info, u"FTP"_s, u"danach"_s);
    const QByteArray older = TestSupport::readFile(m_dir->filePath(u"Box.1.log"_s));
    if (rotated) {
        QCOMPARE(older, big);
        // The fresh file starts with a day header although the day did not change.
        QCOMPARE(logText(), monday + u"\n10:00:00       FTP        danach\n"_s);
    } else {
        QCOMPARE(older, QByteArray("older generation\n"));
        QVERIFY(logText().startsWith(QString::fromUtf8(big)));
        QVERIFY(logText().endsWith(u"\n10:00:00       FTP        danach\n"_s));
    }
}

void BoxLogTest::tail()
{
    auto log = makeLog();
    QCOMPARE(log->tail(1000), QString());
    log->write(BoxLog::Level::info, u"FTP"_s, u"Grüße"_s);
    log->flush();
    const QString full = logText();
    QCOMPARE(log->tail(1'000'000), full);
    QCOMPARE(log->tail(4), u"ße\n"_s);
    // Cutting inside "ü" (two bytes) drops the stray half instead of showing a replacement.
    QCOMPARE(log->tail(5), u"ße\n"_s);
    QCOMPARE(log->tail(6), u"üße\n"_s);
    QCOMPARE(log->tail(7), u"rüße\n"_s);
    QCOMPARE(log->tail(0), QString());
}

void BoxLogTest::clear()
{
    auto log = makeLog();
    QSignalSpy changed(log.get(), &BoxLog::changed);
    log->write(BoxLog::Level::error, u"FTP"_s, u"vorher"_s);
    log->clear();
    log->flush();
    QCOMPARE(logText(), QString());
    QTRY_COMPARE(changed.count(), 2);
    // The next entry starts with a day header again.
    log->write(BoxLog::Level::info, u"FTP"_s, u"nachher"_s);
    log->flush();
    QCOMPARE(logText(), monday + u"\n10:00:00       FTP        nachher\n"_s);
}

void BoxLogTest::callOrderAcrossThreads()
{
    auto log = makeLog();
    constexpr int perThread = 300;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&log, t] {
            for (int i = 0; i < perThread; ++i)
                log->write(BoxLog::Level::info, u"T"_s + QString::number(t), QString::number(i));
        });
    }
    for (auto &thread : threads)
        thread.join();
    // Writes from one thread, in sequence, land in that order.
    for (int i = 0; i < perThread; ++i)
        log->write(BoxLog::Level::ok, u"Main"_s, QString::number(i));
    log->flush();

    QHash<QString, int> next;
    int lines = 0;
    for (const QString &line : logText().split(u'\n', Qt::SkipEmptyParts)) {
        if (line == monday)
            continue;
        const QStringList fields = line.split(u' ', Qt::SkipEmptyParts);
        const QString category = fields.value(fields.size() - 2);
        QCOMPARE(fields.last().toInt(), next[category]);
        ++next[category];
        ++lines;
    }
    QCOMPARE(lines, 5 * perThread);
    QCOMPARE(logText().count(monday), 1);
}

void BoxLogTest::changedArrivesOnOwnThread()
{
    auto log = makeLog();
    std::atomic<QThread *> receivedOn = nullptr;
    connect(log.get(), &BoxLog::changed, this, [&] { receivedOn = QThread::currentThread(); });
    std::thread writer([&log] { log->write(BoxLog::Level::info, u"FTP"_s, u"aus einem anderen Thread"_s); });
    writer.join();
    QTRY_VERIFY(receivedOn.load() != nullptr);
    QCOMPARE(receivedOn.load(), QThread::currentThread());
}

void BoxLogTest::unwritableFolder()
{
    // A file where the folder should be: entries are lost, nothing throws or hangs.
    const QString blocked = m_dir->filePath(u"blocked"_s);
    QVERIFY(TestSupport::writeFile(blocked, "not a folder"));
    auto log = makeLog(blocked);
    log->write(BoxLog::Level::error, u"FTP"_s, u"verloren"_s);
    log->clear();
    log->flush();
    QCOMPARE(log->tail(100), QString());
    QCOMPARE(TestSupport::readFile(blocked), QByteArray("not a folder"));
}

void BoxLogTest::sharedLogLivesInStateFolder()
{
    BoxLog &shared = BoxLog::shared();
    QCOMPARE(shared.filePath(), Paths::stateDir() + u"/Box.log"_s);
    QVERIFY(shared.filePath().startsWith(qEnvironmentVariable("XDG_STATE_HOME")));
    shared.flush();
    QVERIFY(shared.tail(10'000).contains(BoxLog::bannerMessage()));
}

QTEST_GUILESS_MAIN(BoxLogTest)
#include "BoxLogTest.moc"
