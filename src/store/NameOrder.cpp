#include "NameOrder.h"

#include <QCollator>
#include <QCollatorSortKey>
#include <QHash>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <thread>
#include <vector>

namespace NameOrder {

namespace {

QCollator collator()
{
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(false);
    return collator;
}

// A name's key beside the name's number, so that comparing stays in the cache.
template <typename Key> struct Keyed
{
    Key key;
    qsizetype name;
};

// Keys the names first..last-1 and sorts them. A total order (ties by number) needs no stable
// sort, which would copy Qt's sort keys a lot: they cannot be moved.
template <typename Key, typename MakeKey, typename Compare>
std::vector<Keyed<Key>> sortedRange(const QStringList &names, qsizetype first, qsizetype last,
                                    MakeKey makeKey, Compare compare)
{
    std::vector<Keyed<Key>> items;
    items.reserve(size_t(last - first));
    for (qsizetype i = first; i < last; ++i)
        items.push_back({makeKey(names.at(i)), i});
    std::sort(items.begin(), items.end(), [&](const Keyed<Key> &a, const Keyed<Key> &b) {
        const int order = compare(a.key, b.key);
        return order < 0 || (order == 0 && a.name < b.name);
    });
    return items;
}

// The rank of each name: names that compare equal share one. Many names are keyed and sorted in
// two halves at once, then merged.
template <typename Key, typename MakeKey, typename Compare>
QList<qsizetype> ranks(const QStringList &names, MakeKey makeKey, Compare compare)
{
    const qsizetype count = names.size();
    const qsizetype half = count >= 20000 ? count / 2 : count;
    std::vector<Keyed<Key>> second;
    std::thread helper;
    if (half < count)
        helper = std::thread([&] { second = sortedRange<Key>(names, half, count, makeKey(), compare); });
    const std::vector<Keyed<Key>> first = sortedRange<Key>(names, 0, half, makeKey(), compare);
    if (helper.joinable()) helper.join();

    QList<qsizetype> rank(count);
    qsizetype current = -1;
    const Keyed<Key> *previous = nullptr;
    auto a = first.cbegin();
    auto b = second.cbegin();
    while (a != first.cend() || b != second.cend()) {
        const bool takeFirst = b == second.cend() || (a != first.cend() && compare(b->key, a->key) >= 0);
        const Keyed<Key> *next = takeFirst ? &*a++ : &*b++;
        if (!previous || compare(previous->key, next->key) != 0) ++current;
        rank[next->name] = current;
        previous = next;
    }
    return rank;
}

} // namespace

QList<qsizetype> sorted(qsizetype count, const std::function<QString(qsizetype)> &name)
{
    // Lists repeat names a lot (the same channel on several transponders), and keying a name is
    // the expensive step: each distinct name is keyed once.
    QHash<QString, qsizetype> numbers;
    QStringList names;
    QList<qsizetype> numberOf(count);
    for (qsizetype i = 0; i < count; ++i) {
        const QString text = name(i);
        auto it = numbers.constFind(text);
        if (it == numbers.cend()) {
            it = numbers.insert(text, names.size());
            names << text;
        }
        numberOf[i] = *it;
    }

    QList<qsizetype> rank;
    if (collator().locale().language() == QLocale::C) {
        // Qt's sort keys ignore the case setting in the C locale, so fold the case ourselves.
        const auto fold = [] { return [](const QString &text) { return text.toCaseFolded(); }; };
        rank = ranks<QString>(names, fold,
                              [](const QString &a, const QString &b) { return QString::compare(a, b); });
    } else {
        // Each thread has a collator of its own: one is not to be shared between threads.
        const auto key = [] {
            return [rules = collator()](const QString &text) { return rules.sortKey(text); };
        };
        rank = ranks<QCollatorSortKey>(
            names, key, [](const QCollatorSortKey &a, const QCollatorSortKey &b) { return a.compare(b); });
    }

    // A counting sort by rank keeps equal names in their order.
    QList<qsizetype> start(names.size() + 1, 0);
    for (qsizetype i = 0; i < count; ++i)
        ++start[rank.at(numberOf.at(i)) + 1];
    for (qsizetype r = 1; r < start.size(); ++r)
        start[r] += start[r - 1];
    QList<qsizetype> order(count);
    for (qsizetype i = 0; i < count; ++i)
        order[start[rank.at(numberOf.at(i))]++] = i;
    return order;
}

} // namespace NameOrder
