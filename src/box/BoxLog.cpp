#include "BoxLog.h"

#include "Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QThread>

#include <mutex>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString headerBars = u"\u2015\u2015\u2015"_s;

QLocale germanLocale()
{
    return QLocale(QLocale::German, QLocale::Germany);
}

} // namespace

// Owns the file; lives in the log's thread, so all file access is serialised there.
class BoxLog::Worker : public QObject
{
public:
    Worker(BoxLog *log, QString filePath)
        : m_log(log)
        , m_filePath(std::move(filePath))
    {
    }

    void append(const QString &day, const QString &line)
    {
        rotateIfNeeded();
        if (!m_lastDay)
            m_lastDay = recoverLastDay();
        QByteArray bytes;
        if (*m_lastDay != day) {
            bytes += dayHeader(day).toUtf8() + '\n';
            m_lastDay = day;
        }
        bytes += line.toUtf8() + '\n';
        QFile file(m_filePath);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
            // The folder may have been removed while the program ran.
            QDir().mkpath(QFileInfo(m_filePath).absolutePath());
            if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
                return;
        }
        file.write(bytes);
        file.close();
        announce();
    }

    void clear()
    {
        // Emptied rather than removed: revealing the log in the file manager still finds it.
        QFile file(m_filePath);
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.close();
        m_lastDay.reset();
        announce();
    }

private:
    void rotateIfNeeded()
    {
        if (QFileInfo(m_filePath).size() <= maxSize)
            return;
        const QFileInfo info(m_filePath);
        const QString older = info.absolutePath() + u'/' + info.completeBaseName() + u".1.log"_s;
        QFile::remove(older);
        QFile::rename(m_filePath, older);
        m_lastDay.reset();
    }

    // The day of the last header in the file's tail; an empty text when there is none.
    QString recoverLastDay() const
    {
        QFile file(m_filePath);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        if (file.size() >= dayScanBytes)
            file.seek(file.size() - dayScanBytes);
        const QString text = QString::fromUtf8(file.readAll());
        const QList<QStringView> lines = QStringView(text).split(u'\n');
        for (auto it = lines.crbegin(); it != lines.crend(); ++it) {
            const QString day = dayOfHeader(*it);
            if (!day.isNull())
                return day;
        }
        return {};
    }

    void announce()
    {
        QMetaObject::invokeMethod(m_log, &BoxLog::changed, Qt::QueuedConnection);
    }

    BoxLog *m_log;
    QString m_filePath;
    std::optional<QString> m_lastDay;
};

BoxLog::BoxLog(const QString &folder, Clock clock, QObject *parent)
    : QObject(parent)
    , m_folder(folder)
    , m_filePath(folder + u"/Box.log"_s)
    , m_clock(clock ? std::move(clock) : Clock([] { return QDateTime::currentDateTime(); }))
{
    QDir().mkpath(folder);
    // One thread owns the file: entries from any thread are appended in the order of the calls.
    m_thread = new QThread;
    m_thread->setObjectName(u"Corvandel.BoxLog"_s);
    m_worker = new Worker(this, m_filePath);
    m_worker->moveToThread(m_thread);
    m_thread->start();
}

BoxLog::~BoxLog()
{
    flush();
    m_thread->quit();
    m_thread->wait();
    delete m_worker;
    delete m_thread;
}

BoxLog &BoxLog::shared()
{
    static BoxLog *instance = nullptr;
    static std::once_flag once;
    std::call_once(once, [] {
        instance = new BoxLog(Paths::stateDir());
        if (auto *app = QCoreApplication::instance()) {
            instance->moveToThread(app->thread());
            // Written entries must reach the file before the program ends.
            qAddPostRoutine([] {
                instance->flush();
                instance->m_thread->quit();
                instance->m_thread->wait();
            });
        }
        instance->writeBanner();
    });
    return *instance;
}

void BoxLog::write(Level level, const QString &category, const QString &message)
{
    // The entry carries the time of the call, not of the queued write.
    const QDateTime now = m_clock();
    const QString day = dayText(now.date());
    const QString line = entryLine(now.time(), level, category, message);
    Worker *worker = m_worker;
    QMetaObject::invokeMethod(worker, [worker, day, line] { worker->append(day, line); }, Qt::QueuedConnection);
}

QString BoxLog::tail(qint64 maxBytes) const
{
    QFile file(m_filePath);
    if (!file.open(QIODevice::ReadOnly) || maxBytes <= 0)
        return {};
    if (file.size() > maxBytes)
        file.seek(file.size() - maxBytes);
    QByteArray bytes = file.readAll();
    // A cut inside a multi-byte character would show as a replacement character.
    qsizetype start = 0;
    while (start < bytes.size() && start < 3 && (quint8(bytes[start]) & 0xC0) == 0x80)
        ++start;
    return QString::fromUtf8(bytes.constData() + start, bytes.size() - start);
}

void BoxLog::clear()
{
    Worker *worker = m_worker;
    QMetaObject::invokeMethod(worker, [worker] { worker->clear(); }, Qt::QueuedConnection);
}

QString BoxLog::filePath() const
{
    return m_filePath;
}

void BoxLog::flush()
{
    if (m_thread->isRunning())
        QMetaObject::invokeMethod(m_worker, [] {}, Qt::BlockingQueuedConnection);
}

void BoxLog::writeBanner()
{
    write(Level::info, u"App"_s, bannerMessage());
}

QString BoxLog::curlHint(int code)
{
    // Part of a log line, which stays German like the rest of the log.
    const char *hint = nullptr;
    switch (code) {
    case 6:
        hint = "Box-Adresse nicht auflösbar";
        break;
    case 7:
        hint = "Verbindung abgelehnt / Box nicht erreichbar";
        break;
    case 9:
    case 67:
        hint = "Anmeldung abgelehnt (Benutzer/Passwort)";
        break;
    case 19:
    case 78:
        hint = "Datei auf der Box nicht gefunden";
        break;
    case 25:
        hint = "Hochladen abgelehnt (Schreibrechte? Speicher voll?)";
        break;
    case 28:
        hint = "Zeitüberschreitung";
        break;
    case 55:
    case 56:
        hint = "Verbindung während der Übertragung abgebrochen";
        break;
    default:
        return {};
    }
    return QString::fromUtf8(hint);
}

QString BoxLog::marker(Level level)
{
    switch (level) {
    case Level::info:
        return u"   "_s;
    case Level::ok:
        return u"OK "_s;
    case Level::error:
        return u"ERR"_s;
    case Level::task:
        return u">>>"_s;
    }
    return u"   "_s;
}

QString BoxLog::dayText(const QDate &date)
{
    return germanLocale().toString(date, u"dddd, dd.MM.yyyy"_s);
}

QString BoxLog::dayHeader(const QString &dayText)
{
    return headerBars + u' ' + dayText + u' ' + headerBars;
}

QString BoxLog::entryLine(const QTime &time, Level level, const QString &category, const QString &message)
{
    // One entry is one line, so that the log window can filter by line.
    static const QRegularExpression lineBreaks(u"\r\n|\r|\n"_s);
    QString text = message;
    text.replace(lineBreaks, u" | "_s);
    return time.toString(u"HH:mm:ss"_s) + u"  "_s + marker(level) + u"  "_s + category.leftJustified(9, u' ')
        + u"  "_s + text;
}

QString BoxLog::dayOfHeader(QStringView line)
{
    const QString prefix = headerBars + u' ';
    const QString suffix = u' ' + headerBars;
    if (line.size() < prefix.size() + suffix.size() || !line.startsWith(prefix) || !line.endsWith(suffix))
        return {};
    return line.mid(prefix.size(), line.size() - prefix.size() - suffix.size()).toString();
}

QString BoxLog::bannerMessage()
{
    return versionLine() + u" gestartet"_s;
}

QString BoxLog::versionLine()
{
#ifdef CORVANDEL_BUILD
    const QString build = QStringLiteral(CORVANDEL_BUILD);
#else
    const QString build;
#endif
    return u"Corvandel v"_s + QStringLiteral(CORVANDEL_VERSION) + u" (Build "_s + build + u')';
}
