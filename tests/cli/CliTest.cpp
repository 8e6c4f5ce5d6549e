#include "BoxSettings.h"
#include "Error.h"
#include "FakeBox.h"
#include "Paths.h"
#include "Store.h"
#include "TestSupport.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct Outcome
{
    int status = -1;
    QString out, err;
};

Outcome cli(const QStringList &arguments, const QString &password = {})
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(u"CORVANDEL_PASSWORD"_s);
    if (!password.isEmpty())
        env.insert(u"CORVANDEL_PASSWORD"_s, password);
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(CORVANDEL_CLI), arguments);
    process.closeWriteChannel();
    if (!process.waitForFinished(120'000))
        process.kill();
    process.waitForFinished();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
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
    for (const auto &[name, bytes] : filesIn(from).asKeyValueRange())
        QVERIFY(TestSupport::writeFile(to + u'/' + name, bytes));
}

// Replaces the first `find` in the file by `replace`; an empty `find` appends, a null `replace`
// removes the file.
void edit(const QString &path, const QByteArray &find, const QByteArray &replace)
{
    QByteArray text = TestSupport::readFile(path);
    const qsizetype at = find.isEmpty() ? text.size() : text.indexOf(find);
    QVERIFY2(at >= 0, find.constData());
    QVERIFY(replace.isNull() ? QFile::remove(path) : TestSupport::writeFile(path, text.replace(at, find.size(), replace)));
}

// A loopback port on which nothing listens.
const QString unusedPort = u"1"_s;

QStringList connectionTo(const FakeBox &box)
{
    return {u"--host"_s, u"127.0.0.1"_s, u"--user"_s, box.connection().user, u"--ftp-port"_s,
            QString::number(box.connection().ftpPort), u"--http-port"_s, QString::number(box.connection().httpPort)};
}

QStringList reloadModes(const FakeBox &box)
{
    QStringList modes;
    for (const FakeBoxRequest &request : box.journal())
        modes << (request.path == u"/web/servicelistreload" ? request.value(u"mode"_s) : QString());
    modes.removeAll(QString());
    return modes;
}

} // namespace

// corvandel-cli as its users run it: the built program on the example list, on the corpus and on
// damaged copies of it, and its box commands against the receiver test double with the real curl.
class CliTest : public QObject
{
    Q_OBJECT

    std::optional<QTemporaryDir> m_work; // fresh for each test

private slots:
    void initTestCase()
    {
        TestSupport::isolateUserFolders();
        // The German texts, whatever translations are installed.
        QSettings(u"Corvandel"_s, u"Corvandel"_s).setValue(u"language"_s, u"de"_s);
    }

    void init()
    {
        QDir(Paths::dataDir()).removeRecursively();
        m_work.emplace();
    }

    void usage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("expected");
        // Tagged with the command line itself.
        const auto row = [](const QByteArray &arguments, int status, const QString &expected) {
            QTest::newRow(arguments.isEmpty() ? "nothing" : arguments.constData())
                << QString::fromUtf8(arguments).split(u' ', Qt::SkipEmptyParts) << status << expected;
        };
        row("--help", 0, u"upload ORDNER"_s);
        row("-v", 0, u"corvandel-cli " CORVANDEL_VERSION ""_s);
        for (const char *command : {"info", "dump", "check", "download", "upload", "backup", "reload", "test"})
            row(command + " --help"_ba, 0, u"Aufruf: corvandel-cli "_s + QString::fromUtf8(command));
        row("upload -h", 0, u"--password-file DATEI"_s);
        row("", 2, u"Es fehlt ein Befehl."_s);
        row("frobnicate", 2, u"Unbekannter Befehl „frobnicate“."_s);
        row("info", 2, u"ORDNER fehlt."_s);
        row("check a b", 2, u"Zu viele Argumente: a b"_s);
        row("test --password secret", 2, u"Unbekannte Option „password“."_s);
        row("reload --mode 9", 2, u"„9“ ist kein Modus"_s);
        row("test --ftp-port x", 2, u"„x“ ist keine Portnummer"_s);
        row("test --password-file /nonexistent/pw", 2, u"Die Passwortdatei „/nonexistent/pw“ konnte nicht gelesen werden"_s);
        const QString unreadable = u"„/nonexistent/list“ konnte nicht geladen werden: Im Ordner liegt weder"_s;
        for (const char *command : {"info", "dump --json", "check"})
            row(command + " /nonexistent/list"_ba, 2, unreadable);
    }

    void usage()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, expected);
        const Outcome outcome = cli(arguments);
        QCOMPARE(outcome.status, status);
        QVERIFY2((status ? outcome.err : outcome.out).contains(expected), qPrintable(outcome.out + outcome.err));
        QCOMPARE(outcome.out.isEmpty(), status != 0); // errors alone: nothing on standard output
    }

    void infoAndDump_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("examples") << TestSupport::examplesDir();
        const QString corpus = TestSupport::corpusDir();
        for (const QString &folder : TestSupport::corpusListFolders())
            QTest::newRow(qPrintable(folder.mid(corpus.size() + 1))) << folder;
    }

    // Both agree with what the editor's store loads from the same folder.
    void infoAndDump()
    {
        QFETCH(QString, folder);
        Store store{BoxSettings{}};
        std::optional<QString> failure;
        try {
            store.load(folder);
        } catch (const Error &error) {
            failure = error.description();
        }
        const Outcome info = cli({u"info"_s, folder}), json = cli({u"dump"_s, u"--json"_s, folder}),
                      table = cli({u"dump"_s, folder});
        if (failure) { // a list without a database, which the store refuses too
            for (const Outcome &outcome : {info, json, table})
                QVERIFY2(outcome.status == 2 && outcome.out.isEmpty() && outcome.err.contains(*failure),
                         qPrintable(outcome.err));
            return;
        }
        QVERIFY(info.status == 0 && json.status == 0 && table.status == 0);
        const QList<Service> &services = store.services();
        const auto radio = std::count_if(services.cbegin(), services.cend(),
                                         [](const Service &service) { return service.kind() == MediaKind::radio; });
        const qsizetype missingAt = store.status().indexOf(u" Fehlende Dateien: "_s);
        const QStringList summary = lines(info.out);
        QCOMPARE(summary.first(), store.status());
        QVERIFY(summary.contains(
            u"Sender: %1 (TV: %2, Radio: %3)"_s.arg(services.size()).arg(services.size() - radio).arg(radio)));
        QVERIFY(summary.contains(u"Unbenutzte Sender: %1"_s.arg(store.unusedServiceKeys().size())));
        QVERIFY(info.out.contains(u"Fehlende Bouquet-Dateien: %1"_s.arg(
            missingAt < 0 ? 0 : store.status().mid(missingAt).count(u',') + 1)));
        const QJsonObject document = QJsonDocument::fromJson(json.out.toUtf8()).object();
        QVERIFY(store.status().contains(u'(' + document.value(u"database"_s).toString() + u')'));
        QJsonArray expectedServices, expectedBouquets;
        for (const Service &service : store.baseServices()) {
            expectedServices.append(QJsonObject{{u"reference"_s, reference(service)},
                                                {u"type"_s, qint64(service.type)}, {u"name"_s, service.name},
                                                {u"provider"_s, service.provider}, {u"position"_s, service.position}});
        }
        QCOMPARE(document.value(u"services"_s).toArray(), expectedServices);
        qsizetype tableLines = 2 + services.size(); // a title and a header per table, a line per row
        const auto kinds = store.bouquets();
        for (const Bouquet &bouquet : kinds.value(MediaKind::tv) + kinds.value(MediaKind::radio)) {
            QJsonArray entries;
            for (const BouquetEntry &entry : bouquet.entries) {
                const QJsonValue description = entry.description ? QJsonValue(*entry.description) : QJsonValue();
                entries.append(QJsonObject{{u"reference"_s, entry.reference}, {u"description"_s, description},
                                           {u"displayName"_s, store.displayName(entry)}});
            }
            expectedBouquets.append(QJsonObject{{u"fileName"_s, bouquet.fileName}, {u"name"_s, bouquet.name},
                                                {u"kind"_s, bouquet.kind.rawValue()}, {u"entries"_s, entries}});
            tableLines += 2 + bouquet.entries.size();
            QVERIFY(table.out.contains(u"-Bouquet %1: „%2“, %3 Einträge"_s.arg(bouquet.fileName, bouquet.name)
                                           .arg(bouquet.entries.size())));
        }
        QCOMPARE(document.value(u"bouquets"_s).toArray(), expectedBouquets);
        QCOMPARE(lines(table.out).size(), tableLines);
    }

    void check_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("find");
        QTest::addColumn<QByteArray>("replace");
        QTest::addColumn<bool>("complete"); // false: the findings are some of those printed
        // "{line}" stands for the line of the replacement in the file named first.
        QTest::addColumn<QStringList>("findings");

        // Real lists as they are; "list" is a clean copy of one, with one fault put in at a time.
        const QString missing = u"Die Bouquet-Datei „%1“ fehlt."_s;
        const QString unlisted = u": Keine Indexdatei nennt diese Bouquet-Datei."_s;
        const auto row = [](const char *name, const QString &folder, const QString &file = {},
                            const QByteArray &find = {}, const QByteArray &replace = {},
                            bool complete = true) -> QTestData & {
            return QTest::newRow(name) << folder << file << find << replace << complete;
        };
        row("bouquets without database", u"djgueto-pluto-subbouquets-5f1fdb6"_s)
            << QStringList{u"bouquets.tv:2: "_s + missing.arg(u"userbouquet.dbe37.tv"_s),
                           u"bouquets.tv:3: "_s + missing.arg(u"userbouquet.tdt__solo_decos_con_tdt_.tv"_s)};
        row("clean", u"mtcnl-ziggo-cable"_s) << QStringList{};
        row("unlisted bouquets", u"djgueto-listadecanales"_s, {}, {}, {}, false)
            << QStringList{u"userbouquet.m__18_abril_sat.tv"_s + unlisted, u"userbouquet.nueva.tv"_s + unlisted};
        row("damaged providers", u"xheen908-unitymedia-mixed"_s, {}, {}, {}, false)
            << QStringList{u"lamedb:919: Die Zeichenreparatur würde „p:DVB-S2 QPSK 12343H 28.2Â°E“ zu "
                           u"„p:DVB-S2 QPSK 12343H 28.2°E“ machen."_s};
        row("missing bouquet", u"list"_s, u"userbouquet.orf.tv"_s)
            << QStringList{u"bouquets.tv:{line}: "_s + missing.arg(u"userbouquet.orf.tv"_s)};
        row("unlisted bouquet", u"list"_s, u"userbouquet.stray.tv"_s, {}, "#NAME Stray\n")
            << QStringList{u"userbouquet.stray.tv"_s + unlisted};
        row("unknown service", u"list"_s, u"userbouquet.bbc.tv"_s, {}, "#SERVICE 1:0:1:FF:FF:FF:FF0000:0:0:0:\r\n")
            << QStringList{u"userbouquet.bbc.tv:{line}: Sender fehlt in lamedb5: 1:0:1:FF:FF:FF:FF0000:0:0:0:"_s};
        row("same service with another type", u"list"_s, u"userbouquet.bbc.tv"_s, {},
            "#SERVICE 1:0:1:B6D:7F3:2:11A305E:0:0:0:\r\n")
            << QStringList{u"userbouquet.bbc.tv:{line}: Derselbe Sender wie in Zeile 2: "
                           u"1:0:1:B6D:7F3:2:11A305E:0:0:0:"_s};
        row("missing sub-bouquet", u"list"_s, u"userbouquet.bbc.tv"_s, {},
            "#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.none.tv\" ORDER BY bouquet\n")
            << QStringList{u"userbouquet.bbc.tv:{line}: "_s + missing.arg(u"subbouquet.none.tv"_s)};
        const QByteArray service = "s:0110:0082aaf0:3070:013e:0:0:0,\"\"";
        row("databases differ", u"list"_s, u"lamedb5"_s, service + ",f:40\n", "")
            << QStringList{u"lamedb (4253 Sender) und lamedb5 (4252 Sender) enthalten unterschiedliche Sender."_s};
        row("damaged name", u"list"_s, u"lamedb"_s, "\nRai Isoradio\n", "\nRai Ã–radio\n")
            << QStringList{u"lamedb:{line}: Die Zeichenreparatur würde „Rai Ã–radio“ zu „Rai Öradio“ machen."_s};
        row("quote in a name", u"list"_s, u"lamedb5"_s, service, "s:0110:0082aaf0:3070:013e:0:0:0,\"Say \"Hi\"\"")
            << QStringList{u"lamedb5:{line}: Ein Anführungszeichen im Sendernamen zerbricht die Zeile."_s};
        row("line separator", u"list"_s, u"userbouquet.bbc.tv"_s, "#NAME BBC (TV)", "#NAME BBC\u2028(TV)")
            << QStringList{u"userbouquet.bbc.tv:{line}: Zeilenumbruch U+2028 mitten in der Zeile."_s};
    }

    // Exactly the findings, with their file and line, and exit status 1 for any.
    void check()
    {
        QFETCH(QString, folder);
        QFETCH(QString, file);
        QFETCH(QByteArray, find);
        QFETCH(QByteArray, replace);
        QFETCH(bool, complete);
        QFETCH(QStringList, findings);
        if (TestSupport::corpusDir().isEmpty())
            QSKIP("the corpus of channel lists is missing");
        const bool copy = folder == u"list";
        const QString path = (copy ? m_work->path() : TestSupport::corpusDir()) + u'/' + folder;
        if (copy) {
            copyFiles(TestSupport::corpusDir() + u"/horsti58-enigma2-settings/enigma2"_s, path);
            // The one fault of the original: a bouquet file the index names is missing.
            QVERIFY(TestSupport::writeFile(path + u"/userbouquet.LastScanned.tv"_s, "#NAME Last Scanned\r\n"));
        }
        if (!file.isEmpty())
            edit(path + u'/' + file, find, replace);
        // A removed file is found where its index names it.
        const QByteArray marker = replace.isNull() ? file.toUtf8() : replace.trimmed();
        for (QString &finding : findings) {
            const QByteArray text = TestSupport::readFile(path + u'/' + finding.section(u':', 0, 0));
            finding.replace(u"{line}"_s, QString::number(text.left(text.indexOf(marker)).count('\n') + 1));
        }

        const Outcome outcome = cli({u"check"_s, path});
        QCOMPARE(outcome.status, findings.isEmpty() ? 0 : 1);
        const QStringList found = lines(outcome.out);
        if (complete)
            QCOMPARE(found, findings);
        for (const QString &finding : std::as_const(findings))
            QVERIFY2(found.contains(finding), qPrintable(finding));
    }

    void boxRoundTrip()
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
        stored.ftpPort = stored.httpPort = unusedPort.toInt();
        stored.password = u"wrong"_s;
        stored.save();
        const QStringList connection = connectionTo(box);
        const QString password = box.connection().password, local = m_work->path() + u"/local/list"_s;
        outcome = cli(QStringList{u"download"_s, local} + connection, password);
        QCOMPARE(outcome.status, 0);
        QVERIFY2(outcome.out.startsWith(u"Von 127.0.0.1 geladen: "_s), qPrintable(outcome.err));
        const QMap<QString, QByteArray> downloaded = filesIn(local);
        for (const auto &[name, bytes] : downloaded.asKeyValueRange())
            QCOMPARE(bytes, original.value(name));
        // One progress line per list file; satellites.xml comes without a count.
        QVERIFY(downloaded.contains(u"lamedb5"_s) && downloaded.contains(u"satellites.xml"_s));
        const qsizetype listFiles = downloaded.size() - 1;
        QCOMPARE(lines(outcome.err).filter(QRegularExpression(u"^Lade .+ \\(\\d+/\\d+\\)…$"_s)).size(), listFiles);

        edit(local + u"/userbouquet.favourites.tv"_s, "#NAME Favoriten (TV)", "#NAME Lieblinge");
        const QString passwordFile = m_work->path() + u"/password"_s;
        QVERIFY(TestSupport::writeFile(passwordFile, password.toUtf8() + "\n"));
        outcome = cli(QStringList{u"upload"_s, local, u"--password-file"_s, passwordFile} + connection);
        QCOMPARE(outcome.status, 0);
        // A folder other than the box's work folder sends its databases too.
        const QStringList sent = lines(outcome.err).filter(QRegularExpression(u"^Sende .+ \\(\\d+/\\d+\\)…$"_s));
        QCOMPARE(sent.size(), listFiles);
        QCOMPARE(outcome.out.trimmed(),
                 u"%1 Dateien gesendet, Bouquets auf der Box neu geladen."_s.arg(sent.size()));
        QVERIFY(TestSupport::readFile(boxFolder + u"/userbouquet.favourites.tv"_s).startsWith("#NAME Lieblinge\n"));
        QCOMPARE(reloadModes(box), QStringList{u"0"_s});
        // The new backup's folder, below the one of the upload's backup.
        outcome = cli(QStringList{u"backup"_s} + connection, password);
        QCOMPARE(outcome.status, 0);
        const QString backups = Paths::dataDir() + u"/Sicherungen/127.0.0.1/"_s;
        QCOMPARE(QDir(backups).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 2);
        QVERIFY2(lines(outcome.out).value(1).startsWith(backups), qPrintable(outcome.out));
        QVERIFY(filesIn(lines(outcome.out).value(1)).contains(u"lamedb5"_s));
        outcome = cli(QStringList{u"reload"_s, u"--mode"_s, u"2"_s} + connection, password);
        QCOMPARE(outcome.status, 0);
        QCOMPARE(reloadModes(box), QStringList({u"0"_s, u"2"_s}));
        QVERIFY(!TestSupport::readFile(Paths::stateDir() + u"/Box.log"_s).contains(password.toUtf8()));
    }

    void boxFailures_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("fault");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("message");
        for (const char *command : {"download", "backup", "upload"}) {
            const QString name = QString::fromUtf8(command);
            const QString error = (name == u"upload" ? u"Sicherung fehlgeschlagen, es wurde nichts gesendet: "_s : u""_s)
                                + u"FTP-Fehler: curl: ("_s;
            QTest::addRow("%s, wrong password", command) << name << u"wrong password"_s << 1 << error + u"67)"_s;
            QTest::addRow("%s, unreachable", command) << name << u"unreachable"_s << 1 << error + u"7)"_s;
        }
        QTest::newRow("upload of no list") << u"upload"_s << u"no list"_s << 2 << u"konnte nicht geladen werden"_s;
    }

    // A failing command sends nothing, reloads nothing and writes nothing.
    void boxFailures()
    {
        QFETCH(QString, command);
        QFETCH(QString, fault);
        QFETCH(int, status);
        QFETCH(QString, message);
        FakeBox box;
        QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
        const QString boxFolder = box.path(u"/etc/enigma2"_s), local = m_work->path() + u"/list"_s;
        copyFiles(TestSupport::examplesDir(), boxFolder);
        const QMap<QString, QByteArray> original = filesIn(boxFolder);
        if (fault != u"no list")
            copyFiles(TestSupport::examplesDir(), local);
        QVERIFY(TestSupport::writeFile(local + u"/userbouquet.favourites.tv"_s, "#NAME Changed\n"));
        const QMap<QString, QByteArray> localBefore = filesIn(local);
        QStringList arguments{command};
        if (command != u"backup")
            arguments << (command == u"download" ? m_work->path() + u"/new"_s : local);
        arguments << connectionTo(box);
        if (fault == u"unreachable")
            arguments << u"--ftp-port"_s << unusedPort << u"--http-port"_s << unusedPort;
        const Outcome outcome = cli(arguments, fault == u"wrong password" ? u"wrong"_s : box.connection().password);
        QCOMPARE(outcome.status, status);
        QVERIFY2(outcome.err.contains(message), qPrintable(outcome.err));
        QVERIFY(outcome.out.isEmpty());
        QCOMPARE(filesIn(boxFolder), original);
        QVERIFY(reloadModes(box).isEmpty());
        QCOMPARE(filesIn(local), localBefore);
        QVERIFY(!QFileInfo::exists(m_work->path() + u"/new"_s));
        QVERIFY(QDir(Paths::dataDir()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(CliTest)
#include "CliTest.moc"
