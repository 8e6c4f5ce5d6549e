#include "BouquetListModel.h"
#include "BouquetSidebar.h"
#include "BoxControlView.h"
#include "EntryListModel.h"
#include "EntryListView.h"
#include "LogView.h"
#include "Picon.h"
#include "PiconPackageDialog.h"
#include "PiconUploadSheet.h"
#include "ServiceBrowser.h"
#include "ServiceFilterModel.h"
#include "SettingsView.h"
#include "TestSupport.h"
#include "UiFixture.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The main window driven like a user drives it: drag and drop between and within the lists,
// keys, menu commands, prompts and confirmations, busy and error states, and quitting.
class MainWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void modelsStayConsistent();
    void dropServicesAtPosition_data();
    void dropServicesAtPosition();
    void dropServicesOntoBouquet();
    void reorderEntriesByDragging();
    void reorderBouquetsByDragging();
    void deleteKeyAndUndoRedo();
    void deleteKeyInTextFieldEditsText();
    void entrySelectionFollowsStore();
    void renameEntryPrompt();
    void markerAndEmptyBouquet();
    void newBouquetIsRenamedInPlace();
    void deleteBouquetAfterConfirmation();
    void switchKind();
    void busyDisablesOperations();
    void errorMessageAlert();
    void titleShowsListAndChanges();
    void quitAsksFirst_data();
    void quitAsksFirst();
    void saveAs();
    void openFolderThroughDialog();
    void restoresLastListWhenShown();
    void secondaryWindows();
    void repairConfirmation();
    void commandsAndShortcuts();
    void piconUploadSheet();
    void piconPackageDialogTakesFolders();

private:
    Store &store() { return m_window->store(); }
    MainWindow &window() { return m_window->window(); }
    EntryListView *entries() { return window().entryList(); }
    BouquetSidebar *sidebar() { return window().sidebar(); }
    QStringList entryReferences();
    // Selects the first bouquet of the current kind with at least `count` entries.
    bool selectBouquetWith(int count);
    QAbstractButton *button(QMessageBox *box, const QString &text);

    std::unique_ptr<UiFixture::Window> m_window;
};

void MainWindowTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    QVERIFY2(QFileInfo::exists(TestSupport::examplesDir() + u"/lamedb"_s), "the example list is missing");
}

void MainWindowTest::init()
{
    QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
    m_window = std::make_unique<UiFixture::Window>();
    QVERIFY(!store().services().isEmpty());
    QVERIFY(QTest::qWaitForWindowExposed(&window()));
}

void MainWindowTest::cleanup()
{
    m_window.reset();
}

QStringList MainWindowTest::entryReferences()
{
    QStringList references;
    if (const std::optional<Bouquet> bouquet = store().selectedBouquet()) {
        for (const BouquetEntry &entry : bouquet->entries)
            references << entry.reference;
    }
    return references;
}

bool MainWindowTest::selectBouquetWith(int count)
{
    for (const Bouquet &bouquet : store().currentBouquets()) {
        if (bouquet.entries.size() >= count) {
            store().setSelectedBouquetID(bouquet.id);
            return true;
        }
    }
    return false;
}

QAbstractButton *MainWindowTest::button(QMessageBox *box, const QString &text)
{
    for (QAbstractButton *candidate : box->buttons()) {
        if (candidate->text() == text)
            return candidate;
    }
    return nullptr;
}

void MainWindowTest::modelsStayConsistent()
{
    QAbstractItemModelTester entriesTester(entries()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QAbstractItemModelTester bouquetsTester(sidebar()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(selectBouquetWith(3));
    std::unique_ptr<QMimeData> data = UiFixture::dragData(window().serviceBrowser()->table(), {0, 1});
    QVERIFY(UiFixture::drop(entries(), data.get(), UiFixture::topEdge(entries(), 1)));
    store().undo();
    store().redo();
    window().command(u"newBouquet"_s)->trigger();
    store().setKind(MediaKind::radio);
    store().setKind(MediaKind::tv);
    store().undo();
}

void MainWindowTest::dropServicesAtPosition_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("below");
    QTest::addColumn<int>("position");
    QTest::newRow("above the first") << 0 << false << 0;
    QTest::newRow("above the second") << 1 << false << 1;
    QTest::newRow("below the second") << 1 << true << 2;
    QTest::newRow("below the last") << -1 << true << -1;
    QTest::newRow("on empty space") << -2 << false << -1;
}

void MainWindowTest::dropServicesAtPosition()
{
    QFETCH(int, row);
    QFETCH(bool, below);
    QFETCH(int, position);
    QVERIFY(selectBouquetWith(3));
    const QStringList before = entryReferences();
    const int last = int(before.size()) - 1;
    QPoint point;
    if (row == -2) {
        // Below every entry: the list has room left under a short bouquet.
        entries()->resize(entries()->width(), (last + 8) * entries()->sizeHintForRow(0));
        point = QPoint(entries()->viewport()->width() / 2, entries()->viewport()->height() - 3);
    } else {
        const int target = row < 0 ? last : row;
        point = below ? UiFixture::bottomEdge(entries(), target) : UiFixture::topEdge(entries(), target);
    }

    QTableView *table = window().serviceBrowser()->table();
    ServiceFilterModel *services = window().serviceBrowser()->filterModel();
    std::unique_ptr<QMimeData> data = UiFixture::dragData(table, {0, 2});
    const QStringList dropped{reference(services->serviceAt(0)), reference(services->serviceAt(2))};
    const int steps = int(store().undoStack().size());
    QVERIFY(UiFixture::drop(entries(), data.get(), point));

    QStringList wanted = before;
    const int at = position < 0 ? int(before.size()) : position;
    for (int i = 0; i < dropped.size(); ++i)
        wanted.insert(at + i, dropped.at(i));
    QCOMPARE(entryReferences(), wanted);
    QCOMPARE(entries()->model()->rowCount(), wanted.size());
    QCOMPARE(entries()->model()->index(at, 0).data(EntryListModel::ReferenceRole).toString(), dropped.first());
    // One drop, one undo step.
    QCOMPARE(store().undoStack().size(), steps + 1);
    window().command(u"undo"_s)->trigger();
    QCOMPARE(entryReferences(), before);
}

void MainWindowTest::dropServicesOntoBouquet()
{
    const QList<Bouquet> bouquets = store().currentBouquets();
    QVERIFY(bouquets.size() >= 2);
    store().setSelectedBouquetID(bouquets.at(0).id);
    std::unique_ptr<QMimeData> data = UiFixture::dragData(window().serviceBrowser()->table(), {1});
    const QString dropped = data->text();

    // Onto the second bouquet: appended there; the shown bouquet stays.
    QVERIFY(UiFixture::drop(sidebar(), data.get(), UiFixture::middle(sidebar(), 1)));
    const QList<Bouquet> after = store().currentBouquets();
    QCOMPARE(after.at(1).entries.size(), bouquets.at(1).entries.size() + 1);
    QCOMPARE(after.at(1).entries.last().reference, dropped);
    QCOMPARE(after.at(0).entries, bouquets.at(0).entries);
    QCOMPARE(store().selectedBouquetID(), bouquets.at(0).id);

    // Entries dragged from one bouquet onto another are copied there.
    std::unique_ptr<QMimeData> rows = UiFixture::dragData(entries(), {0});
    QVERIFY(UiFixture::drop(sidebar(), rows.get(), UiFixture::middle(sidebar(), 1)));
    QCOMPARE(store().currentBouquets().at(1).entries.last().reference, bouquets.at(0).entries.first().reference);
    QCOMPARE(store().currentBouquets().at(0).entries, bouquets.at(0).entries);

    // Between two bouquets references have no place.
    QVERIFY(!UiFixture::drop(sidebar(), data.get(), UiFixture::topEdge(sidebar(), 1)));
}

void MainWindowTest::reorderEntriesByDragging()
{
    QVERIFY(selectBouquetWith(4));
    const QStringList before = entryReferences();
    entries()->selectionModel()->select(QItemSelection(entries()->model()->index(0, 0), entries()->model()->index(1, 0)),
                                        QItemSelectionModel::ClearAndSelect);
    std::unique_ptr<QMimeData> data = UiFixture::dragData(entries(), {0, 1});
    const int steps = int(store().undoStack().size());
    QVERIFY(UiFixture::drop(entries(), data.get(), UiFixture::bottomEdge(entries(), 2)));
    QStringList wanted = before;
    wanted.move(0, 2);
    wanted.move(0, 2);
    QCOMPARE(entryReferences(), wanted);
    QCOMPARE(store().undoStack().size(), steps + 1);
    // The moved entries stay selected.
    QCOMPARE(store().entrySelection().size(), 2);

    // Rows of another bouquet are no move here: they are inserted as copies.
    const QStringList moved = entryReferences();
    std::unique_ptr<QMimeData> copy = UiFixture::dragData(entries(), {0});
    copy->setData(EntryListModel::rowsMimeType, "{00000000-0000-0000-0000-000000000001}\n0");
    QVERIFY(UiFixture::drop(entries(), copy.get(), UiFixture::topEdge(entries(), 0)));
    QCOMPARE(entryReferences(), QStringList{moved.first()} + moved);
}

void MainWindowTest::reorderBouquetsByDragging()
{
    const QList<Bouquet> before = store().currentBouquets();
    QVERIFY(before.size() >= 3);
    std::unique_ptr<QMimeData> data = UiFixture::dragData(sidebar(), {0});
    QVERIFY(UiFixture::drop(sidebar(), data.get(), UiFixture::bottomEdge(sidebar(), 2)));
    const QList<Bouquet> after = store().currentBouquets();
    QCOMPARE(after.at(0).id, before.at(1).id);
    QCOMPARE(after.at(1).id, before.at(2).id);
    QCOMPARE(after.at(2).id, before.at(0).id);
    QCOMPARE(sidebar()->model()->index(2, 0).data().toString(), before.at(0).name);
    // The selection moved with its bouquet.
    QCOMPARE(sidebar()->currentIndex().data(BouquetListModel::IdRole).toUuid(), store().selectedBouquetID());
    QVERIFY(store().isDirty());
    window().command(u"undo"_s)->trigger();
    QCOMPARE(store().currentBouquets().first().id, before.first().id);
}

void MainWindowTest::deleteKeyAndUndoRedo()
{
    QAction *undo = window().command(u"undo"_s);
    QAction *redo = window().command(u"redo"_s);
    QVERIFY(!undo->isEnabled());
    QVERIFY(!redo->isEnabled());
    QVERIFY(selectBouquetWith(3));
    const QStringList before = entryReferences();

    entries()->setFocus();
    QTest::mouseClick(entries()->viewport(), Qt::LeftButton, {}, UiFixture::middle(entries(), 0));
    QTest::mouseClick(entries()->viewport(), Qt::LeftButton, Qt::ControlModifier, UiFixture::middle(entries(), 2));
    QCOMPARE(store().entrySelection().size(), 2);
    QVERIFY(store().entryListActive());
    QTest::keyClick(entries(), Qt::Key_Delete);
    QStringList wanted = before;
    wanted.removeAt(2);
    wanted.removeAt(0);
    QCOMPARE(entryReferences(), wanted);
    QVERIFY(store().entrySelection().isEmpty());
    QVERIFY(undo->isEnabled());
    QVERIFY(!redo->isEnabled());

    undo->trigger();
    QCOMPARE(entryReferences(), before);
    QVERIFY(redo->isEnabled());
    QTest::keySequence(&window(), QKeySequence::Redo);
    QCOMPARE(entryReferences(), wanted);
    QTest::keySequence(&window(), QKeySequence::Undo);
    QCOMPARE(entryReferences(), before);
    QVERIFY(store().isDirty());
}

void MainWindowTest::deleteKeyInTextFieldEditsText()
{
    QVERIFY(selectBouquetWith(1));
    const QStringList before = entryReferences();
    entries()->selectionModel()->select(entries()->model()->index(0, 0), QItemSelectionModel::ClearAndSelect);
    QLineEdit *search = window().serviceBrowser()->searchField();
    search->setFocus();
    search->setText(u"abc"_s);
    search->setCursorPosition(0);
    QTest::keyClick(search, Qt::Key_Delete);
    QCOMPARE(search->text(), u"bc"_s);
    QCOMPARE(entryReferences(), before);
}

void MainWindowTest::entrySelectionFollowsStore()
{
    QVERIFY(selectBouquetWith(3));
    const Bouquet bouquet = *store().selectedBouquet();
    store().setEntrySelection({bouquet.entries.at(1).id});
    QCOMPARE(entries()->selectionModel()->selectedRows().size(), 1);
    QCOMPARE(entries()->selectionModel()->selectedRows().first().row(), 1);
    // A click in the service table makes it the active list.
    QTableView *table = window().serviceBrowser()->table();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(table->model()->index(0, 0)).center());
    QVERIFY(!store().entryListActive());
    QCOMPARE(store().serviceSelection().size(), 1);
    QTest::mouseClick(entries()->viewport(), Qt::LeftButton, {}, UiFixture::middle(entries(), 2));
    QVERIFY(store().entryListActive());
    QCOMPARE(store().entrySelection(), EntryIds{bouquet.entries.at(2).id});
}

void MainWindowTest::renameEntryPrompt()
{
    // A service entry without a name of its own.
    QVERIFY(selectBouquetWith(1));
    int row = -1;
    const Bouquet bouquet = *store().selectedBouquet();
    for (int i = 0; i < bouquet.entries.size(); ++i) {
        if (!bouquet.entries.at(i).description && store().service(bouquet.entries.at(i)))
            row = i;
    }
    QVERIFY(row >= 0);
    const BouquetEntry entry = bouquet.entries.at(row);
    const QString databaseName = store().displayName(entry);
    entries()->setFocus();
    entries()->selectionModel()->select(entries()->model()->index(row, 0), QItemSelectionModel::ClearAndSelect);

    QTest::keyClick(entries(), Qt::Key_F2);
    auto *prompt = UiFixture::dialog<QInputDialog>();
    QVERIFY(prompt);
    QCOMPARE(prompt->labelText(), u"Name (leer = Name aus der lamedb)"_s);
    QCOMPARE(prompt->textValue(), QString());
    prompt->setTextValue(u" Mein Sender "_s);
    prompt->accept();
    QTRY_COMPARE(entries()->model()->index(row, 0).data().toString(), u"Mein Sender"_s);

    // Empty brings back the database name.
    window().command(u"rename"_s)->trigger();
    prompt = UiFixture::dialog<QInputDialog>();
    QVERIFY(prompt);
    QCOMPARE(prompt->textValue(), u"Mein Sender"_s);
    prompt->setTextValue(QString());
    prompt->accept();
    QTRY_COMPARE(entries()->model()->index(row, 0).data().toString(), databaseName);
}

void MainWindowTest::markerAndEmptyBouquet()
{
    QVERIFY(selectBouquetWith(1));
    const int count = int(store().selectedBouquet()->entries.size());
    window().command(u"addMarker"_s)->trigger();
    auto *prompt = UiFixture::dialog<QInputDialog>();
    QVERIFY(prompt);
    prompt->setTextValue(u"Nachrichten"_s);
    prompt->accept();
    QTRY_COMPARE(entries()->model()->rowCount(), count + 1);
    const QModelIndex marker = entries()->model()->index(count, 0);
    QVERIFY(marker.data(EntryListModel::MarkerRole).toBool());
    QCOMPARE(marker.data().toString(), u"Nachrichten"_s);

    // An empty bouquet shows how to fill it.
    store().createBouquet(u"Leer"_s);
    QCOMPARE(entries()->model()->rowCount(), 0);
    entries()->resize(400, 300);
    const QImage empty = entries()->grab().toImage();
    store().add({window().serviceBrowser()->filterModel()->serviceAt(0)});
    const QImage filled = entries()->grab().toImage();
    store().undo();
    // The hint is drawn in the middle, where a one-entry list is blank.
    const QRect centre = QRect(QPoint(0, 0), empty.size()).adjusted(40, 130, -40, -130);
    const auto inked = [&](const QImage &image) {
        const QRgb background = image.pixel(2, image.height() - 3);
        for (int y = centre.top(); y < centre.bottom(); ++y) {
            for (int x = centre.left(); x < centre.right(); ++x) {
                if (image.pixel(x, y) != background)
                    return true;
            }
        }
        return false;
    };
    QVERIFY(inked(empty));
    QVERIFY(!inked(filled));
}

void MainWindowTest::newBouquetIsRenamedInPlace()
{
    const int count = int(store().currentBouquets().size());
    window().command(u"newBouquet"_s)->trigger();
    QCOMPARE(store().currentBouquets().size(), count + 1);
    QCOMPARE(store().currentBouquets().last().name, u"Neues Bouquet"_s);
    QVERIFY(store().newBouquetRequest().isNull());
    // The name is being edited in place.
    auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), sidebar()->viewport());
    QCOMPARE(editor->text(), u"Neues Bouquet"_s);
    editor->selectAll();
    QTest::keyClicks(editor, u"Kinder"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(store().currentBouquets().last().name, u"Kinder"_s);
    QCOMPARE(store().selectedBouquet()->name, u"Kinder"_s);
}

void MainWindowTest::deleteBouquetAfterConfirmation()
{
    const QList<Bouquet> before = store().currentBouquets();
    QVERIFY(before.size() >= 2);
    store().setSelectedBouquetID(before.at(1).id);
    sidebar()->setFocus();
    for (const bool confirm : {false, true}) {
        QTest::keyClick(sidebar(), Qt::Key_Delete);
        auto *box = UiFixture::dialog<QMessageBox>();
        QVERIFY(box);
        QCOMPARE(box->text(), u"Bouquet „%1“ löschen?"_s.arg(before.at(1).name));
        button(box, confirm ? u"Löschen"_s : u"Abbrechen"_s)->click();
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QCOMPARE(store().currentBouquets().size(), before.size() - (confirm ? 1 : 0));
    }
    QCOMPARE(sidebar()->model()->rowCount(), before.size() - 1);
    QCOMPARE(store().selectedBouquetID(), before.first().id);
}

void MainWindowTest::switchKind()
{
    const auto kinds = [this](MediaKind kind) {
        for (int row = 0; row < window().serviceBrowser()->filterModel()->rowCount(); ++row) {
            if (window().serviceBrowser()->filterModel()->serviceAt(row).kind() != kind)
                return false;
        }
        return true;
    };
    QVERIFY(kinds(MediaKind::tv));
    window().command(u"radio"_s)->trigger();
    QCOMPARE(store().kind(), MediaKind::radio);
    QCOMPARE(sidebar()->model()->rowCount(), store().bouquets().value(MediaKind::radio).size());
    QVERIFY(window().serviceBrowser()->filterModel()->rowCount() > 0);
    QVERIFY(kinds(MediaKind::radio));
    // The first radio bouquet is shown.
    QCOMPARE(store().selectedBouquetID(), store().bouquets().value(MediaKind::radio).first().id);
    QCOMPARE(entries()->model()->rowCount(), store().bouquets().value(MediaKind::radio).first().entries.size());
    QTest::keySequence(&window(), QKeySequence(u"Ctrl+1"_s));
    QCOMPARE(store().kind(), MediaKind::tv);
    QVERIFY(window().command(u"tv"_s)->isChecked());
    QVERIFY(kinds(MediaKind::tv));
    QCOMPARE(store().selectedBouquetID(), store().currentBouquets().first().id);
}

void MainWindowTest::busyDisablesOperations()
{
    const QStringList operations{u"openFolder"_s, u"save"_s, u"saveAs"_s, u"download"_s, u"upload"_s,
                                 u"testConnection"_s, u"backupNow"_s, u"repair"_s, u"downloadPicons"_s,
                                 u"uploadPicons"_s};
    for (const QString &name : operations)
        QVERIFY2(window().command(name)->isEnabled(), qPrintable(name));
    QVERIFY(window().busyIndicator()->isHidden());

    store().setBusy(u"Lade von der Box…"_s);
    for (const QString &name : operations)
        QVERIFY2(!window().command(name)->isEnabled(), qPrintable(name));
    QVERIFY(window().busyIndicator()->isVisible());
    // Editing and zapping go on.
    QVERIFY(window().command(u"zap"_s)->isEnabled());
    QVERIFY(window().command(u"newBouquet"_s)->isEnabled());
    QVERIFY(window().findChildren<QLabel *>().count() > 0);
    bool labelShown = false;
    for (QLabel *label : window().findChildren<QLabel *>())
        labelShown |= label->isVisible() && label->text() == u"Lade von der Box…"_s;
    QVERIFY(labelShown);

    store().setBusy(std::nullopt);
    for (const QString &name : operations)
        QVERIFY2(window().command(name)->isEnabled(), qPrintable(name));
    QVERIFY(window().busyIndicator()->isHidden());
}

void MainWindowTest::errorMessageAlert()
{
    store().setErrorMessage(u"Die Box antwortet nicht."_s);
    auto *box = UiFixture::dialog<QMessageBox>();
    QVERIFY(box);
    QCOMPARE(box->text(), u"Die Box antwortet nicht."_s);
    QCOMPARE(box->windowModality(), Qt::WindowModal);
    QCOMPARE(box->parentWidget(), &window());
    // A second error while the first is shown replaces its text.
    store().setErrorMessage(u"Noch ein Fehler."_s);
    QCOMPARE(box->text(), u"Noch ein Fehler."_s);
    box->accept();
    QTRY_VERIFY(!store().errorMessage());
    QTRY_VERIFY(!QApplication::activeModalWidget());
    // The same text again is shown again.
    store().setErrorMessage(u"Noch ein Fehler."_s);
    QVERIFY(UiFixture::dialog<QMessageBox>());
}

void MainWindowTest::titleShowsListAndChanges()
{
    QVERIFY(window().windowTitle().startsWith(store().label(m_window->folder())));
    QVERIFY(!window().isWindowModified());
    store().createBouquet(u"X"_s);
    QVERIFY(window().isWindowModified());
    QCOMPARE(window().statusText()->text(), store().status());
    QVERIFY(store().status().contains(u"Sender (lamedb"_s));
}

void MainWindowTest::quitAsksFirst_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("saved");
    QTest::newRow("cancel") << u"Abbrechen"_s << false << false;
    QTest::newRow("discard") << u"Verwerfen"_s << true << false;
    QTest::newRow("save") << u"Speichern"_s << true << true;
}

void MainWindowTest::quitAsksFirst()
{
    QFETCH(QString, answer);
    QFETCH(bool, closed);
    QFETCH(bool, saved);
    // Unchanged, the window closes without a question.
    {
        UiFixture::Window other;
        QVERIFY(other.window().close());
    }
    store().createBouquet(u"Ungesichert"_s);
    const QString index = m_window->folder() + u"/bouquets.tv"_s;
    const QByteArray before = TestSupport::readFile(index);
    QVERIFY(!window().close());
    auto *box = UiFixture::dialog<QMessageBox>();
    QVERIFY(box);
    QCOMPARE(box->objectName(), u"closeQuestion"_s);
    button(box, answer)->click();
    QTRY_COMPARE(window().isVisible(), !closed);
    QCOMPARE(TestSupport::readFile(index) != before, saved);
    QCOMPARE(store().isDirty(), !saved);
    // The new bouquet's file is named after it in lower case.
    if (saved)
        QVERIFY(TestSupport::readFile(index).contains("ungesichert"));
}

void MainWindowTest::saveAs()
{
    QTemporaryDir target;
    store().createBouquet(u"Woanders"_s);
    window().command(u"saveAs"_s)->trigger();
    auto *dialog = UiFixture::dialog<QFileDialog>();
    QVERIFY(dialog);
    QCOMPARE(dialog->labelText(QFileDialog::Accept), u"Hier speichern"_s);
    QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
    const QString folder = target.path() + u"/neu"_s;
    emit dialog->fileSelected(folder);
    dialog->reject();
    QVERIFY(QFileInfo::exists(folder + u"/lamedb"_s));
    QVERIFY(TestSupport::readFile(folder + u"/bouquets.tv"_s).contains("woanders"));
    QCOMPARE(store().status(), u"Gespeichert in %1."_s.arg(folder));
    // The working folder and the changes mark stay.
    QCOMPARE(store().folder(), QDir(m_window->folder()).canonicalPath());
    QVERIFY(store().isDirty());

    // A folder that cannot be made is reported, nothing else happens.
    QFile blocker(target.path() + u"/datei"_s);
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    window().command(u"saveAs"_s)->trigger();
    dialog = UiFixture::dialog<QFileDialog>();
    QVERIFY(dialog);
    emit dialog->fileSelected(blocker.fileName() + u"/unter"_s);
    dialog->reject();
    QVERIFY(store().errorMessage());
    QVERIFY(UiFixture::dialog<QMessageBox>());
}

void MainWindowTest::openFolderThroughDialog()
{
    QTemporaryDir other;
    UiFixture::copyExamples(other.path());
    QFile::remove(other.filePath(u"bouquets.radio"_s));
    // With changes, the user is asked first; cancelled, nothing is opened.
    store().createBouquet(u"Ungesichert"_s);
    for (const bool discard : {false, true}) {
        window().command(u"openFolder"_s)->trigger();
        auto *dialog = UiFixture::dialog<QFileDialog>();
        QVERIFY(dialog);
        QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
        emit dialog->fileSelected(other.path());
        dialog->reject();
        auto *question = UiFixture::dialog<QMessageBox>();
        QVERIFY(question);
        QCOMPARE(question->text(), u"Änderungen verwerfen?"_s);
        button(question, discard ? u"Verwerfen"_s : u"Abbrechen"_s)->click();
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QCOMPARE(store().folder() == QDir(other.path()).canonicalPath(), discard);
    }
    QVERIFY(!store().isDirty());
    QVERIFY(store().bouquets().value(MediaKind::radio).isEmpty());
    QVERIFY(window().windowTitle().startsWith(store().label(other.path())));
    QCOMPARE(sidebar()->model()->rowCount(), store().currentBouquets().size());
}

void MainWindowTest::restoresLastListWhenShown()
{
    m_window.reset();
    QTemporaryDir last;
    UiFixture::copyExamples(last.path());
    QSettings settings(u"Corvandel"_s, u"Corvandel"_s);
    for (const bool autoLoad : {false, true}) {
        settings.setValue(u"recentFolders"_s, QStringList{last.path()});
        settings.setValue(u"autoLoadLast"_s, autoLoad);
        AppContext context;
        MainWindow shown(context);
        QVERIFY(context.store().services().isEmpty());
        shown.show();
        QVERIFY(QTest::qWaitForWindowExposed(&shown));
        if (!autoLoad) {
            QTest::qWait(100);
            QVERIFY(context.store().services().isEmpty());
            QCOMPARE(shown.windowTitle(), u"Corvandel[*]"_s);
            continue;
        }
        QTRY_VERIFY(!context.store().services().isEmpty());
        QVERIFY(context.store().status().startsWith(u"Zuletzt verwendete Liste geladen (%1). "_s.arg(
            context.store().label(last.path()))));
        QCOMPARE(shown.sidebar()->model()->rowCount(), context.store().currentBouquets().size());
    }
}

void MainWindowTest::secondaryWindows()
{
    // The settings window's choice of side moves the sidebar at once, keeping its width.
    window().command(u"settings"_s)->trigger();
    auto *settings = window().findChild<SettingsView *>();
    QVERIFY(settings && settings->isVisible());
    QVERIFY(!window().bouquetsOnRight());
    const int width = sidebar()->width();
    auto *side = settings->findChild<QComboBox *>(u"bouquetsRight"_s);
    QVERIFY(side);
    side->setCurrentIndex(side->findData(true));
    QVERIFY(window().bouquetsOnRight());
    QVERIFY(sidebar()->geometry().left() > window().serviceBrowser()->geometry().right());
    QCOMPARE(sidebar()->width(), width);
    side->setCurrentIndex(side->findData(false));
    QVERIFY(!window().bouquetsOnRight());
    QVERIFY(sidebar()->geometry().right() < entries()->geometry().left());

    // Each window exists once, however often it is asked for.
    for (const QString &name : {u"settings"_s, u"log"_s, u"log"_s, u"boxControl"_s, u"boxControl"_s})
        window().command(name)->trigger();
    QCOMPARE(window().findChildren<SettingsView *>().size(), 1);
    QCOMPARE(window().findChildren<LogView *>().size(), 1);
    QCOMPARE(window().findChildren<BoxControlView *>().size(), 1);
    QVERIFY(window().findChild<LogView *>()->isVisible());
    QVERIFY(window().findChild<BoxControlView *>()->isVisible());
}

void MainWindowTest::repairConfirmation()
{
    // A damaged name in the open list's database.
    const QString lamedb = m_window->folder() + u"/lamedb"_s;
    QByteArray text = TestSupport::readFile(lamedb);
    const qsizetype services = text.indexOf("\nservices\n");
    QVERIFY(services > 0);
    const qsizetype name = text.indexOf('\n', text.indexOf('\n', services + 10) + 1);
    text.insert(name + 1, "Ã–sterreich ");
    QVERIFY(TestSupport::writeFile(lamedb, text));

    window().command(u"repair"_s)->trigger();
    QVERIFY(store().lamedbRepairCount());
    auto *box = UiFixture::dialog<QMessageBox>();
    QVERIFY(box);
    QCOMPARE(box->text(), u"Falsch kodierte Zeichen reparieren?"_s);
    QVERIFY(box->informativeText().startsWith(
        u"%1 Zeilen in lamedb/lamedb5 enthalten Zeichen wie „19.2Â°E“."_s.arg(*store().lamedbRepairCount())));
    QVERIFY(box->informativeText().endsWith(u"die Box lädt die Senderliste danach neu."_s));
    // Cancelled: no operation starts, the question is answered.
    button(box, u"Abbrechen"_s)->click();
    QTRY_VERIFY(!store().lamedbRepairCount());
    QVERIFY(!store().busy());
}

void MainWindowTest::commandsAndShortcuts()
{
    const QList<std::pair<QString, QString>> shortcuts{
        {u"openFolder"_s, u"Ctrl+O"_s}, {u"save"_s, u"Ctrl+S"_s},     {u"download"_s, u"Ctrl+D"_s},
        {u"upload"_s, u"Ctrl+U"_s},     {u"undo"_s, u"Ctrl+Z"_s},     {u"boxControl"_s, u"Ctrl+Shift+B"_s},
        {u"tv"_s, u"Ctrl+1"_s},         {u"radio"_s, u"Ctrl+2"_s},
    };
    for (const auto &[name, keys] : shortcuts)
        QCOMPARE(window().command(name)->shortcut(), QKeySequence(keys));
    QCOMPARE(window().command(u"boxControl"_s)->toolTip(),
             u"Box-Steuerung: Signal, Neustart, eigene Befehle (%1)"_s.arg(
                 QKeySequence(u"Ctrl+Shift+B"_s).toString(QKeySequence::NativeText)));
    QCOMPARE(window().command(u"showBackups"_s)->text(), u"Sicherungen im Dateimanager zeigen"_s);
    QCOMPARE(window().command(u"download"_s)->text(), u"Senderliste von der Box laden"_s);
    QCOMPARE(window().command(u"upload"_s)->text(), u"Bouquets an die Box senden"_s);

    // The recent folders menu names the open list.
    QMenu *file = window().menuBar()->actions().first()->menu();
    QMenu *recent = nullptr;
    for (QAction *action : file->actions()) {
        if (action->menu() && action->text() == u"Zuletzt verwendet"_s)
            recent = action->menu();
    }
    QVERIFY(recent);
    QCOMPARE(recent->actions().first()->text(), store().label(m_window->folder()));

    // The backup menu lists the backups of the box, fetched when it opens.
    const QString backup = QDir(m_window->context().backups().backupFolder()).filePath(u"2024-03-01_08-05-09"_s);
    QVERIFY(QDir().mkpath(backup));
    QMenu *backups = window().findChild<QMenu *>(u"backupMenu"_s);
    QVERIFY(backups);
    emit backups->aboutToShow();
    QMenu *restore = backups->actions().first()->menu();
    QCOMPARE(restore->title(), u"Sicherung wiederherstellen"_s);
    QCOMPARE(restore->actions().size(), 1);
    QCOMPARE(restore->actions().first()->text(), m_window->context().backups().backupLabel(backup));
}

void MainWindowTest::piconUploadSheet()
{
    // A package folder with two picons of the list and one of another service.
    QTemporaryDir package;
    const QList<Service> services = store().services();
    QVERIFY(services.size() >= 2);
    QImage image(20, 12, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QStringList names;
    for (int i = 0; i < 2; ++i)
        names << Picon::fileNames(reference(services.at(i))).first();
    names << u"1_0_1_FFFF_FFFF_1_0_0_0_0.png"_s;
    for (const QString &name : std::as_const(names))
        QVERIFY(image.save(package.filePath(name)));
    PiconPackage opened = PiconPackage::open(package.path(), package.path());
    PiconUploadPlan plan = PiconUploadPlan::build(opened, u"/picon/"_s, {names.first()}, services);
    m_window->context().picons().setPiconUploadPlan(plan);

    auto *sheet = UiFixture::dialog<PiconUploadSheet>();
    QVERIFY(sheet);
    QVERIFY(sheet->matchingChoice()->isChecked());
    QVERIFY(!sheet->overwriteChoice()->isChecked());
    // Two picons fit the list, one of them is on the box already.
    QCOMPARE(sheet->summary()->text(), u"1 Picons werden nach /picon/ hochgeladen."_s);
    sheet->overwriteChoice()->click();
    QVERIFY(m_window->context().picons().piconUploadPlan()->overwrite);
    QCOMPARE(sheet->summary()->text(), u"2 Picons werden nach /picon/ hochgeladen."_s);
    sheet->allChoice()->click();
    QVERIFY(m_window->context().picons().piconUploadPlan()->uploadAll);
    QCOMPARE(sheet->summary()->text(), u"3 Picons werden nach /picon/ hochgeladen."_s);
    QCOMPARE(sheet->uploadButton()->text(), u"Hochladen"_s);

    // Cancelled, the plan is gone and the package folder the user picked stays.
    sheet->reject();
    QTRY_VERIFY(!m_window->context().picons().piconUploadPlan());
    QVERIFY(QFileInfo::exists(package.filePath(names.first())));
    QTRY_VERIFY(!QApplication::activeModalWidget());
}

void MainWindowTest::piconPackageDialogTakesFolders()
{
    QTemporaryDir folder;
    PiconPackageDialog dialog;
    QSignalSpy chosen(&dialog, &PiconPackageDialog::packageChosen);
    QCOMPARE(dialog.windowTitle(),
             u"Picon-Paket wählen: ZIP, tar.gz, tar.xz, ipk – oder einen bereits entpackten Ordner"_s);
    dialog.setDirectory(QFileInfo(folder.path()).path());
    dialog.selectFile(folder.path());
    dialog.accept();
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.first().first().toString(), QFileInfo(folder.path()).absoluteFilePath());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
