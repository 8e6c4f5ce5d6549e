#include "MediaKind.h"

#include <QCoreApplication>

QString MediaKind::rawValue() const
{
    return m_value == radio ? QStringLiteral("radio") : QStringLiteral("tv");
}

QString MediaKind::title() const
{
    return m_value == radio ? QCoreApplication::translate("MediaKind", "Radio") : QStringLiteral("TV");
}

std::optional<MediaKind> MediaKind::fromRawValue(QStringView rawValue)
{
    if (rawValue == u"tv")
        return MediaKind(tv);
    if (rawValue == u"radio")
        return MediaKind(radio);
    return std::nullopt;
}
