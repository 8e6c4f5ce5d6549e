#pragma once

#include <QHashFunctions>
#include <QString>
#include <QStringView>

#include <array>
#include <optional>

// TV or radio. The raw value is also the extension of bouquet and index files.
class MediaKind
{
public:
    enum Value : quint8 { tv, radio };

    constexpr MediaKind(Value value = tv) : m_value(value) {}
    constexpr operator Value() const { return m_value; }

    QString rawValue() const;
    // "TV" (never translated) or the translated "Radio".
    QString title() const;

    static std::optional<MediaKind> fromRawValue(QStringView rawValue);
    static constexpr std::array<MediaKind, 2> allCases() { return {tv, radio}; }

private:
    Value m_value;
};

inline size_t qHash(MediaKind kind, size_t seed = 0) noexcept
{
    return qHash(quint8(MediaKind::Value(kind)), seed);
}
