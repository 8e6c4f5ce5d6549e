#include "BouquetSidebar.h"

#include "BouquetListModel.h"
#include "Store.h"

#include <QDropEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

// A bouquet's name with its number of entries at the right, in rows with some air.
class BouquetDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return QSize(size.width(), size.height() + 10);
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QString name = item.text;
        item.text.clear();
        const QWidget *widget = option.widget;
        widget->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);

        const bool selected = option.state & QStyle::State_Selected;
        const QPalette::ColorGroup group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
        const QColor text = option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
        const QColor dim = selected ? text : option.palette.color(group, QPalette::PlaceholderText);
        const QRect row = option.rect.adjusted(8, 0, -8, 0);
        const QString count = QString::number(index.data(BouquetListModel::EntryCountRole).toInt());
        const int countWidth = option.fontMetrics.horizontalAdvance(count);
        painter->save();
        painter->setPen(dim);
        painter->drawText(row, Qt::AlignVCenter | Qt::AlignRight, count);
        painter->setPen(text);
        const QRect nameRect = row.adjusted(0, 0, -countWidth - 8, 0);
        painter->drawText(nameRect, Qt::AlignVCenter | Qt::AlignLeft,
                          option.fontMetrics.elidedText(name, Qt::ElideRight, nameRect.width()));
        painter->restore();
    }
};

} // namespace

BouquetSidebar::BouquetSidebar(Store &store, QWidget *parent)
    : QListView(parent)
    , m_store(store)
    , m_model(new BouquetListModel(&store, this))
{
    // Before the view's own handler, which runs in connection order.
    connect(m_model, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this] { m_removing = true; });
    setModel(m_model);
    setItemDelegate(new BouquetDelegate(this));
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(EditKeyPressed);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setDropIndicatorShown(true);
    setContextMenuPolicy(Qt::CustomContextMenu);

    connect(&store, &Store::selectedBouquetIDChanged, this, &BouquetSidebar::showStoreSelection);
    connect(m_model, &QAbstractItemModel::modelReset, this, &BouquetSidebar::showStoreSelection);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &BouquetSidebar::showStoreSelection);
    connect(m_model, &QAbstractItemModel::rowsMoved, this, &BouquetSidebar::showStoreSelection);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, [this] {
        m_removing = false;
        showStoreSelection();
    });
    connect(&store, &Store::newBouquetRequestChanged, this, &BouquetSidebar::followNewBouquetRequest);
    showStoreSelection();
}

QModelIndex BouquetSidebar::indexOf(const QUuid &bouquet) const
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row);
        if (index.data(BouquetListModel::IdRole).toUuid() == bouquet)
            return index;
    }
    return {};
}

void BouquetSidebar::rename(const QUuid &bouquet)
{
    const QModelIndex index = indexOf(bouquet);
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    scrollTo(index);
    edit(index);
}

void BouquetSidebar::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QListView::selectionChanged(selected, deselected);
    if (m_syncing || m_removing)
        return;
    const QModelIndexList rows = selectionModel()->selectedRows();
    // Clicking beside the bouquets keeps the shown one.
    if (rows.isEmpty()) {
        showStoreSelection();
        return;
    }
    m_syncing = true;
    m_store.setSelectedBouquetID(rows.first().data(BouquetListModel::IdRole).toUuid());
    m_syncing = false;
}

void BouquetSidebar::showStoreSelection()
{
    if (m_syncing)
        return;
    const QModelIndex index = indexOf(m_store.selectedBouquetID());
    m_syncing = true;
    if (index.isValid()) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        scrollTo(index);
    } else {
        selectionModel()->clearSelection();
    }
    m_syncing = false;
}

void BouquetSidebar::followNewBouquetRequest()
{
    const QUuid request = m_store.newBouquetRequest();
    if (request.isNull())
        return;
    // Answered once: the request is cleared before the editor opens.
    m_store.setNewBouquetRequest({});
    rename(request);
}

void BouquetSidebar::dropEvent(QDropEvent *event)
{
    // The model makes one move or one insertion of the drop; see EntryListView::dropEvent.
    QAbstractItemView::dropEvent(event);
    if (event->isAccepted())
        event->setDropAction(Qt::CopyAction);
}
