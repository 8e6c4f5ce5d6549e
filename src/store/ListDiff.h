#pragma once

#include <QHash>
#include <QList>

#include <functional>

// Describes the change from one list to another as the row notifications of an item model
// (removals, moves, insertions, changed rows), matching items by their id, and applies it step by
// step to the model's own copy so that every notification sees the rows it names.
namespace ListDiff {

struct Notifier
{
    std::function<void(qsizetype first, qsizetype last)> beginRemove;
    std::function<void()> endRemove;
    // Rows first..last move before row `destination` (always above them).
    std::function<void(qsizetype first, qsizetype last, qsizetype destination)> beginMove;
    std::function<void()> endMove;
    std::function<void(qsizetype first, qsizetype last)> beginInsert;
    std::function<void()> endInsert;
    // Rows first..last keep their ids but hold other values.
    std::function<void(qsizetype first, qsizetype last)> changed;
    // The same rows in a new order, too scattered for single moves (a sort): the model announces a
    // layout change, moves its persistent indexes and takes the target's order.
    std::function<void()> permuted;
};

// Returns false, having sent only complete notifications, when the ids are not unique or the
// change needs more than `limit` steps and is no mere reordering; the model then resets to `target`.
template <typename T, typename IdOf>
bool apply(QList<T> &current, const QList<T> &target, IdOf idOf, const Notifier &notify, int limit = 1000)
{
    if (current.size() == target.size() && current.constData() == target.constData()) return true;
    using Id = decltype(idOf(target.first()));
    QHash<Id, qsizetype> inTarget;
    inTarget.reserve(target.size());
    for (qsizetype i = 0; i < target.size(); ++i)
        inTarget.insert(idOf(target.at(i)), i);
    QHash<Id, qsizetype> inCurrent;
    inCurrent.reserve(current.size());
    for (qsizetype i = 0; i < current.size(); ++i)
        inCurrent.insert(idOf(current.at(i)), i);
    if (inTarget.size() != target.size() || inCurrent.size() != current.size()) return false;
    int steps = 0;

    // Removals, from the end so that the earlier rows keep their numbers.
    for (qsizetype last = current.size() - 1; last >= 0;) {
        if (inTarget.contains(idOf(current.at(last)))) {
            --last;
            continue;
        }
        qsizetype first = last;
        while (first > 0 && !inTarget.contains(idOf(current.at(first - 1))))
            --first;
        if (++steps > limit) return false;
        notify.beginRemove(first, last);
        current.remove(first, last - first + 1);
        notify.endRemove();
        last = first - 1;
    }

    // Moves: bring the remaining rows into the order they have in the target.
    QList<Id> order;
    order.reserve(current.size());
    for (const T &item : target) {
        if (inCurrent.contains(idOf(item))) order << idOf(item);
    }
    // The greedy moves that bring `ids` into `order`, each a block that already stands in sequence.
    QList<Id> ids;
    ids.reserve(current.size());
    for (const T &item : std::as_const(current))
        ids << idOf(item);
    struct Move
    {
        qsizetype from, length, to;
    };
    QList<Move> moves;
    for (qsizetype i = 0; i < ids.size();) {
        if (ids.at(i) == order.at(i)) {
            ++i;
            continue;
        }
        qsizetype from = i + 1;
        while (ids.at(from) != order.at(i))
            ++from;
        qsizetype length = 1;
        while (from + length < ids.size() && ids.at(from + length) == order.at(i + length))
            ++length;
        if (++steps > limit) {
            // Too many for single moves: a reordering becomes one layout change.
            if (order.size() != target.size() || current.size() != target.size()) return false;
            notify.permuted();
            current = target;
            return true;
        }
        moves << Move{from, length, i};
        const QList<Id> block = ids.mid(from, length);
        ids.remove(from, length);
        ids.insert(i, length, Id());
        std::copy(block.cbegin(), block.cend(), ids.begin() + i);
        i += length;
    }
    for (const Move &move : std::as_const(moves)) {
        notify.beginMove(move.from, move.from + move.length - 1, move.to);
        const QList<T> block = current.mid(move.from, move.length);
        current.remove(move.from, move.length);
        current.insert(move.to, move.length, T());
        std::copy(block.cbegin(), block.cend(), current.begin() + move.to);
        notify.endMove();
    }

    // Insertions: the rows that are new, in runs.
    for (qsizetype i = 0; i < target.size();) {
        if (i < current.size() && idOf(current.at(i)) == idOf(target.at(i))) {
            ++i;
            continue;
        }
        qsizetype length = 1;
        while (i + length < target.size() && !inCurrent.contains(idOf(target.at(i + length))))
            ++length;
        if (++steps > limit) return false;
        notify.beginInsert(i, i + length - 1);
        current.insert(i, length, T());
        std::copy(target.cbegin() + i, target.cbegin() + i + length, current.begin() + i);
        notify.endInsert();
        i += length;
    }

    // Rows whose content changed; scattered changes are reported as one span.
    qsizetype firstChanged = -1;
    qsizetype lastChanged = -1;
    for (qsizetype i = 0; i < target.size(); ++i) {
        if (!(current.at(i) == target.at(i))) {
            if (firstChanged < 0) firstChanged = i;
            lastChanged = i;
        }
    }
    current = target;
    if (firstChanged >= 0) notify.changed(firstChanged, lastChanged);
    return true;
}

} // namespace ListDiff
