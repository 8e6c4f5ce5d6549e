#pragma once

#include <QByteArray>
#include <QByteArrayView>

// Files are read as UTF-8 with invalid bytes replaced rather than rejected.
namespace Utf8 {

bool isValid(QByteArrayView bytes);
// The bytes themselves when they are valid UTF-8 (no copy), else with every invalid byte replaced
// by U+FFFD exactly as QString::fromUtf8 does; a leading byte-order mark is kept, not dropped.
QByteArray repaired(const QByteArray &bytes);

} // namespace Utf8
