#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Undoes UTF-8 text that was once decoded as Windows-1252 or Latin-1 ("Ã¶" back to "ö").
namespace TextRepair {

// One step of reversal, or none when the text cannot be one.
std::optional<QString> undo(const QString &s);
// Up to three steps; text without "Â", "Ã" or "â" is returned untouched.
QString fix(const QString &s);

struct FixedFile
{
    QByteArray text;
    int fixedLines = 0;
};
// `fix` applied to every line (split at line feeds only) of a UTF-8 text.
FixedFile fixFile(const QByteArray &text);

} // namespace TextRepair
