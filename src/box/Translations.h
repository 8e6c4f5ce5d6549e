#pragma once

#include <QString>
#include <QStringList>

// The translations of the program's German texts, shared by the editor and corvandel-cli. The
// preference "language" (a code such as "en"; empty or unset follows the system) chooses them once,
// at start; a change takes effect after a restart.
namespace Translations {

// The preference; empty when unset.
QString preference();
// Writes the preference; the empty code removes it.
void setPreference(const QString &code);
// The preference the running program started with (read by install(), or at the first call).
QString active();

// Where the compiled translations are looked for: beside an installed program, then in the build.
QStringList folders();

// Installs the program's translation for the preference, and Qt's own texts (standard buttons,
// command-line help) in the same language. Missing translations are no error: the German source
// texts stay. Returns whether a translation of the program's texts was installed.
bool install();

// While one lives, the program's texts come out in German, the source language: for
// machine-readable output.
class Untranslated
{
public:
    Untranslated();
    ~Untranslated();
    Untranslated(const Untranslated &) = delete;
    Untranslated &operator=(const Untranslated &) = delete;
};

} // namespace Translations
