#include "Appearance.h"
#include "BouquetListModel.h"
#include "BouquetSidebar.h"
#include "BoxControlView.h"
#include "BoxLog.h"
#include "ColumnLayout.h"
#include "EntryListView.h"
#include "FakeBox.h"
#include "Keychain.h"
#include "LogView.h"
#include "PiconPackageDialog.h"
#include "PiconUploadSheet.h"
#include "ServiceBrowser.h"
#include "ServiceFilterModel.h"
#include "SettingsView.h"
#include "SpaceZap.h"
#include "TelnetError.h"
#include "TestSupport.h"
#include "UiFixture.h"

#include <QAbstractItemModelTester>
#include <QtWidgets>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// A row's middle, or a point just inside its top or bottom edge (a drop there lands above or below it).
enum class Spot { top, middle, bottom };
QPoint at(QAbstractItemView *view, int row, Spot spot = Spot::middle)
{
    const QRect rect = view->visualRect(view->model()->index(row, 0));
    const int y = spot == Spot::top ? rect.top() + 1 : spot == Spot::bottom ? rect.bottom() - 1 : rect.center().y();
    return {rect.center().x(), y};
}

// The mime data the view's model makes for these rows when they are dragged.
std::unique_ptr<QMimeData> dragData(QAbstractItemView *view, const QList<int> &rows)
{
    QModelIndexList indexes;
    for (int row : rows)
        indexes << view->model()->index(row, 0);
    return std::unique_ptr<QMimeData>(view->model()->mimeData(indexes));
}

// Drags the data over the view and drops it there, as a drag from elsewhere would; true when accepted.
bool drop(QAbstractItemView *view, const QMimeData *data, QPoint position)
{
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(position, actions, data, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(position, actions, data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent dropped(QPointF(position), actions, data, Qt::LeftButton, Qt::NoModifier);
    const auto send = [view](QEvent &event) {
        QApplication::sendEvent(view->viewport(), &event);
        return event.isAccepted();
    };
    return send(enter) && send(move) && send(dropped);
}

// The child of this type and name, or the button with this text; ends the program when there is none.
template<typename Widget>
Widget *child(const QObject *parent, const QString &name)
{
    for (Widget *found : parent->findChildren<Widget *>()) {
        const bool button = std::is_base_of_v<QAbstractButton, Widget>;
        if (found->objectName() == name || (button && found->property("text") == name))
            return found;
    }
    qFatal("no child %s", qPrintable(name));
}

QStringList referencesOf(const QList<BouquetEntry> &entries)
{
    QStringList references;
    for (const BouquetEntry &entry : entries)
        references << entry.reference;
    return references;
}

} // namespace

// The main window driven like a user drives it, on a copy of the example list, and its secondary
// windows; what reaches the receiver goes to its test double.
class MainWindowTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<FakeBox> m_box;
    std::unique_ptr<UiFixture::Window> m_window;
    std::list<QAbstractItemModelTester> m_testers;

    Store &store() { return m_window->store(); }
    MainWindow &window() { return m_window->window(); }
    EntryListView *entries() { return window().entryList(); }
    BouquetSidebar *sidebar() { return window().sidebar(); }
    ServiceBrowser *browser() { return window().serviceBrowser(); }
    ServiceFilterModel *filter() { return browser()->filterModel(); }
    QHeaderView *header() { return browser()->table()->horizontalHeader(); }
    QStringList entryReferences() { return referencesOf(store().selectedBouquet().value_or(Bouquet()).entries); }

    void openWindow()
    {
        m_testers.clear();
        m_window = std::make_unique<UiFixture::Window>();
        QVERIFY(!store().services().isEmpty() && QTest::qWaitForWindowExposed(&window()));
        window().activateWindow();
        SpaceZap::install(m_window->context().zapper());
        // Every change below also checks that the views' models report it consistently.
        for (QAbstractItemModel *model : {entries()->model(), sidebar()->model(), browser()->table()->model()})
            m_testers.emplace_back(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    // Answers the question in front of the window with this button; returns the question, if one came.
    QString answer(const QString &button, QString *details = nullptr)
    {
        auto *box = UiFixture::dialog<QMessageBox>();
        if (!box)
            return {};
        const QString question = box->text();
        if (details)
            *details = box->informativeText();
        child<QAbstractButton>(box, button)->click();
        return QTest::qWaitFor([] { return !QApplication::activeModalWidget(); }) ? question : QString();
    }

    // Picks this folder in the folder dialog that the shortcut opens; returns its title and button text.
    QString pickFolder(const QString &shortcut, const QString &folder)
    {
        QTest::keySequence(&window(), QKeySequence(shortcut));
        auto *dialog = UiFixture::dialog<QFileDialog>();
        if (!dialog || dialog->fileMode() != QFileDialog::Directory)
            return u"(no folder dialog)"_s;
        const QString shown = dialog->windowTitle() + u'|' + dialog->labelText(QFileDialog::Accept);
        emit dialog->fileSelected(folder);
        dialog->reject();
        return shown;
    }

    // Fills in the prompt in front of the window; returns its label and the text it offered.
    QString type(const QString &typed, bool accept = true)
    {
        auto *prompt = UiFixture::dialog<QInputDialog>();
        if (!prompt)
            return u"(no prompt)"_s;
        const QString offered = prompt->labelText() + u'|' + prompt->textValue();
        prompt->setTextValue(typed);
        accept ? prompt->accept() : prompt->reject();
        return offered;
    }

    // The services of the current kind that pass the browser's filters, computed the plain way.
    QList<Service> expected(const QString &search, const QString &position = {}, bool onlyUnused = false)
    {
        QList<Service> services;
        for (const Service &service : store().services()) {
            if (service.kind() == store().kind() && (position.isEmpty() || service.position == position)
                && (!onlyUnused || store().usage().value(service.key) == 0)
                && (service.name.contains(search, Qt::CaseInsensitive)
                    || service.provider.contains(search, Qt::CaseInsensitive)))
                services << service;
        }
        return services;
    }

    QList<Service> shown()
    {
        QList<Service> services;
        for (int row = 0; row < filter()->rowCount(); ++row)
            services << filter()->serviceAt(row);
        return services;
    }

    // A box control window pointed at a box, polling quickly.
    std::unique_ptr<BoxControlView> openBoxControl(const BoxSettings &settings)
    {
        store().setSettings(settings);
        auto view = std::make_unique<BoxControlView>(store());
        view->setPollInterval(20ms);
        view->show();
        return view;
    }

    // The texts of labels ("(hidden)" when not shown) and text fields, joined by "|".
    static QString text(const QWidget &window, const QStringList &names)
    {
        QStringList texts;
        for (const QString &name : names) {
            const auto *label = window.findChild<QLabel *>(name);
            texts << (!label ? child<QPlainTextEdit>(&window, name)->toPlainText()
                             : label->isVisibleTo(&window) ? label->text() : u"(hidden)"_s);
        }
        return texts.join(u'|');
    }

private slots:
    void initTestCase() { TestSupport::isolateUserFolders(); }

    void init()
    {
        QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
        openWindow();
    }

    void cleanup()
    {
        m_testers.clear();
        m_window.reset();
        m_box.reset();
    }

    void editingInTheLists()
    {
        QAction *undo = window().command(u"undo"_s);
        QAction *redo = window().command(u"redo"_s);
        const QStringList before = entryReferences();
        const Bouquet bouquet = *store().selectedBouquet();
        QVERIFY(!undo->isEnabled() && !redo->isEnabled() && before.size() >= 3);
        // The store's selection shows in the list; a click makes its list the active one.
        store().setEntrySelection({bouquet.entries.at(1).id});
        QCOMPARE(entries()->selectionModel()->selectedRows(), QModelIndexList{entries()->model()->index(1, 0)});
        QTableView *table = browser()->table();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, at(table, 0));
        QVERIFY(!store().entryListActive() && store().serviceSelection().size() == 1);
        QTest::mouseClick(entries()->viewport(), Qt::LeftButton, {}, at(entries(), 0));
        QTest::mouseClick(entries()->viewport(), Qt::LeftButton, Qt::ControlModifier, at(entries(), 2));
        QVERIFY(store().entryListActive()
                && store().entrySelection() == EntryIds({bouquet.entries.at(0).id, bouquet.entries.at(2).id}));

        // The delete key edits a text field; in the list it removes the entries, one step to undo.
        QLineEdit *search = browser()->searchField();
        search->setFocus();
        search->setText(u"abc"_s);
        search->setCursorPosition(0);
        QTest::keyClick(search, Qt::Key_Delete);
        QVERIFY(search->text() == u"bc" && entryReferences() == before);
        entries()->setFocus();
        QTest::keyClick(entries(), Qt::Key_Delete);
        const QStringList wanted = QStringList{before.at(1)} + before.mid(3);
        QVERIFY(entryReferences() == wanted && undo->isEnabled() && !redo->isEnabled());
        QTest::keySequence(&window(), QKeySequence::Undo);
        QVERIFY(entryReferences() == before && redo->isEnabled());
        QTest::keySequence(&window(), QKeySequence::Redo);
        QCOMPARE(entryReferences(), wanted);

        // F2 on a service entry without a name of its own offers that; empty, the database's comes back.
        const auto entryAt = [this](int row) { return store().selectedBouquet()->entries.at(row); };
        int row = int(wanted.size()) - 1;
        while (row >= 0 && (entryAt(row).description || !store().service(entryAt(row))))
            --row;
        QVERIFY(row >= 0);
        entries()->selectionModel()->select(entries()->model()->index(row, 0), QItemSelectionModel::ClearAndSelect);
        const QList<std::tuple<QString, QString, QString>> renames{
            {QString(), u" Mein Sender "_s, u"Mein Sender"_s},
            {u"Mein Sender"_s, QString(), store().displayName(entryAt(row))}};
        for (const auto &[current, typed, result] : renames) {
            QTest::keyClick(entries(), Qt::Key_F2);
            QCOMPARE(type(typed), u"Name (leer = Name aus der lamedb)|"_s + current);
            QTRY_COMPARE(entries()->model()->index(row, 0).data().toString(), result);
        }
        window().command(u"addMarker"_s)->trigger();
        QCOMPARE(type(u"Nachrichten"_s), u"Text der Markierung:|"_s);
        QTRY_COMPARE(store().selectedBouquet()->entries.last().description, std::optional(u"Nachrichten"_s));
        QVERIFY(store().selectedBouquet()->entries.last().isMarker());

        // A new bouquet is named in place, in the sidebar.
        window().command(u"newBouquet"_s)->trigger();
        auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(editor && editor->parentWidget() == sidebar()->viewport() && store().newBouquetRequest().isNull());
        QCOMPARE(editor->text(), u"Neues Bouquet"_s);
        editor->selectAll();
        QTest::keyClicks(editor, u"Kinder"_s);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(store().selectedBouquet()->name, u"Kinder"_s);

        // Empty, it shows how to fill it, where a one-entry list and the list without a bouquet are blank.
        QCOMPARE(entries()->model()->rowCount(), 0);
        entries()->resize(400, 300);
        const QRect middle(40, 130, 320, 40);
        const QImage hint = entries()->grab(middle).toImage();
        store().add({filter()->serviceAt(0)});
        const QImage oneEntry = entries()->grab(middle).toImage();
        store().setSelectedBouquetID({});
        QVERIFY(hint != entries()->grab(middle).toImage() && oneEntry == entries()->grab(middle).toImage());

        // Drag and drop, in the first bouquet with every service shown.
        const QList<Bouquet> bouquets = store().currentBouquets();
        store().setSelectedBouquetID(bouquets.at(0).id);
        browser()->searchField()->clear();
        const QStringList references = entryReferences();
        QVERIFY(bouquets.size() >= 3 && references.size() >= 4);
        // Services dropped at the edges of rows and below a short bouquet land there, one undo step each.
        const int last = int(references.size()) - 1;
        entries()->resize(entries()->width(), (last + 8) * entries()->sizeHintForRow(0));
        const QPoint below(entries()->viewport()->width() / 2, entries()->viewport()->height() - 3);
        const QList<std::pair<QPoint, int>> cases{
            {at(entries(), 0, Spot::top), 0},      {at(entries(), 1, Spot::top), 1},
            {at(entries(), 1, Spot::bottom), 2},   {at(entries(), last, Spot::bottom), last + 1},
            {below, last + 1}};
        const auto services = dragData(browser()->table(), {0, 2});
        for (const auto &[point, position] : cases) {
            QVERIFY(drop(entries(), services.get(), point));
            QStringList wanted = references;
            wanted.insert(position, reference(filter()->serviceAt(2)));
            wanted.insert(position, reference(filter()->serviceAt(0)));
            QCOMPARE(entryReferences(), wanted);
            store().undo();
        }
        QCOMPARE(entryReferences(), references);

        // Dropped onto another bouquet, services and entries are appended there; between two, refused.
        const auto rows = dragData(entries(), {0, 1});
        QVERIFY(drop(sidebar(), services.get(), at(sidebar(), 1)) && drop(sidebar(), rows.get(), at(sidebar(), 1)));
        QCOMPARE(referencesOf(store().currentBouquets().at(1).entries.mid(bouquets.at(1).entries.size())),
                 services->text().split(u'\n') + references.mid(0, 2));
        QVERIFY(entryReferences() == references && store().selectedBouquetID() == bouquets.at(0).id);
        QVERIFY(!drop(sidebar(), services.get(), at(sidebar(), 1, Spot::top)));

        // Entries dragged below the third move there as one step, and stay selected.
        const QItemSelection firstTwo(entries()->model()->index(0, 0), entries()->model()->index(1, 0));
        entries()->selectionModel()->select(firstTwo, QItemSelectionModel::ClearAndSelect);
        const qsizetype steps = store().undoStack().size();
        QVERIFY(drop(entries(), rows.get(), at(entries(), 2, Spot::bottom)));
        QCOMPARE(entryReferences(),
                 QStringList({references.at(2), references.at(0), references.at(1)}) + references.mid(3));
        QVERIFY(store().undoStack().size() == steps + 1 && store().entrySelection().size() == 2);

        // A bouquet dragged below the third moves there, and the selection with it.
        QVERIFY(drop(sidebar(), dragData(sidebar(), {0}).get(), at(sidebar(), 2, Spot::bottom)));
        const QList<Bouquet> after = store().currentBouquets();
        QVERIFY(after.at(0).id == bouquets.at(1).id && after.at(1).id == bouquets.at(2).id
                && after.at(2).id == bouquets.at(0).id);
        QCOMPARE(sidebar()->currentIndex().data(BouquetListModel::IdRole).toUuid(), bouquets.at(0).id);
    }

    void confirmationsAndAlerts()
    {
        const QList<Bouquet> bouquets = store().currentBouquets();
        store().setSelectedBouquetID(bouquets.at(1).id);
        sidebar()->setFocus();
        for (const bool confirm : {false, true}) {
            QTest::keyClick(sidebar(), Qt::Key_Delete);
            QCOMPARE(answer(confirm ? u"Löschen"_s : u"Abbrechen"_s),
                     u"Bouquet „%1“ löschen?"_s.arg(bouquets.at(1).name));
            QCOMPARE(store().currentBouquets().size(), bouquets.size() - (confirm ? 1 : 0));
        }

        // Repairing asks with the number of damaged lines in the open list; cancelled, nothing starts.
        const QString lamedb = m_window->folder() + u"/lamedb"_s;
        QByteArray text = TestSupport::readFile(lamedb);
        const qsizetype services = text.indexOf("\nservices\n");
        text.insert(text.indexOf('\n', text.indexOf('\n', services + 10) + 1) + 1, "Ã–sterreich ");
        QVERIFY(services > 0 && TestSupport::writeFile(lamedb, text));
        window().command(u"repair"_s)->trigger();
        const int damaged = store().lamedbRepairCount().value_or(0);
        QString details;
        QCOMPARE(answer(u"Abbrechen"_s, &details), u"Falsch kodierte Zeichen reparieren?"_s);
        QVERIFY(details.startsWith(u"%1 Zeilen in lamedb/lamedb5 enthalten Zeichen wie „19.2Â°E“."_s.arg(damaged)));
        QVERIFY(damaged > 0 && details.endsWith(u"die Box lädt die Senderliste danach neu."_s));
        QVERIFY(!store().lamedbRepairCount() && !store().busy());

        // With changes, downloading and opening another folder ask first; cancelled, nothing happens.
        QTest::keySequence(&window(), QKeySequence(u"Ctrl+D"_s));
        QCOMPARE(answer(u"Abbrechen"_s), u"Änderungen verwerfen?"_s);
        QVERIFY(!store().busy());
        QTemporaryDir other;
        UiFixture::copyExamples(other.path());
        QFile::remove(other.filePath(u"bouquets.radio"_s));
        for (const bool discard : {false, true}) {
            QVERIFY(pickFolder(u"Ctrl+O"_s, other.path()).startsWith(u"Listenordner öffnen|"_s));
            QCOMPARE(answer(discard ? u"Verwerfen"_s : u"Abbrechen"_s), u"Änderungen verwerfen?"_s);
            QCOMPARE(store().folder() == QDir(other.path()).canonicalPath(), discard);
        }
        QVERIFY(!store().isDirty() && store().bouquets().value(MediaKind::radio).isEmpty());

        // Saved elsewhere, the working folder and the changes mark stay.
        QTemporaryDir target;
        store().createBouquet(u"Woanders"_s);
        for (const QString &folder : {target.filePath(u"neu"_s), target.filePath(u"datei/unter"_s)}) {
            QCOMPARE(pickFolder(u"Ctrl+Shift+S"_s, folder), u"Speichern unter|Hier speichern"_s);
            QVERIFY(store().folder() == QDir(other.path()).canonicalPath() && store().isDirty());
            QVERIFY(TestSupport::writeFile(target.filePath(u"datei"_s), {}));
        }
        QVERIFY(TestSupport::readFile(target.filePath(u"neu/bouquets.tv"_s)).contains("woanders"));
        QVERIFY(store().status().startsWith(u"Gespeichert in %1."_s.arg(target.filePath(u"neu"_s))));

        // A folder that cannot be made is reported in front of the window; a second error replaces the text.
        auto *alert = UiFixture::dialog<QMessageBox>();
        QVERIFY(alert && store().errorMessage() && alert->text() == *store().errorMessage());
        QVERIFY(alert->windowModality() == Qt::WindowModal && alert->parentWidget() == &window());
        store().setErrorMessage(u"Noch ein Fehler."_s);
        QCOMPARE(alert->text(), u"Noch ein Fehler."_s);
        alert->accept();
        QTRY_VERIFY(!store().errorMessage() && !QApplication::activeModalWidget());
        // Saving in place clears the mark; the same error text again is shown again.
        QTest::keySequence(&window(), QKeySequence(u"Ctrl+S"_s));
        QTRY_VERIFY(!store().isDirty());
        store().setErrorMessage(u"Noch ein Fehler."_s);
        QVERIFY(UiFixture::dialog<QMessageBox>());

        // Quitting with changes asks first.
        const QList<std::tuple<QString, bool, bool>> cases{
            {u"Abbrechen"_s, false, false}, {u"Verwerfen"_s, true, false}, {u"Speichern"_s, true, true}};
        for (const auto &[button, closed, saved] : cases) {
            cleanup();
            openWindow();
            // The title names the list and marks its changes; the status line follows the store.
            QVERIFY(window().windowTitle().startsWith(store().label(m_window->folder()))
                    && !window().isWindowModified());
            store().createBouquet(u"Ungesichert"_s);
            QVERIFY(window().isWindowModified() && window().statusText()->text() == store().status());
            const QString index = m_window->folder() + u"/bouquets.tv"_s;
            const QByteArray before = TestSupport::readFile(index);
            QVERIFY(!window().close());
            QCOMPARE(answer(button),
                     u"Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind."_s);
            QTRY_COMPARE(window().isVisible(), !closed);
            QVERIFY(store().isDirty() == !saved && (TestSupport::readFile(index) == before) == !saved);
        }

        // Without a folder of its own, the window opens the last list once shown; unchanged, it just closes.
        cleanup();
        QTemporaryDir last;
        UiFixture::copyExamples(last.path());
        QSettings(u"Corvandel"_s, u"Corvandel"_s).setValue(u"recentFolders"_s, QStringList{last.path()});
        AppContext context;
        MainWindow shown(context);
        QCoreApplication::processEvents();
        QVERIFY(context.store().services().isEmpty() && shown.windowTitle() == u"Corvandel[*]");
        shown.show();
        QTRY_COMPARE(context.store().folder(), QDir(last.path()).canonicalPath());
        QVERIFY(shown.close());
    }

    void serviceFilters()
    {
        QComboBox *picker = browser()->positionPicker();
        picker->setCurrentIndex(1);
        for (const MediaKind kind : {MediaKind(MediaKind::radio), MediaKind(MediaKind::tv)}) {
            QTest::keySequence(&window(), QKeySequence(kind == MediaKind::tv ? u"Ctrl+1"_s : u"Ctrl+2"_s));
            QVERIFY(store().kind() == kind && window().command(kind.rawValue())->isChecked());
            QCOMPARE(entries()->model()->rowCount(), store().currentBouquets().first().entries.size());
            // The services of the kind; a position chosen for the other kind falls back to one this offers.
            QCOMPARE(shown(), expected({}, picker->currentData().toString()));
            picker->setCurrentIndex(0);
            QVERIFY(!shown().isEmpty() && shown() == expected({}));
            // "Alle" and the positions of the kind, with the satellite names beside them.
            QSet<QString> labels;
            for (const Service &service : shown())
                labels.insert(service.position);
            labels.remove(QString());
            QVERIFY(picker->itemText(0) == u"Alle" && picker->count() == labels.size() + 1);
            for (int index = 1; index < picker->count(); ++index) {
                const QString label = picker->itemData(index).toString();
                QVERIFY(labels.contains(label) && picker->itemText(index).startsWith(label));
                QVERIFY(picker->itemText(index).contains(store().satelliteNames().value(label)));
                picker->setCurrentIndex(index);
                QCOMPARE(shown(), expected({}, label));
            }
        }

        // Typing narrows the rows shown, erasing must bring back the others; all but "zzqqxx" find some.
        const QList<std::tuple<QString, int, bool>> steps{
            {u"das"_s, 0, false}, {u"DAS"_s, 0, false},    {u"ARD"_s, 0, false}, {u"ö"_s, 0, false},
            {u"1"_s, 0, false},   {u"zzqqxx"_s, 0, false}, {u"a"_s, 0, false},   {u"ar"_s, 0, false},
            {u"art"_s, 0, false}, {u"ar"_s, 0, false},     {u"e"_s, 1, false},   {u"e"_s, 2, false},
            {QString(), 2, false}, {QString(), 0, true},   {u"e"_s, 0, true},    {QString(), 0, false}};
        for (const auto &[search, position, onlyUnused] : steps) {
            browser()->searchField()->setText(search);
            picker->setCurrentIndex(position);
            browser()->unusedToggle()->setChecked(onlyUnused);
            const QList<Service> wanted = expected(search, picker->currentData().toString(), onlyUnused);
            QCOMPARE(shown(), wanted);
            QVERIFY2(wanted.isEmpty() == (search == u"zzqqxx"), qPrintable(search));
        }

        // A selected service hidden by the search leaves the store's selection, and comes back with it.
        const QList<Service> all = shown();
        QItemSelectionModel *selection = browser()->table()->selectionModel();
        selection->select(filter()->index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        selection->select(filter()->index(2, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QCOMPARE(store().serviceSelection(), (ServiceKeys{all.at(0).key, all.at(2).key}));
        browser()->searchField()->setText(all.at(0).name);
        if (!expected(all.at(0).name).contains(all.at(2)))
            QCOMPARE(store().serviceSelection(), ServiceKeys{all.at(0).key});
        browser()->searchField()->clear();
        QVERIFY(store().serviceSelection() == ServiceKeys({all.at(0).key, all.at(2).key})
                && selection->selectedRows().size() == 2);

        // A service added to a bouquet is no longer unused and leaves the table.
        browser()->unusedToggle()->setChecked(true);
        const QList<Service> unused = shown();
        QVERIFY(unused.size() < all.size());
        store().add({unused.first()});
        QCOMPARE(shown(), expected({}, {}, true));
        store().undo();
        QCOMPARE(shown(), unused);
        browser()->unusedToggle()->setChecked(false);

        const auto texts = [this](int row) {
            QStringList result;
            const std::unique_ptr<QMenu> menu(browser()->contextMenu(row));
            for (QAction *action : menu->actions())
                result << action->text() + (action->isEnabled() ? QString() : u" (aus)"_s);
            return result;
        };
        // A right click on a row outside the selection acts on that row alone.
        QCOMPARE(texts(1), (QStringList{u"Zum Bouquet hinzufügen"_s, u"Sender umbenennen…"_s,
                                        u"Sender aus der lamedb löschen…"_s}));
        QTableView *table = browser()->table();
        QCOMPARE(table->selectionModel()->selectedRows().size(), 1);

        // Renamed through the menu's prompt; cancelled, nothing changes. The search finds the new name.
        const Service service = filter()->serviceAt(1);
        std::unique_ptr<QMenu>(browser()->contextMenu(1))->actions().at(1)->trigger();
        QCOMPARE(store().serviceRenameRequest(), std::optional<Service>(service));
        for (const bool accept : {true, false}) {
            if (!accept)
                store().setServiceRenameRequest(store().serviceIndex().value(service.key));
            QCOMPARE(type(accept ? u"Neuer Name"_s : u"Verworfen"_s, accept),
                     u"Neuer Name für „%1“:|%1"_s.arg(accept ? service.name : u"Neuer Name"_s));
            QTRY_VERIFY(!store().serviceRenameRequest());
            QCOMPARE(store().serviceIndex().value(service.key).name, u"Neuer Name"_s);
        }
        browser()->searchField()->setText(u"neuer name"_s);
        QCOMPARE(shown(), QList<Service>{store().serviceIndex().value(service.key)});
        browser()->searchField()->clear();

        // Deleting the service used most often asks first, naming its uses.
        const QList<Service> services = shown();
        const auto lessUsed = [this](const Service &a, const Service &b) {
            return store().usage().value(a.key) < store().usage().value(b.key);
        };
        const Service used = *std::max_element(services.cbegin(), services.cend(), lessUsed);
        const int uses = store().usage().value(used.key);
        QVERIFY(uses > 0);
        for (const bool confirm : {false, true}) {
            store().setServiceDeleteRequest(ServiceKeys{used.key});
            QString details;
            QCOMPARE(answer(confirm ? u"Löschen"_s : u"Abbrechen"_s, &details), u"Sender aus der lamedb löschen?"_s);
            QCOMPARE(details, u"Einträge in Bouquets werden dabei mit entfernt.\n"
                              u"Sender: 1 · Einträge in Bouquets: %1"_s.arg(uses));
            QTRY_VERIFY(!store().serviceDeleteRequest());
            QCOMPARE(store().serviceIndex().contains(used.key), !confirm);
        }

        // Three selected are added to the selected bouquet in table order; a double click adds one.
        table->selectionModel()->select(QItemSelection(filter()->index(0, 0), filter()->index(2, 3)),
                                        QItemSelectionModel::ClearAndSelect);
        QCOMPARE(texts(1), (QStringList{u"3 Sender zum Bouquet hinzufügen"_s, u"3 Sender aus der lamedb löschen…"_s}));
        const qsizetype before = store().selectedBouquet()->entries.size();
        std::unique_ptr<QMenu>(browser()->contextMenu(1))->actions().first()->trigger();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, at(table, 1));
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, at(table, 1));
        QCOMPARE(referencesOf(store().selectedBouquet()->entries.mid(before)),
                 (QStringList{reference(filter()->serviceAt(0)), reference(filter()->serviceAt(1)),
                              reference(filter()->serviceAt(2)), reference(filter()->serviceAt(1))}));
        store().setSelectedBouquetID({});
        QCOMPARE(texts(0).first(), u"Zum Bouquet hinzufügen (aus)"_s);
    }

    void secondaryWindowsAndMenus()
    {
        // The log window, before the box operations whose late log lines would mix in.
        BoxLog &log = BoxLog::shared();
        log.clear();
        log.flush();
        LogView view;
        view.show();
        auto *text = child<QPlainTextEdit>(&view, u"text"_s);
        auto *onlyErrors = child<QCheckBox>(&view, u"onlyErrors"_s);
        QCOMPARE(text->placeholderText(), u"Noch keine Einträge."_s);
        onlyErrors->setChecked(true);
        QCOMPARE(text->placeholderText(), u"Keine Fehler – alles hat geklappt."_s);

        // Written while the window is open: it follows on its own; filtered, only the errors, copied as shown.
        log.write(BoxLog::Level::info, u"FTP"_s, u"Herunterladen: ftp://box/lamedb"_s);
        log.write(BoxLog::Level::error, u"FTP"_s, u"Herunterladen fehlgeschlagen nach 0.10 s: curl-Code 7"_s);
        log.write(BoxLog::Level::ok, u"HTTP"_s, u"GET box:80/web/signal → 200"_s);
        log.write(BoxLog::Level::error, u"Telnet"_s, u"fehlgeschlagen nach 1.00 s: Zeitüberschreitung"_s);
        log.flush();
        onlyErrors->setChecked(false);
        QTRY_COMPARE(text->toPlainText(), log.tail(LogView::tailBytes));
        onlyErrors->setChecked(true);
        const QStringList errors = text->toPlainText().split(u'\n');
        QVERIFY(errors.size() == 2 && errors[0].contains(u"  ERR  FTP        Herunterladen fehlgeschlagen"_s)
                && errors[1].contains(u"  ERR  Telnet     fehlgeschlagen"_s));
        child<QPushButton>(&view, u"copy"_s)->click();
        QCOMPARE(QGuiApplication::clipboard()->text(), errors.join(u'\n'));
        child<QPushButton>(&view, u"clear"_s)->click();
        onlyErrors->setChecked(false);
        QTRY_COMPARE(text->toPlainText(), QString());

        // A long log opens at its end, and stays there as it grows.
        view.hide();
        for (int i = 0; i < 500; ++i)
            log.write(BoxLog::Level::info, u"App"_s, u"Eintrag %1"_s.arg(i));
        log.flush();
        view.show();
        QScrollBar *bar = text->verticalScrollBar();
        QVERIFY(QTest::qWaitForWindowExposed(&view) && bar->maximum() > 0 && bar->value() == bar->maximum());
        log.write(BoxLog::Level::info, u"App"_s, u"Der letzte"_s);
        QTRY_VERIFY(text->toPlainText().endsWith(u"Der letzte\n"_s));
        QCOMPARE(bar->value(), bar->maximum());

        // The settings window's choice of side moves the sidebar at once, keeping its width.
        window().command(u"settings"_s)->trigger();
        auto *side = child<QComboBox>(window().findChild<SettingsView *>(), u"bouquetsRight"_s);
        QVERIFY(side->isVisible() && !window().bouquetsOnRight());
        const int width = sidebar()->width();
        side->setCurrentIndex(side->findData(true));
        QVERIFY(window().bouquetsOnRight() && sidebar()->geometry().left() > browser()->geometry().right());
        QCOMPARE(sidebar()->width(), width);
        side->setCurrentIndex(side->findData(false));
        QVERIFY(!window().bouquetsOnRight() && sidebar()->geometry().right() < entries()->geometry().left());

        // Each window exists once, however often it is asked for.
        for (const QString &name : {u"settings"_s, u"log"_s, u"log"_s, u"boxControl"_s})
            window().command(name)->trigger();
        QTest::keySequence(&window(), QKeySequence(u"Ctrl+Shift+B"_s));
        QVERIFY(window().findChildren<SettingsView *>().size() == 1 && window().findChildren<LogView *>().size() == 1
                && window().findChildren<BoxControlView *>().size() == 1);
        QVERIFY(window().findChild<LogView *>()->isVisible() && window().findChild<BoxControlView *>()->isVisible());

        // The recent folders name the open list; the backup menu looks up the box's backups when it opens.
        QMenu *recent = nullptr;
        for (QAction *action : window().menuBar()->actions().first()->menu()->actions())
            recent = action->text() == u"Zuletzt verwendet"_s ? action->menu() : recent;
        QVERIFY(recent && recent->actions().first()->text() == store().label(m_window->folder()));
        const QString backup = QDir(m_window->context().backups().backupFolder()).filePath(u"2024-03-01_08-05-09"_s);
        QVERIFY(QDir().mkpath(backup));
        auto *backups = window().findChild<QMenu *>(u"backupMenu"_s);
        emit backups->aboutToShow();
        QMenu *restore = backups->actions().first()->menu();
        QVERIFY(restore->title() == u"Sicherung wiederherstellen" && restore->actions().size() == 1);
        QCOMPARE(restore->actions().first()->text(), m_window->context().backups().backupLabel(backup));
    }

    void columnWidths()
    {
        // ceil(widest) + 20, at least 40, at most 400.
        const QList<std::pair<double, double>> cases{{0.0, 40.0},    {12.2, 40.0},   {20.01, 41.0},  {100.3, 121.0},
                                                     {100.0, 120.0}, {380.0, 400.0}, {1234.5, 400.0}};
        for (const auto &[widest, width] : cases)
            QCOMPARE(ColumnLayout::fittedWidth(widest), width);

        // Measured text by text, the plain way (the layout estimates): titles bold, names beside a picon.
        const QFontMetricsF cells(browser()->table()->font());
        QFont titleFont = header()->font();
        titleFont.setBold(true);
        const QFontMetricsF titles(titleFont);
        const double picon = browser()->table()->iconSize().width() + 6;
        for (MediaKind kind : MediaKind::allCases()) {
            store().setKind(kind);
            QList<double> widest;
            for (const QString &title : {u"Name"_s, u"Anbieter"_s, u"Position"_s, u"In Bouquets"_s})
                widest << titles.horizontalAdvance(title);
            for (const Service &service : expected({})) {
                const QStringList texts{service.name, service.provider, service.position,
                                        QString::number(store().usage().value(service.key))};
                for (int column = 0; column < 4; ++column) {
                    const double width = cells.horizontalAdvance(texts[column]) + (column ? 0 : picon);
                    widest[column] = std::max(widest[column], width);
                }
            }
            for (int column = 0; column < 4; ++column) {
                const double width = ColumnLayout::fittedWidth(widest[column]);
                QCOMPARE(store().fittedWidths().value(kind).value(ColumnLayout::identifiers().at(column)), width);
                QCOMPARE(header()->sectionSize(column), qRound(width));
            }
        }
        // A long list of names, most of them short: the estimate must still find the widest.
        QList<QString> texts;
        for (int i = 0; i < 2000; ++i)
            texts << u"Sender %1"_s.arg(i);
        texts << u"WWWWWWWWWWWW"_s << u"iiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiii"_s;
        double widest = 0;
        for (const QString &text : std::as_const(texts))
            widest = std::max(widest, cells.horizontalAdvance(text));
        QCOMPARE(ColumnLayout::widestText(texts, browser()->table()->font()), widest);

        // Dragging a column edge saves all four widths of the kind.
        const auto fitted = [this](MediaKind kind, const QString &column) {
            return qRound(store().fittedWidths().value(kind).value(column));
        };
        store().setKind(MediaKind::tv);
        header()->resizeSection(1, 222);
        QSettings settings(u"Corvandel"_s, u"Corvandel"_s);
        const QVariantMap saved = settings.value(u"columnWidths.tv"_s).toMap();
        QVERIFY(saved.value(u"provider"_s).toDouble() == 222.0 && !settings.contains(u"columnWidths.radio"_s));
        // Radio keeps its fitted widths; back on TV the saved ones return.
        store().setKind(MediaKind::radio);
        QCOMPARE(header()->sectionSize(1), fitted(MediaKind::radio, u"provider"_s));
        store().setKind(MediaKind::tv);
        QCOMPARE(header()->sectionSize(1), 222);
        // A new window reads them; an incomplete map is ignored.
        for (const bool complete : {true, false}) {
            QVariantMap map = saved;
            map.remove(complete ? QString() : u"usage"_s);
            settings.setValue(u"columnWidths.tv"_s, map);
            cleanup();
            openWindow();
            QCOMPARE(header()->sectionSize(1), complete ? 222 : fitted(MediaKind::tv, u"provider"_s));
        }
        // Reset drops the saved map and fits again.
        header()->resizeSection(0, 300);
        window().command(u"resetColumns"_s)->trigger();
        settings.sync();
        QVERIFY(!settings.contains(u"columnWidths.tv"_s));
        QCOMPARE(header()->sectionSize(0), fitted(MediaKind::tv, u"name"_s));
    }

    void boxOperations()
    {
        m_box = std::make_unique<FakeBox>();
        UiFixture::copyExamples(m_box->path(u"/etc/enigma2"_s));
        store().setSettings(m_box->settingsAs<BoxSettings>());
        QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
        // The space bar: a service entry, selected in the entry list; and services in the table.
        const QList<BouquetEntry> list = store().selectedBouquet().value_or(Bouquet()).entries;
        const auto entry = std::find_if(list.cbegin(), list.cend(), [this](const auto &e) { return store().service(e); });
        QVERIFY(entry != list.cend());
        QTableView *table = browser()->table();
        // Where the focus is, Shift, and whether the key zaps.
        const QList<std::tuple<QWidget *, bool, bool>> cases{
            {entries(), false, true}, {table, false, true}, {entries(), true, false}, {sidebar(), false, false},
            {browser()->searchField(), false, false}};
        for (const auto &[target, shift, zaps] : cases) {
            const qsizetype seen = m_box->journal().size();
            table->selectRow(2);
            store().setEntrySelection({entry->id});
            if (target == table)
                QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, at(table, 2));
            target->setFocus();
            QCOMPARE(QApplication::focusWidget(), target);
            QString zapped = target == table ? reference(filter()->serviceAt(2)) : entry->reference;
            QString name = target == table ? filter()->serviceAt(2).name : store().displayName(*entry);
            QTest::keyClick(target, Qt::Key_Space, shift ? Qt::ShiftModifier : Qt::NoModifier);
            if (!zaps) {
                // A zap of our own after the key: had the key zapped, its request would have come first.
                zapped = u"1:0:1:0:0:0:0:0:%1:0:"_s.arg(seen);
                name = u"Kontrolle %1"_s.arg(seen);
                (void)m_window->context().zapper().zap(zapped, name);
            }
            QTRY_COMPARE(store().status(), u"Box auf „%1“ umgeschaltet."_s.arg(name));
            QCOMPARE(m_box->journal().size(), seen + 1);
            QCOMPARE(m_box->journal().last().value(u"sRef"_s), zapped);
            // Swallowed: the entry list did not select with it; with Shift it passed on, as to a text field.
            QCOMPARE(store().entrySelection() == EntryIds{entry->id}, !shift);
        }
        QCOMPARE(browser()->searchField()->text(), u" "_s);

        // Downloading, then sending an edit back.
        const auto enabled = [this] {
            QStringList names;
            for (const QString &name : {u"openFolder"_s, u"save"_s, u"saveAs"_s, u"download"_s, u"upload"_s,
                                        u"testConnection"_s, u"backupNow"_s, u"repair"_s, u"downloadPicons"_s,
                                        u"uploadPicons"_s, u"zap"_s, u"newBouquet"_s})
                names << (window().command(name)->isEnabled() ? name : QString());
            return names.join(u' ').simplified();
        };
        for (const QString &command : {u"download"_s, u"upload"_s}) {
            QVERIFY(enabled().count(u' ') == 11 && window().busyIndicator()->isHidden());
            QTest::keySequence(&window(), QKeySequence(command == u"download" ? u"Ctrl+D"_s : u"Ctrl+U"_s));
            // While it runs, the window says so and offers no second operation; editing and zapping go on.
            QVERIFY(store().busy() && window().busyIndicator()->isVisible());
            QCOMPARE(enabled(), u"zap newBouquet"_s);
            const QList<QLabel *> labels = window().findChildren<QLabel *>();
            QVERIFY(std::any_of(labels.cbegin(), labels.cend(), [this](const QLabel *label) {
                return label->isVisible() && label->text() == store().busy();
            }));
            QVERIFY(QTest::qWaitFor([this] { return !store().busy(); }, 30000) && !store().errorMessage());
            if (command == u"download") {
                QVERIFY(store().status().startsWith(u"Von 127.0.0.1 geladen: "_s));
                QVERIFY(window().windowTitle().startsWith(u"Box-Kopie "_s));
                store().renameBouquet(store().currentBouquets().first().id, u"Umbenannt auf der Box"_s);
            }
        }
        QVERIFY(enabled().count(u' ') == 11 && window().busyIndicator()->isHidden());
        QVERIFY(!window().isWindowModified() && store().status().contains(u"Dateien gesendet"_s));
        const QString sent = m_box->path(u"/etc/enigma2/"_s + store().currentBouquets().first().fileName);
        QVERIFY(TestSupport::readFile(sent).startsWith("#NAME Umbenannt auf der Box"));

        // A package folder: the example picons and one of another service; one is on the box already.
        const QString target = u"/usr/share/enigma2/picon/"_s;
        const QString examples = TestSupport::examplesDir() + u"/picons/"_s;
        const QStringList picons = QDir(examples).entryList({u"*.png"_s}, QDir::Files);
        QTemporaryDir package;
        for (const QString &name : picons)
            QVERIFY(QFile::copy(examples + name, package.filePath(name)));
        QVERIFY(QFile::copy(examples + picons.first(), package.filePath(u"1_0_1_FFFF_FFFF_1_0_0_0_0.png"_s)));
        QVERIFY(TestSupport::writeFile(m_box->path(target + picons.first()), "old"));
        const auto summary = [&](qsizetype n) { return u"%1 Picons werden nach %2 hochgeladen."_s.arg(n).arg(target); };
        const auto plan = [this] { return m_window->context().picons().piconUploadPlan(); };

        PiconUploadSheet *sheet = nullptr;
        for (const bool upload : {false, true}) {
            window().command(u"uploadPicons"_s)->trigger();
            auto *picker = UiFixture::dialog<PiconPackageDialog>();
            QVERIFY(picker && picker->windowTitle().startsWith(u"Picon-Paket wählen: ZIP, tar.gz, tar.xz, ipk"_s));
            // A selected folder is taken as the package, not opened.
            picker->setDirectory(QFileInfo(package.path()).path());
            picker->selectFile(package.path());
            picker->accept();
            sheet = UiFixture::dialog<PiconUploadSheet>();
            QVERIFY2(sheet && sheet->matchingChoice()->isChecked() && !sheet->overwriteChoice()->isChecked(),
                     qPrintable(store().errorMessage().value_or(QString())));
            QCOMPARE(sheet->summary()->text(), summary(picons.size() - 1));
            if (upload)
                break;
            // The choices change the plan, and the count follows; cancelled, the plan is dropped.
            sheet->overwriteChoice()->click();
            QVERIFY(plan()->overwrite && sheet->summary()->text() == summary(picons.size()));
            sheet->allChoice()->click();
            QVERIFY(plan()->uploadAll && sheet->summary()->text() == summary(picons.size() + 1));
            sheet->reject();
            QTRY_VERIFY(!plan() && !QApplication::activeModalWidget());
            QCOMPARE(QDir(m_box->path(target)).entryList(QDir::Files), QStringList{picons.first()});
        }
        child<QAbstractButton>(sheet, u"Hochladen"_s)->click();
        QVERIFY(QTest::qWaitFor([this] { return !store().busy(); }, 30000) && !store().errorMessage());
        QCOMPARE(QDir(m_box->path(target)).entryList(QDir::Files), picons);
        QCOMPARE(QDir(package.path()).entryList(QDir::Files).size(), picons.size() + 1);
    }

    void settingsAndBoxControl()
    {
        // Service, SNR, dB, AGC, BER, and the error line, as the window shows them.
        const QString tuned = u"1:0:19:2B66:401:1:C00000:0:0:0:"_s;
        const QList<std::tuple<QString, QString, QString>> statuses{
            {tuned, u"127.0.0.1"_s, u"Example HD|75 %|12.50 dB|80 %|0|(hidden)"_s},
            {QString(), u"127.0.0.1"_s, u"N/A||dB|||(hidden)"_s},
            {tuned, u"  "_s,
             u"|||||Box nicht erreichbar: Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen."_s}};
        const QStringList names{u"serviceName"_s, u"snrValue"_s, u"snrDetail"_s,
                                u"agcValue"_s,    u"berValue"_s, u"statusError"_s};
        for (const auto &[serviceRef, host, shown] : statuses) {
            FakeBoxOptions options;
            options.serviceRef = serviceRef;
            FakeBox box(options);
            BoxSettings settings = box.settingsAs<BoxSettings>();
            settings.host = host;
            const auto view = openBoxControl(settings);
            QTRY_COMPARE_WITH_TIMEOUT(text(*view, names), shown, 10000);
        }

        // Polling stops while the window is hidden, here while a slow poll waits for the box.
        FakeBoxOptions slow;
        slow.stall = 0.1;
        FakeBox box(slow);
        QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
        const auto view = openBoxControl(box.settingsAs<BoxSettings>());
        QTRY_VERIFY_WITH_TIMEOUT(box.journal().size() >= 3, 10000);
        view->hide();
        // The poll under way ends, and no other follows it: a restarted one would have answered by
        // now. One poll at a time, even when the box is slower than the interval.
        QTRY_COMPARE_WITH_TIMEOUT(box.journal().size() % 2, 0, 5000);
        const qsizetype settled = box.journal().size();
        QTest::qWait(300);
        QStringList paths;
        for (const FakeBoxRequest &request : box.journal())
            paths << request.path.section(u'/', -1);
        QCOMPARE(paths, QStringList(settled / 2, u"subservices signal"_s).join(u' ').split(u' '));
        view->show();
        QTRY_VERIFY_WITH_TIMEOUT(box.journal().size() > settled, 10000);

        m_box = std::make_unique<FakeBox>();
        UiFixture::copyExamples(m_box->path(u"/etc/enigma2"_s));
        QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
        const auto power = openBoxControl(m_box->settingsAs<BoxSettings>());
        const auto sent = [this] {
            QString states;
            for (const FakeBoxRequest &request : m_box->journal())
                states += request.value(u"newstate"_s);
            return states;
        };
        // Standby runs at once, the restarts ask first; cancelled, only the standby after it is sent.
        const QList<std::tuple<QString, QString, bool, QString, QString>> actions{
            {u"Standby an/aus"_s, QString(), false, u"0"_s, u"Standby umgeschaltet."_s},
            {u"Enigma2 neu starten"_s, u"Enigma2 wirklich neu starten?"_s, true, u"3"_s,
             u"Enigma2 startet neu – das dauert etwa 30 Sekunden."_s},
            {u"Box neu starten"_s, u"Box wirklich neu starten?"_s, true, u"2"_s,
             u"Die Box startet neu – das dauert etwa eine Minute."_s},
            {u"Box neu starten"_s, u"Box wirklich neu starten?"_s, false, u"0"_s, u"Standby umgeschaltet."_s}};
        for (const auto &[action, question, confirm, newstate, message] : actions) {
            const QString before = sent();
            child<QAbstractButton>(power.get(), action)->click();
            if (!question.isEmpty()) {
                QMessageBox *box = nullptr;
                QTRY_VERIFY((box = power->findChild<QMessageBox *>()) && box->isVisible());
                QVERIFY(box->windowModality() == Qt::WindowModal && box->text() == question);
                QCOMPARE(box->informativeText(), u"Laufende Aufnahmen werden unterbrochen, nicht gespeicherte Timer "
                                                 u"und der EPG-Cache können verloren gehen."_s);
                child<QAbstractButton>(box, confirm ? action : u"Abbrechen"_s)->click();
                if (!confirm)
                    child<QAbstractButton>(power.get(), u"Standby an/aus"_s)->click();
            }
            QTRY_COMPARE_WITH_TIMEOUT(text(*power, {u"actionMessage"_s}), message, 10000);
            QCOMPARE(sent(), before + newstate);
        }

        // Shell commands: preset, typed command, password, and the output (the start, for the preset).
        const QList<std::tuple<QString, QString, QString, QString>> cases{
            {u"Laufzeit und Last"_s, u"echo bleibt"_s, u"secret"_s, u"$ uptime\n"_s},
            {QString(), u"true"_s, u"secret"_s, u"$ true\n(keine Ausgabe)"_s},
            {QString(), u"echo nie"_s, u"falsch"_s,
             u"$ echo nie\nFehler: "_s + TelnetError::loginFailed().description()}};
        for (const auto &[preset, typed, password, output] : cases) {
            BoxSettings settings = m_box->settingsAs<BoxSettings>();
            settings.password = password;
            settings.customCommand = u"uptime"_s;
            const auto view = openBoxControl(settings);
            auto *field = child<QLineEdit>(view.get(), u"command"_s);
            QCOMPARE(field->text(), u"uptime"_s);
            field->setText(typed);
            auto *run = child<QPushButton>(view.get(), u"run"_s);
            (preset.isEmpty() ? run : child<QAbstractButton>(view.get(), preset))->click();
            // Nothing else starts while a command runs.
            QVERIFY(!run->isEnabled() && !child<QAbstractButton>(view.get(), u"Arbeitsspeicher"_s)->isEnabled());
            QTRY_VERIFY_WITH_TIMEOUT(run->isEnabled(), 20000);
            const QString shown = text(*view, {u"output"_s});
            QVERIFY2(preset.isEmpty() ? shown == output : shown.startsWith(output) && shown.size() > output.size(),
                     qPrintable(shown));
            // A typed command is kept for next time, a preset is not; closing keeps what was typed.
            QCOMPARE(store().settings().customCommand, preset.isEmpty() ? typed : u"uptime"_s);
            QCOMPARE(BoxSettings::load().customCommand, preset.isEmpty() ? typed : QString());
            view->close();
            QCOMPARE(BoxSettings::load().customCommand, typed);
        }

        SettingsView settingsView(store(), m_window->context().boxSync());
        const QList<std::pair<QString, QString>> tests{
            {u"secret"_s, u"Verbindung OK: 10 Dateien in /etc/enigma2/, lamedb gefunden."_s},
            {u"wrong"_s, u"FTP-Fehler: "_s}};
        // The store starts out pointed at a port where nobody answers, with another login, and with
        // a failure of an earlier operation that nobody dismissed yet. Shown, the window starts from
        // what the store holds; a test uses the draft because it applies it first.
        BoxSettings start = m_box->settingsAs<BoxSettings>();
        start.ftpPort = 1;
        start.user = u"nobody"_s;
        start.password.clear();
        store().setSettings(start);
        store().setErrorMessage(u"Alter Fehler"_s);
        settingsView.show();
        QCOMPARE(child<QLineEdit>(&settingsView, u"user"_s)->text(), u"nobody"_s);
        child<QLineEdit>(&settingsView, u"host"_s)->setText(u" 127.0.0.1 "_s);
        child<QSpinBox>(&settingsView, u"ftpPort"_s)->setValue(m_box->connection().ftpPort);
        child<QLineEdit>(&settingsView, u"user"_s)->setText(u"root"_s);
        auto *test = child<QPushButton>(&settingsView, u"test"_s);
        for (const auto &[password, outcome] : tests) {
            child<QLineEdit>(&settingsView, u"password"_s)->setText(password);
            test->click();
            QVERIFY(!test->isEnabled() && text(settingsView, {u"outcome"_s}) == u"Teste Verbindung…");
            QTRY_VERIFY_WITH_TIMEOUT(text(settingsView, {u"outcome"_s}).startsWith(outcome), 20000);
            QVERIFY(test->isEnabled() && (text(settingsView, {u"outcome"_s}) == outcome) == (password == u"secret"));
            const BoxSettings applied = store().settings();
            QVERIFY(applied.host == u"127.0.0.1" && applied.ftpPort == m_box->connection().ftpPort
                    && applied.user == u"root" && applied.password == password);
        }
        // So does closing, which keeps the command the box control window changed meanwhile.
        child<QLineEdit>(&settingsView, u"piconDirectory"_s)->setText(u"/media/hdd/picon/"_s);
        BoxSettings changed = store().settings();
        changed.customCommand = u"df -h"_s;
        store().setSettings(changed);
        settingsView.close();
        const BoxSettings saved = BoxSettings::load();
        QVERIFY(saved.piconDirectory == u"/media/hdd/picon/" && saved.password == u"wrong"
                && saved.customCommand == u"df -h" && store().settings() == saved);
        settingsView.show();

        // The program's own choices are saved the moment they change: each picker's name is its key.
        const QPalette platform = QApplication::palette();
        QSettings settings(u"Corvandel"_s, u"Corvandel"_s);
        auto *hint = child<QLabel>(&settingsView, u"restartHint"_s);
        auto *restart = child<QPushButton>(&settingsView, u"restart"_s);
        QVERIFY(!hint->isVisible() && !restart->isVisible());
        const QList<std::tuple<QString, QString, QString, QVariant>> choices{
            {u"bouquetsRight"_s, u"Links"_s, u"Rechts"_s, true},
            {u"appearance"_s, u"Automatisch"_s, u"Dunkel"_s, u"dark"_s},
            {u"language"_s, u"Systemsprache"_s, u"English"_s, u"en"_s}};
        for (const auto &[name, initial, chosen, value] : choices) {
            auto *picker = child<QComboBox>(&settingsView, name);
            QCOMPARE(picker->currentText(), initial);
            picker->setCurrentIndex(picker->findText(chosen));
            QCOMPARE(settings.value(name), value);
        }
        QVERIFY(child<QCheckBox>(&settingsView, u"autoLoadLast"_s)->isChecked());
        child<QCheckBox>(&settingsView, u"autoLoadLast"_s)->setChecked(false);
        QCOMPARE(settings.value(u"autoLoadLast"_s), QVariant(false));
        // The appearance applies at once, and so does its way back.
        auto *appearance = child<QComboBox>(&settingsView, u"appearance"_s);
        QCOMPARE(QApplication::palette().color(QPalette::Window), Appearance::darkPalette().color(QPalette::Window));
        appearance->setCurrentIndex(appearance->findText(u"Automatisch"_s));
        QCOMPARE(settings.value(u"appearance"_s), QVariant(u"auto"_s));
        QCOMPARE(QApplication::palette().color(QPalette::Window), platform.color(QPalette::Window));
        // Another language needs a restart; back to the system's, the hint goes and nothing is saved.
        QVERIFY(hint->isVisible() && restart->isVisible());
        QCOMPARE(hint->text(), u"Die neue Sprache gilt nach einem Neustart der App."_s);
        auto *language = child<QComboBox>(&settingsView, u"language"_s);
        language->setCurrentIndex(language->findText(u"Systemsprache"_s));
        QVERIFY(!settings.contains(u"language"_s) && !hint->isVisible() && !restart->isVisible());
        QCOMPARE(child<QLabel>(&settingsView, u"fallbackNote"_s)->isVisible(), Keychain::usesFallbackFile());
    }
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
