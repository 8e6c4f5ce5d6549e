#include "FTPClient.h"

#include "BoxError.h"
#include "BoxLog.h"
#include "EventWait.h"
#include "Utf8.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString seconds(double value)
{
    return QString::asprintf("%.2f s", value);
}

void requirePlainName(const QString &name)
{
    if (!FTPClient::isPlainName(name))
        throw MessageError(FTPClient::tr("Ungültiger Dateiname für die Box: ") + name);
}

} // namespace

FTPClient::FTPClient(BoxSettings settings)
    : m_settings(std::move(settings))
{
}

QString FTPClient::host() const
{
    const QString host = m_settings.host.trimmed();
    if (host.isEmpty())
        throw BoxError::noHost();
    return host;
}

QString FTPClient::baseURL() const
{
    return fileURL(m_settings.normalizedDirectory(), {});
}

QString FTPClient::fileURL(const QString &directory, const QString &file) const
{
    // The characters that may stand in a URL path; everything else, "#" and brackets included,
    // is percent-encoded. curl refuses a URL with a blank, so the folder is encoded the same
    // way, keeping its slashes.
    static const QByteArray pathCharacters = "!$&'()*+,-./:;=@_~";
    const QString folder = QString::fromLatin1(QUrl::toPercentEncoding(BoxSettings::withSlashes(directory), pathCharacters));
    const QString name = QString::fromLatin1(QUrl::toPercentEncoding(file, pathCharacters));
    return u"ftp://"_s + host() + u':' + QString::number(m_settings.ftpPort) + folder + name;
}

QString FTPClient::escaped(const QString &value)
{
    QString result = value;
    result.replace(u'\\', u"\\\\"_s);
    result.replace(u'"', u"\\\""_s);
    // A raw line break would end the quoted value and start a configuration line of its own.
    result.replace(u'\n', u"\\n"_s);
    result.replace(u'\r', u"\\r"_s);
    result.replace(u'\t', u"\\t"_s);
    return result;
}

QString FTPClient::line(const QString &key, const QString &value)
{
    return key + u" = \""_s + escaped(value) + u'"';
}

QString FTPClient::configuration(const QStringList &lines) const
{
    QStringList all{line(u"user"_s, m_settings.user + u':' + m_settings.password),
                    u"silent"_s,
                    u"show-error"_s,
                    u"fail"_s,
                    u"connect-timeout = 10"_s,
                    u"ftp-pasv"_s,
                    u"globoff"_s,
                    u"speed-limit = 1"_s,
                    u"speed-time = "_s + QString::number(m_speedTime)};
    all += lines;
    return all.join(u'\n') + u'\n';
}

QString FTPClient::action(const QStringList &lines)
{
    for (const QString &line : lines) {
        if (line.startsWith(u"upload-file"))
            return u"Hochladen"_s;
    }
    return lines.contains(u"list-only"_s) ? u"Verzeichnis lesen"_s : u"Herunterladen"_s;
}

QString FTPClient::target(const QStringList &lines)
{
    QStringList urls;
    for (const QString &line : lines) {
        if (!line.startsWith(u"url = "))
            continue;
        QString value = line.mid(6);
        if (value.startsWith(u'"'))
            value.remove(0, 1);
        if (value.endsWith(u'"'))
            value.chop(1);
        urls << value;
    }
    if (urls.size() == 1)
        return urls.first();
    return QString::number(urls.size()) + u" Dateien, z. B. "_s + (urls.isEmpty() ? u"-"_s : urls.first());
}

QStringList FTPClient::listing(const QByteArray &output)
{
    const QString text = QString::fromUtf8(Utf8::repaired(output));
    QStringList names;
    for (const QString &line : text.split(u'\n')) {
        const QString name = line.trimmed();
        if (!name.isEmpty())
            names << name;
    }
    return names;
}

QString FTPClient::successMessage(const QString &action, double elapsed, qint64 bytes, const QString &notes)
{
    QString message = action + u" fertig in "_s + seconds(elapsed) + u", "_s + QString::number(bytes) +
                      u" Bytes empfangen"_s;
    if (!notes.isEmpty())
        message += u" – Hinweise: "_s + notes;
    return message;
}

QString FTPClient::failureMessage(const QString &action, double elapsed, int status, const QString &errorText)
{
    QString message = action + u" fehlgeschlagen nach "_s + seconds(elapsed) + u": curl-Code "_s +
                      QString::number(status);
    const QString hint = BoxLog::curlHint(status);
    if (!hint.isEmpty())
        message += u" ("_s + hint + u')';
    if (!errorText.isEmpty())
        message += u" – "_s + errorText;
    return message;
}

bool FTPClient::isPlainName(const QString &name)
{
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') && !name.contains(QChar(0));
}

QString FTPClient::curlProgram()
{
    const QString preferred = u"/usr/bin/curl"_s;
    if (QFileInfo(preferred).isExecutable())
        return preferred;
    const QString found = QStandardPaths::findExecutable(u"curl"_s);
    return found.isEmpty() ? preferred : found;
}

QCoro::Task<QStringList> FTPClient::listFiles() const
{
    const QStringList lines{line(u"url"_s, baseURL()), u"list-only"_s};
    co_return listing(co_await run(lines));
}

QCoro::Task<QStringList> FTPClient::list(QString directory) const
{
    const QStringList lines{line(u"url"_s, fileURL(directory, {})), u"list-only"_s};
    co_return listing(co_await run(lines));
}

QCoro::Task<QByteArray> FTPClient::download(QString name) const
{
    const QStringList lines{line(u"url"_s, fileURL(m_settings.normalizedDirectory(), name))};
    co_return co_await run(lines);
}

QCoro::Task<void> FTPClient::upload(QString file, QString as) const
{
    requirePlainName(as);
    const QStringList lines{line(u"url"_s, fileURL(m_settings.normalizedDirectory(), as)),
                            line(u"upload-file"_s, file)};
    co_await run(lines);
}

QStringList FTPClient::manyFileLines(qsizetype count)
{
    // Debian 12's curl (7.88) sometimes waits a whole second before a data connection when one
    // control connection carries several files; other connections' activity wakes it, so a few
    // transfers at once turn minutes of waiting for a picon batch into a fraction of a second.
    if (count < 2)
        return {};
    return {u"parallel"_s, u"parallel-max = 4"_s, u"no-progress-meter"_s};
}

QCoro::Task<void> FTPClient::upload(QList<Upload> files, QString to) const
{
    QStringList lines{u"ftp-create-dirs"_s};
    lines << manyFileLines(files.size());
    for (const Upload &upload : std::as_const(files)) {
        requirePlainName(upload.name);
        lines << line(u"upload-file"_s, upload.file) << line(u"url"_s, fileURL(to, upload.name));
    }
    if (files.isEmpty())
        co_return;
    co_await run(lines);
}

QCoro::Task<int> FTPClient::download(QStringList names, QString from, QString to) const
{
    // A name from a hostile box such as "../../.bashrc" must not write outside the folder.
    names.removeIf([](const QString &name) { return !isPlainName(name); });
    QStringList lines = manyFileLines(names.size());
    for (const QString &name : std::as_const(names))
        lines << line(u"url"_s, fileURL(from, name)) << line(u"output"_s, to + u'/' + name);
    if (names.isEmpty())
        co_return 0;
    try {
        co_await run(lines);
    } catch (const BoxError &error) {
        // Missing files are expected: curl names the reason in parentheses.
        const QString message = error.message();
        const bool missing = error.kind() == BoxError::Kind::curl &&
                             (message.contains(u"(78)") || message.contains(u"(19)") || message.contains(u"(22)"));
        if (!missing)
            throw;
    }
    int present = 0;
    for (const QString &name : std::as_const(names)) {
        if (QFileInfo::exists(to + u'/' + name))
            ++present;
    }
    co_return present;
}

QCoro::Task<QByteArray> FTPClient::run(QStringList lines) const
{
    // Everything taken from this object is copied before the first suspension.
    const QByteArray configurationText = configuration(lines).toUtf8();
    const QString action = FTPClient::action(lines);
    const QString program = m_program.isEmpty() ? curlProgram() : m_program;
    BoxLog &log = BoxLog::shared();
    log.write(BoxLog::Level::info, u"FTP"_s, action + u": "_s + target(lines));

    QElapsedTimer clock;
    clock.start();
    QProcess process;
    QByteArray output;
    // Drained as it arrives, so that a large listing or download never fills the pipe.
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process,
                     [&] { output += process.readAllStandardOutput(); });

    enum Outcome { finished, failedToStart };
    EventWait done;
    done.on(&process, &QProcess::finished, finished);
    QObject::connect(&process, &QProcess::errorOccurred, done.context(), [&done](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            done.finish(failedToStart);
    });
    process.start(program, {u"-K"_s, u"-"_s});
    process.write(configurationText);
    process.closeWriteChannel();
    if (co_await done.outcome() == failedToStart) {
        const QString reason = process.errorString();
        log.write(BoxLog::Level::error, u"FTP"_s,
                  action + u" fehlgeschlagen nach "_s + seconds(clock.elapsed() / 1000.0) + u": "_s + reason);
        throw MessageError(tr("curl konnte nicht gestartet werden: ") + reason);
    }

    output += process.readAllStandardOutput();
    const QString errorText = QString::fromUtf8(Utf8::repaired(process.readAllStandardError())).trimmed();
    const double elapsed = clock.elapsed() / 1000.0;
    // A curl killed by a signal has no exit code of its own; -1 has no hint and reads as a failure.
    const int status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    if (status == 0) {
        log.write(BoxLog::Level::ok, u"FTP"_s, successMessage(action, elapsed, output.size(), errorText));
        co_return output;
    }
    log.write(BoxLog::Level::error, u"FTP"_s, failureMessage(action, elapsed, status, errorText));
    throw BoxError::curl(errorText.isEmpty() ? tr("curl-Exitcode ") + QString::number(status) : errorText);
}
