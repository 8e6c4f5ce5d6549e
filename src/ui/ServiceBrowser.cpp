#include "ServiceBrowser.h"

#include "ColumnLayout.h"
#include "PiconPixmaps.h"
#include "ServiceFilterModel.h"
#include "ServiceTableModel.h"
#include "Sheets.h"
#include "SpaceZap.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Degrees east of a satellite position label ("19.2E", "0.8W" = -0.8); none for other labels.
std::optional<double> degreesEast(const QString &label)
{
    if (label.size() < 2 || (!label.endsWith(u'E') && !label.endsWith(u'W')))
        return std::nullopt;
    bool ok = false;
    const double degrees = label.chopped(1).toDouble(&ok);
    if (!ok)
        return std::nullopt;
    return label.endsWith(u'E') ? degrees : -degrees;
}

// Satellites from east to west, then cable, terrestrial and the rest by name.
bool positionBefore(const QString &a, const QString &b)
{
    const std::optional<double> eastA = degreesEast(a);
    const std::optional<double> eastB = degreesEast(b);
    if (eastA && eastB)
        return *eastA > *eastB;
    if (eastA || eastB)
        return eastA.has_value();
    return a < b;
}

} // namespace

ServiceBrowser::ServiceBrowser(Store &store, PiconPixmaps &picons, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_source(nullptr)
    , m_filter(new ServiceFilterModel(this))
    , m_search(new QLineEdit(this))
    , m_position(new QComboBox(this))
    , m_unused(new QCheckBox(tr("Nur unbenutzte"), this))
    , m_table(new QTableView(this))
{
    // Counted before the table model reloads on the same signals.
    connect(&store, &Store::servicesChanged, this, [this] { ++m_textsVersion; });
    connect(&store, &Store::usageChanged, this, [this] { ++m_textsVersion; });
    m_source = new ServiceTableModel(&store, this);

    m_search->setPlaceholderText(tr("Sender oder Anbieter suchen"));
    m_search->setClearButtonEnabled(true);
    m_position->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_position->setToolTip(tr("Position"));

    m_filter->setSourceModel(m_source);
    // Names without a picon line up with the others.
    QPixmap blank(picons.size());
    blank.fill(Qt::transparent);
    m_filter->setPiconSource([&picons, blank](const QString &reference) {
        const QPixmap picon = picons.pixmap(reference);
        return picon.isNull() ? blank : picon;
    });
    m_table->setModel(m_filter);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setDragEnabled(true);
    m_table->setDragDropMode(QAbstractItemView::DragOnly);
    m_table->setDefaultDropAction(Qt::CopyAction);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setIconSize(picons.size());
    m_table->setContextMenuPolicy(Qt::CustomContextMenu);
    // Fixed row heights: 100,000 rows are laid out without measuring any of them.
    QHeaderView *rows = m_table->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(picons.size().height() + 4);
    QHeaderView *columns = m_table->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::Interactive);
    columns->setStretchLastSection(false);
    columns->setHighlightSections(false);
    columns->setContextMenuPolicy(Qt::CustomContextMenu);
    m_table->installEventFilter(this);
    SpaceZap::markList(m_table);

    auto *filters = new QHBoxLayout;
    filters->addWidget(m_search, 1);
    filters->addWidget(m_position);
    filters->addWidget(m_unused);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(filters);
    layout->addWidget(m_table, 1);

    connect(m_search, &QLineEdit::textChanged, m_filter, &ServiceFilterModel::setSearch);
    connect(m_position, &QComboBox::currentIndexChanged, this,
            [this] { m_filter->setPosition(m_position->currentData().toString()); });
    connect(m_unused, &QCheckBox::toggled, m_filter, &ServiceFilterModel::setOnlyUnused);
    connect(m_filter, &ServiceFilterModel::filtered, this, &ServiceBrowser::restoreSelection);
    connect(m_filter, &ServiceFilterModel::sourceRowsReplaced, this, &ServiceBrowser::rowsReplaced);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ServiceBrowser::selectionChanged);
    connect(m_table, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &index) {
        if (index.isValid())
            m_store.add({m_filter->serviceAt(index.row())});
    });
    connect(m_table, &QWidget::customContextMenuRequested, this, &ServiceBrowser::showContextMenu);
    connect(columns, &QHeaderView::sectionResized, this, &ServiceBrowser::columnResized);
    connect(columns, &QWidget::customContextMenuRequested, this, [this](const QPoint &position) {
        auto *menu = new QMenu(this);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->addAction(tr("Spaltenbreiten zurücksetzen"), this, &ServiceBrowser::resetColumnWidths);
        menu->popup(m_table->horizontalHeader()->mapToGlobal(position));
    });
    connect(&store, &Store::satelliteNamesChanged, this, &ServiceBrowser::refreshPositions);
    connect(&store, &Store::serviceRenameRequestChanged, this, &ServiceBrowser::followRenameRequest);
    connect(&store, &Store::serviceDeleteRequestChanged, this, &ServiceBrowser::followDeleteRequest);

    for (MediaKind kind : MediaKind::allCases())
        m_store.setWidths(kind, ColumnLayout::saved(kind).value_or(ColumnWidths()));
    rowsReplaced();
}

bool ServiceBrowser::eventFilter(QObject *watched, QEvent *event)
{
    // Commands such as delete and the space bar act on the list that has the focus.
    if (watched == m_table && event->type() == QEvent::FocusIn)
        m_store.setEntryListActive(false);
    return QWidget::eventFilter(watched, event);
}

void ServiceBrowser::piconsChanged()
{
    m_filter->piconsChanged();
}

QList<Service> ServiceBrowser::selectedServices() const
{
    QList<int> rows;
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    QList<Service> services;
    for (int row : std::as_const(rows))
        services << m_filter->serviceAt(row);
    return services;
}

QMenu *ServiceBrowser::contextMenu(int row)
{
    // A click outside the selection acts on the clicked row alone.
    const QModelIndex clicked = m_filter->index(row, 0);
    if (!m_table->selectionModel()->isRowSelected(row, {}))
        m_table->selectionModel()->select(clicked, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const QList<Service> services = selectedServices();
    const qsizetype count = services.size();
    ServiceKeys keys;
    for (const Service &service : services)
        keys.insert(service.key);

    auto *menu = new QMenu(this);
    QAction *add = menu->addAction(count == 1 ? tr("Zum Bouquet hinzufügen")
                                              : tr("%1 Sender zum Bouquet hinzufügen").arg(count),
                                   this, [this, services] { m_store.add(services); });
    add->setEnabled(m_store.selectedBouquet().has_value());
    if (count == 1) {
        menu->addAction(tr("Sender umbenennen…"), this,
                        [this, service = services.first()] { m_store.setServiceRenameRequest(service); });
    }
    menu->addAction(count < 2 ? tr("Sender aus der lamedb löschen…")
                              : tr("%1 Sender aus der lamedb löschen…").arg(count),
                    this, [this, keys] { m_store.setServiceDeleteRequest(keys); });
    return menu;
}

void ServiceBrowser::showContextMenu(const QPoint &position)
{
    const QModelIndex index = m_table->indexAt(position);
    if (!index.isValid())
        return;
    QMenu *menu = contextMenu(index.row());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_table->viewport()->mapToGlobal(position));
}

void ServiceBrowser::rowsReplaced()
{
    refreshPositions();
    fitColumns();
}

void ServiceBrowser::refreshPositions()
{
    // The chosen position stays chosen while the new list still has it.
    const QString current = m_position->currentData().toString();
    QStringList labels = m_filter->positions();
    std::sort(labels.begin(), labels.end(), positionBefore);
    const QSignalBlocker blocker(m_position);
    m_position->clear();
    m_position->addItem(tr("Alle"), QString());
    const SatelliteNames &names = m_store.satelliteNames();
    for (const QString &label : std::as_const(labels)) {
        const QString name = names.value(label);
        m_position->addItem(name.isEmpty() ? label : label + u"  "_s + name, label);
    }
    const int index = current.isEmpty() ? 0 : m_position->findData(current);
    m_position->setCurrentIndex(std::max(index, 0));
    m_filter->setPosition(m_position->currentData().toString());
}

void ServiceBrowser::fitColumns()
{
    const MediaKind kind = m_store.kind();
    // Switching back to a kind whose texts did not change keeps its widths.
    if (!m_fittedAt.contains(kind) || m_fittedAt.value(kind) != m_textsVersion
        || !m_store.fittedWidths().contains(kind)) {
        QStringList titles;
        for (int column = 0; column < ServiceTableModel::ColumnCount; ++column)
            titles << m_source->headerData(column, Qt::Horizontal).toString();
        // Header titles are measured a little heavier than the cells.
        QFont titleFont = m_table->horizontalHeader()->font();
        titleFont.setBold(true);
        // The picon shares the name's cell.
        const double piconWidth = m_table->iconSize().width() + 6;
        m_store.setFittedWidths(kind, ColumnLayout::fitted(m_store.services(), kind, m_store.usage(), titles,
                                                           m_table->font(), titleFont, piconWidth));
        m_fittedAt.insert(kind, m_textsVersion);
    }
    applyColumnWidths();
}

void ServiceBrowser::applyColumnWidths()
{
    const MediaKind kind = m_store.kind();
    const ColumnWidths saved = m_store.widths().value(kind);
    const ColumnWidths widths = saved.size() == 4 ? saved : m_store.fittedWidths().value(kind);
    const QStringList names = ColumnLayout::identifiers();
    m_applyingWidths = true;
    for (int column = 0; column < names.size(); ++column) {
        if (widths.contains(names.at(column)))
            m_table->horizontalHeader()->resizeSection(column, qRound(widths.value(names.at(column))));
    }
    m_applyingWidths = false;
}

void ServiceBrowser::columnResized()
{
    // Only widths the user set are saved, never the fitted ones.
    if (m_applyingWidths)
        return;
    ColumnWidths widths;
    const QStringList names = ColumnLayout::identifiers();
    for (int column = 0; column < names.size(); ++column)
        widths.insert(names.at(column), m_table->horizontalHeader()->sectionSize(column));
    ColumnLayout::save(m_store.kind(), widths);
    m_store.setWidths(m_store.kind(), widths);
}

void ServiceBrowser::resetColumnWidths()
{
    ColumnLayout::forget(m_store.kind());
    m_store.setWidths(m_store.kind(), {});
    applyColumnWidths();
}

void ServiceBrowser::selectionChanged()
{
    if (m_restoring)
        return;
    ServiceKeys keys;
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    for (const QModelIndex &index : rows)
        keys.insert(m_filter->serviceAt(index.row()).key);
    m_selection = keys;
    m_store.setServiceSelection(keys);
}

void ServiceBrowser::restoreSelection()
{
    // Filtering resets the table; the services still shown stay selected.
    ServiceKeys shown;
    QItemSelection selection;
    if (!m_selection.isEmpty()) {
        const int lastColumn = m_filter->columnCount() - 1;
        int first = -1;
        const auto close = [&](int last) {
            if (first >= 0)
                selection.append(QItemSelectionRange(m_filter->index(first, 0), m_filter->index(last, lastColumn)));
            first = -1;
        };
        for (int row = 0; row < m_filter->rowCount(); ++row) {
            const ServiceKey &key = m_filter->serviceAt(row).key;
            if (m_selection.contains(key)) {
                shown.insert(key);
                first = first < 0 ? row : first;
            } else {
                close(row - 1);
            }
        }
        close(m_filter->rowCount() - 1);
    }
    m_restoring = true;
    m_table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    m_restoring = false;
    m_store.setServiceSelection(shown);
}

void ServiceBrowser::followRenameRequest()
{
    const std::optional<Service> service = m_store.serviceRenameRequest();
    if (!service)
        return;
    QInputDialog *dialog = Sheets::askText(
        window(), tr("Sender umbenennen"), tr("Neuer Name für „%1“:").arg(service->name), service->name,
        tr("Umbenennen"), [this, key = service->key](const QString &name) { m_store.renameService(key, name); });
    connect(dialog, &QDialog::finished, this, [this] { m_store.setServiceRenameRequest(std::nullopt); });
}

void ServiceBrowser::followDeleteRequest()
{
    const std::optional<ServiceKeys> keys = m_store.serviceDeleteRequest();
    if (!keys)
        return;
    const QString details = tr("Einträge in Bouquets werden dabei mit entfernt.") + u'\n'
        + tr("Sender: %1 · Einträge in Bouquets: %2").arg(keys->size()).arg(m_store.bouquetUses(*keys));
    QMessageBox *box = Sheets::confirm(window(), tr("Sender aus der lamedb löschen?"), details,
                                       tr("Löschen"), [this, keys = *keys] { m_store.deleteServices(keys); });
    connect(box, &QDialog::finished, this, [this] { m_store.setServiceDeleteRequest(std::nullopt); });
}
