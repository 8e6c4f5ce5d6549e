#include "FakeBox.h"

#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

QString FakeBoxRequest::value(const QString &key) const
{
    for (const auto &item : query) {
        if (item.first == key)
            return item.second;
    }
    return {};
}

FakeBox::FakeBox(FakeBoxOptions options)
    : m_options(std::move(options))
{
    if (m_options.root.isEmpty()) {
        m_ownRoot = std::make_unique<QTemporaryDir>();
        m_options.root = m_ownRoot->path();
    }
    QDir().mkpath(m_options.root + u"/etc/enigma2"_s);

    QStringList arguments{scriptPath(),
                          u"--root"_s, m_options.root,
                          u"--user"_s, m_options.user,
                          u"--password"_s, m_options.password,
                          u"--journal"_s, m_work.filePath(u"journal"_s),
                          u"--login-delay"_s, QString::number(m_options.loginDelay),
                          u"--service-ref"_s, m_options.serviceRef,
                          u"--service-name"_s, m_options.serviceName,
                          u"--drop-after"_s, QString::number(m_options.dropAfter),
                          u"--stall"_s, QString::number(m_options.stall),
                          u"--stall-after"_s, QString::number(m_options.stallAfter),
                          u"--http-status"_s, QString::number(m_options.httpStatus),
                          u"--exit-on-stdin-eof"_s};
    if (!m_options.httpAuth)
        arguments << u"--no-http-auth"_s;
    if (m_options.refuseLogins)
        arguments << u"--refuse-logins"_s;
    if (m_options.telnetNoLogin)
        arguments << u"--telnet-no-login"_s;
    if (m_options.telnetSilent)
        arguments << u"--telnet-silent"_s;

    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(u"/usr/bin/python3"_s, arguments);
    if (!m_process.waitForStarted(10'000)) {
        m_error = m_process.errorString();
        return;
    }
    // The double prints its ports as one JSON line once every server listens.
    QByteArray line;
    while (!line.contains('\n') && m_process.waitForReadyRead(15'000))
        line += m_process.readAllStandardOutput();
    const QJsonObject ports = QJsonDocument::fromJson(line).object();
    if (ports.isEmpty()) {
        m_error = u"the test double did not report its ports: "_s + QString::fromUtf8(line);
        return;
    }
    m_connection.ftpPort = ports.value(u"ftp"_s).toInt();
    m_connection.httpPort = ports.value(u"http"_s).toInt();
    m_connection.telnetPort = ports.value(u"telnet"_s).toInt();
    m_connection.user = m_options.user;
    m_connection.password = m_options.password;
    m_running = true;
}

FakeBox::~FakeBox()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(5'000)) {
        m_process.kill();
        m_process.waitForFinished(5'000);
    }
}

bool FakeBox::isRunning() const
{
    return m_running && m_process.state() == QProcess::Running;
}

QString FakeBox::errorString() const
{
    return m_error;
}

QString FakeBox::root() const
{
    return m_options.root;
}

QString FakeBox::path(const QString &boxPath) const
{
    return QDir::cleanPath(m_options.root + u'/' + boxPath);
}

FakeBoxConnection FakeBox::connection() const
{
    return m_connection;
}

QList<FakeBoxRequest> FakeBox::journal() const
{
    QList<FakeBoxRequest> requests;
    const QList<QByteArray> lines = TestSupport::readFile(m_work.filePath(u"journal"_s)).split('\n');
    for (const QByteArray &line : lines) {
        const QJsonObject entry = QJsonDocument::fromJson(line).object();
        if (entry.isEmpty())
            continue;
        FakeBoxRequest request;
        request.protocol = entry.value(u"protocol"_s).toString();
        request.path = entry.value(u"path"_s).toString();
        request.rawQuery = entry.value(u"rawQuery"_s).toString();
        request.authorization = entry.value(u"authorization"_s).toString();
        request.authorized = entry.value(u"authorized"_s).toBool();
        request.status = entry.value(u"status"_s).toInt();
        request.command = entry.value(u"command"_s).toString();
        const QJsonArray query = entry.value(u"query"_s).toArray();
        for (const QJsonValue &item : query) {
            const QJsonArray pair = item.toArray();
            request.query.append({pair.at(0).toString(), pair.at(1).toString()});
        }
        requests.append(request);
    }
    return requests;
}

QString FakeBox::scriptPath()
{
    return TestSupport::sourceDir() + u"/tests/fakebox/fakebox.py"_s;
}
