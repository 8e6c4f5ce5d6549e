#pragma once

#include "Bouquet.h"
#include "MediaKind.h"
#include "ServiceEdit.h"

#include <QHash>
#include <QList>
#include <QUuid>

// The user bouquets of both kinds. Implicitly shared, so copying it for the undo history is O(1)
// until one of the lists is written.
using BouquetLists = QHash<MediaKind, QList<Bouquet>>;

// One step of the undo history. A null `selected` means that no bouquet was selected.
struct Snapshot
{
    BouquetLists bouquets;
    MediaKind kind;
    QUuid selected;
    ServiceEdits serviceEdits;

    friend bool operator==(const Snapshot &, const Snapshot &) = default;
};

size_t qHash(const Snapshot &snapshot, size_t seed = 0) noexcept;
