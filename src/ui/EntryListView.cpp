#include "EntryListView.h"

#include "EntryDelegate.h"
#include "EntryListModel.h"
#include "SpaceZap.h"
#include "Store.h"

#include <QDropEvent>
#include <QPainter>

EntryListView::EntryListView(Store &store, PiconPixmaps &picons, QWidget *parent)
    : QListView(parent)
    , m_store(store)
    , m_model(new EntryListModel(&store, this))
    , m_delegate(new EntryDelegate(picons, this))
{
    setModel(m_model);
    setItemDelegate(m_delegate);
    // Fixed row heights keep long bouquets fast to lay out.
    setUniformItemSizes(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setDropIndicatorShown(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
    SpaceZap::markList(this);

    connect(&store, &Store::entrySelectionChanged, this, &EntryListView::showStoreSelection);
    // A new bouquet or kind resets the model: show what the store holds.
    connect(m_model, &QAbstractItemModel::modelReset, this, &EntryListView::showStoreSelection);
    connect(m_model, &QAbstractItemModel::modelReset, viewport(), qOverload<>(&QWidget::update));
}

QUuid EntryListView::singleEntry() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    if (rows.size() != 1)
        return {};
    return rows.first().data(EntryListModel::IdRole).toUuid();
}

void EntryListView::focusInEvent(QFocusEvent *event)
{
    QListView::focusInEvent(event);
    m_store.setEntryListActive(true);
}

void EntryListView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QListView::selectionChanged(selected, deselected);
    if (m_syncing)
        return;
    // A selection that came from the store is not written back to it.
    EntryIds ids;
    const QModelIndexList rows = selectionModel()->selectedRows();
    for (const QModelIndex &row : rows)
        ids.insert(row.data(EntryListModel::IdRole).toUuid());
    m_syncing = true;
    m_store.setEntrySelection(ids);
    m_syncing = false;
}

void EntryListView::showStoreSelection()
{
    if (m_syncing)
        return;
    const EntryIds &ids = m_store.entrySelection();
    QItemSelection selection;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row);
        if (ids.contains(index.data(EntryListModel::IdRole).toUuid()))
            selection.select(index, index);
    }
    m_syncing = true;
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    m_syncing = false;
}

void EntryListView::dropEvent(QDropEvent *event)
{
    // The model turns the drop into one move or one insertion; the list view's own row-by-row
    // moving is skipped. Reported as a copy, so that the drag's source removes nothing.
    QAbstractItemView::dropEvent(event);
    if (event->isAccepted())
        event->setDropAction(Qt::CopyAction);
}

void EntryListView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (m_model->rowCount() > 0 || m_model->bouquetID().isNull())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("Sender aus der Liste rechts hierher ziehen oder doppelklicken."));
}
