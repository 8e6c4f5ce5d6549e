#pragma once

#include <QList>
#include <QString>

// What a list maker must mend before publishing a list folder: files named but missing or present
// but named nowhere, entries without a service or twice in one bouquet, databases that disagree,
// names the character repair would change, and characters that break the files.
namespace ListCheck {

struct Problem
{
    // The file's name in the folder; empty for the folder as a whole.
    QString file;
    // 1-based, counted at line feeds; 0 for the file as a whole.
    int line = 0;
    QString text;

    friend bool operator==(const Problem &, const Problem &) = default;
};

// In the order of the databases, the indexes, the bouquets and the unnamed files. A folder of
// bouquets without a database is checked as far as it goes; any other folder that the store
// cannot load throws the store's error.
QList<Problem> problems(const QString &folder);

// Prints one line per problem; returns 0 when there is none, 1 when there are, 2 when the folder
// cannot be loaded.
int check(const QString &folder);

} // namespace ListCheck
