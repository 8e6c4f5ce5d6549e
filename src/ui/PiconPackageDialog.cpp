#include "PiconPackageDialog.h"

#include "PiconPackage.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

PiconPackageDialog::PiconPackageDialog(QWidget *parent)
    : QFileDialog(parent, tr("Picon-Paket wählen: ZIP, tar.gz, tar.xz, ipk – oder einen bereits entpackten Ordner"))
{
    // The platform's own dialog cannot offer files and folders at once.
    setOption(QFileDialog::DontUseNativeDialog);
    setFileMode(QFileDialog::ExistingFile);
    setAcceptMode(QFileDialog::AcceptOpen);
    setLabelText(QFileDialog::Accept, tr("Wählen"));
    QStringList patterns;
    for (const QString &ending : PiconPackage::archiveEndings())
        patterns << u'*' + ending;
    setNameFilters({tr("Picon-Pakete (%1)").arg(patterns.join(u' ')), tr("Alle Dateien (*)")});
}

void PiconPackageDialog::accept()
{
    // A selected folder is taken as it is instead of being opened.
    const QStringList files = selectedFiles();
    const QFileInfo info(files.value(0));
    if (files.size() != 1 || !info.exists()) {
        QFileDialog::accept();
        return;
    }
    m_chosen = info.absoluteFilePath();
    QDialog::accept();
    emit packageChosen(m_chosen);
}
