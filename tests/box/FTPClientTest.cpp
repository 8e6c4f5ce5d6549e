#include "Await.h"
#include "BoxError.h"
#include "BoxLogWatch.h"
#include "FTPClient.h"
#include "FakeBox.h"
#include "Fixtures.h"
#include "TestSupport.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <unistd.h>

using namespace Qt::StringLiterals;

// The FTP client with the real curl against the receiver test double.
class FTPClientTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void configuration();
    void escaped_data();
    void escaped();
    void urls_data();
    void urls();
    void noHost();
    void actionAndTarget_data();
    void actionAndTarget();
    void listing();
    void logWording_data();
    void logWording();
    void listAndDownload();
    void listOtherFolders();
    void largeDownload();
    void manyFiles();
    void uploads();
    void refusedLogin_data();
    void refusedLogin();
    void unreachablePort();
    void stalledTransferKeepsPasswordOffCommandLine();
    void droppedConnection();
    void missingCurl();

private:
    std::unique_ptr<FakeBox> m_box;
    QByteArray m_large;
};

namespace {

const QString password = u"pa\"ss\\wört"_s;
const QStringList boxNames{u"lamedb"_s,           u"userbouquet.a b.tv"_s, u"userbouquet.#1.tv"_s,
                           u"userbouquet.[x]{y}.tv"_s, u"userbouquet.50%.tv"_s, u"Grüße.tv"_s};

QByteArray contentOf(const QString &name)
{
    return "#NAME " + name.toUtf8() + "\r\n#SERVICE 1:0:19:2B66:401:1:C00000:0:0:0:\r\n";
}

// The command lines of this process's curl children.
QStringList curlCommandLines()
{
    QStringList lines;
    const QString self = QString::number(getpid());
    for (const QString &pid : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const QByteArray stat = TestSupport::readFile(u"/proc/"_s + pid + u"/stat"_s);
        // pid (comm) state ppid ...
        const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        if (fields.size() < 2 || QString::fromLatin1(fields[1]) != self || !stat.contains("(curl)"))
            continue;
        QByteArray cmdline = TestSupport::readFile(u"/proc/"_s + pid + u"/cmdline"_s);
        // An exiting process (a zombie) shows an empty command line.
        if (!cmdline.isEmpty())
            lines << QString::fromUtf8(cmdline.replace('\0', ' '));
    }
    return lines;
}

} // namespace

void FTPClientTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    FakeBoxOptions options;
    options.password = password;
    m_box = std::make_unique<FakeBox>(options);
    QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
    for (const QString &name : boxNames)
        QVERIFY(TestSupport::writeFile(m_box->path(u"/etc/enigma2/"_s + name), contentOf(name)));
    QVERIFY(QDir().mkpath(m_box->path(u"/media/hdd/picon"_s)));
    QVERIFY(TestSupport::writeFile(m_box->path(u"/usr/share/enigma2/picon/1_0_1_A_B_C_D_0_0_0.png"_s), "png"));
    m_large.resize(3 * 1024 * 1024);
    QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(m_large.data()), m_large.size() / 4);
    QVERIFY(TestSupport::writeFile(m_box->path(u"/etc/enigma2/lamedb5"_s), m_large));
}

void FTPClientTest::cleanupTestCase()
{
    const QString log = BoxLog::shared().tail(10'000'000);
    QVERIFY(log.contains(u"FTP"_s));
    QVERIFY(!log.contains(u"wört"_s));
    QVERIFY(!log.contains(u"pa\\\"ss"_s));
}

void FTPClientTest::configuration()
{
    BoxSettings settings;
    settings.host = u"box"_s;
    settings.password = u"a\"b\\c"_s;
    FTPClient ftp(settings);
    QCOMPARE(ftp.configuration({u"url = \"ftp://x/\""_s, u"list-only"_s}),
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

    // Only runs of several files spread over a few connections, and never show curl's meter.
    QCOMPARE(FTPClient::manyFileLines(1), QStringList());
    QCOMPARE(FTPClient::manyFileLines(2),
             (QStringList{u"parallel"_s, u"parallel-max = 4"_s, u"no-progress-meter"_s}));
}

void FTPClientTest::escaped_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << u"root:secret"_s << u"root:secret"_s;
    QTest::newRow("quote") << u"a\"b"_s << u"a\\\"b"_s;
    QTest::newRow("backslash first, then quote") << u"\\\""_s << u"\\\\\\\""_s;
    QTest::newRow("path with blanks") << u"/tmp/my list/lamedb"_s << u"/tmp/my list/lamedb"_s;
    QTest::newRow("control characters") << u"a\tb\rc\nd"_s << u"a\\tb\\rc\\nd"_s;
}

void FTPClientTest::escaped()
{
    QFETCH(QString, value);
    QFETCH(QString, expected);
    QCOMPARE(FTPClient::escaped(value), expected);
}

void FTPClientTest::urls_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expected");
    const QString base = u"ftp://192.168.1.2:2121"_s;
    QTest::newRow("plain") << u"/etc/enigma2/"_s << u"lamedb"_s << base + u"/etc/enigma2/lamedb"_s;
    QTest::newRow("slashes added") << u"etc/enigma2"_s << u"lamedb"_s << base + u"/etc/enigma2/lamedb"_s;
    QTest::newRow("blank, hash, brackets") << u"/e/"_s << u"a b#[1].tv"_s << base + u"/e/a%20b%23%5B1%5D.tv"_s;
    QTest::newRow("braces and percent") << u"/e/"_s << u"{x}50%"_s << base + u"/e/%7Bx%7D50%25"_s;
    QTest::newRow("umlauts as UTF-8") << u"/e/"_s << u"Grüße"_s << base + u"/e/Gr%C3%BC%C3%9Fe"_s;
    QTest::newRow("path characters stay") << u"/e/"_s << u"a!$&'()*+,;=@~-_.:b"_s << base + u"/e/a!$&'()*+,;=@~-_.:b"_s;
    QTest::newRow("folder keeps its slashes") << u"/media//my picons#1"_s << u"a b"_s
                                              << base + u"/media//my%20picons%231/a%20b"_s;
    QTest::newRow("no file lists the folder") << u"/picon"_s << QString() << base + u"/picon/"_s;
}

void FTPClientTest::urls()
{
    QFETCH(QString, directory);
    QFETCH(QString, file);
    QFETCH(QString, expected);
    BoxSettings settings;
    settings.host = u"  192.168.1.2 "_s;
    settings.ftpPort = 2121;
    settings.directory = u"etc/enigma2"_s;
    const FTPClient ftp(settings);
    QCOMPARE(ftp.fileURL(directory, file), expected);
    QCOMPARE(ftp.baseURL(), u"ftp://192.168.1.2:2121/etc/enigma2/"_s);
}

void FTPClientTest::noHost()
{
    BoxSettings settings;
    settings.host = u" \t "_s;
    const FTPClient ftp(settings);
    const BoxLogWatch watch;
    for (const auto &operation : std::initializer_list<std::function<void()>>{
             [&] { ftp.baseURL(); },
             [&] { ftp.fileURL(u"/"_s, u"x"_s); },
             [&] { await(ftp.listFiles()); },
             [&] { await(ftp.download(u"lamedb"_s)); },
             [&] { await(ftp.upload(u"/etc/hostname"_s, u"x"_s)); },
             [&] { await(ftp.download(QStringList{u"a"_s}, u"/"_s, QDir::tempPath())); }}) {
        try {
            operation();
            QFAIL("no error thrown");
        } catch (const BoxError &error) {
            QCOMPARE(error.kind(), BoxError::Kind::noHost);
            QCOMPARE(error.description(), u"Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen."_s);
        }
    }
    QCOMPARE(watch.lines(), QStringList());
}

void FTPClientTest::actionAndTarget_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("target");
    QTest::newRow("listing") << QStringList{u"url = \"ftp://h:21/etc/\""_s, u"list-only"_s} << u"Verzeichnis lesen"_s
                             << u"ftp://h:21/etc/"_s;
    QTest::newRow("download") << QStringList{u"url = \"ftp://h:21/a\""_s} << u"Herunterladen"_s << u"ftp://h:21/a"_s;
    QTest::newRow("upload wins over listing")
        << QStringList{u"list-only"_s, u"upload-file = \"/x\""_s, u"url = \"ftp://h:21/a\""_s} << u"Hochladen"_s
        << u"ftp://h:21/a"_s;
    QTest::newRow("many files") << QStringList{u"url = \"ftp://h/a\""_s, u"output = \"/t/a\""_s, u"url = \"ftp://h/b\""_s,
                                               u"output = \"/t/b\""_s, u"url = \"ftp://h/c\""_s}
                                << u"Herunterladen"_s << u"3 Dateien, z. B. ftp://h/a"_s;
    QTest::newRow("no url") << QStringList{u"ftp-create-dirs"_s} << u"Herunterladen"_s << u"0 Dateien, z. B. -"_s;
}

void FTPClientTest::actionAndTarget()
{
    QFETCH(QStringList, lines);
    QFETCH(QString, action);
    QFETCH(QString, target);
    QCOMPARE(FTPClient::action(lines), action);
    QCOMPARE(FTPClient::target(lines), target);
}

void FTPClientTest::listing()
{
    QCOMPARE(FTPClient::listing("lamedb\r\n  bouquets.tv \r\n\r\n\nuserbouquet.a b.tv\n"),
             (QStringList{u"lamedb"_s, u"bouquets.tv"_s, u"userbouquet.a b.tv"_s}));
    QCOMPARE(FTPClient::listing(""), QStringList());
    QCOMPARE(FTPClient::listing("caf\xe9.tv\n"), QStringList{u"caf\uFFFD.tv"_s});
}

void FTPClientTest::logWording_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("errorText");
    QTest::addColumn<QString>("expected");
    QTest::newRow("login refused") << 67 << u"curl: (67) Access denied: 530"_s
                                   << u"Verzeichnis lesen fehlgeschlagen nach 1.25 s: curl-Code 67 "
                                      "(Anmeldung abgelehnt (Benutzer/Passwort)) – curl: (67) Access denied: 530"_s;
    QTest::newRow("no hint for 3") << 3 << u"curl: (3) URL rejected"_s
                                   << u"Verzeichnis lesen fehlgeschlagen nach 1.25 s: curl-Code 3 – curl: (3) URL rejected"_s;
    QTest::newRow("no text") << 28 << QString()
                             << u"Verzeichnis lesen fehlgeschlagen nach 1.25 s: curl-Code 28 (Zeitüberschreitung)"_s;
}

void FTPClientTest::logWording()
{
    QFETCH(int, status);
    QFETCH(QString, errorText);
    QFETCH(QString, expected);
    QCOMPARE(FTPClient::failureMessage(u"Verzeichnis lesen"_s, 1.254, status, errorText), expected);
    QCOMPARE(FTPClient::successMessage(u"Hochladen"_s, 0.5, 0, {}), u"Hochladen fertig in 0.50 s, 0 Bytes empfangen"_s);
    QCOMPARE(FTPClient::successMessage(u"Herunterladen"_s, 12.345, 391204, u"Warnung"_s),
             u"Herunterladen fertig in 12.35 s, 391204 Bytes empfangen – Hinweise: Warnung"_s);
}

void FTPClientTest::listAndDownload()
{
    const FTPClient ftp(m_box->settingsAs<BoxSettings>());
    const BoxLogWatch watch;
    QStringList names = await(ftp.listFiles());
    names.sort();
    QStringList expected = boxNames + QStringList{u"lamedb5"_s};
    expected.sort();
    QCOMPARE(names, expected);

    const QString base = u"ftp://127.0.0.1:"_s + QString::number(m_box->connection().ftpPort) + u"/etc/enigma2/"_s;
    const QStringList messages = watch.messages(u"FTP"_s);
    QCOMPARE(messages.value(0), u"Verzeichnis lesen: "_s + base);
    QVERIFY2(QRegularExpression(u"^Verzeichnis lesen fertig in \\d+\\.\\d\\d s, \\d+ Bytes empfangen$"_s)
                 .match(messages.value(1))
                 .hasMatch(),
             qPrintable(messages.value(1)));
    QVERIFY(watch.entries().value(1).startsWith(u"OK   FTP  "_s));

    for (const QString &name : boxNames)
        QCOMPARE(await(ftp.download(name)), contentOf(name));
}

void FTPClientTest::listOtherFolders()
{
    const FTPClient ftp(m_box->settingsAs<BoxSettings>());
    QCOMPARE(await(ftp.list(u"/usr/share/enigma2/picon/"_s)), QStringList{u"1_0_1_A_B_C_D_0_0_0.png"_s});
    // An empty folder is an empty list, not an error.
    QCOMPARE(await(ftp.list(u"media/hdd/picon"_s)), QStringList());
}

void FTPClientTest::largeDownload()
{
    const FTPClient ftp(m_box->settingsAs<BoxSettings>());
    const BoxLogWatch watch;
    QCOMPARE(await(ftp.download(u"lamedb5"_s)), m_large);
    QVERIFY(watch.messages(u"FTP"_s).value(1).contains(u", 3145728 Bytes empfangen"_s));
}

void FTPClientTest::manyFiles()
{
    const FTPClient ftp(m_box->settingsAs<BoxSettings>());
    QTemporaryDir local;
    const BoxLogWatch watch;
    QStringList names{u"lamedb"_s, u"fehlt.tv"_s, u"userbouquet.[x]{y}.tv"_s};
    QCOMPARE(await(ftp.download(names, u"/etc/enigma2"_s, local.path())), 2);
    QCOMPARE(TestSupport::readFile(local.filePath(u"lamedb"_s)), contentOf(u"lamedb"_s));
    QCOMPARE(TestSupport::readFile(local.filePath(u"userbouquet.[x]{y}.tv"_s)), contentOf(u"userbouquet.[x]{y}.tv"_s));
    QVERIFY(!QFile::exists(local.filePath(u"fehlt.tv"_s)));
    const QString base = u"ftp://127.0.0.1:"_s + QString::number(m_box->connection().ftpPort) + u"/etc/enigma2/"_s;
    QCOMPARE(watch.messages(u"FTP"_s).value(0), u"Herunterladen: 3 Dateien, z. B. "_s + base + u"lamedb"_s);
    // Several transfers at once: curl fails when any of them misses, and the miss is swallowed.
    QVERIFY(watch.entries().value(1).startsWith(u"ERR  FTP        Herunterladen fehlgeschlagen nach "_s));
    QVERIFY(watch.entries().value(1).contains(u": curl-Code 78 (Datei auf der Box nicht gefunden) – "_s));

    // The same with the miss last.
    QTemporaryDir second;
    const BoxLogWatch secondWatch;
    names.move(1, 2);
    QCOMPARE(await(ftp.download(names, u"/etc/enigma2/"_s, second.path())), 2);
    QVERIFY(secondWatch.entries().value(1).startsWith(u"ERR  FTP        Herunterladen fehlgeschlagen nach "_s));
    QVERIFY(secondWatch.entries().value(1).contains(u": curl-Code 78 (Datei auf der Box nicht gefunden) – "_s));

    // A name that would leave the local folder is skipped, although the box has such a file.
    QVERIFY(TestSupport::writeFile(m_box->path(u"/etc/outside.tv"_s), "hostile"));
    QTemporaryDir parent;
    const QString target = parent.filePath(u"picons"_s);
    QVERIFY(QDir().mkpath(target));
    QCOMPARE(await(ftp.download(QStringList{u"../outside.tv"_s, u"lamedb"_s, u".."_s}, u"/etc/enigma2/"_s, target)), 1);
    QVERIFY(!QFile::exists(parent.filePath(u"outside.tv"_s)));
    QCOMPARE(QDir(target).entryList(QDir::Files), QStringList{u"lamedb"_s});

    // Nothing there at all is no error either; a folder that is missing is.
    QTemporaryDir empty;
    QCOMPARE(await(ftp.download(QStringList{u"a.png"_s, u"b.png"_s}, u"/media/hdd/picon/"_s, empty.path())), 0);
    QVERIFY_THROWS_EXCEPTION(BoxError, await(ftp.download(QStringList{u"a.png"_s}, u"/picon/"_s, empty.path())));
}

void FTPClientTest::uploads()
{
    const FTPClient ftp(m_box->settingsAs<BoxSettings>());
    QTemporaryDir local;
    QVERIFY(TestSupport::writeFile(local.filePath(u"bouquet"_s), "#NAME Neu\r\n"));
    QVERIFY(TestSupport::writeFile(local.filePath(u"one.png"_s), "\x89PNG one"));
    QVERIFY(TestSupport::writeFile(local.filePath(u"two [2].png"_s), "\x89PNG two"));

    const BoxLogWatch watch;
    await(ftp.upload(local.filePath(u"bouquet"_s), u"userbouquet.neu #1.tv"_s));
    QCOMPARE(TestSupport::readFile(m_box->path(u"/etc/enigma2/userbouquet.neu #1.tv"_s)), QByteArray("#NAME Neu\r\n"));
    QVERIFY(watch.messages(u"FTP"_s).value(0).startsWith(u"Hochladen: ftp://"_s));

    // A folder that does not exist yet is created.
    await(ftp.upload(QList<FTPClient::Upload>{{local.filePath(u"one.png"_s), u"1_0_19_[A].png"_s},
                                              {local.filePath(u"two [2].png"_s), u"b c#.png"_s}},
                     u"/media/usb/neue picons/"_s));
    QCOMPARE(TestSupport::readFile(m_box->path(u"/media/usb/neue picons/1_0_19_[A].png"_s)), QByteArray("\x89PNG one"));
    QCOMPARE(TestSupport::readFile(m_box->path(u"/media/usb/neue picons/b c#.png"_s)), QByteArray("\x89PNG two"));
    QVERIFY(watch.messages(u"FTP"_s).value(2).startsWith(u"Hochladen: 2 Dateien, z. B. ftp://"_s));

    // Names that would leave the folder on the box are refused before anything runs.
    const BoxLogWatch refused;
    for (const QString &name : {u"../escape.tv"_s, u".."_s, QString()}) {
        QVERIFY_THROWS_EXCEPTION(MessageError, await(ftp.upload(local.filePath(u"bouquet"_s), name)));
        QVERIFY_THROWS_EXCEPTION(MessageError, await(ftp.upload(QList<FTPClient::Upload>{{local.filePath(u"one.png"_s), name}},
                                                                u"/media/usb/"_s)));
    }
    QCOMPARE(refused.lines(), QStringList());
    QVERIFY(!QFile::exists(m_box->path(u"/etc/escape.tv"_s)));

    // No files: nothing to run.
    const BoxLogWatch idle;
    await(ftp.upload(QList<FTPClient::Upload>{}, u"/x/"_s));
    QCOMPARE(idle.lines(), QStringList());
}

void FTPClientTest::refusedLogin_data()
{
    Fixtures::addRefusalRows();
}

void FTPClientTest::refusedLogin()
{
    QFETCH(bool, boxRefuses);
    const Fixtures::Refusal refusal = Fixtures::refusal(boxRefuses);
    QVERIFY2(refusal.box->isRunning(), qPrintable(refusal.box->errorString()));
    const BoxLogWatch watch;
    try {
        await(FTPClient(refusal.settings).listFiles());
        QFAIL("no error thrown");
    } catch (const BoxError &error) {
        QCOMPARE(error.kind(), BoxError::Kind::curl);
        QVERIFY2(error.message().contains(u"(67)"_s), qPrintable(error.message()));
        QCOMPARE(error.description(), u"FTP-Fehler: "_s + error.message());
        const QString expected = u"ERR  FTP        Verzeichnis lesen fehlgeschlagen nach \\d+\\.\\d\\d s: curl-Code 67 "
                                 "\\(Anmeldung abgelehnt \\(Benutzer/Passwort\\)\\) – "_s +
                                 QRegularExpression::escape(error.message()) + u'$';
        QVERIFY2(QRegularExpression(expected).match(watch.entries().value(1)).hasMatch(),
                 qPrintable(watch.entries().value(1)));
    }
}

void FTPClientTest::unreachablePort()
{
    BoxSettings settings = m_box->settingsAs<BoxSettings>();
    settings.ftpPort = Fixtures::closedPort();
    const BoxLogWatch watch;
    QVERIFY_THROWS_EXCEPTION(BoxError, await(FTPClient(settings).download(u"lamedb"_s)));
    QVERIFY2(watch.entries().value(1).contains(u": curl-Code 7 (Verbindung abgelehnt / Box nicht erreichbar) – curl: (7)"_s),
             qPrintable(watch.entries().value(1)));
}

void FTPClientTest::stalledTransferKeepsPasswordOffCommandLine()
{
    FakeBoxOptions options;
    options.password = password;
    // No byte at all: curl averages the speed over a few seconds, so earlier bytes would delay the abort.
    options.stall = 30;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/lamedb"_s), m_large.left(200'000)));

    QStringList seen;
    QTimer probe;
    connect(&probe, &QTimer::timeout, this, [&] { seen += curlCommandLines(); });
    probe.start(20);
    FTPClient ftp(box.settingsAs<BoxSettings>());
    ftp.setSpeedTime(1);
    const BoxLogWatch watch;
    try {
        await(ftp.download(u"lamedb"_s));
        QFAIL("no error thrown");
    } catch (const BoxError &error) {
        QVERIFY2(error.message().contains(u"(28)"_s), qPrintable(error.message()));
    }
    probe.stop();
    QVERIFY(watch.entries().value(1).contains(u": curl-Code 28 (Zeitüberschreitung) – "_s));

    QVERIFY(!seen.isEmpty());
    seen.removeDuplicates();
    for (const QString &line : std::as_const(seen)) {
        QCOMPARE(line, FTPClient::curlProgram() + u" -K - "_s);
        QVERIFY(!line.contains(u"wört"_s));
    }
}

void FTPClientTest::droppedConnection()
{
    FakeBoxOptions options;
    options.dropAfter = 5000;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/lamedb"_s), m_large.left(500'000)));
    const BoxLogWatch watch;
    try {
        await(FTPClient(box.settingsAs<BoxSettings>()).download(u"lamedb"_s));
        QFAIL("no error thrown");
    } catch (const BoxError &error) {
        QCOMPARE(error.kind(), BoxError::Kind::curl);
        QVERIFY(error.description().startsWith(u"FTP-Fehler: curl: ("_s));
    }
    QVERIFY(watch.entries().value(1).startsWith(u"ERR  FTP        Herunterladen fehlgeschlagen nach "_s));
}

void FTPClientTest::missingCurl()
{
    FTPClient ftp(m_box->settingsAs<BoxSettings>());
    ftp.setProgram(u"/nonexistent/curl"_s);
    const BoxLogWatch watch;
    try {
        await(ftp.listFiles());
        QFAIL("no error thrown");
    } catch (const BoxError &) {
        QFAIL("a start failure is not a transfer failure");
    } catch (const MessageError &error) {
        QVERIFY2(error.description().startsWith(u"curl konnte nicht gestartet werden: "_s),
                 qPrintable(error.description()));
    }
    QVERIFY(watch.entries().value(1).startsWith(u"ERR  FTP        Verzeichnis lesen fehlgeschlagen nach "_s));
}

QTEST_GUILESS_MAIN(FTPClientTest)
#include "FTPClientTest.moc"
