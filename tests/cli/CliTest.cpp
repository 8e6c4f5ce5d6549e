#include "BoxSettings.h"
#include "Error.h"
#include "FakeBox.h"
#include "Paths.h"
#include "Store.h"
#include "TestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// corvandel-cli as its users run it: the built program on the example list, on the corpus and on
// damaged copies of it, and its box commands against the receiver test double with the real curl.
class CliTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void usage_data();
    void usage();
    void infoAndDump_data();
    void infoAndDump();
    void checkCorpus_data();
    void checkCorpus();
    void checkFindsEachProblem_data();
    void checkFindsEachProblem();
    void boxRoundTrip();
    void boxFailures_data();
    void boxFailures();

private:
    QTemporaryDir m_work;
};

namespace {

struct Outcome
{
    int status = -1;
    QString out;
    QString err;
};

Outcome cli(const QStringList &arguments, const QHash<QString, QString> &environment = {})
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(u"CORVANDEL_PASSWORD"_s);
    for (auto it = environment.cbegin(); it != environment.cend(); ++it)
        env.insert(it.key(), it.value());
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(CORVANDEL_CLI), arguments);
    process.closeWriteChannel();
    if (!process.waitForFinished(120'000)) {
        process.kill();
        process.waitForFinished();
    }
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QStringList lines(const QString &text)
{
    return text.split(u'\n', Qt::SkipEmptyParts);
}

// The files of a folder (not its sub-folders) by name.
QMap<QString, QByteArray> filesIn(const QString &folder)
{
    QMap<QString, QByteArray> files;
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        files.insert(name, TestSupport::readFile(folder + u'/' + name));
    return files;
}

void copyFiles(const QString &from, const QString &to)
{
    const QMap<QString, QByteArray> files = filesIn(from);
    for (auto it = files.cbegin(); it != files.cend(); ++it)
        QVERIFY(TestSupport::writeFile(to + u'/' + it.key(), it.value()));
}

// Replaces the first `find` in the file by `replace`; an empty `find` appends, a null `replace`
// removes the file.
void edit(const QString &path, const QByteArray &find, const QByteArray &replace)
{
    if (replace.isNull()) {
        QVERIFY(QFile::remove(path));
        return;
    }
    QByteArray text = TestSupport::readFile(path);
    if (find.isEmpty()) {
        text += replace;
    } else {
        const qsizetype at = text.indexOf(find);
        QVERIFY2(at >= 0, find.constData());
        text.replace(at, find.size(), replace);
    }
    QVERIFY(TestSupport::writeFile(path, text));
}

// A loopback port on which nothing listens once this returns.
QString unusedPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return QString::number(server.serverPort());
}

QStringList connectionTo(const FakeBox &box)
{
    return {u"--host"_s,      u"127.0.0.1"_s,
            u"--user"_s,      box.connection().user,
            u"--ftp-port"_s,  QString::number(box.connection().ftpPort),
            u"--http-port"_s, QString::number(box.connection().httpPort)};
}

QStringList reloadModes(const FakeBox &box)
{
    QStringList modes;
    for (const FakeBoxRequest &request : box.journal()) {
        if (request.path == u"/web/servicelistreload") modes << request.value(u"mode"_s);
    }
    return modes;
}

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    return files;
}

} // namespace

void CliTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    // The German texts, whatever translations are installed.
    QSettings(u"Corvandel"_s, u"Corvandel"_s).setValue(u"language"_s, u"de"_s);
}

void CliTest::init()
{
    QDir(Paths::dataDir()).removeRecursively();
    QDir(m_work.path()).removeRecursively();
    QDir().mkpath(m_work.path());
}

void CliTest::usage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("expected");

    QTest::newRow("program help") << QStringList{u"--help"_s} << 0 << u"upload ORDNER"_s;
    QTest::newRow("version") << QStringList{u"-v"_s} << 0 << u"corvandel-cli " CORVANDEL_VERSION ""_s;
    for (const QString &command : {u"info"_s, u"dump"_s, u"check"_s, u"download"_s, u"upload"_s, u"backup"_s,
                                   u"reload"_s, u"test"_s}) {
        QTest::addRow("help of %s", qPrintable(command))
            << QStringList{command, u"--help"_s} << 0 << u"Aufruf: corvandel-cli "_s + command;
    }
    QTest::newRow("box options") << QStringList{u"upload"_s, u"-h"_s} << 0 << u"--password-file DATEI"_s;
    QTest::newRow("no command") << QStringList{} << 2 << u"Es fehlt ein Befehl."_s;
    QTest::newRow("unknown command") << QStringList{u"frobnicate"_s} << 2
                                     << u"Unbekannter Befehl „frobnicate“."_s;
    QTest::newRow("no folder") << QStringList{u"info"_s} << 2 << u"ORDNER fehlt."_s;
    QTest::newRow("two folders") << QStringList{u"check"_s, u"a"_s, u"b"_s} << 2
                                 << u"Zu viele Argumente: a b"_s;
    QTest::newRow("password as argument")
        << QStringList{u"test"_s, u"--password"_s, u"secret"_s} << 2 << u"Unbekannte Option „password“."_s;
    QTest::newRow("mode") << QStringList{u"reload"_s, u"--mode"_s, u"9"_s} << 2 << u"„9“ ist kein Modus"_s;
    QTest::newRow("port") << QStringList{u"test"_s, u"--ftp-port"_s, u"x"_s} << 2
                          << u"„x“ ist keine Portnummer"_s;
    QTest::newRow("password file") << QStringList{u"test"_s, u"--password-file"_s, u"/nonexistent/pw"_s} << 2
                                   << u"Die Passwortdatei „/nonexistent/pw“ konnte nicht gelesen werden"_s;
}

void CliTest::usage()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QString, expected);

    const Outcome outcome = cli(arguments);
    QCOMPARE(outcome.status, status);
    QVERIFY2((status == 0 ? outcome.out : outcome.err).contains(expected),
             qPrintable(outcome.out + outcome.err));
    // Errors alone: nothing on standard output.
    QCOMPARE(outcome.out.isEmpty(), status != 0);
}

void CliTest::infoAndDump_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("examples") << TestSupport::examplesDir();
    const QString corpus = TestSupport::corpusDir();
    for (const QString &folder : TestSupport::corpusListFolders())
        QTest::newRow(qPrintable(folder.mid(corpus.size() + 1))) << folder;
}

// Both agree with what the editor's store loads from the same folder.
void CliTest::infoAndDump()
{
    QFETCH(QString, folder);
    Store store{BoxSettings{}};
    std::optional<QString> failure;
    try {
        store.load(folder);
    } catch (const Error &error) {
        failure = error.description();
    }
    const Outcome info = cli({u"info"_s, folder});
    const Outcome json = cli({u"dump"_s, u"--json"_s, folder});
    const Outcome table = cli({u"dump"_s, folder});
    if (failure) {
        for (const Outcome &outcome : {info, json, table}) {
            QCOMPARE(outcome.status, 2);
            QVERIFY(outcome.out.isEmpty());
            QVERIFY2(outcome.err.contains(*failure), qPrintable(outcome.err));
        }
        return;
    }

    QCOMPARE(info.status, 0);
    const QStringList summary = lines(info.out);
    QCOMPARE(summary.first(), store.status());
    const QList<Service> &services = store.services();
    const auto radio = std::count_if(services.cbegin(), services.cend(), [](const Service &service) {
        return service.kind() == MediaKind::radio;
    });
    QVERIFY(summary.contains(
        u"Sender: %1 (TV: %2, Radio: %3)"_s.arg(services.size()).arg(services.size() - radio).arg(radio)));
    QVERIFY(summary.contains(u"Unbenutzte Sender: %1"_s.arg(store.unusedServiceKeys().size())));
    const qsizetype missingAt = store.status().indexOf(u" Fehlende Dateien: "_s);
    const qsizetype missing = missingAt < 0 ? 0 : store.status().mid(missingAt).count(u',') + 1;
    QVERIFY(info.out.contains(u"Fehlende Bouquet-Dateien: %1"_s.arg(missing)));

    QCOMPARE(json.status, 0);
    QJsonParseError error;
    const QJsonObject document = QJsonDocument::fromJson(json.out.toUtf8(), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QVERIFY(store.status().contains(u'(' + document.value(u"database"_s).toString() + u')'));
    const QJsonArray dumped = document.value(u"services"_s).toArray();
    QCOMPARE(dumped.size(), store.baseServices().size());
    for (qsizetype i = 0; i < dumped.size(); ++i) {
        const Service &service = store.baseServices().at(i);
        QCOMPARE(dumped.at(i).toObject(), QJsonObject({{u"reference"_s, reference(service)},
                                                       {u"type"_s, qint64(service.type)},
                                                       {u"name"_s, service.name},
                                                       {u"provider"_s, service.provider},
                                                       {u"position"_s, service.position}}));
    }
    QList<Bouquet> bouquets =
        store.bouquets().value(MediaKind::tv) + store.bouquets().value(MediaKind::radio);
    const QJsonArray dumpedBouquets = document.value(u"bouquets"_s).toArray();
    QCOMPARE(dumpedBouquets.size(), bouquets.size());
    qsizetype tableLines = 2 + services.size();
    for (qsizetype b = 0; b < bouquets.size(); ++b) {
        const QJsonObject item = dumpedBouquets.at(b).toObject();
        const Bouquet &bouquet = bouquets.at(b);
        QCOMPARE(item.value(u"fileName"_s).toString(), bouquet.fileName);
        QCOMPARE(item.value(u"name"_s).toString(), bouquet.name);
        QCOMPARE(item.value(u"kind"_s).toString(), bouquet.kind.rawValue());
        const QJsonArray entries = item.value(u"entries"_s).toArray();
        QCOMPARE(entries.size(), bouquet.entries.size());
        for (qsizetype e = 0; e < entries.size(); ++e) {
            const QJsonObject entry = entries.at(e).toObject();
            const BouquetEntry &expected = bouquet.entries.at(e);
            QCOMPARE(entry.value(u"reference"_s).toString(), expected.reference);
            QCOMPARE(entry.value(u"description"_s),
                     expected.description ? QJsonValue(*expected.description) : QJsonValue());
            QCOMPARE(entry.value(u"displayName"_s).toString(), store.displayName(expected));
        }
        tableLines += 2 + bouquet.entries.size();
        QVERIFY(table.out.contains(u"-Bouquet %1: „%2“, %3 Einträge"_s.arg(bouquet.fileName, bouquet.name)
                                       .arg(bouquet.entries.size())));
    }
    // Every service and entry on a line of its own, under a title and a header per table.
    QCOMPARE(table.status, 0);
    QCOMPARE(lines(table.out).size(), tableLines);
}

void CliTest::checkCorpus_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("findings");

    const QString corpus = TestSupport::corpusDir();
    if (corpus.isEmpty()) QSKIP("the corpus of channel lists is missing");
    const QString missing = u"Die Bouquet-Datei „%1“ fehlt."_s;
    const QString unlisted = u": Keine Indexdatei nennt diese Bouquet-Datei."_s;
    QTest::newRow("missing bouquet") << corpus + u"/horsti58-enigma2-settings/enigma2"_s << 1
                                     << QStringList{u"bouquets.tv:8: "_s +
                                                    missing.arg(u"userbouquet.LastScanned.tv"_s)};
    QTest::newRow("bouquets without database")
        << corpus + u"/djgueto-pluto-subbouquets-5f1fdb6"_s << 1
        << QStringList{u"bouquets.tv:2: "_s + missing.arg(u"userbouquet.dbe37.tv"_s),
                       u"bouquets.tv:3: "_s + missing.arg(u"userbouquet.tdt__solo_decos_con_tdt_.tv"_s)};
    QTest::newRow("unlisted bouquets")
        << corpus + u"/djgueto-listadecanales"_s << 1
        << QStringList{u"userbouquet.m__18_abril_sat.tv"_s + unlisted, u"userbouquet.nueva.tv"_s + unlisted};
    QTest::newRow("damaged providers")
        << corpus + u"/xheen908-unitymedia-mixed"_s << 1 << QStringList{u"zu „p:DVB-S2 QPSK 12343H 28.2°E"_s};
    QTest::newRow("clean") << corpus + u"/mtcnl-ziggo-cable"_s << 0 << QStringList{};
    QTest::newRow("no folder") << m_work.path() + u"/nothing"_s << 2 << QStringList{};
}

void CliTest::checkCorpus()
{
    QFETCH(QString, folder);
    QFETCH(int, status);
    QFETCH(QStringList, findings);

    const Outcome outcome = cli({u"check"_s, folder});
    QCOMPARE(outcome.status, status);
    const QStringList found = lines(outcome.out);
    QCOMPARE(found.isEmpty(), findings.isEmpty());
    for (const QString &finding : findings) {
        QVERIFY2(std::any_of(found.cbegin(), found.cend(),
                             [&](const QString &line) { return line.contains(finding); }),
                 qPrintable(finding));
    }
}

void CliTest::checkFindsEachProblem_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("find");
    QTest::addColumn<QByteArray>("replace");
    // "{line}" stands for the line of the replacement in the file named first.
    QTest::addColumn<QString>("finding");

    const QByteArray stranger = "#SERVICE 1:0:1:FFFF:FFFF:FFFF:FFFF0000:0:0:0:\r\n";
    const QByteArray link =
        "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.none.tv\" ORDER BY bouquet\n";
    const QByteArray service = "s:0110:0082aaf0:3070:013e:0:0:0,\"\"";
    QTest::newRow("clean") << QString() << QByteArray() << QByteArray() << QString();
    QTest::newRow("missing bouquet")
        << u"userbouquet.orf.tv"_s << QByteArray() << QByteArray()
        << u"bouquets.tv:{line}: Die Bouquet-Datei „userbouquet.orf.tv“ fehlt."_s;
    QTest::newRow("unlisted bouquet")
        << u"userbouquet.stray.tv"_s << QByteArray() << QByteArray("#NAME Stray\n")
        << u"userbouquet.stray.tv: Keine Indexdatei nennt diese Bouquet-Datei."_s;
    QTest::newRow("unknown service")
        << u"userbouquet.bbc.tv"_s << QByteArray() << stranger
        << u"userbouquet.bbc.tv:{line}: Sender fehlt in lamedb5: 1:0:1:FFFF:FFFF:FFFF:FFFF0000:0:0:0:"_s;
    QTest::newRow("same service with another type")
        << u"userbouquet.bbc.tv"_s << QByteArray()
        << QByteArray("#SERVICE 1:0:1:B6D:7F3:2:11A305E:0:0:0:\r\n")
        << u"userbouquet.bbc.tv:{line}: Derselbe Sender wie in Zeile 2: 1:0:1:B6D:7F3:2:11A305E:0:0:0:"_s;
    QTest::newRow("missing sub-bouquet")
        << u"userbouquet.bbc.tv"_s << QByteArray() << link
        << u"userbouquet.bbc.tv:{line}: Die Bouquet-Datei „subbouquet.none.tv“ fehlt."_s;
    QTest::newRow("databases differ")
        << u"lamedb5"_s << service + ",f:40\n"
        << QByteArray("")
        << u"lamedb (4253 Sender) und lamedb5 (4252 Sender) enthalten unterschiedliche Sender."_s;
    QTest::newRow("damaged name")
        << u"lamedb"_s << QByteArray("\nRai Isoradio\n") << QByteArray("\nRai Ã–radio\n")
        << u"lamedb:{line}: Die Zeichenreparatur würde „Rai Ã–radio“ zu „Rai Öradio“ machen."_s;
    QTest::newRow("quote in a name")
        << u"lamedb5"_s << service << QByteArray("s:0110:0082aaf0:3070:013e:0:0:0,\"Say \"Hi\"\"")
        << u"lamedb5:{line}: Ein Anführungszeichen im Sendernamen zerbricht die Zeile."_s;
    QTest::newRow("line separator")
        << u"userbouquet.bbc.tv"_s << QByteArray("#NAME BBC (TV)") << QByteArray("#NAME BBC\u2028(TV)")
        << u"userbouquet.bbc.tv:{line}: Zeilenumbruch U+2028 mitten in der Zeile."_s;
}

// One fault at a time in a clean copy of a real list: exactly that finding, with its file and line.
void CliTest::checkFindsEachProblem()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, find);
    QFETCH(QByteArray, replace);
    QFETCH(QString, finding);

    const QString corpus = TestSupport::corpusDir();
    if (corpus.isEmpty()) QSKIP("the corpus of channel lists is missing");
    const QString folder = m_work.path() + u"/list"_s;
    copyFiles(corpus + u"/horsti58-enigma2-settings/enigma2"_s, folder);
    // The one fault of the original.
    QVERIFY(TestSupport::writeFile(folder + u"/userbouquet.LastScanned.tv"_s, "#NAME Last Scanned\r\n"));
    if (!file.isEmpty()) edit(folder + u'/' + file, find, replace);
    // A removed file is found where its index names it.
    const QByteArray marker = replace.isNull() ? file.toUtf8() : replace.trimmed();
    const QByteArray text = TestSupport::readFile(folder + u'/' + finding.section(u':', 0, 0));
    finding.replace(u"{line}"_s, QString::number(text.left(text.indexOf(marker)).count('\n') + 1));

    const Outcome outcome = cli({u"check"_s, folder});
    QCOMPARE(lines(outcome.out), finding.isEmpty() ? QStringList() : QStringList{finding});
    QCOMPARE(outcome.status, finding.isEmpty() ? 0 : 1);
}

void CliTest::boxRoundTrip()
{
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString boxFolder = box.path(u"/etc/enigma2"_s);
    copyFiles(TestSupport::examplesDir(), boxFolder);
    const QMap<QString, QByteArray> original = filesIn(boxFolder);

    // The editor's stored settings and password alone reach the box.
    BoxSettings stored = box.settingsAs<BoxSettings>();
    stored.save();
    Outcome outcome = cli({u"test"_s});
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.out.startsWith(
                 u"Verbindung OK: %1 Dateien in /etc/enigma2/, lamedb gefunden."_s.arg(original.size())),
             qPrintable(outcome.out + outcome.err));

    // From here on the command line overrides stored settings that no longer reach the box.
    stored.ftpPort = unusedPort().toInt();
    stored.httpPort = stored.ftpPort;
    stored.password = u"wrong"_s;
    stored.save();
    const QStringList connection = connectionTo(box);
    const QHash<QString, QString> password{{u"CORVANDEL_PASSWORD"_s, box.connection().password}};
    const QString local = m_work.path() + u"/local/list"_s;
    outcome = cli(QStringList{u"download"_s, local} + connection, password);
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.out.startsWith(u"Von 127.0.0.1 geladen: "_s), qPrintable(outcome.err));
    const QMap<QString, QByteArray> downloaded = filesIn(local);
    for (auto it = downloaded.cbegin(); it != downloaded.cend(); ++it)
        QCOMPARE(it.value(), original.value(it.key()));
    // One progress line per list file; satellites.xml comes without a count.
    QStringList listFiles = downloaded.keys();
    QVERIFY(listFiles.removeOne(u"satellites.xml"_s));
    QVERIFY(listFiles.contains(u"lamedb5"_s) && listFiles.contains(u"userbouquet.favourites.tv"_s));
    const QStringList progress =
        lines(outcome.err).filter(QRegularExpression(u"^Lade .+ \\(\\d+/\\d+\\)…$"_s));
    QCOMPARE(progress.size(), listFiles.size());

    edit(local + u"/userbouquet.favourites.tv"_s, "#NAME Favoriten (TV)", "#NAME Lieblinge");
    const QString passwordFile = m_work.path() + u"/password"_s;
    QVERIFY(TestSupport::writeFile(passwordFile, box.connection().password.toUtf8() + "\n"));
    outcome = cli(QStringList{u"upload"_s, local, u"--password-file"_s, passwordFile} + connection);
    QCOMPARE(outcome.status, 0);
    const QStringList sent = lines(outcome.err).filter(QRegularExpression(u"^Sende .+ \\(\\d+/\\d+\\)…$"_s));
    // A folder other than the box's work folder sends its databases too.
    QCOMPARE(sent.size(), listFiles.size());
    QCOMPARE(outcome.out.trimmed(),
             u"%1 Dateien gesendet, Bouquets auf der Box neu geladen."_s.arg(sent.size()));
    QVERIFY(
        TestSupport::readFile(boxFolder + u"/userbouquet.favourites.tv"_s).startsWith("#NAME Lieblinge\n"));
    QCOMPARE(reloadModes(box), QStringList{u"0"_s});
    const QString backups = Paths::dataDir() + u"/Sicherungen/127.0.0.1"_s;
    const QStringList made = QDir(backups).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(made.size(), 1);
    for (auto [name, bytes] : filesIn(backups + u'/' + made.first()).asKeyValueRange())
        QCOMPARE(bytes, original.value(name));

    outcome = cli(QStringList{u"backup"_s} + connection, password);
    QCOMPARE(outcome.status, 0);
    const QString newest = lines(outcome.out).value(1);
    QVERIFY2(newest.startsWith(backups + u'/'), qPrintable(outcome.out));
    QCOMPARE(filesIn(newest).value(u"userbouquet.favourites.tv"_s),
             TestSupport::readFile(boxFolder + u"/userbouquet.favourites.tv"_s));

    outcome = cli(QStringList{u"reload"_s, u"--mode"_s, u"2"_s} + connection, password);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(reloadModes(box), QStringList({u"0"_s, u"2"_s}));

    QVERIFY(!TestSupport::readFile(Paths::stateDir() + u"/Box.log"_s)
                 .contains(box.connection().password.toUtf8()));
}

void CliTest::boxFailures_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");

    const QString backupFailed = u"Sicherung fehlgeschlagen, es wurde nichts gesendet: FTP-Fehler: curl: "_s;
    for (const QString &command : {u"download"_s, u"backup"_s, u"upload"_s}) {
        const QString expected = command == u"upload" ? backupFailed : u"FTP-Fehler: curl: "_s;
        QTest::addRow("%s, wrong password", qPrintable(command))
            << command << u"wrong password"_s << 1 << expected + u"(67)"_s;
        QTest::addRow("%s, unreachable", qPrintable(command))
            << command << u"unreachable"_s << 1 << expected + u"(7)"_s;
    }
    QTest::newRow("upload of no list")
        << u"upload"_s << u"no list"_s << 2 << u"konnte nicht geladen werden"_s;
}

// A failing command sends nothing, reloads nothing and writes nothing.
void CliTest::boxFailures()
{
    QFETCH(QString, command);
    QFETCH(QString, fault);
    QFETCH(int, status);
    QFETCH(QString, message);

    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const QString boxFolder = box.path(u"/etc/enigma2"_s);
    copyFiles(TestSupport::examplesDir(), boxFolder);
    const QMap<QString, QByteArray> original = filesIn(boxFolder);
    const QString local = m_work.path() + u"/list"_s;
    if (fault != u"no list") copyFiles(TestSupport::examplesDir(), local);
    QVERIFY(TestSupport::writeFile(local + u"/userbouquet.favourites.tv"_s, "#NAME Changed\n"));
    const QMap<QString, QByteArray> localBefore = filesIn(local);

    QStringList arguments{command};
    if (command != u"backup") arguments << (command == u"download" ? m_work.path() + u"/new"_s : local);
    arguments << connectionTo(box);
    if (fault == u"unreachable")
        arguments << u"--ftp-port"_s << unusedPort() << u"--http-port"_s << unusedPort();
    const QString password = fault == u"wrong password" ? u"wrong"_s : box.connection().password;

    const Outcome outcome = cli(arguments, {{u"CORVANDEL_PASSWORD"_s, password}});
    QCOMPARE(outcome.status, status);
    QVERIFY2(outcome.err.contains(message), qPrintable(outcome.err));
    QVERIFY(outcome.out.isEmpty());
    QCOMPARE(filesIn(boxFolder), original);
    QVERIFY(reloadModes(box).isEmpty());
    QCOMPARE(filesIn(local), localBefore);
    QVERIFY(!QFileInfo::exists(m_work.path() + u"/new"_s));
    QCOMPARE(filesBelow(Paths::dataDir()), QStringList());
}

QTEST_GUILESS_MAIN(CliTest)
#include "CliTest.moc"
