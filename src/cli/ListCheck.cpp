#include "ListCheck.h"

#include "BouquetIndex.h"
#include "Console.h"
#include "FolderScan.h"
#include "ListFolder.h"
#include "TextRepair.h"
#include "TextScan.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace ListCheck {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("ListCheck", text);
}

QString codePoint(uint value)
{
    return u"U+"_s + QString::number(value, 16).toUpper().rightJustified(4, u'0');
}

// A character that ends a line for the editor's readers but not for the box, which splits at
// line feeds only: the file would read differently in the two.
std::optional<QString> strayBreak(QByteArrayView line)
{
    for (qsizetype i = 0; i < line.size(); ++i) {
        const uchar c = uchar(line.at(i));
        if (c == '\r' || c == '\v' || c == '\f') return codePoint(c);
        if (c == 0xC2 && i + 1 < line.size() && uchar(line.at(i + 1)) == 0x85) return codePoint(0x85);
        if (c == 0xE2 && i + 2 < line.size() && uchar(line.at(i + 1)) == 0x80 &&
            (uchar(line.at(i + 2)) == 0xA8 || uchar(line.at(i + 2)) == 0xA9))
            return codePoint(0x2000 + uchar(line.at(i + 2)) - 0x80);
    }
    return std::nullopt;
}

// A format-5 service line whose name ends before its closing quote: more than two quotes, or the
// data after the name not starting with a comma.
bool quoteInName(QByteArrayView line)
{
    const qsizetype open = TextScan::indexOf(line, '"');
    const qsizetype close = open < 0 ? -1 : TextScan::indexOf(line, '"', open + 1);
    if (close < 0) return false;
    const QByteArrayView rest = line.sliced(close + 1);
    return (!rest.isEmpty() && rest.front() != ',') || TextScan::indexOf(rest, '"') >= 0;
}

void checkLines(const QString &file, QByteArrayView text, bool database, QList<Problem> &found)
{
    const bool format5 = text.startsWith("eDVB services /5/");
    int number = 0;
    TextScan::forEachLine(text, TextScan::Breaks::lineFeed, [&](QByteArrayView line) {
        ++number;
        if (line.endsWith('\r')) line.chop(1);
        if (const std::optional<QString> stray = strayBreak(line))
            found << Problem{file, number, tr("Zeilenumbruch %1 mitten in der Zeile.").arg(*stray)};
        if (!database) return;
        if (format5 && line.startsWith("s:") && quoteInName(line))
            found << Problem{file, number, tr("Ein Anführungszeichen im Sendernamen zerbricht die Zeile.")};
        // What the repair undoes holds "Â", "Ã" or "â", all encoded with the lead byte 0xC3.
        if (TextScan::indexOf(line, char(0xC3)) < 0) return;
        const QString original = TextScan::decoded(line);
        const QString repaired = TextRepair::fix(original);
        if (repaired != original)
            found << Problem{file, number,
                             tr("Die Zeichenreparatur würde „%1“ zu „%2“ machen.").arg(original, repaired)};
    });
}

// The line of the first occurrence when `id` was seen before, else none (and `id` is noted).
template <typename Id> std::optional<int> seenBefore(QHash<Id, int> &seen, const Id &id, int line)
{
    const auto it = seen.constFind(id);
    if (it != seen.cend()) return *it;
    seen.insert(id, line);
    return std::nullopt;
}

// A folder of bouquets alone, without a database: IPTV lists are published that way.
bool holdsBouquetsOnly(const QDir &dir)
{
    const auto isFile = [&](const QString &name) { return QFileInfo(dir.filePath(name)).isFile(); };
    return dir.isReadable() && !isFile(u"lamedb5"_s) && !isFile(u"lamedb"_s) &&
           (isFile(u"bouquets.tv"_s) || isFile(u"bouquets.radio"_s));
}

ListFolder::Contents load(const QString &folder)
{
    if (!holdsBouquetsOnly(QDir(folder))) return ListFolder::read(folder);
    // The context spelled out: lupdate takes the qualified return type for this function's class.
    Console::error(QCoreApplication::translate("ListCheck",
                                               "Im Ordner liegt weder lamedb noch lamedb5: die Einträge werden "
                                               "mit keiner Senderdatenbank verglichen."));
    ListFolder::Bouquets bouquets = ListFolder::readBouquets(folder);
    ListFolder::Contents contents;
    contents.bouquets = std::move(bouquets.bouquets);
    contents.missingFiles = std::move(bouquets.missingFiles);
    return contents;
}

} // namespace

QList<Problem> problems(const QString &folder)
{
    const ListFolder::Contents contents = load(folder);
    const QDir dir(folder);
    QList<Problem> found;
    const QString missingFile = tr("Die Bouquet-Datei „%1“ fehlt.");

    const std::optional<ListFolder::Comparison> comparison =
        contents.comparison.valid() ? contents.comparison.get() : std::nullopt;
    if (comparison && comparison->differ) {
        found << Problem{{},
                         0,
                         tr("lamedb (%1 Sender) und lamedb5 (%2 Sender) enthalten unterschiedliche Sender.")
                             .arg(comparison->lamedbCount)
                             .arg(comparison->lamedb5Count)};
    }
    for (auto it = contents.lamedbTexts.cbegin(); it != contents.lamedbTexts.cend(); ++it)
        checkLines(it.key(), it.value(), true, found);

    // Files that an index or a sub-bouquet entry names.
    QSet<QString> named;
    for (const FolderScan::IndexLine &line : FolderScan::indexLines(folder)) {
        named.insert(line.fileName);
        if (contents.missingFiles.contains(line.fileName))
            found << Problem{u"bouquets."_s + line.kind.rawValue(), line.line,
                             missingFile.arg(line.fileName)};
    }

    QSet<ServiceKey> keys;
    for (const Service &service : contents.database.services)
        keys.insert(service.key);
    for (MediaKind kind : MediaKind::allCases()) {
        for (const Bouquet &bouquet : contents.bouquets.value(kind)) {
            const QByteArray text =
                ListFolder::readText(dir.filePath(bouquet.fileName)).value_or(QByteArray());
            checkLines(bouquet.fileName, text, false, found);
            const QList<int> lines = FolderScan::entryLines(text);
            QHash<ServiceKey, int> seenKeys;
            QHash<QString, int> seenStreams;
            for (qsizetype i = 0; i < bouquet.entries.size(); ++i) {
                const QString &reference = bouquet.entries.at(i).reference;
                const int line = lines.value(i);
                std::optional<int> first;
                if (FolderScan::isSubBouquet(reference)) {
                    for (const QString &name :
                         BouquetIndex::fileNames(QString(u"#SERVICE "_s + reference).toUtf8())) {
                        named.insert(name);
                        if (!BouquetIndex::isSafeFileName(name) || !QFileInfo(dir.filePath(name)).isFile())
                            found << Problem{bouquet.fileName, line, missingFile.arg(name)};
                    }
                } else if (FolderScan::isStream(reference)) {
                    // Streams are no services of the database; their URL tells them apart.
                    first = seenBefore(seenStreams, reference, line);
                } else if (const std::optional<ServiceKey> key = bouquet.entries.at(i).serviceKey()) {
                    if (!contents.primary.isEmpty() && !keys.contains(*key)) {
                        found << Problem{bouquet.fileName, line,
                                         tr("Sender fehlt in %1: %2").arg(contents.primary, reference)};
                    }
                    first = seenBefore(seenKeys, *key, line);
                }
                if (first) {
                    found << Problem{
                        bouquet.fileName, line,
                        tr("Derselbe Sender wie in Zeile %1: %2").arg(QString::number(*first), reference)};
                }
            }
        }
    }

    const QStringList files =
        dir.entryList(QStringList(u"userbouquet.*"_s), QDir::Files | QDir::CaseSensitive, QDir::Name);
    for (const QString &file : files) {
        if (!named.contains(file))
            found << Problem{file, 0, tr("Keine Indexdatei nennt diese Bouquet-Datei.")};
    }
    return found;
}

int check(const QString &folder)
{
    QList<Problem> found;
    try {
        found = problems(folder);
    } catch (const std::exception &error) {
        Console::error(FolderScan::loadFailure(folder, error));
        return 2;
    }
    for (const Problem &problem : std::as_const(found)) {
        if (problem.file.isEmpty())
            Console::line(problem.text);
        else if (problem.line == 0)
            Console::line(problem.file + u": "_s + problem.text);
        else
            Console::line(u"%1:%2: %3"_s.arg(problem.file, QString::number(problem.line), problem.text));
    }
    if (found.isEmpty()) {
        Console::error(tr("Keine Probleme gefunden."));
        return 0;
    }
    Console::error(tr("Gefundene Probleme: %1").arg(found.size()));
    return 1;
}

} // namespace ListCheck
