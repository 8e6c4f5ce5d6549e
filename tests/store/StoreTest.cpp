#include "Await.h"
#include "BouquetListModel.h"
#include "BoxLogWatch.h"
#include "EntryListModel.h"
#include "Error.h"
#include "NameOrder.h"
#include "Paths.h"
#include "ServiceTableModel.h"
#include "Store.h"
#include "TestSupport.h"

#include <QAbstractItemModelTester>
#include <QCoro/QCoroTimer>
#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <stdexcept>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Edit = std::function<void(Store &)>;

namespace {

constexpr auto testerMode = QAbstractItemModelTester::FailureReportingMode::QtTest;

// The list every test starts from: two satellites, TV and radio services, two TV bouquets (with a
// marker, a sub-bouquet and an unknown service) and a radio bouquet that also lists a TV service.
struct FixtureService
{
    quint32 sid;
    quint32 type;
    QString name;
    QString provider;
};

// 0x100 and 0x101 are radio; 0x86 and 0x101 are on Hot Bird, the others on Astra.
QList<FixtureService> fixtureServices()
{
    return {{0x83, 1, u"Das Erste HD"_s, u"ARD"_s}, {0x84, 25, u"ZDF HD"_s, u"ZDF"_s}, {0x85, 1, u"arte HD"_s, u"ARD"_s},
            {0x86, 1, u"Österreich 1"_s, u"ORF"_s}, {0x87, 1, u"zdf hd"_s, u"ZDF"_s}, {0x88, 1, u"Unbenutzt"_s, QString()},
            {0x89, 1, u"Nur im Radio"_s, u"BR"_s}, {0x100, 2, u"Bayern 3"_s, u"BR"_s},
            {0x101, 2, u"Antenne Bayern"_s, u"Antenne"_s}};
}

ServiceKey key(quint32 sid)
{
    const bool hotbird = sid == 0x86 || sid == 0x101;
    return ServiceKey{sid, hotbird ? 0x1388u : 0x0437u, 1, hotbird ? 0x00820000u : 0x00c00000u};
}

QString reference(quint32 sid, quint32 type = 1)
{
    const ServiceKey k = key(sid);
    return u"1:0:%1:%2:%3:%4:%5:0:0:0:"_s.arg(type, 0, 16).arg(k.sid, 0, 16).arg(k.tsid, 0, 16).arg(k.onid, 0, 16)
        .arg(k.ns, 0, 16).toUpper();
}

// The services as lamedb (format 4) or lamedb5.
QByteArray lamedb(int format, const QList<FixtureService> &services)
{
    QString text = format == 5 ? u"eDVB services /5/\nt:00c00000:0437:0001,s:11836500:27500000:1:2:192:2:0\n"
                                 u"t:00820000:1388:0001,s:11034000:27500000:1:2:130:2:0\n"_s
                               : u"eDVB services /4/\ntransponders\n00c00000:0437:0001\n\ts 11836500:27500000:1:2:192:2:0\n/\n"
                                 u"00820000:1388:0001\n\ts 11034000:27500000:1:2:130:2:0\n/\nend\nservices\n"_s;
    const QChar zero = u'0';
    for (const FixtureService &service : services) {
        const ServiceKey k = key(service.sid);
        const QString head = u"%1:%2:%3:%4:%5:0"_s.arg(k.sid, 4, 16, zero).arg(k.ns, 8, 16, zero).arg(k.tsid, 4, 16, zero)
                                 .arg(k.onid, 4, 16, zero).arg(service.type);
        text += (format == 5 ? u"s:%1,\"%2\",p:%3,c:000065\n"_s : u"%1\n%2\np:%3,c:000065\n"_s)
                    .arg(head, service.name, service.provider);
    }
    return (format == 5 ? text : text + u"end\nHave a lot of bugs!\n"_s).toUtf8();
}

// lamedb5, bouquets.tv ("Favoriten", "Sport"), bouquets.radio ("Radio") and satellites.xml.
void writeList(const QString &folder)
{
    const auto file = [&](const QString &name, const QString &text) {
        TestSupport::writeFile(folder + u'/' + name, text.toUtf8());
    };
    const QString index = u"#SERVICE 1:7:%1:0:0:0:0:0:0:0:FROM BOUQUET \"%2\" ORDER BY bouquet\n"_s;
    TestSupport::writeFile(folder + u"/lamedb5"_s, lamedb(5, fixtureServices()));
    file(u"bouquets.tv"_s, u"#NAME User - Bouquets (TV)\n"_s + index.arg(1).arg(u"userbouquet.favourites.tv"_s) +
                               index.arg(1).arg(u"userbouquet.sport.tv"_s));
    file(u"bouquets.radio"_s, u"#NAME User - Bouquets (Radio)\n"_s + index.arg(2).arg(u"userbouquet.radio.radio"_s));
    file(u"userbouquet.favourites.tv"_s,
         u"#NAME Favoriten\n#SERVICE %1\n#SERVICE 1:64:0:0:0:0:0:0:0:0:\n#DESCRIPTION Nachrichten\n#SERVICE %2\n#SERVICE %3\n"_s
             .arg(reference(0x83), reference(0x84, 0x19), reference(0x85)));
    file(u"userbouquet.sport.tv"_s,
         u"#NAME Sport\n#SERVICE %1\n#SERVICE %2\n#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"subbouquet.extra.tv\" "
         u"ORDER BY bouquet\n#SERVICE 1:0:1:999:437:1:C00000:0:0:0:\n"_s.arg(reference(0x84, 0x19), reference(0x83)));
    file(u"userbouquet.radio.radio"_s, u"#NAME Radio\n#SERVICE %1\n#SERVICE %2\n#SERVICE %3\n"_s
                                           .arg(reference(0x100, 2), reference(0x101, 2), reference(0x89)));
    file(u"satellites.xml"_s, u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<satellites>\n"
                              u"\t<sat name=\"Astra 1KR/1L/1M/1N (19.2E)\" flags=\"1\" position=\"192\">\n\t</sat>\n"
                              u"\t<sat name=\"Hot Bird 13B/13C/13E (13.0E)\" flags=\"1\" position=\"130\"/>\n</satellites>\n"_s);
}

// The bouquet of either kind with this name.
Bouquet bouquetNamed(const Store &store, const QString &name)
{
    for (const QList<Bouquet> &list : store.bouquets()) {
        for (const Bouquet &bouquet : list) {
            if (bouquet.name == name)
                return bouquet;
        }
    }
    qFatal("no bouquet named %s", qPrintable(name));
}

QUuid idOf(const Store &store, const QString &bouquet)
{
    return bouquetNamed(store, bouquet).id;
}

// What the entry list shows of a bouquet, or the sidebar of the current kind for an empty name.
QString shown(const Store &store, const QString &bouquet)
{
    QStringList names;
    if (bouquet.isEmpty()) {
        for (const Bouquet &each : store.currentBouquets())
            names << each.name;
    } else {
        for (const BouquetEntry &entry : bouquetNamed(store, bouquet).entries)
            names << store.displayName(entry);
    }
    return names.join(u'|');
}

QList<QUuid> entryIds(const Store &store)
{
    QList<QUuid> ids;
    for (const BouquetEntry &entry : store.selectedBouquet().value_or(Bouquet()).entries)
        ids << entry.id;
    return ids;
}

QList<BouquetEntry> allEntries(const Store &store)
{
    QList<BouquetEntry> entries;
    for (const QList<Bouquet> &list : store.bouquets()) {
        for (const Bouquet &bouquet : list)
            entries += bouquet.entries;
    }
    return entries;
}

// Bouquets without their per-load ids, for comparing two loads of the same files.
BouquetLists withoutIds(BouquetLists lists)
{
    for (QList<Bouquet> &list : lists) {
        for (Bouquet &bouquet : list) {
            bouquet.id = QUuid();
            for (BouquetEntry &entry : bouquet.entries)
                entry.id = QUuid();
        }
    }
    return lists;
}

// The description, domain and code of the Error the call throws.
QString errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const Error &error) {
        return u"%1 (%2 %3)"_s.arg(error.description(), error.domain()).arg(error.code());
    }
    return u"no error"_s;
}

BoxSettings withHost(const QString &host)
{
    BoxSettings settings;
    settings.host = host;
    return settings;
}

} // namespace

// Editing, undo and the item models that follow the store row by row; list folders on disk, the
// operation runner with its log lines, and the per-box folders. Each test starts with the list
// above written to a folder of its own and loaded.
class StoreTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_list;
    std::unique_ptr<Store> m_store;

    Bouquet bouquet(const QString &name) const { return bouquetNamed(*m_store, name); }
    QString shown(const QString &bouquet) const { return ::shown(*m_store, bouquet); }
    qsizetype steps() const { return m_store->undoStack().size(); }
    QByteArray file(const QString &name) const { return TestSupport::readFile(m_list + u'/' + name); }

private slots:
    void initTestCase()
    {
        TestSupport::isolateUserFolders();
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    void init()
    {
        QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
        QDir(Paths::dataDir()).removeRecursively();
        m_list = m_dir.filePath(QString::fromLatin1(QTest::currentTestFunction()) + u'/' +
                                QString::fromLatin1(QTest::currentDataTag()).replace(u' ', u'_') + u"/list"_s);
        writeList(m_list);
        m_store = std::make_unique<Store>();
        m_store->load(m_list);
    }

    void edits_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("bouquet");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("steps");
        const QString favourites = u"Das Erste HD|Nachrichten|ZDF HD|arte HD"_s;
        const auto row = [](const char *name, Edit edit, const QString &expected, int steps,
                            const QString &bouquet = u"Favoriten"_s) {
            QTest::newRow(name) << edit << bouquet << expected << steps;
        };
        // Calls on the other kind, on nothing, or with nothing to do are no step at all.
        row("edits that change nothing", [](Store &s) {
            s.insert({u"hello"_s, u" 1:0:1:83:437:1:C00000:0:0:0:"_s, u"4097:0:1:1:1:1:0:0:0:0:http%3a//x:Y"_s},
                     idOf(s, u"Favoriten"_s));
            s.insert({reference(0x83)}, idOf(s, u"Radio"_s));
            s.renameService(key(0x83), u"  \t "_s);
            s.renameService(key(0x999), u"x"_s);
            s.deleteServices({});
            s.createBouquet({});
            s.renameBouquet(idOf(s, u"Sport"_s), {});
            s.renameBouquet(idOf(s, u"Radio"_s), u"x"_s);
        }, favourites, 0);
        // Positions are clamped and none appends; texts that are no references are left out.
        row("insert and add", [](Store &s) {
            const QUuid into = idOf(s, u"Favoriten"_s);
            s.insert({reference(0x86)}, into, -3);
            s.insert({u"hello"_s, reference(0x87), reference(0x87)}, into, 2);
            s.insert({reference(0x88)}, into, 100);
            s.insert({reference(0x89)}, into);
            s.add({s.serviceIndex().value(key(0x85)), s.serviceIndex().value(key(0x85))});
            s.addMarker(u"Sport"_s);
        }, u"Österreich 1|Das Erste HD|zdf hd|zdf hd|Nachrichten|ZDF HD|arte HD|Unbenutzt|Nur im Radio|arte HD|arte HD|"
           u"Sport"_s, 6);
        // Moves of the rows A (Das Erste HD), B, C, D; always a step, even onto themselves.
        const QStringList abcd = favourites.split(u'|');
        const auto move = [&](const char *name, QSet<qsizetype> from, qsizetype to, const QString &order) {
            QStringList expected;
            for (const QChar letter : order)
                expected << abcd.at(letter.unicode() - u'A');
            row(name, [=](Store &s) { s.moveEntries(from, to); }, expected.join(u'|'), 1);
        };
        move("first down by one", {0}, 2, u"BACD"_s);
        move("two to the front", {2, 3}, 0, u"CDAB"_s);
        move("scattered around the destination", {1, 3}, 2, u"ABDC"_s);
        move("just behind itself", {2}, 3, u"ABCD"_s);
        move("beyond the end", {0}, 99, u"BCDA"_s);
        move("unknown offsets", {7, -1}, 0, u"ABCD"_s);
        row("remove selected entries", [](Store &s) {
            s.setEntrySelection({entryIds(s).at(0), entryIds(s).at(2), QUuid::createUuid()});
            s.removeSelectedEntries();
        }, u"Nachrichten|arte HD"_s, 1);
        // An own name shows for a service and a marker alike; an empty one brings back the
        // service's name with its pending rename, trimmed and with apostrophes for quotes.
        row("rename entries and a service", [](Store &s) {
            s.renameEntry(entryIds(s).at(0), u"Erstes"_s);
            s.renameEntry(entryIds(s).at(1), u"Sport"_s);
            s.renameEntry(QUuid::createUuid(), u"x"_s);
            s.renameService(key(0x83), u"  Das \"Erste\" HD\t"_s);
            s.renameEntry(entryIds(s).at(0), QString());
        }, u"Das 'Erste' HD|Sport|ZDF HD|arte HD"_s, 5);
        row("delete services", [](Store &s) { s.deleteServices({key(0x83), key(0x89)}); }, u"Nachrichten|ZDF HD|arte HD"_s, 1);
        row("bouquets", [](Store &s) {
            s.createBouquet(u"Kinder"_s);
            s.renameBouquet(idOf(s, u"Sport"_s), u"Fußball"_s);
            s.moveBouquets({2}, 0);
            s.moveBouquets({}, 0);
            s.deleteBouquet(idOf(s, u"Favoriten"_s));
            s.deleteBouquet(QUuid::createUuid());
        }, u"Kinder|Fußball"_s, 6, {});
    }

    void edits()
    {
        QFETCH(Edit, edit);
        QFETCH(QString, bouquet);
        QFETCH(QString, expected);
        QFETCH(int, steps);
        const Snapshot loaded = m_store->snapshot();
        const QList<Service> services = m_store->services();
        QSignalSpy changed(m_store.get(), &Store::bouquetsChanged);
        edit(*m_store);
        QCOMPARE(shown(bouquet), expected);
        QCOMPARE(this->steps(), steps);
        QCOMPARE(m_store->isDirty(), steps > 0);
        QCOMPARE(changed.isEmpty(), steps == 0);
        if (steps == 0)
            QCOMPARE(m_store->snapshot(), loaded);
        // Entries never share an id; undo brings back the list as loaded, the catalogue included.
        QSet<QUuid> ids;
        for (const BouquetEntry &entry : allEntries(*m_store))
            ids.insert(entry.id);
        QCOMPARE(ids.size(), allEntries(*m_store).size());
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
        // Redo brings back what undo took; a new edit after an undo empties the redo stack.
        const BouquetLists after = m_store->bouquets();
        for (int i = 0; i < 10; ++i)
            i < 5 ? m_store->undo() : m_store->redo();
        QCOMPARE(m_store->bouquets(), after);
        m_store->undo();
        QSignalSpy canRedo(m_store.get(), &Store::canRedoChanged);
        m_store->addMarker(u"neu"_s);
        QVERIFY(!m_store->canRedo());
        QCOMPARE(canRedo.count(), 1);
        QCOMPARE(steps(), 200);
        // The first five edits fell out of the history.
        while (m_store->canUndo())
            m_store->undo();
        QVERIFY(shown(u"Favoriten"_s).endsWith(u"arte HD|1|2|3|4|5"_s));
        QCOMPARE(m_store->redoStack().size(), 200);
        QCOMPARE(canUndo.count(), 2);
        // Undo and redo dirty the list, even back to the saved state; on empty stacks nothing
        // happens, and emptying the history keeps the flag.
        m_store->setDirty(false);
        m_store->undo();
        QVERIFY(!m_store->isDirty());
        m_store->redo();
        QVERIFY(m_store->isDirty());
        m_store->setDirty(false);
        m_store->undo();
        QVERIFY(m_store->isDirty());
        m_store->resetUndo();
        QVERIFY(m_store->isDirty() && !m_store->canUndo() && !m_store->canRedo());
    }

    void newBouquetsAndSelection()
    {
        // A radio bouquet holds the file name a new TV bouquet "Sport 2" would get; the same name
        // again takes the next free number.
        m_store->setKind(MediaKind::radio);
        m_store->createBouquet(u"Sport 2"_s);
        QCOMPARE(bouquet(u"Sport 2"_s).fileName, u"userbouquet.sport_2.radio"_s);
        m_store->mutate(idOf(*m_store, u"Sport 2"_s), [](Bouquet &radio) { radio.fileName = u"userbouquet.sport_2.tv"_s; });
        m_store->setKind(MediaKind::tv);
        const Bouquet favourites = bouquet(u"Favoriten"_s);
        m_store->setEntrySelection({favourites.entries.first().id});
        QVERIFY(m_store->entryListActive());
        QSignalSpy selected(m_store.get(), &Store::selectedBouquetIDChanged);
        m_store->createBouquet(u"Sport 2"_s);
        m_store->createBouquet(u"Sport 2"_s);
        const QList<Bouquet> tv = m_store->currentBouquets();
        QCOMPARE(tv.at(2).fileName + u' ' + tv.at(3).fileName, u"userbouquet.sport_22.tv userbouquet.sport_23.tv"_s);
        QCOMPARE(tv.at(3).kind, MediaKind(MediaKind::tv));
        // A new bouquet is selected, which clears the entry selection; renaming keeps the file
        // name, so that the index on the box keeps naming the same file.
        QCOMPARE(m_store->selectedBouquetID(), tv.at(3).id);
        QCOMPARE(selected.count(), 2);
        QVERIFY(m_store->entrySelection().isEmpty() && !m_store->entryListActive());
        m_store->renameBouquet(tv.at(1).id, u"Fußball"_s);
        QCOMPARE(bouquet(u"Fußball"_s).fileName, u"userbouquet.sport.tv"_s);

        // Selecting the same bouquet again keeps the entry selection, another one clears it; an
        // empty selection does not activate the entry list, and removing entries clears it.
        m_store->setSelectedBouquetID(favourites.id);
        m_store->setEntrySelection({favourites.entries.first().id});
        m_store->setSelectedBouquetID(favourites.id);
        QCOMPARE(m_store->entrySelection().size(), 1);
        QSignalSpy selection(m_store.get(), &Store::entrySelectionChanged);
        m_store->setSelectedBouquetID(tv.at(1).id);
        m_store->setEntrySelection({});
        QVERIFY(!m_store->entryListActive());
        m_store->setEntrySelection({tv.at(1).entries.first().id});
        m_store->removeSelectedEntries();
        QVERIFY(m_store->entrySelection().isEmpty());
        QCOMPARE(selection.count(), 3);
        // Deleting the selected bouquet selects the first remaining one, then none.
        for (const Bouquet &each : tv.mid(1))
            m_store->deleteBouquet(each.id);
        QCOMPARE(m_store->selectedBouquetID(), favourites.id);
        m_store->deleteBouquet(favourites.id);
        QVERIFY(m_store->selectedBouquetID().isNull() && !m_store->selectedBouquet());
    }

    void serviceEdits()
    {
        m_store->renameService(key(0x83), u"Vorher"_s);
        m_store->renameService(key(0x83), u"Zweites"_s);
        QCOMPARE(m_store->serviceEdits(), (ServiceEdits{{key(0x83), ServiceEdit::rename(u"Zweites"_s)}}));
        QCOMPARE(m_store->status(), u"Sender in „Zweites“ umbenannt – auf die Box kommt das mit „Senden“."_s);
        // The catalogue is sorted by the new name; back to the database name no edit is pending.
        QCOMPARE(m_store->services().last().name, u"Zweites"_s);
        m_store->renameService(key(0x83), u" Das Erste HD "_s);
        QVERIFY(m_store->serviceEdits().isEmpty());
        // Deleting replaces a rename, takes the entries of TV and radio bouquets alike and the
        // services out of the table's selection.
        m_store->setServiceSelection({key(0x83), key(0x86)});
        m_store->renameService(key(0x89), u"Umbenannt"_s);
        QSignalSpy rebuilt(m_store.get(), &Store::servicesRebuilt);
        m_store->deleteServices({key(0x83), key(0x89)});
        QCOMPARE(m_store->status(), u"2 Sender gelöscht – auf die Box kommt das mit „Senden“."_s);
        QCOMPARE(m_store->serviceEdits(),
                 (ServiceEdits{{key(0x83), ServiceEdit::deletion()}, {key(0x89), ServiceEdit::deletion()}}));
        QCOMPARE(m_store->serviceSelection(), ServiceKeys{key(0x86)});
        QVERIFY(m_store->services().size() == 7 && !m_store->serviceIndex().contains(key(0x83)));
        QCOMPARE(shown(u"Radio"_s), u"Bayern 3|Antenne Bayern"_s);
        m_store->undo();
        QCOMPARE(m_store->serviceIndex().value(key(0x89)).name, u"Umbenannt"_s);
        // Undoing a bouquet edit leaves the catalogue alone; undoing a service edit rebuilds it.
        m_store->addMarker(u"m"_s);
        m_store->undo();
        QCOMPARE(rebuilt.count(), 2);
        m_store->undo();
        m_store->redo();
        QCOMPARE(rebuilt.count(), 4);
    }

    void unusedServices()
    {
        // 0x89 is a TV service used only in a radio bouquet; an unknown service is not shown.
        QCOMPARE(m_store->unusedServiceKeys(), (ServiceKeys{key(0x86), key(0x87), key(0x88)}));
        QCOMPARE(m_store->bouquetUses({key(0x83), key(0x84), key(0x88), key(0x999)}), 5);
        // A bouquet of the other kind is not deleted.
        m_store->deleteBouquet(bouquet(u"Radio"_s).id);
        QVERIFY(!m_store->unusedServiceKeys().contains(key(0x89)));
        m_store->setKind(MediaKind::radio);
        m_store->deleteBouquet(bouquet(u"Radio"_s).id);
        QCOMPARE(m_store->unusedServiceKeys(), (ServiceKeys{key(0x86), key(0x87), key(0x88), key(0x89), key(0x100), key(0x101)}));
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
        // Without a language the order is by case-folded code points, still stable.
        const QStringList names{u"Zürich"_s, u"arte"_s, u"Bayern"_s, u"Österreich"_s, u"arte"_s, u"bayern"_s};
        for (const QLocale &locale : {QLocale::c(), QLocale(QLocale::German, QLocale::Germany)}) {
            QLocale::setDefault(locale);
            QStringList sorted;
            for (qsizetype i : NameOrder::sorted(names.size(), [&](qsizetype i) { return names.at(i); }))
                sorted << names.at(i);
            QCOMPARE(sorted.join(u' '), locale == QLocale::c() ? u"arte arte Bayern bayern Zürich Österreich"_s
                                                               : u"arte arte Bayern bayern Österreich Zürich"_s);
        }
        // A large bouquet sorted is one layout change; a row the view holds on to follows its
        // entry, there and back by undo.
        EntryListModel model(m_store.get());
        QAbstractItemModelTester tester(&model, testerMode);
        QStringList references;
        QRandomGenerator random(7);
        for (int i = 0; i < 3000; ++i)
            references << u"1:0:1:%1:437:1:C00000:0:0:0:"_s.arg(random.bounded(1, 0xFFFFFF), 0, 16);
        m_store->insert(references, m_store->selectedBouquetID());
        const QPersistentModelIndex marker(model.index(6));
        QSignalSpy layout(&model, &QAbstractItemModel::layoutChanged);
        m_store->sortSelectedByName();
        QCOMPARE(layout.count(), 1);
        QCOMPARE(marker.data().toString(), u"zdf hd"_s);
        QCOMPARE(marker.row(), int(entryIds(*m_store).indexOf(marker.data(EntryListModel::IdRole).toUuid())));
        QVERIFY(marker.row() != 6);
        m_store->undo();
        QCOMPARE(layout.count(), 2);
        QCOMPARE(marker.row(), 6);
    }

    void bouquetListModel()
    {
        BouquetListModel model(m_store.get());
        QAbstractItemModelTester tester(&model, testerMode);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QCOMPARE(model.index(1).data(BouquetListModel::FileNameRole).toString(), u"userbouquet.sport.tv"_s);
        // Renamed in place, trimmed, as one changed row; blanks only are refused.
        QVERIFY(model.flags(model.index(1)).testFlag(Qt::ItemIsEditable));
        QVERIFY(model.setData(model.index(1), u"  Fußball "_s));
        QVERIFY(!model.setData(model.index(1), u"   "_s));
        QCOMPARE(shown({}), u"Favoriten|Fußball"_s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), 1);
        QCOMPARE(changed.first().at(1).toModelIndex(), changed.first().at(0).toModelIndex());
        // Rows move through the store, not onto themselves; dropped rows of the sidebar likewise,
        // those of the other kind's sidebar not.
        QVERIFY(model.moveRows({}, 0, 1, {}, 2));
        QVERIFY(!model.moveRows({}, 0, 1, {}, 1));
        QCOMPARE(shown({}), u"Fußball|Favoriten"_s);
        m_store->createBouquet(u"Kinder"_s);
        std::unique_ptr<QMimeData> rows(model.mimeData({model.index(0), model.index(2), model.index(0)}));
        QVERIFY(model.dropMimeData(rows.get(), Qt::MoveAction, 2, 0, {}));
        QCOMPARE(shown({}), u"Favoriten|Fußball|Kinder"_s);
        QMimeData radioRows;
        radioRows.setData(BouquetListModel::rowsMimeType, "radio\n0");
        QVERIFY(!model.canDropMimeData(&radioRows, Qt::MoveAction, 0, 0, {}));
        // References dropped on a bouquet are appended to it, one changed row; between bouquets
        // they are refused.
        QMimeData references;
        references.setText(reference(0x86) + u"\r\n\n"_s + reference(0x87) + u"\nkein Verweis"_s);
        QVERIFY(!model.dropMimeData(&references, Qt::CopyAction, 1, 0, {}));
        changed.clear();
        QVERIFY(model.dropMimeData(&references, Qt::CopyAction, -1, -1, model.index(2)));
        QCOMPARE(shown(u"Kinder"_s), u"Österreich 1|zdf hd"_s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), 2);
        QCOMPARE(model.index(2).data(BouquetListModel::EntryCountRole).toInt(), 2);
        // The other kind shows its own bouquets.
        m_store->setKind(MediaKind::radio);
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(model.index(0).data().toString(), u"Radio"_s);
    }

    void entryListModel()
    {
        EntryListModel model(m_store.get());
        QAbstractItemModelTester tester(&model, testerMode);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QVERIFY(model.index(1).data(EntryListModel::MarkerRole).toBool());
        QVERIFY(!model.index(0).data(EntryListModel::MarkerRole).toBool());
        QVERIFY(model.index(0).data(EntryListModel::ServiceKnownRole).toBool());
        // Renamed in place, trimmed; a renamed service shows at once in entries without their own name.
        QVERIFY(model.setData(model.index(3), u" ARTE "_s));
        QCOMPARE(model.index(3).data(Qt::EditRole).toString(), u"ARTE"_s);
        QCOMPARE(changed.count(), 1);
        m_store->renameService(key(0x83), u"Erstes"_s);
        QCOMPARE(model.index(0).data().toString(), u"Erstes"_s);
        QCOMPARE(changed.count(), 2);
        // References land at the drop row as one block, onto empty space at the end.
        const QList<QUuid> ids = entryIds(*m_store);
        QMimeData references;
        references.setText(reference(0x86) + u'\n' + reference(0x87));
        QVERIFY(model.dropMimeData(&references, Qt::CopyAction, 1, 0, {}));
        QVERIFY(model.dropMimeData(&references, Qt::CopyAction, -1, -1, {}));
        QCOMPARE(shown(u"Favoriten"_s), u"Erstes|Österreich 1|zdf hd|Nachrichten|ZDF HD|ARTE|Österreich 1|zdf hd"_s);
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
        QVERIFY(!model.flags({}).testFlag(Qt::ItemIsDropEnabled));
    }

    void serviceTableModel()
    {
        ServiceTableModel model(m_store.get());
        QAbstractItemModelTester tester(&model, testerMode);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QStringList columns;
        for (int column = 0; column < model.columnCount(); ++column) {
            columns << model.headerData(column, Qt::Horizontal).toString() + u'/' + ServiceTableModel::columnIdentifier(column) +
                           u'/' + model.index(0, column).data().toString();
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
        // Renamed and deleted services, and those of the other kind, come with a new table.
        m_store->renameService(key(0x85), u"Zett"_s);
        QCOMPARE(model.index(6, 0).data().toString(), u"Zett"_s);
        m_store->setKind(MediaKind::radio);
        m_store->deleteServices({key(0x101)});
        QCOMPARE(reset.count(), 3);
        QCOMPARE(model.rowCount(), 1);
    }

    // Random edits, undos and switches: the entry list follows the store row by row, resetting
    // only for another kind or bouquet, and the usage counts equal a fresh count.
    void randomEditsKeepModelsInStep()
    {
        Store &store = *m_store;
        EntryListModel entries(&store);
        QAbstractItemModelTester tester(&entries, testerMode);
        QSignalSpy resets(&entries, &QAbstractItemModel::modelReset);
        QRandomGenerator random(20240301);
        const QList<FixtureService> fixture = fixtureServices();
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
            const MediaKind kindBefore = store.kind();
            const qsizetype resetsBefore = resets.count();
            const int count = entries.rowCount();
            const QList<QUuid> ids = entryIds(store);
            const QList<Bouquet> current = store.currentBouquets();
            const QUuid anyBouquet = current.isEmpty() ? QUuid() : current.at(random.bounded(int(current.size()))).id;
            const QString text = QString::number(step);
            EntryIds selection;
            switch (random.bounded(16)) {
            case 0: store.addMarker(text); break;
            case 1: store.insert({anyReference(), anyReference()}, store.selectedBouquetID(), random.bounded(count + 2)); break;
            case 2:
                for (qsizetype row : someRows(count))
                    selection.insert(ids.at(row));
                store.setEntrySelection(selection);
                store.removeSelectedEntries();
                break;
            case 3: store.moveEntries(someRows(count), random.bounded(count + 1)); break;
            case 4: store.renameEntry(ids.value(random.bounded(count + 1)), text); break;
            case 5: store.sortSelectedByName(); break;
            case 6: store.createBouquet(text); break;
            case 7: store.deleteBouquet(anyBouquet); break;
            case 8: store.moveBouquets(someRows(current.size()), random.bounded(int(current.size()) + 1)); break;
            case 9: store.renameBouquet(anyBouquet, text); break;
            case 10:
            case 11: store.undo(); break;
            case 12: store.redo(); break;
            case 13: store.setSelectedBouquetID(anyBouquet); break;
            case 14:
                if (random.bounded(4) == 0)
                    store.setKind(kindBefore == MediaKind::tv ? MediaKind::radio : MediaKind::tv);
                else
                    store.renameService(key(anyService().sid), text);
                break;
            case 15:
                if (random.bounded(3) == 0)
                    store.deleteServices({key(anyService().sid)});
                else
                    store.insert({anyReference()}, current.isEmpty() ? QUuid() : current.first().id, 0);
                break;
            }
            const QList<BouquetEntry> shownEntries = store.selectedBouquet().value_or(Bouquet()).entries;
            QCOMPARE(entries.rowCount(), shownEntries.size());
            for (int row = 0; row < shownEntries.size(); ++row) {
                QCOMPARE(entries.index(row).data(EntryListModel::IdRole).toUuid(), shownEntries.at(row).id);
                QCOMPARE(entries.index(row).data().toString(), store.displayName(shownEntries.at(row)));
                QCOMPARE(entries.index(row).data(EntryListModel::PositionRole).toInt(), row + 1);
            }
            UsageCounts counted;
            for (const BouquetEntry &entry : allEntries(store)) {
                if (const std::optional<ServiceKey> key = entry.serviceKey())
                    ++counted[*key];
            }
            QCOMPARE(store.usage(), counted);
            if (resets.count() != resetsBefore)
                QVERIFY2(entries.bouquetID() != shownBefore || store.kind() != kindBefore, qPrintable(text));
        }
    }

    void databases_data()
    {
        QTest::addColumn<QByteArray>("lamedb");
        QTest::addColumn<bool>("withLamedb5");
        QTest::addColumn<QString>("note");
        QList<FixtureService> services = fixtureServices();
        QTest::newRow("same services") << lamedb(4, services) << true << QString();
        QTest::newRow("one service fewer") << lamedb(4, services.mid(1)) << true
                                           << u" Hinweis: lamedb und lamedb5 enthalten unterschiedliche Sender."_s;
        QTest::newRow("only lamedb, a folder named lamedb5") << lamedb(4, services) << false << QString();
        QTest::newRow("unreadable lamedb") << QByteArray("eDVB services /9/\n") << true << QString();
        services[0].name = u"Anders benannt"_s;
        QTest::newRow("same keys, other names") << lamedb(4, services) << true << QString();
    }

    // Loading over an edited list, saving elsewhere and into the same folder.
    void databases()
    {
        QFETCH(QByteArray, lamedb);
        QFETCH(bool, withLamedb5);
        QFETCH(QString, note);
        TestSupport::writeFile(m_list + u"/lamedb"_s, lamedb);
        QMap<QString, QByteArray> texts{{u"lamedb"_s, lamedb}};
        if (withLamedb5) {
            texts.insert(u"lamedb5"_s, file(u"lamedb5"_s));
        } else {
            QFile::remove(m_list + u"/lamedb5"_s);
            QDir().mkpath(m_list + u"/lamedb5"_s);
        }
        // The kind stays, its first bouquet is selected.
        m_store->addMarker(u"x"_s);
        m_store->setKind(MediaKind::radio);
        const BoxLogWatch watch;
        m_store->load(m_list);
        QCOMPARE(m_store->status(), u"9 Sender (%1), 2 TV- und 1 Radio-Bouquets geladen."_s.arg(texts.lastKey()) + note);
        const QString logged = u"     Ordner     lamedb (8) und lamedb5 (9) unterscheiden sich"_s;
        QCOMPARE(watch.entries(), note.isEmpty() ? QStringList() : QStringList{logged});
        QCOMPARE(m_store->lamedbTexts(), texts);
        QCOMPARE(m_store->baseServices().first().name, u"Das Erste HD"_s);
        QCOMPARE(m_store->satelliteNames().value(u"19.2E"_s), u"Astra 1KR/1L/1M/1N (19.2E)"_s);
        QVERIFY(!m_store->isDirty() && !m_store->canUndo());
        QCOMPARE(m_store->selectedBouquet()->name, u"Radio"_s);
        // Changed on disk after loading: elsewhere the databases are written as loaded, "lamedb"
        // before "lamedb5", and into this folder not at all. The list stays where it was, unsaved.
        TestSupport::writeFile(m_list + u"/lamedb"_s, "changed on disk");
        m_store->renameBouquet(m_store->currentBouquets().first().id, u"Umbenannt"_s);
        const QString elsewhere = m_list + u"/../elsewhere/deeper"_s;
        const QStringList bouquetFiles{u"bouquets.tv"_s, u"userbouquet.favourites.tv"_s, u"userbouquet.sport.tv"_s,
                                       u"bouquets.radio"_s, u"userbouquet.radio.radio"_s};
        QCOMPARE(m_store->save(elsewhere), bouquetFiles + texts.keys());
        for (const QString &name : texts.keys())
            QCOMPARE(TestSupport::readFile(elsewhere + u'/' + name), texts.value(name));
        QCOMPARE(QFileInfo::exists(elsewhere + u"/lamedb5"_s), withLamedb5);
        QCOMPARE(m_store->save(m_list + u"/./"_s), bouquetFiles);
        QCOMPARE(file(u"lamedb"_s), QByteArray("changed on disk"));
        QVERIFY(file(u"userbouquet.radio.radio"_s).startsWith("#NAME Umbenannt\n"));
        QCOMPARE(m_store->folder(), QDir::cleanPath(m_list));
        QVERIFY(m_store->isDirty());
        QCOMPARE(m_store->recentFolders(), QStringList{QDir::cleanPath(m_list)});
    }

    void saving()
    {
        TestSupport::writeFile(m_list + u"/lamedb"_s, lamedb(4, fixtureServices()));
        m_store->load(m_list);
        // Below a file no folder can be made.
        const QString blocker = QDir::cleanPath(m_list + u"/../blocker"_s);
        TestSupport::writeFile(blocker, "not a folder");
        QCOMPARE(errorOf([&] { m_store->save(blocker + u"/list"_s); }),
                 u"Der Ordner „%1/list“ konnte nicht angelegt werden. ( 0)"_s.arg(blocker));
        QCOMPARE(TestSupport::readFile(blocker), QByteArray("not a folder"));
        // A pending service edit is applied to both databases, each in its own format; saving
        // keeps the history and the edits.
        m_store->renameService(key(0x85), u"ARTE"_s);
        m_store->deleteServices({key(0x88)});
        await(m_store->saveToCurrentFolder());
        QVERIFY(!m_store->isDirty() && !m_store->busy() && !m_store->errorMessage());
        QCOMPARE(m_store->status(), u"Gespeichert in %1."_s.arg(QDir::cleanPath(m_list)));
        QList<FixtureService> expected = fixtureServices();
        expected[2].name = u"ARTE"_s;
        expected.removeAt(5);
        QCOMPARE(file(u"lamedb5"_s), lamedb(5, expected));
        QCOMPARE(file(u"lamedb"_s), lamedb(4, expected));
        QVERIFY(m_store->canUndo() && m_store->serviceEdits().size() == 2);

        // The disk fills up: files written before hold the list, the failing one and those after
        // it what they held, and no temporary files are left behind.
        m_store->renameBouquet(idOf(*m_store, u"Favoriten"_s), u"Neu benannt"_s);
        QStringList references;
        for (int sid = 1; sid <= 3000; ++sid)
            references << u"1:0:1:%1:437:1:C00000:0:0:0:"_s.arg(sid, 0, 16);
        m_store->insert(references, idOf(*m_store, u"Sport"_s));
        TestSupport::writeFile(m_list + u"/userbouquet.radio.radio"_s, "#NAME Radio von Hand\n");
        const QByteArray sport = file(u"userbouquet.sport.tv"_s);
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit previous{};
        getrlimit(RLIMIT_FSIZE, &previous);
        rlimit limit = previous;
        limit.rlim_cur = 32 * 1024;
        setrlimit(RLIMIT_FSIZE, &limit);
        await(m_store->saveToCurrentFolder());
        setrlimit(RLIMIT_FSIZE, &previous);
        const QString prefix = u"„userbouquet.sport.tv“ konnte nicht gespeichert werden: "_s;
        const QString error = m_store->errorMessage().value_or(QString());
        QVERIFY2(error.startsWith(prefix) && error.size() > prefix.size(), qPrintable(error));
        QVERIFY(m_store->isDirty() && !m_store->busy());
        QVERIFY(file(u"userbouquet.favourites.tv"_s).startsWith("#NAME Neu benannt\n"));
        QCOMPARE(file(u"userbouquet.sport.tv"_s), sport);
        QCOMPARE(file(u"userbouquet.radio.radio"_s) + file(u"lamedb"_s), "#NAME Radio von Hand\n" + lamedb(4, expected));
        QCOMPARE(QDir(m_list).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 (QStringList{u"bouquets.radio"_s, u"bouquets.tv"_s, u"lamedb"_s, u"lamedb5"_s, u"satellites.xml"_s,
                              u"userbouquet.favourites.tv"_s, u"userbouquet.radio.radio"_s, u"userbouquet.sport.tv"_s}));
    }

    void missingAndHostileBouquetFiles()
    {
        QString index = u"#NAME User - Bouquets (TV)\n"_s;
        for (const char *name : {"userbouquet.gone.tv", "../outside.tv", "sub/inner.tv", "userbouquet.favourites.tv"})
            index += u"#SERVICE 1:7:1:0:0:0:0:0:0:0:FROM BOUQUET \"%1\" ORDER BY bouquet\n"_s.arg(QLatin1String(name));
        TestSupport::writeFile(m_list + u"/bouquets.tv"_s, index.toUtf8());
        const QByteArray outside = "#NAME Draußen\n#SERVICE 1:0:1:83:437:1:C00000:0:0:0:\n";
        TestSupport::writeFile(m_list + u"/../outside.tv"_s, outside);
        TestSupport::writeFile(m_list + u"/sub/inner.tv"_s, outside);
        m_store->load(m_list);
        QCOMPARE(shown({}), u"Favoriten"_s);
        QVERIFY(m_store->status().endsWith(u"geladen. Fehlende Dateien: userbouquet.gone.tv, ../outside.tv, sub/inner.tv"_s));
        // A bouquet that came by such a name is not written, neither here nor in another folder.
        m_store->mutate(idOf(*m_store, u"Favoriten"_s), [](Bouquet &bouquet) { bouquet.fileName = u"../escaped.tv"_s; });
        const QString copy = m_list + u"/copy"_s;
        const QStringList written{u"bouquets.tv"_s, u"bouquets.radio"_s, u"userbouquet.radio.radio"_s};
        QCOMPARE(m_store->save(m_list), written);
        QCOMPARE(m_store->save(copy), written + QStringList{u"lamedb5"_s});
        QVERIFY(!TestSupport::readFile(copy + u"/bouquets.tv"_s).contains("escaped"));
        QCOMPARE(file(u"../outside.tv"_s) + file(u"sub/inner.tv"_s), outside + outside);
        QVERIFY(!QFileInfo::exists(m_list + u"/../escaped.tv"_s) && !QFileInfo::exists(m_list + u"/outside.tv"_s));
        QVERIFY(!QFileInfo::exists(copy + u"/sub"_s));
    }

    void loadFailuresChangeNothing()
    {
        m_store->addMarker(u"ungespeichert"_s);
        const Snapshot before = m_store->snapshot();
        const QString status = m_store->status();
        const QList<Service> services = m_store->services();
        // The broken folder's lamedb5 (none: no database at all) and the error.
        const QList<std::pair<QByteArray, QString>> breakages{
            {QByteArray(), u"Im Ordner liegt weder lamedb noch lamedb5. (Corvandel 1)"_s},
            {"eDVB services /6/\n", u"Unbekanntes lamedb-Format. ( 0)"_s}};
        for (const auto &[lamedb5, expected] : breakages) {
            const QString broken = m_list + u"/../broken"_s + QString::number(lamedb5.size());
            writeList(broken);
            QFile::remove(broken + u"/lamedb5"_s);
            if (!lamedb5.isEmpty())
                TestSupport::writeFile(broken + u"/lamedb5"_s, lamedb5);
            QCOMPARE(errorOf([&] { m_store->load(broken); }), expected);
            QCOMPARE(m_store->snapshot(), before);
            QCOMPARE(m_store->services(), services);
            QVERIFY(m_store->status() == status && m_store->isDirty() && m_store->canUndo());
            QCOMPARE(m_store->folder(), QDir::cleanPath(m_list));
            QVERIFY(!m_store->open(broken));
            const QString reason = expected.section(u" ("_s, 0, 0);
            QCOMPARE(m_store->errorMessage(), u"„%1“ konnte nicht geladen werden: %2"_s.arg(m_store->label(broken), reason));
            QCOMPARE(m_store->recentFolders(), QStringList{QDir::cleanPath(m_list)});
        }
    }

    void recentFolders()
    {
        // The loaded list and five more: the oldest falls out; one opened again moves to the front.
        QStringList folders;
        for (int i = 1; i <= 5; ++i) {
            folders.prepend(m_dir.filePath(u"recent/"_s + QString::number(i)));
            TestSupport::writeFile(folders.first() + u"/lamedb5"_s, lamedb(5, fixtureServices()));
            QVERIFY(m_store->open(folders.first() + u'/'));
        }
        QCOMPARE(m_store->recentFolders(), folders);
        QVERIFY(m_store->open(folders.at(3)));
        folders.move(3, 0);
        QCOMPARE(m_store->recentFolders(), folders);
        QCOMPARE(QSettings(u"Corvandel"_s, u"Corvandel"_s).value(u"recentFolders"_s).toStringList(), folders);
        QCOMPARE(Store().recentFolders(), folders);
    }

    void restoreLastList_data()
    {
        QTest::addColumn<QVariant>("autoLoadLast");
        QTest::addColumn<bool>("recentHasList");
        QTest::addColumn<QString>("host");
        QTest::addColumn<QString>("expected");
        QTest::newRow("setting on") << QVariant(true) << true << u"127.0.0.1"_s << u"recent"_s;
        QTest::newRow("setting off") << QVariant(false) << true << QString() << QString();
        QTest::newRow("recent folder gone, box copy") << QVariant() << false << u" 127.0.0.1 "_s << u"box"_s;
    }

    // At start the last list opened, else the copy of the box's list, when there is one.
    void restoreLastList()
    {
        QFETCH(QVariant, autoLoadLast);
        QFETCH(bool, recentHasList);
        QFETCH(QString, host);
        QFETCH(QString, expected);
        if (autoLoadLast.isValid())
            QSettings(u"Corvandel"_s, u"Corvandel"_s).setValue(u"autoLoadLast"_s, autoLoadLast);
        if (!recentHasList)
            QFile::remove(m_list + u"/lamedb5"_s);
        const QString boxCopy = Paths::dataDir() + u"/127.0.0.1"_s;
        writeList(boxCopy);
        QFile::remove(boxCopy + u"/userbouquet.sport.tv"_s);
        Store store(withHost(host));
        store.restoreLastList();
        const QString loaded = u"Zuletzt verwendete Liste geladen (%1). 9 Sender (lamedb5), %2 TV- und 1 Radio-Bouquets "
                               u"geladen."_s;
        const QMap<QString, QString> statuses{
            {QString(), u"Keine Senderliste geladen."_s},
            {u"recent"_s, loaded.arg(u"list – "_s + QFileInfo(m_list).path()).arg(2)},
            {u"box"_s, loaded.arg(u"Box-Kopie 127.0.0.1"_s).arg(1) + u" Fehlende Dateien: userbouquet.sport.tv"_s}};
        QCOMPARE(store.status(), statuses.value(expected));
        QVERIFY(!store.errorMessage());
        // Once a list is loaded, restoring does nothing more.
        store.addMarker(u"x"_s);
        store.restoreLastList();
        QCOMPARE(store.isDirty(), !expected.isEmpty());
    }

    void roundTrip_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("fixture") << QString();
        for (const QString &folder : TestSupport::corpusListFolders())
            QTest::newRow(qPrintable(QDir(TestSupport::corpusDir()).relativeFilePath(folder))) << folder;
    }

    // Opened, saved elsewhere and opened again, a list is the same.
    void roundTrip()
    {
        QFETCH(QString, folder);
        if (!folder.isEmpty() && !m_store->open(folder)) {
            QVERIFY(!QFileInfo::exists(folder + u"/lamedb"_s) && !QFileInfo::exists(folder + u"/lamedb5"_s));
            return;
        }
        QTemporaryDir out;
        QVERIFY(m_store->save(out.path()).contains(u"bouquets.tv"_s));
        Store second;
        second.load(out.path());
        QCOMPARE(second.baseServices(), m_store->baseServices());
        QCOMPARE(second.lamedbTexts(), m_store->lamedbTexts());
        QCOMPARE(second.status(), m_store->status().section(u" Fehlende"_s, 0, 0));
        QCOMPARE(withoutIds(second.bouquets()), withoutIds(m_store->bouquets()));
    }

    void perform_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("failure");
        QTest::addColumn<QString>("logged");
        QTest::newRow("success") << u" …Speichere... "_s << QString() << u"Speichere"_s;
        QTest::newRow("error of the program") << u"Lade von der Box…"_s << u"Keine Verbindung."_s << u"Lade von der Box"_s;
        QTest::newRow("standard exception") << u"Teste Verbindung"_s << u"kaputt"_s << u"Teste Verbindung"_s;
        QTest::newRow("thrown before the first wait") << u"Lade…"_s << u"sofort"_s << u"Lade"_s;
    }

    void perform()
    {
        QFETCH(QString, label);
        QFETCH(QString, failure);
        QFETCH(QString, logged);
        const bool early = failure == u"sofort";
        Store store(withHost(u"192.168.0.10"_s));
        store.setStatus(u"Vorher"_s);
        QSignalSpy finished(&store, &Store::operationFinished);
        QSignalSpy busy(&store, &Store::busyChanged);
        const BoxLogWatch watch;
        QCoro::Task<> task = store.perform(label, [&]() -> QCoro::Task<> {
            if (early)
                throw MessageError(failure);
            store.setStatus(u"Halb fertig"_s);
            co_await QCoro::sleepFor(20ms);
            if (failure == u"kaputt")
                throw std::runtime_error("kaputt");
            if (!failure.isEmpty())
                throw MessageError(failure, u"Corvandel"_s, 2);
        });
        // perform returns while the operation waits.
        QCOMPARE(store.busy(), early ? std::nullopt : std::optional(label));
        QCOMPARE(finished.count(), early ? 1 : 0);
        await(std::move(task));
        QCOMPARE(finished.count(), 1);
        QCOMPARE(store.busy(), std::nullopt);
        QCOMPARE(busy.count(), 2);
        QCOMPARE(store.errorMessage(), failure.isEmpty() ? std::nullopt : std::optional(failure));
        // The status keeps what the operation last put there.
        QCOMPARE(store.status(), early ? u"Vorher"_s : u"Halb fertig"_s);
        QStringList entries = watch.entries();
        entries.replaceInStrings(QRegularExpression(u"\\d+\\.\\d\\d s"_s), u"0 s"_s);
        const QString end = failure.isEmpty() ? u"OK   Aufgabe    %1: fertig in 0 s – Halb fertig"_s.arg(logged)
                                              : u"ERR  Aufgabe    %1: abgebrochen nach 0 s – %2"_s.arg(logged, failure);
        QCOMPARE(entries, (QStringList{u">>>  Aufgabe    %1 – Box 192.168.0.10"_s.arg(logged), end}));
    }

    void boxFolderNamesAndLabels()
    {
        const QString home = QDir::homePath(), data = Paths::dataDir();
        QCOMPARE(m_store->label(data + u"/192.168.1.5"_s), u"Box-Kopie 192.168.1.5"_s);
        QCOMPARE(m_store->label(data + u"/Sicherungen/192.168.1.5/2024-03-01_08-05-09/"_s), u"Box-Kopie 2024-03-01_08-05-09"_s);
        QCOMPARE(m_store->label(home + u"/Listen/Astra"_s), u"Astra – ~/Listen"_s);
        QCOMPARE(m_store->label(home + u"/Astra"_s), u"Astra – ~"_s);
        QCOMPARE(m_store->label(u"/srv/listen/../enigma/Astra"_s), u"Astra – /srv/enigma"_s);
        // Only whole folder names count as the data folder or the home folder.
        QCOMPARE(m_store->label(data + u"x/list"_s), u"list – "_s + data + u'x');
        QCOMPARE(m_store->label(home + u"x/Astra"_s), u"Astra – "_s + home + u'x');
        // The host, the folder's name, and whether the host was resolved; a box never takes the
        // name of the picon cache, the backups or the password file.
        const QList<std::tuple<QString, QString, bool>> hosts{
            {QString(), u"box"_s, false}, {u"  "_s, u"box"_s, false}, {u" 127.0.0.1 "_s, u"127.0.0.1"_s, true},
            {u"box/with/slash"_s, u"box_with_slash"_s, false}, {u".."_s, u"__"_s, false}, {u".teil"_s, u"_teil"_s, false},
            {u"Picons"_s, u"_Picons"_s, false}, {u"Sicherungen"_s, u"_Sicherungen"_s, false},
            {u"passwords.json"_s, u"_passwords.json"_s, false}};
        for (const auto &[host, name, resolved] : hosts) {
            Store store(withHost(host));
            QCOMPARE(store.boxFolderName(), name);
            QCOMPARE(store.resolvedHosts().contains(host.trimmed()), resolved);
            QCOMPARE(store.workDir(), data + u'/' + name);
        }
        // Merging moves what the target lacks and keeps the rest; names that leave the data folder
        // are refused, and nothing to merge logs nothing.
        for (const auto &[path, bytes] : QList<std::pair<QString, QByteArray>>{
                 {u"/old/lamedb"_s, "old lamedb"}, {u"/old/bouquets.tv"_s, "old index"}, {u"/new/lamedb"_s, "new lamedb"},
                 {u"/Picons/old/a.png"_s, "a"}, {u"/Picons/old/.hidden"_s, "h"},
                 {u"/Sicherungen/old/2024-03-01_08-05-09/lamedb"_s, "backup"}, {u"/../outside/file"_s, "x"}})
            TestSupport::writeFile(data + path, bytes);
        const BoxLogWatch watch;
        Store::mergeFolders(u"old"_s, u"new"_s);
        QCOMPARE(TestSupport::readFile(data + u"/new/lamedb"_s), QByteArray("new lamedb"));
        QCOMPARE(TestSupport::readFile(data + u"/new/bouquets.tv"_s), QByteArray("old index"));
        QCOMPARE(QDir(data + u"/old"_s).entryList(QDir::Files), QStringList{u"lamedb"_s});
        QVERIFY(QFileInfo::exists(data + u"/Picons/new/a.png"_s) && QFileInfo::exists(data + u"/Picons/new/.hidden"_s));
        QCOMPARE(TestSupport::readFile(data + u"/Sicherungen/new/2024-03-01_08-05-09/lamedb"_s), QByteArray("backup"));
        QVERIFY(!QFileInfo::exists(data + u"/Picons/old"_s) && !QFileInfo::exists(data + u"/Sicherungen/old"_s));
        Store::mergeFolders(u"absent"_s, u"new"_s);
        Store::mergeFolders(u".."_s, u"new"_s);
        Store::mergeFolders(u"../outside"_s, u"new"_s);
        QVERIFY(QFileInfo::exists(data + u"/../outside/file"_s));
        const QString merged = u"     Ordner     Daten von „%1old“ nach „%1new“ übernommen"_s;
        QCOMPARE(watch.entries(), (QStringList{merged.arg(QString()), merged.arg(u"Picons/"_s), merged.arg(u"Sicherungen/"_s)}));
        // A host name merges its folder into its address's, once per session.
        if (Store::ipv4(u"localhost"_s) != std::optional<QString>(u"127.0.0.1"_s))
            QSKIP("localhost does not resolve to 127.0.0.1 here");
        QCOMPARE(Store::ipv4(u"box/with/slash"_s), std::nullopt);
        TestSupport::writeFile(data + u"/localhost/lamedb5"_s, "from the name");
        Store store(withHost(u" localhost"_s));
        QCOMPARE(store.boxFolderName(), u"127.0.0.1"_s);
        QCOMPARE(store.resolvedHosts().value(u"localhost"_s), u"127.0.0.1"_s);
        QCOMPARE(TestSupport::readFile(data + u"/127.0.0.1/lamedb5"_s), QByteArray("from the name"));
        TestSupport::writeFile(data + u"/localhost/later"_s, "x");
        QCOMPARE(store.workDir(), data + u"/127.0.0.1"_s);
        QVERIFY(QFileInfo::exists(data + u"/localhost/later"_s));
    }
};

QTEST_GUILESS_MAIN(StoreTest)
#include "StoreTest.moc"
