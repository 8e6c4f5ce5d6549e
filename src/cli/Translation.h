#pragma once

// The translations of the program's German texts, shared with the editor: chosen by the
// preference "language" (empty: the system's languages).
namespace Translation {

// Loads and installs the translation when one exists for the language; German needs none.
void install();

// While one lives, texts come out in German, the source language: for machine-readable output.
class Untranslated
{
public:
    Untranslated();
    ~Untranslated();
    Untranslated(const Untranslated &) = delete;
    Untranslated &operator=(const Untranslated &) = delete;
};

} // namespace Translation
