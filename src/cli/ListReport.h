#pragma once

#include <QJsonDocument>
#include <QString>

class Store;

// What a list folder holds, as the editor loads it: a summary (info) and everything (dump).
// Each returns the exit status: 0, or 2 when the folder cannot be loaded.
namespace ListReport {

int info(const QString &folder);
int dump(const QString &folder, bool json);

// The machine-readable dump of a loaded list; its shape is described in src/cli/README.md.
QJsonDocument document(const Store &store);

} // namespace ListReport
