#pragma once

#include "Bouquet.h"
#include "IdListModel.h"

class Store;

// The bouquets of the current kind, for the sidebar: renamed in place, reordered by dragging, and
// a drop target for service references.
class BouquetListModel : public IdListModel<Bouquet>
{
    Q_OBJECT

public:
    enum Role { IdRole = Qt::UserRole + 1, FileNameRole, EntryCountRole };
    // Rows dragged within the sidebar: the kind's raw value, then the row numbers.
    static inline const QString rowsMimeType = QStringLiteral("application/x-corvandel-bouquet-rows");

    explicit BouquetListModel(Store *store, QObject *parent = nullptr);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QHash<int, QByteArray> roleNames() const override;

    Qt::DropActions supportedDragActions() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

protected:
    void moveItems(const QSet<qsizetype> &rows, qsizetype to) override;
    QString rowsOwner() const override { return m_kind.rawValue(); }

private:
    void follow();

    Store *m_store;
    MediaKind m_kind;
};
