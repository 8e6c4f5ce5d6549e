// The database writer on any text, with edits of the services the text holds. The first byte
// chooses the edit: which service, and whether it is renamed or deleted.

#include "FuzzCheck.h"
#include "LameDB.h"

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    if (size < 1)
        return 0;
    const unsigned char choice = data[0];
    const QByteArray text = fuzzInput(data + 1, size - 1).toByteArray();
    FUZZ_CHECK(LameDB::applying({}, text) == text);

    const bool format5 = text.startsWith("eDVB services /5/");
    const LameDB::Database before = format5 ? LameDB::parseV5(text) : LameDB::parseV4(text);
    const ServiceKey key = before.services.isEmpty() ? ServiceKey{choice, 1, 2, 3}
                                                     : before.services.at(choice % before.services.size()).key;
    const bool rename = choice & 0x80;
    const QString newName = (choice & 0x40) ? u"Neu \"%1\""_s.arg(choice) : u"Neu %1"_s.arg(choice);
    const ServiceEdits edits{{key, rename ? ServiceEdit::rename(newName) : ServiceEdit::deletion()}};
    const QByteArray after = LameDB::applying(edits, text);
    if (!rename)
        FUZZ_CHECK(after.size() <= text.size());

    // In format 5 reader and writer agree on every service line, as long as both see the same lines.
    if (format5 && !hasOtherBreaks(text)) {
        QList<Service> expected;
        for (Service service : before.services) {
            if (service.key == key) {
                if (!rename)
                    continue;
                service.name = QString(newName).replace(u'"', u'\'');
            }
            expected.append(service);
        }
        FUZZ_CHECK(LameDB::parseV5(after).services == expected);
        FUZZ_CHECK(LameDB::parseV5(after).transponders == before.transponders);
    }
    return 0;
}
