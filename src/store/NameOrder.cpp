#include "NameOrder.h"

#include <QCollator>
#include <QCollatorSortKey>
#include <QLocale>

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

// A position with the key it is sorted by, side by side so that comparing stays in the cache.
template <typename Key> struct Keyed
{
    Key key;
    qsizetype position;
};

template <typename Key, typename MakeKey, typename Less>
std::vector<Keyed<Key>> sortedRange(qsizetype begin, qsizetype end,
                                    const std::function<QString(qsizetype)> &name, MakeKey makeKey, Less less)
{
    std::vector<Keyed<Key>> items;
    items.reserve(size_t(end - begin));
    for (qsizetype i = begin; i < end; ++i)
        items.push_back({makeKey(name(i)), i});
    std::stable_sort(items.begin(), items.end(),
                     [&](const Keyed<Key> &a, const Keyed<Key> &b) { return less(a.key, b.key); });
    return items;
}

// Large lists are keyed and sorted in two halves at once, then merged; the merge takes equal
// names from the first half first, so the order stays stable.
template <typename Key, typename MakeKey, typename Less>
QList<qsizetype> sortedBy(qsizetype count, const std::function<QString(qsizetype)> &name, MakeKey makeKey,
                          Less less)
{
    const qsizetype half = count >= 20000 ? count / 2 : count;
    std::vector<Keyed<Key>> second;
    std::thread helper;
    if (half < count)
        helper = std::thread([&] { second = sortedRange<Key>(half, count, name, makeKey(), less); });
    const std::vector<Keyed<Key>> first = sortedRange<Key>(0, half, name, makeKey(), less);
    if (helper.joinable()) helper.join();
    QList<qsizetype> order;
    order.reserve(count);
    auto a = first.cbegin();
    auto b = second.cbegin();
    while (a != first.cend() || b != second.cend()) {
        if (b == second.cend() || (a != first.cend() && !less(b->key, a->key)))
            order << (a++)->position;
        else
            order << (b++)->position;
    }
    return order;
}

} // namespace

QList<qsizetype> sorted(qsizetype count, const std::function<QString(qsizetype)> &name)
{
    if (collator().locale().language() == QLocale::C) {
        // Qt's sort keys ignore the case setting in the C locale, so fold the case ourselves.
        const auto fold = [] { return [](const QString &text) { return text.toCaseFolded(); }; };
        return sortedBy<QString>(count, name, fold, [](const QString &a, const QString &b) { return a < b; });
    }
    // Each thread has a collator of its own: one is not to be shared between threads.
    const auto key = [] { return [rules = collator()](const QString &text) { return rules.sortKey(text); }; };
    return sortedBy<QCollatorSortKey>(
        count, name, key,
        [](const QCollatorSortKey &a, const QCollatorSortKey &b) { return a.compare(b) < 0; });
}

} // namespace NameOrder
