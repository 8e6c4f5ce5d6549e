#pragma once

#include "MediaKind.h"
#include "Service.h"
#include "Store.h"

#include <QFont>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// The widths of the service table's four columns: fitted to the texts shown, or as the user left
// them (saved per media kind in the settings under "columnWidths.tv" / "columnWidths.radio").
namespace ColumnLayout {

// The column identifiers in column order.
QStringList identifiers();

// ceil(widest) + 20, at least 40 and at most 400.
double fittedWidth(double widest);
// The width of the widest text in this font.
double widestText(const QList<QString> &texts, const QFont &font);
// The fitted widths of the four columns for the services of one kind: each title in `titleFont`,
// every cell text in `cellFont`, usage counts as decimal numbers. The names are measured
// `nameExtra` wider, for the picon beside them.
ColumnWidths fitted(const QList<Service> &services, MediaKind kind, const UsageCounts &usage,
                    const QStringList &titles, const QFont &cellFont, const QFont &titleFont, double nameExtra = 0);

// The saved widths of the kind, only when all four identifiers are there.
std::optional<ColumnWidths> saved(MediaKind kind);
void save(MediaKind kind, const ColumnWidths &widths);
void forget(MediaKind kind);

} // namespace ColumnLayout
