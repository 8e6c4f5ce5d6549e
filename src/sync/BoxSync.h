#pragma once

#include <QCoroTask>
#include <QObject>
#include <QString>
#include <QStringList>

class Backups;
class Store;

// The store's operations against the box: connection test, download into the box's work folder,
// upload after a backup, and the repair of mis-encoded characters in the box's service database.
// Each public operation runs through Store::perform and returns at once; the returned task may be
// awaited or dropped.
class BoxSync : public QObject
{
    Q_OBJECT

public:
    // The service database files, in the order the repair handles them.
    static const QStringList lamedbNames;

    explicit BoxSync(Store &store, Backups &backups, QObject *parent = nullptr);

    QCoro::Task<> testConnection();
    QCoro::Task<> downloadFromBox();
    QCoro::Task<> uploadToBox();
    // Counts the damaged lines of the open folder's databases: sets lamedbRepairCount when there
    // are any (the window then asks), else a status saying there is nothing to do.
    void prepareLamedbRepair();
    // After the repair a fresh download follows as an operation of its own.
    QCoro::Task<> repairLamedbOnBox();

    // The operations as perform runs them: they throw Error instead of setting errorMessage.
    QCoro::Task<> runConnectionTest();
    QCoro::Task<> runDownload();
    QCoro::Task<> runUpload();
    // Returns whether the box's files were changed.
    QCoro::Task<bool> runRepair();

private:
    Store &m_store;
    Backups &m_backups;
};
