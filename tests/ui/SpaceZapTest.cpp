#include "BouquetSidebar.h"
#include "EntryListModel.h"
#include "EntryListView.h"
#include "FakeBox.h"
#include "ServiceBrowser.h"
#include "ServiceFilterModel.h"
#include "SpaceZap.h"
#include "TestSupport.h"
#include "UiFixture.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTableView>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The space bar in the two lists switches the receiver test double to the focused service;
// everywhere else, and with anything but one zappable item, it does not.
class SpaceZapTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void zapsTheSelectedEntry();
    void zapsTheSelectedService();
    void textFieldsKeepTheirBlanks();
    void nothingToZap_data();
    void nothingToZap();
    void failureLeavesStatus();

private:
    Store &store() { return m_window->store(); }
    MainWindow &window() { return m_window->window(); }
    EntryListView *entries() { return window().entryList(); }
    QList<FakeBoxRequest> zaps() const;
    // Selects the rows of the selected bouquet that pass, and gives the entry list the focus.
    void selectEntries(const std::function<bool(const BouquetEntry &, int)> &wanted);

    std::unique_ptr<FakeBox> m_box;
    std::unique_ptr<UiFixture::Window> m_window;
};

void SpaceZapTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    QVERIFY2(QFileInfo::exists(TestSupport::examplesDir() + u"/lamedb"_s), "the example list is missing");
}

void SpaceZapTest::init()
{
    QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
    m_box = std::make_unique<FakeBox>();
    QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
    m_window = std::make_unique<UiFixture::Window>();
    SpaceZap::install(m_window->context().zapper());
    UiFixture::pointAt(store(), *m_box);
    QVERIFY(QTest::qWaitForWindowExposed(&window()));
    window().activateWindow();
}

void SpaceZapTest::cleanup()
{
    m_window.reset();
    m_box.reset();
}

QList<FakeBoxRequest> SpaceZapTest::zaps() const
{
    QList<FakeBoxRequest> found;
    for (const FakeBoxRequest &request : m_box->journal()) {
        if (request.path == u"/web/zap")
            found << request;
    }
    return found;
}

void SpaceZapTest::selectEntries(const std::function<bool(const BouquetEntry &, int)> &wanted)
{
    entries()->setFocus();
    QItemSelection selection;
    const Bouquet bouquet = *store().selectedBouquet();
    for (int row = 0; row < bouquet.entries.size(); ++row) {
        if (wanted(bouquet.entries.at(row), row))
            selection.select(entries()->model()->index(row, 0), entries()->model()->index(row, 0));
    }
    entries()->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void SpaceZapTest::zapsTheSelectedEntry()
{
    // A service entry: its reference goes to the box, its name into the status line.
    std::optional<BouquetEntry> chosen;
    for (const Bouquet &bouquet : store().currentBouquets()) {
        for (const BouquetEntry &entry : bouquet.entries) {
            if (!chosen && store().service(entry)) {
                store().setSelectedBouquetID(bouquet.id);
                chosen = entry;
            }
        }
    }
    QVERIFY(chosen);
    selectEntries([&](const BouquetEntry &entry, int) { return entry.id == chosen->id; });
    QVERIFY(store().entryListActive());
    QVERIFY(m_window->context().zapper().zappableEntry());

    QTest::keyClick(entries(), Qt::Key_Space);
    QTRY_COMPARE(zaps().size(), 1);
    QCOMPARE(zaps().first().value(u"sRef"_s), chosen->reference);
    QTRY_COMPARE(store().status(), u"Box auf „%1“ umgeschaltet."_s.arg(store().displayName(*chosen)));
    // Swallowed: the list's own use of the space bar (toggling the selection) did not happen.
    QCOMPARE(store().entrySelection(), EntryIds{chosen->id});
}

void SpaceZapTest::zapsTheSelectedService()
{
    QTableView *table = window().serviceBrowser()->table();
    ServiceFilterModel *services = window().serviceBrowser()->filterModel();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(services->index(2, 0)).center());
    QVERIFY(!store().entryListActive());
    QCOMPARE(QApplication::focusWidget(), table);
    QTest::keyClick(table, Qt::Key_Space);
    QTRY_COMPARE(zaps().size(), 1);
    QCOMPARE(zaps().first().value(u"sRef"_s), reference(services->serviceAt(2)));
    QTRY_COMPARE(store().status(), u"Box auf „%1“ umgeschaltet."_s.arg(services->serviceAt(2).name));
}

void SpaceZapTest::textFieldsKeepTheirBlanks()
{
    // A service is selected, so a space in the table would zap.
    QTableView *table = window().serviceBrowser()->table();
    table->selectRow(0);
    QLineEdit *search = window().serviceBrowser()->searchField();
    search->setFocus();
    QTest::keyClicks(search, u"das er"_s);
    QCOMPARE(search->text(), u"das er"_s);
    QTest::qWait(300);
    QVERIFY(zaps().isEmpty());
}

void SpaceZapTest::nothingToZap_data()
{
    QTest::addColumn<QString>("situation");
    QTest::newRow("two entries") << u"two entries"_s;
    QTest::newRow("a marker") << u"marker"_s;
    QTest::newRow("shift and space") << u"shift"_s;
    QTest::newRow("dialog open") << u"dialog"_s;
    QTest::newRow("bouquet sidebar") << u"sidebar"_s;
}

void SpaceZapTest::nothingToZap()
{
    QFETCH(QString, situation);
    // A bouquet with a marker and at least two services.
    bool found = false;
    for (const Bouquet &bouquet : store().currentBouquets()) {
        const bool hasMarker =
            std::any_of(bouquet.entries.cbegin(), bouquet.entries.cend(), [](const auto &e) { return e.isMarker(); });
        if (!found && hasMarker && bouquet.entries.size() >= 3) {
            store().setSelectedBouquetID(bouquet.id);
            found = true;
        }
    }
    QVERIFY(found);
    Qt::KeyboardModifiers modifiers;
    QWidget *target = entries();
    int services = 0;
    if (situation == u"two entries") {
        selectEntries([&](const BouquetEntry &entry, int) { return !entry.isMarker() && services++ < 2; });
        QCOMPARE(store().entrySelection().size(), 2);
    } else if (situation == u"marker") {
        selectEntries([](const BouquetEntry &entry, int) { return entry.isMarker(); });
        QVERIFY(!store().entrySelection().isEmpty());
    } else {
        selectEntries([&](const BouquetEntry &entry, int) { return !entry.isMarker() && services++ < 1; });
        QVERIFY(m_window->context().zapper().zappableEntry());
    }
    if (situation == u"shift")
        modifiers = Qt::ShiftModifier;
    if (situation == u"sidebar") {
        window().sidebar()->setFocus();
        target = window().sidebar();
    }
    std::unique_ptr<QMessageBox> box;
    if (situation == u"dialog") {
        box = std::make_unique<QMessageBox>(QMessageBox::Information, u"Corvandel"_s, u"Offen"_s, QMessageBox::Ok,
                                            &window());
        box->setWindowModality(Qt::WindowModal);
        box->open();
        QVERIFY(QTest::qWaitForWindowExposed(box.get()));
        target = box.get();
    }
    QTest::keyClick(target, Qt::Key_Space, modifiers);
    QTest::qWait(300);
    QVERIFY(zaps().isEmpty());
    QCOMPARE(store().status().contains(u"umgeschaltet"_s), false);
}

void SpaceZapTest::failureLeavesStatus()
{
    FakeBoxOptions options;
    options.httpStatus = 500;
    FakeBox broken(options);
    QVERIFY(broken.isRunning());
    UiFixture::pointAt(store(), broken);
    store().setStatus(u"Vorher."_s);
    QTableView *table = window().serviceBrowser()->table();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(table->model()->index(0, 0)).center());
    QTest::keyClick(table, Qt::Key_Space);
    QTRY_VERIFY(store().errorMessage());
    QVERIFY(store().errorMessage()->startsWith(u"Umschalten fehlgeschlagen: "_s));
    QCOMPARE(store().status(), u"Vorher."_s);
    // The window shows the failure as an alert.
    auto *alert = UiFixture::dialog<QMessageBox>();
    QVERIFY(alert);
    QCOMPARE(alert->text(), *store().errorMessage());
    alert->accept();
    QTRY_VERIFY(!store().errorMessage());
}

QTEST_MAIN(SpaceZapTest)
#include "SpaceZapTest.moc"
