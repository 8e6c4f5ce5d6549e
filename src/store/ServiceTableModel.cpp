#include "ServiceTableModel.h"

#include "DragData.h"

#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

ServiceTableModel::ServiceTableModel(Store *store, QObject *parent)
    : QAbstractTableModel(parent)
    , m_store(store)
{
    connect(store, &Store::servicesChanged, this, &ServiceTableModel::reload);
    connect(store, &Store::kindChanged, this, &ServiceTableModel::reload);
    connect(store, &Store::usageChanged, this, &ServiceTableModel::usageChanged);
    reload();
}

QString ServiceTableModel::columnIdentifier(int column)
{
    switch (column) {
    case NameColumn:
        return u"name"_s;
    case ProviderColumn:
        return u"provider"_s;
    case PositionColumn:
        return u"position"_s;
    case UsageColumn:
        return u"usage"_s;
    default:
        return {};
    }
}

void ServiceTableModel::reload()
{
    beginResetModel();
    const MediaKind kind = m_store->kind();
    m_services.clear();
    for (const Service &service : m_store->services()) {
        if (service.kind() == kind) m_services << service;
    }
    m_usage = m_store->usage();
    endResetModel();
}

void ServiceTableModel::usageChanged()
{
    const UsageCounts &usage = m_store->usage();
    int first = -1;
    int last = -1;
    for (int row = 0; row < m_services.size(); ++row) {
        const ServiceKey &key = m_services.at(row).key;
        if (m_usage.value(key) != usage.value(key)) {
            first = first < 0 ? row : first;
            last = row;
        }
    }
    m_usage = usage;
    if (first >= 0) emit dataChanged(index(first, UsageColumn), index(last, UsageColumn));
}

int ServiceTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_services.size());
}

int ServiceTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ServiceTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) return {};
    const Service &service = m_services.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case NameColumn:
            return service.name;
        case ProviderColumn:
            return service.provider;
        case PositionColumn:
            return service.position;
        case UsageColumn:
            return m_usage.value(service.key);
        }
        return {};
    case Qt::TextAlignmentRole:
        if (index.column() == UsageColumn)
            return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
        return {};
    case ServiceKeyRole:
        return QVariant::fromValue(service.key);
    case ReferenceRole:
        return reference(service);
    case UsageRole:
        return m_usage.value(service.key);
    default:
        return {};
    }
}

QVariant ServiceTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case NameColumn:
        return tr("Name");
    case ProviderColumn:
        return tr("Anbieter");
    case PositionColumn:
        return tr("Position");
    case UsageColumn:
        return tr("In Bouquets");
    default:
        return {};
    }
}

Qt::ItemFlags ServiceTableModel::flags(const QModelIndex &index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

Qt::DropActions ServiceTableModel::supportedDragActions() const
{
    return Qt::CopyAction;
}

QStringList ServiceTableModel::mimeTypes() const
{
    return {u"text/plain"_s};
}

QMimeData *ServiceTableModel::mimeData(const QModelIndexList &indexes) const
{
    QStringList references;
    for (int row : DragData::sortedRows(indexes, this))
        references << reference(m_services.at(row));
    auto *data = new QMimeData;
    DragData::setReferences(data, references);
    return data;
}
