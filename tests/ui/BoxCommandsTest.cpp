#include "BouquetSidebar.h"
#include "FakeBox.h"
#include "PiconPackageDialog.h"
#include "PiconUploadSheet.h"
#include "TestSupport.h"
#include "UiFixture.h"

#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The window's box commands end to end against the receiver test double, with the real curl:
// the menu command, the busy state while it runs, and what ends up on the box and in the window.
class BoxCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void downloadEditUpload();
    void downloadAsksBeforeDroppingChanges();
    void piconPackageThroughTheSheet();

private:
    Store &store() { return m_window->store(); }
    MainWindow &window() { return m_window->window(); }
    // Triggers the command and waits until its operation has ended; false if it never started.
    bool run(const QString &command);

    std::unique_ptr<FakeBox> m_box;
    std::unique_ptr<UiFixture::Window> m_window;
};

void BoxCommandsTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    QVERIFY2(QFileInfo::exists(TestSupport::examplesDir() + u"/lamedb"_s), "the example list is missing");
}

void BoxCommandsTest::init()
{
    QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
    m_box = std::make_unique<FakeBox>();
    QVERIFY2(m_box->isRunning(), qPrintable(m_box->errorString()));
    UiFixture::copyExamples(m_box->path(u"/etc/enigma2"_s));
    m_window = std::make_unique<UiFixture::Window>();
    UiFixture::pointAt(store(), *m_box);
}

void BoxCommandsTest::cleanup()
{
    m_window.reset();
    m_box.reset();
}

bool BoxCommandsTest::run(const QString &command)
{
    QAction *action = window().command(command);
    if (!action->isEnabled())
        return false;
    action->trigger();
    if (!store().busy())
        return false;
    // While it runs, the window says so and offers no second operation.
    if (!window().busyIndicator()->isVisible() || window().command(u"download"_s)->isEnabled())
        return false;
    return QTest::qWaitFor([this] { return !store().busy(); }, 30000);
}

void BoxCommandsTest::downloadEditUpload()
{
    QVERIFY(run(u"download"_s));
    QVERIFY2(!store().errorMessage(), qPrintable(store().errorMessage().value_or(QString())));
    QVERIFY(store().status().startsWith(u"Von 127.0.0.1 geladen: "_s));
    QVERIFY(window().windowTitle().startsWith(u"Box-Kopie "_s));
    QVERIFY(window().command(u"download"_s)->isEnabled());

    // Rename the first bouquet in place, then send.
    const Bouquet first = store().currentBouquets().first();
    store().renameBouquet(first.id, u"Umbenannt auf der Box"_s);
    QVERIFY(window().isWindowModified());
    QVERIFY(run(u"upload"_s));
    QVERIFY2(!store().errorMessage(), qPrintable(store().errorMessage().value_or(QString())));
    QVERIFY(!store().isDirty());
    QVERIFY(!window().isWindowModified());
    QVERIFY(store().status().contains(u"Dateien gesendet"_s));
    const QByteArray sent = TestSupport::readFile(m_box->path(u"/etc/enigma2/"_s + first.fileName));
    QVERIFY(sent.startsWith("#NAME Umbenannt auf der Box"));
    // The backup menu lists the backup made before sending.
    QCOMPARE(store().backups().size(), 1);
}

void BoxCommandsTest::downloadAsksBeforeDroppingChanges()
{
    store().createBouquet(u"Ungesendet"_s);
    window().command(u"download"_s)->trigger();
    auto *box = UiFixture::dialog<QMessageBox>();
    QVERIFY(box);
    QCOMPARE(box->text(), u"Änderungen verwerfen?"_s);
    QVERIFY(!store().busy());
    for (QAbstractButton *button : box->buttons()) {
        if (button->text() == u"Abbrechen")
            button->click();
    }
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QVERIFY(!store().busy());
    QCOMPARE(store().currentBouquets().last().name, u"Ungesendet"_s);
}

void BoxCommandsTest::piconPackageThroughTheSheet()
{
    const QString target = u"/usr/share/enigma2/picon/"_s;
    QVERIFY(QDir().mkpath(m_box->path(target)));
    const QString package = TestSupport::examplesDir() + u"/picons"_s;
    const QStringList picons = QDir(package).entryList({u"*.png"_s}, QDir::Files);
    QVERIFY(!picons.isEmpty());
    // One is on the box already and is not sent again.
    QVERIFY(QFile::copy(package + u'/' + picons.first(), m_box->path(target + picons.first())));
    const QByteArray old = TestSupport::readFile(m_box->path(target + picons.first()));

    window().command(u"uploadPicons"_s)->trigger();
    auto *picker = UiFixture::dialog<PiconPackageDialog>();
    QVERIFY(picker);
    picker->setDirectory(QFileInfo(package).path());
    picker->selectFile(package);
    picker->accept();
    auto *sheet = UiFixture::dialog<PiconUploadSheet>();
    QVERIFY2(sheet, qPrintable(store().errorMessage().value_or(QString())));
    QCOMPARE(sheet->summary()->text(),
             u"%1 Picons werden nach %2 hochgeladen."_s.arg(picons.size() - 1).arg(target));
    sheet->uploadButton()->click();
    QVERIFY(QTest::qWaitFor([this] { return !store().busy(); }, 30000));
    QVERIFY2(!store().errorMessage(), qPrintable(store().errorMessage().value_or(QString())));
    QStringList onBox = QDir(m_box->path(target)).entryList({u"*.png"_s}, QDir::Files);
    QCOMPARE(onBox, picons);
    QCOMPARE(TestSupport::readFile(m_box->path(target + picons.first())), old);
    // The sent picons are now those the window shows.
    QCOMPARE(store().piconCount(), picons.size() - 1);
}

QTEST_MAIN(BoxCommandsTest)
#include "BoxCommandsTest.moc"
