#pragma once

#include <QString>

#include <functional>

class QInputDialog;
class QMessageBox;
class QWidget;

// Prompts and confirmations in front of a window (window-modal), answered through callbacks so
// that no command waits in a nested event loop. Each dialog deletes itself when closed.
namespace Sheets {

// A text prompt; `accepted` gets the text as typed when the user confirms.
QInputDialog *askText(QWidget *window, const QString &title, const QString &label, const QString &text,
                      const QString &confirmLabel, std::function<void(const QString &)> accepted);

// A question with details below it, a confirming button and "Abbrechen"; `confirmed` runs on the
// confirming button only.
QMessageBox *confirm(QWidget *window, const QString &question, const QString &details, const QString &confirmLabel,
                     std::function<void()> confirmed);

// A message with one button; `closed` runs however it is closed.
QMessageBox *alert(QWidget *window, const QString &text, std::function<void()> closed);

} // namespace Sheets
