#include "Utf8.h"

#include "TextScan.h"

namespace Utf8 {

bool isValid(QByteArrayView bytes)
{
    return bytes.isValidUtf8();
}

QByteArray repaired(const QByteArray &bytes)
{
    if (isValid(bytes))
        return bytes;
    return TextScan::decoded(bytes).toUtf8();
}

} // namespace Utf8
