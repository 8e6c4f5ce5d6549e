#include "EntryDelegate.h"

#include "EntryListModel.h"
#include "PiconPixmaps.h"

#include <QApplication>
#include <QPainter>

namespace {

constexpr int numberWidth = 44;
constexpr int gap = 8;

} // namespace

EntryDelegate::EntryDelegate(PiconPixmaps &picons, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_picons(picons)
{
}

int EntryDelegate::rowHeight() const
{
    return m_picons.size().height() + 6;
}

QSize EntryDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    Q_UNUSED(index)
    return QSize(option.rect.width(), std::max(rowHeight(), option.fontMetrics.height() + 6));
}

void EntryDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // The style draws the row's background and selection; the content is drawn here.
    QStyleOptionViewItem panel = option;
    initStyleOption(&panel, index);
    panel.text.clear();
    panel.icon = {};
    const QWidget *widget = option.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &panel, painter, widget);

    const bool selected = option.state & QStyle::State_Selected;
    const QPalette::ColorGroup group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    const QColor text = option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor dim = selected ? text : option.palette.color(group, QPalette::PlaceholderText);
    const QString name = index.data(Qt::DisplayRole).toString();
    const QRect row = option.rect.adjusted(4, 0, -4, 0);

    painter->save();
    if (index.data(EntryListModel::MarkerRole).toBool()) {
        // A separator: the caption between two lines.
        QFont font = option.font;
        font.setBold(true);
        painter->setFont(font);
        const QFontMetrics metrics(font);
        const QString caption = metrics.elidedText(name, Qt::ElideRight, row.width() - 4 * gap);
        const int captionWidth = metrics.horizontalAdvance(caption);
        const int left = row.left() + numberWidth;
        const QRect captionRect(left + gap, row.top(), captionWidth, row.height());
        painter->setPen(text);
        painter->drawText(captionRect, Qt::AlignVCenter | Qt::AlignLeft, caption);
        painter->setPen(QPen(dim, 1));
        const int y = row.center().y();
        painter->drawLine(row.left() + gap, y, left, y);
        painter->drawLine(captionRect.right() + gap, y, row.right(), y);
        painter->restore();
        return;
    }

    const QRect numberRect(row.left(), row.top(), numberWidth - gap, row.height());
    painter->setPen(dim);
    painter->drawText(numberRect, Qt::AlignVCenter | Qt::AlignRight,
                      QString::number(index.data(EntryListModel::PositionRole).toInt()));

    const QSize piconSize = m_picons.size();
    const QRect piconRect(numberRect.right() + gap, row.top() + (row.height() - piconSize.height()) / 2,
                          piconSize.width(), piconSize.height());
    const QPixmap picon = m_picons.pixmap(index.data(EntryListModel::ReferenceRole).toString());
    if (!picon.isNull()) {
        const QSize shown = picon.deviceIndependentSize().toSize();
        painter->drawPixmap(piconRect.left() + (piconRect.width() - shown.width()) / 2,
                            piconRect.top() + (piconRect.height() - shown.height()) / 2, picon);
    }

    // Entries whose service is missing from the database read as such.
    QFont font = option.font;
    const bool known = index.data(EntryListModel::ServiceKnownRole).toBool();
    font.setItalic(!known);
    painter->setFont(font);
    painter->setPen(known ? text : dim);
    const QRect nameRect(piconRect.right() + gap, row.top(), row.right() - piconRect.right() - gap, row.height());
    painter->drawText(nameRect, Qt::AlignVCenter | Qt::AlignLeft,
                      QFontMetrics(font).elidedText(name, Qt::ElideRight, nameRect.width()));
    painter->restore();
}
