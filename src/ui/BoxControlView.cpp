#include "BoxControlView.h"

#include "Error.h"
#include "Sheets.h"
#include "Store.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The power actions with their texts, translated where they are shown.
struct PowerAction
{
    WebIf::PowerState state;
    const char *label;
    const char *help;
    // Null for the action that runs without asking.
    const char *confirmTitle;
    const char *done;
    const char *themeIcon;
    QStyle::StandardPixmap icon;
};

const PowerAction powerActions[] = {
    {WebIf::PowerState::toggleStandby, QT_TRANSLATE_NOOP("BoxControlView", "Standby an/aus"),
     QT_TRANSLATE_NOOP("BoxControlView", "Schaltet die Box in den Standby bzw. weckt sie auf"), nullptr,
     QT_TRANSLATE_NOOP("BoxControlView", "Standby umgeschaltet."), "system-suspend", QStyle::SP_MediaPause},
    {WebIf::PowerState::restartGUI, QT_TRANSLATE_NOOP("BoxControlView", "Enigma2 neu starten"),
     QT_TRANSLATE_NOOP("BoxControlView", "Startet nur die Enigma2-Oberfläche neu (ca. 30 s)"),
     QT_TRANSLATE_NOOP("BoxControlView", "Enigma2 wirklich neu starten?"),
     QT_TRANSLATE_NOOP("BoxControlView", "Enigma2 startet neu – das dauert etwa 30 Sekunden."), "view-refresh",
     QStyle::SP_BrowserReload},
    {WebIf::PowerState::reboot, QT_TRANSLATE_NOOP("BoxControlView", "Box neu starten"),
     QT_TRANSLATE_NOOP("BoxControlView", "Startet den kompletten Receiver neu (ca. 1 Minute)"),
     QT_TRANSLATE_NOOP("BoxControlView", "Box wirklich neu starten?"),
     QT_TRANSLATE_NOOP("BoxControlView", "Die Box startet neu – das dauert etwa eine Minute."), "system-reboot",
     QStyle::SP_DialogResetButton},
};

const PowerAction &powerAction(WebIf::PowerState state)
{
    for (const PowerAction &action : powerActions) {
        if (action.state == state)
            return action;
    }
    return powerActions[0];
}

QString translated(const char *text)
{
    return QCoreApplication::translate("BoxControlView", text);
}

QProgressBar *meter(const QString &objectName)
{
    auto *bar = new QProgressBar;
    bar->setObjectName(objectName);
    bar->setRange(0, 100);
    bar->setTextVisible(false);
    bar->reset();
    return bar;
}

QLabel *valueLabel(const QString &objectName)
{
    auto *label = new QLabel;
    label->setObjectName(objectName);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

// A percentage from the box, or nothing at all when it gave none.
void showPercent(QProgressBar *bar, QLabel *label, std::optional<int> percent)
{
    if (percent)
        bar->setValue(qBound(0, *percent, 100));
    else
        bar->reset();
    label->setText(percent ? QString::number(*percent) + u" %"_s : QString());
}

} // namespace

QList<BoxControlView::Preset> BoxControlView::presets()
{
    return {
        {tr("Laufzeit und Last"), u"uptime"_s},
        {tr("Freier Speicherplatz"), u"df -h"_s},
        {tr("Arbeitsspeicher"), u"free"_s},
        {tr("Image-Version"), u"cat /etc/image-version 2>/dev/null || cat /etc/issue"_s},
        {tr("Enigma2 neu starten (init)"), u"init 4 && sleep 2 && init 3"_s},
        {tr("Bouquet-Dateien auflisten"), u"ls -l /etc/enigma2/"_s},
    };
}

BoxControlView::BoxControlView(Store &store, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_store(store)
{
    setWindowTitle(tr("Box-Steuerung"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(statusSection());
    layout->addWidget(actionsSection());
    layout->addWidget(presetsSection());
    layout->addWidget(commandSection(), 1);
    resize(620, 680);

    m_pollTimer.setSingleShot(true);
    m_pollTimer.setInterval(std::chrono::seconds(2));
    connect(&m_pollTimer, &QTimer::timeout, this, [this] { poll(); });
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    showStatus();
}

void BoxControlView::setPollInterval(std::chrono::milliseconds interval)
{
    m_pollTimer.setInterval(interval);
}

QWidget *BoxControlView::statusSection()
{
    m_serviceLabel = valueLabel(u"serviceName"_s);
    m_snrBar = meter(u"snrMeter"_s);
    m_snrValue = valueLabel(u"snrValue"_s);
    m_snrDetail = valueLabel(u"snrDetail"_s);
    m_agcBar = meter(u"agcMeter"_s);
    m_agcValue = valueLabel(u"agcValue"_s);
    m_berValue = valueLabel(u"berValue"_s);

    auto *grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Aktueller Sender")), 0, 0);
    grid->addWidget(m_serviceLabel, 0, 1, 1, 3);
    grid->addWidget(new QLabel(tr("Signal (SNR)")), 1, 0);
    grid->addWidget(m_snrBar, 1, 1);
    grid->addWidget(m_snrValue, 1, 2);
    grid->addWidget(m_snrDetail, 1, 3);
    grid->addWidget(new QLabel(tr("Pegel (AGC)")), 2, 0);
    grid->addWidget(m_agcBar, 2, 1);
    grid->addWidget(m_agcValue, 2, 2);
    grid->addWidget(new QLabel(tr("Bitfehler (BER)")), 3, 0);
    grid->addWidget(m_berValue, 3, 1);
    grid->setColumnStretch(1, 1);

    m_statusErrorRow = new QWidget;
    auto *errorRow = new QHBoxLayout(m_statusErrorRow);
    errorRow->setContentsMargins(0, 0, 0, 0);
    auto *icon = new QLabel;
    const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconSize));
    m_statusErrorLabel = valueLabel(u"statusError"_s);
    m_statusErrorLabel->setWordWrap(true);
    errorRow->addWidget(icon);
    errorRow->addWidget(m_statusErrorLabel, 1);
    grid->addWidget(m_statusErrorRow, 4, 0, 1, 4);

    auto *box = new QGroupBox(tr("Status"));
    box->setLayout(grid);
    return box;
}

QWidget *BoxControlView::actionsSection()
{
    auto *buttons = new QHBoxLayout;
    for (const PowerAction &action : powerActions) {
        auto *button = new QPushButton(QIcon::fromTheme(QString::fromLatin1(action.themeIcon),
                                                        style()->standardIcon(action.icon)),
                                       translated(action.label));
        button->setToolTip(translated(action.help));
        const WebIf::PowerState state = action.state;
        connect(button, &QPushButton::clicked, this, [this, state] { power(state); });
        buttons->addWidget(button);
    }
    buttons->addStretch();
    m_actionMessage = valueLabel(u"actionMessage"_s);
    m_actionMessage->setWordWrap(true);

    auto *layout = new QVBoxLayout;
    layout->addLayout(buttons);
    layout->addWidget(m_actionMessage);
    auto *box = new QGroupBox(tr("Aktionen"));
    box->setLayout(layout);
    return box;
}

QWidget *BoxControlView::presetsSection()
{
    auto *grid = new QGridLayout;
    const QList<Preset> all = presets();
    for (qsizetype i = 0; i < all.size(); ++i) {
        auto *button = new QPushButton(all[i].label);
        button->setToolTip(all[i].command);
        connect(button, &QPushButton::clicked, this, [this, command = all[i].command] { runCommand(command); });
        grid->addWidget(button, int(i / 3), int(i % 3));
        m_commandButtons << button;
    }
    auto *box = new QGroupBox(tr("Vorlagen"));
    box->setLayout(grid);
    return box;
}

QWidget *BoxControlView::commandSection()
{
    m_command = new QLineEdit(m_store.settings().customCommand);
    m_command->setObjectName(u"command"_s);
    m_command->setPlaceholderText(tr("Befehl, z. B. uptime"));
    auto *run = new QPushButton(tr("Ausführen"));
    run->setObjectName(u"run"_s);
    m_commandButtons << run;
    const auto runTyped = [this] {
        if (m_running)
            return;
        keepCommand();
        runCommand(m_command->text().trimmed());
    };
    connect(run, &QPushButton::clicked, this, runTyped);
    connect(m_command, &QLineEdit::returnPressed, this, runTyped);

    m_output = new QPlainTextEdit;
    m_output->setObjectName(u"output"_s);
    m_output->setReadOnly(true);
    m_output->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_output->setPlaceholderText(tr("Ausgabe erscheint hier."));

    auto *row = new QHBoxLayout;
    row->addWidget(m_command, 1);
    row->addWidget(run);
    auto *layout = new QVBoxLayout;
    layout->addLayout(row);
    layout->addWidget(m_output, 1);
    auto *box = new QGroupBox(tr("Eigener Befehl (Telnet)"));
    box->setLayout(layout);
    return box;
}

void BoxControlView::power(WebIf::PowerState state)
{
    const PowerAction &action = powerAction(state);
    if (!action.confirmTitle) {
        sendPowerState(state);
        return;
    }
    Sheets::confirm(this, translated(action.confirmTitle),
                    tr("Laufende Aufnahmen werden unterbrochen, nicht gespeicherte Timer und der EPG-Cache "
                       "können verloren gehen."),
                    translated(action.label), [this, state] { sendPowerState(state); });
}

QCoro::Task<> BoxControlView::sendPowerState(WebIf::PowerState state)
{
    QPointer<BoxControlView> self(this);
    const WebIf web(m_store.settings());
    QString message;
    try {
        co_await web.setPowerState(state);
        message = translated(powerAction(state).done);
    } catch (const Error &error) {
        message = error.description();
    }
    if (self)
        m_actionMessage->setText(message);
}

QCoro::Task<> BoxControlView::runCommand(QString command)
{
    if (m_running || command.isEmpty())
        co_return;
    setRunning(true);
    QPointer<BoxControlView> self(this);
    TelnetClient client(m_store.settings());
    client.setLimits(m_telnetLimits);
    QString output = u"$ "_s + command + u'\n';
    try {
        const QString text = co_await client.run(command);
        output += text.isEmpty() ? tr("(keine Ausgabe)") : text;
    } catch (const Error &error) {
        output += tr("Fehler: ") + error.description();
    }
    if (!self)
        co_return;
    m_output->setPlainText(output);
    setRunning(false);
}

void BoxControlView::setRunning(bool running)
{
    m_running = running;
    for (QAbstractButton *button : std::as_const(m_commandButtons))
        button->setEnabled(!running);
}

void BoxControlView::keepCommand()
{
    BoxSettings settings = m_store.settings();
    if (settings.customCommand == m_command->text())
        return;
    settings.customCommand = m_command->text();
    settings.save();
    m_store.setSettings(settings);
}

QCoro::Task<> BoxControlView::poll()
{
    m_polling = true;
    QPointer<BoxControlView> self(this);
    const WebIf web(m_store.settings());
    std::optional<QString> failure;
    std::optional<QString> name;
    WebIf::SignalInfo signal;
    try {
        name = co_await web.currentServiceName();
        signal = co_await web.signal();
    } catch (const Error &error) {
        failure = error.description();
    }
    if (!self)
        co_return;
    m_polling = false;
    m_statusError = failure;
    if (!failure) {
        m_serviceName = name;
        m_signal = signal;
    }
    showStatus();
    // The next poll waits for this one to end, so that a slow box never has two at once.
    if (isVisible())
        m_pollTimer.start();
}

void BoxControlView::showStatus()
{
    m_serviceLabel->setText(m_serviceName.value_or(QString()));
    const WebIf::SignalInfo signal = m_signal.value_or(WebIf::SignalInfo());
    showPercent(m_snrBar, m_snrValue, signal.snr);
    m_snrDetail->setText(signal.snrDB.value_or(QString()));
    showPercent(m_agcBar, m_agcValue, signal.agc);
    m_berValue->setText(signal.ber ? QString::number(*signal.ber) : QString());
    m_statusErrorLabel->setText(m_statusError ? tr("Box nicht erreichbar: ") + *m_statusError : QString());
    m_statusErrorRow->setVisible(m_statusError.has_value());
}

void BoxControlView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_polling && !m_pollTimer.isActive())
        poll();
}

void BoxControlView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_pollTimer.stop();
    keepCommand();
}
