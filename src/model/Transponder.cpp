#include "Transponder.h"

#include <QCoreApplication>
#include <QHashFunctions>

size_t qHash(const Transponder &transponder, size_t seed) noexcept
{
    return qHashMulti(seed, transponder.ns, transponder.tsid, transponder.onid, transponder.data);
}

std::optional<QString> Transponder::position() const
{
    if (data.startsWith(u"s ")) {
        const auto pieces = QStringView(data).mid(2).split(u':', Qt::SkipEmptyParts);
        if (pieces.size() < 5)
            return std::nullopt;
        bool ok = false;
        const int p = pieces[4].toInt(&ok);
        if (!ok)
            return std::nullopt;
        // Negative positions stay "E" on purpose: they do not meet the satellites.xml labels.
        if (p < 1801)
            return QString::asprintf("%.1fE", p / 10.0);
        return QString::asprintf("%.1fW", (3600 - p) / 10.0);
    }
    if (data.startsWith(u"c "))
        return QCoreApplication::translate("Transponder", "Kabel");
    if (data.startsWith(u"t "))
        return QCoreApplication::translate("Transponder", "Terrestrisch");
    return std::nullopt;
}
