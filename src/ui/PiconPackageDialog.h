#pragma once

#include <QFileDialog>

// Picks a picon package: an archive, or a folder that holds an unpacked one. Double-clicking a
// folder opens it as usual; choosing a selected folder with the button takes the folder itself.
class PiconPackageDialog : public QFileDialog
{
    Q_OBJECT

public:
    explicit PiconPackageDialog(QWidget *parent = nullptr);

    // The archive or folder chosen; empty before the dialog was accepted.
    QString chosen() const { return m_chosen; }

public slots:
    void accept() override;

signals:
    void packageChosen(const QString &path);

private:
    QString m_chosen;
};
