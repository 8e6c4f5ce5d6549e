#pragma once

#include <QString>
#include <QStringList>

// Picon file names derived from service references.
namespace Picon {

// Zero, one or two names, best first: "1_0_19_2B66_3F3_1_C00000_0_0_0.png", then the type-1 name.
QStringList fileNames(const QString &reference);

} // namespace Picon
