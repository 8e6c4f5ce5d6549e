#pragma once

#include "MediaKind.h"
#include "TextScan.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringView>

#include <exception>
#include <optional>

// Reading a list folder's files once more with line numbers, for messages that point into them,
// and the kinds of bouquet entries that the reports count.
namespace FolderScan {

// The message of a folder that could not be loaded, in the editor's words.
QString loadFailure(const QString &folder, const std::exception &error);
// "lamedb5" or "lamedb": the database whose services a loaded list shows.
QString primaryDatabase(const QMap<QString, QByteArray> &lamedbTexts);

// Calls f(line, number) for every line as the readers split it (at any line break), numbered
// as an editor counts lines (at line feeds).
template <typename F> void forEachNumberedLine(QByteArrayView text, F &&f)
{
    if (text.isEmpty()) return;
    qsizetype counted = 0;
    int number = 1;
    TextScan::forEachLine(text, TextScan::Breaks::unicode, [&](QByteArrayView line) {
        const qsizetype start = line.data() - text.data();
        number += int(text.sliced(counted, start - counted).count('\n'));
        counted = start;
        f(line, number);
    });
}

// One bouquet file named by an index file.
struct IndexLine
{
    MediaKind kind;
    QString fileName;
    int line = 0;
};
// The bouquet files that "bouquets.tv" and "bouquets.radio" name, in that order.
QList<IndexLine> indexLines(const QString &folder);

// The line number of each entry of a bouquet file, in entry order.
QList<int> entryLines(QByteArrayView text);

bool isSubBouquet(QStringView reference);
// A stream: an IPTV service type, or a reference that carries a URL after its tenth field.
bool isStream(QStringView reference);

} // namespace FolderScan
