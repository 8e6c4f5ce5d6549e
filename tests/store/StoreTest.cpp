#include "BouquetListModel.h"
#include "EntryListModel.h"
#include "ListFixture.h"
#include "NameOrder.h"
#include "ServiceTableModel.h"
#include "Store.h"
#include "TestSupport.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using ListFixture::key;
using ListFixture::reference;
using Edit = std::function<void(Store &)>;

namespace {

constexpr auto testerMode = QAbstractItemModelTester::FailureReportingMode::QtTest;

QList<QUuid> entryIds(const Store &store)
{
    QList<QUuid> ids;
    for (const BouquetEntry &entry : store.selectedBouquet().value_or(Bouquet()).entries)
        ids << entry.id;
    return ids;
}

QUuid idOf(const Store &store, const QString &bouquet)
{
    return ListFixture::bouquetNamed(store, bouquet).id;
}

// What the entry list shows of a bouquet, or the sidebar of the current kind for an empty name.
QString shown(const Store &store, const QString &bouquet)
{
    return (bouquet.isEmpty() ? ListFixture::bouquetNames(store) : ListFixture::entryNames(store, bouquet)).join(u'|');
}

} // namespace

// The editing operations of the store and their undo history, and the item models that follow
// the store row by row and turn drops and edits into store operations, on the list fixture.
class StoreTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Store> m_store;

    Bouquet bouquet(const QString &name) const { return ListFixture::bouquetNamed(*m_store, name); }
    QString shown(const QString &bouquet) const { return ::shown(*m_store, bouquet); }
    qsizetype steps() const { return m_store->undoStack().size(); }

private slots:
    void initTestCase()
    {
        TestSupport::isolateUserFolders();
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        ListFixture::write(m_dir->path());
        m_store = std::make_unique<Store>();
        m_store->load(m_dir->path());
        QCOMPARE(m_store->services().size(), 9);
    }

    void edits_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("bouquet");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("steps");
        const QString favourites = u"Das Erste HD|Nachrichten|ZDF HD|arte HD"_s;
        const auto row = [&](const char *name, Edit edit, const QString &expected, int steps,
                             const QString &bouquet = u"Favoriten"_s) {
            QTest::newRow(name) << edit << bouquet << expected << steps;
        };
        const auto insert = [](std::optional<qsizetype> at) {
            return [at](Store &s) { s.insert({reference(0x86), reference(0x87)}, idOf(s, u"Favoriten"_s), at); };
        };
        const QString front = u"Österreich 1|zdf hd|"_s + favourites;
        const QString back = favourites + u"|Österreich 1|zdf hd"_s;
        row("insert at the front", insert(0), front, 1);
        row("insert in the middle", insert(2), u"Das Erste HD|Nachrichten|Österreich 1|zdf hd|ZDF HD|arte HD"_s, 1);
        row("insert at the end", insert(4), back, 1);
        row("insert beyond the end", insert(100), back, 1);
        row("insert before the start", insert(-3), front, 1);
        row("insert without a position", insert(std::nullopt), back, 1);
        row("insert texts that are no references", [](Store &s) {
            s.insert({u"hello"_s, u" 1:0:1:83:437:1:C00000:0:0:0:"_s, u"4097:0:1:1:1:1:0:0:0:0:http%3a//x:Y"_s},
                     idOf(s, u"Favoriten"_s), 0);
            s.insert({}, idOf(s, u"Favoriten"_s));
        }, favourites, 0);
        row("insert references among other texts, twice the same", [](Store &s) {
            s.insert({u"hello"_s, reference(0x83), reference(0x83)}, idOf(s, u"Favoriten"_s), 1);
        }, u"Das Erste HD|Das Erste HD|Das Erste HD|Nachrichten|ZDF HD|arte HD"_s, 1);
        row("insert into the other kind's bouquet", [](Store &s) { s.insert({reference(0x83)}, idOf(s, u"Radio"_s)); },
            u"Bayern 3|Antenne Bayern|Nur im Radio"_s, 0, u"Radio"_s);
        row("add a service twice, and a marker", [](Store &s) {
            s.add({s.serviceIndex().value(key(0x83)), s.serviceIndex().value(key(0x83))});
            s.addMarker(u"Sport"_s);
        }, favourites + u"|Das Erste HD|Das Erste HD|Sport"_s, 2);
        row("add without a selected bouquet", [](Store &s) {
            s.setSelectedBouquetID(QUuid());
            s.addMarker(u"x"_s);
            s.add({s.serviceIndex().value(key(0x83))});
            s.setSelectedBouquetID(idOf(s, u"Favoriten"_s));
        }, favourites, 0);
        // Moves of the rows A (Das Erste HD), B, C, D: scattered around the destination, onto or
        // just behind themselves, out of range; always a step.
        const QStringList abcd = favourites.split(u'|');
        const auto move = [&](const char *name, QSet<qsizetype> from, qsizetype to, const QString &order) {
            QString expected;
            for (const QChar letter : order)
                expected += (expected.isEmpty() ? QString() : u"|"_s) + abcd.at(letter.unicode() - u'A');
            row(name, [=](Store &s) { s.moveEntries(from, to); }, expected, 1);
        };
        move("first down by one", {0}, 2, u"BACD"_s);
        move("first before the fourth", {0}, 3, u"BCAD"_s);
        move("two to the end", {0, 1}, 4, u"CDAB"_s);
        move("two to the front", {2, 3}, 0, u"CDAB"_s);
        move("scattered around the destination", {1, 3}, 2, u"ABDC"_s);
        move("onto itself", {2}, 2, u"ABCD"_s);
        move("just behind itself", {2}, 3, u"ABCD"_s);
        move("last to the front", {3}, 0, u"DABC"_s);
        move("beyond the end", {0}, 99, u"BCDA"_s);
        move("unknown offsets", {7, -1}, 0, u"ABCD"_s);
        row("remove selected entries", [](Store &s) {
            const QList<QUuid> ids = entryIds(s);
            s.setEntrySelection({ids.at(0), ids.at(2), QUuid::createUuid()});
            s.removeSelectedEntries();
        }, u"Nachrichten|arte HD"_s, 1);
        // An own name shows for a service and a marker alike; an empty one brings back the
        // service's name, with its pending rename. An unknown id is a step as every mutation.
        row("rename entries", [](Store &s) {
            s.renameEntry(entryIds(s).at(0), u"Erstes"_s);
            s.renameEntry(entryIds(s).at(1), u"Sport"_s);
            s.renameEntry(QUuid::createUuid(), u"x"_s);
        }, u"Erstes|Sport|ZDF HD|arte HD"_s, 3);
        row("rename an entry back", [](Store &s) {
            s.renameEntry(entryIds(s).at(0), u"Erstes"_s);
            s.renameService(key(0x83), u"ARD"_s);
            s.renameEntry(entryIds(s).at(0), QString());
        }, u"ARD|Nachrichten|ZDF HD|arte HD"_s, 3);
        // Blanks and tab at the ends go, quotes become apostrophes; only blanks or an unknown
        // service change nothing.
        row("rename a service", [](Store &s) { s.renameService(key(0x83), u"  Das \"Erste\" HD\t"_s); },
            u"Das 'Erste' HD|Nachrichten|ZDF HD|arte HD"_s, 1);
        row("rename a service to blanks", [](Store &s) {
            s.renameService(key(0x83), u"  \t "_s);
            s.renameService(key(0x999), u"x"_s);
        }, favourites, 0);
        row("delete services", [](Store &s) { s.deleteServices({key(0x83), key(0x89)}); },
            u"Nachrichten|ZDF HD|arte HD"_s, 1);
        row("delete no services", [](Store &s) { s.deleteServices({}); }, favourites, 0);
        row("create a bouquet", [](Store &s) { s.createBouquet(u"Kinder"_s); }, u"Favoriten|Sport|Kinder"_s, 1, {});
        row("create a bouquet without a name", [](Store &s) { s.createBouquet({}); }, u"Favoriten|Sport"_s, 0, {});
        row("rename a bouquet", [](Store &s) { s.renameBouquet(idOf(s, u"Sport"_s), u"Fußball"_s); },
            u"Favoriten|Fußball"_s, 1, {});
        row("rename a bouquet to nothing, of the other kind, unknown", [](Store &s) {
            s.renameBouquet(idOf(s, u"Sport"_s), {});
            s.renameBouquet(idOf(s, u"Radio"_s), u"x"_s);
            s.renameBouquet(QUuid::createUuid(), u"x"_s);
        }, u"Favoriten|Sport"_s, 0, {});
        row("delete bouquets", [](Store &s) {
            s.deleteBouquet(idOf(s, u"Favoriten"_s));
            s.deleteBouquet(QUuid::createUuid());
        }, u"Sport"_s, 2, {});
        row("move bouquets", [](Store &s) {
            s.moveBouquets({1}, 0);
            s.moveBouquets({}, 0);
        }, u"Sport|Favoriten"_s, 2, {});
    }

    void edits()
    {
        QFETCH(Edit, edit);
        QFETCH(QString, bouquet);
        QFETCH(QString, expected);
        QFETCH(int, steps);
        const Snapshot loaded = m_store->snapshot();
        const QList<Service> services = m_store->services();
        edit(*m_store);
        QCOMPARE(shown(bouquet), expected);
        QCOMPARE(this->steps(), steps);
        // Every step dirties the list; entries never share an id.
        QCOMPARE(m_store->isDirty(), steps > 0);
        QList<QUuid> ids;
        for (const QList<Bouquet> &list : m_store->bouquets()) {
            for (const Bouquet &bouquet : list) {
                for (const BouquetEntry &entry : bouquet.entries)
                    ids << entry.id;
            }
        }
        QCOMPARE(QSet<QUuid>(ids.cbegin(), ids.cend()).size(), ids.size());
        // Undo brings back the list as loaded, the catalogue included.
        while (m_store->canUndo())
            m_store->undo();
        QCOMPARE(m_store->snapshot(), loaded);
        QCOMPARE(m_store->services(), services);
    }

    void undoHistory()
    {
        QSignalSpy canUndo(m_store.get(), &Store::canUndoChanged);
        for (int i = 1; i <= 205; ++i)
            m_store->addMarker(QString::number(i));
        QCOMPARE(steps(), 200);
        // Redo stacks the snapshots again without trimming; only a new edit drops the oldest one.
        const BouquetLists after = m_store->bouquets();
        for (int i = 0; i < 5; ++i)
            m_store->undo();
        QCOMPARE(steps(), 195);
        QVERIFY(shown(u"Favoriten"_s).endsWith(u"|200"_s));
        for (int i = 0; i < 5; ++i)
            m_store->redo();
        QCOMPARE(m_store->bouquets(), after);
        QVERIFY(!m_store->canRedo());
        m_store->addMarker(u"206"_s);
        QCOMPARE(steps(), 200);
        // A new edit after an undo empties the redo stack.
        m_store->undo();
        QSignalSpy canRedo(m_store.get(), &Store::canRedoChanged);
        m_store->addMarker(u"neu"_s);
        QVERIFY(m_store->redoStack().isEmpty());
        QCOMPARE(canRedo.count(), 1);
        m_store->redo();
        QVERIFY(shown(u"Favoriten"_s).endsWith(u"|205|neu"_s));
        // The first six edits fell out of the history.
        while (m_store->canUndo())
            m_store->undo();
        QVERIFY(shown(u"Favoriten"_s).endsWith(u"arte HD|1|2|3|4|5|6"_s));
        QCOMPARE(m_store->redoStack().size(), 200);
        QCOMPARE(canUndo.count(), 2);
        // Undo and redo dirty the list, also back to the state of the last save; emptying the
        // history keeps the flag.
        m_store->setDirty(false);
        m_store->addMarker(u"x"_s);
        m_store->undo();
        QVERIFY(m_store->isDirty());
        m_store->setDirty(false);
        m_store->redo();
        QVERIFY(m_store->isDirty());
        m_store->resetUndo();
        QVERIFY(m_store->isDirty() && !m_store->canUndo() && !m_store->canRedo());
        // On empty stacks nothing happens at all.
        m_store->setDirty(false);
        m_store->undo();
        m_store->redo();
        QVERIFY(!m_store->isDirty());
    }

    void otherKindAndSelection()
    {
        // Edits of a bouquet of the other kind, or of none, change nothing; in its own kind the same
        // call is an edit, even when it changes nothing.
        const Bouquet radio = bouquet(u"Radio"_s);
        QSignalSpy changed(m_store.get(), &Store::bouquetsChanged);
        m_store->mutate(radio.id, [](Bouquet &bouquet) { bouquet.name = u"Geändert"_s; });
        m_store->mutate(QUuid(), [](Bouquet &bouquet) { bouquet.name = u"Geändert"_s; });
        QCOMPARE(changed.count(), 0);
        QVERIFY(!m_store->canUndo() && !m_store->isDirty());
        QCOMPARE(bouquet(u"Radio"_s), radio);
        m_store->setKind(MediaKind::radio);
        m_store->mutate(radio.id, [](Bouquet &) {});
        QCOMPARE(changed.count(), 1);
        QVERIFY(m_store->canUndo() && m_store->isDirty());
        m_store->setKind(MediaKind::tv);

        const Bouquet favourites = bouquet(u"Favoriten"_s);
        QCOMPARE(m_store->selectedBouquetID(), favourites.id);
        QVERIFY(!m_store->entryListActive());
        m_store->setEntrySelection({favourites.entries.first().id});
        QVERIFY(m_store->entryListActive());
        // Selecting the same bouquet again changes nothing; another one clears the entry selection.
        m_store->setEntryListActive(false);
        QSignalSpy selection(m_store.get(), &Store::entrySelectionChanged);
        m_store->setSelectedBouquetID(favourites.id);
        QCOMPARE(selection.count(), 0);
        QCOMPARE(m_store->entrySelection().size(), 1);
        m_store->setEntryListActive(true);
        m_store->setSelectedBouquetID(bouquet(u"Sport"_s).id);
        QVERIFY(m_store->entrySelection().isEmpty() && !m_store->entryListActive());
        QCOMPARE(selection.count(), 1);
        // An empty selection does not activate the entry list; removing entries clears it.
        m_store->setEntrySelection({});
        QVERIFY(!m_store->entryListActive());
        m_store->setEntrySelection({bouquet(u"Sport"_s).entries.first().id});
        m_store->removeSelectedEntries();
        QVERIFY(m_store->entrySelection().isEmpty());
        QCOMPARE(selection.count(), 3);
        // Undo restores the selected bouquet and so clears the entry selection.
        m_store->createBouquet(u"Neu"_s);
        m_store->setEntrySelection({QUuid::createUuid()});
        m_store->undo();
        QCOMPARE(m_store->selectedBouquetID(), bouquet(u"Sport"_s).id);
        QVERIFY(m_store->entrySelection().isEmpty());
        // Deleting the selected bouquet selects the first remaining one, then none.
        m_store->deleteBouquet(bouquet(u"Sport"_s).id);
        QCOMPARE(m_store->selectedBouquetID(), favourites.id);
        m_store->deleteBouquet(favourites.id);
        QCOMPARE(m_store->selectedBouquetID(), QUuid());
        QVERIFY(!m_store->selectedBouquet());
    }

    void bouquetFiles()
    {
        // A radio bouquet already holds the file name a new TV bouquet "Sport 2" would get.
        m_store->setKind(MediaKind::radio);
        m_store->createBouquet(u"Sport 2"_s);
        QCOMPARE(bouquet(u"Sport 2"_s).fileName, u"userbouquet.sport_2.radio"_s);
        m_store->mutate(bouquet(u"Sport 2"_s).id, [](Bouquet &bouquet) {
            bouquet.name = u"Alt"_s;
            bouquet.fileName = u"userbouquet.sport_2.tv"_s;
        });
        m_store->setKind(MediaKind::tv);
        m_store->setSelectedBouquetID(bouquet(u"Favoriten"_s).id);
        m_store->setEntrySelection({bouquet(u"Favoriten"_s).entries.first().id});
        QSignalSpy selected(m_store.get(), &Store::selectedBouquetIDChanged);
        // A new bouquet is selected; the same name again takes the next free number.
        m_store->createBouquet(u"Sport 2"_s);
        QCOMPARE(m_store->currentBouquets().last().fileName, u"userbouquet.sport_22.tv"_s);
        QCOMPARE(m_store->currentBouquets().last().kind, MediaKind(MediaKind::tv));
        QCOMPARE(m_store->selectedBouquetID(), m_store->currentBouquets().last().id);
        QCOMPARE(selected.count(), 1);
        QVERIFY(m_store->entrySelection().isEmpty());
        m_store->createBouquet(u"Sport 2"_s);
        QCOMPARE(m_store->currentBouquets().last().fileName, u"userbouquet.sport_23.tv"_s);
        // Renaming keeps the file name, so that the index on the box keeps naming the same file.
        m_store->renameBouquet(bouquet(u"Sport"_s).id, u"Fußball"_s);
        QCOMPARE(bouquet(u"Fußball"_s).fileName, u"userbouquet.sport.tv"_s);
    }

    void serviceEdits()
    {
        m_store->renameService(key(0x83), u"Vorher"_s);
        m_store->renameService(key(0x83), u"Zweites"_s);
        QCOMPARE(m_store->serviceEdits(), (ServiceEdits{{key(0x83), ServiceEdit::rename(u"Zweites"_s)}}));
        QCOMPARE(m_store->status(), u"Sender in „Zweites“ umbenannt – auf die Box kommt das mit „Senden“."_s);
        // The catalogue is sorted by the new name.
        QCOMPARE(m_store->services().last().name, u"Zweites"_s);
        // Back to the database name: no pending edit.
        m_store->renameService(key(0x83), u" Das Erste HD "_s);
        QVERIFY(m_store->serviceEdits().isEmpty());
        QCOMPARE(m_store->status(), u"Sender in „Das Erste HD“ umbenannt – auf die Box kommt das mit „Senden“."_s);

        // Deleting replaces a rename, takes the entries of TV and radio bouquets alike and the
        // services out of the table's selection.
        m_store->setServiceSelection({key(0x83), key(0x86)});
        m_store->renameService(key(0x89), u"Umbenannt"_s);
        QSignalSpy rebuilt(m_store.get(), &Store::servicesRebuilt);
        m_store->deleteServices({key(0x83), key(0x89)});
        QCOMPARE(rebuilt.count(), 1);
        QCOMPARE(m_store->status(), u"2 Sender gelöscht – auf die Box kommt das mit „Senden“."_s);
        QCOMPARE(m_store->serviceEdits(),
                 (ServiceEdits{{key(0x83), ServiceEdit::deletion()}, {key(0x89), ServiceEdit::deletion()}}));
        QCOMPARE(m_store->serviceSelection(), ServiceKeys{key(0x86)});
        QCOMPARE(m_store->services().size(), 7);
        QVERIFY(!m_store->serviceIndex().contains(key(0x83)));
        QCOMPARE(shown(u"Radio"_s), u"Bayern 3|Antenne Bayern"_s);
        m_store->undo();
        QCOMPARE(m_store->serviceIndex().value(key(0x89)).name, u"Umbenannt"_s);

        // Undoing a bouquet edit leaves the catalogue alone; undoing a service edit rebuilds it.
        m_store->addMarker(u"m"_s);
        rebuilt.clear();
        m_store->undo();
        QCOMPARE(rebuilt.count(), 0);
        m_store->undo();
        QCOMPARE(rebuilt.count(), 1);
        m_store->redo();
        m_store->redo();
        QCOMPARE(rebuilt.count(), 2);
    }

    void namesAndUsage()
    {
        const QList<BouquetEntry> sport = bouquet(u"Sport"_s).entries;
        QCOMPARE(m_store->service(sport.at(0))->key, key(0x84));
        QVERIFY(!m_store->service(sport.at(3)));
        QCOMPARE(m_store->displayName(BouquetEntry{freshId(), sport.at(2).reference, u"Eigen"_s}), u"Eigen"_s);
        QCOMPARE(m_store->displayName(BouquetEntry{freshId(), sport.at(0).reference, QString()}), QString());

        // 0x89 is a TV service used only in a radio bouquet: not unused.
        QCOMPARE(m_store->unusedServiceKeys(), (ServiceKeys{key(0x86), key(0x87), key(0x88)}));
        QCOMPARE(m_store->bouquetUses({key(0x83), key(0x84), key(0x88)}), 4);
        m_store->add({m_store->serviceIndex().value(key(0x83))});
        QCOMPARE(m_store->bouquetUses({key(0x83)}), 3);
        // Sub-bouquets and markers count for nothing; an unknown service counts but is not shown.
        QCOMPARE(m_store->usage().value(key(0x999)), 1);
        QVERIFY(!m_store->unusedServiceKeys().contains(key(0x999)));
        // A bouquet of the other kind is not deleted.
        m_store->deleteBouquet(bouquet(u"Radio"_s).id);
        QVERIFY(!m_store->unusedServiceKeys().contains(key(0x89)));
        m_store->setKind(MediaKind::radio);
        m_store->deleteBouquet(bouquet(u"Radio"_s).id);
        QCOMPARE(m_store->unusedServiceKeys(),
                 (ServiceKeys{key(0x86), key(0x87), key(0x88), key(0x89), key(0x100), key(0x101)}));
    }

    void sorting()
    {
        const Bouquet sport = bouquet(u"Sport"_s);
        m_store->setSelectedBouquetID(sport.id);
        m_store->addMarker(u"Nachrichten"_s);
        m_store->insert({reference(0x86), reference(0x84, 0x19)}, sport.id);
        m_store->renameEntry(bouquet(u"Sport"_s).entries.last().id, u"zdf hd"_s);
        m_store->sortSelectedByName();
        // Locale-aware (Ö as O), case-insensitive, markers among the rest, equal names in their order.
        QCOMPARE(shown(u"Sport"_s), u"Das Erste HD|Nachrichten|Österreich 1|Unbekannt (1:0:1:999:437:1:C00000:0:0:0:)|"
                                    u"Unter-Bouquet|ZDF HD|zdf hd"_s);
        QCOMPARE(bouquet(u"Sport"_s).entries.at(5).id, sport.entries.first().id);

        // Without a language the order is by case-folded code points, still stable; a name that
        // repeats keeps its places.
        const QStringList names{u"Zürich"_s, u"arte"_s, u"Bayern"_s, u"Österreich"_s, u"arte"_s, u"bayern"_s};
        for (const QLocale &locale : {QLocale::c(), QLocale(QLocale::German, QLocale::Germany)}) {
            QLocale::setDefault(locale);
            QStringList sorted;
            for (qsizetype i : NameOrder::sorted(names.size(), [&](qsizetype i) { return names.at(i); }))
                sorted << names.at(i);
            QCOMPARE(sorted.join(u' '), locale == QLocale::c() ? u"arte arte Bayern bayern Zürich Österreich"_s
                                                               : u"arte arte Bayern bayern Österreich Zürich"_s);
        }
    }

    void bouquetListModel()
    {
        BouquetListModel model(m_store.get());
        QAbstractItemModelTester tester(&model, testerMode);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QCOMPARE(model.index(1).data().toString(), u"Sport"_s);
        QCOMPARE(model.index(1).data(BouquetListModel::FileNameRole).toString(), u"userbouquet.sport.tv"_s);
        QCOMPARE(model.index(1).data(BouquetListModel::EntryCountRole).toInt(), 4);
        QVERIFY(model.flags(model.index(0)).testFlag(Qt::ItemIsEditable));
        // Renamed in place, trimmed, as one changed row; blanks only are refused.
        QVERIFY(model.setData(model.index(1), u"  Fußball "_s));
        QVERIFY(!model.setData(model.index(1), u"   "_s));
        QCOMPARE(shown({}), u"Favoriten|Fußball"_s);
        QCOMPARE(steps(), 1);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), 1);
        QCOMPARE(changed.first().at(1).toModelIndex().row(), 1);
        // Rows move through the store, not onto themselves; the other kind shows its own.
        QVERIFY(model.moveRows({}, 0, 1, {}, 2));
        QVERIFY(!model.moveRows({}, 0, 1, {}, 1));
        QCOMPARE(model.index(1).data().toString(), u"Favoriten"_s);
        m_store->setKind(MediaKind::radio);
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(model.index(0).data().toString(), u"Radio"_s);

        // Dropped rows of the sidebar move, those of the other kind's sidebar do not.
        m_store->setKind(MediaKind::tv);
        m_store->createBouquet(u"Kinder"_s);
        std::unique_ptr<QMimeData> rows(model.mimeData({model.index(0), model.index(2), model.index(0)}));
        QVERIFY(model.canDropMimeData(rows.get(), Qt::MoveAction, 2, 0, {}));
        QVERIFY(model.dropMimeData(rows.get(), Qt::MoveAction, 2, 0, {}));
        QCOMPARE(shown({}), u"Favoriten|Fußball|Kinder"_s);
        QMimeData radioRows;
        radioRows.setData(BouquetListModel::rowsMimeType, "radio\n0");
        QVERIFY(!model.canDropMimeData(&radioRows, Qt::MoveAction, 0, 0, {}));
        // References dropped on a bouquet are appended to it; between bouquets they are refused.
        QMimeData references;
        references.setText(reference(0x86) + u"\r\n\n"_s + reference(0x87) + u"\nkein Verweis"_s);
        QVERIFY(!model.canDropMimeData(&references, Qt::CopyAction, 1, 0, {}));
        QVERIFY(!model.dropMimeData(&references, Qt::CopyAction, 1, 0, {}));
        changed.clear();
        QVERIFY(model.dropMimeData(&references, Qt::CopyAction, -1, -1, model.index(2)));
        QCOMPARE(shown(u"Kinder"_s), u"Österreich 1|zdf hd"_s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), 2);
        QCOMPARE(model.index(2).data(BouquetListModel::EntryCountRole).toInt(), 2);
    }

    void entryListModel()
    {
        EntryListModel model(m_store.get());
        QAbstractItemModelTester tester(&model, testerMode);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QVERIFY(model.index(1).data(EntryListModel::MarkerRole).toBool());
        QVERIFY(!model.index(0).data(EntryListModel::MarkerRole).toBool());
        QCOMPARE(model.index(2).data(EntryListModel::ReferenceRole).toString(), u"1:0:19:84:437:1:C00000:0:0:0:"_s);
        QVERIFY(model.index(0).data(EntryListModel::ServiceKnownRole).toBool());
        // Renamed in place, back to the database name with an empty text; a renamed service shows
        // at once in entries without their own name.
        QVERIFY(model.setData(model.index(3), u" ARTE "_s));
        QCOMPARE(model.index(3).data().toString(), u"ARTE"_s);
        QCOMPARE(model.index(3).data(Qt::EditRole).toString(), u"ARTE"_s);
        QCOMPARE(changed.count(), 1);
        QVERIFY(model.setData(model.index(3), QString()));
        QCOMPARE(model.index(3).data().toString(), u"arte HD"_s);
        changed.clear();
        m_store->renameService(key(0x85), u"Arte Deutschland"_s);
        QCOMPARE(model.index(3).data().toString(), u"Arte Deutschland"_s);
        QVERIFY(!changed.isEmpty());

        // References land at the drop row as one block, onto empty space at the end.
        const QList<QUuid> ids = entryIds(*m_store);
        QMimeData references;
        references.setText(reference(0x86) + u'\n' + reference(0x87));
        QVERIFY(model.canDropMimeData(&references, Qt::CopyAction, 1, 0, {}));
        QVERIFY(model.dropMimeData(&references, Qt::CopyAction, 1, 0, {}));
        QVERIFY(model.dropMimeData(&references, Qt::CopyAction, -1, -1, {}));
        QCOMPARE(shown(u"Favoriten"_s), u"Das Erste HD|Österreich 1|zdf hd|Nachrichten|ZDF HD|Arte Deutschland|"
                                        u"Österreich 1|zdf hd"_s);
        // Own rows move; the drag also carries their references as text.
        std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(0), model.index(3)}));
        QCOMPARE(dragged->text(), reference(0x83) + u"\n1:64:0:0:0:0:0:0:0:0:"_s);
        QVERIFY(model.dropMimeData(dragged.get(), Qt::MoveAction, 8, 0, {}));
        QCOMPARE(entryIds(*m_store).mid(6), (QList<QUuid>{ids.at(0), ids.at(1)}));
        QCOMPARE(reset.count(), 0);
        // Into another bouquet's list the same drag copies the references.
        m_store->setSelectedBouquetID(bouquet(u"Sport"_s).id);
        QCOMPARE(reset.count(), 1);
        QVERIFY(!model.index(3).data(EntryListModel::ServiceKnownRole).toBool());
        QVERIFY(model.dropMimeData(dragged.get(), Qt::CopyAction, 0, 0, {}));
        QCOMPARE(model.index(0).data(EntryListModel::ReferenceRole).toString(), reference(0x83));
        QCOMPARE(model.index(1).data(EntryListModel::ReferenceRole).toString(), u"1:64:0:0:0:0:0:0:0:0:"_s);
        // No bouquet: no rows, nothing to drop on.
        m_store->setSelectedBouquetID(QUuid());
        QCOMPARE(reset.count(), 2);
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.flags({}).testFlag(Qt::ItemIsDropEnabled));
    }

    void sortingALargeBouquetIsALayoutChange()
    {
        EntryListModel model(m_store.get());
        QAbstractItemModelTester tester(&model, testerMode);
        QStringList references;
        QRandomGenerator random(7);
        for (int i = 0; i < 3000; ++i)
            references << u"1:0:1:%1:437:1:C00000:0:0:0:"_s.arg(random.bounded(1, 0xFFFFFF), 0, 16);
        m_store->insert(references, m_store->selectedBouquetID());
        const QPersistentModelIndex marker(model.index(1));
        QSignalSpy layout(&model, &QAbstractItemModel::layoutChanged);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
        m_store->sortSelectedByName();
        QCOMPARE(layout.count(), 1);
        QCOMPARE(reset.count() + moved.count(), 0);
        // A row the view holds on to follows its entry, there and back by undo.
        QCOMPARE(marker.data().toString(), u"Nachrichten"_s);
        QCOMPARE(marker.row(), int(entryIds(*m_store).indexOf(marker.data(EntryListModel::IdRole).toUuid())));
        QVERIFY(marker.row() != 1);
        m_store->undo();
        QCOMPARE(layout.count(), 2);
        QCOMPARE(marker.row(), 1);
        QCOMPARE(reset.count() + moved.count(), 0);
    }

    void serviceTableModel()
    {
        ServiceTableModel model(m_store.get());
        QAbstractItemModelTester tester(&model, testerMode);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QStringList columns;
        for (int column = 0; column < model.columnCount(); ++column) {
            columns << model.headerData(column, Qt::Horizontal).toString() + u'/' +
                           ServiceTableModel::columnIdentifier(column) + u'/' + model.index(0, column).data().toString();
        }
        QCOMPARE(columns.join(u' '), u"Name/name/arte HD Anbieter/provider/ARD Position/position/19.2E In Bouquets/usage/1"_s);
        QCOMPARE(model.rowCount(), 7);
        QCOMPARE(model.index(0, 0).data(ServiceTableModel::ServiceKeyRole).value<ServiceKey>(), key(0x85));
        QVERIFY(!model.flags(model.index(0, 0)).testFlag(Qt::ItemIsEditable));
        // Dragged rows: each service's reference once, one per line, in row order.
        std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(2, 1), model.index(0, 0), model.index(2, 3)}));
        QCOMPARE(dragged->text(), reference(0x85) + u'\n' + model.index(2, 0).data(ServiceTableModel::ReferenceRole).toString());

        // A usage change touches the usage column of the rows concerned only; an edit that leaves
        // the counts alone says nothing.
        m_store->add({m_store->serviceIndex().value(key(0x88))});
        QCOMPARE(changed.count(), 1);
        const QModelIndex from = changed.first().at(0).toModelIndex();
        QCOMPARE(changed.first().at(1).toModelIndex(), from);
        QCOMPARE(from.column(), int(ServiceTableModel::UsageColumn));
        QCOMPARE(model.serviceAt(from.row()).key, key(0x88));
        QCOMPARE(from.data().toInt(), 1);
        m_store->addMarker(u"m"_s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(reset.count(), 0);
        m_store->setKind(MediaKind::radio);
        QCOMPARE(reset.count(), 1);
        QCOMPARE(model.index(0, 0).data().toString(), u"Antenne Bayern"_s);
        m_store->deleteServices({key(0x101)});
        QCOMPARE(model.rowCount(), 1);
    }

    void randomEditsKeepModelsInStep()
    {
        BouquetListModel bouquets(m_store.get());
        EntryListModel entries(m_store.get());
        ServiceTableModel services(m_store.get());
        QAbstractItemModelTester bouquetTester(&bouquets, testerMode);
        QAbstractItemModelTester entryTester(&entries, testerMode);
        QAbstractItemModelTester serviceTester(&services, testerMode);
        QSignalSpy bouquetResets(&bouquets, &QAbstractItemModel::modelReset);
        QSignalSpy entryResets(&entries, &QAbstractItemModel::modelReset);
        QRandomGenerator random(20240301);
        const QList<ListFixture::FixtureService> fixture = ListFixture::services();
        const auto anyService = [&] { return fixture.at(random.bounded(int(fixture.size()))); };
        const auto anyReference = [&] { return reference(anyService().sid, anyService().type); };
        const auto someRows = [&](qsizetype count) {
            QSet<qsizetype> rows;
            for (int i = 0; i < 3 && count > 0; ++i)
                rows.insert(random.bounded(int(count)));
            return rows;
        };
        for (int step = 0; step < 400; ++step) {
            const QUuid shownBefore = entries.bouquetID();
            const MediaKind kindBefore = m_store->kind();
            const qsizetype bouquetResetsBefore = bouquetResets.count();
            const qsizetype entryResetsBefore = entryResets.count();
            const qsizetype count = entries.rowCount();
            const QList<Bouquet> current = m_store->currentBouquets();
            const QUuid anyBouquet = current.isEmpty() ? QUuid() : current.at(random.bounded(int(current.size()))).id;
            const QString text = QString::number(step);
            switch (random.bounded(16)) {
            case 0: m_store->addMarker(text); break;
            case 1: m_store->insert({anyReference(), anyReference()}, m_store->selectedBouquetID(), random.bounded(int(count) + 2)); break;
            case 2: {
                EntryIds selection;
                for (qsizetype row : someRows(count))
                    selection.insert(entryIds(*m_store).at(row));
                m_store->setEntrySelection(selection);
                m_store->removeSelectedEntries();
                break;
            }
            case 3: m_store->moveEntries(someRows(count), random.bounded(int(count) + 1)); break;
            case 4:
                if (count > 0)
                    m_store->renameEntry(entryIds(*m_store).at(random.bounded(int(count))), text);
                break;
            case 5: m_store->sortSelectedByName(); break;
            case 6: m_store->createBouquet(text); break;
            case 7: m_store->deleteBouquet(anyBouquet); break;
            case 8: m_store->moveBouquets(someRows(current.size()), random.bounded(int(current.size()) + 1)); break;
            case 9: m_store->renameBouquet(anyBouquet, text); break;
            case 10:
            case 11: m_store->undo(); break;
            case 12: m_store->redo(); break;
            case 13: m_store->setSelectedBouquetID(anyBouquet); break;
            case 14:
                if (random.bounded(4) == 0)
                    m_store->setKind(kindBefore == MediaKind::tv ? MediaKind::radio : MediaKind::tv);
                else
                    m_store->renameService(key(anyService().sid), text);
                break;
            case 15:
                if (random.bounded(3) == 0)
                    m_store->deleteServices({key(anyService().sid)});
                else
                    m_store->insert({anyReference()}, current.isEmpty() ? QUuid() : current.first().id, 0);
                break;
            }
            // Every model mirrors the store.
            const QList<Bouquet> now = m_store->currentBouquets();
            QCOMPARE(bouquets.rowCount(), now.size());
            for (int row = 0; row < now.size(); ++row) {
                QCOMPARE(bouquets.index(row).data(BouquetListModel::IdRole).toUuid(), now.at(row).id);
                QCOMPARE(bouquets.index(row).data().toString(), now.at(row).name);
                QCOMPARE(bouquets.index(row).data(BouquetListModel::EntryCountRole).toInt(), now.at(row).entries.size());
            }
            const QList<BouquetEntry> shownEntries = m_store->selectedBouquet().value_or(Bouquet()).entries;
            QCOMPARE(entries.rowCount(), shownEntries.size());
            for (int row = 0; row < shownEntries.size(); ++row) {
                QCOMPARE(entries.index(row).data(EntryListModel::IdRole).toUuid(), shownEntries.at(row).id);
                QCOMPARE(entries.index(row).data().toString(), m_store->displayName(shownEntries.at(row)));
                QCOMPARE(entries.index(row).data(EntryListModel::PositionRole).toInt(), row + 1);
            }
            QList<Service> kindServices = m_store->services();
            kindServices.removeIf([&](const Service &service) { return service.kind() != m_store->kind(); });
            QCOMPARE(services.rowCount(), kindServices.size());
            for (int row = 0; row < kindServices.size(); ++row) {
                QCOMPARE(services.serviceAt(row), kindServices.at(row));
                QCOMPARE(services.index(row, ServiceTableModel::UsageColumn).data().toInt(),
                         m_store->usage().value(kindServices.at(row).key));
            }
            // Usage is kept up to date bouquet by bouquet; it must equal a count from scratch.
            UsageCounts counted;
            for (const QList<Bouquet> &list : m_store->bouquets()) {
                for (const Bouquet &bouquet : list) {
                    for (const BouquetEntry &entry : bouquet.entries) {
                        if (const std::optional<ServiceKey> key = entry.serviceKey())
                            ++counted[*key];
                    }
                }
            }
            QCOMPARE(m_store->usage(), counted);
            // The lists are reset only when they show another kind, or another bouquet.
            if (bouquetResets.count() != bouquetResetsBefore)
                QVERIFY2(m_store->kind() != kindBefore, qPrintable(text));
            if (entryResets.count() != entryResetsBefore)
                QVERIFY2(entries.bouquetID() != shownBefore || m_store->kind() != kindBefore, qPrintable(text));
        }
    }
};

QTEST_GUILESS_MAIN(StoreTest)
#include "StoreTest.moc"
