#include "FolderScan.h"

#include "BouquetIndex.h"
#include "Console.h"
#include "ListFolder.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace FolderScan {

QString loadFailure(const QString &folder, const std::exception &error)
{
    return QCoreApplication::translate("Store", "„%1“ konnte nicht geladen werden: %2")
        .arg(folder, Console::describe(error));
}

QString primaryDatabase(const QMap<QString, QByteArray> &lamedbTexts)
{
    return lamedbTexts.contains(u"lamedb5"_s) ? u"lamedb5"_s : u"lamedb"_s;
}

QList<IndexLine> indexLines(const QString &folder)
{
    QList<IndexLine> lines;
    for (MediaKind kind : MediaKind::allCases()) {
        const std::optional<QByteArray> text =
            ListFolder::readText(QDir(folder).filePath(u"bouquets."_s + kind.rawValue()));
        if (!text) continue;
        forEachNumberedLine(*text, [&](QByteArrayView line, int number) {
            for (const QString &name : BouquetIndex::fileNames(line))
                lines << IndexLine{kind, name, number};
        });
    }
    return lines;
}

QList<int> entryLines(QByteArrayView text)
{
    QList<int> numbers;
    forEachNumberedLine(text, [&](QByteArrayView line, int number) {
        if (line.startsWith("#SERVICE ")) numbers << number;
    });
    return numbers;
}

bool isSubBouquet(QStringView reference)
{
    return reference.startsWith(u"1:7:");
}

bool isStream(QStringView reference)
{
    const QList<QStringView> pieces = reference.split(u':');
    // Markers, bouquet links and other flagged references carry something else there.
    if (pieces.size() < 2 || pieces.at(1) != u"0") return false;
    const QStringView type = pieces.at(0);
    if (type == u"4097" || type == u"5001" || type == u"5002") return true;
    return pieces.size() > 10 && !pieces.at(10).isEmpty();
}

} // namespace FolderScan
