#include "Snapshot.h"

size_t qHash(const Snapshot &snapshot, size_t seed) noexcept
{
    // Equal hashes may iterate in different orders, so their pairs are combined commutatively.
    size_t bouquets = 0;
    for (auto it = snapshot.bouquets.cbegin(); it != snapshot.bouquets.cend(); ++it)
        bouquets += qHashMulti(0, it.key(), qHashRange(it->cbegin(), it->cend()));
    size_t edits = 0;
    for (auto it = snapshot.serviceEdits.cbegin(); it != snapshot.serviceEdits.cend(); ++it)
        edits += qHashMulti(0, it.key(), it.value());
    return qHashMulti(seed, bouquets, snapshot.kind, snapshot.selected, edits);
}
