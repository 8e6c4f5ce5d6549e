#pragma once

#include <QListView>
#include <QUuid>

class BouquetListModel;
class Store;

// The bouquets of the current kind. Selecting one shows it in the entry list; bouquets are
// reordered by dragging, renamed in place, and take services dropped onto them.
class BouquetSidebar : public QListView
{
    Q_OBJECT

public:
    explicit BouquetSidebar(Store &store, QWidget *parent = nullptr);

    BouquetListModel *bouquetModel() const { return m_model; }
    QModelIndex indexOf(const QUuid &bouquet) const;
    // Starts renaming the bouquet in place.
    void rename(const QUuid &bouquet);

protected:
    void dropEvent(QDropEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    void showStoreSelection();
    void followNewBouquetRequest();

    Store &m_store;
    BouquetListModel *m_model;
    bool m_syncing = false;
    // While rows go away the view picks a neighbour of its own; the store decides instead.
    bool m_removing = false;
};
