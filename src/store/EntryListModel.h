#pragma once

#include "BouquetEntry.h"
#include "IdListModel.h"
#include "MediaKind.h"

#include <QUuid>

class Store;

// The entries of the selected bouquet: display names, references, markers and positions. Accepts
// service references dropped from the service table and reorders entries dragged within itself.
class EntryListModel : public IdListModel<BouquetEntry>
{
    Q_OBJECT

public:
    enum Role { IdRole = Qt::UserRole + 1, ReferenceRole, MarkerRole, PositionRole, ServiceKnownRole };
    // Rows dragged within the entry list: the bouquet's id, then the row numbers.
    static inline const QString rowsMimeType = QStringLiteral("application/x-corvandel-entry-rows");

    explicit EntryListModel(Store *store, QObject *parent = nullptr);

    // The bouquet shown; null when none is selected.
    QUuid bouquetID() const { return m_bouquetID; }

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
    QString rowsOwner() const override { return m_bouquetID.toString(); }

private:
    void follow();
    void namesChanged();

    Store *m_store;
    MediaKind m_kind;
    QUuid m_bouquetID;
};
