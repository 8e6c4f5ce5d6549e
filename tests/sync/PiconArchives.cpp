#include "PiconArchives.h"

#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtDebug>

#include <archive.h>
#include <archive_entry.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace PiconArchives {

Entry file(const QByteArray &path, const QByteArray &data)
{
    return Entry{path, data, Entry::file, {}};
}

Entry directory(const QByteArray &path)
{
    return Entry{path, {}, Entry::directory, {}};
}

Entry softLink(const QByteArray &path, const QByteArray &target)
{
    return Entry{path, {}, Entry::symlink, target};
}

Entry hardLink(const QByteArray &path, const QByteArray &target)
{
    return Entry{path, {}, Entry::hardlink, target};
}

bool write(const QString &path, Format format, const QList<Entry> &entries)
{
    std::unique_ptr<archive, decltype(&archive_write_free)> writer(archive_write_new(), archive_write_free);
    archive *a = writer.get();
    switch (format) {
    case Format::zip:
        archive_write_set_format_zip(a);
        break;
    case Format::tarGz:
        archive_write_set_format_pax_restricted(a);
        archive_write_add_filter_gzip(a);
        break;
    case Format::tarXz:
        archive_write_set_format_pax_restricted(a);
        archive_write_add_filter_xz(a);
        break;
    case Format::tarBz2:
        archive_write_set_format_pax_restricted(a);
        archive_write_add_filter_bzip2(a);
        break;
    case Format::tar:
        archive_write_set_format_ustar(a);
        break;
    case Format::sevenZip:
        archive_write_set_format_7zip(a);
        break;
    case Format::ar:
        archive_write_set_format_ar_svr4(a);
        break;
    }
    if (archive_write_open_filename(a, QFile::encodeName(path).constData()) != ARCHIVE_OK) {
        qWarning() << "cannot write" << path << archive_error_string(a);
        return false;
    }
    for (const Entry &item : entries) {
        std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(archive_entry_new(), archive_entry_free);
        archive_entry *e = entry.get();
        archive_entry_set_pathname(e, item.path.constData());
        archive_entry_set_mtime(e, 1700000000, 0);
        switch (item.type) {
        case Entry::file:
            archive_entry_set_filetype(e, AE_IFREG);
            archive_entry_set_perm(e, 0644);
            archive_entry_set_size(e, item.data.size());
            break;
        case Entry::directory:
            archive_entry_set_filetype(e, AE_IFDIR);
            archive_entry_set_perm(e, 0755);
            break;
        case Entry::symlink:
            archive_entry_set_filetype(e, AE_IFLNK);
            archive_entry_set_perm(e, 0777);
            archive_entry_set_symlink(e, item.target.constData());
            break;
        case Entry::hardlink:
            archive_entry_set_filetype(e, AE_IFREG);
            archive_entry_set_perm(e, 0644);
            archive_entry_set_hardlink(e, item.target.constData());
            break;
        }
        if (archive_write_header(a, e) < ARCHIVE_WARN) {
            qWarning() << "cannot add" << item.path << archive_error_string(a);
            return false;
        }
        if (item.type == Entry::file && !item.data.isEmpty() &&
            archive_write_data(a, item.data.constData(), size_t(item.data.size())) < 0) {
            qWarning() << "cannot write data of" << item.path << archive_error_string(a);
            return false;
        }
    }
    return archive_write_close(a) == ARCHIVE_OK;
}

QByteArray bytes(Format format, const QList<Entry> &entries)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"archive"_s);
    return write(path, format, entries) ? TestSupport::readFile(path) : QByteArray();
}

bool writeIpk(const QString &path, const QList<Entry> &data)
{
    QList<Entry> prefixed;
    for (Entry entry : data) {
        entry.path.prepend("./");
        prefixed << entry;
    }
    const QByteArray control = bytes(Format::tarGz, {file("./control", "Package: enigma2-picons-test\n"
                                                                        "Version: 1.0\nArchitecture: all\n")});
    const QByteArray payload = bytes(Format::tarGz, prefixed);
    if (control.isEmpty() || payload.isEmpty())
        return false;
    return write(path, Format::ar,
                 {file("debian-binary", "2.0\n"), file("control.tar.gz", control), file("data.tar.gz", payload)});
}

QList<Entry> corpusPicons(const QByteArray &folder)
{
    QList<Entry> entries;
    const QString corpus = TestSupport::corpusDir();
    if (corpus.isEmpty())
        return entries;
    const QDir dir(corpus + u"/picons/srp-grey-border-100x60/picons"_s);
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name))
        entries << file(folder + name.toUtf8(), TestSupport::readFile(dir.filePath(name)));
    return entries;
}

} // namespace PiconArchives
