// The repair of mis-encoded text on any bytes, per line and per file.

#include "FuzzCheck.h"
#include "TextRepair.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray bytes = fuzzInput(data, size).toByteArray();
    const QString text = QString::fromUtf8(bytes);
    const QString fixed = TextRepair::fix(text);
    // A repair only ever shortens the text: each step folds two or three characters into one.
    FUZZ_CHECK(fixed.size() <= text.size());
    if (const auto undone = TextRepair::undo(text))
        FUZZ_CHECK(undone->size() <= text.size());

    const TextRepair::FixedFile file = TextRepair::fixFile(bytes);
    FUZZ_CHECK(file.fixedLines <= bytes.count('\n') + 1);
    FUZZ_CHECK((file.fixedLines == 0) == (file.text == bytes));
    FUZZ_CHECK(file.text.count('\n') == bytes.count('\n'));
    return 0;
}
