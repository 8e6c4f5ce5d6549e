#include "BouquetListModel.h"

#include "DragData.h"
#include "Store.h"

#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

BouquetListModel::BouquetListModel(Store *store, QObject *parent)
    : IdListModel(rowsMimeType, parent)
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

Qt::DropActions BouquetListModel::supportedDragActions() const
{
    return Qt::MoveAction;
}

void BouquetListModel::moveItems(const QSet<qsizetype> &rows, qsizetype to)
{
    m_store->moveBouquets(rows, to);
}

QMimeData *BouquetListModel::mimeData(const QModelIndexList &indexes) const
{
    QList<int> rows;
    return rowsMimeData(indexes, rows);
}

bool BouquetListModel::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                       const QModelIndex &parent) const
{
    Q_UNUSED(row)
    Q_UNUSED(column)
    if (action == Qt::IgnoreAction || !data) return false;
    if (droppedRows(data)) return true;
    // References are dropped onto a bouquet, not between two.
    return parent.isValid() && !DragData::references(data).isEmpty();
}

bool BouquetListModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                    const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    if (const std::optional<QList<int>> rows = droppedRows(data)) {
        m_store->moveBouquets(QSet<qsizetype>(rows->cbegin(), rows->cend()), dropRow(row, parent));
        return true;
    }
    m_store->insert(DragData::references(data), m_items.at(parent.row()).id);
    return true;
}
