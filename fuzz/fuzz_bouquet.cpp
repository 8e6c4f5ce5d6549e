// The bouquet reader on any bytes; what it writes must read back to the same bouquet.

#include "Bouquet.h"
#include "FuzzCheck.h"

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const Bouquet bouquet = Bouquet::parse(u"userbouquet.fuzz.tv"_s, MediaKind::tv, fuzzInput(data, size));
    const QByteArray written = bouquet.serialized();
    FUZZ_CHECK(written.startsWith("#NAME ") && written.endsWith('\n'));
    FUZZ_CHECK(written.isValidUtf8());
    const Bouquet again = Bouquet::parse(bouquet.fileName, bouquet.kind, written);
    FUZZ_CHECK(again.name == bouquet.name);
    FUZZ_CHECK(again.entries.size() == bouquet.entries.size());
    for (qsizetype i = 0; i < bouquet.entries.size(); ++i) {
        FUZZ_CHECK(again.entries[i].reference == bouquet.entries[i].reference);
        FUZZ_CHECK(again.entries[i].description == bouquet.entries[i].description);
        FUZZ_CHECK(again.entries[i].serviceKey() == bouquet.entries[i].serviceKey());
    }
    FUZZ_CHECK(again.serialized() == written);
    return 0;
}
