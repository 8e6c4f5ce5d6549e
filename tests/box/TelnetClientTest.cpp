#include "Await.h"
#include "BoxError.h"
#include "BoxLogWatch.h"
#include "FakeBox.h"
#include "Fixtures.h"
#include "TelnetClient.h"
#include "TelnetError.h"
#include "TestSupport.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// The Telnet client against the receiver test double, with time limits cut to seconds.
class TelnetClientTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void handleIAC_data();
    void handleIAC();
    void handleIACAcrossChunks();
    void clean_data();
    void clean();
    void shellPrompt_data();
    void shellPrompt();
    void command_data();
    void command();
    void loginVariants_data();
    void loginVariants();
    void wrongPassword_data();
    void wrongPassword();
    void silentBoxTimesOut();
    void longCommandTimesOut();
    void droppedConnection();
    void unreachable();
    void noHost();

private:
    std::unique_ptr<FakeBox> m_box;
};

namespace {

const QString password = u"pa\"ss\\wört"_s;

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray result;
    for (int value : values)
        result += char(value);
    return result;
}

// What busybox telnetd sends first: DO ECHO, DO NAWS, WILL ECHO, WILL SGA.
const QByteArray opening = bytes({255, 253, 1, 255, 253, 31, 255, 251, 1, 255, 251, 3});
// The client's answers: WONT ECHO, WONT NAWS, DO ECHO, DO SGA.
const QByteArray answers = bytes({255, 252, 1, 255, 252, 31, 255, 253, 1, 255, 253, 3});

TelnetClient::Limits shortLimits()
{
    TelnetClient::Limits limits;
    limits.connect = 5s;
    limits.login = 5s;
    limits.command = 5s;
    return limits;
}

QString runOn(const FakeBox &box, const QString &command, TelnetClient::Limits limits = shortLimits())
{
    TelnetClient client(box.settingsAs<BoxSettings>());
    client.setLimits(limits);
    return await(client.run(command));
}

TelnetError::Kind failureOn(const FakeBox &box, const QString &command, TelnetClient::Limits limits = shortLimits())
{
    try {
        runOn(box, command, limits);
    } catch (const TelnetError &error) {
        return error.kind();
    }
    QTest::qFail("no error thrown", __FILE__, __LINE__);
    return TelnetError::Kind::closed;
}

} // namespace

void TelnetClientTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    FakeBoxOptions options;
    options.password = password;
    m_box = std::make_unique<FakeBox>(options);
    QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
}

void TelnetClientTest::handleIAC_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("reply");
    QTest::newRow("plain text") << QByteArray("root@box:~# ") << QByteArray("root@box:~# ") << QByteArray();
    QTest::newRow("busybox opening") << opening + "\r\nopenpli 9.0\r\n" << QByteArray("\r\nopenpli 9.0\r\n") << answers;
    QTest::newRow("DONT and WONT are dropped silently") << bytes({'a', 255, 254, 1, 255, 252, 3, 'b'}) << QByteArray("ab")
                                                        << QByteArray();
    QTest::newRow("subnegotiation removed") << bytes({'x', 255, 250, 31, 0, 80, 0, 24, 255, 240, 'y'})
                                            << QByteArray("xy") << QByteArray();
    QTest::newRow("two-byte commands removed") << bytes({'a', 255, 241, 'b', 255, 249, 'c'}) << QByteArray("abc")
                                               << QByteArray();
    QTest::newRow("UTF-8 passes") << QByteArray("Gr\xc3\xbc\xc3\x9f" "e") << QByteArray("Gr\xc3\xbc\xc3\x9f" "e")
                                  << QByteArray();
}

void TelnetClientTest::handleIAC()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, reply);
    QByteArray carry;
    QByteArray answered;
    QCOMPARE(TelnetClient::handleIAC(input, carry, answered), data);
    QCOMPARE(answered, reply);
    QCOMPARE(carry, QByteArray());
}

void TelnetClientTest::handleIACAcrossChunks()
{
    // Cut the stream at every position: the result must not depend on where the network split it.
    const QByteArray stream = opening + "\r\nWelcome\r\n" + bytes({255, 250, 24, 1, 255, 240}) + "box login: " +
                              bytes({255, 251, 1});
    for (qsizetype cut = 0; cut <= stream.size(); ++cut) {
        QByteArray carry;
        QByteArray reply;
        QByteArray data = TelnetClient::handleIAC(stream.left(cut), carry, reply);
        data += TelnetClient::handleIAC(stream.mid(cut), carry, reply);
        QCOMPARE(data, QByteArray("\r\nWelcome\r\nbox login: "));
        QCOMPARE(reply, answers + bytes({255, 253, 1}));
        QCOMPARE(carry, QByteArray());
    }
}

void TelnetClientTest::clean_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("expected");
    const QString echo = u"uptime; echo __CV_\"\"DONE__\r\n"_s;
    QTest::newRow("echo, output, marker, prompt")
        << echo + u" 12:00:01 up 3 days\r\n__CV_DONE__\r\nroot@box:~# "_s << u"uptime"_s << u" 12:00:01 up 3 days"_s;
    QTest::newRow("colour codes") << echo + u"\x1b[1;32mgrün\x1b[0m \x1b[?25ltext\x1b[K\r\n__CV_DONE__\r\n"_s
                                  << u"uptime"_s << u"grün text"_s;
    QTest::newRow("late prompt before the echo") << u"\r\nroot@box:~# "_s + echo + u"a\r\n__CV_DONE__\r\n"_s
                                                 << u"uptime"_s << u"a"_s;
    QTest::newRow("empty output") << echo + u"__CV_DONE__\r\nroot@box:~# "_s << u"uptime"_s << QString();
    QTest::newRow("indentation and inner blank lines stay")
        << echo + u"\r\n              total\r\n\r\nMem:  1\r\n\r\n__CV_DONE__\r\n"_s << u"free"_s
        << u"              total\n\nMem:  1"_s;
    QTest::newRow("no echo at all") << u"a\r\nb\r\n__CV_DONE__"_s << u"x"_s << u"a\nb"_s;
    QTest::newRow("output naming the command") << echo + u"uptime\r\n__CV_DONE__"_s << u"uptime"_s << u"uptime"_s;
}

void TelnetClientTest::clean()
{
    QFETCH(QString, output);
    QFETCH(QString, command);
    QFETCH(QString, expected);
    QCOMPARE(TelnetClient::clean(output, command), expected);
}

void TelnetClientTest::shellPrompt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("prompt");
    QTest::newRow("root") << u"\r\nroot@vuuno4kse:~# "_s << true;
    QTest::newRow("user") << u"box$ "_s << true;
    QTest::newRow("login prompt") << u"vuuno4kse login: "_s << false;
    QTest::newRow("password prompt") << u"Password: "_s << false;
    QTest::newRow("hash inside a line") << u"# comment\r\n"_s << false;
    QTest::newRow("nothing") << QString() << false;
}

void TelnetClientTest::shellPrompt()
{
    QFETCH(QString, text);
    QFETCH(bool, prompt);
    QCOMPARE(TelnetClient::endsWithShellPrompt(text), prompt);
}

void TelnetClientTest::command_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << u"echo hallo"_s << u"hallo"_s;
    QTest::newRow("colour codes removed") << u"printf '\\033[1;32mgrün\\033[0m\\n'"_s << u"grün"_s;
    QTest::newRow("empty output") << u"true"_s << QString();
    QTest::newRow("indentation kept") << u"printf '  a\\n\\n  b\\n'"_s << u"  a\n\n  b"_s;
    QTest::newRow("stderr too") << u"ls /nonexistent-folder"_s
                                << u"ls: cannot access '/nonexistent-folder': No such file or directory"_s;
    QTest::newRow("quotes in the command") << u"echo \"a  b\" 'c'"_s << u"a  b c"_s;
}

void TelnetClientTest::command()
{
    QFETCH(QString, command);
    QFETCH(QString, expected);
    const BoxLogWatch watch;
    QCOMPARE(runOn(*m_box, command), expected);

    const QStringList entries = watch.entries();
    QCOMPARE(entries.value(0), u"     Telnet     127.0.0.1:"_s + QString::number(m_box->connection().telnetPort) +
                                   u" Befehl: "_s + command);
    const QString done = u"^OK   Telnet     \\d+\\.\\d\\d s, "_s + QString::number(expected.size()) + u" Zeichen Ausgabe$"_s;
    QVERIFY2(QRegularExpression(done).match(entries.value(1)).hasMatch(), qPrintable(entries.value(1)));
    QCOMPARE(m_box->journal().last().command, command + u"; echo __CV_\"\"DONE__"_s);
}

void TelnetClientTest::loginVariants_data()
{
    QTest::addColumn<QString>("boxPassword");
    QTest::addColumn<bool>("noLogin");
    QTest::newRow("empty root password: no password prompt") << QString() << false;
    QTest::newRow("shell at once") << u"ignored"_s << true;
}

void TelnetClientTest::loginVariants()
{
    QFETCH(QString, boxPassword);
    QFETCH(bool, noLogin);
    FakeBoxOptions options;
    options.password = boxPassword;
    options.telnetNoLogin = noLogin;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    QCOMPARE(runOn(box, u"echo eingeloggt; pwd | grep -c fakebox-shell"_s), u"eingeloggt\n1"_s);
}

void TelnetClientTest::wrongPassword_data()
{
    Fixtures::addRefusalRows();
}

void TelnetClientTest::wrongPassword()
{
    QFETCH(bool, boxRefuses);
    const Fixtures::Refusal refusal = Fixtures::refusal(boxRefuses);
    QVERIFY2(refusal.box->isRunning(), qPrintable(refusal.box->errorString()));
    TelnetClient client(refusal.settings);
    client.setLimits(shortLimits());
    const BoxLogWatch watch;
    try {
        await(client.run(u"echo nie"_s));
        QFAIL("no error thrown");
    } catch (const TelnetError &error) {
        QCOMPARE(error.kind(), TelnetError::Kind::loginFailed);
        QCOMPARE(error.description(), u"Telnet: Anmeldung fehlgeschlagen. Benutzer und Passwort prüfen."_s);
    }
    QVERIFY2(QRegularExpression(u"^ERR  Telnet     fehlgeschlagen nach \\d+\\.\\d\\d s: "
                                "Telnet: Anmeldung fehlgeschlagen\\. Benutzer und Passwort prüfen\\.$"_s)
                 .match(watch.entries().value(1))
                 .hasMatch(),
             qPrintable(watch.entries().value(1)));
    QVERIFY(refusal.box->journal().isEmpty());
}

void TelnetClientTest::silentBoxTimesOut()
{
    FakeBoxOptions options;
    options.telnetSilent = true;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    TelnetClient::Limits limits = shortLimits();
    limits.login = 500ms;
    QCOMPARE(failureOn(box, u"uptime"_s, limits), TelnetError::Kind::timeout);
}

void TelnetClientTest::longCommandTimesOut()
{
    TelnetClient::Limits limits = shortLimits();
    limits.command = 500ms;
    const BoxLogWatch watch;
    QCOMPARE(failureOn(*m_box, u"sleep 3"_s, limits), TelnetError::Kind::timeout);
    QVERIFY(watch.entries().value(1).endsWith(u": Telnet: Zeitüberschreitung – keine Antwort von der Box."_s));
    // Output that keeps coming holds the wait open.
    QCOMPARE(runOn(*m_box, u"for i in 1 2 3; do sleep 0.3; echo $i; done"_s, limits), u"1\n2\n3"_s);
}

void TelnetClientTest::droppedConnection()
{
    FakeBoxOptions options;
    options.dropAfter = 2000;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    QCOMPARE(failureOn(box, u"seq 1 5000"_s), TelnetError::Kind::closed);
}

void TelnetClientTest::unreachable()
{
    BoxSettings settings = m_box->settingsAs<BoxSettings>();
    settings.telnetPort = Fixtures::closedPort();
    TelnetClient client(settings);
    try {
        await(client.run(u"uptime"_s));
        QFAIL("no error thrown");
    } catch (const TelnetError &error) {
        QCOMPARE(error.kind(), TelnetError::Kind::unreachable);
        QCOMPARE(error.description(), u"Telnet: Keine Verbindung zu Port "_s + QString::number(settings.telnetPort) +
                                          u". Ist Telnet auf der Box aktiviert?"_s);
    }
}

void TelnetClientTest::noHost()
{
    BoxSettings settings = m_box->settingsAs<BoxSettings>();
    settings.host = u"  "_s;
    const BoxLogWatch watch;
    QVERIFY_THROWS_EXCEPTION(BoxError, await(TelnetClient(settings).run(u"uptime"_s)));
    QCOMPARE(watch.lines(), QStringList());
}

QTEST_GUILESS_MAIN(TelnetClientTest)
#include "TelnetClientTest.moc"
