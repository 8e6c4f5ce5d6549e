#pragma once

#include "MediaKind.h"

#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>

class AppContext;
class BouquetSidebar;
class BoxControlView;
class EntryListView;
class LogView;
class PiconPixmaps;
class PiconUploadSheet;
class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QMessageBox;
class QProgressBar;
class QSplitter;
class ServiceBrowser;
class SettingsView;

// The editor's window: toolbar and menus with every command, the bouquet sidebar, the entries of
// the selected bouquet, the service browser and a status line. It only presents; every command
// calls an operation of the store or of the box operations in the application's context.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(AppContext &context, QWidget *parent = nullptr);
    ~MainWindow() override;

    // Opened when the window is first shown, instead of the last list.
    void setInitialFolder(const QString &folder) { m_initialFolder = folder; }

    BouquetSidebar *sidebar() const { return m_sidebar; }
    EntryListView *entryList() const { return m_entries; }
    ServiceBrowser *serviceBrowser() const { return m_browser; }
    // A command by its object name ("undo", "download", …).
    QAction *command(const QString &name) const;
    QLabel *statusText() const { return m_statusText; }
    QProgressBar *busyIndicator() const { return m_busyIndicator; }
    bool bouquetsOnRight() const;

    // The secondary windows.
    void showSettings();
    void showBoxControl();
    void showLog();

    // Rereads the window's preferences (the sidebar's side) and applies them.
    void applyPreferences();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QAction *addCommand(QMenu *menu, const QString &name, const QString &text, const QKeySequence &shortcut,
                        const std::function<void()> &run);
    void buildMenus();
    void buildToolBar();
    void buildRecentMenu();
    void buildBackupMenu();
    void updateActions();
    void updateTitle();
    void updateBusy();
    void showError();
    void askRepair();
    void showUploadSheet();
    void showSidebarMenu(const QPoint &position);
    void showEntryMenu(const QPoint &position);
    static void bringToFront(QWidget *window);
    // Runs `then` at once, or after the user agreed to drop unsaved changes.
    void confirmDiscard(const std::function<void()> &then);

    void openFolderDialog();
    void openFolder(const QString &folder);
    void saveAsDialog();
    void saveAs(const QString &folder);
    void switchKind(MediaKind kind);
    void newBouquet();
    void addMarker();
    // The list that has (or last had) the keyboard focus: rename and delete act on it.
    QWidget *focusedList() const;
    void renameFocused();
    void deleteFocused();
    void renameEntry();
    void confirmDeleteBouquet();
    void uploadPiconPackage();
    void showAbout();

    AppContext &m_context;
    std::unique_ptr<PiconPixmaps> m_picons;
    BouquetSidebar *m_sidebar;
    EntryListView *m_entries;
    ServiceBrowser *m_browser;
    QSplitter *m_splitter;
    QLabel *m_statusText;
    QLabel *m_busyText;
    QProgressBar *m_busyIndicator;
    QMenu *m_recentMenu = nullptr;
    QMenu *m_restoreMenu = nullptr;
    QActionGroup *m_kinds = nullptr;
    // Commands that start an operation: disabled while one runs.
    QList<QAction *> m_operations;
    QPointer<QMessageBox> m_alert;
    QPointer<PiconUploadSheet> m_uploadSheet;
    QPointer<SettingsView> m_settingsView;
    QPointer<BoxControlView> m_boxControlView;
    QPointer<LogView> m_logView;
    QString m_initialFolder;
    bool m_shownOnce = false;
    bool m_closeConfirmed = false;
};
