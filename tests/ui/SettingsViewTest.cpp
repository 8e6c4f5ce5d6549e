#include "Appearance.h"
#include "Backups.h"
#include "BoxSettings.h"
#include "BoxSync.h"
#include "FakeBox.h"
#include "Keychain.h"
#include "Language.h"
#include "SettingsView.h"
#include "Store.h"
#include "TestSupport.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTest>

using namespace Qt::StringLiterals;

// The settings window against the receiver test double: the edited connection reaches the box
// and the store, the program's own choices land in the preferences at once.
class SettingsViewTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void connectionTest_data();
    void connectionTest();
    void draftAppliedOnClose();
    void preferences();

private:
    template<typename Widget>
    static Widget *field(const SettingsView &view, const QString &name)
    {
        auto *found = view.findChild<Widget *>(name);
        if (!found)
            qFatal("no field %s", qPrintable(name));
        return found;
    }
};

void SettingsViewTest::initTestCase()
{
    TestSupport::isolateUserFolders();
}

void SettingsViewTest::init()
{
    QSettings(u"Corvandel"_s, u"Corvandel"_s).clear();
}

void SettingsViewTest::connectionTest_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<bool>("failed");
    QTest::newRow("edited port and login") << u"secret"_s
                                           << u"Verbindung OK: 2 Dateien in /etc/enigma2/, lamedb gefunden."_s << false;
    QTest::newRow("wrong password") << u"wrong"_s << u"FTP-Fehler: "_s << true;
}

void SettingsViewTest::connectionTest()
{
    QFETCH(QString, password);
    QFETCH(QString, outcome);
    QFETCH(bool, failed);
    FakeBox box;
    QVERIFY2(box.isRunning(), qPrintable(box.errorString()));
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/lamedb"_s), "eDVB services /4/\n"));
    QVERIFY(TestSupport::writeFile(box.path(u"/etc/enigma2/bouquets.tv"_s), ""));

    // The store starts out pointed at a port where nobody answers, with another login.
    Store store;
    BoxSettings start = box.settingsAs<BoxSettings>();
    start.ftpPort = 1;
    start.user = u"nobody"_s;
    start.password.clear();
    store.setSettings(start);
    // A failure of an earlier operation that nobody dismissed yet.
    store.setErrorMessage(u"Alter Fehler"_s);
    Backups backups(store);
    BoxSync sync(store, backups);
    SettingsView view(store, sync);
    view.show();

    field<QSpinBox>(view, u"ftpPort"_s)->setValue(box.connection().ftpPort);
    field<QLineEdit>(view, u"user"_s)->setText(u"root"_s);
    field<QLineEdit>(view, u"password"_s)->setText(password);
    auto *test = field<QPushButton>(view, u"test"_s);
    auto *shown = field<QLabel>(view, u"outcome"_s);
    test->click();
    QCOMPARE(shown->text(), u"Teste Verbindung…"_s);
    QVERIFY(!test->isEnabled());
    QTRY_VERIFY2_WITH_TIMEOUT(shown->text().startsWith(outcome), qPrintable(shown->text()), 20000);
    QVERIFY(test->isEnabled());
    QCOMPARE(shown->text() == outcome, !failed);

    // The test used the draft because it was applied: to the store and to the saved settings.
    for (const BoxSettings &settings : {store.settings(), BoxSettings::load()}) {
        QCOMPARE(settings.ftpPort, box.connection().ftpPort);
        QCOMPARE(settings.user, u"root"_s);
        QCOMPARE(settings.password, password);
    }
}

void SettingsViewTest::draftAppliedOnClose()
{
    Store store;
    store.setSettings(BoxSettings());
    Backups backups(store);
    BoxSync sync(store, backups);
    SettingsView view(store, sync);
    view.show();
    field<QLineEdit>(view, u"host"_s)->setText(u" box.example "_s);
    field<QLineEdit>(view, u"piconDirectory"_s)->setText(u"/media/hdd/picon/"_s);
    // Meanwhile the box control window keeps its command; closing here must not undo that.
    BoxSettings changed = store.settings();
    changed.customCommand = u"uptime"_s;
    store.setSettings(changed);
    QVERIFY(store.settings().host.isEmpty());

    view.close();
    for (const BoxSettings &settings : {store.settings(), BoxSettings::load()}) {
        QCOMPARE(settings.host, u"box.example"_s);
        QCOMPARE(settings.piconDirectory, u"/media/hdd/picon/"_s);
    }
    QCOMPARE(store.settings().customCommand, u"uptime"_s);

    // Opened again, the window starts from what the store holds now.
    changed = store.settings();
    changed.host = u"10.0.0.2"_s;
    store.setSettings(changed);
    view.show();
    QCOMPARE(field<QLineEdit>(view, u"host"_s)->text(), u"10.0.0.2"_s);
}

void SettingsViewTest::preferences()
{
    Store store;
    Backups backups(store);
    BoxSync sync(store, backups);
    const QPalette platform = QApplication::palette();
    SettingsView view(store, sync);
    view.show();
    QSettings settings(u"Corvandel"_s, u"Corvandel"_s);

    auto *autoLoad = field<QCheckBox>(view, u"autoLoadLast"_s);
    QVERIFY(autoLoad->isChecked());
    autoLoad->setChecked(false);
    QCOMPARE(settings.value(u"autoLoadLast"_s), QVariant(false));

    auto *side = field<QComboBox>(view, u"bouquetsRight"_s);
    QCOMPARE(side->currentText(), u"Links"_s);
    side->setCurrentIndex(side->findText(u"Rechts"_s));
    QCOMPARE(settings.value(u"bouquetsRight"_s), QVariant(true));

    auto *appearance = field<QComboBox>(view, u"appearance"_s);
    QCOMPARE(appearance->currentText(), u"Automatisch"_s);
    appearance->setCurrentIndex(appearance->findText(u"Dunkel"_s));
    QCOMPARE(settings.value(u"appearance"_s), QVariant(u"dark"_s));
    QCOMPARE(QApplication::palette().color(QPalette::Window), Appearance::darkPalette().color(QPalette::Window));
    appearance->setCurrentIndex(appearance->findText(u"Automatisch"_s));
    QCOMPARE(settings.value(u"appearance"_s), QVariant(u"auto"_s));
    QCOMPARE(QApplication::palette().color(QPalette::Window), platform.color(QPalette::Window));

    auto *language = field<QComboBox>(view, u"language"_s);
    auto *hint = field<QLabel>(view, u"restartHint"_s);
    auto *restart = field<QPushButton>(view, u"restart"_s);
    QCOMPARE(language->currentText(), u"Systemsprache"_s);
    QVERIFY(!hint->isVisible());
    language->setCurrentIndex(language->findText(u"English"_s));
    QCOMPARE(settings.value(u"language"_s), QVariant(u"en"_s));
    QVERIFY(hint->isVisible() && restart->isVisible());
    QCOMPARE(hint->text(), u"Die neue Sprache gilt nach einem Neustart der App."_s);
    language->setCurrentIndex(language->findText(u"Systemsprache"_s));
    QVERIFY(!settings.contains(u"language"_s));
    QVERIFY(!hint->isVisible() && !restart->isVisible());

    QCOMPARE(field<QLabel>(view, u"fallbackNote"_s)->isVisible(), Keychain::usesFallbackFile());
}

QTEST_MAIN(SettingsViewTest)
#include "SettingsViewTest.moc"
