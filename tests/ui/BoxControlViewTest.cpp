#include "BoxControlView.h"
#include "BoxError.h"
#include "BoxSettings.h"
#include "FakeBox.h"
#include "Store.h"
#include "TelnetError.h"
#include "TestSupport.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// The box control window against the receiver test double: what it shows of the box, the power
// actions with their confirmations, and shell commands with their output.
class BoxControlViewTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void status_data();
    void status();
    void pollingFollowsVisibility();
    void power_data();
    void power();
    void commands_data();
    void commands();

private:
    // A window over a store pointed at the box, polling quickly.
    std::unique_ptr<BoxControlView> open(const BoxSettings &settings);
    // The web requests for this path that the shared box received.
    QList<FakeBoxRequest> requests(const QString &path) const;
    static QString text(const BoxControlView &view, const QString &name);
    static QPushButton *button(const QWidget &parent, const QString &text);

    std::unique_ptr<FakeBox> m_box;
    std::unique_ptr<Store> m_store;
};

void BoxControlViewTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    m_box = std::make_unique<FakeBox>();
    QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
}

void BoxControlViewTest::init()
{
    QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
    m_store = std::make_unique<Store>();
}

std::unique_ptr<BoxControlView> BoxControlViewTest::open(const BoxSettings &settings)
{
    m_store->setSettings(settings);
    auto view = std::make_unique<BoxControlView>(*m_store);
    view->setPollInterval(20ms);
    view->show();
    return view;
}

QList<FakeBoxRequest> BoxControlViewTest::requests(const QString &path) const
{
    QList<FakeBoxRequest> found = m_box->journal();
    found.removeIf([&path](const FakeBoxRequest &request) { return request.path != path; });
    return found;
}

QString BoxControlViewTest::text(const BoxControlView &view, const QString &name)
{
    if (const auto *label = view.findChild<QLabel *>(name))
        return label->isVisibleTo(&view) ? label->text() : u"(hidden)"_s;
    return view.findChild<QPlainTextEdit *>(name)->toPlainText();
}

QPushButton *BoxControlViewTest::button(const QWidget &parent, const QString &text)
{
    for (QPushButton *button : parent.findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button;
    }
    qFatal("no button %s", qPrintable(text));
}

void BoxControlViewTest::status_data()
{
    QTest::addColumn<QString>("serviceRef");
    QTest::addColumn<int>("httpStatus");
    QTest::addColumn<bool>("noHost");
    // Service, SNR, dB, AGC, BER, error line.
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("tuned") << u"1:0:19:2B66:401:1:C00000:0:0:0:"_s << 0 << false
                           << QStringList{u"Example HD"_s, u"75 %"_s, u"12.50 dB"_s, u"80 %"_s, u"0"_s, u"(hidden)"_s};
    QTest::newRow("nothing tuned") << QString() << 0 << false
                                   << QStringList{u"N/A"_s, QString(), u"dB"_s, QString(), QString(), u"(hidden)"_s};
    const QString unreachable = u"Box nicht erreichbar: "_s;
    QTest::newRow("refused") << u"1:0:19:2B66:401:1:C00000:0:0:0:"_s << 401 << false
                             << QStringList{QString(), QString(), QString(), QString(), QString(),
                                            unreachable + BoxError::http(401).description()};
    QTest::newRow("no host") << QString() << 0 << true
                             << QStringList{QString(), QString(), QString(), QString(), QString(),
                                            unreachable +
                                                u"Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen."_s};
}

void BoxControlViewTest::status()
{
    QFETCH(QString, serviceRef);
    QFETCH(int, httpStatus);
    QFETCH(bool, noHost);
    QFETCH(QStringList, shown);
    FakeBoxOptions options;
    options.serviceRef = serviceRef;
    options.httpStatus = httpStatus;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    BoxSettings settings = box.settingsAs<BoxSettings>();
    if (noHost)
        settings.host = u"  "_s;
    const auto view = open(settings);

    const QStringList names{u"serviceName"_s, u"snrValue"_s, u"snrDetail"_s, u"agcValue"_s, u"berValue"_s,
                            u"statusError"_s};
    const auto seen = [&] {
        QStringList texts;
        for (const QString &name : names)
            texts << text(*view, name);
        return texts;
    };
    QTRY_COMPARE_WITH_TIMEOUT(seen(), shown, 10000);
}

void BoxControlViewTest::pollingFollowsVisibility()
{
    // Slow answers, so that the window is hidden while a poll waits for the box.
    FakeBoxOptions options;
    options.stall = 0.25;
    FakeBox box(options);
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    const auto view = open(box.settingsAs<BoxSettings>());
    const auto polled = [&box] {
        QStringList paths;
        for (const FakeBoxRequest &request : box.journal())
            paths << request.path.section(u'/', -1);
        return paths;
    };
    QTRY_VERIFY_WITH_TIMEOUT(polled().size() >= 3, 10000);
    view->hide();
    // The poll under way ends, and no other follows it.
    QTRY_COMPARE_WITH_TIMEOUT(polled().size() % 2, 0, 5000);
    const qsizetype settled = polled().size();
    QTest::qWait(600);
    const QStringList paths = polled();
    QCOMPARE(paths.size(), settled);
    // One poll at a time, even when the box is slower than the interval.
    QStringList alternating;
    for (qsizetype i = 0; i < paths.size() / 2; ++i)
        alternating << u"subservices"_s << u"signal"_s;
    QCOMPARE(paths, alternating);
    view->show();
    QTRY_VERIFY_WITH_TIMEOUT(polled().size() > paths.size(), 10000);
}

void BoxControlViewTest::power_data()
{
    QTest::addColumn<QString>("action");
    // Empty: runs without asking.
    QTest::addColumn<QString>("question");
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<QString>("newstate");
    QTest::addColumn<QString>("message");
    QTest::newRow("standby") << u"Standby an/aus"_s << QString() << false << u"0"_s << u"Standby umgeschaltet."_s;
    QTest::newRow("restart Enigma2") << u"Enigma2 neu starten"_s << u"Enigma2 wirklich neu starten?"_s << true
                                     << u"3"_s << u"Enigma2 startet neu – das dauert etwa 30 Sekunden."_s;
    QTest::newRow("reboot") << u"Box neu starten"_s << u"Box wirklich neu starten?"_s << true << u"2"_s
                            << u"Die Box startet neu – das dauert etwa eine Minute."_s;
    QTest::newRow("reboot cancelled") << u"Box neu starten"_s << u"Box wirklich neu starten?"_s << false << QString()
                                      << QString();
}

void BoxControlViewTest::power()
{
    QFETCH(QString, action);
    QFETCH(QString, question);
    QFETCH(bool, confirm);
    QFETCH(QString, newstate);
    QFETCH(QString, message);
    const auto view = open(m_box->settingsAs<BoxSettings>());
    const qsizetype before = requests(u"/web/powerstate"_s).size();

    button(*view, action)->click();
    if (!question.isEmpty()) {
        QMessageBox *box = nullptr;
        QTRY_VERIFY((box = view->findChild<QMessageBox *>()) && box->isVisible());
        QCOMPARE(box->windowModality(), Qt::WindowModal);
        QCOMPARE(box->text(), question);
        QCOMPARE(box->informativeText(), u"Laufende Aufnahmen werden unterbrochen, nicht gespeicherte Timer und der "
                                         u"EPG-Cache können verloren gehen."_s);
        button(*box, confirm ? action : u"Abbrechen"_s)->click();
    }
    if (newstate.isEmpty()) {
        QTest::qWait(300);
        QCOMPARE(requests(u"/web/powerstate"_s).size(), before);
        QCOMPARE(text(*view, u"actionMessage"_s), QString());
        return;
    }
    QTRY_COMPARE_WITH_TIMEOUT(text(*view, u"actionMessage"_s), message, 10000);
    const QList<FakeBoxRequest> sent = requests(u"/web/powerstate"_s).mid(before);
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent.first().value(u"newstate"_s), newstate);
}

void BoxControlViewTest::commands_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("password");
    // The whole output, or its start for a preset whose output depends on the machine.
    QTest::addColumn<QString>("output");
    const QString secret = m_box->connection().password;
    QTest::newRow("output") << QString() << u"echo 'ein Test'"_s << secret << u"$ echo 'ein Test'\nein Test"_s;
    QTest::newRow("no output") << QString() << u"true"_s << secret << u"$ true\n(keine Ausgabe)"_s;
    QTest::newRow("failure") << QString() << u"echo nie"_s << u"falsch"_s
                             << u"$ echo nie\nFehler: "_s + TelnetError::loginFailed().description();
    QTest::newRow("preset") << u"Laufzeit und Last"_s << u"echo bleibt"_s << secret << u"$ uptime\n"_s;
}

void BoxControlViewTest::commands()
{
    QFETCH(QString, preset);
    QFETCH(QString, typed);
    QFETCH(QString, password);
    QFETCH(QString, output);
    BoxSettings settings = m_box->settingsAs<BoxSettings>();
    settings.password = password;
    settings.customCommand = u"uptime"_s;
    const auto view = open(settings);
    auto *field = view->findChild<QLineEdit *>(u"command"_s);
    QCOMPARE(field->text(), u"uptime"_s);
    QCOMPARE(field->placeholderText(), u"Befehl, z. B. uptime"_s);
    QCOMPARE(view->findChild<QPlainTextEdit *>(u"output"_s)->placeholderText(), u"Ausgabe erscheint hier."_s);
    field->setText(typed);

    auto *run = view->findChild<QPushButton *>(u"run"_s);
    QPushButton *clicked = preset.isEmpty() ? run : button(*view, preset);
    clicked->click();
    // Nothing else starts while a command runs.
    QVERIFY(!run->isEnabled() && !button(*view, u"Arbeitsspeicher"_s)->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(run->isEnabled(), 20000);
    const QString shown = text(*view, u"output"_s);
    if (preset.isEmpty())
        QCOMPARE(shown, output);
    else
        QVERIFY2(shown.startsWith(output) && shown.size() > output.size(), qPrintable(shown));

    // A typed command is kept for next time, a preset is not; closing keeps what was typed.
    QCOMPARE(m_store->settings().customCommand, preset.isEmpty() ? typed : u"uptime"_s);
    if (preset.isEmpty())
        QCOMPARE(BoxSettings::load().customCommand, typed);
    view->close();
    QCOMPARE(BoxSettings::load().customCommand, typed);
}

QTEST_MAIN(BoxControlViewTest)
#include "BoxControlViewTest.moc"
