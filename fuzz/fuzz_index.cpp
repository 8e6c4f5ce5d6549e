// The index reader on any bytes; names it yields are written and read back, and new file names
// made from the text stay safe and distinct.

#include "BouquetIndex.h"
#include "FuzzCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArrayView text = fuzzInput(data, size);
    const QStringList names = BouquetIndex::fileNames(text);
    QList<Bouquet> bouquets;
    for (const QString &name : names) {
        FUZZ_CHECK(!name.contains(u'"'));
        Bouquet bouquet;
        bouquet.fileName = name;
        bouquets.append(bouquet);
        (void)BouquetIndex::isSafeFileName(name);
    }
    for (MediaKind kind : MediaKind::allCases())
        FUZZ_CHECK(BouquetIndex::fileNames(BouquetIndex::serialized(kind, bouquets)) == names);

    const QSet<QString> existing(names.cbegin(), names.cend());
    const QString made = BouquetIndex::newFileName(QString::fromUtf8(text.first(qMin<qsizetype>(text.size(), 200))),
                                                   MediaKind::radio, existing);
    FUZZ_CHECK(!existing.contains(made));
    FUZZ_CHECK(BouquetIndex::isSafeFileName(made));
    FUZZ_CHECK(!made.contains(u'"'));
    FUZZ_CHECK(made.startsWith(u"userbouquet.") && made.endsWith(u".radio"));
    return 0;
}
