#pragma once

#include "BouquetEntry.h"

#include <QCoroTask>
#include <QObject>
#include <QString>

#include <optional>

class Store;

// Switches the box to a channel over its web interface, to check it on the television. Runs
// beside the operation runner: it never sets busy and may run while an operation is under way.
class Zapper : public QObject
{
    Q_OBJECT

public:
    explicit Zapper(Store &store, QObject *parent = nullptr);

    // Starts at once; the returned task may be awaited or dropped. The outcome lands in status,
    // a failure in errorMessage.
    QCoro::Task<> zap(QString reference, QString name);
    // The one focused item of the active list: the selected bouquet entry, or the selected service.
    QCoro::Task<> zapFocused();
    // The single selected entry of the selected bouquet, unless it is a marker.
    std::optional<BouquetEntry> zappableEntry() const;

private:
    Store &m_store;
};
