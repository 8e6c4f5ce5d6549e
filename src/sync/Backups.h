#pragma once

#include <QCoroTask>
#include <QDateTime>
#include <QObject>
#include <QString>

#include <optional>

class FTPClient;
class Store;

// The local copies of the box's list files, one dated folder per backup below
// "Sicherungen/<box folder>". Keeps Store::backups current, newest first.
class Backups : public QObject
{
    Q_OBJECT

public:
    // At most this many backups are kept per box.
    static constexpr qsizetype limit = 30;
    // The name of a backup folder: its local creation time, so that names sort in time order.
    static constexpr QStringView nameFormat = u"yyyy-MM-dd_HH-mm-ss";

    explicit Backups(Store &store, QObject *parent = nullptr);

    // The backup folder of the current box.
    QString backupFolder() const;
    // Copies the box's list files into a new backup folder and prunes old ones. Returns the new
    // folder, or nothing when the box holds no list files. Throws the transfer's error and then
    // leaves no partial backup behind.
    QCoro::Task<std::optional<QString>> backupBox(const FTPClient &ftp);
    void pruneBackups();
    void reloadBackups();
    // The backup's date and time in the user's locale; the folder name when it is no backup name.
    QString backupLabel(const QString &url) const;
    // Through the operation runner; the task may be awaited or dropped.
    QCoro::Task<> backupNow();
    // Replaces the work folder with the backup and opens it, marked as not yet sent.
    void restoreBackup(const QString &url);
    void showBackupsInFinder();

    // The creation time a folder name stands for; none when it is no backup name.
    static std::optional<QDateTime> backupTime(const QString &name);

private:
    Store &m_store;
};
