#pragma once

#include "LameDB.h"
#include "Snapshot.h"

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

#include <future>
#include <optional>

// The files of a list folder as the box keeps them: service databases, bouquet indexes, user
// bouquets and satellites.xml. Reads whole folders and writes single files atomically.
namespace ListFolder {

// The two databases of a folder that holds both, compared by their service keys.
struct Comparison
{
    qsizetype lamedbCount = 0;
    qsizetype lamedb5Count = 0;
    bool differ = false;
};

struct Contents
{
    // "lamedb5" or "lamedb": the database whose services are shown.
    QString primary;
    LameDB::Database database;
    BouquetLists bouquets;
    // Bouquet files named in an index that could not be read, or whose names point outside the folder.
    QStringList missingFiles;
    QHash<QString, QString> satelliteNames;
    // The text of each database file present, by file name; saving edits these in their own format.
    QMap<QString, QByteArray> lamedbTexts;
    // Valid when both databases exist; none when the second one cannot be parsed. Worked out on a
    // helper thread while the rest of the folder is read and shown.
    std::shared_future<std::optional<Comparison>> comparison;
};

// Throws MessageError (domain "Corvandel", code 1) when the folder holds no database or it cannot
// be read, and the reader's error when the primary database cannot be parsed.
Contents read(const QString &folder);

// The bouquets that the index files name, and the named files that could not be read. Never fails:
// a folder without index files has no bouquets.
struct Bouquets
{
    BouquetLists bouquets;
    QStringList missingFiles;
};
Bouquets readBouquets(const QString &folder);

// The bytes of a regular file with invalid UTF-8 replaced; none when it cannot be read (a folder
// or a pipe in its place counts as missing rather than being read).
std::optional<QByteArray> readText(const QString &path);

// Replaces folder/name with the bytes through a temporary file; throws MessageError on failure.
void writeFile(const QString &folder, const QString &name, const QByteArray &bytes);

// The absolute path with "." and ".." resolved and no trailing slash.
QString standardized(const QString &path);

} // namespace ListFolder
