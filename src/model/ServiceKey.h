#pragma once

#include <QHashFunctions>
#include <QtGlobal>

// Identity of a service. The service type is deliberately not part of it.
struct ServiceKey
{
    quint32 sid = 0;
    quint32 tsid = 0;
    quint32 onid = 0;
    quint32 ns = 0;

    friend bool operator==(const ServiceKey &, const ServiceKey &) = default;
};

inline size_t qHash(const ServiceKey &key, size_t seed = 0) noexcept
{
    return qHashMulti(seed, key.sid, key.tsid, key.onid, key.ns);
}
