#pragma once

#include <QDialog>

class Picons;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

// Shows the picon upload plan in front of the main window: the package, the folder on the box,
// the two choices (all picons or only those of the list's services; overwrite or only add) and
// how many picons each choice sends. "Hochladen" starts the upload, "Abbrechen" drops the plan.
class PiconUploadSheet : public QDialog
{
    Q_OBJECT

public:
    explicit PiconUploadSheet(Picons &picons, QWidget *parent = nullptr);

    QRadioButton *matchingChoice() const { return m_matching; }
    QRadioButton *allChoice() const { return m_all; }
    QCheckBox *overwriteChoice() const { return m_overwrite; }
    QLabel *summary() const { return m_summary; }
    QPushButton *uploadButton() const { return m_upload; }

public slots:
    void accept() override;
    void reject() override;

private:
    void refresh();

    Picons &m_picons;
    QLabel *m_package;
    QLabel *m_directory;
    QLabel *m_contents;
    QRadioButton *m_matching;
    QRadioButton *m_all;
    QCheckBox *m_overwrite;
    QLabel *m_summary;
    QPushButton *m_upload;
    bool m_closing = false;
};
