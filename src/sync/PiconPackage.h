#pragma once

#include "Error.h"

#include <QCoreApplication>
#include <QHashFunctions>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

// A picon found in a package: where it lies on disk and the name it gets on the box.
struct PiconFile
{
    QString path;
    QString name;

    friend bool operator==(const PiconFile &, const PiconFile &) = default;
};

inline size_t qHash(const PiconFile &file, size_t seed = 0) noexcept
{
    return qHashMulti(seed, file.path, file.name);
}

// A picon package that could not be unpacked: a damaged archive, or one that would write outside
// its extraction folder.
class PackageError : public Error
{
public:
    // The one case: unpacking failed, for the reason given.
    static PackageError extractFailed(const QString &text);

    const QString &text() const { return m_text; }
    QString description() const override;

private:
    explicit PackageError(QString text);

    QString m_text;
};

// A picon package as the user picked it (an archive, an installable package of the box or an
// unpacked folder) and the picons found in it. Archives are unpacked with libarchive below
// "Picon-Pakete/" of the data folder, archives inside them one level deep into "-inhalt" folders.
struct PiconPackage
{
    // The archive or folder the user picked.
    QString source;
    // The folder that was scanned: the extraction folder, or the picked folder itself.
    QString root;
    // Sorted by name, then by path; a name may occur more than once.
    QList<PiconFile> files;

    // Unpacks (or, for a folder, scans in place) and collects the picons; throws PackageError.
    // Blocks while it unpacks: run it away from the GUI thread.
    static PiconPackage open(const QString &url, const QString &workBase);
    // "1_0_19_283d_3fb_1_c00000_0_0_0.PNG" gives "1_0_19_283D_3FB_1_C00000_0_0_0.png"; a name
    // that is no service-reference picon gives nothing.
    static std::optional<QString> canonicalName(const QString &name);
    // The endings libarchive unpacks for us, compared on the lower-cased name.
    static const QStringList &archiveEndings();
    static bool isArchive(const QString &name);
    // The file name less its archive ending.
    static QString baseName(const QString &url);
    // Every picon file below the folder, recursively.
    static QList<PiconFile> scan(const QString &root);
    // Unpacks the archive into the existing folder; throws PackageError and then leaves whatever
    // was written so far for the caller to remove.
    static void extract(const QString &archive, const QString &folder);
    // workBase/Picon-Pakete: the parent of every extraction folder.
    static QString extractionBase(const QString &workBase);
    // Removes the extraction folder of a package that open() unpacked; a folder the user picked,
    // or anything not directly below extractionBase, stays. Returns whether it removed something.
    static bool discardExtracted(const PiconPackage &package, const QString &workBase);

    bool isExtracted() const { return !root.isEmpty() && root != source; }
    // The distinct picon names of the package.
    QSet<QString> names() const;

    friend bool operator==(const PiconPackage &, const PiconPackage &) = default;

    Q_DECLARE_TR_FUNCTIONS(PiconPackage)
};
