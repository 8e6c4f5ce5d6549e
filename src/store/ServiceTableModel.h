#pragma once

#include "MediaKind.h"
#include "Service.h"
#include "Store.h"

#include <QAbstractTableModel>
#include <QList>

// The services of the current kind for the service table: name, provider, position and how many
// bouquet entries use each. Dragged rows carry their service references as plain text.
class ServiceTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { NameColumn, ProviderColumn, PositionColumn, UsageColumn, ColumnCount };
    enum Role { ServiceKeyRole = Qt::UserRole + 1, ReferenceRole, UsageRole };

    explicit ServiceTableModel(Store *store, QObject *parent = nullptr);

    // "name", "provider", "position", "usage": the keys of saved column widths.
    static QString columnIdentifier(int column);
    const Service &serviceAt(int row) const { return m_services.at(row); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    Qt::DropActions supportedDragActions() const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;

private:
    void reload();
    void usageChanged();

    Store *m_store;
    QList<Service> m_services;
    UsageCounts m_usage;
};
