#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QAbstractItemModel;
class QMimeData;
class QModelIndex;
using QModelIndexList = QList<QModelIndex>;

// What the views put on the drag pasteboard: service references as plain text, one per line, and
// the rows of an internal move together with the list they belong to.
namespace DragData {

// The distinct rows of the model's indexes, ascending (a table drags one index per column).
QList<int> sortedRows(const QModelIndexList &indexes, const QAbstractItemModel *model);

void setReferences(QMimeData *data, const QStringList &references);
// The non-empty lines of the plain text, without line-end characters.
QStringList references(const QMimeData *data);

void setRows(QMimeData *data, const QString &mimeType, const QString &owner, const QList<int> &rows);
// The rows, when the data holds rows of `owner` under this type.
std::optional<QList<int>> rows(const QMimeData *data, const QString &mimeType, const QString &owner);

} // namespace DragData
