#pragma once

#include "ServiceKey.h"

#include <QHash>
#include <QString>

// A pending change of one service in the database: a rename or a deletion.
class ServiceEdit
{
public:
    static ServiceEdit rename(QString newName) { return ServiceEdit(false, std::move(newName)); }
    // `delete` is a C++ keyword.
    static ServiceEdit deletion() { return ServiceEdit(true, {}); }

    bool isDeletion() const { return m_deletion; }
    bool isRename() const { return !m_deletion; }
    // The new name of a rename; empty for a deletion.
    const QString &newName() const { return m_newName; }

    friend bool operator==(const ServiceEdit &, const ServiceEdit &) = default;

private:
    ServiceEdit(bool deletion, QString newName) : m_deletion(deletion), m_newName(std::move(newName)) {}

    bool m_deletion;
    QString m_newName;
};

inline size_t qHash(const ServiceEdit &edit, size_t seed = 0) noexcept
{
    return qHashMulti(seed, edit.isDeletion(), edit.newName());
}

// The store's pending edits, one per service at most.
using ServiceEdits = QHash<ServiceKey, ServiceEdit>;
