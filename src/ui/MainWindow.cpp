#include "MainWindow.h"

#include "AppContext.h"
#include "BouquetListModel.h"
#include "BouquetSidebar.h"
#include "BoxControlView.h"
#include "EntryListModel.h"
#include "EntryListView.h"
#include "Error.h"
#include "LogView.h"
#include "PiconPackageDialog.h"
#include "PiconPixmaps.h"
#include "PiconUploadSheet.h"
#include "ServiceBrowser.h"
#include "SettingsView.h"
#include "Sheets.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>
#include <QTimer>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

// The program's name in titles; a product name, never translated.
const QString programName = u"Corvandel"_s;

// The help text of a command: its name and, when it has one, its shortcut as the platform writes it.
QString helpText(QString text, const QKeySequence &shortcut)
{
    text.remove(u'…');
    if (shortcut.isEmpty())
        return text;
    return text + u" ("_s + shortcut.toString(QKeySequence::NativeText) + u')';
}

// The desktop theme's icon where there is one, else the style's own.
QIcon themed(const char *name, QStyle::StandardPixmap fallback, const QStyle *style)
{
    return QIcon::fromTheme(QLatin1String(name), style->standardIcon(fallback));
}

} // namespace

MainWindow::MainWindow(AppContext &context, QWidget *parent)
    : QMainWindow(parent)
    , m_context(context)
    , m_picons(std::make_unique<PiconPixmaps>([&context](const QString &reference) {
        // The box's picons first; a list folder may bring its own.
        if (std::optional<QImage> image = context.picons().picon(reference))
            return image;
        return PiconPixmaps::fromListFolder(context.store().folder(), reference);
    }))
    , m_sidebar(new BouquetSidebar(context.store(), this))
    , m_entries(new EntryListView(context.store(), *m_picons, this))
    , m_browser(new ServiceBrowser(context.store(), *m_picons, this))
    , m_splitter(new QSplitter(Qt::Horizontal, this))
    , m_statusText(new QLabel(this))
    , m_busyText(new QLabel(this))
    , m_busyIndicator(new QProgressBar(this))
{
    Store &store = context.store();
    m_sidebar->setMinimumWidth(160);
    m_entries->setMinimumWidth(240);
    m_splitter->addWidget(m_sidebar);
    m_splitter->addWidget(m_entries);
    m_splitter->addWidget(m_browser);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 2);
    m_splitter->setStretchFactor(2, 3);
    m_splitter->setSizes({200, 380, 620});
    setCentralWidget(m_splitter);

    // Long status lines must not widen the window.
    m_statusText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_busyIndicator->setRange(0, 0);
    m_busyIndicator->setMaximumWidth(120);
    m_busyIndicator->setTextVisible(false);
    statusBar()->addWidget(m_statusText, 1);
    statusBar()->addPermanentWidget(m_busyText);
    statusBar()->addPermanentWidget(m_busyIndicator);

    buildMenus();
    buildToolBar();
    applyPreferences();
    resize(1280, 800);

    connect(&store, &Store::statusChanged, this, [this] {
        m_statusText->setText(m_context.store().status());
        m_statusText->setToolTip(m_context.store().status());
    });
    m_statusText->setText(store.status());
    connect(&store, &Store::busyChanged, this, &MainWindow::updateBusy);
    connect(&store, &Store::errorMessageChanged, this, &MainWindow::showError);
    connect(&store, &Store::isDirtyChanged, this, &MainWindow::updateTitle);
    connect(&store, &Store::folderLoaded, this, &MainWindow::updateTitle);
    connect(&store, &Store::folderLoaded, this, &MainWindow::updateActions);
    connect(&store, &Store::folderLoaded, this, [this] { m_picons->clear(); });
    connect(&store, &Store::canUndoChanged, this, &MainWindow::updateActions);
    connect(&store, &Store::canRedoChanged, this, &MainWindow::updateActions);
    connect(&store, &Store::recentFoldersChanged, this, &MainWindow::buildRecentMenu);
    connect(&store, &Store::backupsChanged, this, &MainWindow::buildBackupMenu);
    connect(&store, &Store::lamedbRepairCountChanged, this, &MainWindow::askRepair);
    connect(&store, &Store::kindChanged, this, [this] {
        const int row = m_context.store().kind() == MediaKind::tv ? 0 : 1;
        m_kinds->actions().at(row)->setChecked(true);
    });
    connect(&context.picons(), &Picons::piconUploadPlanChanged, this, &MainWindow::showUploadSheet);
    connect(&context.picons(), &Picons::piconsChanged, this, [this] {
        m_picons->clear();
        m_browser->piconsChanged();
        m_entries->viewport()->update();
    });
    connect(m_sidebar, &QWidget::customContextMenuRequested, this, &MainWindow::showSidebarMenu);
    connect(m_entries, &QWidget::customContextMenuRequested, this, &MainWindow::showEntryMenu);

    buildRecentMenu();
    buildBackupMenu();
    updateTitle();
    updateBusy();
}

MainWindow::~MainWindow()
{
    // The lists paint with m_picons, which as a member would go before the child widgets.
    delete m_splitter;
}

QAction *MainWindow::command(const QString &name) const
{
    return findChild<QAction *>(name);
}

QAction *MainWindow::addCommand(QMenu *menu, const QString &name, const QString &text, const QKeySequence &shortcut,
                                const std::function<void()> &run)
{
    auto *action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    action->setToolTip(helpText(text, shortcut));
    connect(action, &QAction::triggered, this, run);
    menu->addAction(action);
    return action;
}

void MainWindow::buildMenus()
{
    Store &store = m_context.store();
    BoxSync &boxSync = m_context.boxSync();
    Backups &backups = m_context.backups();
    Picons &picons = m_context.picons();

    QMenu *file = menuBar()->addMenu(tr("&Datei"));
    m_operations << addCommand(file, u"openFolder"_s, tr("Listenordner öffnen…"), QKeySequence::Open,
                               [this] { openFolderDialog(); });
    m_recentMenu = file->addMenu(tr("Zuletzt verwendet"));
    file->addSeparator();
    m_operations << addCommand(file, u"save"_s, tr("Speichern"), QKeySequence::Save,
                               [&store = store] { store.saveToCurrentFolder(); });
    m_operations << addCommand(file, u"saveAs"_s, tr("Speichern unter…"), QKeySequence(u"Ctrl+Shift+S"_s),
                               [this] { saveAsDialog(); });
    file->addSeparator();
    addCommand(file, u"settings"_s, tr("Einstellungen…"), QKeySequence(u"Ctrl+,"_s), [this] { showSettings(); });
    file->addSeparator();
    QAction *quit = addCommand(file, u"quit"_s, tr("Beenden"), QKeySequence::Quit, [this] { close(); });
    quit->setMenuRole(QAction::QuitRole);

    QMenu *edit = menuBar()->addMenu(tr("&Bearbeiten"));
    QAction *undo = addCommand(edit, u"undo"_s, tr("Rückgängig"), QKeySequence::Undo, [&store = store] { store.undo(); });
    undo->setIcon(themed("edit-undo", QStyle::SP_ArrowBack, style()));
    QAction *redo = addCommand(edit, u"redo"_s, tr("Wiederholen"), QKeySequence::Redo, [&store = store] { store.redo(); });
    redo->setShortcuts(QKeySequence::Redo);
    redo->setIcon(themed("edit-redo", QStyle::SP_ArrowForward, style()));
    edit->addSeparator();
    addCommand(edit, u"newBouquet"_s, tr("Neues Bouquet"), QKeySequence::New, [this] { newBouquet(); })
        ->setIcon(themed("folder-new", QStyle::SP_FileDialogNewFolder, style()));
    addCommand(edit, u"addMarker"_s, tr("Markierung einfügen…"), QKeySequence(u"Ctrl+M"_s), [this] { addMarker(); });
    addCommand(edit, u"rename"_s, tr("Umbenennen…"), QKeySequence(Qt::Key_F2), [this] { renameFocused(); });
    addCommand(edit, u"delete"_s, tr("Löschen"), QKeySequence::Delete, [this] { deleteFocused(); })
        ->setIcon(themed("edit-delete", QStyle::SP_TrashIcon, style()));
    addCommand(edit, u"sortByName"_s, tr("Nach Namen sortieren"), QKeySequence(),
               [&store = store] { store.sortSelectedByName(); });

    QMenu *view = menuBar()->addMenu(tr("&Ansicht"));
    m_kinds = new QActionGroup(this);
    for (MediaKind kind : MediaKind::allCases()) {
        QAction *action = addCommand(view, kind.rawValue(), kind.title(),
                                     QKeySequence(kind == MediaKind::tv ? u"Ctrl+1"_s : u"Ctrl+2"_s),
                                     [this, kind] { switchKind(kind); });
        action->setCheckable(true);
        action->setChecked(store.kind() == kind);
        m_kinds->addAction(action);
    }
    view->addSeparator();
    addCommand(view, u"find"_s, tr("Sender suchen"), QKeySequence::Find, [this] {
        m_browser->searchField()->setFocus(Qt::ShortcutFocusReason);
        m_browser->searchField()->selectAll();
    });
    addCommand(view, u"resetColumns"_s, tr("Spaltenbreiten zurücksetzen"), QKeySequence(),
               [this] { m_browser->resetColumnWidths(); });

    QMenu *box = menuBar()->addMenu(tr("Bo&x"));
    m_operations << addCommand(box, u"download"_s, tr("Senderliste von der Box laden"), QKeySequence(u"Ctrl+D"_s),
                               [this, &boxSync = boxSync] { confirmDiscard([&boxSync = boxSync] { boxSync.downloadFromBox(); }); });
    m_operations << addCommand(box, u"upload"_s, tr("Bouquets an die Box senden"), QKeySequence(u"Ctrl+U"_s),
                               [&boxSync = boxSync] { boxSync.uploadToBox(); });
    addCommand(box, u"zap"_s, tr("Box auf den Sender umschalten"), QKeySequence(u"Ctrl+Return"_s),
               [this] { m_context.zapper().zapFocused(); })
        ->setIcon(themed("media-playback-start", QStyle::SP_MediaPlay, style()));
    m_operations << addCommand(box, u"testConnection"_s, tr("Verbindung testen"), QKeySequence(),
                               [&boxSync = boxSync] { boxSync.testConnection(); });
    box->addSeparator();
    QMenu *backupMenu = box->addMenu(tr("Sicherungen"));
    backupMenu->setObjectName(u"backupMenu"_s);
    m_restoreMenu = backupMenu->addMenu(tr("Sicherung wiederherstellen"));
    m_operations << m_restoreMenu->menuAction();
    m_operations << addCommand(backupMenu, u"backupNow"_s, tr("Liste auf der Box jetzt sichern"), QKeySequence(),
                               [&backups = backups] { backups.backupNow(); });
    addCommand(backupMenu, u"showBackups"_s, tr("Sicherungen im Dateimanager zeigen"), QKeySequence(),
               [&backups = backups] { backups.showBackupsInFinder(); });
    // The list on disk may have changed since the last look.
    connect(backupMenu, &QMenu::aboutToShow, this, [&backups = backups] { backups.reloadBackups(); });
    m_operations << addCommand(box, u"repair"_s, tr("Falsch kodierte Zeichen auf der Box reparieren…"),
                               QKeySequence(), [&boxSync = boxSync] { boxSync.prepareLamedbRepair(); });
    box->addSeparator();
    m_operations << addCommand(box, u"downloadPicons"_s, tr("Picons von der Box laden"), QKeySequence(),
                               [&picons = picons] { picons.downloadPicons(); });
    m_operations << addCommand(box, u"uploadPicons"_s, tr("Picon-Paket hochladen…"), QKeySequence(),
                               [this] { uploadPiconPackage(); });
    box->addSeparator();
    const QKeySequence boxControlKeys(u"Ctrl+Shift+B"_s);
    QAction *boxControl =
        addCommand(box, u"boxControl"_s, tr("Box-Steuerung…"), boxControlKeys, [this] { showBoxControl(); });
    boxControl->setToolTip(tr("Box-Steuerung: Signal, Neustart, eigene Befehle (%1)")
                               .arg(boxControlKeys.toString(QKeySequence::NativeText)));
    boxControl->setIcon(themed("computer", QStyle::SP_ComputerIcon, style()));
    addCommand(box, u"log"_s, tr("Protokoll"), QKeySequence(u"Ctrl+L"_s), [this] { showLog(); })
        ->setIcon(themed("text-x-generic", QStyle::SP_FileDialogDetailedView, style()));

    QMenu *help = menuBar()->addMenu(tr("&Hilfe"));
    addCommand(help, u"about"_s, tr("Über Corvandel"), QKeySequence(), [this] { showAbout(); })
        ->setMenuRole(QAction::AboutRole);

    command(u"openFolder"_s)->setIcon(themed("document-open", QStyle::SP_DialogOpenButton, style()));
    command(u"save"_s)->setIcon(themed("document-save", QStyle::SP_DialogSaveButton, style()));
    command(u"download"_s)->setIcon(themed("go-down", QStyle::SP_ArrowDown, style()));
    command(u"upload"_s)->setIcon(themed("go-up", QStyle::SP_ArrowUp, style()));
    command(u"settings"_s)->setIcon(themed("preferences-system", QStyle::SP_FileDialogContentsView, style()));
}

void MainWindow::buildToolBar()
{
    QToolBar *bar = addToolBar(tr("Werkzeuge"));
    bar->setObjectName(u"toolBar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](const QString &name, const QString &shortText) {
        QAction *action = command(name);
        action->setIconText(shortText);
        bar->addAction(action);
    };
    add(u"openFolder"_s, tr("Öffnen"));
    add(u"save"_s, tr("Speichern"));
    bar->addSeparator();
    add(u"download"_s, tr("Laden"));
    add(u"upload"_s, tr("Senden"));
    bar->addSeparator();
    add(u"undo"_s, tr("Rückgängig"));
    add(u"redo"_s, tr("Wiederholen"));
    bar->addSeparator();
    add(u"tv"_s, MediaKind(MediaKind::tv).title());
    add(u"radio"_s, MediaKind(MediaKind::radio).title());
    bar->addSeparator();
    add(u"newBouquet"_s, tr("Bouquet"));
    add(u"delete"_s, tr("Löschen"));
    bar->addSeparator();
    add(u"zap"_s, tr("Umschalten"));
    add(u"boxControl"_s, tr("Box"));
    add(u"log"_s, tr("Protokoll"));
    add(u"settings"_s, tr("Einstellungen"));
}

void MainWindow::buildRecentMenu()
{
    Store &store = m_context.store();
    m_recentMenu->clear();
    for (const QString &folder : store.recentFolders())
        m_recentMenu->addAction(store.label(folder), this, [this, folder] { openFolder(folder); });
    if (m_recentMenu->isEmpty())
        m_recentMenu->addAction(tr("Keine"))->setEnabled(false);
}

void MainWindow::buildBackupMenu()
{
    Backups &backups = m_context.backups();
    m_restoreMenu->clear();
    for (const QString &backup : m_context.store().backups()) {
        m_restoreMenu->addAction(backups.backupLabel(backup), this, [this, backup] {
            confirmDiscard([this, backup] { m_context.backups().restoreBackup(backup); });
        });
    }
    if (m_restoreMenu->isEmpty())
        m_restoreMenu->addAction(tr("Keine Sicherungen"))->setEnabled(false);
}

void MainWindow::updateActions()
{
    // While an operation runs no second one may start; editing and zapping go on.
    const Store &store = m_context.store();
    const bool idle = !store.busy().has_value();
    for (QAction *action : std::as_const(m_operations))
        action->setEnabled(idle);
    // Saving and sending need a list to write.
    const bool listOpen = !store.folder().isEmpty();
    command(u"save"_s)->setEnabled(idle && listOpen);
    command(u"saveAs"_s)->setEnabled(idle && listOpen);
    command(u"upload"_s)->setEnabled(idle && listOpen);
    command(u"repair"_s)->setEnabled(idle && listOpen);
    command(u"undo"_s)->setEnabled(store.canUndo());
    command(u"redo"_s)->setEnabled(store.canRedo());
}

void MainWindow::updateTitle()
{
    const Store &store = m_context.store();
    const QString folder = store.folder();
    setWindowTitle(folder.isEmpty() ? programName + u"[*]"_s : store.label(folder) + u"[*] – "_s + programName);
    setWindowModified(store.isDirty());
}

void MainWindow::updateBusy()
{
    const std::optional<QString> &busy = m_context.store().busy();
    m_busyText->setText(busy.value_or(QString()));
    m_busyText->setVisible(busy.has_value());
    m_busyIndicator->setVisible(busy.has_value());
    updateActions();
}

void MainWindow::showError()
{
    const std::optional<QString> &message = m_context.store().errorMessage();
    if (!message)
        return;
    // A closed alert lingers until deleted; a new error then needs a new one.
    if (m_alert && m_alert->isVisible()) {
        m_alert->setText(*message);
        return;
    }
    m_alert = Sheets::alert(this, *message, [this] { m_context.store().setErrorMessage(std::nullopt); });
}

void MainWindow::askRepair()
{
    const std::optional<int> count = m_context.store().lamedbRepairCount();
    if (!count)
        return;
    const QString details =
        tr("%1 Zeilen in lamedb/lamedb5 enthalten Zeichen wie „19.2Â°E“. Sie werden korrigiert (z. B. „19.2°E“) und "
           "auf der Box gespeichert. Der bisherige Stand wird vorher gesichert, die Box lädt die Senderliste danach "
           "neu.")
            .arg(*count);
    QMessageBox *box = Sheets::confirm(this, tr("Falsch kodierte Zeichen reparieren?"), details, tr("Reparieren"),
                                       [this] { m_context.boxSync().repairLamedbOnBox(); });
    connect(box, &QDialog::finished, this, [this] { m_context.store().setLamedbRepairCount(std::nullopt); });
}

void MainWindow::showUploadSheet()
{
    // The open sheet follows changes of the plan itself.
    if (!m_context.picons().piconUploadPlan() || m_uploadSheet)
        return;
    m_uploadSheet = new PiconUploadSheet(m_context.picons(), this);
    m_uploadSheet->setAttribute(Qt::WA_DeleteOnClose);
    m_uploadSheet->open();
}

void MainWindow::showSidebarMenu(const QPoint &position)
{
    const QModelIndex index = m_sidebar->indexAt(position);
    if (index.isValid())
        m_context.store().setSelectedBouquetID(index.data(BouquetListModel::IdRole).toUuid());
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (index.isValid()) {
        const QUuid bouquet = index.data(BouquetListModel::IdRole).toUuid();
        menu->addAction(tr("Umbenennen"), this, [this, bouquet] { m_sidebar->rename(bouquet); });
        menu->addAction(tr("Löschen…"), this, &MainWindow::confirmDeleteBouquet);
        menu->addAction(command(u"sortByName"_s));
        menu->addSeparator();
    }
    menu->addAction(command(u"newBouquet"_s));
    menu->popup(m_sidebar->viewport()->mapToGlobal(position));
}

void MainWindow::showEntryMenu(const QPoint &position)
{
    const QModelIndex index = m_entries->indexAt(position);
    if (index.isValid() && !m_entries->selectionModel()->isSelected(index))
        m_entries->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (index.isValid()) {
        menu->addAction(tr("Umbenennen…"), this, &MainWindow::renameEntry);
        menu->addAction(tr("Entfernen"), this, [this] { m_context.store().removeSelectedEntries(); });
        menu->addAction(command(u"zap"_s));
        menu->addSeparator();
    }
    menu->addAction(command(u"addMarker"_s));
    menu->addAction(command(u"sortByName"_s));
    menu->popup(m_entries->viewport()->mapToGlobal(position));
}

void MainWindow::confirmDiscard(const std::function<void()> &then)
{
    if (!m_context.store().isDirty()) {
        then();
        return;
    }
    Sheets::confirm(this, tr("Änderungen verwerfen?"),
                    tr("Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind. Sie gehen "
                       "verloren, wenn eine andere Liste geladen wird."),
                    tr("Verwerfen"), then);
}

void MainWindow::openFolderDialog()
{
    auto *dialog = new QFileDialog(this, tr("Listenordner öffnen"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this, &MainWindow::openFolder);
    dialog->open();
}

void MainWindow::openFolder(const QString &folder)
{
    confirmDiscard([this, folder] { m_context.store().open(folder); });
}

void MainWindow::saveAsDialog()
{
    auto *dialog = new QFileDialog(this, tr("Speichern unter"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setLabelText(QFileDialog::Accept, tr("Hier speichern"));
    connect(dialog, &QFileDialog::fileSelected, this, &MainWindow::saveAs);
    dialog->open();
}

void MainWindow::saveAs(const QString &folder)
{
    Store &store = m_context.store();
    try {
        store.save(folder);
        store.setStatus(tr("Gespeichert in %1.").arg(folder));
    } catch (const Error &error) {
        store.setErrorMessage(error.description());
    }
}

void MainWindow::switchKind(MediaKind kind)
{
    Store &store = m_context.store();
    store.setKind(kind);
    // The bouquet shown belongs to the other kind: show the first of this one.
    if (!store.selectedBouquet() && !store.currentBouquets().isEmpty())
        store.setSelectedBouquetID(store.currentBouquets().first().id);
}

void MainWindow::newBouquet()
{
    Store &store = m_context.store();
    store.createBouquet(tr("Neues Bouquet"));
    // The sidebar starts renaming it.
    store.setNewBouquetRequest(store.selectedBouquetID());
}

void MainWindow::addMarker()
{
    if (!m_context.store().selectedBouquet())
        return;
    Sheets::askText(this, tr("Markierung einfügen"), tr("Text der Markierung:"), QString(), tr("Einfügen"),
                    [this](const QString &text) {
                        if (!text.trimmed().isEmpty())
                            m_context.store().addMarker(text.trimmed());
                    });
}

QWidget *MainWindow::focusedList() const
{
    // The window's focus widget also while a menu or a closing dialog holds the keyboard.
    for (QWidget *widget = focusWidget(); widget; widget = widget->parentWidget()) {
        if (widget == m_sidebar || widget == m_entries || widget == m_browser->table())
            return widget;
    }
    return m_entries;
}

void MainWindow::renameFocused()
{
    Store &store = m_context.store();
    QWidget *list = focusedList();
    if (list == m_sidebar) {
        m_sidebar->rename(store.selectedBouquetID());
    } else if (list == m_browser->table()) {
        const ServiceKeys &selection = store.serviceSelection();
        if (selection.size() == 1 && store.serviceIndex().contains(*selection.cbegin()))
            store.setServiceRenameRequest(store.serviceIndex().value(*selection.cbegin()));
    } else {
        renameEntry();
    }
}

void MainWindow::deleteFocused()
{
    Store &store = m_context.store();
    QWidget *list = focusedList();
    if (list == m_sidebar) {
        confirmDeleteBouquet();
    } else if (list == m_browser->table()) {
        if (!store.serviceSelection().isEmpty())
            store.setServiceDeleteRequest(store.serviceSelection());
    } else {
        store.removeSelectedEntries();
    }
}

void MainWindow::renameEntry()
{
    const QUuid id = m_entries->singleEntry();
    const std::optional<Bouquet> bouquet = m_context.store().selectedBouquet();
    if (id.isNull() || !bouquet)
        return;
    QString current;
    for (const BouquetEntry &entry : bouquet->entries) {
        if (entry.id == id)
            current = entry.description.value_or(QString());
    }
    Sheets::askText(this, tr("Eintrag umbenennen"), tr("Name (leer = Name aus der lamedb)"), current, tr("Umbenennen"),
                    [this, id](const QString &name) { m_context.store().renameEntry(id, name.trimmed()); });
}

void MainWindow::confirmDeleteBouquet()
{
    const std::optional<Bouquet> bouquet = m_context.store().selectedBouquet();
    if (!bouquet)
        return;
    Sheets::confirm(this, tr("Bouquet „%1“ löschen?").arg(bouquet->name),
                    tr("Das Bouquet mit seinen %1 Einträgen verschwindet aus der Liste; „Rückgängig“ holt es zurück.")
                        .arg(bouquet->entries.size()),
                    tr("Löschen"), [this, id = bouquet->id] { m_context.store().deleteBouquet(id); });
}

void MainWindow::uploadPiconPackage()
{
    auto *dialog = new PiconPackageDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    connect(dialog, &PiconPackageDialog::packageChosen, this,
            [this](const QString &path) { m_context.picons().preparePiconUpload(path); });
    dialog->open();
}

void MainWindow::showAbout()
{
    auto *box = new QMessageBox(QMessageBox::Information, programName,
                                tr("Corvandel %1\nBearbeitet die Senderlisten von Enigma2-Receivern.")
                                    .arg(QStringLiteral(CORVANDEL_VERSION)),
                                QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->open();
}

// One instance of each secondary window, made on first use and brought to the front after.
void MainWindow::showSettings()
{
    if (!m_settingsView) {
        m_settingsView = new SettingsView(m_context.store(), m_context.boxSync(), this);
        connect(m_settingsView, &SettingsView::preferencesChanged, this, &MainWindow::applyPreferences);
    }
    bringToFront(m_settingsView);
}

void MainWindow::showBoxControl()
{
    if (!m_boxControlView)
        m_boxControlView = new BoxControlView(m_context.store(), this);
    bringToFront(m_boxControlView);
}

void MainWindow::showLog()
{
    if (!m_logView)
        m_logView = new LogView(this);
    bringToFront(m_logView);
}

void MainWindow::bringToFront(QWidget *window)
{
    window->show();
    window->raise();
    window->activateWindow();
}

bool MainWindow::bouquetsOnRight() const
{
    return m_splitter->indexOf(m_sidebar) != 0;
}

void MainWindow::applyPreferences()
{
    const bool right = QSettings(u"Corvandel"_s, u"Corvandel"_s).value(u"bouquetsRight"_s, false).toBool();
    if (right == bouquetsOnRight())
        return;
    // Each pane keeps its width on the other side.
    QList<int> sizes = m_splitter->sizes();
    const int sidebarWidth = sizes.takeAt(m_splitter->indexOf(m_sidebar));
    m_splitter->insertWidget(right ? m_splitter->count() - 1 : 0, m_sidebar);
    sizes.insert(m_splitter->indexOf(m_sidebar), sidebarWidth);
    m_splitter->setSizes(sizes);
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (m_shownOnce)
        return;
    m_shownOnce = true;
    // After the first paint, so that the window appears at once even for a long list.
    QTimer::singleShot(0, this, [this] {
        Store &store = m_context.store();
        if (!m_initialFolder.isEmpty())
            store.open(m_initialFolder);
        else
            store.restoreLastList();
    });
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    // The settings window may have moved the sidebar meanwhile.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        applyPreferences();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    Store &store = m_context.store();
    if (m_closeConfirmed || (!store.isDirty() && !store.busy())) {
        event->accept();
        return;
    }
    event->ignore();
    const auto closeNow = [this] {
        m_closeConfirmed = true;
        close();
    };
    if (store.busy()) {
        Sheets::confirm(this, tr("Trotzdem beenden?"),
                        tr("„%1“ läuft noch und wird abgebrochen.").arg(store.busy().value_or(QString())),
                        tr("Beenden"), closeNow);
        return;
    }
    auto *box = new QMessageBox(QMessageBox::Warning, programName,
                                tr("Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind."),
                                QMessageBox::NoButton, this);
    box->setObjectName(u"closeQuestion"_s);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setInformativeText(tr("Vor dem Beenden speichern?"));
    QPushButton *save = store.folder().isEmpty() ? nullptr : box->addButton(tr("Speichern"), QMessageBox::AcceptRole);
    QPushButton *discard = box->addButton(tr("Verwerfen"), QMessageBox::DestructiveRole);
    box->setEscapeButton(box->addButton(tr("Abbrechen"), QMessageBox::RejectRole));
    connect(box, &QMessageBox::buttonClicked, this, [this, save, discard, closeNow](QAbstractButton *button) {
        if (button == discard) {
            closeNow();
        } else if (save && button == save) {
            Store &store = m_context.store();
            // Closes once the save went through; a failure shows its alert and the window stays.
            auto connection = std::make_shared<QMetaObject::Connection>();
            *connection = connect(&store, &Store::operationFinished, this, [this, connection, closeNow] {
                disconnect(*connection);
                if (!m_context.store().isDirty())
                    closeNow();
            });
            store.saveToCurrentFolder();
        }
    });
    box->open();
}
