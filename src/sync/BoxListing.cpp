#include "BoxListing.h"

#include "BouquetIndex.h"

namespace BoxListing {

bool isListFile(QStringView name)
{
    return name == u"lamedb" || name == u"lamedb5" || name == u"bouquets.tv" || name == u"bouquets.radio"
        || name.startsWith(u"userbouquet.");
}

bool isHostile(QStringView name)
{
    return !BouquetIndex::isSafeFileName(name);
}

QStringList listFiles(const QStringList &listing)
{
    QStringList names;
    for (const QString &name : listing) {
        if (isListFile(name) && !isHostile(name))
            names << name;
    }
    return names;
}

} // namespace BoxListing
