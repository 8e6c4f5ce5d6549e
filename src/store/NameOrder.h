#pragma once

#include <QList>
#include <QString>

#include <functional>

// The order in which names are shown: ascending, case-insensitive, by the rules of the user's
// language, and stable (equal names keep their order).
namespace NameOrder {

// The positions 0..count-1 rearranged so that name(position) ascends.
QList<qsizetype> sorted(qsizetype count, const std::function<QString(qsizetype)> &name);

} // namespace NameOrder
