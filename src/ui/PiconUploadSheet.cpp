#include "PiconUploadSheet.h"

#include "Picons.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

PiconUploadSheet::PiconUploadSheet(Picons &picons, QWidget *parent)
    : QDialog(parent)
    , m_picons(picons)
    , m_package(new QLabel(this))
    , m_directory(new QLabel(this))
    , m_contents(new QLabel(this))
    , m_matching(new QRadioButton(this))
    , m_all(new QRadioButton(this))
    , m_overwrite(new QCheckBox(this))
    , m_summary(new QLabel(this))
    , m_upload(nullptr)
{
    setWindowTitle(tr("Picons hochladen"));
    setWindowModality(Qt::WindowModal);

    auto *heading = new QLabel(tr("Picon-Paket auf die Box hochladen"), this);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);

    auto *facts = new QFormLayout;
    facts->addRow(tr("Paket:"), m_package);
    facts->addRow(tr("Ziel auf der Box:"), m_directory);
    facts->addRow(tr("Inhalt:"), m_contents);
    m_package->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_directory->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *choices = new QGroupBox(tr("Was soll auf die Box?"), this);
    auto *choiceLayout = new QVBoxLayout(choices);
    choiceLayout->addWidget(m_matching);
    choiceLayout->addWidget(m_all);
    choiceLayout->addSpacing(6);
    choiceLayout->addWidget(m_overwrite);

    QFont summaryFont = m_summary->font();
    summaryFont.setBold(true);
    m_summary->setFont(summaryFont);
    m_summary->setWordWrap(true);

    auto *buttons = new QDialogButtonBox(this);
    m_upload = buttons->addButton(tr("Hochladen"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("Abbrechen"), QDialogButtonBox::RejectRole);
    m_upload->setDefault(true);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addLayout(facts);
    layout->addWidget(choices);
    layout->addWidget(m_summary);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &PiconUploadSheet::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PiconUploadSheet::reject);
    connect(m_all, &QRadioButton::toggled, this, [this](bool on) { m_picons.setUploadAll(on); });
    connect(m_overwrite, &QCheckBox::toggled, this, [this](bool on) { m_picons.setOverwrite(on); });
    connect(&picons, &Picons::piconUploadPlanChanged, this, &PiconUploadSheet::refresh);
    refresh();
}

void PiconUploadSheet::refresh()
{
    const std::optional<PiconUploadPlan> &plan = m_picons.piconUploadPlan();
    if (!plan) {
        // The plan went away elsewhere (uploaded or dropped): nothing left to decide.
        if (!m_closing) {
            m_closing = true;
            QDialog::reject();
        }
        return;
    }
    m_package->setText(QFileInfo(plan->package.source).fileName());
    m_package->setToolTip(plan->package.source);
    m_directory->setText(plan->directory);
    m_contents->setText(tr("%1 Picons, davon %2 passend zu Sendern der Liste")
                            .arg(plan->total())
                            .arg(plan->matchingCount()));
    // Showing the plan must not change it.
    const QSignalBlocker blockAll(m_all);
    const QSignalBlocker blockMatching(m_matching);
    const QSignalBlocker blockOverwrite(m_overwrite);
    m_matching->setText(tr("Nur Picons für Sender der Liste (%1)").arg(plan->matchingCount()));
    m_all->setText(tr("Alle Picons des Pakets (%1)").arg(plan->total()));
    m_all->setChecked(plan->uploadAll);
    m_matching->setChecked(!plan->uploadAll);
    m_overwrite->setText(tr("Vorhandene Picons auf der Box überschreiben (%1 schon dort)")
                             .arg(plan->existingCount(plan->uploadAll)));
    m_overwrite->setChecked(plan->overwrite);
    const int count = plan->count(plan->uploadAll, plan->overwrite);
    m_summary->setText(count > 0 ? tr("%1 Picons werden nach %2 hochgeladen.").arg(count).arg(plan->directory)
                                 : tr("Nichts hochzuladen: die Box hat diese Picons schon."));
    m_upload->setEnabled(count > 0);
}

void PiconUploadSheet::accept()
{
    if (m_closing)
        return;
    m_closing = true;
    QDialog::accept();
    m_picons.uploadPicons();
}

void PiconUploadSheet::reject()
{
    if (m_closing)
        return;
    m_closing = true;
    QDialog::reject();
    m_picons.cancelPiconUpload();
}
