#pragma once

#include "BoxSettings.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QMap>
#include <QString>
#include <QUrl>

#include <QCoroTask>

#include <chrono>
#include <optional>

class QNetworkAccessManager;

// The box's web interface (OpenWebif, "/web/…"): reload the lists after an upload, the service on
// screen, the tuner's signal and the power actions. Plain GET requests with Basic authorization,
// answered with small XML documents from which single elements are cut out.
class WebIf
{
    Q_DECLARE_TR_FUNCTIONS(WebIf)

public:
    // The values of the "newstate" parameter. 1 (deep standby) is deliberately not offered.
    enum class PowerState { toggleStandby = 0, reboot = 2, restartGUI = 3 };
    static std::optional<PowerState> powerState(int rawValue);

    // The tuner's reading; each value is absent when the box did not give it.
    struct SignalInfo
    {
        std::optional<QString> snrDB;
        std::optional<int> snr;
        std::optional<int> agc;
        std::optional<int> ber;
        bool operator==(const SignalInfo &other) const = default;
    };

    // Query parameters, sorted by name.
    using Query = QMap<QString, QString>;

    explicit WebIf(BoxSettings settings);

    QCoro::Task<std::optional<QString>> currentServiceName() const;
    QCoro::Task<SignalInfo> signal() const;
    QCoro::Task<void> setPowerState(PowerState state) const;
    QCoro::Task<void> reloadServices(int mode) const;
    // The one request routine. Quiet requests (polled while a window is open) log only failures.
    // Throws BoxError (no host, HTTP status outside 200-299) or MessageError (no answer).
    QCoro::Task<QByteArray> get(QString path, Query query, std::chrono::milliseconds timeout, bool quiet) const;

    // The pure parts, tested without a network.
    static std::optional<QString> tag(const QString &name, const QString &in);
    static std::optional<int> number(const std::optional<QString> &text);
    static SignalInfo parseSignal(const QString &body);
    QUrl url(const QString &path, const Query &query) const;
    QString describe(const QString &path, const Query &query) const;
    QByteArray authorization() const;

    // The application's network access for the calling thread.
    static QNetworkAccessManager &network();

private:
    QString host() const;

    BoxSettings m_settings;
};
