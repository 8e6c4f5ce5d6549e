// Renders the main window with the example list and picons, in the light and the dark palette, its
// sheets and confirmations and the secondary windows, to PNG files, so that the interface can be
// looked at without a display.
// Usage: corvandel_screenshots [OUTPUT_FOLDER [LANGUAGE]] (default: build/screenshots, German).

#include "Appearance.h"
#include "BouquetSidebar.h"
#include "BoxControlView.h"
#include "EntryListView.h"
#include "LogView.h"
#include "PiconUploadSheet.h"
#include "ServiceBrowser.h"
#include "ServiceFilterModel.h"
#include "SettingsView.h"
#include "TestSupport.h"
#include "Translations.h"
#include "UiFixture.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTableView>
#include <QTextStream>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString output;

// The program's own texts, in the language the screenshots are made in.
QString translated(const char *context, const char *text)
{
    return QCoreApplication::translate(context, text);
}

void save(QWidget *widget, const QString &name)
{
    QApplication::processEvents();
    const QString path = output + u'/' + name + u".png"_s;
    if (!widget->grab().save(path))
        QTextStream(stderr) << "cannot write " << path << '\n';
    else
        QTextStream(stdout) << path << '\n';
}

// The picons drawn for the example list, in the picon cache of the example's box.
void installPicons(AppContext &context)
{
    const QString cache = context.picons().piconFolder();
    QDir().mkpath(cache);
    QDirIterator it(TestSupport::examplesDir() + u"/picons"_s, {u"*.png"_s}, QDir::Files);
    while (it.hasNext()) {
        it.next();
        QFile::copy(it.filePath(), cache + u'/' + it.fileName());
    }
    context.picons().reloadPiconIndex();
}

// The bouquet with the most picons among its entries, shown with a few of them selected.
void showRichBouquet(UiFixture::Window &fixture)
{
    Store &store = fixture.store();
    QUuid best;
    int bestScore = -1;
    for (const Bouquet &bouquet : store.currentBouquets()) {
        int score = 0;
        for (const BouquetEntry &entry : bouquet.entries)
            score += entry.isMarker() ? 3 : (fixture.context().picons().picon(entry.reference) ? 2 : 0);
        if (score > bestScore) {
            best = bouquet.id;
            bestScore = score;
        }
    }
    store.setSelectedBouquetID(best);
    const Bouquet bouquet = *store.selectedBouquet();
    for (const BouquetEntry &entry : bouquet.entries) {
        if (!entry.isMarker() && store.service(entry)) {
            store.setEntrySelection({entry.id});
            break;
        }
    }
}

template<typename Dialog>
void saveDialog(const QString &name)
{
    if (Dialog *dialog = UiFixture::dialog<Dialog>()) {
        save(dialog, name);
        dialog->reject();
        QApplication::processEvents();
    }
}

void render(const QString &appearance)
{
    Appearance::apply(appearance);
    UiFixture::Window fixture;
    MainWindow &window = fixture.window();
    installPicons(fixture.context());
    window.resize(1360, 820);
    // Commands follow the keyboard focus, which only an active window has.
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        QTextStream(stderr) << "the window did not become active\n";
    showRichBouquet(fixture);
    window.entryList()->setFocus();
    save(&window, u"main-"_s + appearance);

    // The service browser filtered, with the only-unused and position filters.
    ServiceBrowser *browser = window.serviceBrowser();
    browser->searchField()->setText(u"hd"_s);
    browser->table()->selectRow(1);
    save(&window, u"search-"_s + appearance);
    browser->searchField()->clear();

    // The secondary windows.
    const auto saveAndClose = [&](QWidget *view, const QString &name) {
        save(view, name + appearance);
        view->close();
    };
    window.showSettings();
    saveAndClose(window.findChild<SettingsView *>(), u"settings-"_s);
    window.showBoxControl();
    saveAndClose(window.findChild<BoxControlView *>(), u"boxcontrol-"_s);
    window.showLog();
    saveAndClose(window.findChild<LogView *>(), u"log-"_s);

    if (appearance != u"light")
        return;
    // The radio list with the sidebar on the right.
    QSettings(u"Corvandel"_s, u"Corvandel"_s).setValue(u"bouquetsRight"_s, true);
    window.applyPreferences();
    window.command(u"radio"_s)->trigger();
    save(&window, u"radio-sidebar-right"_s);
    QSettings(u"Corvandel"_s, u"Corvandel"_s).remove(u"bouquetsRight"_s);
    window.applyPreferences();
    window.command(u"tv"_s)->trigger();

    // An empty bouquet shows how to fill it.
    fixture.store().createBouquet(translated("MainWindow", "Neues Bouquet"));
    save(&window, u"empty-bouquet"_s);
    fixture.store().undo();
    showRichBouquet(fixture);

    // Prompts and confirmations.
    const Service service = browser->filterModel()->serviceAt(0);
    fixture.store().setServiceRenameRequest(service);
    saveDialog<QInputDialog>(u"rename-service"_s);
    fixture.store().setServiceDeleteRequest(ServiceKeys{service.key});
    saveDialog<QMessageBox>(u"delete-service"_s);
    window.entryList()->setFocus();
    window.command(u"rename"_s)->trigger();
    saveDialog<QInputDialog>(u"rename-entry"_s);
    window.sidebar()->setFocus();
    window.command(u"delete"_s)->trigger();
    saveDialog<QMessageBox>(u"delete-bouquet"_s);
    fixture.store().setLamedbRepairCount(3);
    saveDialog<QMessageBox>(u"repair"_s);
    fixture.store().setErrorMessage(
        translated("BoxSync", "Sicherung fehlgeschlagen, es wurde nichts gesendet: %1")
            .arg(translated("WebIf", "Zeitüberschreitung bei der Anforderung.")));
    saveDialog<QMessageBox>(u"error"_s);
    fixture.store().setErrorMessage(std::nullopt);

    // The picon upload sheet for the example picons as a package.
    const QString package = TestSupport::examplesDir() + u"/picons"_s;
    const PiconPackage opened = PiconPackage::open(package, package);
    QStringList onBox;
    for (qsizetype i = 0; i < opened.files.size(); i += 3)
        onBox << opened.files.at(i).name;
    fixture.context().picons().setPiconUploadPlan(
        PiconUploadPlan::build(opened, u"/usr/share/enigma2/picon/"_s, onBox, fixture.store().services()));
    saveDialog<PiconUploadSheet>(u"picon-upload"_s);

    // Busy, and the question when quitting with changes.
    fixture.store().setBusy(translated("BoxSync", "Lade von der Box…"));
    fixture.store().setStatus(translated("BoxSync", "Lade %1 (%2/%3)…").arg(u"lamedb"_s).arg(1).arg(7));
    save(&window, u"busy"_s);
    fixture.store().setBusy(std::nullopt);
    fixture.store().createBouquet(u"Ungesichert"_s);
    window.close();
    saveDialog<QMessageBox>(u"quit-question"_s);
}

} // namespace

int main(int argc, char *argv[])
{
    TestSupport::isolateUserFolders();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QString language = argc > 2 ? QString::fromLocal8Bit(argv[2]) : u"de"_s;
    // As the settings window would choose it, and installed as at the program's start.
    Translations::setPreference(language);
    Translations::install();
    QLocale::setDefault(QLocale(language));
    output = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(CORVANDEL_BINARY_DIR) + u"/screenshots"_s;
    QDir().mkpath(output);
    render(u"light"_s);
    render(u"dark"_s);
    return 0;
}
