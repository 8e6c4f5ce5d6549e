// Picon file names of any reference.

#include "FuzzCheck.h"
#include "Picon.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QString reference = QString::fromUtf8(fuzzInput(data, size));
    const QStringList names = Picon::fileNames(reference);
    FUZZ_CHECK(names.size() <= 2);
    for (const QString &name : names) {
        FUZZ_CHECK(name.endsWith(u".png"));
        FUZZ_CHECK(!name.contains(u':'));
        FUZZ_CHECK(name.count(u'_') >= 9);
    }
    if (names.size() == 2)
        FUZZ_CHECK(names[0] != names[1]);
    return 0;
}
