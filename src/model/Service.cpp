#include "Service.h"

using namespace Qt::StringLiterals;

size_t qHash(const Service &service, size_t seed) noexcept
{
    return qHashMulti(seed, service.key, service.type, service.name, service.provider, service.position);
}

QString reference(const Service &of)
{
    return reference(of.type, of.key);
}

QString reference(quint32 type, const ServiceKey &key)
{
    const auto hex = [](quint32 value) { return QString::number(value, 16).toUpper(); };
    return u"1:0:"_s + hex(type) + u':' + hex(key.sid) + u':' + hex(key.tsid) + u':' + hex(key.onid) + u':'
        + hex(key.ns) + u":0:0:0:"_s;
}
