#include "Bouquet.h"

#include "TextScan.h"

using namespace Qt::StringLiterals;

size_t qHash(const Bouquet &bouquet, size_t seed) noexcept
{
    return qHashMulti(seed, bouquet.id, bouquet.fileName, bouquet.name, bouquet.kind, bouquet.entries);
}

Bouquet Bouquet::parse(const QString &fileName, MediaKind kind, QByteArrayView text)
{
    Bouquet bouquet;
    bouquet.fileName = fileName;
    bouquet.name = fileName;
    bouquet.kind = kind;
    // Carriage returns end lines themselves, so no line keeps one at either end.
    TextScan::Lines lines(text);
    while (const auto line = lines.peek()) {
        lines.advance();
        if (line->startsWith("#NAME ")) {
            bouquet.name = TextScan::decoded(line->sliced(6));
        } else if (line->startsWith("#SERVICE ")) {
            BouquetEntry entry;
            entry.reference = TextScan::decoded(line->sliced(9));
            bouquet.entries.append(std::move(entry));
        } else if (line->startsWith("#DESCRIPTION ")) {
            // Only the first description of an entry counts; one before any entry is dropped.
            if (!bouquet.entries.isEmpty() && !bouquet.entries.last().description)
                bouquet.entries.last().description = TextScan::decoded(line->sliced(13));
        }
    }
    return bouquet;
}

QByteArray Bouquet::serialized() const
{
    qsizetype size = name.size() + 7;
    for (const BouquetEntry &entry : entries)
        size += entry.reference.size() + 10 + (entry.description ? entry.description->size() + 14 : 0);
    QString text;
    text.reserve(size);
    text += u"#NAME "_s + name + u'\n';
    for (const BouquetEntry &entry : entries) {
        text += u"#SERVICE "_s;
        text += entry.reference;
        text += u'\n';
        if (entry.description) {
            text += u"#DESCRIPTION "_s;
            text += *entry.description;
            text += u'\n';
        }
    }
    return text.toUtf8();
}
