#include "Transponder.h"

#include "TextScan.h"

#include <QCoreApplication>
#include <QHashFunctions>

size_t qHash(const Transponder &transponder, size_t seed) noexcept
{
    return qHashMulti(seed, transponder.ns, transponder.tsid, transponder.onid, transponder.data);
}

std::optional<QString> Transponder::position() const
{
    if (data.startsWith(u"s ")) {
        // The fifth non-empty piece after the tag.
        QStringView piece;
        int count = 0;
        for (QStringView part : QStringView(data).sliced(2).tokenize(u':', Qt::SkipEmptyParts)) {
            if (++count == 5) {
                piece = part;
                break;
            }
        }
        // Signed digits only: toInt would also accept blanks around them.
        const auto position = count == 5 ? TextScan::signedDecimal(piece) : std::nullopt;
        if (!position)
            return std::nullopt;
        const qint64 p = *position;
        // Negative positions stay "E" on purpose: they do not meet the satellites.xml labels.
        if (p < 1801)
            return TextScan::degreeLabel(p, 'E');
        return TextScan::degreeLabel(3600 - p, 'W');
    }
    if (data.startsWith(u"c "))
        return QCoreApplication::translate("Transponder", "Kabel");
    if (data.startsWith(u"t "))
        return QCoreApplication::translate("Transponder", "Terrestrisch");
    return std::nullopt;
}
