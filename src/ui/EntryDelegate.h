#pragma once

#include <QStyledItemDelegate>

class PiconPixmaps;

// Paints one bouquet entry: its position, its picon and its name; a marker as a captioned
// separator line across the row. Every row has the same height.
class EntryDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    EntryDelegate(PiconPixmaps &picons, QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    int rowHeight() const;

private:
    PiconPixmaps &m_picons;
};
