#include "BouquetListModel.h"
#include "EntryListModel.h"
#include "ListFixture.h"
#include "ServiceTableModel.h"
#include "Store.h"
#include "TestSupport.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using ListFixture::key;

namespace {

QList<QUuid> modelIds(const QAbstractItemModel &model, int role)
{
    QList<QUuid> ids;
    for (int row = 0; row < model.rowCount(); ++row)
        ids << model.index(row, 0).data(role).toUuid();
    return ids;
}

QList<QUuid> entryIds(const Store &store)
{
    QList<QUuid> ids;
    if (const std::optional<Bouquet> bouquet = store.selectedBouquet()) {
        for (const BouquetEntry &entry : bouquet->entries)
            ids << entry.id;
    }
    return ids;
}

QList<QUuid> bouquetIds(const Store &store)
{
    QList<QUuid> ids;
    for (const Bouquet &bouquet : store.currentBouquets())
        ids << bouquet.id;
    return ids;
}

// Counts the structural notifications of a model.
struct Notifications
{
    explicit Notifications(QAbstractItemModel *model)
        : inserted(model, &QAbstractItemModel::rowsInserted)
        , removed(model, &QAbstractItemModel::rowsRemoved)
        , moved(model, &QAbstractItemModel::rowsMoved)
        , changed(model, &QAbstractItemModel::dataChanged)
        , reset(model, &QAbstractItemModel::modelReset)
        , layout(model, &QAbstractItemModel::layoutChanged)
    {}
    void clear()
    {
        for (QSignalSpy *spy : {&inserted, &removed, &moved, &changed, &reset, &layout})
            spy->clear();
    }
    QSignalSpy inserted, removed, moved, changed, reset, layout;
};

} // namespace

// The item models follow the store row by row, and turn drops and edits into store operations.
class StoreModelsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void bouquetList();
    void bouquetListDrops();
    void entryList();
    void entryListDrops();
    void sortingALargeBouquetIsALayoutChange();
    void serviceTable();
    void randomEditsKeepModelsInStep();

private:
    void verifyMirrors(const BouquetListModel &bouquets, const EntryListModel &entries,
                       const ServiceTableModel &services);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Store> m_store;
};

void StoreModelsTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

void StoreModelsTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    ListFixture::write(m_dir->path());
    m_store = std::make_unique<Store>();
    m_store->load(m_dir->path());
}

void StoreModelsTest::cleanup()
{
    m_store.reset();
    m_dir.reset();
}

void StoreModelsTest::verifyMirrors(const BouquetListModel &bouquets, const EntryListModel &entries,
                                    const ServiceTableModel &services)
{
    QCOMPARE(modelIds(bouquets, BouquetListModel::IdRole), bouquetIds(*m_store));
    const QList<Bouquet> current = m_store->currentBouquets();
    for (int row = 0; row < current.size(); ++row) {
        QCOMPARE(bouquets.index(row).data().toString(), current.at(row).name);
        QCOMPARE(bouquets.index(row).data(BouquetListModel::EntryCountRole).toInt(),
                 current.at(row).entries.size());
    }
    QCOMPARE(modelIds(entries, EntryListModel::IdRole), entryIds(*m_store));
    const QList<BouquetEntry> shown = m_store->selectedBouquet().value_or(Bouquet()).entries;
    for (int row = 0; row < shown.size(); ++row) {
        QCOMPARE(entries.index(row).data().toString(), m_store->displayName(shown.at(row)));
        QCOMPARE(entries.index(row).data(EntryListModel::PositionRole).toInt(), row + 1);
    }
    QList<Service> kindServices;
    for (const Service &service : m_store->services()) {
        if (service.kind() == m_store->kind()) kindServices << service;
    }
    QCOMPARE(services.rowCount(), kindServices.size());
    for (int row = 0; row < kindServices.size(); ++row) {
        QCOMPARE(services.serviceAt(row), kindServices.at(row));
        QCOMPARE(services.index(row, ServiceTableModel::UsageColumn).data().toInt(),
                 m_store->usage().value(kindServices.at(row).key));
    }
}

void StoreModelsTest::bouquetList()
{
    BouquetListModel model(m_store.get());
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    Notifications seen(&model);
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.index(1).data().toString(), u"Sport"_s);
    QCOMPARE(model.index(1).data(BouquetListModel::FileNameRole).toString(), u"userbouquet.sport.tv"_s);
    QCOMPARE(model.index(1).data(BouquetListModel::EntryCountRole).toInt(), 4);
    QVERIFY(model.flags(model.index(0)).testFlag(Qt::ItemIsEditable));

    // Renaming through the model: the name trimmed, one row changed.
    QVERIFY(model.setData(model.index(1), u"  Fußball "_s));
    QCOMPARE(m_store->currentBouquets().at(1).name, u"Fußball"_s);
    QCOMPARE(seen.changed.count(), 1);
    QCOMPARE(seen.changed.first().at(0).toModelIndex().row(), 1);
    QCOMPARE(seen.changed.first().at(1).toModelIndex().row(), 1);
    QVERIFY(!model.setData(model.index(1), u"   "_s));
    QCOMPARE(m_store->undoStack().size(), 1);

    m_store->createBouquet(u"Kinder"_s);
    QCOMPARE(seen.inserted.count(), 1);
    QCOMPARE(seen.inserted.first().at(1).toInt(), 2);
    QVERIFY(model.moveRows({}, 0, 1, {}, 3));
    QCOMPARE(seen.moved.count(), 1);
    QCOMPARE(model.index(2).data().toString(), u"Favoriten"_s);
    QVERIFY(!model.moveRows({}, 0, 1, {}, 1));

    m_store->deleteBouquet(m_store->currentBouquets().at(1).id);
    QCOMPARE(seen.removed.count(), 1);
    QCOMPARE(seen.removed.first().at(1).toInt(), 1);
    m_store->undo();
    QCOMPARE(seen.inserted.count(), 2);
    QCOMPARE(seen.reset.count(), 0);
    QCOMPARE(modelIds(model, BouquetListModel::IdRole), bouquetIds(*m_store));

    m_store->setKind(MediaKind::radio);
    QCOMPARE(seen.reset.count(), 1);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.index(0).data().toString(), u"Radio"_s);
}

void StoreModelsTest::bouquetListDrops()
{
    BouquetListModel model(m_store.get());
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    m_store->createBouquet(u"Kinder"_s);
    Notifications seen(&model);

    // The sidebar's own rows move.
    std::unique_ptr<QMimeData> rows(model.mimeData({model.index(0), model.index(2), model.index(0)}));
    QVERIFY(rows->hasFormat(BouquetListModel::rowsMimeType));
    QVERIFY(model.canDropMimeData(rows.get(), Qt::MoveAction, 2, 0, {}));
    QVERIFY(model.dropMimeData(rows.get(), Qt::MoveAction, 2, 0, {}));
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names << model.index(row).data().toString();
    QCOMPARE(names, (QStringList{u"Sport"_s, u"Favoriten"_s, u"Kinder"_s}));
    QCOMPARE(seen.reset.count(), 0);

    // Rows of the other kind's sidebar are no move here.
    QMimeData radioRows;
    radioRows.setData(BouquetListModel::rowsMimeType, "radio\n0");
    QVERIFY(!model.canDropMimeData(&radioRows, Qt::MoveAction, 0, 0, {}));

    // References dropped on a bouquet are appended to it; between bouquets they are refused.
    QMimeData references;
    references.setText(ListFixture::reference(0x86) + u"\r\n\n"_s + ListFixture::reference(0x87) +
                       u"\nkein Verweis"_s);
    QVERIFY(!model.canDropMimeData(&references, Qt::CopyAction, 1, 0, {}));
    QVERIFY(!model.dropMimeData(&references, Qt::CopyAction, 1, 0, {}));
    seen.clear();
    QVERIFY(model.dropMimeData(&references, Qt::CopyAction, -1, -1, model.index(2)));
    const Bouquet kinder = m_store->currentBouquets().at(2);
    QCOMPARE(kinder.entries.size(), 2);
    QCOMPARE(kinder.entries.at(0).reference, ListFixture::reference(0x86));
    QCOMPARE(kinder.entries.at(1).reference, ListFixture::reference(0x87));
    QCOMPARE(seen.changed.count(), 1);
    QCOMPARE(seen.changed.first().at(0).toModelIndex().row(), 2);
    QCOMPARE(model.index(2).data(BouquetListModel::EntryCountRole).toInt(), 2);
    QCOMPARE(seen.inserted.count() + seen.removed.count() + seen.moved.count() + seen.reset.count(), 0);
}

void StoreModelsTest::entryList()
{
    EntryListModel model(m_store.get());
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    Notifications seen(&model);
    QCOMPARE(model.rowCount(), 4);
    QCOMPARE(model.index(0).data().toString(), u"Das Erste HD"_s);
    QCOMPARE(model.index(1).data().toString(), u"Nachrichten"_s);
    QVERIFY(model.index(1).data(EntryListModel::MarkerRole).toBool());
    QVERIFY(!model.index(0).data(EntryListModel::MarkerRole).toBool());
    QCOMPARE(model.index(2).data(EntryListModel::ReferenceRole).toString(),
             u"1:0:19:84:437:1:C00000:0:0:0:"_s);
    QCOMPARE(model.index(3).data(EntryListModel::PositionRole).toInt(), 4);
    QVERIFY(model.index(0).data(EntryListModel::ServiceKnownRole).toBool());

    m_store->addMarker(u"Ende"_s);
    QCOMPARE(seen.inserted.count(), 1);
    QCOMPARE(seen.inserted.first().at(1).toInt(), 4);
    QCOMPARE(seen.inserted.first().at(2).toInt(), 4);

    // Two separate rows leave in two steps, nothing else is reset.
    const QList<QUuid> ids = entryIds(*m_store);
    m_store->setEntrySelection({ids.at(0), ids.at(2)});
    m_store->removeSelectedEntries();
    QCOMPARE(seen.removed.count(), 2);
    QCOMPARE(modelIds(model, EntryListModel::IdRole), (QList<QUuid>{ids.at(1), ids.at(3), ids.at(4)}));
    QCOMPARE(model.index(2).data(EntryListModel::PositionRole).toInt(), 3);

    m_store->moveEntries({2}, 0);
    QCOMPARE(seen.moved.count(), 1);
    QCOMPARE(modelIds(model, EntryListModel::IdRole), (QList<QUuid>{ids.at(4), ids.at(1), ids.at(3)}));
    QVERIFY(model.moveRows({}, 0, 2, {}, 3));
    QCOMPARE(modelIds(model, EntryListModel::IdRole), (QList<QUuid>{ids.at(3), ids.at(4), ids.at(1)}));

    // Renaming through the model, and back to the database name with an empty text.
    seen.clear();
    QVERIFY(model.setData(model.index(0), u" ARTE "_s));
    QCOMPARE(model.index(0).data().toString(), u"ARTE"_s);
    QCOMPARE(model.index(0).data(Qt::EditRole).toString(), u"ARTE"_s);
    QCOMPARE(seen.changed.count(), 1);
    QVERIFY(model.setData(model.index(0), QString()));
    QCOMPARE(model.index(0).data().toString(), u"arte HD"_s);

    // A renamed service shows at once in entries without their own name.
    seen.clear();
    m_store->renameService(key(0x85), u"Arte Deutschland"_s);
    QCOMPARE(model.index(0).data().toString(), u"Arte Deutschland"_s);
    QVERIFY(seen.changed.count() >= 1);

    m_store->undo();
    m_store->undo();
    QCOMPARE(seen.reset.count(), 0);
    QCOMPARE(modelIds(model, EntryListModel::IdRole), entryIds(*m_store));

    // Another bouquet, or none: a reset.
    m_store->setSelectedBouquetID(m_store->currentBouquets().at(1).id);
    QCOMPARE(seen.reset.count(), 1);
    QCOMPARE(model.rowCount(), 4);
    QCOMPARE(model.index(2).data().toString(), u"Unter-Bouquet"_s);
    QVERIFY(!model.index(3).data(EntryListModel::ServiceKnownRole).toBool());
    m_store->setSelectedBouquetID(QUuid());
    QCOMPARE(seen.reset.count(), 2);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.flags({}).testFlag(Qt::ItemIsDropEnabled));
}

void StoreModelsTest::entryListDrops()
{
    EntryListModel model(m_store.get());
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    Notifications seen(&model);
    const QList<QUuid> ids = entryIds(*m_store);

    // References from the service table land at the drop row, as one block.
    QMimeData references;
    references.setText(ListFixture::reference(0x86) + u'\n' + ListFixture::reference(0x87));
    QVERIFY(model.canDropMimeData(&references, Qt::CopyAction, 1, 0, {}));
    QVERIFY(model.dropMimeData(&references, Qt::CopyAction, 1, 0, {}));
    QCOMPARE(seen.inserted.count(), 1);
    QCOMPARE(seen.inserted.first().at(1).toInt(), 1);
    QCOMPARE(seen.inserted.first().at(2).toInt(), 2);
    QCOMPARE(model.index(1).data().toString(), u"Österreich 1"_s);
    QCOMPARE(model.index(2).data().toString(), u"zdf hd"_s);
    // Onto empty space: at the end.
    QVERIFY(model.dropMimeData(&references, Qt::CopyAction, -1, -1, {}));
    QCOMPARE(model.rowCount(), 8);
    QCOMPARE(model.index(7).data().toString(), u"zdf hd"_s);

    // Own rows move; the drag also carries their references as text.
    std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(0), model.index(3)}));
    QCOMPARE(dragged->text(), ListFixture::reference(0x83) + u"\n1:64:0:0:0:0:0:0:0:0:"_s);
    seen.clear();
    QVERIFY(model.dropMimeData(dragged.get(), Qt::MoveAction, 8, 0, {}));
    QCOMPARE(model.rowCount(), 8);
    QCOMPARE(model.index(6).data(EntryListModel::IdRole).toUuid(), ids.at(0));
    QCOMPARE(model.index(7).data(EntryListModel::IdRole).toUuid(), ids.at(1));
    QCOMPARE(seen.inserted.count() + seen.removed.count() + seen.reset.count(), 0);
    QVERIFY(seen.moved.count() >= 1);

    // The same drag dropped into another bouquet's list copies the references.
    m_store->setSelectedBouquetID(m_store->currentBouquets().at(1).id);
    QVERIFY(model.dropMimeData(dragged.get(), Qt::CopyAction, 0, 0, {}));
    QCOMPARE(model.rowCount(), 6);
    QCOMPARE(model.index(0).data(EntryListModel::ReferenceRole).toString(), ListFixture::reference(0x83));
    QCOMPARE(model.index(1).data(EntryListModel::ReferenceRole).toString(), u"1:64:0:0:0:0:0:0:0:0:"_s);
}

void StoreModelsTest::sortingALargeBouquetIsALayoutChange()
{
    EntryListModel model(m_store.get());
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QStringList references;
    QRandomGenerator random(7);
    for (int i = 0; i < 3000; ++i)
        references << u"1:0:1:%1:437:1:C00000:0:0:0:"_s.arg(random.bounded(1, 0xFFFFFF), 0, 16);
    m_store->insert(references, m_store->selectedBouquetID());
    QCOMPARE(model.rowCount(), 3004);
    const QPersistentModelIndex marker(model.index(1));
    QCOMPARE(marker.data().toString(), u"Nachrichten"_s);
    Notifications seen(&model);

    m_store->sortSelectedByName();
    QCOMPARE(seen.layout.count(), 1);
    QCOMPARE(seen.reset.count() + seen.inserted.count() + seen.removed.count() + seen.moved.count(), 0);
    QCOMPARE(modelIds(model, EntryListModel::IdRole), entryIds(*m_store));
    // A row the view holds on to follows its entry.
    QVERIFY(marker.isValid());
    QCOMPARE(marker.data().toString(), u"Nachrichten"_s);
    QCOMPARE(marker.row(), int(entryIds(*m_store).indexOf(marker.data(EntryListModel::IdRole).toUuid())));
    QVERIFY(marker.row() != 1);

    // Back again by undo, with the same kind of notification.
    m_store->undo();
    QCOMPARE(seen.layout.count(), 2);
    QCOMPARE(marker.row(), 1);
    QCOMPARE(seen.reset.count(), 0);
}

void StoreModelsTest::serviceTable()
{
    ServiceTableModel model(m_store.get());
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    Notifications seen(&model);
    QCOMPARE(model.columnCount(), 4);
    QCOMPARE(model.rowCount(), 7);
    QStringList headers, identifiers;
    for (int column = 0; column < model.columnCount(); ++column) {
        headers << model.headerData(column, Qt::Horizontal).toString();
        identifiers << ServiceTableModel::columnIdentifier(column);
    }
    QCOMPARE(headers, (QStringList{u"Name"_s, u"Anbieter"_s, u"Position"_s, u"In Bouquets"_s}));
    QCOMPARE(identifiers, (QStringList{u"name"_s, u"provider"_s, u"position"_s, u"usage"_s}));
    QCOMPARE(model.index(0, 0).data().toString(), u"arte HD"_s);
    QCOMPARE(model.index(0, 1).data().toString(), u"ARD"_s);
    QCOMPARE(model.index(0, 2).data().toString(), u"19.2E"_s);
    QCOMPARE(model.index(0, 3).data().toInt(), 1);
    QCOMPARE(model.index(0, 0).data(ServiceTableModel::ServiceKeyRole).value<ServiceKey>(), key(0x85));

    // Dragged rows: each service's reference once, one per line, in row order.
    std::unique_ptr<QMimeData> dragged(
        model.mimeData({model.index(2, 1), model.index(0, 0), model.index(2, 3)}));
    QCOMPARE(dragged->text(), ListFixture::reference(0x85) + u'\n' +
                                  model.index(2, 0).data(ServiceTableModel::ReferenceRole).toString());
    QVERIFY(!model.flags(model.index(0, 0)).testFlag(Qt::ItemIsEditable));

    // A usage change touches the usage column of the rows concerned only.
    m_store->add({m_store->serviceIndex().value(key(0x88))});
    QCOMPARE(seen.reset.count(), 0);
    QCOMPARE(seen.changed.count(), 1);
    const QModelIndex first = seen.changed.first().at(0).toModelIndex();
    const QModelIndex last = seen.changed.first().at(1).toModelIndex();
    QCOMPARE(first.column(), int(ServiceTableModel::UsageColumn));
    QCOMPARE(last.column(), int(ServiceTableModel::UsageColumn));
    QCOMPARE(first.row(), last.row());
    QCOMPARE(model.serviceAt(first.row()).key, key(0x88));
    QCOMPARE(first.data().toInt(), 1);
    // An edit that leaves the counts alone says nothing.
    m_store->addMarker(u"m"_s);
    QCOMPARE(seen.changed.count(), 1);

    m_store->setKind(MediaKind::radio);
    QCOMPARE(seen.reset.count(), 1);
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.index(0, 0).data().toString(), u"Antenne Bayern"_s);
    m_store->deleteServices({key(0x101)});
    QCOMPARE(model.rowCount(), 1);
}

void StoreModelsTest::randomEditsKeepModelsInStep()
{
    BouquetListModel bouquets(m_store.get());
    EntryListModel entries(m_store.get());
    ServiceTableModel services(m_store.get());
    QAbstractItemModelTester bouquetTester(&bouquets, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QAbstractItemModelTester entryTester(&entries, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QAbstractItemModelTester serviceTester(&services, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy entryResets(&entries, &QAbstractItemModel::modelReset);
    QRandomGenerator random(20240301);
    const QList<ListFixture::FixtureService> fixture = ListFixture::services();
    const auto anyReference = [&] {
        const ListFixture::FixtureService &service = fixture.at(random.bounded(int(fixture.size())));
        return ListFixture::reference(service.sid, service.type);
    };
    const auto someRows = [&](qsizetype count) {
        QSet<qsizetype> rows;
        for (int i = 0; i < 3 && count > 0; ++i)
            rows.insert(random.bounded(int(count)));
        return rows;
    };

    for (int step = 0; step < 400; ++step) {
        const QUuid shownBefore = entries.bouquetID();
        const MediaKind kindBefore = m_store->kind();
        const qsizetype resetsBefore = entryResets.count();
        const qsizetype shown = entries.rowCount();
        const QList<Bouquet> current = m_store->currentBouquets();
        switch (random.bounded(16)) {
        case 0:
            m_store->addMarker(QString::number(step));
            break;
        case 1:
            m_store->insert({anyReference(), anyReference()}, m_store->selectedBouquetID(),
                            random.bounded(int(shown) + 2));
            break;
        case 2: {
            EntryIds selection;
            for (qsizetype row : someRows(shown))
                selection.insert(entryIds(*m_store).at(row));
            m_store->setEntrySelection(selection);
            m_store->removeSelectedEntries();
            break;
        }
        case 3:
            m_store->moveEntries(someRows(shown), random.bounded(int(shown) + 1));
            break;
        case 4:
            if (shown > 0)
                m_store->renameEntry(entryIds(*m_store).at(random.bounded(int(shown))),
                                     QString::number(step));
            break;
        case 5:
            m_store->sortSelectedByName();
            break;
        case 6:
            m_store->createBouquet(u"B%1"_s.arg(step));
            break;
        case 7:
            if (!current.isEmpty())
                m_store->deleteBouquet(current.at(random.bounded(int(current.size()))).id);
            break;
        case 8:
            m_store->moveBouquets(someRows(current.size()), random.bounded(int(current.size()) + 1));
            break;
        case 9:
            if (!current.isEmpty())
                m_store->renameBouquet(current.at(random.bounded(int(current.size()))).id,
                                       u"R%1"_s.arg(step));
            break;
        case 10:
        case 11:
            m_store->undo();
            break;
        case 12:
            m_store->redo();
            break;
        case 13:
            if (!current.isEmpty())
                m_store->setSelectedBouquetID(current.at(random.bounded(int(current.size()))).id);
            break;
        case 14:
            if (random.bounded(4) == 0)
                m_store->setKind(kindBefore == MediaKind::tv ? MediaKind::radio : MediaKind::tv);
            else
                m_store->renameService(key(fixture.at(random.bounded(int(fixture.size()))).sid),
                                       u"S%1"_s.arg(step));
            break;
        case 15:
            if (random.bounded(3) == 0)
                m_store->deleteServices({key(fixture.at(random.bounded(int(fixture.size()))).sid)});
            else
                m_store->insert({anyReference()}, current.isEmpty() ? QUuid() : current.first().id, 0);
            break;
        }
        verifyMirrors(bouquets, entries, services);
        // Usage is kept up to date bouquet by bouquet; it must equal a count from scratch.
        UsageCounts counted;
        for (const QList<Bouquet> &list : m_store->bouquets()) {
            for (const Bouquet &bouquet : list) {
                for (const BouquetEntry &entry : bouquet.entries) {
                    if (const std::optional<ServiceKey> key = entry.serviceKey()) ++counted[*key];
                }
            }
        }
        QCOMPARE(m_store->usage(), counted);
        // The entry list is reset only when it shows another bouquet.
        if (entryResets.count() != resetsBefore)
            QVERIFY2(entries.bouquetID() != shownBefore || m_store->kind() != kindBefore,
                     qPrintable(QString::number(step)));
    }
}

QTEST_GUILESS_MAIN(StoreModelsTest)
#include "StoreModelsTest.moc"
