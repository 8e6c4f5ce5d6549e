#include "EntryListModel.h"

#include "DragData.h"
#include "Store.h"

#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QList<BouquetEntry> shownEntries(const Store &store)
{
    const std::optional<Bouquet> bouquet = store.selectedBouquet();
    return bouquet ? bouquet->entries : QList<BouquetEntry>();
}

QUuid shownBouquet(const Store &store)
{
    const std::optional<Bouquet> bouquet = store.selectedBouquet();
    return bouquet ? bouquet->id : QUuid();
}

} // namespace

EntryListModel::EntryListModel(Store *store, QObject *parent)
    : IdListModel(rowsMimeType, parent)
    , m_store(store)
    , m_kind(store->kind())
    , m_bouquetID(shownBouquet(*store))
{
    m_items = shownEntries(*store);
    connect(store, &Store::bouquetsChanged, this, &EntryListModel::follow);
    connect(store, &Store::kindChanged, this, &EntryListModel::follow);
    connect(store, &Store::selectedBouquetIDChanged, this, &EntryListModel::follow);
    // Entries without a name of their own show the service's current name.
    connect(store, &Store::servicesChanged, this, &EntryListModel::namesChanged);
}

void EntryListModel::follow()
{
    const QList<BouquetEntry> target = shownEntries(*m_store);
    const QUuid bouquetID = shownBouquet(*m_store);
    if (m_kind != m_store->kind() || m_bouquetID != bouquetID) {
        m_kind = m_store->kind();
        m_bouquetID = bouquetID;
        resetTo(target);
        return;
    }
    // Rows below a structural change show new position numbers.
    const qsizetype firstShifted = IdListModel::follow(target);
    if (firstShifted >= 0 && firstShifted < m_items.size())
        emit dataChanged(index(int(firstShifted)), index(int(m_items.size() - 1)), {PositionRole});
}

void EntryListModel::namesChanged()
{
    if (!m_items.isEmpty())
        emit dataChanged(index(0), index(int(m_items.size() - 1)), {Qt::DisplayRole, ServiceKnownRole});
}

QVariant EntryListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) return {};
    const BouquetEntry &entry = m_items.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return m_store->displayName(entry);
    case Qt::EditRole:
        return entry.description.value_or(QString());
    case Qt::ToolTipRole:
    case ReferenceRole:
        return entry.reference;
    case IdRole:
        return QVariant::fromValue(entry.id);
    case MarkerRole:
        return entry.isMarker();
    case PositionRole:
        return index.row() + 1;
    case ServiceKnownRole:
        return m_store->service(entry).has_value();
    default:
        return {};
    }
}

bool EntryListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole ||
        !checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return false;
    // An empty name brings back the name from the database.
    m_store->renameEntry(m_items.at(index.row()).id, value.toString().trimmed());
    return true;
}

Qt::ItemFlags EntryListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid()) return m_bouquetID.isNull() ? Qt::NoItemFlags : Qt::ItemIsDropEnabled;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

QHash<int, QByteArray> EntryListModel::roleNames() const
{
    QHash<int, QByteArray> names = IdListModel::roleNames();
    names.insert(IdRole, "entryId");
    names.insert(ReferenceRole, "reference");
    names.insert(MarkerRole, "marker");
    names.insert(PositionRole, "position");
    names.insert(ServiceKnownRole, "serviceKnown");
    return names;
}

Qt::DropActions EntryListModel::supportedDragActions() const
{
    return Qt::MoveAction | Qt::CopyAction;
}

void EntryListModel::moveItems(const QSet<qsizetype> &rows, qsizetype to)
{
    m_store->moveEntries(rows, to);
}

QMimeData *EntryListModel::mimeData(const QModelIndexList &indexes) const
{
    QList<int> rows;
    QMimeData *data = rowsMimeData(indexes, rows);
    QStringList references;
    for (int row : std::as_const(rows))
        references << m_items.at(row).reference;
    // Plain text as well, so that entries dropped on another bouquet are copied there.
    DragData::setReferences(data, references);
    return data;
}

bool EntryListModel::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                     const QModelIndex &parent) const
{
    Q_UNUSED(row)
    Q_UNUSED(column)
    Q_UNUSED(parent)
    if (action == Qt::IgnoreAction || !data || m_bouquetID.isNull()) return false;
    return droppedRows(data) || !DragData::references(data).isEmpty();
}

bool EntryListModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                  const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    const int destination = dropRow(row, parent);
    if (const std::optional<QList<int>> rows = droppedRows(data)) {
        m_store->moveEntries(QSet<qsizetype>(rows->cbegin(), rows->cend()), destination);
        return true;
    }
    m_store->insert(DragData::references(data), m_bouquetID, destination);
    return true;
}
