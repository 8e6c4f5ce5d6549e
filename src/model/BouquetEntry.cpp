#include "BouquetEntry.h"

#include "TextScan.h"

#include <QHashFunctions>

size_t qHash(const BouquetEntry &entry, size_t seed) noexcept
{
    return qHashMulti(seed, entry.id, entry.reference, entry.description.has_value(),
                      entry.description.value_or(QString()));
}

std::optional<ServiceKey> BouquetEntry::serviceKey() const
{
    // Pieces: 1 flags-prefix, 2 flags, 3 type, 4 sid, 5 tsid, 6 onid, 7 namespace.
    QStringView pieces[7];
    qsizetype start = 0;
    for (int i = 0; i < 7; ++i) {
        const qsizetype colon = reference.indexOf(u':', start);
        if (colon < 0) {
            if (i < 6)
                return std::nullopt;
            pieces[i] = QStringView(reference).mid(start);
        } else {
            pieces[i] = QStringView(reference).mid(start, colon - start);
            start = colon + 1;
        }
    }
    if (pieces[1] != u"0")
        return std::nullopt;
    quint32 values[4];
    for (int i = 0; i < 4; ++i) {
        // Digits only: no blanks, signs or "0x" as a looser number parser would allow.
        const auto value = TextScan::strictHex(pieces[3 + i]);
        if (!value)
            return std::nullopt;
        values[i] = *value;
    }
    if (values[0] == 0)
        return std::nullopt;
    return ServiceKey{values[0], values[1], values[2], values[3]};
}
