#pragma once

#include "MediaKind.h"
#include "ServiceKey.h"

#include <QString>

// One service record of the service database, names already repaired.
struct Service
{
    ServiceKey key;
    quint32 type = 1;
    QString name;
    QString provider;
    // Orbital position label ("19.2E"), the translated "Kabel" or "Terrestrisch", or empty.
    QString position;

    // Types 2 and 10 are radio, every other type is TV.
    MediaKind kind() const { return type == 2 || type == 10 ? MediaKind::radio : MediaKind::tv; }

    friend bool operator==(const Service &, const Service &) = default;
};

// Moved in memory by the list's reallocation instead of one by one: a list holds 100,000 of them.
Q_DECLARE_TYPEINFO(Service, Q_RELOCATABLE_TYPE);

size_t qHash(const Service &service, size_t seed = 0) noexcept;

// The service reference "1:0:TYPE:SID:TSID:ONID:NS:0:0:0:" in upper-case hexadecimal without padding.
QString reference(const Service &of);
QString reference(quint32 type, const ServiceKey &key);
