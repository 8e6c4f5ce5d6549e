#include "Store.h"

#include "BouquetIndex.h"
#include "BoxLog.h"
#include "Error.h"
#include "ListFolder.h"
#include "NameOrder.h"
#include "Paths.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPointer>
#include <QSettings>

#include <arpa/inet.h>
#include <netdb.h>
#include <sys/socket.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QSettings preferences()
{
    return QSettings(u"Corvandel"_s, u"Corvandel"_s);
}

template <typename T> bool assign(T &field, const T &value)
{
    if (field == value) return false;
    field = value;
    return true;
}

// Moves the items at the offsets, in their order, before the item that stood at `to`.
template <typename T> void moveItems(QList<T> &list, const QSet<qsizetype> &from, qsizetype to)
{
    const qsizetype destination = std::clamp(to, qsizetype(0), list.size());
    QList<bool> moving(list.size(), false);
    for (qsizetype offset : from) {
        if (offset >= 0 && offset < list.size()) moving[offset] = true;
    }
    QList<T> before, moved, after;
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (moving.at(i))
            moved << list.at(i);
        else if (i < destination)
            before << list.at(i);
        else
            after << list.at(i);
    }
    if (moved.isEmpty()) return;
    list = before + moved + after;
}

// Blanks and tabs, but not line breaks, count as white space at the ends of a new name.
bool isBlank(QChar c)
{
    return c.isSpace() && c != u'\n' && c != u'\r' && c != u'\v' && c != u'\f' && c != QChar(0x85) &&
           c != QChar(0x2028) && c != QChar(0x2029);
}

QString trimmedBlanks(const QString &text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && isBlank(text.at(begin)))
        ++begin;
    while (end > begin && isBlank(text.at(end - 1)))
        --end;
    return text.mid(begin, end - begin);
}

// A folder name from a host text that stays one level below the data folder.
QString folderNameOf(const QString &host)
{
    QString name = host;
    name.replace(u'/', u'_');
    if (name == u"." || name == u"..") name.replace(u'.', u'_');
    // A box must never take the name of the data folder's own entries, which a download would
    // replace: the caches, the backups, the password file, and the hidden folders of transfers.
    if (name.startsWith(u'.')) name[0] = u'_';
    static const QStringList reserved{u"Picons"_s, u"Sicherungen"_s, u"Picon-Pakete"_s, u"passwords.json"_s};
    if (reserved.contains(name)) name.prepend(u'_');
    return name;
}

} // namespace

Store::Store(QObject *parent)
    : Store(BoxSettings::load(), parent)
{
}

Store::Store(const BoxSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_status(tr("Keine Senderliste geladen."))
    , m_columnLayoutID(QUuid::createUuid())
{
    m_recentFolders = preferences().value(u"recentFolders"_s).toStringList();
}

Store::~Store() = default;

// Published state.

void Store::setBouquets(const BouquetLists &bouquets)
{
    m_bouquets = bouquets;
    emit bouquetsChanged();
}

void Store::setServiceEdits(const ServiceEdits &edits)
{
    m_serviceEdits = edits;
    emit serviceEditsChanged();
}

void Store::setKind(MediaKind kind)
{
    if (assign(m_kind, kind)) emit kindChanged();
}

void Store::setSelectedBouquetID(const QUuid &id)
{
    if (!assign(m_selectedBouquetID, id)) return;
    emit selectedBouquetIDChanged();
    setEntrySelection({});
    setEntryListActive(false);
}

void Store::setEntrySelection(const EntryIds &selection)
{
    if (assign(m_entrySelection, selection)) emit entrySelectionChanged();
    if (!selection.isEmpty()) setEntryListActive(true);
}

void Store::setEntryListActive(bool active)
{
    if (assign(m_entryListActive, active)) emit entryListActiveChanged();
}

void Store::setNewBouquetRequest(const QUuid &id)
{
    if (assign(m_newBouquetRequest, id)) emit newBouquetRequestChanged();
}

void Store::setServiceRenameRequest(const std::optional<Service> &service)
{
    if (assign(m_serviceRenameRequest, service)) emit serviceRenameRequestChanged();
}

void Store::setServiceDeleteRequest(const std::optional<ServiceKeys> &keys)
{
    if (assign(m_serviceDeleteRequest, keys)) emit serviceDeleteRequestChanged();
}

void Store::setSettings(const BoxSettings &settings)
{
    if (assign(m_settings, settings)) emit settingsChanged();
}

void Store::setBusy(const std::optional<QString> &busy)
{
    if (assign(m_busy, busy)) emit busyChanged();
}

void Store::setStatus(const QString &status)
{
    if (assign(m_status, status)) emit statusChanged();
}

void Store::setErrorMessage(const std::optional<QString> &message)
{
    if (assign(m_errorMessage, message)) emit errorMessageChanged();
}

void Store::setDirty(bool dirty)
{
    if (dirty) ++m_revision;
    if (assign(m_isDirty, dirty)) emit isDirtyChanged();
}

void Store::setBackups(const QStringList &backups)
{
    if (assign(m_backups, backups)) emit backupsChanged();
}

void Store::setLamedbRepairCount(const std::optional<int> &count)
{
    if (assign(m_lamedbRepairCount, count)) emit lamedbRepairCountChanged();
}

void Store::setPiconCount(int count)
{
    if (assign(m_piconCount, count)) emit piconCountChanged();
}

void Store::setColumnLayoutID(const QUuid &id)
{
    if (assign(m_columnLayoutID, id)) emit columnLayoutIDChanged();
}

void Store::setCanUndoRedo(bool couldUndo, bool couldRedo)
{
    if (couldUndo != canUndo()) emit canUndoChanged();
    if (couldRedo != canRedo()) emit canRedoChanged();
}

// Derived values.

qsizetype Store::indexOfBouquet(const QUuid &id) const
{
    if (id.isNull()) return -1;
    const auto it = m_bouquets.constFind(m_kind);
    if (it == m_bouquets.cend()) return -1;
    for (qsizetype i = 0; i < it->size(); ++i) {
        if (it->at(i).id == id) return i;
    }
    return -1;
}

std::optional<Bouquet> Store::selectedBouquet() const
{
    const qsizetype index = indexOfBouquet(m_selectedBouquetID);
    if (index < 0) return std::nullopt;
    return m_bouquets.value(m_kind).at(index);
}

std::optional<Service> Store::service(const BouquetEntry &entry) const
{
    const std::optional<ServiceKey> key = entry.serviceKey();
    if (!key) return std::nullopt;
    const auto it = m_serviceIndex.constFind(*key);
    if (it == m_serviceIndex.cend()) return std::nullopt;
    return *it;
}

QString Store::displayName(const BouquetEntry &entry) const
{
    if (entry.description) return *entry.description;
    if (const std::optional<Service> found = service(entry)) return found->name;
    if (entry.reference.startsWith(u"1:7:")) return tr("Unter-Bouquet");
    return tr("Unbekannt (%1)").arg(entry.reference);
}

ServiceKeys Store::unusedServiceKeys() const
{
    ServiceKeys keys;
    for (const Service &service : m_services) {
        if (m_usage.value(service.key) == 0) keys.insert(service.key);
    }
    return keys;
}

int Store::bouquetUses(const ServiceKeys &keys) const
{
    int uses = 0;
    for (const ServiceKey &key : keys)
        uses += m_usage.value(key);
    return uses;
}

// Undo history.

Snapshot Store::snapshot() const
{
    return Snapshot{m_bouquets, m_kind, m_selectedBouquetID, m_serviceEdits};
}

void Store::checkpoint()
{
    const bool couldUndo = canUndo();
    const bool couldRedo = canRedo();
    const qsizetype held = m_undoStack.size();
    m_undoStack.append(snapshot());
    if (held >= undoLimit) m_undoStack.removeFirst();
    m_redoStack.clear();
    setCanUndoRedo(couldUndo, couldRedo);
}

void Store::restore(const Snapshot &snapshot)
{
    setBouquets(snapshot.bouquets);
    setKind(snapshot.kind);
    setSelectedBouquetID(snapshot.selected);
    if (snapshot.serviceEdits != m_serviceEdits) {
        setServiceEdits(snapshot.serviceEdits);
        rebuildServices();
    }
    // Deliberately also when the restored state is the saved one.
    setDirty(true);
    recountUsage();
}

void Store::undo()
{
    if (m_undoStack.isEmpty()) return;
    const bool couldUndo = canUndo();
    const bool couldRedo = canRedo();
    const Snapshot previous = m_undoStack.takeLast();
    m_redoStack.append(snapshot());
    restore(previous);
    setCanUndoRedo(couldUndo, couldRedo);
}

void Store::redo()
{
    if (m_redoStack.isEmpty()) return;
    const bool couldUndo = canUndo();
    const bool couldRedo = canRedo();
    const Snapshot next = m_redoStack.takeLast();
    // No trimming here: only a new edit drops the oldest snapshot.
    m_undoStack.append(snapshot());
    restore(next);
    setCanUndoRedo(couldUndo, couldRedo);
}

void Store::resetUndo()
{
    const bool couldUndo = canUndo();
    const bool couldRedo = canRedo();
    m_undoStack.clear();
    m_redoStack.clear();
    setCanUndoRedo(couldUndo, couldRedo);
}

void Store::finishEdit()
{
    setDirty(true);
    recountUsage();
}

void Store::mutate(const QUuid &bouquetID, const std::function<void(Bouquet &)> &change)
{
    const qsizetype index = indexOfBouquet(bouquetID);
    if (index < 0) return;
    checkpoint();
    change(m_bouquets[m_kind][index]);
    emit bouquetsChanged();
    finishEdit();
}

void Store::editBouquetList(const std::function<void(QList<Bouquet> &)> &change)
{
    checkpoint();
    // An absent list stays absent unless the change adds to it.
    QList<Bouquet> list = m_bouquets.value(m_kind);
    change(list);
    if (!list.isEmpty() || m_bouquets.contains(m_kind)) m_bouquets.insert(m_kind, list);
    emit bouquetsChanged();
}

void Store::rebuildServices()
{
    QList<Service> edited;
    if (m_serviceEdits.isEmpty()) {
        edited = m_baseServices;
    } else {
        edited.reserve(m_baseServices.size());
        for (const Service &service : m_baseServices) {
            const auto edit = m_serviceEdits.constFind(service.key);
            if (edit == m_serviceEdits.cend()) {
                edited << service;
            } else if (edit->isRename()) {
                edited << service;
                edited.last().name = edit->newName();
            }
        }
    }
    const QList<qsizetype> order =
        NameOrder::sorted(edited.size(), [&](qsizetype i) { return edited.at(i).name; });
    QList<Service> sorted;
    sorted.reserve(edited.size());
    for (qsizetype i : order)
        sorted << edited.at(i);
    m_services = sorted;

    // Of several services with one key, the index keeps the first in the shown order.
    QHash<ServiceKey, Service> index;
    index.reserve(m_services.size());
    for (auto it = m_services.crbegin(); it != m_services.crend(); ++it)
        index.insert(it->key, *it);
    m_serviceIndex = index;
    emit servicesChanged();
    emit servicesRebuilt();
}

void Store::recountUsage()
{
    // Only bouquets whose entry lists changed since the last count are counted again: their old
    // keys come off, their new keys go on. The cache holds a copy of each counted list, so the
    // same storage means the same entries.
    QHash<QUuid, KeyCache> stale = m_keyCache;
    QHash<QUuid, KeyCache> cache;
    cache.reserve(stale.size());
    QList<QUuid> fresh;
    for (const QList<Bouquet> &list : std::as_const(m_bouquets)) {
        for (const Bouquet &bouquet : list) {
            if (cache.contains(bouquet.id)) {
                // Two bouquets with one id cannot be told apart in the cache: count from scratch.
                m_keyCache.clear();
                m_usage.clear();
                recountUsage();
                return;
            }
            const auto old = stale.constFind(bouquet.id);
            if (old != stale.cend() && old->entries.constData() == bouquet.entries.constData() &&
                old->entries.size() == bouquet.entries.size()) {
                cache.insert(bouquet.id, *old);
                stale.erase(old);
            } else {
                cache.insert(bouquet.id, KeyCache{bouquet.entries, {}});
                fresh << bouquet.id;
            }
        }
    }
    UsageCounts usage = m_usage;
    for (const KeyCache &gone : std::as_const(stale)) {
        for (const ServiceKey &key : gone.keys) {
            const auto it = usage.find(key);
            if (it != usage.end() && --*it <= 0) usage.erase(it);
        }
    }
    for (const QUuid &id : std::as_const(fresh)) {
        KeyCache &entry = cache[id];
        for (const BouquetEntry &e : std::as_const(entry.entries)) {
            if (const std::optional<ServiceKey> key = e.serviceKey()) {
                entry.keys << *key;
                ++usage[*key];
            }
        }
    }
    m_keyCache = cache;
    m_usage = usage;
    emit usageChanged();
}

// Bouquet editing.

void Store::add(const QList<Service> &services)
{
    mutate(m_selectedBouquetID, [&](Bouquet &bouquet) {
        for (const Service &service : services)
            bouquet.entries << BouquetEntry{freshId(), reference(service), std::nullopt};
    });
}

void Store::insert(const QStringList &references, const QUuid &into, std::optional<qsizetype> at)
{
    QList<BouquetEntry> entries;
    for (const QString &text : references) {
        if (text.startsWith(u"1:")) entries << BouquetEntry{freshId(), text, std::nullopt};
    }
    if (entries.isEmpty()) return;
    mutate(into, [&](Bouquet &bouquet) {
        const qsizetype size = bouquet.entries.size();
        const qsizetype position = at ? std::clamp(*at, qsizetype(0), size) : size;
        bouquet.entries = bouquet.entries.mid(0, position) + entries + bouquet.entries.mid(position);
    });
}

void Store::addMarker(const QString &text)
{
    mutate(m_selectedBouquetID, [&](Bouquet &bouquet) {
        bouquet.entries << BouquetEntry{freshId(), markerReference.toString(), text};
    });
}

void Store::removeSelectedEntries()
{
    if (indexOfBouquet(m_selectedBouquetID) < 0) return;
    const EntryIds selection = m_entrySelection;
    mutate(m_selectedBouquetID, [&](Bouquet &bouquet) {
        bouquet.entries.removeIf([&](const BouquetEntry &entry) { return selection.contains(entry.id); });
    });
    setEntrySelection({});
}

void Store::moveEntries(const QSet<qsizetype> &from, qsizetype to)
{
    mutate(m_selectedBouquetID, [&](Bouquet &bouquet) { moveItems(bouquet.entries, from, to); });
}

void Store::renameEntry(const QUuid &id, const QString &to)
{
    mutate(m_selectedBouquetID, [&](Bouquet &bouquet) {
        for (BouquetEntry &entry : bouquet.entries) {
            if (entry.id == id) {
                entry.description = to.isEmpty() ? std::nullopt : std::optional<QString>(to);
                return;
            }
        }
    });
}

void Store::sortSelectedByName()
{
    mutate(m_selectedBouquetID, [&](Bouquet &bouquet) {
        const QList<BouquetEntry> entries = bouquet.entries;
        const QList<qsizetype> order =
            NameOrder::sorted(entries.size(), [&](qsizetype i) { return displayName(entries.at(i)); });
        QList<BouquetEntry> sorted;
        sorted.reserve(entries.size());
        for (qsizetype i : order)
            sorted << entries.at(i);
        bouquet.entries = sorted;
    });
}

void Store::createBouquet(const QString &named)
{
    if (named.isEmpty()) return;
    QSet<QString> existing;
    for (const QList<Bouquet> &list : std::as_const(m_bouquets)) {
        for (const Bouquet &bouquet : list)
            existing.insert(bouquet.fileName);
    }
    Bouquet bouquet;
    bouquet.name = named;
    bouquet.fileName = BouquetIndex::newFileName(named, m_kind, existing);
    bouquet.kind = m_kind;
    editBouquetList([&](QList<Bouquet> &list) { list << bouquet; });
    setSelectedBouquetID(bouquet.id);
    finishEdit();
}

void Store::renameBouquet(const QUuid &id, const QString &to)
{
    const qsizetype index = indexOfBouquet(id);
    if (to.isEmpty() || index < 0) return;
    // The file name stays, so that the index on the box keeps naming the same file.
    editBouquetList([&](QList<Bouquet> &list) { list[index].name = to; });
    finishEdit();
}

void Store::deleteBouquet(const QUuid &id)
{
    qsizetype removed = 0;
    editBouquetList([&](QList<Bouquet> &list) {
        removed = list.removeIf([&](const Bouquet &bouquet) { return bouquet.id == id; });
    });
    if (removed > 0 && id == m_selectedBouquetID) {
        const QList<Bouquet> remaining = currentBouquets();
        setSelectedBouquetID(remaining.isEmpty() ? QUuid() : remaining.first().id);
    }
    finishEdit();
}

void Store::moveBouquets(const QSet<qsizetype> &from, qsizetype to)
{
    editBouquetList([&](QList<Bouquet> &list) { moveItems(list, from, to); });
    finishEdit();
}

// Service catalogue edits.

void Store::renameService(const ServiceKey &key, const QString &to)
{
    QString name = trimmedBlanks(to);
    // A double quote would break the quoted name fields of the files.
    name.replace(u'"', u'\'');
    if (name.isEmpty()) return;
    const auto base = std::find_if(m_baseServices.cbegin(), m_baseServices.cend(),
                                   [&](const Service &service) { return service.key == key; });
    if (base == m_baseServices.cend()) return;
    checkpoint();
    ServiceEdits edits = m_serviceEdits;
    if (name != base->name)
        edits.insert(key, ServiceEdit::rename(name));
    else
        edits.remove(key);
    setServiceEdits(edits);
    rebuildServices();
    finishEdit();
    setStatus(tr("Sender in „%1“ umbenannt – auf die Box kommt das mit „Senden“.").arg(name));
}

void Store::deleteServices(const ServiceKeys &keys)
{
    if (keys.isEmpty()) return;
    checkpoint();
    const auto deleted = [&](const BouquetEntry &entry) {
        const std::optional<ServiceKey> key = entry.serviceKey();
        return key && keys.contains(*key);
    };
    BouquetLists bouquets = m_bouquets;
    for (auto list = bouquets.begin(); list != bouquets.end(); ++list) {
        for (qsizetype i = 0; i < list->size(); ++i) {
            // Only bouquets that lose entries are copied.
            const QList<BouquetEntry> &entries = list->at(i).entries;
            if (std::any_of(entries.cbegin(), entries.cend(), deleted)) (*list)[i].entries.removeIf(deleted);
        }
    }
    setBouquets(bouquets);
    ServiceEdits edits = m_serviceEdits;
    for (const ServiceKey &key : keys)
        edits.insert(key, ServiceEdit::deletion());
    setServiceEdits(edits);
    m_serviceSelection.subtract(keys);
    rebuildServices();
    finishEdit();
    setStatus(tr("%1 Sender gelöscht – auf die Box kommt das mit „Senden“.").arg(keys.size()));
}

// List folders.

void Store::load(const QString &from)
{
    const ListFolder::Contents contents = ListFolder::read(from);

    m_satelliteNames = contents.satelliteNames;
    emit satelliteNamesChanged();
    m_lamedbTexts = contents.lamedbTexts;
    m_baseServices = contents.database.services;
    m_serviceSelection.clear();
    setServiceEdits({});
    rebuildServices();
    setBouquets(contents.bouquets);

    m_folder = ListFolder::standardized(from);
    remember(m_folder);
    emit folderLoaded();

    const QList<Bouquet> current = currentBouquets();
    setSelectedBouquetID(current.isEmpty() ? QUuid() : current.first().id);
    setDirty(false);
    resetUndo();
    m_keyCache.clear();
    m_usage.clear();
    recountUsage();

    QString status = tr("%1 Sender (%2), %3 TV- und %4 Radio-Bouquets geladen.")
                         .arg(m_services.size())
                         .arg(contents.primary)
                         .arg(m_bouquets.value(MediaKind::tv).size())
                         .arg(m_bouquets.value(MediaKind::radio).size());
    const std::optional<ListFolder::Comparison> comparison =
        contents.comparison.valid() ? contents.comparison.get() : std::nullopt;
    if (comparison && comparison->differ) {
        status += tr(" Hinweis: lamedb und lamedb5 enthalten unterschiedliche Sender.");
        BoxLog::shared().write(
            BoxLog::Level::info, u"Ordner"_s,
            u"lamedb (%1) und lamedb5 (%2) unterscheiden sich"_s.arg(comparison->lamedbCount)
                .arg(comparison->lamedb5Count));
    }
    if (!contents.missingFiles.isEmpty())
        status += tr(" Fehlende Dateien: ") + contents.missingFiles.join(u", "_s);
    setStatus(status);
}

bool Store::open(const QString &folder)
{
    QString reason;
    try {
        load(folder);
        return true;
    } catch (const Error &error) {
        reason = error.description();
    } catch (const std::exception &error) {
        reason = QString::fromUtf8(error.what());
    }
    setErrorMessage(tr("„%1“ konnte nicht geladen werden: %2").arg(label(folder), reason));
    return false;
}

QString Store::label(const QString &folder) const
{
    const QString path = ListFolder::standardized(folder);
    const QFileInfo info(path);
    if (path.startsWith(ListFolder::standardized(Paths::dataDir()) + u'/'))
        return tr("Box-Kopie %1").arg(info.fileName());
    QString parent = info.path();
    const QString home = ListFolder::standardized(QDir::homePath());
    if (parent == home)
        parent = u"~"_s;
    else if (parent.startsWith(home + u'/'))
        parent = u'~' + parent.mid(home.size());
    return info.fileName() + u" – "_s + parent;
}

void Store::remember(const QString &folder)
{
    const QString path = ListFolder::standardized(folder);
    QStringList paths = m_recentFolders;
    paths.removeAll(path);
    paths.prepend(path);
    if (paths.size() >= 6) paths = paths.mid(0, 5);
    preferences().setValue(u"recentFolders"_s, paths);
    if (assign(m_recentFolders, paths)) emit recentFoldersChanged();
}

void Store::restoreLastList()
{
    const QVariant autoLoad = preferences().value(u"autoLoadLast"_s);
    if (autoLoad.isValid() && !autoLoad.toBool()) return;
    if (!m_services.isEmpty()) return;
    QStringList candidates;
    if (!m_recentFolders.isEmpty()) candidates << m_recentFolders.first();
    if (!m_settings.host.trimmed().isEmpty()) candidates << workDir();
    for (const QString &candidate : std::as_const(candidates)) {
        const QDir dir(candidate);
        if (!QFileInfo(dir.filePath(u"lamedb"_s)).isFile() && !QFileInfo(dir.filePath(u"lamedb5"_s)).isFile())
            continue;
        if (open(candidate))
            setStatus(tr("Zuletzt verwendete Liste geladen (%1). ").arg(label(candidate)) + m_status);
        return;
    }
}

QStringList Store::save(const QString &to)
{
    const QString target = ListFolder::standardized(to);
    if (!QDir().mkpath(target))
        throw MessageError(tr("Der Ordner „%1“ konnte nicht angelegt werden.").arg(target));
    QStringList written;
    const auto write = [&](const QString &name, const QByteArray &bytes) {
        ListFolder::writeFile(target, name, bytes);
        written << name;
    };
    for (MediaKind kind : MediaKind::allCases()) {
        QList<Bouquet> bouquets = m_bouquets.value(kind);
        // Never write outside the folder, whatever name a bouquet came with.
        bouquets.removeIf(
            [](const Bouquet &bouquet) { return !BouquetIndex::isSafeFileName(bouquet.fileName); });
        write(u"bouquets."_s + kind.rawValue(), BouquetIndex::serialized(kind, bouquets));
        for (const Bouquet &bouquet : std::as_const(bouquets))
            write(bouquet.fileName, bouquet.serialized());
    }
    if (!m_serviceEdits.isEmpty() || target != m_folder) {
        for (auto it = m_lamedbTexts.cbegin(); it != m_lamedbTexts.cend(); ++it)
            write(it.key(), LameDB::applying(m_serviceEdits, it.value()));
    }
    return written;
}

QCoro::Task<> Store::saveToCurrentFolder()
{
    if (m_folder.isEmpty()) return finished();
    // Not a coroutine itself: GCC 12 destroys some temporaries of a co_await expression twice,
    // such as the function converted from this lambda.
    const QString folder = m_folder;
    return perform(tr("Speichere…"), [this, folder]() -> QCoro::Task<> {
        save(folder);
        setDirty(false);
        setStatus(tr("Gespeichert in %1.").arg(folder));
        co_return;
    });
}

// Operation runner.

QCoro::Task<> Store::perform(const QString &label, std::function<QCoro::Task<>()> operation)
{
    setBusy(label);
    static const QString trimmed = u"…. "_s;
    qsizetype begin = 0;
    qsizetype end = label.size();
    while (begin < end && trimmed.contains(label.at(begin)))
        ++begin;
    while (end > begin && trimmed.contains(label.at(end - 1)))
        --end;
    const QString logLabel = label.mid(begin, end - begin);
    BoxLog::shared().write(BoxLog::Level::task, u"Aufgabe"_s, logLabel + u" – Box "_s + m_settings.host);
    return run(logLabel, std::move(operation));
}

QCoro::Task<> Store::finished()
{
    co_return;
}

QCoro::Task<> Store::run(QString logLabel, std::function<QCoro::Task<>()> operation)
{
    QPointer<Store> self(this);
    QElapsedTimer timer;
    timer.start();
    std::optional<QString> failure;
    try {
        co_await operation();
    } catch (const Error &error) {
        failure = error.description();
    } catch (const std::exception &error) {
        failure = QString::fromUtf8(error.what());
    } catch (...) {
        failure = tr("Unbekannter Fehler.");
    }
    if (!self) co_return;
    const QString seconds = QString::asprintf("%.2f s", double(timer.nsecsElapsed()) / 1e9);
    if (failure) {
        BoxLog::shared().write(BoxLog::Level::error, u"Aufgabe"_s,
                               logLabel + u": abgebrochen nach "_s + seconds + u" – "_s + *failure);
        setErrorMessage(failure);
    } else {
        BoxLog::shared().write(BoxLog::Level::ok, u"Aufgabe"_s,
                               logLabel + u": fertig in "_s + seconds + u" – "_s + m_status);
    }
    setBusy(std::nullopt);
    emit operationFinished();
}

// Per-box folders.

QString Store::boxFolderName()
{
    const QString host = m_settings.host.trimmed();
    if (host.isEmpty()) return u"box"_s;
    const auto known = m_resolvedHosts.constFind(host);
    if (known != m_resolvedHosts.cend()) return *known;
    if (const std::optional<QString> address = ipv4(host)) {
        m_resolvedHosts.insert(host, *address);
        if (*address != host) mergeFolders(folderNameOf(host), *address);
        return *address;
    }
    return folderNameOf(host);
}

QString Store::workDir()
{
    return Paths::dataDir() + u'/' + boxFolderName();
}

std::optional<QString> Store::ipv4(const QString &host)
{
    addrinfo hints{};
    hints.ai_flags = 0;
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *results = nullptr;
    if (getaddrinfo(host.toUtf8().constData(), nullptr, &hints, &results) != 0 || !results)
        return std::nullopt;
    char text[16] = {};
    const auto *address = reinterpret_cast<const sockaddr_in *>(results->ai_addr);
    const bool printed = inet_ntop(AF_INET, &address->sin_addr, text, sizeof text) != nullptr;
    freeaddrinfo(results);
    if (!printed) return std::nullopt;
    return QString::fromLatin1(text);
}

void Store::mergeFolders(const QString &from, const QString &into)
{
    // Names that would leave the data folder are never merged.
    for (const QString &name : {from, into}) {
        if (name.isEmpty() || name == u"." || name == u".." || name.contains(u'/')) return;
    }
    const QString base = Paths::dataDir() + u'/';
    for (const QString &prefix : {u""_s, u"Picons/"_s, u"Sicherungen/"_s}) {
        const QString source = base + prefix + from;
        const QString destination = base + prefix + into;
        if (!QFileInfo(source).isDir()) continue;
        QDir().mkpath(destination);
        QDir sourceDir(source);
        const QStringList names =
            sourceDir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        for (const QString &name : names) {
            const QFileInfo target(destination + u'/' + name);
            if (!target.exists() && !target.isSymLink()) sourceDir.rename(name, target.filePath());
        }
        if (sourceDir.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
            QDir().rmdir(source);
        BoxLog::shared().write(BoxLog::Level::info, u"Ordner"_s,
                               u"Daten von „%1“ nach „%2“ übernommen"_s.arg(prefix + from, prefix + into));
    }
}
