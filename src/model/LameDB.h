#pragma once

#include "Error.h"
#include "Service.h"
#include "ServiceEdit.h"
#include "Transponder.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QString>

// The only failure of the database reader: a header it does not know.
class LameDBError : public Error
{
public:
    enum Case { unknownFormat };
    explicit LameDBError(Case c = unknownFormat) : m_case(c) {}
    Case errorCase() const { return m_case; }
    QString description() const override;

private:
    Case m_case;
};

// Reader and in-place editor of the service database, `lamedb` (format 4, also 3) and `lamedb5`.
// Texts are UTF-8 bytes; invalid sequences are read as replacement characters.
namespace LameDB {

struct Database
{
    QHash<QString, Transponder> transponders; // by tpKey
    QList<Service> services;                  // file order, duplicates kept
};

// Chooses the format by the header; throws LameDBError for any other header.
Database parse(QByteArrayView text);
Database parseV4(QByteArrayView text);
Database parseV5(QByteArrayView text);

// Trimmed hexadecimal; empty, unreadable or over 32 bits gives 0.
quint32 hex(QByteArrayView piece);
// "ns:tsid:onid" in decimal.
QString tpKey(quint32 ns, quint32 tsid, quint32 onid);
// The text after "p:" of the first data piece that starts with it; "" when there is none.
QString provider(QByteArrayView from);

// The text with renames and deletions applied line by line; everything else byte for byte.
QByteArray applying(const ServiceEdits &edits, const QByteArray &to);

} // namespace LameDB
