#include "PiconArchives.h"

#include "TestSupport.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtDebug>

#include <archive.h>
#include <archive_entry.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace PiconArchives {

bool write(const QString &path, Format format, const QList<Entry> &entries)
{
    std::unique_ptr<archive, decltype(&archive_write_free)> writer(archive_write_new(), archive_write_free);
    archive *a = writer.get();
    // In the order of Format.
    using Setup = int (*)(archive *);
    static const QList<QList<Setup>> setups{
        {archive_write_set_format_zip},
        {archive_write_set_format_pax_restricted, archive_write_add_filter_gzip},
        {archive_write_set_format_pax_restricted, archive_write_add_filter_xz},
        {archive_write_set_format_pax_restricted, archive_write_add_filter_bzip2},
        {archive_write_set_format_ustar},
        {archive_write_set_format_7zip},
        {archive_write_set_format_ar_svr4}};
    for (const Setup setup : setups.at(int(format)))
        setup(a);
    bool written = archive_write_open_filename(a, QFile::encodeName(path).constData()) == ARCHIVE_OK;
    std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(archive_entry_new(),
                                                                        archive_entry_free);
    for (qsizetype i = 0; written && i < entries.size(); ++i) {
        const Entry &item = entries.at(i);
        archive_entry *e = archive_entry_clear(entry.get());
        const bool link = item.type == Entry::symlink;
        archive_entry_set_pathname(e, item.path.constData());
        archive_entry_set_filetype(e, link ? AE_IFLNK : AE_IFREG);
        archive_entry_set_perm(e, link ? 0777 : 0644);
        if (item.type == Entry::file) archive_entry_set_size(e, item.data.size());
        if (link) archive_entry_set_symlink(e, item.target.constData());
        if (item.type == Entry::hardlink) archive_entry_set_hardlink(e, item.target.constData());
        written = archive_write_header(a, e) >= ARCHIVE_WARN &&
                  (item.data.isEmpty() ||
                   archive_write_data(a, item.data.constData(), size_t(item.data.size())) >= 0);
    }
    if (!written) qWarning() << "cannot write" << path << archive_error_string(a);
    return archive_write_close(a) == ARCHIVE_OK && written;
}

QByteArray bytes(Format format, const QList<Entry> &entries)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"archive"_s);
    return write(path, format, entries) ? TestSupport::readFile(path) : QByteArray();
}

bool writeIpk(const QString &path, const QList<Entry> &data)
{
    QList<Entry> prefixed = data;
    for (Entry &entry : prefixed)
        entry.path.prepend("./");
    const QByteArray control =
        bytes(Format::tarGz,
              {file("./control", "Package: enigma2-picons-test\nVersion: 1.0\nArchitecture: all\n")});
    const QByteArray payload = bytes(Format::tarGz, prefixed);
    return !control.isEmpty() && !payload.isEmpty() &&
           write(path, Format::ar,
                 {file("debian-binary", "2.0\n"), file("control.tar.gz", control),
                  file("data.tar.gz", payload)});
}

} // namespace PiconArchives
