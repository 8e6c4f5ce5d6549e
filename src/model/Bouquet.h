#pragma once

#include "BouquetEntry.h"
#include "Ids.h"
#include "MediaKind.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QUuid>

// One user bouquet file: display name and ordered entries.
struct Bouquet
{
    QUuid id = freshId();
    QString fileName;
    QString name;
    MediaKind kind;
    QList<BouquetEntry> entries;

    // Reads a bouquet file (UTF-8). Never fails; unknown lines are dropped.
    static Bouquet parse(const QString &fileName, MediaKind kind, QByteArrayView text);
    // The file text: "#NAME", then "#SERVICE"/"#DESCRIPTION" lines, line feeds only, UTF-8.
    QByteArray serialized() const;

    friend bool operator==(const Bouquet &, const Bouquet &) = default;
};

Q_DECLARE_TYPEINFO(Bouquet, Q_RELOCATABLE_TYPE);

size_t qHash(const Bouquet &bouquet, size_t seed = 0) noexcept;
