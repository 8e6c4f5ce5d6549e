#pragma once

#include <QString>

#include <optional>

// One transponder record; `data` is the tuning line in format-4 form ("s 11836500:27500000:1:2:192:2:0").
struct Transponder
{
    quint32 ns = 0;
    quint32 tsid = 0;
    quint32 onid = 0;
    QString data;

    // "19.2E", "179.9W", the translated "Kabel" or "Terrestrisch"; none for anything else.
    std::optional<QString> position() const;

    friend bool operator==(const Transponder &, const Transponder &) = default;
};

Q_DECLARE_TYPEINFO(Transponder, Q_RELOCATABLE_TYPE);

size_t qHash(const Transponder &transponder, size_t seed = 0) noexcept;
