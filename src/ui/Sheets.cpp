#include "Sheets.h"

#include <QCoreApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace Sheets {

namespace {

// Dialogs in front of the window carry the program's name, like the window itself.
QString windowTitle()
{
    return QStringLiteral("Corvandel");
}

} // namespace

QInputDialog *askText(QWidget *window, const QString &title, const QString &label, const QString &text,
                      const QString &confirmLabel, std::function<void(const QString &)> accepted)
{
    auto *dialog = new QInputDialog(window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setWindowTitle(title);
    dialog->setLabelText(label);
    dialog->setTextValue(text);
    dialog->setOkButtonText(confirmLabel);
    dialog->setCancelButtonText(QCoreApplication::translate("Sheets", "Abbrechen"));
    QObject::connect(dialog, &QInputDialog::textValueSelected, dialog, std::move(accepted));
    dialog->open();
    return dialog;
}

QMessageBox *confirm(QWidget *window, const QString &question, const QString &details, const QString &confirmLabel,
                     std::function<void()> confirmed)
{
    auto *box = new QMessageBox(QMessageBox::Question, windowTitle(), question, QMessageBox::NoButton, window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setInformativeText(details);
    QPushButton *confirmButton = box->addButton(confirmLabel, QMessageBox::AcceptRole);
    QPushButton *cancelButton = box->addButton(QCoreApplication::translate("Sheets", "Abbrechen"), QMessageBox::RejectRole);
    box->setDefaultButton(confirmButton);
    box->setEscapeButton(cancelButton);
    QObject::connect(box, &QMessageBox::buttonClicked, box,
                     [confirmButton, confirmed = std::move(confirmed)](QAbstractButton *button) {
                         if (button == confirmButton)
                             confirmed();
                     });
    box->open();
    return box;
}

QMessageBox *alert(QWidget *window, const QString &text, std::function<void()> closed)
{
    auto *box = new QMessageBox(QMessageBox::Warning, windowTitle(), text,
                                QMessageBox::Ok, window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    QObject::connect(box, &QDialog::finished, box, std::move(closed));
    box->open();
    return box;
}

} // namespace Sheets
