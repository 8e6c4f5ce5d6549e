#pragma once

#include "Service.h"
#include "Store.h"

#include <QList>
#include <QWidget>

class PiconPixmaps;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QMenu;
class QTableView;
class ServiceFilterModel;
class ServiceTableModel;

// The right-hand pane: every service of the current kind in a filterable table, from which
// services are added to the selected bouquet (double-click, context menu, dragging), renamed or
// deleted from the database. It holds only its filter state; the table's selection is the
// store's service selection.
class ServiceBrowser : public QWidget
{
    Q_OBJECT

public:
    ServiceBrowser(Store &store, PiconPixmaps &picons, QWidget *parent = nullptr);

    QTableView *table() const { return m_table; }
    ServiceFilterModel *filterModel() const { return m_filter; }
    QLineEdit *searchField() const { return m_search; }
    QComboBox *positionPicker() const { return m_position; }
    QCheckBox *unusedToggle() const { return m_unused; }

    // The context menu for a click on this row of the table (filled, not shown); the caller owns it.
    QMenu *contextMenu(int row);
    // Drops the saved widths of the current kind and fits the columns again.
    void resetColumnWidths();
    // The picons changed on disk: repaint them.
    void piconsChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QList<Service> selectedServices() const;
    void showContextMenu(const QPoint &position);
    void rowsReplaced();
    void refreshPositions();
    void fitColumns();
    void applyColumnWidths();
    void columnResized();
    void selectionChanged();
    void restoreSelection();
    void followRenameRequest();
    void followDeleteRequest();

    Store &m_store;
    ServiceTableModel *m_source;
    ServiceFilterModel *m_filter;
    QLineEdit *m_search;
    QComboBox *m_position;
    QCheckBox *m_unused;
    QTableView *m_table;
    // The services the user selected, also those the filter hides for the moment.
    ServiceKeys m_selection;
    bool m_restoring = false;
    bool m_applyingWidths = false;
    // Counts changes of the services and their usage; each kind's fitted widths remember the
    // count they were measured at, so that switching kinds back and forth measures nothing twice.
    quint64 m_textsVersion = 0;
    QHash<MediaKind, quint64> m_fittedAt;
};
