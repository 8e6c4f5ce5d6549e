#include "Await.h"
#include "BoxError.h"
#include "BoxLog.h"
#include "BoxLogWatch.h"
#include "FTPClient.h"
#include "FakeBox.h"
#include "Paths.h"
#include "TelnetClient.h"
#include "TelnetError.h"
#include "TestSupport.h"
#include "WebIf.h"

#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>
#include <memory>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Day headers of the log, and times on the clock the log tests move.
const QString monday = u"――― Montag, 03.03.2025 ―――"_s;
const QString tuesday = u"――― Dienstag, 04.03.2025 ―――"_s;
QDateTime at(int day, int hour, int minute, int second)
{
    return QDateTime(QDate(2025, 3, day), QTime(hour, minute, second));
}

const QString password = u"pa\"ss\\wört"_s;
// Read by the double to name the service a zap tunes to.
const QByteArray lamedb = "eDVB services /4/\ntransponders\nend\nservices\n"
                          "283d:00c00000:03fb:0001:25:0\nDas Erste HD\np:ARD\nend\n";
const QString ftpFailure = u"^ERR  FTP        (Verzeichnis lesen|Herunterladen) fehlgeschlagen nach \\d+\\.\\d\\d s: "_s;

// Whether the text matches; a mismatch is shown, so that a failing check says what it saw.
bool matches(const QString &pattern, const QString &text)
{
    const bool matched = QRegularExpression(pattern).match(text).hasMatch();
    if (!matched)
        qWarning().noquote() << "no match for" << pattern << "in" << text;
    return matched;
}

// A loopback port on which nothing listens.
int closedPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    return probe.serverPort();
}

// One Telnet command with the time limits cut to seconds.
QCoro::Task<QString> telnet(BoxSettings settings, QString command, std::chrono::milliseconds loginLimit = 5s,
                            std::chrono::milliseconds commandLimit = 5s)
{
    TelnetClient client(std::move(settings));
    client.setLimits({5s, loginLimit, commandLimit});
    co_return co_await client.run(std::move(command));
}

} // namespace

// The box log in folders of its own, with an injected clock; then the FTP (with the real curl),
// Telnet and web clients: their pure parts, then against the receiver test double, healthy and
// with faults, writing to the shared log.
class BoxTest : public QObject
{
    Q_OBJECT

    // The log tests' folder and clock.
    std::unique_ptr<QTemporaryDir> m_dir;
    std::shared_ptr<QDateTime> m_now;
    // The healthy double, and the files of its list folder with names that need quoting in URLs
    // and configurations.
    std::unique_ptr<FakeBox> m_box;
    QMap<QString, QByteArray> m_files;

    std::unique_ptr<BoxLog> makeLog(const QString &folder = {})
    {
        return std::make_unique<BoxLog>(folder.isEmpty() ? m_dir->path() : folder, [now = m_now] { return *now; });
    }
    QString filePath() const { return m_dir->filePath(u"Box.log"_s); }
    QString text() const { return QString::fromUtf8(TestSupport::readFile(filePath())); }
    BoxSettings settings() const { return m_box->settingsAs<BoxSettings>(); }
    // How the log names a double's web requests and FTP folder.
    static QString http(const FakeBox &box) { return u"GET 127.0.0.1:%1"_s.arg(box.connection().httpPort); }
    QString ftpFolder() const { return u"ftp://127.0.0.1:%1/etc/enigma2/"_s.arg(m_box->connection().ftpPort); }

private slots:
    void initTestCase()
    {
        TestSupport::isolateUserFolders();
        FakeBoxOptions options;
        options.password = password;
        options.loginDelay = 0.05;
        m_box = std::make_unique<FakeBox>(options);
        QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
        for (const QString &name : {u"userbouquet.a b.tv"_s, u"userbouquet.#1.tv"_s, u"userbouquet.[x]{y}.tv"_s,
                                    u"userbouquet.50%.tv"_s, u"Grüße.tv"_s})
            m_files.insert(name, "#NAME " + name.toUtf8() + "\r\n");
        m_files.insert(u"lamedb"_s, lamedb);
        QByteArray large(3 * 1024 * 1024, Qt::Uninitialized);
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(large.data()), large.size() / 4);
        m_files.insert(u"lamedb5"_s, large);
        for (auto it = m_files.cbegin(); it != m_files.cend(); ++it)
            QVERIFY(TestSupport::writeFile(m_box->path(u"/etc/enigma2/"_s + it.key()), it.value()));
        QVERIFY(QDir().mkpath(m_box->path(u"/media/hdd/picon"_s)));
        QVERIFY(TestSupport::writeFile(m_box->path(u"/usr/share/enigma2/picon/1_0_1_A_B_C_D_0_0_0.png"_s), "png"));
    }

    void cleanupTestCase()
    {
        // The shared log lies in the state folder, starts with the banner, and never shows the password.
        BoxLog &shared = BoxLog::shared();
        QCOMPARE(shared.filePath(), Paths::stateDir() + u"/Box.log"_s);
        QVERIFY(shared.filePath().startsWith(qEnvironmentVariable("XDG_STATE_HOME")));
        const QString log = shared.tail(10'000'000);
        QVERIFY(log.contains(BoxLog::bannerMessage()) && log.contains(u"FTP"_s));
        QVERIFY(!log.contains(u"wört"_s) && !log.contains(u"pa\\\"ss"_s));
    }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_now = std::make_shared<QDateTime>(at(3, 10, 0, 0));
    }

    void entryLineAndCurlHint()
    {
        using L = BoxLog::Level;
        const QList<std::tuple<L, QString, QString, QString>> entries{
            // The other markers and paddings show in the log checks of the box clients and the store.
            {L::info, u"FTP"_s, u"x: y"_s, u"09:05:07       FTP        x: y"_s},
            {L::task, u"Aufgabe"_s, u"Lade"_s, u"09:05:07  >>>  Aufgabe    Lade"_s},
            // A long category stays whole; line breaks are no new entries.
            {L::info, u"Reparatur1"_s, u"m"_s, u"09:05:07       Reparatur1  m"_s},
            {L::error, u"FTP"_s, u"a\nb\r\nc\rd"_s, u"09:05:07  ERR  FTP        a | b | c | d"_s}};
        for (const auto &[level, category, message, expected] : entries)
            QCOMPARE(BoxLog::entryLine(QTime(9, 5, 7), level, category, message), expected);

        const QList<std::pair<QList<int>, QString>> hints{
            {{6}, u"Box-Adresse nicht auflösbar"_s}, {{7}, u"Verbindung abgelehnt / Box nicht erreichbar"_s},
            {{9, 67}, u"Anmeldung abgelehnt (Benutzer/Passwort)"_s}, {{19, 78}, u"Datei auf der Box nicht gefunden"_s},
            {{25}, u"Hochladen abgelehnt (Schreibrechte? Speicher voll?)"_s}, {{28}, u"Zeitüberschreitung"_s},
            {{55, 56}, u"Verbindung während der Übertragung abgebrochen"_s}, {{0, 3, 22}, QString()}};
        for (const auto &[codes, hint] : hints)
            for (int code : codes)
                QCOMPARE(BoxLog::curlHint(code), hint);
    }

    void dayHeaders()
    {
        // A fresh install: the folder is made, the file starts with the day and the banner.
        const QString folder = m_dir->filePath(u"state/Corvandel"_s);
        auto log = makeLog(folder);
        QVERIFY(QFileInfo(folder).isDir());
        QCOMPARE(log->filePath(), folder + u"/Box.log"_s);
        log->writeBanner();
        *m_now = at(3, 23, 59, 59);
        log->write(BoxLog::Level::info, u"FTP"_s, u"vor Mitternacht"_s);
        *m_now = at(4, 0, 0, 1);
        log->write(BoxLog::Level::ok, u"FTP"_s, u"nach Mitternacht"_s);
        log->write(BoxLog::Level::ok, u"FTP"_s, u"gleicher Tag"_s);
        log.reset();
        // A restart reads the last day back from the file; the next day gets its header.
        *m_now = at(4, 8, 0, 0);
        makeLog(folder)->write(BoxLog::Level::info, u"App"_s, u"Neustart"_s);
        *m_now = at(5, 8, 0, 0);
        makeLog(folder)->write(BoxLog::Level::info, u"App"_s, u"Mittwoch"_s);
        QCOMPARE(QString::fromUtf8(TestSupport::readFile(folder + u"/Box.log"_s)),
                 monday + u"\n10:00:00       App        "_s + BoxLog::bannerMessage() +
                     u"\n23:59:59       FTP        vor Mitternacht\n"_s + tuesday +
                     u"\n00:00:01  OK   FTP        nach Mitternacht\n00:00:01  OK   FTP        gleicher Tag\n"
                     u"08:00:00       App        Neustart\n――― Mittwoch, 05.03.2025 ―――\n"
                     u"08:00:00       App        Mittwoch\n"_s);
        QVERIFY2(QRegularExpression(u"^Corvandel v\\d+\\.\\d+\\.\\d+ \\(Build \\d*\\) gestartet$"_s)
                     .match(BoxLog::bannerMessage()).hasMatch(), qPrintable(BoxLog::bannerMessage()));
    }

    void rotationAndDeepDayHeader()
    {
        for (const qint64 size : {BoxLog::maxSize, BoxLog::maxSize + 1}) {
            const QByteArray big = monday.toUtf8() + '\n' + QByteArray(size - monday.toUtf8().size() - 2, 'z') + '\n';
            QVERIFY(TestSupport::writeFile(filePath(), big));
            QVERIFY(TestSupport::writeFile(m_dir->filePath(u"Box.1.log"_s), "older generation\n"));
            makeLog()->write(BoxLog::Level::info, u"FTP"_s, u"danach"_s);
            // Only a file above the limit moves, replacing the older generation.
            const bool rotated = size > BoxLog::maxSize;
            QCOMPARE(TestSupport::readFile(m_dir->filePath(u"Box.1.log"_s)), rotated ? big : "older generation\n");
            // Either way the entry comes with a day header: the file's own lies deeper than the
            // scanned tail.
            QCOMPARE(text(), (rotated ? QString() : QString::fromUtf8(big)) + monday +
                                 u"\n10:00:00       FTP        danach\n"_s);
        }
    }

    void tailAndClear()
    {
        auto log = makeLog();
        QSignalSpy changed(log.get(), &BoxLog::changed);
        QCOMPARE(log->tail(1000), QString());
        log->write(BoxLog::Level::info, u"FTP"_s, u"Grüße"_s);
        log->flush();
        QCOMPARE(log->tail(1'000'000), text());
        // Cutting inside "ü" (5 bytes) drops the stray half instead of showing a replacement.
        const QStringList tails{QString(), {}, {}, {}, u"ße\n"_s, u"ße\n"_s, u"üße\n"_s, u"rüße\n"_s};
        for (int bytes : {0, 4, 5, 6, 7})
            QCOMPARE(log->tail(bytes), tails.at(bytes));

        log->clear();
        log->flush();
        QCOMPARE(text(), QString());
        QTRY_COMPARE(changed.count(), 2);
        // The next entry starts with a day header again.
        log->write(BoxLog::Level::info, u"FTP"_s, u"nachher"_s);
        log->flush();
        QCOMPARE(text(), monday + u"\n10:00:00       FTP        nachher\n"_s);
    }

    void threads()
    {
        auto log = makeLog();
        std::atomic<QThread *> announcedOn = nullptr;
        connect(log.get(), &BoxLog::changed, this, [&] { announcedOn = QThread::currentThread(); });
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
        // Writes from one thread land in their order, each exactly once.
        for (int i = 0; i < perThread; ++i)
            log->write(BoxLog::Level::ok, u"Main"_s, QString::number(i));
        log->flush();
        QHash<QString, int> next;
        const QStringList lines = text().split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 1 + 5 * perThread);
        QCOMPARE(lines.first(), monday);
        for (const QString &line : lines.mid(1)) {
            const QStringList fields = line.split(u' ', Qt::SkipEmptyParts);
            QCOMPARE(fields.last().toInt(), next[fields.value(fields.size() - 2)]++);
        }
        // The change signal arrives on the log's own thread.
        QTRY_VERIFY(announcedOn.load() != nullptr);
        QCOMPARE(announcedOn.load(), QThread::currentThread());
    }

    void unwritableFolder()
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

    void ftpConfigurationWordingAndURLs()
    {
        BoxSettings settings;
        settings.host = u"box"_s;
        settings.password = u"a\"b\\c"_s;
        QCOMPARE(FTPClient(settings).configuration({u"url = \"ftp://x/\""_s, u"list-only"_s}),
                 u"user = \"root:a\\\"b\\\\c\"\n"
                 "silent\nshow-error\nfail\nconnect-timeout = 10\nftp-pasv\ngloboff\nspeed-limit = 1\nspeed-time = 30\n"
                 "url = \"ftp://x/\"\nlist-only\n"_s);
        // A line break in a value cannot start a configuration line of its own.
        settings.password = u"x\noutput = /tmp/evil"_s;
        FTPClient hostile(settings);
        hostile.setSpeedTime(2);
        const QStringList lines = hostile.configuration({}).split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 9);
        QCOMPARE(lines.first(), u"user = \"root:x\\noutput = /tmp/evil\""_s);
        QCOMPARE(lines.last(), u"speed-time = 2"_s);
        QCOMPARE(FTPClient::escaped(u"\\\" a/b\tc\rd"_s), u"\\\\\\\" a/b\\tc\\rd"_s);
        // Only runs of several files spread over a few connections, and never show curl's meter.
        QCOMPARE(FTPClient::manyFileLines(1), QStringList());
        QCOMPARE(FTPClient::manyFileLines(2), (QStringList{u"parallel"_s, u"parallel-max = 4"_s, u"no-progress-meter"_s}));

        QCOMPARE(FTPClient::action({u"list-only"_s, u"upload-file = \"/x\""_s}), u"Hochladen"_s);
        QCOMPARE(FTPClient::target({u"ftp-create-dirs"_s}), u"0 Dateien, z. B. -"_s);
        QCOMPARE(FTPClient::listing("lamedb\r\n  bouquets.tv \r\n\r\n\nuserbouquet.a b.tv\n"),
                 (QStringList{u"lamedb"_s, u"bouquets.tv"_s, u"userbouquet.a b.tv"_s}));
        QCOMPARE(FTPClient::listing("caf\xe9.tv\n"), QStringList{u"caf\uFFFD.tv"_s});
        // No hint for codes without one, no dash without curl's text (the rest shows in the log checks below).
        QCOMPARE(FTPClient::failureMessage(u"Hochladen"_s, 1.254, 3, u"curl: (3) URL rejected"_s),
                 u"Hochladen fehlgeschlagen nach 1.25 s: curl-Code 3 – curl: (3) URL rejected"_s);
        QCOMPARE(FTPClient::failureMessage(u"Herunterladen"_s, 2, 28, QString()),
                 u"Herunterladen fehlgeschlagen nach 2.00 s: curl-Code 28 (Zeitüberschreitung)"_s);
        QCOMPARE(FTPClient::successMessage(u"Herunterladen"_s, 12.345, 391204, u"Warnung"_s),
                 u"Herunterladen fertig in 12.35 s, 391204 Bytes empfangen – Hinweise: Warnung"_s);

        settings.host = u"  192.168.1.2 "_s;
        settings.ftpPort = 2121;
        settings.directory = u"etc/enigma2"_s;
        const FTPClient ftp(settings);
        QCOMPARE(ftp.baseURL(), u"ftp://192.168.1.2:2121/etc/enigma2/"_s);
        // Folder, file, and the URL after the port.
        const QList<std::tuple<QString, QString, QString>> cases{
            {u"etc/enigma2"_s, u"lamedb"_s, u"/etc/enigma2/lamedb"_s},
            {u"/e/"_s, u"a b#[1]{x}50%"_s, u"/e/a%20b%23%5B1%5D%7Bx%7D50%25"_s},
            {u"/e/"_s, u"Grüße"_s, u"/e/Gr%C3%BC%C3%9Fe"_s},
            {u"/e/"_s, u"a!$&'()*+,;=@~-_.:b"_s, u"/e/a!$&'()*+,;=@~-_.:b"_s},
            {u"/media//my picons#1"_s, u"a b"_s, u"/media//my%20picons%231/a%20b"_s},
            {u"/picon"_s, QString(), u"/picon/"_s}};
        for (const auto &[directory, file, path] : cases)
            QCOMPARE(ftp.fileURL(directory, file), u"ftp://192.168.1.2:2121"_s + path);
    }

    void telnetDialogue()
    {
        const auto bytes = [](std::initializer_list<int> values) {
            QByteArray result;
            for (int value : values)
                result += char(value);
            return result;
        };
        // What busybox telnetd sends first (DO ECHO, DO NAWS, WILL ECHO, WILL SGA), UTF-8 text, a
        // subnegotiation, DONT and WONT (no answer), a two-byte command, WILL ECHO once more.
        const QByteArray stream = bytes({255, 253, 1, 255, 253, 31, 255, 251, 1, 255, 251, 3}) + "\r\nGr\xc3\xbc\xc3\x9f!" +
                                  bytes({255, 250, 24, 1, 255, 240, 255, 254, 1, 255, 252, 3, 255, 241}) +
                                  "\r\nbox login: " + bytes({255, 251, 1});
        // Cut at every position: the result must not depend on where the network split the stream.
        for (qsizetype cut = 0; cut <= stream.size(); ++cut) {
            QByteArray carry;
            QByteArray reply;
            QByteArray data = TelnetClient::handleIAC(stream.left(cut), carry, reply);
            data += TelnetClient::handleIAC(stream.mid(cut), carry, reply);
            QCOMPARE(data, QByteArray("\r\nGr\xc3\xbc\xc3\x9f!\r\nbox login: "));
            // WONT ECHO, WONT NAWS, DO ECHO, DO SGA, DO ECHO.
            QCOMPARE(reply, bytes({255, 252, 1, 255, 252, 31, 255, 253, 1, 255, 253, 3, 255, 253, 1}));
            QCOMPARE(carry, QByteArray());
        }

        // The double's shell shows the usual output (echo, colour codes, indentation, nothing) in
        // the commands below; these are the rarer turns: a late prompt before the echo, an output
        // naming the command, other control sequences, no echo at all.
        const QString echo = u"uptime; echo __CV_\"\"DONE__\r\n"_s;
        const QList<std::pair<QString, QString>> outputs{
            {u"\r\nroot@box:~# "_s + echo + u"a\r\n__CV_DONE__\r\n"_s, u"a"_s},
            {echo + u"uptime\r\n__CV_DONE__\r\nroot@box:~# "_s, u"uptime"_s},
            {echo + u"\x1b[?25lgr\x1b[Kün\r\n\r\n__CV_DONE__"_s, u"grün"_s},
            {u"a\r\n\r\n b\r\n__CV_DONE__"_s, u"a\n\n b"_s}};
        for (const auto &[output, expected] : outputs)
            QCOMPARE(TelnetClient::clean(output, u"uptime"_s), expected);
        for (const QString &prompt : {u"\r\nroot@vuuno4kse:~# "_s, u"box$ "_s})
            QVERIFY(TelnetClient::endsWithShellPrompt(prompt));
        for (const QString &other : {u"vuuno4kse login: "_s, u"Password: "_s, u"# comment\r\n"_s, QString()})
            QVERIFY(!TelnetClient::endsWithShellPrompt(other));
    }

    void webAnswersAndRequests()
    {
        using Tag = std::optional<QString>;
        const QList<std::tuple<QString, QString, Tag>> tags{
            {u"e2snr"_s, u"<a>\n\t<e2snr>\n\t\t75 % </e2snr>"_s, u"75 %"_s},
            {u"e2servicename"_s, u"<e2servicename>A</e2servicename><e2servicename>B</e2servicename>"_s, u"A"_s},
            {u"e2ber"_s, u"<e2ber></e2ber>"_s, QString()},
            {u"e2acg"_s, u"<e2agc>80 %</e2agc>"_s, std::nullopt},
            {u"e2acg"_s, u"<e2acg>80 %"_s, std::nullopt},
            {u"e2snr"_s, u"<e2snrdb>1 dB</e2snrdb>"_s, std::nullopt}};
        for (const auto &[name, body, expected] : tags)
            QCOMPARE(WebIf::tag(name, body), expected);
        const QList<std::pair<Tag, std::optional<int>>> numbers{
            {std::nullopt, std::nullopt}, {u"62 %"_s, 62},           {u"1.5"_s, 1},          {u"0"_s, 0},
            {u"%"_s, std::nullopt},       {QString(), std::nullopt}, {u" 5"_s, std::nullopt}, {u"-3"_s, std::nullopt}};
        for (const auto &[text, expected] : numbers)
            QCOMPARE(WebIf::number(text), expected);
        // 1 (deep standby) is not offered.
        using P = WebIf::PowerState;
        const QList<std::optional<P>> states{P::toggleStandby, std::nullopt, P::reboot, P::restartGUI, std::nullopt};
        for (int raw = 0; raw < states.size(); ++raw)
            QCOMPARE(WebIf::powerState(raw), states.at(raw));

        BoxSettings settings;
        settings.host = u" 192.168.1.20 "_s;
        settings.httpPort = 8080;
        settings.password = password;
        const WebIf web(settings);
        QCOMPARE(web.describe(u"/web/zap"_s, {{u"sRef"_s, u"1:0:1:a b&c=d#e+f:"_s}, {u"a"_s, u"1"_s}}),
                 u"GET 192.168.1.20:8080/web/zap?a=1&sRef=1:0:1:a b&c=d#e+f:"_s);
        QCOMPARE(web.authorization(), "Basic " + QByteArray("root:pa\"ss\\w\xc3\xb6rt").toBase64());
    }

    void ftpListAndDownload()
    {
        const FTPClient ftp(settings());
        const BoxLogWatch watch;
        QStringList names = await(ftp.listFiles());
        names.sort();
        QCOMPARE(names, m_files.keys());
        QCOMPARE(watch.messages(u"FTP"_s).value(0), u"Verzeichnis lesen: "_s + ftpFolder());
        QVERIFY(matches(u"^OK   FTP        Verzeichnis lesen fertig in \\d+\\.\\d\\d s, \\d+ Bytes empfangen$"_s,
                        watch.entries().value(1)));
        for (auto it = m_files.cbegin(); it != m_files.cend(); ++it)
            QCOMPARE(await(ftp.download(it.key())), it.value());
        QCOMPARE(watch.messages(u"FTP"_s).filter(u", 3145728 Bytes empfangen"_s).size(), 1);
        QCOMPARE(await(ftp.list(u"/usr/share/enigma2/picon/"_s)), QStringList{u"1_0_1_A_B_C_D_0_0_0.png"_s});
        // An empty folder is an empty list, not an error.
        QCOMPARE(await(ftp.list(u"media/hdd/picon"_s)), QStringList());
    }

    void ftpManyFiles()
    {
        const FTPClient ftp(settings());
        // Several transfers at once: curl fails when any of them misses, wherever it stands, and
        // the miss is swallowed.
        for (const QStringList &names : {QStringList{u"lamedb"_s, u"fehlt.tv"_s, u"userbouquet.[x]{y}.tv"_s},
                                         QStringList{u"lamedb"_s, u"userbouquet.[x]{y}.tv"_s, u"fehlt.tv"_s}}) {
            QTemporaryDir local;
            const BoxLogWatch watch;
            QCOMPARE(await(ftp.download(names, u"/etc/enigma2"_s, local.path())), 2);
            QCOMPARE(TestSupport::readFile(local.filePath(u"lamedb"_s)), lamedb);
            QCOMPARE(TestSupport::readFile(local.filePath(u"userbouquet.[x]{y}.tv"_s)),
                     m_files.value(u"userbouquet.[x]{y}.tv"_s));
            QCOMPARE(watch.messages(u"FTP"_s).value(0), u"Herunterladen: 3 Dateien, z. B. "_s + ftpFolder() + u"lamedb"_s);
            QVERIFY(matches(ftpFailure + u"curl-Code 78 "_s, watch.entries().value(1)));
        }
        // A name that would leave the local folder is skipped, although the box has such a file.
        QVERIFY(TestSupport::writeFile(m_box->path(u"/etc/outside.tv"_s), "hostile"));
        QTemporaryDir parent;
        const QString target = parent.filePath(u"picons"_s);
        QVERIFY(QDir().mkpath(target));
        QCOMPARE(await(ftp.download(QStringList{u"../outside.tv"_s, u"lamedb"_s, u".."_s}, u"/etc/enigma2/"_s, target)), 1);
        QCOMPARE(QDir(parent.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"picons"_s});
        QCOMPARE(QDir(target).entryList(QDir::Files), QStringList{u"lamedb"_s});
        // Nothing there at all is no error either; a folder that is missing is.
        QCOMPARE(await(ftp.download(QStringList{u"a.png"_s, u"b.png"_s}, u"/media/hdd/picon/"_s, target)), 0);
        QVERIFY(awaitError<BoxError>(ftp.download(QStringList{u"a.png"_s}, u"/picon/"_s, target)));
    }

    void ftpUploads()
    {
        const FTPClient ftp(settings());
        QTemporaryDir local;
        QVERIFY(TestSupport::writeFile(local.filePath(u"bouquet"_s), "#NAME Neu\r\n"));
        QVERIFY(TestSupport::writeFile(local.filePath(u"one.png"_s), "\x89PNG one"));
        QVERIFY(TestSupport::writeFile(local.filePath(u"two [2].png"_s), "\x89PNG two"));
        const BoxLogWatch watch;
        await(ftp.upload(local.filePath(u"bouquet"_s), u"userbouquet.neu #1.tv"_s));
        QCOMPARE(TestSupport::readFile(m_box->path(u"/etc/enigma2/userbouquet.neu #1.tv"_s)), QByteArray("#NAME Neu\r\n"));
        // Into a folder that does not exist yet.
        const QList<FTPClient::Upload> files{{local.filePath(u"one.png"_s), u"1_0_19_[A].png"_s},
                                             {local.filePath(u"two [2].png"_s), u"b c#.png"_s}};
        await(ftp.upload(files, u"/media/usb/neue picons/"_s));
        QCOMPARE(TestSupport::readFile(m_box->path(u"/media/usb/neue picons/1_0_19_[A].png"_s)), QByteArray("\x89PNG one"));
        QCOMPARE(TestSupport::readFile(m_box->path(u"/media/usb/neue picons/b c#.png"_s)), QByteArray("\x89PNG two"));
        const QStringList messages = watch.messages(u"FTP"_s);
        QCOMPARE(messages.value(0), u"Hochladen: "_s + ftpFolder() + u"userbouquet.neu%20%231.tv"_s);
        QVERIFY(messages.value(2).startsWith(u"Hochladen: 2 Dateien, z. B. ftp://"_s));

        // Names that would leave the folder on the box are refused before anything runs; without
        // files nothing runs either.
        const BoxLogWatch refused;
        for (const QString &name : {u"../escape.tv"_s, u".."_s, QString()}) {
            QVERIFY(awaitError<MessageError>(ftp.upload(local.filePath(u"bouquet"_s), name)));
            QVERIFY(awaitError<MessageError>(ftp.upload(QList<FTPClient::Upload>{{local.filePath(u"one.png"_s), name}}, u"/a/"_s)));
        }
        await(ftp.upload(QList<FTPClient::Upload>{}, u"/x/"_s));
        QCOMPARE(refused.lines(), QStringList());
    }

    void ftpProgram()
    {
        // curl reads everything from its standard input: no password shows in the process list.
        QTemporaryDir folder;
        const QString wrapper = folder.filePath(u"curl"_s);
        QVERIFY(TestSupport::writeFile(wrapper, "#!/bin/sh\necho \"$@\" > \"$0.arguments\"\nexec " +
                                                    FTPClient::curlProgram().toUtf8() + " \"$@\"\n"));
        QVERIFY(QFile::setPermissions(wrapper, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        FTPClient ftp(settings());
        ftp.setProgram(wrapper);
        QCOMPARE(await(ftp.download(u"lamedb"_s)), lamedb);
        QCOMPARE(TestSupport::readFile(wrapper + u".arguments"_s), QByteArray("-K -\n"));

        // A missing curl is no transfer failure (no BoxError), but it is logged as one.
        ftp.setProgram(u"/nonexistent/curl"_s);
        const BoxLogWatch watch;
        QVERIFY(awaitFailure<MessageError>(ftp.listFiles()).startsWith(u"curl konnte nicht gestartet werden: "_s));
        QVERIFY(matches(ftpFailure, watch.entries().value(1)));
    }

    void telnetCommands()
    {
        const QList<std::pair<QString, QString>> commands{
            {u"echo hallo"_s, u"hallo"_s},
            {u"printf '\\033[1;32mgrün\\033[0m\\n\\n  b\\n'"_s, u"grün\n\n  b"_s},
            {u"true"_s, QString()},
            // Error output too, and quotes in the command.
            {u"ls /nonexistent-folder"_s, u"ls: cannot access '/nonexistent-folder': No such file or directory"_s},
            {u"echo \"a  b\" 'c'"_s, u"a  b c"_s}};
        for (const auto &[command, expected] : commands) {
            const BoxLogWatch watch;
            QCOMPARE(await(telnet(settings(), command)), expected);
            QCOMPARE(watch.entries().value(0), u"     Telnet     127.0.0.1:"_s +
                                                   QString::number(m_box->connection().telnetPort) + u" Befehl: "_s + command);
            QVERIFY(matches(u"^OK   Telnet     \\d+\\.\\d\\d s, %1 Zeichen Ausgabe$"_s.arg(expected.size()),
                            watch.entries().value(1)));
            QCOMPARE(m_box->journal().last().command, command + u"; echo __CV_\"\"DONE__"_s);
        }
    }

    void unusualBoxes()
    {
        // No password prompt for an empty root password; a shell at once without any login.
        for (const bool noLogin : {false, true}) {
            FakeBoxOptions options;
            options.password = noLogin ? u"ignored"_s : QString();
            options.telnetNoLogin = noLogin;
            options.serviceRef.clear();
            const FakeBox box(options);
            QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
            QCOMPARE(await(telnet(box.settingsAs<BoxSettings>(), u"echo da; pwd | grep -c fakebox-shell"_s)), u"da\n1"_s);
            if (noLogin) {
                // Nothing tuned: no signal values, no service name.
                const WebIf web(box.settingsAs<BoxSettings>());
                QCOMPARE(await(web.signal()), (WebIf::SignalInfo{u"dB"_s, std::nullopt, std::nullopt, std::nullopt}));
                QCOMPARE(await(web.currentServiceName()), u"N/A"_s);
            }
        }
    }

    void telnetTimeOut()
    {
        const BoxLogWatch watch;
        QCOMPARE(awaitFailure<TelnetError>(telnet(settings(), u"sleep 3"_s, 5s, 500ms)),
                 u"Telnet: Zeitüberschreitung – keine Antwort von der Box."_s);
        QVERIFY(matches(u"^ERR  Telnet     fehlgeschlagen nach \\d+\\.\\d\\d s: Telnet: Zeitüberschreitung"_s,
                        watch.entries().value(1)));
        // Output that keeps coming holds the wait open.
        QCOMPARE(await(telnet(settings(), u"for i in 1 2 3; do sleep 0.3; echo $i; done"_s, 5s, 500ms)), u"1\n2\n3"_s);
    }

    void webRequests()
    {
        const WebIf web(settings());
        const BoxLogWatch watch;
        QCOMPARE(await(web.signal()), (WebIf::SignalInfo{u"12.50 dB"_s, 75, 80, 0}));
        QCOMPARE(await(web.currentServiceName()), u"Example HD"_s);
        // Polled requests leave no trace when they succeed.
        QCOMPARE(watch.lines(), QStringList());

        const QString reference = u"1:0:19:283D:3FB:1:C00000:0:0:0:"_s;
        await(web.get(u"/web/zap"_s, {{u"sRef"_s, reference}}, 15s, false));
        QCOMPARE(await(web.currentServiceName()), u"Das Erste HD"_s);
        // A stream reference arrives exactly as sent, its "%3a" intact.
        const QString stream = u"4097:0:1:0:0:0:0:0:0:0:http%3a//10.0.0.1%3a8001/a b&c=d#e+f:Name"_s;
        await(web.get(u"/web/zap"_s, {{u"sRef"_s, stream}}, 15s, false));
        const FakeBoxRequest zap = m_box->journal().last();
        QCOMPARE(zap.value(u"sRef"_s), stream);
        QCOMPARE(zap.authorization, QString::fromLatin1(web.authorization()));
        QVERIFY(zap.authorized);

        await(web.setPowerState(WebIf::PowerState::reboot));
        await(web.reloadServices(2));
        const FakeBoxRequest reload = m_box->journal().last();
        QCOMPARE(reload.path + u'?' + reload.rawQuery, u"/web/servicelistreload?mode=2"_s);
        const QStringList requests{u"/web/zap?sRef="_s + reference, u"/web/zap?sRef="_s + stream,
                                   u"/web/powerstate?newstate=2"_s, u"/web/servicelistreload?mode=2"_s};
        for (int i = 0; i < requests.size(); ++i) {
            QVERIFY(matches(u"^OK   HTTP       "_s + QRegularExpression::escape(http(*m_box) + requests.at(i)) +
                                u" → 200 in \\d+\\.\\d\\d s, \\d+ Bytes$"_s,
                            watch.entries().value(i)));
        }
    }

    // Faults, each met by all three clients.

    void noHost()
    {
        BoxSettings settings = this->settings();
        settings.host = u" \t "_s;
        const FTPClient ftp(settings);
        const qsizetype requests = m_box->journal().size();
        const BoxLogWatch watch;
        const QString expected = u"Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen."_s;
        QCOMPARE(awaitFailure<BoxError>(ftp.listFiles()), expected);
        QCOMPARE(awaitFailure<BoxError>(ftp.download(u"lamedb"_s)), expected);
        QCOMPARE(awaitFailure<BoxError>(ftp.upload(u"/etc/hostname"_s, u"x"_s)), expected);
        QCOMPARE(awaitFailure<BoxError>(ftp.download(QStringList{u"a"_s}, u"/"_s, QDir::tempPath())), expected);
        QCOMPARE(awaitFailure<BoxError>(telnet(settings, u"uptime"_s)), expected);
        QCOMPARE(awaitFailure<BoxError>(WebIf(settings).reloadServices(0)), expected);
        QCOMPARE(watch.lines(), QStringList());
        QCOMPARE(m_box->journal().size(), requests);
    }

    void refusedLogin_data()
    {
        QTest::addColumn<QString>("sentPassword");
        QTest::addColumn<bool>("boxRefuses");
        QTest::newRow("wrong password") << u"falsch"_s << false;
        // The web request carries the header all the same, and the box never accepts it.
        QTest::newRow("empty password") << QString() << false;
        QTest::newRow("box refuses everyone") << u"secret"_s << true;
    }

    void refusedLogin()
    {
        QFETCH(QString, sentPassword);
        QFETCH(bool, boxRefuses);
        FakeBoxOptions options;
        options.refuseLogins = true;
        options.loginDelay = 0.05;
        std::unique_ptr<FakeBox> refusing;
        if (boxRefuses) {
            refusing = std::make_unique<FakeBox>(options);
            QVERIFY2(refusing->isRunning(), qPrintable(refusing->errorString()));
        }
        const FakeBox &box = refusing ? *refusing : *m_box;
        BoxSettings settings = box.settingsAs<BoxSettings>();
        settings.password = sentPassword;
        const qsizetype requests = box.journal().size();
        const BoxLogWatch watch;

        const auto ftpError = awaitError<BoxError>(FTPClient(settings).listFiles());
        QVERIFY(ftpError);
        QCOMPARE(ftpError->description(), u"FTP-Fehler: "_s + ftpError->message());
        QVERIFY(matches(ftpFailure + u"curl-Code 67 \\(Anmeldung abgelehnt \\(Benutzer/Passwort\\)\\) – "_s +
                            QRegularExpression::escape(ftpError->message()) + u'$',
                        watch.entries().value(1)));
        QCOMPARE(awaitFailure<TelnetError>(telnet(settings, u"echo nie"_s)),
                 u"Telnet: Anmeldung fehlgeschlagen. Benutzer und Passwort prüfen."_s);
        // A quiet request: its failure is logged all the same.
        const WebIf web(settings);
        const auto httpError = awaitError<BoxError>(web.signal());
        QVERIFY(httpError);
        QCOMPARE(httpError->status(), 401);
        QCOMPARE(httpError->description(), u"HTTP-Fehler 401 beim Neuladen der Senderliste."_s);
        QCOMPARE(watch.entries().mid(4),
                 QStringList{u"ERR  HTTP       "_s + http(box) + u"/web/signal → HTTP 401 (Anmeldung abgelehnt)"_s});
        // No Telnet command ran; the web request was the only one.
        const QList<FakeBoxRequest> journal = box.journal().mid(requests);
        QCOMPARE(journal.size(), 1);
        QCOMPARE(journal.first().authorization, QString::fromLatin1(web.authorization()));
    }

    void unreachable()
    {
        BoxSettings settings = this->settings();
        settings.ftpPort = settings.telnetPort = settings.httpPort = closedPort();
        const BoxLogWatch watch;
        QVERIFY(awaitError<BoxError>(FTPClient(settings).download(u"lamedb"_s)));
        QVERIFY(matches(ftpFailure + u"curl-Code 7 \\(Verbindung abgelehnt / Box nicht erreichbar\\) – curl: \\(7\\)"_s,
                        watch.entries().value(1)));
        QCOMPARE(awaitFailure<TelnetError>(telnet(settings, u"uptime"_s)),
                 u"Telnet: Keine Verbindung zu Port %1. Ist Telnet auf der Box aktiviert?"_s.arg(settings.telnetPort));
        QCOMPARE(awaitFailure<MessageError>(WebIf(settings).reloadServices(0)),
                 u"Es konnte keine Verbindung zum Server hergestellt werden."_s);
    }

    void stallingBox()
    {
        FakeBoxOptions options;
        // No byte at all: curl averages the speed over a few seconds, so earlier bytes would delay the abort.
        options.stall = 30;
        options.telnetSilent = true;
        const FakeBox box(options);
        QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
        QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/lamedb"_s), m_files.value(u"lamedb5"_s).left(200'000)));
        const BoxSettings settings = box.settingsAs<BoxSettings>();
        const BoxLogWatch watch;
        FTPClient ftp(settings);
        ftp.setSpeedTime(1);
        QVERIFY(awaitFailure<BoxError>(ftp.download(u"lamedb"_s)).contains(u"(28)"_s));
        QVERIFY(matches(ftpFailure + u"curl-Code 28 \\(Zeitüberschreitung\\) – "_s, watch.entries().value(1)));

        // A time-out is no HTTP status.
        QCOMPARE(awaitFailure<MessageError>(WebIf(settings).get(u"/web/signal"_s, {}, 300ms, true)),
                 u"Zeitüberschreitung bei der Anforderung."_s);
        QVERIFY(matches(u"^ERR  HTTP       "_s + http(box) +
                            u"/web/signal fehlgeschlagen nach \\d+\\.\\d\\d s: Zeitüberschreitung bei der Anforderung\\.$"_s,
                        watch.entries().value(2)));
        // A Telnet box that never shows a prompt.
        QCOMPARE(awaitError<TelnetError>(telnet(settings, u"uptime"_s, 500ms)).value().kind(), TelnetError::Kind::timeout);
    }

    void failingBox()
    {
        FakeBoxOptions options;
        options.dropAfter = 5000;
        options.httpStatus = 500;
        const FakeBox box(options);
        QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
        QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/lamedb"_s), m_files.value(u"lamedb5"_s).left(500'000)));
        const BoxSettings settings = box.settingsAs<BoxSettings>();
        const BoxLogWatch watch;
        // Connections dropped halfway.
        QVERIFY(awaitError<BoxError>(FTPClient(settings).download(u"lamedb"_s)));
        QVERIFY(matches(ftpFailure, watch.entries().value(1)));
        QCOMPARE(awaitError<TelnetError>(telnet(settings, u"seq 1 5000"_s)).value().kind(), TelnetError::Kind::closed);
        // A failing handler, and an unknown path.
        QCOMPARE(awaitFailure<BoxError>(WebIf(settings).reloadServices(0)), u"HTTP-Fehler 500 beim Neuladen der Senderliste."_s);
        QCOMPARE(watch.entries().last(), u"ERR  HTTP       "_s + http(box) + u"/web/servicelistreload?mode=0 → HTTP 500"_s);
        QCOMPARE(awaitError<BoxError>(WebIf(settings).get(u"/nothing"_s, {}, 5s, false)).value().status(), 404);
    }
};

QTEST_GUILESS_MAIN(BoxTest)
#include "BoxTest.moc"
