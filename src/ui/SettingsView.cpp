#include "SettingsView.h"

#include "Appearance.h"
#include "BoxLog.h"
#include "BoxSync.h"
#include "Keychain.h"
#include "Language.h"
#include "Store.h"
#include "Translations.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QShortcut>
#include <QShowEvent>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QSettings preferences()
{
    return QSettings(u"Corvandel"_s, u"Corvandel"_s);
}

QGroupBox *section(const QString &heading, QLayout *layout)
{
    auto *box = new QGroupBox(heading);
    box->setLayout(layout);
    return box;
}

QLineEdit *textField(const QString &objectName, const QString &placeholder = {})
{
    auto *field = new QLineEdit;
    field->setObjectName(objectName);
    field->setPlaceholderText(placeholder);
    return field;
}

// A picker of titled values, showing the current one; a value it does not offer shows the first.
QComboBox *picker(const QString &objectName, const QList<std::pair<QString, QVariant>> &items, const QVariant &current)
{
    auto *field = new QComboBox;
    field->setObjectName(objectName);
    for (const auto &[title, value] : items)
        field->addItem(title, value);
    field->setCurrentIndex(qMax(0, field->findData(current)));
    return field;
}

QSpinBox *portField(const QString &objectName)
{
    auto *field = new QSpinBox;
    field->setObjectName(objectName);
    field->setRange(1, 65535);
    // Port numbers read better without a thousands separator.
    field->setGroupSeparatorShown(false);
    return field;
}

} // namespace

SettingsView::SettingsView(Store &store, BoxSync &sync, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_store(store)
    , m_sync(sync)
{
    setWindowTitle(tr("Einstellungen"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(boxSection());
    layout->addWidget(startSection());
    layout->addWidget(advancedSection());
    layout->addWidget(appearanceSection());
    layout->addWidget(languageSection());
    auto *version = new QLabel(BoxLog::versionLine());
    version->setObjectName(u"version"_s);
    version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    version->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(version, 0, Qt::AlignHCenter);
    layout->addStretch();

    connect(&store, &Store::busyChanged, this, &SettingsView::showBusy);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    takeDraft();
    showBusy();
    // Showing would size the window to its minimum, squeezing the fields above the wrapped notes.
    ensurePolished();
    resize(sizeHint());
}

QWidget *SettingsView::boxSection()
{
    m_host = textField(u"host"_s, tr("IP-Adresse oder Hostname"));
    // Wide enough for the notes below to wrap into few lines.
    m_host->setMinimumWidth(360);
    m_user = textField(u"user"_s);
    m_password = textField(u"password"_s);
    m_password->setEchoMode(QLineEdit::Password);
    m_fallbackNote = new QLabel(tr("Kein Schlüsselbund erreichbar: Das Passwort wird unverschlüsselt in %1 gespeichert.")
                                    .arg(Keychain::fallbackFilePath()));
    m_fallbackNote->setObjectName(u"fallbackNote"_s);
    m_fallbackNote->setWordWrap(true);
    m_fallbackNote->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_fallbackNote->setVisible(Keychain::usesFallbackFile());

    m_testButton = new QPushButton(tr("Verbindung testen"));
    m_testButton->setObjectName(u"test"_s);
    connect(m_testButton, &QPushButton::clicked, this, [this] { testConnection(); });
    m_outcomeIcon = new QLabel;
    const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_outcomeIcon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconSize));
    m_outcome = new QLabel;
    m_outcome->setObjectName(u"outcome"_s);
    m_outcome->setWordWrap(true);
    m_outcome->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // Room for the outcome from the start, so that the window does not jump when it arrives.
    m_outcome->setMinimumHeight(2 * m_outcome->fontMetrics().lineSpacing());
    m_outcome->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto *test = new QHBoxLayout;
    test->addWidget(m_testButton);
    test->addStretch();
    auto *outcome = new QHBoxLayout;
    outcome->addWidget(m_outcomeIcon, 0, Qt::AlignTop);
    outcome->addWidget(m_outcome, 1);

    auto *form = new QFormLayout;
    form->addRow(tr("Adresse"), m_host);
    form->addRow(tr("Benutzer"), m_user);
    form->addRow(tr("Passwort"), m_password);
    // Wrapped texts below the form: a box layout gives them the height their lines need.
    auto *layout = new QVBoxLayout;
    layout->addLayout(form);
    layout->addWidget(m_fallbackNote);
    layout->addLayout(test);
    layout->addLayout(outcome);
    return section(tr("Box"), layout);
}

QWidget *SettingsView::startSection()
{
    m_autoLoadLast = new QCheckBox(tr("Beim Start zuletzt verwendete Liste laden"));
    m_autoLoadLast->setObjectName(u"autoLoadLast"_s);
    m_autoLoadLast->setChecked(preferences().value(u"autoLoadLast"_s, true).toBool());
    connect(m_autoLoadLast, &QCheckBox::toggled, this,
            [](bool checked) { preferences().setValue(u"autoLoadLast"_s, checked); });
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_autoLoadLast);
    return section(tr("Start"), layout);
}

QWidget *SettingsView::advancedSection()
{
    m_ftpPort = portField(u"ftpPort"_s);
    m_httpPort = portField(u"httpPort"_s);
    m_telnetPort = portField(u"telnetPort"_s);
    m_directory = textField(u"directory"_s);
    m_piconDirectory = textField(u"piconDirectory"_s, tr("automatisch, z. B. /media/hdd/picon/"));
    auto *form = new QFormLayout;
    form->addRow(tr("FTP-Port"), m_ftpPort);
    form->addRow(tr("HTTP-Port (OpenWebif)"), m_httpPort);
    form->addRow(tr("Telnet-Port"), m_telnetPort);
    form->addRow(tr("Verzeichnis"), m_directory);
    form->addRow(tr("Picon-Verzeichnis"), m_piconDirectory);
    return section(tr("Erweitert"), form);
}

QWidget *SettingsView::appearanceSection()
{
    m_sidebarSide = picker(u"bouquetsRight"_s, {{tr("Links"), false}, {tr("Rechts"), true}},
                           preferences().value(u"bouquetsRight"_s, false).toBool());
    connect(m_sidebarSide, &QComboBox::currentIndexChanged, this, [this] {
        preferences().setValue(u"bouquetsRight"_s, m_sidebarSide->currentData().toBool());
        emit preferencesChanged();
    });

    QList<std::pair<QString, QVariant>> appearances;
    for (Appearance appearance : Appearance::allCases())
        appearances.append({appearance.title(), appearance.rawValue()});
    m_appearance = picker(u"appearance"_s, appearances, Appearance::preferred().rawValue());
    connect(m_appearance, &QComboBox::currentIndexChanged, this, [this] {
        const Appearance appearance =
            Appearance::fromRawValue(m_appearance->currentData().toString()).value_or(Appearance::automatic);
        Appearance::store(appearance);
        Appearance::apply(appearance);
    });

    auto *form = new QFormLayout;
    form->addRow(tr("Bouquetleiste"), m_sidebarSide);
    form->addRow(tr("Erscheinungsbild"), m_appearance);
    return section(tr("Darstellung"), form);
}

QWidget *SettingsView::languageSection()
{
    QList<std::pair<QString, QVariant>> languages;
    for (const Language::Choice &choice : Language::choices())
        languages.append({choice.title, choice.code});
    m_language = picker(u"language"_s, languages, Translations::preference());
    m_restartHint = new QLabel(tr("Die neue Sprache gilt nach einem Neustart der App."));
    m_restartHint->setObjectName(u"restartHint"_s);
    m_restartHint->setWordWrap(true);
    m_restartButton = new QPushButton(tr("App jetzt neu starten"));
    m_restartButton->setObjectName(u"restart"_s);
    connect(m_restartButton, &QPushButton::clicked, this, [] { Language::relaunch(); });
    connect(m_language, &QComboBox::currentIndexChanged, this, &SettingsView::chooseLanguage);
    chooseLanguage();

    auto *form = new QFormLayout;
    form->addRow(tr("Sprache"), m_language);
    form->addRow(m_restartHint);
    form->addRow(QString(), m_restartButton);
    return section(tr("Sprache"), form);
}

void SettingsView::chooseLanguage()
{
    const QString code = m_language->currentData().toString();
    if (code != Translations::preference())
        Translations::setPreference(code);
    const bool changed = code != Translations::active();
    m_restartHint->setVisible(changed);
    m_restartButton->setVisible(changed);
}

void SettingsView::takeDraft()
{
    m_base = m_store.settings();
    m_host->setText(m_base.host);
    m_user->setText(m_base.user);
    m_password->setText(m_base.password);
    m_ftpPort->setValue(m_base.ftpPort);
    m_httpPort->setValue(m_base.httpPort);
    m_telnetPort->setValue(m_base.telnetPort);
    m_directory->setText(m_base.directory);
    m_piconDirectory->setText(m_base.piconDirectory);
}

BoxSettings SettingsView::draft() const
{
    BoxSettings settings = m_base;
    settings.host = m_host->text().trimmed();
    settings.user = m_user->text().trimmed();
    settings.password = m_password->text();
    settings.ftpPort = m_ftpPort->value();
    settings.httpPort = m_httpPort->value();
    settings.telnetPort = m_telnetPort->value();
    settings.directory = m_directory->text().trimmed();
    settings.piconDirectory = m_piconDirectory->text().trimmed();
    return settings;
}

void SettingsView::apply()
{
    BoxSettings settings = draft();
    // Not shown here: the box control window may have changed it since the window opened.
    settings.customCommand = m_store.settings().customCommand;
    if (settings == m_store.settings())
        return;
    settings.save();
    m_store.setSettings(settings);
    m_base = settings;
}

QCoro::Task<> SettingsView::testConnection()
{
    if (m_store.busy())
        co_return;
    apply();
    // A failure left from an earlier operation must not pass for this test's.
    m_store.setErrorMessage(std::nullopt);
    QPointer<SettingsView> self(this);
    co_await m_sync.testConnection();
    if (!self)
        co_return;
    const std::optional<QString> &error = m_store.errorMessage();
    showOutcome(error.value_or(m_store.status()), error.has_value());
}

void SettingsView::showBusy()
{
    const std::optional<QString> &busy = m_store.busy();
    m_testButton->setEnabled(!busy);
    m_outcomeIcon->setVisible(!busy && m_lastFailed);
    m_outcome->setText(busy.value_or(m_lastOutcome));
}

void SettingsView::showOutcome(const QString &text, bool failed)
{
    m_lastOutcome = text;
    m_lastFailed = failed;
    showBusy();
}

void SettingsView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    takeDraft();
    // The secret service may have come or gone since the window was made.
    const bool fallback = Keychain::usesFallbackFile();
    if (fallback != m_fallbackNote->isVisibleTo(this)) {
        m_fallbackNote->setVisible(fallback);
        adjustSize();
    }
}

void SettingsView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        apply();
}
