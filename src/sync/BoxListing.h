#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

// Which names of a box folder's listing belong to the channel list. A name from the box is only
// ever used as a file name inside a local folder, so names that could point elsewhere are dropped.
namespace BoxListing {

// "lamedb", "lamedb5", "bouquets.tv", "bouquets.radio" or a name beginning with "userbouquet.".
bool isListFile(QStringView name);
// Empty, ".", or holding "/", "\", ".." or a NUL character: never fetched, written or sent.
bool isHostile(QStringView name);
// The list files of a listing, in its order, without hostile names.
QStringList listFiles(const QStringList &listing);

} // namespace BoxListing
