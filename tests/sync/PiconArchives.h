#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// Archives for the picon tests, written with libarchive's own writer, so that the reader under
// test meets real zip, tar, 7z and ar files.
namespace PiconArchives {

struct Entry
{
    enum Type { file, symlink, hardlink };
    QByteArray path;
    QByteArray data;
    Type type = file;
    // The target of a link, as stored in the archive.
    QByteArray target;
};

enum class Format { zip, tarGz, tarXz, tarBz2, tar, sevenZip, ar };

inline Entry file(const QByteArray &path, const QByteArray &data)
{
    return {path, data, Entry::file, {}};
}
inline Entry softLink(const QByteArray &path, const QByteArray &to)
{
    return {path, {}, Entry::symlink, to};
}
inline Entry hardLink(const QByteArray &path, const QByteArray &to)
{
    return {path, {}, Entry::hardlink, to};
}

// Writes the entries in order; false (with a warning) when libarchive refuses.
bool write(const QString &path, Format format, const QList<Entry> &entries);
// The archive's bytes, written through a temporary file.
QByteArray bytes(Format format, const QList<Entry> &entries);

// An installable package as the box's package tool builds it: an ar archive of debian-binary,
// control.tar.gz and data.tar.gz, the data entries below "./".
bool writeIpk(const QString &path, const QList<Entry> &data);

} // namespace PiconArchives
