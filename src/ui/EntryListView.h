#pragma once

#include <QListView>
#include <QUuid>

class EntryDelegate;
class EntryListModel;
class PiconPixmaps;
class Store;

// The entries of the selected bouquet. Its selection and focus are the store's entry selection
// and entryListActive; entries are reordered by dragging, services dropped in at the drop position.
class EntryListView : public QListView
{
    Q_OBJECT

public:
    EntryListView(Store &store, PiconPixmaps &picons, QWidget *parent = nullptr);

    EntryListModel *entryModel() const { return m_model; }
    // The entry under the cursor of a context menu, or the single selected one; null otherwise.
    QUuid singleEntry() const;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    void showStoreSelection();

    Store &m_store;
    EntryListModel *m_model;
    EntryDelegate *m_delegate;
    bool m_syncing = false;
};
