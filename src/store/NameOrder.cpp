#include "NameOrder.h"

#include <QCollator>
#include <QCollatorSortKey>
#include <QLocale>

#include <algorithm>
#include <numeric>
#include <vector>

namespace NameOrder {

QList<qsizetype> sorted(qsizetype count, const std::function<QString(qsizetype)> &name)
{
    QList<qsizetype> order(count);
    std::iota(order.begin(), order.end(), qsizetype(0));

    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(false);
    if (collator.locale().language() == QLocale::C) {
        // Qt's sort keys ignore the case setting in the C locale, so fold the case ourselves.
        QStringList folded;
        folded.reserve(count);
        for (qsizetype i = 0; i < count; ++i)
            folded << name(i).toCaseFolded();
        std::stable_sort(order.begin(), order.end(),
                         [&](qsizetype a, qsizetype b) { return folded.at(a) < folded.at(b); });
        return order;
    }
    std::vector<QCollatorSortKey> keys;
    keys.reserve(size_t(count));
    for (qsizetype i = 0; i < count; ++i)
        keys.push_back(collator.sortKey(name(i)));
    std::stable_sort(order.begin(), order.end(),
                     [&](qsizetype a, qsizetype b) { return keys[size_t(a)].compare(keys[size_t(b)]) < 0; });
    return order;
}

} // namespace NameOrder
