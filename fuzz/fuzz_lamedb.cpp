// Both database readers on any bytes, with and without a known header.

#include "FuzzCheck.h"
#include "LameDB.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArrayView text = fuzzInput(data, size);
    try {
        const LameDB::Database database = LameDB::parse(text);
        FUZZ_CHECK(text.startsWith("eDVB services /"));
        (void)database;
    } catch (const LameDBError &error) {
        FUZZ_CHECK(!error.description().isEmpty());
    }
    const LameDB::Database v4 = LameDB::parseV4(text);
    const LameDB::Database v5 = LameDB::parseV5(text);
    // A format-4 service takes three lines; a format-5 one an "s:" line of its own.
    qsizetype breaks = 0;
    for (char c : text)
        breaks += c == '\n' || c == '\r' || c == '\x0b' || c == '\x0c' || c == '\x85' || c == '\xa8' || c == '\xa9';
    FUZZ_CHECK(v4.services.size() * 3 <= breaks + 1);
    FUZZ_CHECK(v5.services.size() <= text.count("s:"));
    for (const Service &service : v5.services)
        FUZZ_CHECK(!service.name.contains(u'"'));
    return 0;
}
