#pragma once

#include "Bouquet.h"
#include "MediaKind.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

// The index files `bouquets.tv` and `bouquets.radio`, and the naming of new bouquet files.
namespace BouquetIndex {

// The whole index text for one kind, from its bouquets in order.
QByteArray serialized(MediaKind kind, const QList<Bouquet> &bouquets);
// The bouquet file names an index text names, in line order.
QStringList fileNames(QByteArrayView text);
// A file name for a new bouquet called `name`, distinct from every name in `existing`.
QString newFileName(const QString &name, MediaKind kind, const QSet<QString> &existing);
// Whether a file name read from an index stays inside its folder (no "/", "\\", "..", not empty).
bool isSafeFileName(QStringView fileName);

} // namespace BouquetIndex
