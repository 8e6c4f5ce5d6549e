#pragma once

#include <QList>
#include <QString>

// The interface languages the settings window offers, and the restart that applies a new one. The
// preference itself and the translations it chooses are Translations' (src/box).
namespace Language {

struct Choice
{
    QString code;
    QString title;
    bool operator==(const Choice &other) const = default;
};

// "Systemsprache" (the empty code), then German, English, French and Spanish.
QList<Choice> choices();

// Starts a new instance of the running program and, once it runs, quits this one (whose main
// window may still ask about unsaved changes). Returns false when the new instance did not start.
bool relaunch();

} // namespace Language
