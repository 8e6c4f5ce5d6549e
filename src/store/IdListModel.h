#pragma once

#include "ListDiff.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>

#include <algorithm>

// A list model over items with ids that follows a changed list with the row notifications that
// describe the change, so that views keep their selection and scroll position.
template <typename Item> class IdListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_items.size());
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
};
