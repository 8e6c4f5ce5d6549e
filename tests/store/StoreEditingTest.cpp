#include "ListFixture.h"
#include "NameOrder.h"
#include "Store.h"
#include "TestSupport.h"

#include <QCollator>
#include <QLocale>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>
#include <numeric>

using namespace Qt::StringLiterals;
using ListFixture::key;

// The editing operations of the store and their undo history, on a small list read from files.
class StoreEditingTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void undoKeepsAtMostTwoHundredSteps();
    void redoRestacksWithoutTrimming();
    void newEditClearsRedo();
    void undoNeverClearsDirty();
    void mutateIgnoresBouquetsOfTheOtherKind();
    void selectionHooks();
    void insertPositions_data();
    void insertPositions();
    void insertIgnoresTextsThatAreNoReferences();
    void moveEntries_data();
    void moveEntries();
    void moveBouquets();
    void addAndMarkers();
    void removeSelectedEntries();
    void renameEntry();
    void sortSelectedByName();
    void nameOrder_data();
    void nameOrder();
    void nameOrderOfManyNames();
    void createBouquet();
    void renameAndDeleteBouquets();
    void renameService_data();
    void renameService();
    void deleteServices();
    void usageQueries();
    void displayNames();
    void undoRebuildsCatalogueOnlyWhenEditsDiffer();

private:
    Bouquet bouquetNamed(const QString &name) const;
    QStringList entryNames(const QString &bouquet) const;
    void select(const QString &bouquet);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Store> m_store;
};

void StoreEditingTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

void StoreEditingTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    ListFixture::write(m_dir->path());
    m_store = std::make_unique<Store>();
    m_store->load(m_dir->path());
    QCOMPARE(m_store->services().size(), 9);
}

void StoreEditingTest::cleanup()
{
    m_store.reset();
    m_dir.reset();
}

Bouquet StoreEditingTest::bouquetNamed(const QString &name) const
{
    for (const QList<Bouquet> &list : m_store->bouquets()) {
        for (const Bouquet &bouquet : list) {
            if (bouquet.name == name) return bouquet;
        }
    }
    qFatal("no bouquet named %s", qPrintable(name));
}

QStringList StoreEditingTest::entryNames(const QString &bouquet) const
{
    QStringList names;
    for (const BouquetEntry &entry : bouquetNamed(bouquet).entries)
        names << m_store->displayName(entry);
    return names;
}

void StoreEditingTest::select(const QString &bouquet)
{
    const Bouquet found = bouquetNamed(bouquet);
    m_store->setKind(found.kind);
    m_store->setSelectedBouquetID(found.id);
}

void StoreEditingTest::undoKeepsAtMostTwoHundredSteps()
{
    QSignalSpy canUndo(m_store.get(), &Store::canUndoChanged);
    for (int i = 1; i <= 201; ++i)
        m_store->addMarker(QString::number(i));
    QCOMPARE(m_store->undoStack().size(), 200);
    QCOMPARE(canUndo.count(), 1);
    while (m_store->canUndo())
        m_store->undo();
    // The first edit fell out of the history.
    QCOMPARE(entryNames(u"Favoriten"_s).last(), u"1"_s);
    QCOMPARE(bouquetNamed(u"Favoriten"_s).entries.size(), 5);
    QCOMPARE(m_store->redoStack().size(), 200);
    QVERIFY(!m_store->canUndo());
    QCOMPARE(canUndo.count(), 2);
}

void StoreEditingTest::redoRestacksWithoutTrimming()
{
    for (int i = 1; i <= 205; ++i)
        m_store->addMarker(QString::number(i));
    const BouquetLists after = m_store->bouquets();
    for (int i = 0; i < 5; ++i)
        m_store->undo();
    QCOMPARE(m_store->undoStack().size(), 195);
    QCOMPARE(entryNames(u"Favoriten"_s).last(), u"200"_s);
    for (int i = 0; i < 5; ++i)
        m_store->redo();
    QCOMPARE(m_store->undoStack().size(), 200);
    QVERIFY(!m_store->canRedo());
    QCOMPARE(m_store->bouquets(), after);
    // A further edit drops exactly one old snapshot.
    m_store->addMarker(u"206"_s);
    QCOMPARE(m_store->undoStack().size(), 200);
}

void StoreEditingTest::newEditClearsRedo()
{
    m_store->addMarker(u"a"_s);
    m_store->addMarker(u"b"_s);
    m_store->undo();
    QVERIFY(m_store->canRedo());
    QSignalSpy canRedo(m_store.get(), &Store::canRedoChanged);
    m_store->addMarker(u"c"_s);
    QVERIFY(!m_store->canRedo());
    QVERIFY(m_store->redoStack().isEmpty());
    QCOMPARE(canRedo.count(), 1);
    m_store->redo();
    QCOMPARE(entryNames(u"Favoriten"_s).mid(4), (QStringList{u"a"_s, u"c"_s}));
}

void StoreEditingTest::undoNeverClearsDirty()
{
    QVERIFY(!m_store->isDirty());
    const BouquetLists saved = m_store->bouquets();
    m_store->addMarker(u"x"_s);
    QVERIFY(m_store->isDirty());
    m_store->undo();
    QCOMPARE(m_store->bouquets(), saved);
    QVERIFY(m_store->isDirty());
    // Emptying the history keeps the flag; on empty stacks nothing happens at all.
    m_store->resetUndo();
    QVERIFY(m_store->isDirty());
    QVERIFY(!m_store->canRedo());
    m_store->setDirty(false);
    m_store->undo();
    m_store->redo();
    QVERIFY(!m_store->isDirty());
}

void StoreEditingTest::mutateIgnoresBouquetsOfTheOtherKind()
{
    const Bouquet radio = bouquetNamed(u"Radio"_s);
    QSignalSpy changed(m_store.get(), &Store::bouquetsChanged);
    m_store->mutate(radio.id, [](Bouquet &bouquet) { bouquet.name = u"Geändert"_s; });
    m_store->insert({ListFixture::reference(0x83)}, radio.id);
    m_store->mutate(QUuid(), [](Bouquet &bouquet) { bouquet.name = u"Geändert"_s; });
    QCOMPARE(changed.count(), 0);
    QVERIFY(!m_store->canUndo());
    QVERIFY(!m_store->isDirty());
    QCOMPARE(bouquetNamed(u"Radio"_s), radio);

    // The same change in its own kind works, and counts as an edit even when it changes nothing.
    m_store->setKind(MediaKind::radio);
    m_store->mutate(radio.id, [](Bouquet &) {});
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_store->canUndo());
    QVERIFY(m_store->isDirty());
}

void StoreEditingTest::selectionHooks()
{
    const Bouquet favourites = bouquetNamed(u"Favoriten"_s);
    const Bouquet sport = bouquetNamed(u"Sport"_s);
    QCOMPARE(m_store->selectedBouquetID(), favourites.id);
    QVERIFY(!m_store->entryListActive());

    m_store->setEntrySelection({favourites.entries.first().id});
    QVERIFY(m_store->entryListActive());
    m_store->setEntryListActive(false);
    // Selecting the same bouquet again changes nothing.
    QSignalSpy selection(m_store.get(), &Store::entrySelectionChanged);
    m_store->setSelectedBouquetID(favourites.id);
    QCOMPARE(selection.count(), 0);
    QCOMPARE(m_store->entrySelection().size(), 1);

    m_store->setEntryListActive(true);
    m_store->setSelectedBouquetID(sport.id);
    QVERIFY(m_store->entrySelection().isEmpty());
    QVERIFY(!m_store->entryListActive());
    m_store->setSelectedBouquetID(QUuid());
    QVERIFY(!m_store->selectedBouquet());

    // An empty selection does not activate the entry list.
    m_store->setEntrySelection({});
    QVERIFY(!m_store->entryListActive());

    // Undo restores the selected bouquet and so clears the entry selection.
    m_store->setSelectedBouquetID(favourites.id);
    m_store->createBouquet(u"Neu"_s);
    m_store->setEntrySelection({QUuid::createUuid()});
    m_store->undo();
    QCOMPARE(m_store->selectedBouquetID(), favourites.id);
    QVERIFY(m_store->entrySelection().isEmpty());
}

void StoreEditingTest::insertPositions_data()
{
    QTest::addColumn<int>("at");
    QTest::addColumn<int>("expected");
    QTest::newRow("front") << 0 << 0;
    QTest::newRow("middle") << 2 << 2;
    QTest::newRow("end") << 4 << 4;
    QTest::newRow("beyond the end") << 100 << 4;
    QTest::newRow("before the start") << -3 << 0;
    QTest::newRow("no position") << -100 << 4;
}

void StoreEditingTest::insertPositions()
{
    QFETCH(int, at);
    QFETCH(int, expected);
    const Bouquet sport = bouquetNamed(u"Sport"_s);
    const QStringList references{ListFixture::reference(0x86), u"1:0:1:85:437:1:C00000:0:0:0:"_s};
    m_store->insert(references, sport.id, at == -100 ? std::nullopt : std::optional<qsizetype>(at));

    const QList<BouquetEntry> entries = bouquetNamed(u"Sport"_s).entries;
    QCOMPARE(entries.size(), 6);
    QCOMPARE(entries.at(expected).reference, references.at(0));
    QCOMPARE(entries.at(expected + 1).reference, references.at(1));
    QVERIFY(entries.at(expected).description == std::nullopt);
    // The old entries keep their order around the block.
    QList<BouquetEntry> rest = entries;
    rest.remove(expected, 2);
    QCOMPARE(rest, sport.entries);
    QCOMPARE(m_store->usage().value(key(0x86)), 1);
    QCOMPARE(m_store->undoStack().size(), 1);
    QVERIFY(m_store->isDirty());
}

void StoreEditingTest::insertIgnoresTextsThatAreNoReferences()
{
    const Bouquet sport = bouquetNamed(u"Sport"_s);
    m_store->insert(
        {u"hello"_s, u" 1:0:1:83:437:1:C00000:0:0:0:"_s, u"4097:0:1:1:1:1:0:0:0:0:http%3a//x:Y"_s}, sport.id,
        0);
    QVERIFY(!m_store->canUndo());
    QCOMPARE(bouquetNamed(u"Sport"_s), sport);
    m_store->insert({}, sport.id);
    QVERIFY(!m_store->canUndo());
    // Mixed texts: only the references are taken, duplicates allowed.
    m_store->insert({u"hello"_s, ListFixture::reference(0x83), ListFixture::reference(0x83)}, sport.id, 1);
    QCOMPARE(bouquetNamed(u"Sport"_s).entries.size(), 6);
    QCOMPARE(m_store->usage().value(key(0x83)), 4);
}

void StoreEditingTest::moveEntries_data()
{
    QTest::addColumn<QList<qsizetype>>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("expected");
    QTest::newRow("first down by one") << QList<qsizetype>{0} << 2 << u"BACDE"_s;
    QTest::newRow("first before the fourth") << QList<qsizetype>{0} << 3 << u"BCADE"_s;
    QTest::newRow("two to the end") << QList<qsizetype>{0, 1} << 5 << u"CDEAB"_s;
    QTest::newRow("two to the front") << QList<qsizetype>{3, 4} << 0 << u"DEABC"_s;
    QTest::newRow("scattered around the destination") << QList<qsizetype>{1, 3} << 2 << u"ABDCE"_s;
    QTest::newRow("onto itself") << QList<qsizetype>{2} << 2 << u"ABCDE"_s;
    QTest::newRow("just behind itself") << QList<qsizetype>{2} << 3 << u"ABCDE"_s;
    QTest::newRow("last to the front") << QList<qsizetype>{4} << 0 << u"EABCD"_s;
    QTest::newRow("beyond the end") << QList<qsizetype>{0} << 99 << u"BCDEA"_s;
    QTest::newRow("unknown offsets") << QList<qsizetype>{7, -1} << 0 << u"ABCDE"_s;
}

void StoreEditingTest::moveEntries()
{
    QFETCH(QList<qsizetype>, from);
    QFETCH(int, to);
    QFETCH(QString, expected);
    m_store->createBouquet(u"Buchstaben"_s);
    for (const QChar letter : u"ABCDE"_s)
        m_store->addMarker(letter);
    m_store->moveEntries(QSet<qsizetype>(from.cbegin(), from.cend()), to);
    QCOMPARE(entryNames(u"Buchstaben"_s).join(QString()), expected);
    QCOMPARE(m_store->undoStack().size(), 7);
}

void StoreEditingTest::moveBouquets()
{
    m_store->createBouquet(u"Kinder"_s);
    m_store->createBouquet(u"Musik"_s);
    const auto order = [&] {
        QStringList names;
        for (const Bouquet &bouquet : m_store->currentBouquets())
            names << bouquet.name;
        return names.join(u',');
    };
    QCOMPARE(order(), u"Favoriten,Sport,Kinder,Musik"_s);
    m_store->moveBouquets({3, 0}, 2);
    QCOMPARE(order(), u"Sport,Favoriten,Musik,Kinder"_s);
    const qsizetype steps = m_store->undoStack().size();
    // Always an undo step, even when nothing moves.
    m_store->moveBouquets({}, 0);
    QCOMPARE(m_store->undoStack().size(), steps + 1);
    QCOMPARE(order(), u"Sport,Favoriten,Musik,Kinder"_s);
    // Radio bouquets stay where they are.
    QCOMPARE(m_store->bouquets().value(MediaKind::radio).size(), 1);
}

void StoreEditingTest::addAndMarkers()
{
    const Service erste = m_store->serviceIndex().value(key(0x83));
    m_store->add({erste, erste});
    m_store->addMarker(u"Sport"_s);
    m_store->addMarker(u"Sport"_s);
    const QList<BouquetEntry> entries = bouquetNamed(u"Favoriten"_s).entries;
    QCOMPARE(entries.size(), 8);
    QCOMPARE(entries.at(4).reference, u"1:0:1:83:437:1:C00000:0:0:0:"_s);
    QCOMPARE(entries.at(5).reference, entries.at(4).reference);
    QVERIFY(entries.at(4).id != entries.at(5).id);
    QCOMPARE(m_store->usage().value(key(0x83)), 4);
    for (const BouquetEntry &marker : {entries.at(6), entries.at(7)}) {
        QCOMPARE(marker.reference, u"1:64:0:0:0:0:0:0:0:0:"_s);
        QCOMPARE(marker.description, std::optional<QString>(u"Sport"_s));
        QVERIFY(marker.isMarker());
    }
    QVERIFY(entries.at(6).id != entries.at(7).id);
    QCOMPARE(m_store->undoStack().size(), 3);

    // Without a selected bouquet nothing is added and no step is taken.
    m_store->setSelectedBouquetID(QUuid());
    m_store->addMarker(u"x"_s);
    m_store->add({erste});
    QCOMPARE(m_store->undoStack().size(), 3);
}

void StoreEditingTest::removeSelectedEntries()
{
    const QList<BouquetEntry> entries = bouquetNamed(u"Favoriten"_s).entries;
    m_store->setEntrySelection({entries.at(0).id, entries.at(2).id, QUuid::createUuid()});
    QSignalSpy selection(m_store.get(), &Store::entrySelectionChanged);
    m_store->removeSelectedEntries();
    QCOMPARE(bouquetNamed(u"Favoriten"_s).entries, (QList<BouquetEntry>{entries.at(1), entries.at(3)}));
    QVERIFY(m_store->entrySelection().isEmpty());
    QCOMPARE(selection.count(), 1);
    QCOMPARE(m_store->usage().value(key(0x83)), 1);
    QCOMPARE(m_store->usage().value(key(0x84)), 1);
    m_store->undo();
    QCOMPARE(bouquetNamed(u"Favoriten"_s).entries, entries);
}

void StoreEditingTest::renameEntry()
{
    const QList<BouquetEntry> entries = bouquetNamed(u"Favoriten"_s).entries;
    m_store->renameEntry(entries.at(0).id, u"Erstes"_s);
    QCOMPARE(entryNames(u"Favoriten"_s).first(), u"Erstes"_s);
    // The marker's caption is its own name too.
    m_store->renameEntry(entries.at(1).id, u"Sport"_s);
    QCOMPARE(entryNames(u"Favoriten"_s).at(1), u"Sport"_s);
    // Empty: the service's name again, with a pending rename applied.
    m_store->renameService(key(0x83), u"ARD"_s);
    m_store->renameEntry(entries.at(0).id, QString());
    QCOMPARE(bouquetNamed(u"Favoriten"_s).entries.first().description, std::nullopt);
    QCOMPARE(entryNames(u"Favoriten"_s).first(), u"ARD"_s);
    // An unknown id still costs a step, as every mutation does.
    const qsizetype steps = m_store->undoStack().size();
    m_store->renameEntry(QUuid::createUuid(), u"x"_s);
    QCOMPARE(m_store->undoStack().size(), steps + 1);
}

void StoreEditingTest::sortSelectedByName()
{
    select(u"Sport"_s);
    m_store->addMarker(u"Nachrichten"_s);
    m_store->insert({ListFixture::reference(0x86), ListFixture::reference(0x84, 0x19)},
                    m_store->selectedBouquetID());
    const QList<BouquetEntry> before = bouquetNamed(u"Sport"_s).entries;
    m_store->renameEntry(before.last().id, u"zdf hd"_s);
    m_store->sortSelectedByName();
    // Locale-aware (Ö as O), case-insensitive, markers among the rest, equal names in their order.
    QCOMPARE(entryNames(u"Sport"_s), (QStringList{u"Das Erste HD"_s, u"Nachrichten"_s, u"Österreich 1"_s,
                                                  u"Unbekannt (1:0:1:999:437:1:C00000:0:0:0:)"_s,
                                                  u"Unter-Bouquet"_s, u"ZDF HD"_s, u"zdf hd"_s}));
    const QList<BouquetEntry> sorted = bouquetNamed(u"Sport"_s).entries;
    QCOMPARE(sorted.at(5).id, before.first().id);
    QCOMPARE(sorted.at(6).id, before.last().id);
    m_store->undo();
    QCOMPARE(entryNames(u"Sport"_s).first(), u"ZDF HD"_s);
    QCOMPARE(entryNames(u"Sport"_s).last(), u"zdf hd"_s);
}

void StoreEditingTest::nameOrder_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QStringList>("expected");
    const QStringList german{u"arte"_s, u"Bayern"_s, u"bayern"_s, u"Österreich"_s, u"Zürich"_s};
    QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany) << german;
    // Without a language the order is by case-folded code points, still stable.
    QTest::newRow("C") << QLocale::c()
                       << QStringList{u"arte"_s, u"Bayern"_s, u"bayern"_s, u"Zürich"_s, u"Österreich"_s};
}

void StoreEditingTest::nameOrder()
{
    QFETCH(QLocale, locale);
    QFETCH(QStringList, expected);
    const QLocale previous;
    QLocale::setDefault(locale);
    const QStringList names{u"Zürich"_s, u"Bayern"_s, u"Österreich"_s, u"arte"_s, u"bayern"_s};
    QStringList sorted;
    for (qsizetype i : NameOrder::sorted(names.size(), [&](qsizetype i) { return names.at(i); }))
        sorted << names.at(i);
    QLocale::setDefault(previous);
    QCOMPARE(sorted, expected);
}

void StoreEditingTest::nameOrderOfManyNames()
{
    // Enough names for the two-halves path, with repeats and case variants across both halves.
    const QStringList stems{u"ZDF"_s,  u"zdf"_s, u"Österreich"_s, u"arte"_s,
                            u"Arte"_s, u"BBC"_s, u""_s,           u"Ä"_s};
    QStringList names;
    QRandomGenerator random(11);
    for (int i = 0; i < 30000; ++i)
        names << stems.at(random.bounded(int(stems.size()))) + u' ' + QString::number(random.bounded(40));
    const QList<qsizetype> order = NameOrder::sorted(names.size(), [&](qsizetype i) { return names.at(i); });

    QList<qsizetype> expected(names.size());
    std::iota(expected.begin(), expected.end(), qsizetype(0));
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(expected.begin(), expected.end(), [&](qsizetype a, qsizetype b) {
        return collator.compare(names.at(a), names.at(b)) < 0;
    });
    QCOMPARE(order, expected);
}

void StoreEditingTest::createBouquet()
{
    // A radio bouquet already holds the name a new TV bouquet "Sport 2" would get.
    select(u"Radio"_s);
    m_store->createBouquet(u"Sport 2"_s);
    QCOMPARE(bouquetNamed(u"Sport 2"_s).fileName, u"userbouquet.sport_2.radio"_s);
    m_store->renameBouquet(bouquetNamed(u"Sport 2"_s).id, u"Alt"_s);
    m_store->mutate(bouquetNamed(u"Alt"_s).id,
                    [](Bouquet &bouquet) { bouquet.fileName = u"userbouquet.sport_2.tv"_s; });

    select(u"Favoriten"_s);
    m_store->setEntrySelection({bouquetNamed(u"Favoriten"_s).entries.first().id});
    QSignalSpy selected(m_store.get(), &Store::selectedBouquetIDChanged);
    m_store->createBouquet(u"Sport 2"_s);
    const Bouquet created = m_store->currentBouquets().last();
    QCOMPARE(created.name, u"Sport 2"_s);
    QCOMPARE(created.fileName, u"userbouquet.sport_22.tv"_s);
    QCOMPARE(created.kind, MediaKind(MediaKind::tv));
    QVERIFY(created.entries.isEmpty());
    QCOMPARE(m_store->selectedBouquetID(), created.id);
    QCOMPARE(selected.count(), 1);
    QVERIFY(m_store->entrySelection().isEmpty());

    // Same name again: the next free number.
    m_store->createBouquet(u"Sport 2"_s);
    QCOMPARE(m_store->currentBouquets().last().fileName, u"userbouquet.sport_23.tv"_s);
    const qsizetype steps = m_store->undoStack().size();
    m_store->createBouquet(QString());
    QCOMPARE(m_store->undoStack().size(), steps);
}

void StoreEditingTest::renameAndDeleteBouquets()
{
    const Bouquet sport = bouquetNamed(u"Sport"_s);
    m_store->renameBouquet(sport.id, u"Fußball"_s);
    QCOMPARE(bouquetNamed(u"Fußball"_s).fileName, u"userbouquet.sport.tv"_s);
    QCOMPARE(m_store->undoStack().size(), 1);
    m_store->renameBouquet(sport.id, QString());
    m_store->renameBouquet(QUuid::createUuid(), u"x"_s);
    m_store->renameBouquet(bouquetNamed(u"Radio"_s).id, u"x"_s);
    QCOMPARE(m_store->undoStack().size(), 1);

    // Deleting an unknown id is still an undoable, dirtying step.
    m_store->setDirty(false);
    m_store->deleteBouquet(QUuid::createUuid());
    QCOMPARE(m_store->undoStack().size(), 2);
    QVERIFY(m_store->isDirty());
    QCOMPARE(m_store->currentBouquets().size(), 2);

    // Deleting the selected bouquet selects the first remaining one.
    const Bouquet favourites = bouquetNamed(u"Favoriten"_s);
    QCOMPARE(m_store->selectedBouquetID(), favourites.id);
    m_store->deleteBouquet(favourites.id);
    QCOMPARE(m_store->selectedBouquetID(), sport.id);
    QCOMPARE(m_store->usage().value(key(0x85)), 0);
    m_store->deleteBouquet(sport.id);
    QCOMPARE(m_store->selectedBouquetID(), QUuid());
    QVERIFY(m_store->currentBouquets().isEmpty());
    QCOMPARE(m_store->bouquets().value(MediaKind::radio).size(), 1);

    m_store->undo();
    m_store->undo();
    QCOMPARE(m_store->currentBouquets().size(), 2);
    QCOMPARE(m_store->selectedBouquetID(), favourites.id);
    QCOMPARE(m_store->usage().value(key(0x85)), 1);
}

void StoreEditingTest::renameService_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("recorded");
    QTest::newRow("plain") << u"Erstes"_s << u"Erstes"_s;
    QTest::newRow("blanks, tab and quotes") << u"  Das \"Erste\" HD\t"_s << u"Das 'Erste' HD"_s;
    QTest::newRow("only blanks") << u"  \t "_s << QString();
    QTest::newRow("the database name") << u" Das Erste HD "_s << QString();
}

void StoreEditingTest::renameService()
{
    QFETCH(QString, name);
    QFETCH(QString, recorded);
    // A pending deletion is replaced by the rename, or cancelled by renaming back.
    m_store->deleteServices({key(0x83)});
    m_store->undo();
    m_store->renameService(key(0x83), u"Vorher"_s);
    QCOMPARE(m_store->undoStack().size(), 1);

    m_store->renameService(key(0x83), name);
    if (name.trimmed().isEmpty()) {
        QCOMPARE(m_store->undoStack().size(), 1);
        QCOMPARE(m_store->serviceEdits(), (ServiceEdits{{key(0x83), ServiceEdit::rename(u"Vorher"_s)}}));
        return;
    }
    QCOMPARE(m_store->undoStack().size(), 2);
    if (recorded.isEmpty()) {
        QVERIFY(m_store->serviceEdits().isEmpty());
        QCOMPARE(m_store->serviceIndex().value(key(0x83)).name, u"Das Erste HD"_s);
        QCOMPARE(m_store->status(),
                 u"Sender in „Das Erste HD“ umbenannt – auf die Box kommt das mit „Senden“."_s);
        return;
    }
    QCOMPARE(m_store->serviceEdits(), (ServiceEdits{{key(0x83), ServiceEdit::rename(recorded)}}));
    QCOMPARE(m_store->status(),
             u"Sender in „%1“ umbenannt – auf die Box kommt das mit „Senden“."_s.arg(recorded));
    QCOMPARE(m_store->serviceIndex().value(key(0x83)).name, recorded);
    QCOMPARE(entryNames(u"Favoriten"_s).first(), recorded);
    // The catalogue is sorted by the new name.
    QStringList names;
    for (const Service &service : m_store->services())
        names << service.name;
    QCOMPARE(names.indexOf(recorded), 3);
    QVERIFY(m_store->isDirty());

    // Unknown keys do nothing.
    m_store->renameService(key(0x999), u"x"_s);
    QCOMPARE(m_store->undoStack().size(), 2);
}

void StoreEditingTest::deleteServices()
{
    m_store->setServiceSelection({key(0x83), key(0x86)});
    m_store->renameService(key(0x89), u"Umbenannt"_s);
    const BouquetLists before = m_store->bouquets();
    QSignalSpy rebuilt(m_store.get(), &Store::servicesRebuilt);

    m_store->deleteServices({key(0x83), key(0x89)});
    QCOMPARE(rebuilt.count(), 1);
    QCOMPARE(m_store->status(), u"2 Sender gelöscht – auf die Box kommt das mit „Senden“."_s);
    QCOMPARE(m_store->serviceEdits(),
             (ServiceEdits{{key(0x83), ServiceEdit::deletion()}, {key(0x89), ServiceEdit::deletion()}}));
    QCOMPARE(m_store->serviceSelection(), ServiceKeys{key(0x86)});
    QCOMPARE(m_store->services().size(), 7);
    QVERIFY(!m_store->serviceIndex().contains(key(0x83)));
    // Entries go from TV and radio bouquets alike; the rest keep their order.
    QCOMPARE(entryNames(u"Favoriten"_s), (QStringList{u"Nachrichten"_s, u"ZDF HD"_s, u"arte HD"_s}));
    QCOMPARE(entryNames(u"Sport"_s).size(), 3);
    QCOMPARE(entryNames(u"Radio"_s), (QStringList{u"Bayern 3"_s, u"Antenne Bayern"_s}));
    QCOMPARE(m_store->usage().value(key(0x83)), 0);

    m_store->undo();
    QCOMPARE(m_store->bouquets(), before);
    QCOMPARE(m_store->serviceIndex().value(key(0x89)).name, u"Umbenannt"_s);
    QCOMPARE(m_store->services().size(), 9);
    QCOMPARE(m_store->usage().value(key(0x83)), 2);

    const qsizetype steps = m_store->undoStack().size();
    m_store->deleteServices({});
    QCOMPARE(m_store->undoStack().size(), steps);
}

void StoreEditingTest::usageQueries()
{
    // 0x89 is a TV service used only in a radio bouquet: not unused.
    QCOMPARE(m_store->unusedServiceKeys(), (ServiceKeys{key(0x86), key(0x87), key(0x88)}));
    QCOMPARE(m_store->bouquetUses({key(0x83)}), 2);
    QCOMPARE(m_store->bouquetUses({key(0x83), key(0x84), key(0x88)}), 4);
    m_store->add({m_store->serviceIndex().value(key(0x83))});
    QCOMPARE(m_store->bouquetUses({key(0x83)}), 3);
    // Sub-bouquets and markers count for nothing; an unknown service counts but is not shown.
    QCOMPARE(m_store->usage().value(key(0x999)), 1);
    QVERIFY(!m_store->unusedServiceKeys().contains(key(0x999)));
    m_store->deleteBouquet(bouquetNamed(u"Radio"_s).id);
    QVERIFY(!m_store->unusedServiceKeys().contains(key(0x89)));
    m_store->setKind(MediaKind::radio);
    m_store->deleteBouquet(bouquetNamed(u"Radio"_s).id);
    QCOMPARE(m_store->unusedServiceKeys(),
             (ServiceKeys{key(0x86), key(0x87), key(0x88), key(0x89), key(0x100), key(0x101)}));
}

void StoreEditingTest::displayNames()
{
    const QList<BouquetEntry> sport = bouquetNamed(u"Sport"_s).entries;
    QCOMPARE(m_store->displayName(sport.at(0)), u"ZDF HD"_s);
    QCOMPARE(m_store->displayName(sport.at(2)), u"Unter-Bouquet"_s);
    QCOMPARE(m_store->displayName(sport.at(3)), u"Unbekannt (1:0:1:999:437:1:C00000:0:0:0:)"_s);
    QVERIFY(!m_store->service(sport.at(3)));
    QCOMPARE(m_store->service(sport.at(0))->key, key(0x84));
    BouquetEntry named{freshId(), sport.at(2).reference, u"Eigener Name"_s};
    QCOMPARE(m_store->displayName(named), u"Eigener Name"_s);
    BouquetEntry empty{freshId(), sport.at(0).reference, QString()};
    QCOMPARE(m_store->displayName(empty), QString());
}

void StoreEditingTest::undoRebuildsCatalogueOnlyWhenEditsDiffer()
{
    m_store->renameService(key(0x85), u"ARTE"_s);
    m_store->addMarker(u"m"_s);
    QSignalSpy rebuilt(m_store.get(), &Store::servicesRebuilt);
    m_store->undo();
    QCOMPARE(rebuilt.count(), 0);
    m_store->undo();
    QCOMPARE(rebuilt.count(), 1);
    QCOMPARE(m_store->serviceIndex().value(key(0x85)).name, u"arte HD"_s);
    QCOMPARE(entryNames(u"Favoriten"_s).last(), u"arte HD"_s);
    m_store->redo();
    QCOMPARE(rebuilt.count(), 2);
    QCOMPARE(entryNames(u"Favoriten"_s).last(), u"ARTE"_s);
    m_store->redo();
    QCOMPARE(rebuilt.count(), 2);
}

QTEST_GUILESS_MAIN(StoreEditingTest)
#include "StoreEditingTest.moc"
