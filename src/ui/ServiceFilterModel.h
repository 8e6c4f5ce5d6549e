#pragma once

#include "ServiceTableModel.h"

#include <QAbstractProxyModel>
#include <QList>
#include <QPixmap>
#include <QString>

#include <functional>
#include <vector>

// The rows of the service table that pass the browser's filters: position, only unused, and a
// search text found in the name or the provider, case-insensitively. Keeps the source rows that
// pass and the case-folded texts of every row, so that one keystroke filters 100,000 services
// without a sort-filter proxy's per-row bookkeeping.
class ServiceFilterModel : public QAbstractProxyModel
{
    Q_OBJECT

public:
    // The picon shown beside a name: a null pixmap when there is none.
    using PiconSource = std::function<QPixmap(const QString &reference)>;

    explicit ServiceFilterModel(QObject *parent = nullptr);

    // Takes a ServiceTableModel; any other model is refused.
    void setSourceModel(QAbstractItemModel *sourceModel) override;
    ServiceTableModel *serviceModel() const { return m_source; }
    void setPiconSource(PiconSource source);
    // Tells the view that every picon may have changed.
    void piconsChanged();

    const QString &search() const { return m_search; }
    void setSearch(const QString &search);
    // A position label; empty shows every position.
    const QString &position() const { return m_position; }
    void setPosition(const QString &position);
    bool onlyUnused() const { return m_onlyUnused; }
    void setOnlyUnused(bool onlyUnused);

    // The position labels among all rows of the source, without the empty one.
    QStringList positions() const;
    const Service &serviceAt(int row) const;

    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;

signals:
    // After the rows were filtered anew (the view restores its selection then).
    void filtered();
    // The source's rows were replaced: the position labels may differ.
    void sourceRowsReplaced();

private:
    bool accepts(int sourceRow) const;
    // Filters again; `narrowing` when only rows shown now can pass, so only those are tested.
    void refilter(bool narrowing);
    void sourceReset();
    void sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QList<int> &roles);

    ServiceTableModel *m_source = nullptr;
    PiconSource m_picons;
    QString m_search;
    QString m_foldedSearch;
    QString m_position;
    bool m_onlyUnused = false;
    // Case-folded name and provider of every source row.
    QList<QString> m_foldedNames;
    QList<QString> m_foldedProviders;
    std::vector<int> m_rows;
    // The row of each source row here, or -1.
    std::vector<int> m_proxyRows;
    QList<QMetaObject::Connection> m_connections;
};
