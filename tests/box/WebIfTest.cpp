#include "Await.h"
#include "BoxError.h"
#include "BoxLogWatch.h"
#include "FakeBox.h"
#include "Fixtures.h"
#include "TestSupport.h"
#include "WebIf.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// The web interface client against the receiver test double.
class WebIfTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void tag_data();
    void tag();
    void number_data();
    void number();
    void powerState();
    void requestForms();
    void serviceNameAndZap();
    void signal();
    void untunedSignal();
    void powerAndReload();
    void httpErrors_data();
    void httpErrors();
    void transportFailures();
    void noHost();

private:
    std::unique_ptr<FakeBox> m_box;
    QString m_prefix;
};

namespace {

const QString password = u"pa\"ss\\wört"_s;

bool matches(const QString &pattern, const QString &text)
{
    return QRegularExpression(pattern).match(text).hasMatch();
}

} // namespace

void WebIfTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    FakeBoxOptions options;
    options.password = password;
    m_box = std::make_unique<FakeBox>(options);
    QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
    QVERIFY(TestSupport::writeFile(m_box->path(u"/etc/enigma2/lamedb"_s),
                                   "eDVB services /4/\ntransponders\nend\nservices\n"
                                   "283d:00c00000:03fb:0001:25:0\nDas Erste HD\np:ARD\nend\n"));
    m_prefix = u"GET 127.0.0.1:"_s + QString::number(m_box->connection().httpPort);
}

void WebIfTest::tag_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("body");
    QTest::addColumn<std::optional<QString>>("expected");
    QTest::newRow("trimmed") << u"e2snr"_s << u"<a>\n\t<e2snr> 75 % </e2snr>"_s << std::optional(u"75 %"_s);
    QTest::newRow("own line in the element") << u"e2instandby"_s << u"<e2instandby>\n\t\ttrue\n\t</e2instandby>"_s
                                             << std::optional(u"true"_s);
    QTest::newRow("first occurrence wins") << u"e2servicename"_s
                                           << u"<e2servicename>A</e2servicename><e2servicename>B</e2servicename>"_s
                                           << std::optional(u"A"_s);
    QTest::newRow("empty element") << u"e2ber"_s << u"<e2ber></e2ber>"_s << std::optional(QString());
    QTest::newRow("no opening tag") << u"e2acg"_s << u"<e2agc>80 %</e2agc>"_s << std::optional<QString>();
    QTest::newRow("no closing tag") << u"e2acg"_s << u"<e2acg>80 %"_s << std::optional<QString>();
    QTest::newRow("longer name is not a match") << u"e2snr"_s << u"<e2snrdb>1 dB</e2snrdb>"_s << std::optional<QString>();
}

void WebIfTest::tag()
{
    QFETCH(QString, name);
    QFETCH(QString, body);
    QFETCH(std::optional<QString>, expected);
    QCOMPARE(WebIf::tag(name, body), expected);
}

void WebIfTest::number_data()
{
    QTest::addColumn<std::optional<QString>>("text");
    QTest::addColumn<std::optional<int>>("expected");
    QTest::newRow("none") << std::optional<QString>() << std::optional<int>();
    QTest::newRow("percent") << std::optional(u"62 %"_s) << std::optional(62);
    QTest::newRow("fraction") << std::optional(u"1.5"_s) << std::optional(1);
    QTest::newRow("plain") << std::optional(u"0"_s) << std::optional(0);
    QTest::newRow("no digits") << std::optional(u"%"_s) << std::optional<int>();
    QTest::newRow("empty") << std::optional(QString()) << std::optional<int>();
    QTest::newRow("leading blank") << std::optional(u" 5"_s) << std::optional<int>();
    QTest::newRow("minus") << std::optional(u"-3"_s) << std::optional<int>();
}

void WebIfTest::number()
{
    QFETCH(std::optional<QString>, text);
    QFETCH(std::optional<int>, expected);
    QCOMPARE(WebIf::number(text), expected);
}

void WebIfTest::powerState()
{
    QCOMPARE(WebIf::powerState(0), WebIf::PowerState::toggleStandby);
    QCOMPARE(WebIf::powerState(1), std::nullopt);
    QCOMPARE(WebIf::powerState(2), WebIf::PowerState::reboot);
    QCOMPARE(WebIf::powerState(3), WebIf::PowerState::restartGUI);
    QCOMPARE(WebIf::powerState(4), std::nullopt);
}

void WebIfTest::requestForms()
{
    BoxSettings settings;
    settings.host = u" 192.168.1.20 "_s;
    settings.httpPort = 8080;
    settings.password = password;
    const WebIf web(settings);
    const WebIf::Query query{{u"sRef"_s, u"4097:0:1:0:0:0:0:0:0:0:http%3a//x/a b&c=d#e+f:"_s}, {u"a"_s, u"1"_s}};
    QCOMPARE(web.describe(u"/web/zap"_s, query),
             u"GET 192.168.1.20:8080/web/zap?a=1&sRef=4097:0:1:0:0:0:0:0:0:0:http%3a//x/a b&c=d#e+f:"_s);
    QCOMPARE(web.describe(u"/web/signal"_s, {}), u"GET 192.168.1.20:8080/web/signal"_s);
    QCOMPARE(web.url(u"/web/zap"_s, query).toString(QUrl::FullyEncoded),
             u"http://192.168.1.20:8080/web/zap?a=1&sRef=4097:0:1:0:0:0:0:0:0:0:http%253a//x/a%20b%26c%3Dd%23e%2Bf:"_s);
    QCOMPARE(web.authorization(), "Basic " + QByteArray("root:pa\"ss\\w\xc3\xb6rt").toBase64());
}

void WebIfTest::serviceNameAndZap()
{
    const WebIf web(m_box->settingsAs<BoxSettings>());
    const BoxLogWatch watch;
    QCOMPARE(await(web.currentServiceName()), u"Example HD"_s);
    // Polled requests leave no trace when they succeed.
    QCOMPARE(watch.lines(), QStringList());

    const QString reference = u"1:0:19:283D:3FB:1:C00000:0:0:0:"_s;
    await(web.get(u"/web/zap"_s, {{u"sRef"_s, reference}}, 15s, false));
    QCOMPARE(await(web.currentServiceName()), u"Das Erste HD"_s);
    QVERIFY2(matches(u"^OK   HTTP       "_s + QRegularExpression::escape(m_prefix + u"/web/zap?sRef="_s + reference) +
                         u" → 200 in \\d+\\.\\d\\d s, \\d+ Bytes$"_s,
                     watch.entries().value(0)),
             qPrintable(watch.entries().value(0)));

    // A stream reference arrives exactly as sent, its "%3a" intact.
    const QString stream = u"4097:0:1:0:0:0:0:0:0:0:http%3a//10.0.0.1%3a8001/a b&c:Name"_s;
    await(web.get(u"/web/zap"_s, {{u"sRef"_s, stream}}, 15s, false));
    const FakeBoxRequest zap = m_box->journal().last();
    QCOMPARE(zap.path, u"/web/zap"_s);
    QCOMPARE(zap.value(u"sRef"_s), stream);
    QCOMPARE(zap.authorization, QString::fromLatin1(web.authorization()));
    QVERIFY(zap.authorized);
}

void WebIfTest::signal()
{
    QCOMPARE(await(WebIf(m_box->settingsAs<BoxSettings>()).signal()), (WebIf::SignalInfo{u"12.50 dB"_s, 75, 80, 0}));
}

void WebIfTest::untunedSignal()
{
    FakeBoxOptions options;
    options.serviceRef.clear();
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const WebIf web(box.settingsAs<BoxSettings>());
    QCOMPARE(await(web.signal()), (WebIf::SignalInfo{u"dB"_s, std::nullopt, std::nullopt, std::nullopt}));
    QCOMPARE(await(web.currentServiceName()), u"N/A"_s);
}

void WebIfTest::powerAndReload()
{
    const WebIf web(m_box->settingsAs<BoxSettings>());
    const BoxLogWatch watch;
    await(web.setPowerState(WebIf::PowerState::reboot));
    await(web.reloadServices(2));
    const QList<FakeBoxRequest> journal = m_box->journal();
    QCOMPARE(journal.value(journal.size() - 2).path, u"/web/powerstate"_s);
    QCOMPARE(journal.value(journal.size() - 2).rawQuery, u"newstate=2"_s);
    QCOMPARE(journal.last().path, u"/web/servicelistreload"_s);
    QCOMPARE(journal.last().rawQuery, u"mode=2"_s);
    QVERIFY(watch.entries().value(0).startsWith(u"OK   HTTP       "_s + m_prefix + u"/web/powerstate?newstate=2 → 200 in "_s));
    QVERIFY(watch.entries().value(1).startsWith(u"OK   HTTP       "_s + m_prefix + u"/web/servicelistreload?mode=2 → 200 in "_s));
}

void WebIfTest::httpErrors_data()
{
    QTest::addColumn<int>("boxStatus");
    QTest::addColumn<QString>("sentPassword");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("logSuffix");
    QTest::newRow("wrong password") << 0 << u"falsch"_s << 401 << u"HTTP 401 (Anmeldung abgelehnt)"_s;
    // The header is sent also without a password, and the box never accepts an empty one.
    QTest::newRow("empty password") << 0 << QString() << 401 << u"HTTP 401 (Anmeldung abgelehnt)"_s;
    QTest::newRow("handler failure") << 500 << password << 500 << u"HTTP 500"_s;
}

void WebIfTest::httpErrors()
{
    QFETCH(int, boxStatus);
    QFETCH(QString, sentPassword);
    QFETCH(int, status);
    QFETCH(QString, logSuffix);
    FakeBoxOptions options;
    options.password = password;
    options.httpStatus = boxStatus;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    BoxSettings settings = box.settingsAs<BoxSettings>();
    settings.password = sentPassword;
    const BoxLogWatch watch;
    try {
        // A quiet request: its failure is logged all the same.
        await(WebIf(settings).signal());
        QFAIL("no error thrown");
    } catch (const BoxError &error) {
        QCOMPARE(error.kind(), BoxError::Kind::http);
        QCOMPARE(error.status(), status);
        QCOMPARE(error.description(), u"HTTP-Fehler "_s + QString::number(status) + u" beim Neuladen der Senderliste."_s);
    }
    const QString prefix = u"GET 127.0.0.1:"_s + QString::number(box.connection().httpPort);
    QCOMPARE(watch.entries(), QStringList{u"ERR  HTTP       "_s + prefix + u"/web/signal → "_s + logSuffix});
    QCOMPARE(box.journal().last().authorization, QString::fromLatin1(WebIf(settings).authorization()));

    // An unknown path is an HTTP error too.
    if (status == 500) {
        BoxSettings good = box.settingsAs<BoxSettings>();
        QVERIFY_THROWS_EXCEPTION(BoxError, await(WebIf(good).get(u"/nothing"_s, {}, 5s, false)));
        QCOMPARE(box.journal().last().status, 404);
    }
}

void WebIfTest::transportFailures()
{
    FakeBoxOptions options;
    options.stall = 5;
    FakeBox slow(options);
    QVERIFY2(slow.isRunning(), qPrintable(slow.errorString()));
    const BoxLogWatch watch;
    try {
        await(WebIf(slow.settingsAs<BoxSettings>()).get(u"/web/signal"_s, {}, 300ms, true));
        QFAIL("no error thrown");
    } catch (const BoxError &) {
        QFAIL("a time-out is no HTTP status");
    } catch (const MessageError &error) {
        QCOMPARE(error.description(), u"Zeitüberschreitung bei der Anforderung."_s);
    }
    const QString prefix = u"GET 127.0.0.1:"_s + QString::number(slow.connection().httpPort);
    QVERIFY2(matches(u"^ERR  HTTP       "_s + QRegularExpression::escape(prefix) +
                         u"/web/signal fehlgeschlagen nach \\d+\\.\\d\\d s: Zeitüberschreitung bei der Anforderung\\.$"_s,
                     watch.entries().value(0)),
             qPrintable(watch.entries().value(0)));

    BoxSettings settings = m_box->settingsAs<BoxSettings>();
    settings.httpPort = Fixtures::closedPort();
    try {
        await(WebIf(settings).reloadServices(0));
        QFAIL("no error thrown");
    } catch (const MessageError &error) {
        QCOMPARE(error.description(), u"Es konnte keine Verbindung zum Server hergestellt werden."_s);
    }
}

void WebIfTest::noHost()
{
    BoxSettings settings = m_box->settingsAs<BoxSettings>();
    settings.host = u" "_s;
    const qsizetype requests = m_box->journal().size();
    const BoxLogWatch watch;
    try {
        await(WebIf(settings).reloadServices(0));
        QFAIL("no error thrown");
    } catch (const BoxError &error) {
        QCOMPARE(error.kind(), BoxError::Kind::noHost);
    }
    QCOMPARE(watch.lines(), QStringList());
    QCOMPARE(m_box->journal().size(), requests);
}

QTEST_GUILESS_MAIN(WebIfTest)
#include "WebIfTest.moc"
