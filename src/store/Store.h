#pragma once

#include "BouquetEntry.h"
#include "BoxSettings.h"
#include "Service.h"
#include "ServiceEdit.h"
#include "ServiceKey.h"
#include "Snapshot.h"

#include <QByteArray>
#include <QCoro/QCoroTask>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <functional>
#include <optional>

using UsageCounts = QHash<ServiceKey, int>;
using SatelliteNames = QHash<QString, QString>;
using ServiceKeys = QSet<ServiceKey>;
using EntryIds = QSet<QUuid>;
// Column identifier ("name", "provider", "position", "usage") to width in points.
using ColumnWidths = QHash<QString, double>;

// The document being edited, the selections the views share, the state of running operations and
// the undo history. Changes only through its own operations, each of which announces what changed.
class Store : public QObject
{
    Q_OBJECT
    Q_PROPERTY(BouquetLists bouquets READ bouquets NOTIFY bouquetsChanged)
    Q_PROPERTY(QList<Service> services READ services NOTIFY servicesChanged)
    Q_PROPERTY(MediaKind kind READ kind WRITE setKind NOTIFY kindChanged)
    Q_PROPERTY(QUuid selectedBouquetID READ selectedBouquetID WRITE setSelectedBouquetID NOTIFY
                   selectedBouquetIDChanged)
    Q_PROPERTY(SatelliteNames satelliteNames READ satelliteNames NOTIFY satelliteNamesChanged)
    Q_PROPERTY(ServiceEdits serviceEdits READ serviceEdits NOTIFY serviceEditsChanged)
    Q_PROPERTY(UsageCounts usage READ usage NOTIFY usageChanged)
    Q_PROPERTY(
        EntryIds entrySelection READ entrySelection WRITE setEntrySelection NOTIFY entrySelectionChanged)
    Q_PROPERTY(
        bool entryListActive READ entryListActive WRITE setEntryListActive NOTIFY entryListActiveChanged)
    Q_PROPERTY(QUuid newBouquetRequest READ newBouquetRequest WRITE setNewBouquetRequest NOTIFY
                   newBouquetRequestChanged)
    Q_PROPERTY(std::optional<Service> serviceRenameRequest READ serviceRenameRequest WRITE
                   setServiceRenameRequest NOTIFY serviceRenameRequestChanged)
    Q_PROPERTY(std::optional<ServiceKeys> serviceDeleteRequest READ serviceDeleteRequest WRITE
                   setServiceDeleteRequest NOTIFY serviceDeleteRequestChanged)
    Q_PROPERTY(BoxSettings settings READ settings WRITE setSettings NOTIFY settingsChanged)
    Q_PROPERTY(std::optional<QString> busy READ busy WRITE setBusy NOTIFY busyChanged)
    Q_PROPERTY(QString status READ status WRITE setStatus NOTIFY statusChanged)
    Q_PROPERTY(std::optional<QString> errorMessage READ errorMessage WRITE setErrorMessage NOTIFY
                   errorMessageChanged)
    Q_PROPERTY(bool isDirty READ isDirty WRITE setDirty NOTIFY isDirtyChanged)
    Q_PROPERTY(QStringList recentFolders READ recentFolders NOTIFY recentFoldersChanged)
    Q_PROPERTY(QStringList backups READ backups WRITE setBackups NOTIFY backupsChanged)
    Q_PROPERTY(std::optional<int> lamedbRepairCount READ lamedbRepairCount WRITE setLamedbRepairCount NOTIFY
                   lamedbRepairCountChanged)
    Q_PROPERTY(int piconCount READ piconCount WRITE setPiconCount NOTIFY piconCountChanged)
    Q_PROPERTY(QUuid columnLayoutID READ columnLayoutID WRITE setColumnLayoutID NOTIFY columnLayoutIDChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY canRedoChanged)

public:
    // At most this many snapshots are kept for undo.
    static constexpr qsizetype undoLimit = 200;

    explicit Store(QObject *parent = nullptr);
    // With given connection settings instead of the stored ones, so that the password store is
    // not asked when the settings come from elsewhere.
    explicit Store(const BoxSettings &settings, QObject *parent = nullptr);
    ~Store() override;

    // Published state.
    const BouquetLists &bouquets() const { return m_bouquets; }
    const QList<Service> &services() const { return m_services; }
    MediaKind kind() const { return m_kind; }
    void setKind(MediaKind kind);
    // Null when no bouquet is selected.
    QUuid selectedBouquetID() const { return m_selectedBouquetID; }
    void setSelectedBouquetID(const QUuid &id);
    const SatelliteNames &satelliteNames() const { return m_satelliteNames; }
    const ServiceEdits &serviceEdits() const { return m_serviceEdits; }
    const UsageCounts &usage() const { return m_usage; }
    const EntryIds &entrySelection() const { return m_entrySelection; }
    void setEntrySelection(const EntryIds &selection);
    bool entryListActive() const { return m_entryListActive; }
    void setEntryListActive(bool active);
    QUuid newBouquetRequest() const { return m_newBouquetRequest; }
    void setNewBouquetRequest(const QUuid &id);
    const std::optional<Service> &serviceRenameRequest() const { return m_serviceRenameRequest; }
    void setServiceRenameRequest(const std::optional<Service> &service);
    const std::optional<ServiceKeys> &serviceDeleteRequest() const { return m_serviceDeleteRequest; }
    void setServiceDeleteRequest(const std::optional<ServiceKeys> &keys);
    const BoxSettings &settings() const { return m_settings; }
    void setSettings(const BoxSettings &settings);
    const std::optional<QString> &busy() const { return m_busy; }
    void setBusy(const std::optional<QString> &busy);
    const QString &status() const { return m_status; }
    void setStatus(const QString &status);
    const std::optional<QString> &errorMessage() const { return m_errorMessage; }
    void setErrorMessage(const std::optional<QString> &message);
    bool isDirty() const { return m_isDirty; }
    void setDirty(bool dirty);
    // Advances with every change of the document, so that an operation that waits between writing
    // the list and sending it can tell whether the user edited it meanwhile.
    quint64 revision() const { return m_revision; }
    // Absolute paths, most recent first.
    const QStringList &recentFolders() const { return m_recentFolders; }
    // Backup folders of the current box, newest first.
    const QStringList &backups() const { return m_backups; }
    void setBackups(const QStringList &backups);
    const std::optional<int> &lamedbRepairCount() const { return m_lamedbRepairCount; }
    void setLamedbRepairCount(const std::optional<int> &count);
    int piconCount() const { return m_piconCount; }
    void setPiconCount(int count);
    QUuid columnLayoutID() const { return m_columnLayoutID; }
    void setColumnLayoutID(const QUuid &id);
    bool canUndo() const { return !m_undoStack.isEmpty(); }
    bool canRedo() const { return !m_redoStack.isEmpty(); }

    // Plain state.
    const QList<Service> &baseServices() const { return m_baseServices; }
    const QHash<ServiceKey, Service> &serviceIndex() const { return m_serviceIndex; }
    const QMap<QString, QByteArray> &lamedbTexts() const { return m_lamedbTexts; }
    // The folder last opened; empty when none is.
    const QString &folder() const { return m_folder; }
    const ServiceKeys &serviceSelection() const { return m_serviceSelection; }
    void setServiceSelection(const ServiceKeys &selection) { m_serviceSelection = selection; }
    const QList<Snapshot> &undoStack() const { return m_undoStack; }
    const QList<Snapshot> &redoStack() const { return m_redoStack; }
    const QHash<MediaKind, ColumnWidths> &widths() const { return m_widths; }
    void setWidths(MediaKind kind, const ColumnWidths &widths) { m_widths.insert(kind, widths); }
    const QHash<MediaKind, ColumnWidths> &fittedWidths() const { return m_fittedWidths; }
    void setFittedWidths(MediaKind kind, const ColumnWidths &widths) { m_fittedWidths.insert(kind, widths); }
    const QSet<QString> &piconNames() const { return m_piconNames; }
    void setPiconNames(const QSet<QString> &names) { m_piconNames = names; }
    QHash<QString, QString> &resolvedHosts() { return m_resolvedHosts; }

    // Derived values.
    QList<Bouquet> currentBouquets() const { return m_bouquets.value(m_kind); }
    std::optional<Bouquet> selectedBouquet() const;
    std::optional<Service> service(const BouquetEntry &entry) const;
    QString displayName(const BouquetEntry &entry) const;
    // Keys of shown services that no bouquet entry of either kind uses.
    ServiceKeys unusedServiceKeys() const;
    // How many bouquet entries use any of the keys.
    int bouquetUses(const ServiceKeys &keys) const;

    // Undo history.
    Snapshot snapshot() const;
    void checkpoint();
    void restore(const Snapshot &snapshot);
    void undo();
    void redo();
    void resetUndo();
    // Edits one bouquet of the current kind in place, as one undo step; an unknown id does nothing.
    void mutate(const QUuid &bouquetID, const std::function<void(Bouquet &)> &change);
    void rebuildServices();
    void recountUsage();

    // Bouquet editing; all act on the current kind.
    void add(const QList<Service> &services);
    void insert(const QStringList &references, const QUuid &into, std::optional<qsizetype> at = std::nullopt);
    void addMarker(const QString &text);
    void removeSelectedEntries();
    void moveEntries(const QSet<qsizetype> &from, qsizetype to);
    void renameEntry(const QUuid &id, const QString &to);
    void sortSelectedByName();
    void createBouquet(const QString &named);
    void renameBouquet(const QUuid &id, const QString &to);
    void deleteBouquet(const QUuid &id);
    void moveBouquets(const QSet<qsizetype> &from, qsizetype to);

    // Service catalogue edits.
    void renameService(const ServiceKey &key, const QString &to);
    void deleteServices(const ServiceKeys &keys);

    // List folders.
    // Replaces the document with the folder's lists; throws Error and then changes nothing.
    void load(const QString &from);
    // Loads and reports a failure through errorMessage; returns whether it loaded.
    bool open(const QString &folder);
    QString label(const QString &folder) const;
    void remember(const QString &folder);
    void restoreLastList();
    // Writes the list into the folder and returns the names written, in order; throws Error on the
    // first failing write, leaving the files written before it.
    QStringList save(const QString &to);
    QCoro::Task<> saveToCurrentFolder();

    // Runs a long operation: busy while it runs, the outcome in the box log, a failure in
    // errorMessage. Starts at once; the returned task may be awaited or dropped.
    QCoro::Task<> perform(const QString &label, std::function<QCoro::Task<>()> operation);

    // The per-box folders.
    QString boxFolderName();
    QString workDir();
    static std::optional<QString> ipv4(const QString &host);
    static void mergeFolders(const QString &from, const QString &into);

signals:
    void bouquetsChanged();
    void servicesChanged();
    void kindChanged();
    void selectedBouquetIDChanged();
    void satelliteNamesChanged();
    void serviceEditsChanged();
    void usageChanged();
    void entrySelectionChanged();
    void entryListActiveChanged();
    void newBouquetRequestChanged();
    void serviceRenameRequestChanged();
    void serviceDeleteRequestChanged();
    void settingsChanged();
    void busyChanged();
    void statusChanged();
    void errorMessageChanged();
    void isDirtyChanged();
    void recentFoldersChanged();
    void backupsChanged();
    void lamedbRepairCountChanged();
    void piconCountChanged();
    void columnLayoutIDChanged();
    void canUndoChanged();
    void canRedoChanged();
    // After rebuildServices: the service table fits its column widths (needs fonts, so the
    // window does it and stores the result with setFittedWidths).
    void servicesRebuilt();
    // A folder was loaded; the picon index and the backup list depend on it.
    void folderLoaded();
    // Emitted when an operation of perform() has ended, whatever the outcome.
    void operationFinished();

private:
    static QCoro::Task<> finished();
    QCoro::Task<> run(QString logLabel, std::function<QCoro::Task<>()> operation);
    void setBouquets(const BouquetLists &bouquets);
    void setServiceEdits(const ServiceEdits &edits);
    void setCanUndoRedo(bool couldUndo, bool couldRedo);
    qsizetype indexOfBouquet(const QUuid &id) const;
    // Runs change on the current kind's list of bouquets as one undo step.
    void editBouquetList(const std::function<void(QList<Bouquet> &)> &change);
    // Edit steps shared by every operation: dirty, recount.
    void finishEdit();

    BouquetLists m_bouquets;
    QList<Service> m_services;
    MediaKind m_kind = MediaKind::tv;
    QUuid m_selectedBouquetID;
    SatelliteNames m_satelliteNames;
    ServiceEdits m_serviceEdits;
    UsageCounts m_usage;
    EntryIds m_entrySelection;
    bool m_entryListActive = false;
    QUuid m_newBouquetRequest;
    std::optional<Service> m_serviceRenameRequest;
    std::optional<ServiceKeys> m_serviceDeleteRequest;
    BoxSettings m_settings;
    std::optional<QString> m_busy;
    QString m_status;
    std::optional<QString> m_errorMessage;
    bool m_isDirty = false;
    quint64 m_revision = 0;
    QStringList m_recentFolders;
    QStringList m_backups;
    std::optional<int> m_lamedbRepairCount;
    int m_piconCount = 0;
    QUuid m_columnLayoutID;

    QList<Service> m_baseServices;
    QHash<ServiceKey, Service> m_serviceIndex;
    QMap<QString, QByteArray> m_lamedbTexts;
    QString m_folder;
    ServiceKeys m_serviceSelection;
    QList<Snapshot> m_undoStack;
    QList<Snapshot> m_redoStack;
    QHash<MediaKind, ColumnWidths> m_widths;
    QHash<MediaKind, ColumnWidths> m_fittedWidths;
    QSet<QString> m_piconNames;
    QHash<QString, QString> m_resolvedHosts;

    // The service keys of each bouquet's entries, kept while the entry list is unchanged, so that
    // recounting after an edit parses only the references of the bouquet that changed.
    struct KeyCache
    {
        QList<BouquetEntry> entries;
        QList<ServiceKey> keys;
    };
    QHash<QUuid, KeyCache> m_keyCache;
};
