#include "WebIf.h"

#include "BoxError.h"
#include "BoxLog.h"
#include "EventWait.h"
#include "Utf8.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QThread>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The box's reason for a request without an answer, in the words the desktop uses for them.
QString transportFailure(const QNetworkReply &reply)
{
    switch (reply.error()) {
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TimeoutError:
        return WebIf::tr("Zeitüberschreitung bei der Anforderung.");
    case QNetworkReply::ConnectionRefusedError:
        return WebIf::tr("Es konnte keine Verbindung zum Server hergestellt werden.");
    case QNetworkReply::HostNotFoundError:
        return WebIf::tr("Es wurde kein Server mit dem angegebenen Hostnamen gefunden.");
    case QNetworkReply::RemoteHostClosedError:
        return WebIf::tr("Die Netzwerkverbindung wurde unterbrochen.");
    default:
        return reply.errorString();
    }
}

QString seconds(const QElapsedTimer &clock)
{
    return QString::asprintf("%.2f s", clock.elapsed() / 1000.0);
}

} // namespace

WebIf::WebIf(BoxSettings settings)
    : m_settings(std::move(settings))
{
}

std::optional<WebIf::PowerState> WebIf::powerState(int rawValue)
{
    switch (rawValue) {
    case 0:
        return PowerState::toggleStandby;
    case 2:
        return PowerState::reboot;
    case 3:
        return PowerState::restartGUI;
    default:
        return std::nullopt;
    }
}

std::optional<QString> WebIf::tag(const QString &name, const QString &in)
{
    const QString open = u'<' + name + u'>';
    const qsizetype start = in.indexOf(open);
    if (start < 0)
        return std::nullopt;
    const qsizetype end = in.indexOf(u"</"_s + name + u'>', start + open.size());
    if (end < 0)
        return std::nullopt;
    return in.mid(start + open.size(), end - start - open.size()).trimmed();
}

std::optional<int> WebIf::number(const std::optional<QString> &text)
{
    if (!text)
        return std::nullopt;
    qsizetype digits = 0;
    while (digits < text->size() && text->at(digits) >= u'0' && text->at(digits) <= u'9')
        ++digits;
    bool ok = false;
    const int value = text->left(digits).toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

WebIf::SignalInfo WebIf::parseSignal(const QString &body)
{
    // The box spells the level element "e2acg".
    return SignalInfo{tag(u"e2snrdb"_s, body), number(tag(u"e2snr"_s, body)), number(tag(u"e2acg"_s, body)),
                      number(tag(u"e2ber"_s, body))};
}

QString WebIf::host() const
{
    const QString host = m_settings.host.trimmed();
    if (host.isEmpty())
        throw BoxError::noHost();
    return host;
}

QUrl WebIf::url(const QString &path, const Query &query) const
{
    QUrl url;
    url.setScheme(u"http"_s);
    url.setHost(host());
    url.setPort(m_settings.httpPort);
    url.setPath(path);
    if (!query.isEmpty()) {
        // The box decodes a value once: "%" must travel as "%25", so that a stream reference's
        // "%3a" arrives unchanged; "&", "=", "+" and "#" are encoded too.
        static const QByteArray readable = ":/@!$'()*,;?";
        QStringList items;
        for (auto it = query.cbegin(); it != query.cend(); ++it)
            items << QString::fromLatin1(QUrl::toPercentEncoding(it.key(), readable) + '=' +
                                         QUrl::toPercentEncoding(it.value(), readable));
        url.setQuery(items.join(u'&'), QUrl::StrictMode);
    }
    return url;
}

QString WebIf::describe(const QString &path, const Query &query) const
{
    QString text = u"GET "_s + host() + u':' + QString::number(m_settings.httpPort) + path;
    QStringList items;
    for (auto it = query.cbegin(); it != query.cend(); ++it)
        items << it.key() + u'=' + it.value();
    if (!items.isEmpty())
        text += u'?' + items.join(u'&');
    return text;
}

QByteArray WebIf::authorization() const
{
    // Sent on every request, also with an empty password.
    return "Basic " + (m_settings.user + u':' + m_settings.password).toUtf8().toBase64();
}

QNetworkAccessManager &WebIf::network()
{
    thread_local QPointer<QNetworkAccessManager> manager;
    if (!manager) {
        manager = new QNetworkAccessManager;
        QCoreApplication *app = QCoreApplication::instance();
        if (app && app->thread() == QThread::currentThread()) {
            manager->setParent(app);
        } else {
            QNetworkAccessManager *owned = manager;
            QObject::connect(QThread::currentThread(), &QThread::finished, owned, [owned] { delete owned; },
                             Qt::DirectConnection);
        }
    }
    return *manager;
}

QCoro::Task<std::optional<QString>> WebIf::currentServiceName() const
{
    const QByteArray body = co_await get(u"/web/subservices"_s, {}, 5s, true);
    co_return tag(u"e2servicename"_s, QString::fromUtf8(Utf8::repaired(body)));
}

QCoro::Task<WebIf::SignalInfo> WebIf::signal() const
{
    const QByteArray body = co_await get(u"/web/signal"_s, {}, 5s, true);
    co_return parseSignal(QString::fromUtf8(Utf8::repaired(body)));
}

QCoro::Task<void> WebIf::setPowerState(PowerState state) const
{
    const Query query{{u"newstate"_s, QString::number(int(state))}};
    co_await get(u"/web/powerstate"_s, query, 5s, false);
}

QCoro::Task<void> WebIf::reloadServices(int mode) const
{
    const Query query{{u"mode"_s, QString::number(mode)}};
    co_await get(u"/web/servicelistreload"_s, query, 15s, false);
}

QCoro::Task<QByteArray> WebIf::get(QString path, Query query, std::chrono::milliseconds timeout, bool quiet) const
{
    // Everything taken from this object is read before the first suspension.
    QNetworkRequest request(url(path, query));
    const QString description = describe(path, query);
    request.setTransferTimeout(int(timeout.count()));
    request.setRawHeader("Authorization", authorization());
    BoxLog &log = BoxLog::shared();

    QElapsedTimer clock;
    clock.start();
    const std::unique_ptr<QNetworkReply> reply(network().get(request));
    if (!reply->isFinished()) {
        EventWait finished;
        finished.on(reply.get(), &QNetworkReply::finished, 1);
        co_await finished.outcome();
    }

    // A status code means the box answered (401 and 500 included); without one it did not.
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid()) {
        const QString reason = transportFailure(*reply);
        log.write(BoxLog::Level::error, u"HTTP"_s, description + u" fehlgeschlagen nach "_s + seconds(clock) + u": "_s + reason);
        throw MessageError(reason);
    }
    const int code = status.toInt();
    if (code < 200 || code > 299) {
        log.write(BoxLog::Level::error, u"HTTP"_s,
                  description + u" → HTTP "_s + QString::number(code) + (code == 401 ? u" (Anmeldung abgelehnt)"_s : QString()));
        throw BoxError::http(code);
    }
    const QByteArray body = reply->readAll();
    if (!quiet) {
        log.write(BoxLog::Level::ok, u"HTTP"_s,
                  description + u" → "_s + QString::number(code) + u" in "_s + seconds(clock) + u", "_s +
                      QString::number(body.size()) + u" Bytes"_s);
    }
    co_return body;
}
