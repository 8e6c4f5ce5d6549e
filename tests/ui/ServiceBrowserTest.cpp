#include "ColumnLayout.h"
#include "ServiceBrowser.h"
#include "ServiceFilterModel.h"
#include "TestSupport.h"
#include "UiFixture.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTest>

#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

// The service browser on the example list: its filters, context menu, rename and delete
// confirmations, double-click and drag, and the column widths.
class ServiceBrowserTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void filterModelStaysConsistent();
    void searchText_data();
    void searchText();
    void typingAndErasing();
    void positionFilter();
    void onlyUnused();
    void selectionSurvivesFiltering();
    void contextMenuTexts();
    void doubleClickAndDragAdd();
    void renameThroughDialog();
    void deleteWithConfirmation();
    void fittedWidth_data();
    void fittedWidth();
    void fittedColumnsMatchMeasuredTexts();
    void savedColumnWidths();

private:
    ServiceBrowser *browser() { return m_window->window().serviceBrowser(); }
    ServiceFilterModel *filter() { return browser()->filterModel(); }
    Store &store() { return m_window->store(); }
    // The services of the current kind that pass, computed here the plain way.
    QList<Service> expected(const QString &search, const QString &position, bool onlyUnused);
    QList<Service> shown();
    int rowOf(const QString &name);

    std::unique_ptr<UiFixture::Window> m_window;
};

void ServiceBrowserTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    QVERIFY2(QFileInfo::exists(TestSupport::examplesDir() + u"/lamedb"_s), "the example list is missing");
}

void ServiceBrowserTest::init()
{
    QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
    m_window = std::make_unique<UiFixture::Window>();
    QVERIFY(!store().services().isEmpty());
}

void ServiceBrowserTest::cleanup()
{
    m_window.reset();
}

QList<Service> ServiceBrowserTest::expected(const QString &search, const QString &position, bool onlyUnused)
{
    QList<Service> services;
    for (const Service &service : store().services()) {
        if (service.kind() != store().kind())
            continue;
        if (!position.isEmpty() && service.position != position)
            continue;
        if (onlyUnused && store().usage().value(service.key) > 0)
            continue;
        if (!search.isEmpty() && !service.name.contains(search, Qt::CaseInsensitive)
            && !service.provider.contains(search, Qt::CaseInsensitive))
            continue;
        services << service;
    }
    return services;
}

QList<Service> ServiceBrowserTest::shown()
{
    QList<Service> services;
    for (int row = 0; row < filter()->rowCount(); ++row)
        services << filter()->serviceAt(row);
    return services;
}

int ServiceBrowserTest::rowOf(const QString &name)
{
    for (int row = 0; row < filter()->rowCount(); ++row) {
        if (filter()->serviceAt(row).name == name)
            return row;
    }
    return -1;
}

void ServiceBrowserTest::filterModelStaysConsistent()
{
    QAbstractItemModelTester tester(filter(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    browser()->searchField()->setText(u"a"_s);
    browser()->searchField()->setText(u"ar"_s);
    browser()->unusedToggle()->setChecked(true);
    browser()->positionPicker()->setCurrentIndex(1);
    store().setKind(MediaKind::radio);
    browser()->searchField()->clear();
    browser()->unusedToggle()->setChecked(false);
    store().setKind(MediaKind::tv);
    const Service first = filter()->serviceAt(0);
    store().renameService(first.key, u"Umbenannt"_s);
    store().undo();
    // The table shows exactly the rows its model has, with the model's texts.
    QCOMPARE(browser()->table()->model(), filter());
    QCOMPARE(shown(), expected({}, browser()->positionPicker()->currentData().toString(), false));
}

void ServiceBrowserTest::searchText_data()
{
    QTest::addColumn<QString>("search");
    QTest::newRow("empty") << QString();
    QTest::newRow("lower case") << u"das"_s;
    QTest::newRow("upper case") << u"DAS"_s;
    QTest::newRow("provider") << u"ARD"_s;
    QTest::newRow("umlaut") << u"ö"_s;
    QTest::newRow("digits") << u"1"_s;
    QTest::newRow("nothing") << u"zzqqxx"_s;
}

void ServiceBrowserTest::searchText()
{
    QFETCH(QString, search);
    // QTest types ASCII only.
    if (search.toLatin1() == search.toUtf8())
        QTest::keyClicks(browser()->searchField(), search);
    else
        browser()->searchField()->setText(search);
    QCOMPARE(filter()->search(), search);
    const QList<Service> wanted = expected(search, {}, false);
    QCOMPARE(shown(), wanted);
    QCOMPARE(browser()->table()->model()->rowCount(), wanted.size());
    // Each row must find something, except the last, or the test says nothing.
    QCOMPARE(wanted.isEmpty(), QByteArray(QTest::currentDataTag()) == "nothing");
}

void ServiceBrowserTest::typingAndErasing()
{
    // Typing narrows the rows already shown; erasing must bring back the others.
    QLineEdit *field = browser()->searchField();
    for (const QString &text : {u"a"_s, u"ar"_s, u"art"_s, u"ar"_s, u"a"_s, QString(), u"e"_s}) {
        field->setText(text);
        QCOMPARE(shown(), expected(text, {}, false));
    }
}

void ServiceBrowserTest::positionFilter()
{
    QComboBox *picker = browser()->positionPicker();
    QCOMPARE(picker->itemText(0), u"Alle"_s);
    QSet<QString> labels;
    for (const Service &service : expected({}, {}, false)) {
        if (!service.position.isEmpty())
            labels.insert(service.position);
    }
    QCOMPARE(picker->count(), labels.size() + 1);
    QVERIFY(labels.size() >= 2);
    for (int index = 1; index < picker->count(); ++index) {
        const QString label = picker->itemData(index).toString();
        QVERIFY(labels.contains(label));
        // Satellite names stand beside their positions.
        const QString satellite = store().satelliteNames().value(label);
        QVERIFY(picker->itemText(index).startsWith(label));
        QCOMPARE(picker->itemText(index).contains(satellite), true);
        picker->setCurrentIndex(index);
        QCOMPARE(shown(), expected({}, label, false));
        browser()->searchField()->setText(u"e"_s);
        QCOMPARE(shown(), expected(u"e"_s, label, false));
        browser()->searchField()->clear();
    }
    picker->setCurrentIndex(0);
    QCOMPARE(shown(), expected({}, {}, false));

    // The radio list offers the positions of radio services only.
    picker->setCurrentIndex(1);
    store().setKind(MediaKind::radio);
    QSet<QString> radioLabels;
    for (const Service &service : expected({}, {}, false))
        radioLabels.insert(service.position);
    for (int index = 1; index < picker->count(); ++index)
        QVERIFY(radioLabels.contains(picker->itemData(index).toString()));
    QCOMPARE(shown(), expected({}, picker->currentData().toString(), false));
}

void ServiceBrowserTest::onlyUnused()
{
    browser()->unusedToggle()->setChecked(true);
    const QList<Service> unused = expected({}, {}, true);
    QVERIFY(!unused.isEmpty());
    QVERIFY(unused.size() < expected({}, {}, false).size());
    QCOMPARE(shown(), unused);

    // A service added to a bouquet is no longer unused and leaves the table.
    QVERIFY(store().selectedBouquet());
    store().add({unused.first()});
    QCOMPARE(shown(), expected({}, {}, true));
    QVERIFY(!shown().contains(unused.first()));
    store().undo();
    QCOMPARE(shown(), unused);
}

void ServiceBrowserTest::selectionSurvivesFiltering()
{
    QTableView *table = browser()->table();
    const QList<Service> all = shown();
    QVERIFY(all.size() >= 3);
    const Service a = all.at(0);
    const Service b = all.at(2);
    table->selectionModel()->select(filter()->index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    table->selectionModel()->select(filter()->index(2, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(store().serviceSelection(), (ServiceKeys{a.key, b.key}));

    // Hidden by the search, b leaves the store's selection; back in view, it is selected again.
    browser()->searchField()->setText(a.name);
    if (!b.name.contains(a.name, Qt::CaseInsensitive) && !b.provider.contains(a.name, Qt::CaseInsensitive))
        QCOMPARE(store().serviceSelection(), (ServiceKeys{a.key}));
    browser()->searchField()->clear();
    QCOMPARE(store().serviceSelection(), (ServiceKeys{a.key, b.key}));
    QCOMPARE(table->selectionModel()->selectedRows().size(), 2);
}

void ServiceBrowserTest::contextMenuTexts()
{
    const auto texts = [](QMenu *menu) {
        QStringList result;
        for (QAction *action : menu->actions()) {
            if (!action->isSeparator())
                result << action->text();
        }
        return result;
    };
    std::unique_ptr<QMenu> one(browser()->contextMenu(1));
    QCOMPARE(texts(one.get()),
             (QStringList{u"Zum Bouquet hinzufügen"_s, u"Sender umbenennen…"_s, u"Sender aus der lamedb löschen…"_s}));
    QVERIFY(one->actions().first()->isEnabled());
    // A right click on a row outside the selection acts on that row alone.
    QCOMPARE(browser()->table()->selectionModel()->selectedRows().size(), 1);

    QTableView *table = browser()->table();
    table->selectionModel()->select(QItemSelection(filter()->index(0, 0), filter()->index(2, 3)),
                                    QItemSelectionModel::ClearAndSelect);
    std::unique_ptr<QMenu> three(browser()->contextMenu(1));
    QCOMPARE(texts(three.get()),
             (QStringList{u"3 Sender zum Bouquet hinzufügen"_s, u"3 Sender aus der lamedb löschen…"_s}));

    // Adding the three appends them to the selected bouquet in table order.
    const Bouquet before = *store().selectedBouquet();
    three->actions().first()->trigger();
    const Bouquet after = *store().selectedBouquet();
    QCOMPARE(after.entries.size(), before.entries.size() + 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(after.entries.at(before.entries.size() + i).reference, reference(filter()->serviceAt(i)));

    // Without a bouquet there is nothing to add to.
    store().setSelectedBouquetID({});
    std::unique_ptr<QMenu> none(browser()->contextMenu(0));
    QVERIFY(!none->actions().first()->isEnabled());
}

void ServiceBrowserTest::doubleClickAndDragAdd()
{
    QTableView *table = browser()->table();
    const Bouquet before = *store().selectedBouquet();
    const QRect cell = table->visualRect(filter()->index(1, 0));
    // A double click is a press and release followed by a second press that comes as a double click.
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    const Bouquet after = *store().selectedBouquet();
    QCOMPARE(after.entries.size(), before.entries.size() + 1);
    QCOMPARE(after.entries.last().reference, reference(filter()->serviceAt(1)));

    // Dragged rows carry their references as plain text, one per line.
    std::unique_ptr<QMimeData> data = UiFixture::dragData(table, {0, 2});
    QCOMPARE(data->text(), reference(filter()->serviceAt(0)) + u'\n' + reference(filter()->serviceAt(2)));
}

void ServiceBrowserTest::renameThroughDialog()
{
    const Service service = filter()->serviceAt(0);
    std::unique_ptr<QMenu> menu(browser()->contextMenu(0));
    menu->actions().at(1)->trigger();
    QCOMPARE(store().serviceRenameRequest(), std::optional<Service>(service));
    auto *prompt = UiFixture::dialog<QInputDialog>();
    QVERIFY(prompt);
    QCOMPARE(prompt->textValue(), service.name);
    prompt->setTextValue(u"  Neuer \"Name\"\t"_s);
    prompt->accept();
    QTRY_VERIFY(!store().serviceRenameRequest());
    QCOMPARE(store().serviceIndex().value(service.key).name, u"Neuer 'Name'"_s);
    QCOMPARE(m_window->window().statusText()->text(),
             u"Sender in „Neuer 'Name'“ umbenannt – auf die Box kommt das mit „Senden“."_s);
    QVERIFY(rowOf(u"Neuer 'Name'"_s) >= 0);

    // Cancelled, nothing changes and the request is dropped.
    const int steps = store().undoStack().size();
    store().setServiceRenameRequest(store().serviceIndex().value(service.key));
    prompt = UiFixture::dialog<QInputDialog>();
    QVERIFY(prompt);
    prompt->setTextValue(u"Verworfen"_s);
    prompt->reject();
    QTRY_VERIFY(!store().serviceRenameRequest());
    QCOMPARE(store().undoStack().size(), steps);
    QCOMPARE(store().serviceIndex().value(service.key).name, u"Neuer 'Name'"_s);
}

void ServiceBrowserTest::deleteWithConfirmation()
{
    // The service used most often in bouquets.
    Service used;
    int uses = 0;
    for (const Service &service : shown()) {
        if (store().usage().value(service.key) > uses) {
            used = service;
            uses = store().usage().value(service.key);
        }
    }
    QVERIFY(uses > 0);

    for (const bool confirm : {false, true}) {
        store().setServiceDeleteRequest(ServiceKeys{used.key});
        auto *box = UiFixture::dialog<QMessageBox>();
        QVERIFY(box);
        QCOMPARE(box->text(), u"Sender aus der lamedb löschen?"_s);
        QVERIFY(box->informativeText().contains(u"Einträge in Bouquets werden dabei mit entfernt."_s));
        QVERIFY(box->informativeText().contains(u"Einträge in Bouquets: %1"_s.arg(uses)));
        QAbstractButton *button = nullptr;
        for (QAbstractButton *candidate : box->buttons()) {
            if (candidate->text() == (confirm ? u"Löschen"_s : u"Abbrechen"_s))
                button = candidate;
        }
        QVERIFY(button);
        button->click();
        QTRY_VERIFY(!store().serviceDeleteRequest());
        QCOMPARE(store().serviceIndex().contains(used.key), !confirm);
        QCOMPARE(store().usage().value(used.key), confirm ? 0 : uses);
    }
    QCOMPARE(m_window->window().statusText()->text(), u"1 Sender gelöscht – auf die Box kommt das mit „Senden“."_s);
}

void ServiceBrowserTest::fittedWidth_data()
{
    QTest::addColumn<double>("widest");
    QTest::addColumn<double>("width");
    QTest::newRow("nothing") << 0.0 << 40.0;
    QTest::newRow("narrow") << 12.2 << 40.0;
    QTest::newRow("just above the minimum") << 20.01 << 41.0;
    QTest::newRow("fraction rounds up") << 100.3 << 121.0;
    QTest::newRow("whole number") << 100.0 << 120.0;
    QTest::newRow("at the maximum") << 380.0 << 400.0;
    QTest::newRow("beyond") << 1234.5 << 400.0;
}

void ServiceBrowserTest::fittedWidth()
{
    QFETCH(double, widest);
    QFETCH(double, width);
    QCOMPARE(ColumnLayout::fittedWidth(widest), width);
}

void ServiceBrowserTest::fittedColumnsMatchMeasuredTexts()
{
    // Measured text by text, the plain way; the layout estimates first and measures only a few.
    const QFont font = browser()->table()->font();
    QFont titleFont = browser()->table()->horizontalHeader()->font();
    titleFont.setBold(true);
    const QFontMetricsF cells(font);
    const QFontMetricsF titles(titleFont);
    for (MediaKind kind : MediaKind::allCases()) {
        store().setKind(kind);
        const QList<Service> services = expected({}, {}, false);
        // Names share their cell with the picon.
        const double picon = browser()->table()->iconSize().width() + 6;
        double name = titles.horizontalAdvance(u"Name"_s);
        double provider = titles.horizontalAdvance(u"Anbieter"_s);
        double position = titles.horizontalAdvance(u"Position"_s);
        double usage = titles.horizontalAdvance(u"In Bouquets"_s);
        for (const Service &service : services) {
            name = std::max(name, cells.horizontalAdvance(service.name) + picon);
            provider = std::max(provider, cells.horizontalAdvance(service.provider));
            position = std::max(position, cells.horizontalAdvance(service.position));
            usage = std::max(usage, cells.horizontalAdvance(QString::number(store().usage().value(service.key))));
        }
        const ColumnWidths fitted = store().fittedWidths().value(kind);
        QCOMPARE(fitted.value(u"name"_s), ColumnLayout::fittedWidth(name));
        QCOMPARE(fitted.value(u"provider"_s), ColumnLayout::fittedWidth(provider));
        QCOMPARE(fitted.value(u"position"_s), ColumnLayout::fittedWidth(position));
        QCOMPARE(fitted.value(u"usage"_s), ColumnLayout::fittedWidth(usage));
        QHeaderView *header = browser()->table()->horizontalHeader();
        QCOMPARE(header->sectionSize(0), qRound(fitted.value(u"name"_s)));
        QCOMPARE(header->sectionSize(3), qRound(fitted.value(u"usage"_s)));
    }
    // A long list of names, most of them short: the estimate must still find the widest.
    QList<QString> texts;
    for (int i = 0; i < 2000; ++i)
        texts << u"Sender %1"_s.arg(i);
    texts << u"WWWWWWWWWWWW"_s << u"iiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiii"_s;
    double widest = 0;
    for (const QString &text : std::as_const(texts))
        widest = std::max(widest, cells.horizontalAdvance(text));
    QCOMPARE(ColumnLayout::widestText(texts, font), widest);
}

void ServiceBrowserTest::savedColumnWidths()
{
    QHeaderView *header = browser()->table()->horizontalHeader();
    const ColumnWidths fitted = store().fittedWidths().value(MediaKind::tv);
    // Dragging a column edge saves all four widths of the kind.
    header->resizeSection(1, 222);
    QSettings settings(u"Corvandel"_s, u"Corvandel"_s);
    const QVariantMap saved = settings.value(u"columnWidths.tv"_s).toMap();
    QCOMPARE(saved.keys(), (QStringList{u"name"_s, u"position"_s, u"provider"_s, u"usage"_s}));
    QCOMPARE(saved.value(u"provider"_s).toDouble(), 222.0);
    QCOMPARE(saved.value(u"name"_s).toDouble(), fitted.value(u"name"_s));
    QVERIFY(!settings.contains(u"columnWidths.radio"_s));

    // Radio keeps its fitted widths; back on TV the saved ones return.
    store().setKind(MediaKind::radio);
    QCOMPARE(header->sectionSize(1), qRound(store().fittedWidths().value(MediaKind::radio).value(u"provider"_s)));
    store().setKind(MediaKind::tv);
    QCOMPARE(header->sectionSize(1), 222);

    // A new window reads them; an incomplete map is ignored.
    m_window.reset();
    m_window = std::make_unique<UiFixture::Window>();
    QCOMPARE(browser()->table()->horizontalHeader()->sectionSize(1), 222);
    QVariantMap partial = saved;
    partial.remove(u"usage"_s);
    settings.setValue(u"columnWidths.tv"_s, partial);
    m_window.reset();
    m_window = std::make_unique<UiFixture::Window>();
    header = browser()->table()->horizontalHeader();
    QCOMPARE(header->sectionSize(1), qRound(store().fittedWidths().value(MediaKind::tv).value(u"provider"_s)));

    // Reset drops the saved map and fits again.
    header->resizeSection(0, 300);
    QVERIFY(settings.contains(u"columnWidths.tv"_s));
    m_window->window().command(u"resetColumns"_s)->trigger();
    settings.sync();
    QVERIFY(!settings.contains(u"columnWidths.tv"_s));
    QCOMPARE(header->sectionSize(0), qRound(store().fittedWidths().value(MediaKind::tv).value(u"name"_s)));
}

QTEST_MAIN(ServiceBrowserTest)
#include "ServiceBrowserTest.moc"
