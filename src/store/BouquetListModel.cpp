#include "BouquetListModel.h"

#include "DragData.h"
#include "Store.h"

#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

BouquetListModel::BouquetListModel(Store *store, QObject *parent)
    : IdListModel(parent)
    , m_store(store)
    , m_kind(store->kind())
{
    m_items = store->currentBouquets();
    connect(store, &Store::bouquetsChanged, this, &BouquetListModel::follow);
    connect(store, &Store::kindChanged, this, &BouquetListModel::follow);
}

void BouquetListModel::follow()
{
    if (m_kind != m_store->kind()) {
        m_kind = m_store->kind();
        resetTo(m_store->currentBouquets());
        return;
    }
    IdListModel::follow(m_store->currentBouquets());
}

QVariant BouquetListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) return {};
    const Bouquet &bouquet = m_items.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return bouquet.name;
    case Qt::ToolTipRole:
    case FileNameRole:
        return bouquet.fileName;
    case IdRole:
        return QVariant::fromValue(bouquet.id);
    case EntryCountRole:
        return int(bouquet.entries.size());
    default:
        return {};
    }
}

bool BouquetListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole ||
        !checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return false;
    const QString name = value.toString().trimmed();
    if (name.isEmpty()) return false;
    m_store->renameBouquet(m_items.at(index.row()).id, name);
    return true;
}

Qt::ItemFlags BouquetListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemIsDragEnabled |
           Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
}

QHash<int, QByteArray> BouquetListModel::roleNames() const
{
    QHash<int, QByteArray> names = IdListModel::roleNames();
    names.insert(IdRole, "bouquetId");
    names.insert(FileNameRole, "fileName");
    names.insert(EntryCountRole, "entryCount");
    return names;
}

bool BouquetListModel::moveRows(const QModelIndex &sourceParent, int sourceRow, int count,
                                const QModelIndex &destinationParent, int destinationChild)
{
    if (sourceParent.isValid() || destinationParent.isValid() || count <= 0 || sourceRow < 0 ||
        sourceRow + count > rowCount() || destinationChild < 0 || destinationChild > rowCount() ||
        (destinationChild >= sourceRow && destinationChild <= sourceRow + count))
        return false;
    QSet<qsizetype> rows;
    for (int row = sourceRow; row < sourceRow + count; ++row)
        rows.insert(row);
    m_store->moveBouquets(rows, destinationChild);
    return true;
}

Qt::DropActions BouquetListModel::supportedDropActions() const
{
    return Qt::MoveAction | Qt::CopyAction;
}

Qt::DropActions BouquetListModel::supportedDragActions() const
{
    return Qt::MoveAction;
}

QStringList BouquetListModel::mimeTypes() const
{
    return {rowsMimeType, u"text/plain"_s};
}

QMimeData *BouquetListModel::mimeData(const QModelIndexList &indexes) const
{
    QList<int> rows;
    for (const QModelIndex &index : indexes) {
        if (index.isValid() && index.model() == this) rows << index.row();
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    auto *data = new QMimeData;
    DragData::setRows(data, rowsMimeType, m_kind.rawValue(), rows);
    return data;
}

bool BouquetListModel::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                       const QModelIndex &parent) const
{
    Q_UNUSED(row)
    Q_UNUSED(column)
    if (action == Qt::IgnoreAction || !data) return false;
    if (DragData::rows(data, rowsMimeType, m_kind.rawValue())) return true;
    // References are dropped onto a bouquet, not between two.
    return parent.isValid() && !DragData::references(data).isEmpty();
}

bool BouquetListModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                    const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    if (const std::optional<QList<int>> rows = DragData::rows(data, rowsMimeType, m_kind.rawValue())) {
        const int destination = parent.isValid() ? parent.row() : (row < 0 ? rowCount() : row);
        m_store->moveBouquets(QSet<qsizetype>(rows->cbegin(), rows->cend()), destination);
        return true;
    }
    m_store->insert(DragData::references(data), m_items.at(parent.row()).id);
    return true;
}
