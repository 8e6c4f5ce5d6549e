#pragma once

#include "Backups.h"
#include "BoxSync.h"
#include "Picons.h"
#include "Store.h"
#include "Zapper.h"

#include <QObject>

// The program's long-lived objects, made once at start and handed to the windows: the document
// store and the operations that work on it.
class AppContext : public QObject
{
    Q_OBJECT

public:
    explicit AppContext(QObject *parent = nullptr);
    ~AppContext() override;

    Store &store() { return m_store; }
    Backups &backups() { return m_backups; }
    BoxSync &boxSync() { return m_boxSync; }
    Zapper &zapper() { return m_zapper; }
    Picons &picons() { return m_picons; }

private:
    // In order of dependence: each is destroyed before the ones it uses.
    Store m_store;
    Backups m_backups;
    BoxSync m_boxSync;
    Zapper m_zapper;
    Picons m_picons;
};
