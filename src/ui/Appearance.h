#pragma once

#include <QPalette>
#include <QString>

// The window colours: "auto" follows the platform, "light" and "dark" force the Fusion style with
// a light or dark palette. The choice is the preference "appearance".
namespace Appearance {

void apply(const QString &rawValue);
// The preference, "auto" when unset.
QString preferred();

QPalette lightPalette();
QPalette darkPalette();

} // namespace Appearance
