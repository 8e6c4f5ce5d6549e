#include "DragData.h"

#include <QAbstractItemModel>
#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace DragData {

QList<int> sortedRows(const QModelIndexList &indexes, const QAbstractItemModel *model)
{
    QList<int> rows;
    for (const QModelIndex &index : indexes) {
        if (index.isValid() && index.model() == model) rows << index.row();
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void setReferences(QMimeData *data, const QStringList &references)
{
    data->setText(references.join(u'\n'));
}

QStringList references(const QMimeData *data)
{
    if (!data->hasText()) return {};
    QStringList lines;
    const QStringList pieces = data->text().split(u'\n');
    for (QString line : pieces) {
        while (line.endsWith(u'\r'))
            line.chop(1);
        if (!line.isEmpty()) lines << line;
    }
    return lines;
}

void setRows(QMimeData *data, const QString &mimeType, const QString &owner, const QList<int> &rows)
{
    QStringList lines{owner};
    for (int row : rows)
        lines << QString::number(row);
    data->setData(mimeType, lines.join(u'\n').toUtf8());
}

std::optional<QList<int>> rows(const QMimeData *data, const QString &mimeType, const QString &owner)
{
    if (!data->hasFormat(mimeType)) return std::nullopt;
    const QStringList lines = QString::fromUtf8(data->data(mimeType)).split(u'\n');
    if (lines.isEmpty() || lines.first() != owner) return std::nullopt;
    QList<int> result;
    for (qsizetype i = 1; i < lines.size(); ++i) {
        bool ok = false;
        const int row = lines.at(i).toInt(&ok);
        if (!ok) return std::nullopt;
        result << row;
    }
    return result;
}

} // namespace DragData
