#include "Backups.h"

#include "BoxListing.h"
#include "Error.h"
#include "FTPClient.h"
#include "ListFolder.h"
#include "Paths.h"
#include "StagingFolder.h"
#include "Store.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QUrl>

#include <QCoroTimer>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Backups are named by folder paths; a file URL names one as well.
QString localPath(const QString &url)
{
    const QString path = url.startsWith(u"file:") ? QUrl(url).toLocalFile() : url;
    return QDir::cleanPath(path);
}

QString backupName(const QDateTime &time)
{
    return QLocale::c().toString(time, Backups::nameFormat);
}

// The locale's long date without the weekday and with abbreviated month names ("1. März 2024").
QString abbreviatedDate(const QLocale &locale, const QDate &date)
{
    static const QRegularExpression weekday(u"\\s*,?\\s*dddd[,.]?\\s*"_s);
    QString pattern = locale.dateFormat(QLocale::LongFormat);
    pattern.replace(weekday, u" "_s);
    pattern.replace(u"MMMM"_s, u"MMM"_s);
    return locale.toString(date, pattern.trimmed());
}

} // namespace

Backups::Backups(Store &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
{
    // The list depends on the box folder name, which follows the host.
    connect(&m_store, &Store::folderLoaded, this, &Backups::reloadBackups);
    connect(&m_store, &Store::settingsChanged, this, &Backups::reloadBackups);
    reloadBackups();
}

QString Backups::backupFolder() const
{
    return Paths::dataDir() + u"/Sicherungen/"_s + m_store.boxFolderName();
}

std::optional<QDateTime> Backups::backupTime(const QString &name)
{
    // Only names this program could have written count, so parsing must give them back unchanged.
    const QDate date = QDate::fromString(name.left(10), u"yyyy-MM-dd"_s);
    const QTime time = QTime::fromString(name.mid(11), u"HH-mm-ss"_s);
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    // Taken as UTC so that a local time skipped by a clock change still reads back unchanged.
    const QDateTime dateTime(date, time, Qt::UTC);
    if (backupName(dateTime) != name)
        return std::nullopt;
    return dateTime;
}

QCoro::Task<std::optional<QString>> Backups::backupBox(const FTPClient &ftp)
{
    const FTPClient client = ftp;
    const QStringList names = BoxListing::listFiles(co_await client.listFiles());
    if (names.isEmpty())
        co_return std::nullopt;

    const QString parent = backupFolder();
    if (!QDir().mkpath(parent))
        throw MessageError(tr("Der Ordner „%1“ konnte nicht angelegt werden.").arg(parent));
    QString name = backupName(QDateTime::currentDateTime());
    // Two backups within one second would share a folder: the second waits for the next second.
    while (QFileInfo::exists(parent + u'/' + name)) {
        co_await QCoro::sleepFor(100ms);
        name = backupName(QDateTime::currentDateTime());
    }
    const QString folder = parent + u'/' + name;
    // Filled under a hidden name that is no backup name, so that a half-made backup is never listed.
    const QString partial = parent + u"/."_s + name + u".teil"_s;
    QDir(partial).removeRecursively();
    if (!QDir().mkdir(partial))
        throw MessageError(tr("Der Ordner „%1“ konnte nicht angelegt werden.").arg(partial));
    try {
        for (qsizetype i = 0; i < names.size(); ++i) {
            const QString &file = names.at(i);
            m_store.setBusy(tr("Sichere %1 (%2/%3)…").arg(file).arg(i + 1).arg(names.size()));
            const QByteArray bytes = co_await client.download(file);
            ListFolder::writeFile(partial, file, bytes);
        }
        if (!QDir().rename(partial, folder))
            throw MessageError(tr("Der Ordner „%1“ konnte nicht angelegt werden.").arg(folder));
    } catch (...) {
        QDir(partial).removeRecursively();
        throw;
    }
    pruneBackups();
    co_return folder;
}

void Backups::pruneBackups()
{
    reloadBackups();
    const QStringList all = m_store.backups();
    for (qsizetype i = limit; i < all.size(); ++i)
        QDir(all.at(i)).removeRecursively();
    reloadBackups();
}

void Backups::reloadBackups()
{
    const QString folder = backupFolder();
    QStringList names = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    names.removeIf([](const QString &name) { return !backupTime(name); });
    std::sort(names.begin(), names.end(), std::greater<>());
    QStringList paths;
    paths.reserve(names.size());
    for (const QString &name : std::as_const(names))
        paths << folder + u'/' + name;
    m_store.setBackups(paths);
}

QString Backups::backupLabel(const QString &url) const
{
    const QString name = QFileInfo(localPath(url)).fileName();
    const std::optional<QDateTime> time = backupTime(name);
    if (!time)
        return name;
    const QLocale locale;
    return abbreviatedDate(locale, time->date()) + u", "_s + locale.toString(time->time(), QLocale::ShortFormat);
}

QCoro::Task<> Backups::backupNow()
{
    return m_store.perform(tr("Sichere die Liste auf der Box…"), [this]() -> QCoro::Task<> {
        const BoxSettings settings = m_store.settings();
        co_await backupBox(FTPClient(settings));
        m_store.setStatus(tr("Liste von %1 gesichert.").arg(settings.host));
    });
}

void Backups::restoreBackup(const QString &url)
{
    try {
        const QString workDir = m_store.workDir();
        // The work folder is only replaced once the copy is complete and opens.
        StagingFolder staging(workDir);
        StagingFolder::copyTree(localPath(url), staging.path());
        staging.install([&] { m_store.load(workDir); });
    } catch (const Error &error) {
        m_store.setErrorMessage(error.description());
        return;
    } catch (const std::exception &error) {
        m_store.setErrorMessage(QString::fromUtf8(error.what()));
        return;
    }
    // The box does not hold the restored list yet.
    m_store.setDirty(true);
    m_store.setStatus(tr("Sicherung vom %1 geladen – mit „Senden“ auf die Box zurückspielen.").arg(backupLabel(url)));
}

void Backups::showBackupsInFinder()
{
    const QString folder = backupFolder();
    QDir().mkpath(folder);
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}
