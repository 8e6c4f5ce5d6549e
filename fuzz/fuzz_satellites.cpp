// The satellites.xml scanner and its attribute reader on any bytes.

#include "FuzzCheck.h"
#include "Satellites.h"

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArrayView text = fuzzInput(data, size);
    const QHash<QString, QString> names = Satellites::parse(text);
    for (auto it = names.cbegin(); it != names.cend(); ++it)
        FUZZ_CHECK(it.key().endsWith(u'E') || it.key().endsWith(u'W'));
    const QString tag = QString::fromUtf8(text);
    if (const auto value = Satellites::attribute(u"name", tag))
        FUZZ_CHECK(!value->contains(u'"') || !value->contains(u'\''));
    if (size >= 4) {
        int position;
        std::memcpy(&position, data, sizeof position);
        FUZZ_CHECK(!Satellites::key(position).isEmpty());
    }
    return 0;
}
