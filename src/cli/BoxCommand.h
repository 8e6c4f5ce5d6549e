#pragma once

#include "Backups.h"
#include "BoxSync.h"
#include "Store.h"

#include <QCoroTask>
#include <QObject>
#include <QString>

// One operation against the box, run as the editor runs it: through the store's operation runner,
// with its backups and box operations. Progress labels go to standard error, one per line; the
// outcome to standard output, or the error to standard error.
class BoxCommand : public QObject
{
    Q_OBJECT

public:
    explicit BoxCommand(const BoxSettings &settings, QObject *parent = nullptr);

    // Each yields the exit status: 0 on success, 1 when the operation failed, 2 when a local
    // folder cannot be used, before anything was sent or written.
    // The editor's download into the box's work folder, whose files are then copied into `folder`.
    QCoro::Task<int> download(QString folder);
    // Opens `folder` as the document, then the editor's upload: backup, save, send, reload.
    QCoro::Task<int> upload(QString folder);
    QCoro::Task<int> backup();
    QCoro::Task<int> reload(int mode);
    QCoro::Task<int> test();

private:
    int outcome();

    Store m_store;
    Backups m_backups{m_store};
    BoxSync m_sync{m_store, m_backups};
};
