#pragma once

#include "LameDB.h"
#include "Snapshot.h"

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

// The files of a list folder as the box keeps them: service databases, bouquet indexes, user
// bouquets and satellites.xml. Reads whole folders and writes single files atomically.
namespace ListFolder {

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
    // Set when both databases exist and the second one parses: the service count of each.
    std::optional<qsizetype> lamedbCount;
    std::optional<qsizetype> lamedb5Count;
    bool databasesDiffer = false;
};

// Throws MessageError (domain "Corvandel", code 1) when the folder holds no database or it cannot
// be read, and the reader's error when the primary database cannot be parsed.
Contents read(const QString &folder);

// Replaces folder/name with the bytes through a temporary file; throws MessageError on failure.
void writeFile(const QString &folder, const QString &name, const QByteArray &bytes);

// The absolute path with "." and ".." resolved and no trailing slash.
QString standardized(const QString &path);

} // namespace ListFolder
