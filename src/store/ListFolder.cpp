#include "ListFolder.h"

#include "BouquetIndex.h"
#include "Error.h"
#include "Satellites.h"
#include "Utf8.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

namespace ListFolder {

namespace {

// The distinct keys in one order, for comparing two databases without building hash sets.
std::vector<ServiceKey> keysOf(const QList<Service> &services)
{
    std::vector<ServiceKey> keys;
    keys.reserve(size_t(services.size()));
    for (const Service &service : services)
        keys.push_back(service.key);
    const auto less = [](const ServiceKey &a, const ServiceKey &b) {
        return std::tie(a.sid, a.tsid, a.onid, a.ns) < std::tie(b.sid, b.tsid, b.onid, b.ns);
    };
    std::sort(keys.begin(), keys.end(), less);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

std::optional<Comparison> compare(const QList<Service> &primary, const QByteArray &otherText,
                                  bool primaryIsV5)
{
    try {
        const LameDB::Database other = LameDB::parse(otherText);
        const QList<Service> &v4 = primaryIsV5 ? other.services : primary;
        const QList<Service> &v5 = primaryIsV5 ? primary : other.services;
        return Comparison{v4.size(), v5.size(), keysOf(v4) != keysOf(v5)};
    } catch (const Error &) {
        // A second database that cannot be read is not worth a message.
        return std::nullopt;
    }
}

} // namespace

std::optional<QByteArray> readText(const QString &path)
{
    if (!QFileInfo(path).isFile()) return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return Utf8::repaired(file.readAll());
}

Contents read(const QString &folder)
{
    const QDir dir(folder);
    Contents contents;
    for (const QString &name : {u"lamedb5"_s, u"lamedb"_s}) {
        if (QFileInfo(dir.filePath(name)).isFile()) {
            contents.primary = name;
            break;
        }
    }
    if (contents.primary.isEmpty())
        throw MessageError(
            QCoreApplication::translate("ListFolder", "Im Ordner liegt weder lamedb noch lamedb5."),
            u"Corvandel"_s, 1);
    QFile primaryFile(dir.filePath(contents.primary));
    if (!primaryFile.open(QIODevice::ReadOnly)) {
        throw MessageError(QCoreApplication::translate("ListFolder", "„%1“ konnte nicht gelesen werden: %2")
                               .arg(contents.primary, primaryFile.errorString()),
                           u"Corvandel"_s, 1);
    }
    const QByteArray primaryText = Utf8::repaired(primaryFile.readAll());
    contents.database = LameDB::parse(primaryText);

    for (const QString &name : {u"lamedb"_s, u"lamedb5"_s}) {
        if (name == contents.primary) {
            contents.lamedbTexts.insert(name, primaryText);
        } else if (const std::optional<QByteArray> text = readText(dir.filePath(name))) {
            contents.lamedbTexts.insert(name, *text);
            contents.comparison = std::async(std::launch::async, compare, contents.database.services, *text,
                                             contents.primary == u"lamedb5");
        }
    }

    Bouquets bouquets = readBouquets(folder);
    contents.bouquets = std::move(bouquets.bouquets);
    contents.missingFiles = std::move(bouquets.missingFiles);

    if (const std::optional<QByteArray> satellites = readText(dir.filePath(u"satellites.xml"_s)))
        contents.satelliteNames = Satellites::parse(*satellites);
    return contents;
}

Bouquets readBouquets(const QString &folder)
{
    const QDir dir(folder);
    Bouquets result;
    for (MediaKind kind : MediaKind::allCases()) {
        QList<Bouquet> bouquets;
        if (const std::optional<QByteArray> index =
                readText(dir.filePath(u"bouquets."_s + kind.rawValue()))) {
            for (const QString &name : BouquetIndex::fileNames(*index)) {
                const std::optional<QByteArray> text =
                    BouquetIndex::isSafeFileName(name) ? readText(dir.filePath(name)) : std::nullopt;
                if (text)
                    bouquets << Bouquet::parse(name, kind, *text);
                else
                    result.missingFiles << name;
            }
        }
        result.bouquets.insert(kind, bouquets);
    }
    return result;
}

void writeFile(const QString &folder, const QString &name, const QByteArray &bytes)
{
    QSaveFile file(QDir(folder).filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw MessageError(
            QCoreApplication::translate("ListFolder", "„%1“ konnte nicht gespeichert werden: %2")
                .arg(name, file.errorString()));
}

QString standardized(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

} // namespace ListFolder
