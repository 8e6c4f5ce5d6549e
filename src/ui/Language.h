#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QCoreApplication;

// The interface language: the preference "language" (a code such as "en"; empty or unset follows
// the system) chooses the translations installed at start. A change takes effect after a restart.
namespace Language {

struct Choice
{
    QString code;
    QString title;
    bool operator==(const Choice &other) const = default;
};

// "Systemsprache" (the empty code), then German, English, French and Spanish.
QList<Choice> choices();

// The preference; empty when unset.
QString current();
// Writes the preference; the empty code removes it.
void setCurrent(const QString &code);
// The language the running program started with (read by install(), or at the first call).
QString active();

// Where the compiled translations are looked for: beside an installed program, then in the build.
QStringList translationFolders();
// Installs the program's translation for the preference, and Qt's own for its dialogs. Missing
// translations are no error: the German source texts stay. Returns whether the program's loaded.
bool install(QCoreApplication &application);

// Starts a new instance of the running program and, once it runs, quits this one (whose main
// window may still ask about unsaved changes). Returns false when the new instance did not start.
bool relaunch();

} // namespace Language
