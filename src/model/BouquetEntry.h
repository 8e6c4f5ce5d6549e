#pragma once

#include "Ids.h"
#include "ServiceKey.h"

#include <QString>
#include <QUuid>

#include <optional>

// One line of a bouquet: a service, a marker or any other reference, kept verbatim.
struct BouquetEntry
{
    QUuid id = freshId();
    QString reference;
    // The "#DESCRIPTION " text: a marker's caption, or a name overriding the database name.
    std::optional<QString> description;

    // The service the reference points at; none for markers, sub-bouquets and unparsable references.
    std::optional<ServiceKey> serviceKey() const;
    bool isMarker() const { return reference.startsWith(u"1:64:"); }

    friend bool operator==(const BouquetEntry &, const BouquetEntry &) = default;
};

Q_DECLARE_TYPEINFO(BouquetEntry, Q_RELOCATABLE_TYPE);

size_t qHash(const BouquetEntry &entry, size_t seed = 0) noexcept;

// The reference every marker made by the editor carries.
inline constexpr QStringView markerReference = u"1:64:0:0:0:0:0:0:0:0:";
