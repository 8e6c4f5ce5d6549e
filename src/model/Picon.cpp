#include "Picon.h"

using namespace Qt::StringLiterals;

namespace Picon {

QStringList fileNames(const QString &reference)
{
    QStringList pieces;
    qsizetype start = 0;
    while (pieces.size() < 10) {
        const qsizetype colon = reference.indexOf(u':', start);
        pieces.append(reference.sliced(start, (colon < 0 ? reference.size() : colon) - start).toUpper());
        if (colon < 0)
            break;
        start = colon + 1;
    }
    if (pieces.size() < 10 || pieces.first() != u"1")
        return {};
    const QString first = pieces.join(u'_') + u".png"_s;
    if (pieces[2] == u"1")
        return {first};
    // Services of other types also match a picon stored under the type-1 name.
    pieces[2] = u"1"_s;
    return {first, pieces.join(u'_') + u".png"_s};
}

} // namespace Picon
