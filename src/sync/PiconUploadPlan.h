#pragma once

#include "PiconPackage.h"
#include "Service.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

// What a picon upload would send: an opened package, the picon folder on the box with the names
// already in it, the package's picons that belong to services of the list, and the user's two
// choices (all picons or only the matching ones; overwrite the box's picons or only add missing).
struct PiconUploadPlan
{
    PiconPackage package;
    QString directory;
    QSet<QString> existing;
    QSet<QString> matching;
    bool uploadAll = false;
    bool overwrite = false;

    // Fills existing from the box listing and matching from the services' picon names.
    static PiconUploadPlan build(const PiconPackage &package, const QString &directory, const QStringList &listing,
                                 const QList<Service> &services);

    // The package's picons sorted by file name, each name once.
    QList<PiconFile> allFiles() const;
    // The files to send for the current choices, or for the given ones.
    QList<PiconFile> files() const { return files(uploadAll, overwrite); }
    QList<PiconFile> files(bool uploadAll, bool overwrite) const;
    int count(bool uploadAll, bool overwrite) const;

    // Figures for the sheet: the package's distinct picons, those that fit the list, and how many
    // of all or of the matching ones the box has already.
    int total() const;
    int matchingCount() const { return int(matching.size()); }
    int existingCount(bool uploadAll) const;

    friend bool operator==(const PiconUploadPlan &, const PiconUploadPlan &) = default;
};
