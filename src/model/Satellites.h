#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>

// A small tag scanner for `satellites.xml`: position label to satellite name.
namespace Satellites {

QHash<QString, QString> parse(QByteArrayView text);
// Label of a position in signed tenths of a degree; negative positions count as western.
QString key(int position);
// The value of one attribute inside the text of a start tag.
std::optional<QString> attribute(QStringView name, QStringView in);

} // namespace Satellites
