#pragma once

#include "TelnetClient.h"
#include "WebIf.h"

#include <QCoroTask>
#include <QList>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <optional>

class QAbstractButton;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class Store;

// The box control window: the service on screen and the tuner's signal, polled while the window
// is shown; standby, restart of Enigma2 and reboot through the web interface; preset and typed
// shell commands over Telnet with their output. Every failure ends as text in the window.
class BoxControlView : public QWidget
{
    Q_OBJECT

public:
    struct Preset
    {
        QString label;
        QString command;
    };
    static QList<Preset> presets();

    explicit BoxControlView(Store &store, QWidget *parent = nullptr);

    // The pause between the end of one poll and the start of the next (2 seconds); tests shorten it.
    void setPollInterval(std::chrono::milliseconds interval);
    void setTelnetLimits(const TelnetClient::Limits &limits) { m_telnetLimits = limits; }

    // "Standby an/aus" runs at once; the two restarts ask first, window-modal.
    void power(WebIf::PowerState state);
    // Runs a command over Telnet and shows its output; ignored while one runs.
    QCoro::Task<> runCommand(QString command);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *statusSection();
    QWidget *actionsSection();
    QWidget *presetsSection();
    QWidget *commandSection();
    QCoro::Task<> poll();
    QCoro::Task<> sendPowerState(WebIf::PowerState state);
    void showStatus();
    void setRunning(bool running);
    // Keeps the typed command in the settings, where the window finds it next time.
    void keepCommand();

    Store &m_store;
    QTimer m_pollTimer;
    bool m_polling = false;
    TelnetClient::Limits m_telnetLimits;

    std::optional<QString> m_serviceName;
    std::optional<WebIf::SignalInfo> m_signal;
    std::optional<QString> m_statusError;
    bool m_running = false;

    QLabel *m_serviceLabel = nullptr;
    QProgressBar *m_snrBar = nullptr;
    QLabel *m_snrValue = nullptr;
    QLabel *m_snrDetail = nullptr;
    QProgressBar *m_agcBar = nullptr;
    QLabel *m_agcValue = nullptr;
    QLabel *m_berValue = nullptr;
    QWidget *m_statusErrorRow = nullptr;
    QLabel *m_statusErrorLabel = nullptr;
    QLabel *m_actionMessage = nullptr;
    QList<QAbstractButton *> m_commandButtons;
    QLineEdit *m_command = nullptr;
    QPlainTextEdit *m_output = nullptr;
};
