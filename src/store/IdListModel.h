#pragma once

#include "DragData.h"
#include "ListDiff.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QMimeData>
#include <QSet>
#include <QStringList>

#include <algorithm>

// A list model over items with ids that follows a changed list with the row notifications that
// describe the change, so that views keep their selection and scroll position. Its rows can be
// dragged within the list to reorder them, and plain text can be dropped on it.
template <typename Item> class IdListModel : public QAbstractListModel
{
public:
    IdListModel(const QString &rowsMimeType, QObject *parent)
        : QAbstractListModel(parent)
        , m_rowsMimeType(rowsMimeType)
    {}

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_items.size());
    }

    bool moveRows(const QModelIndex &sourceParent, int sourceRow, int count,
                  const QModelIndex &destinationParent, int destinationChild) override
    {
        if (sourceParent.isValid() || destinationParent.isValid() || count <= 0 || sourceRow < 0 ||
            sourceRow + count > rowCount() || destinationChild < 0 || destinationChild > rowCount() ||
            (destinationChild >= sourceRow && destinationChild <= sourceRow + count))
            return false;
        QSet<qsizetype> rows;
        for (int row = sourceRow; row < sourceRow + count; ++row)
            rows.insert(row);
        moveItems(rows, destinationChild);
        return true;
    }

    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    QStringList mimeTypes() const override { return {m_rowsMimeType, QStringLiteral("text/plain")}; }

protected:
    // Reorders through the store; the change comes back as row moves.
    virtual void moveItems(const QSet<qsizetype> &rows, qsizetype to) = 0;
    // The list the rows belong to: dragged rows move only within the same list.
    virtual QString rowsOwner() const = 0;

    // Drag data holding the rows of the indexes; the caller may add plain text.
    QMimeData *rowsMimeData(const QModelIndexList &indexes, QList<int> &rows) const
    {
        rows = DragData::sortedRows(indexes, this);
        auto *data = new QMimeData;
        DragData::setRows(data, m_rowsMimeType, rowsOwner(), rows);
        return data;
    }
    std::optional<QList<int>> droppedRows(const QMimeData *data) const
    {
        return DragData::rows(data, m_rowsMimeType, rowsOwner());
    }
    // Dropped onto a row: in front of it; onto empty space: at the end.
    int dropRow(int row, const QModelIndex &parent) const
    {
        return parent.isValid() ? parent.row() : (row < 0 ? rowCount() : row);
    }

protected:
    static auto idOf(const Item &item) { return item.id; }

    void resetTo(const QList<Item> &items)
    {
        beginResetModel();
        m_items = items;
        endResetModel();
    }

    // Returns the first row whose position may have changed, or -1 when none did.
    qsizetype follow(const QList<Item> &target)
    {
        qsizetype firstShifted = -1;
        const auto shifted = [&](qsizetype row) {
            firstShifted = firstShifted < 0 ? row : std::min(firstShifted, row);
        };
        const QModelIndex root;
        const ListDiff::Notifier notifier{
            [&](qsizetype first, qsizetype last) {
                shifted(first);
                beginRemoveRows(root, int(first), int(last));
            },
            [&] { endRemoveRows(); },
            [&](qsizetype first, qsizetype last, qsizetype to) {
                shifted(to);
                beginMoveRows(root, int(first), int(last), root, int(to));
            },
            [&] { endMoveRows(); },
            [&](qsizetype first, qsizetype last) {
                shifted(first);
                beginInsertRows(root, int(first), int(last));
            },
            [&] { endInsertRows(); },
            [&](qsizetype first, qsizetype last) { emit dataChanged(index(int(first)), index(int(last))); },
            [&] {
                shifted(0);
                permute(target);
            },
        };
        if (!ListDiff::apply(m_items, target, idOf, notifier)) {
            resetTo(target);
            return -1;
        }
        return firstShifted;
    }

    QList<Item> m_items;

private:
    void permute(const QList<Item> &target)
    {
        emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
        QHash<decltype(idOf(target.first())), int> rowOf;
        for (int row = 0; row < target.size(); ++row)
            rowOf.insert(idOf(target.at(row)), row);
        const QModelIndexList before = persistentIndexList();
        QModelIndexList after;
        for (const QModelIndex &index : before)
            after << this->index(rowOf.value(idOf(m_items.at(index.row()))), index.column());
        changePersistentIndexList(before, after);
        m_items = target;
        emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    }

    QString m_rowsMimeType;
};
