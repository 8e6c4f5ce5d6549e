#include "ServiceFilterModel.h"

#include <QIcon>
#include <QSet>

ServiceFilterModel::ServiceFilterModel(QObject *parent)
    : QAbstractProxyModel(parent)
{
}

void ServiceFilterModel::setSourceModel(QAbstractItemModel *sourceModel)
{
    auto *source = qobject_cast<ServiceTableModel *>(sourceModel);
    if (sourceModel && !source) {
        qWarning("ServiceFilterModel takes a ServiceTableModel only");
        return;
    }
    beginResetModel();
    for (const QMetaObject::Connection &connection : std::as_const(m_connections))
        disconnect(connection);
    m_connections.clear();
    m_source = source;
    QAbstractProxyModel::setSourceModel(source);
    if (source) {
        // The service table replaces its rows wholesale; anything else is treated the same way.
        const auto replaced = [this] { sourceReset(); };
        m_connections << connect(source, &QAbstractItemModel::modelReset, this, replaced)
                      << connect(source, &QAbstractItemModel::rowsInserted, this, replaced)
                      << connect(source, &QAbstractItemModel::rowsRemoved, this, replaced)
                      << connect(source, &QAbstractItemModel::rowsMoved, this, replaced)
                      << connect(source, &QAbstractItemModel::layoutChanged, this, replaced)
                      << connect(source, &QAbstractItemModel::dataChanged, this,
                                 &ServiceFilterModel::sourceDataChanged);
    }
    m_foldedNames.clear();
    m_foldedProviders.clear();
    m_rows.clear();
    m_proxyRows.clear();
    endResetModel();
    sourceReset();
}

void ServiceFilterModel::setPiconSource(PiconSource source)
{
    m_picons = std::move(source);
    piconsChanged();
}

void ServiceFilterModel::piconsChanged()
{
    if (!m_rows.empty())
        emit dataChanged(index(0, ServiceTableModel::NameColumn),
                         index(int(m_rows.size() - 1), ServiceTableModel::NameColumn), {Qt::DecorationRole});
}

void ServiceFilterModel::setSearch(const QString &search)
{
    if (search == m_search)
        return;
    const QString folded = search.toCaseFolded();
    // A longer text that contains the old one can only hide rows.
    const bool narrowing = folded.contains(m_foldedSearch);
    m_search = search;
    m_foldedSearch = folded;
    refilter(narrowing);
}

void ServiceFilterModel::setPosition(const QString &position)
{
    if (position == m_position)
        return;
    const bool narrowing = m_position.isEmpty();
    m_position = position;
    refilter(narrowing);
}

void ServiceFilterModel::setOnlyUnused(bool onlyUnused)
{
    if (onlyUnused == m_onlyUnused)
        return;
    m_onlyUnused = onlyUnused;
    refilter(onlyUnused);
}

QStringList ServiceFilterModel::positions() const
{
    QSet<QString> seen;
    QStringList labels;
    const int count = m_source ? m_source->rowCount() : 0;
    for (int row = 0; row < count; ++row) {
        const QString &label = m_source->serviceAt(row).position;
        if (!label.isEmpty() && !seen.contains(label)) {
            seen.insert(label);
            labels << label;
        }
    }
    return labels;
}

const Service &ServiceFilterModel::serviceAt(int row) const
{
    return m_source->serviceAt(m_rows.at(size_t(row)));
}

bool ServiceFilterModel::accepts(int sourceRow) const
{
    // Cheapest test first; the kind is already the source's.
    const Service &service = m_source->serviceAt(sourceRow);
    if (!m_position.isEmpty() && service.position != m_position)
        return false;
    if (m_onlyUnused
        && m_source->data(m_source->index(sourceRow, ServiceTableModel::UsageColumn), ServiceTableModel::UsageRole)
                   .toInt()
            > 0)
        return false;
    if (m_foldedSearch.isEmpty())
        return true;
    return m_foldedNames.at(sourceRow).contains(m_foldedSearch)
        || m_foldedProviders.at(sourceRow).contains(m_foldedSearch);
}

void ServiceFilterModel::refilter(bool narrowing)
{
    const int count = m_source ? m_source->rowCount() : 0;
    std::vector<int> rows;
    if (narrowing) {
        rows.reserve(m_rows.size());
        for (int row : m_rows) {
            if (accepts(row))
                rows.push_back(row);
        }
    } else {
        rows.reserve(size_t(count));
        for (int row = 0; row < count; ++row) {
            if (accepts(row))
                rows.push_back(row);
        }
    }
    // One reset instead of row notifications: a keystroke may hide tens of thousands of scattered
    // rows, and a view lays out a reset of fixed-height rows at once.
    beginResetModel();
    m_rows = std::move(rows);
    m_proxyRows.assign(size_t(count), -1);
    for (size_t i = 0; i < m_rows.size(); ++i)
        m_proxyRows[size_t(m_rows[i])] = int(i);
    endResetModel();
    emit filtered();
}

void ServiceFilterModel::sourceReset()
{
    const int count = m_source ? m_source->rowCount() : 0;
    m_foldedNames.resize(count);
    m_foldedProviders.resize(count);
    for (int row = 0; row < count; ++row) {
        const Service &service = m_source->serviceAt(row);
        m_foldedNames[row] = service.name.toCaseFolded();
        m_foldedProviders[row] = service.provider.toCaseFolded();
    }
    refilter(false);
    emit sourceRowsReplaced();
}

void ServiceFilterModel::sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                           const QList<int> &roles)
{
    // Usage decides about rows only while unused services alone are shown.
    if (m_onlyUnused && topLeft.column() <= ServiceTableModel::UsageColumn
        && bottomRight.column() >= ServiceTableModel::UsageColumn) {
        refilter(false);
        return;
    }
    int first = -1;
    int last = -1;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        const int shown = m_proxyRows.at(size_t(row));
        if (shown < 0)
            continue;
        first = first < 0 ? shown : std::min(first, shown);
        last = std::max(last, shown);
    }
    if (first >= 0)
        emit dataChanged(index(first, topLeft.column()), index(last, bottomRight.column()), roles);
}

QModelIndex ServiceFilterModel::mapToSource(const QModelIndex &proxyIndex) const
{
    if (!m_source || !proxyIndex.isValid() || proxyIndex.model() != this)
        return {};
    return m_source->index(m_rows.at(size_t(proxyIndex.row())), proxyIndex.column());
}

QModelIndex ServiceFilterModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    if (!m_source || !sourceIndex.isValid() || sourceIndex.model() != m_source
        || size_t(sourceIndex.row()) >= m_proxyRows.size())
        return {};
    const int row = m_proxyRows.at(size_t(sourceIndex.row()));
    return row < 0 ? QModelIndex() : createIndex(row, sourceIndex.column());
}

QModelIndex ServiceFilterModel::index(int row, int column, const QModelIndex &parent) const
{
    if (parent.isValid() || row < 0 || column < 0 || row >= rowCount() || column >= columnCount())
        return {};
    return createIndex(row, column);
}

QModelIndex ServiceFilterModel::parent(const QModelIndex &child) const
{
    Q_UNUSED(child)
    return {};
}

int ServiceFilterModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ServiceFilterModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_source ? 0 : m_source->columnCount();
}

bool ServiceFilterModel::hasChildren(const QModelIndex &parent) const
{
    return !parent.isValid() && !m_rows.empty();
}

QVariant ServiceFilterModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::DecorationRole && index.isValid() && index.column() == ServiceTableModel::NameColumn) {
        if (!m_picons)
            return {};
        const QPixmap picon = m_picons(reference(serviceAt(index.row())));
        if (picon.isNull())
            return {};
        // A logo keeps its colours in a selected row.
        QIcon icon(picon);
        icon.addPixmap(picon, QIcon::Selected);
        return icon;
    }
    return QAbstractProxyModel::data(index, role);
}
