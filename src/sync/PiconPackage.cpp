#include "PiconPackage.h"

#include "ListFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A zip bomb must not fill the disk; real picon packages stay far below this.
constexpr qint64 maximumBytes = qint64(4) << 30;

using Reader = std::unique_ptr<archive, decltype(&archive_read_free)>;
using Writer = std::unique_ptr<archive, decltype(&archive_write_free)>;

PackageError archiveFailure(archive *handle)
{
    const char *reason = archive_error_string(handle);
    return PackageError::extractFailed(reason ? QString::fromLocal8Bit(reason)
                                              : PiconPackage::tr("unbekannter Fehler"));
}

QString shown(const QByteArray &path)
{
    return QString::fromLocal8Bit(path);
}

// Entry paths are relative to the extraction folder and never climb out of it.
void checkEntryPath(const QByteArray &path)
{
    if (path.startsWith('/'))
        throw PackageError::extractFailed(
            PiconPackage::tr("„%1“ hat einen absoluten Pfad.").arg(shown(path)));
    for (const QByteArray &piece : path.split('/')) {
        if (piece == "..")
            throw PackageError::extractFailed(
                PiconPackage::tr("„%1“ zeigt aus dem Paket heraus.").arg(shown(path)));
    }
}

// Resolves a link's target by its text alone; the walk over the finished folder catches links
// that escape through other links.
bool linkStaysInside(const QByteArray &entryPath, const QByteArray &target)
{
    if (target.startsWith('/'))
        return false;
    QList<QByteArray> position;
    for (const QByteArray &piece : entryPath.split('/')) {
        if (!piece.isEmpty() && piece != ".")
            position << piece;
    }
    if (!position.isEmpty())
        position.removeLast();
    for (const QByteArray &piece : target.split('/')) {
        if (piece.isEmpty() || piece == ".")
            continue;
        if (piece != "..")
            position << piece;
        else if (position.isEmpty())
            return false;
        else
            position.removeLast();
    }
    return true;
}

bool isInside(const QString &path, const QString &folder)
{
    return path == folder || path.startsWith(folder + u'/');
}

void checkLinks(const QString &folder)
{
    QDirIterator it(folder, QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        if (!info.isSymLink())
            continue;
        const QString resolved = info.canonicalFilePath();
        if (!resolved.isEmpty() && !isInside(resolved, folder))
            throw PackageError::extractFailed(
                PiconPackage::tr("Der Link „%1“ zeigt aus dem Paket heraus.")
                    .arg(QDir(folder).relativeFilePath(info.filePath())));
    }
}

void copyData(archive *reader, archive *writer, qint64 &written)
{
    for (;;) {
        const void *block = nullptr;
        size_t size = 0;
        la_int64_t offset = 0;
        const int status = archive_read_data_block(reader, &block, &size, &offset);
        if (status == ARCHIVE_EOF)
            return;
        if (status < ARCHIVE_WARN)
            throw archiveFailure(reader);
        written += qint64(size);
        if (written > maximumBytes)
            throw PackageError::extractFailed(
                PiconPackage::tr("Mehr als %1 GB – das ist kein Picon-Paket.").arg(maximumBytes >> 30));
        if (archive_write_data_block(writer, block, size, offset) < ARCHIVE_WARN)
            throw archiveFailure(writer);
    }
}

QString localPath(const QString &url)
{
    if (url.startsWith(u"file:"))
        return QUrl(url).toLocalFile();
    return url;
}

// A folder name that stays one level below its parent.
QString safeFolderName(const QString &name)
{
    if (name.isEmpty() || name == u"." || name == u"..")
        return u"Paket"_s;
    return name;
}

void removeFolder(const QString &folder)
{
    // removeRecursively deletes links, never what they point to.
    if (QFileInfo(folder).isSymLink())
        QFile::remove(folder);
    else
        QDir(folder).removeRecursively();
}

} // namespace

PackageError::PackageError(QString text)
    : m_text(std::move(text))
{
}

PackageError PackageError::extractFailed(const QString &text)
{
    return PackageError(text);
}

QString PackageError::description() const
{
    return QCoreApplication::translate("PackageError", "Das Paket konnte nicht entpackt werden: ") + m_text;
}

std::optional<QString> PiconPackage::canonicalName(const QString &name)
{
    if (!name.endsWith(u".png", Qt::CaseInsensitive))
        return std::nullopt;
    const QList<QStringView> pieces = QStringView(name).chopped(4).split(u'_');
    if (pieces.size() != 10 || pieces.first() != u"1")
        return std::nullopt;
    for (const QStringView piece : pieces) {
        for (const QChar c : piece) {
            const char16_t u = c.unicode();
            const bool hex = (u >= u'0' && u <= u'9') || (u >= u'a' && u <= u'f') || (u >= u'A' && u <= u'F');
            if (!hex)
                return std::nullopt;
        }
    }
    return name.chopped(4).toUpper() + u".png"_s;
}

const QStringList &PiconPackage::archiveEndings()
{
    static const QStringList endings{u".zip"_s,     u".tar.gz"_s, u".tgz"_s,  u".tar.xz"_s, u".txz"_s,
                                     u".tar.bz2"_s, u".tbz2"_s,   u".tar"_s,  u".ipk"_s,    u".7z"_s};
    return endings;
}

bool PiconPackage::isArchive(const QString &name)
{
    const QString lower = name.toLower();
    return std::any_of(archiveEndings().cbegin(), archiveEndings().cend(),
                       [&lower](const QString &ending) { return lower.endsWith(ending); });
}

QString PiconPackage::baseName(const QString &url)
{
    const QString name = QFileInfo(localPath(url)).fileName();
    const QString lower = name.toLower();
    for (const QString &ending : archiveEndings()) {
        if (lower.endsWith(ending))
            return name.chopped(ending.size());
    }
    return name;
}

QList<PiconFile> PiconPackage::scan(const QString &root)
{
    QList<PiconFile> files;
    QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (std::optional<QString> name = canonicalName(it.fileName()))
            files.append(PiconFile{path, *name});
    }
    std::sort(files.begin(), files.end(), [](const PiconFile &a, const PiconFile &b) {
        return a.name != b.name ? a.name < b.name : a.path < b.path;
    });
    return files;
}

void PiconPackage::extract(const QString &archivePath, const QString &folder)
{
    // Written below the folder's real path: the symlink guard of libarchive checks every folder
    // of the path, and a link in the user's own folders must not count against the package.
    const QString target = QFileInfo(folder).canonicalFilePath();
    if (target.isEmpty())
        throw PackageError::extractFailed(tr("Der Ordner „%1“ fehlt.").arg(folder));

    // Only the formats of picon packages: libarchive's others include mtree, whose entries may
    // take their content from any file on this computer.
    Reader reader(archive_read_new(), archive_read_free);
    for (const auto support : {archive_read_support_filter_gzip, archive_read_support_filter_bzip2,
                               archive_read_support_filter_xz, archive_read_support_filter_lzma,
                               archive_read_support_filter_zstd, archive_read_support_format_tar,
                               archive_read_support_format_zip, archive_read_support_format_7zip,
                               archive_read_support_format_ar})
        support(reader.get());
    if (archive_read_open_filename(reader.get(), QFile::encodeName(archivePath).constData(), 64 * 1024) != ARCHIVE_OK)
        throw archiveFailure(reader.get());

    // The archive's own absolute paths are refused below, before the folder is put in front;
    // libarchive's refusal of absolute paths would reject that folder itself.
    Writer writer(archive_write_disk_new(), archive_write_free);
    archive_write_disk_set_options(writer.get(), ARCHIVE_EXTRACT_SECURE_NODOTDOT | ARCHIVE_EXTRACT_SECURE_SYMLINKS);
    const QByteArray prefix = QFile::encodeName(target) + '/';

    qint64 written = 0;
    archive_entry *entry = nullptr;
    for (;;) {
        const int status = archive_read_next_header(reader.get(), &entry);
        if (status == ARCHIVE_EOF)
            break;
        if (status < ARCHIVE_WARN)
            throw archiveFailure(reader.get());
        const char *rawPath = archive_entry_pathname(entry);
        const QByteArray path = rawPath ? QByteArray(rawPath) : QByteArray();
        const auto type = archive_entry_filetype(entry);
        const char *hardlink = archive_entry_hardlink(entry);
        if (path.isEmpty() || (!hardlink && type != AE_IFREG && type != AE_IFDIR && type != AE_IFLNK)) {
            // Devices and pipes have no place in a picon package.
            archive_read_data_skip(reader.get());
            continue;
        }
        checkEntryPath(path);
        if (const char *link = archive_entry_symlink(entry); link && type == AE_IFLNK) {
            if (!linkStaysInside(path, link))
                throw PackageError::extractFailed(tr("Der Link „%1“ zeigt aus dem Paket heraus.").arg(shown(path)));
        }
        if (hardlink) {
            checkEntryPath(hardlink);
            archive_entry_copy_hardlink(entry, (prefix + hardlink).constData());
        }
        archive_entry_copy_pathname(entry, (prefix + path).constData());
        // Whatever the archive says, the files must stay readable and removable for us.
        if (type == AE_IFREG || type == AE_IFDIR)
            archive_entry_set_perm(entry, type == AE_IFDIR ? 0755 : 0644);

        if (archive_write_header(writer.get(), entry) < ARCHIVE_WARN)
            throw archiveFailure(writer.get());
        if (type == AE_IFREG)
            copyData(reader.get(), writer.get(), written);
        if (archive_write_finish_entry(writer.get()) < ARCHIVE_WARN)
            throw archiveFailure(writer.get());
    }
    if (archive_write_close(writer.get()) < ARCHIVE_WARN)
        throw archiveFailure(writer.get());
    checkLinks(target);
}

QString PiconPackage::extractionBase(const QString &workBase)
{
    return workBase + u"/Picon-Pakete"_s;
}

PiconPackage PiconPackage::open(const QString &url, const QString &workBase)
{
    const QString source = localPath(url);
    const QFileInfo info(source);
    if (info.isDir())
        return PiconPackage{source, source, scan(source)};
    if (!info.isFile())
        throw PackageError::extractFailed(tr("„%1“ gibt es nicht.").arg(source));

    const QString folder =
        ListFolder::standardized(extractionBase(workBase) + u'/' + safeFolderName(baseName(source)));
    if (isInside(ListFolder::standardized(source), folder))
        throw PackageError::extractFailed(tr("„%1“ liegt in dem Ordner, in den es entpackt würde.").arg(source));
    removeFolder(folder);
    if (!QDir().mkpath(folder))
        throw PackageError::extractFailed(tr("Der Ordner „%1“ kann nicht angelegt werden.").arg(folder));

    try {
        extract(source, folder);
        // One level of archives inside the package, such as the data archive of an ipk.
        QStringList inner;
        QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            if (isArchive(it.fileName()))
                inner << path;
        }
        inner.sort();
        for (const QString &path : std::as_const(inner)) {
            const QFileInfo archiveInfo(path);
            const QString into = archiveInfo.path() + u'/' + baseName(path) + u"-inhalt"_s;
            if (!QDir().mkpath(into))
                throw PackageError::extractFailed(tr("Der Ordner „%1“ kann nicht angelegt werden.").arg(into));
            extract(path, into);
        }
    } catch (...) {
        removeFolder(folder);
        throw;
    }
    return PiconPackage{source, folder, scan(folder)};
}

bool PiconPackage::discardExtracted(const PiconPackage &package, const QString &workBase)
{
    if (!package.isExtracted())
        return false;
    const QString root = ListFolder::standardized(package.root);
    const QString base = ListFolder::standardized(extractionBase(workBase));
    // Only a folder of our own, directly below the extraction base.
    if (QFileInfo(root).path() != base || root == ListFolder::standardized(package.source))
        return false;
    if (!QFileInfo::exists(root) && !QFileInfo(root).isSymLink())
        return false;
    removeFolder(root);
    return true;
}

QSet<QString> PiconPackage::names() const
{
    QSet<QString> names;
    names.reserve(files.size());
    for (const PiconFile &file : files)
        names.insert(file.name);
    return names;
}
