#include "BoxSettings.h"
#include "Keychain.h"
#include "TestSupport.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;

// Runs once under a private gnome-keyring and once without a session bus (the password file).
class BoxSettingsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void freshDefaults();
    void wronglyTypedPorts_data();
    void wronglyTypedPorts();
    void saveAndLoad();
    void savingAgainLeavesStoreAlone();
    void emptyPasswordDeletes();
    void userChangeReadsOtherAccount();
    void normalizedDirectory_data();
    void normalizedDirectory();
    void migration();
    void migrationNeedsFormerHost();
    void cache();

private:
    bool m_secretService = false;
};

namespace {

QSettings current()
{
    return QSettings(u"Corvandel"_s, u"Corvandel"_s);
}

QSettings former()
{
    return QSettings(u"Tessavrin"_s, u"Tessavrin"_s);
}

// The store as another process sees it, without this process's cache.
std::optional<QString> readElsewhere(const QString &account, const QString &service)
{
    QProcess tool;
    tool.start(QStringLiteral(KEYCHAIN_TOOL), {u"read"_s, account, service});
    if (!tool.waitForFinished(30'000) || tool.exitStatus() != QProcess::NormalExit)
        return u"<tool failed>"_s;
    if (tool.exitCode() != 0)
        return std::nullopt;
    return QString::fromUtf8(tool.readAllStandardOutput());
}

bool writeElsewhere(const QString &value, const QString &account, const QString &service)
{
    QProcess tool;
    tool.start(QStringLiteral(KEYCHAIN_TOOL), {u"write"_s, value, account, service});
    return tool.waitForFinished(30'000) && tool.exitCode() == 0;
}

BoxSettings sample(const QString &host)
{
    BoxSettings settings;
    settings.host = host;
    settings.ftpPort = 2121;
    settings.httpPort = 8080;
    settings.user = u"admin"_s;
    settings.password = u"pa\"ss\\wört"_s;
    settings.directory = u"etc/enigma2"_s;
    settings.telnetPort = 2323;
    settings.customCommand = u"df -h"_s;
    settings.piconDirectory = u"/media/hdd/picon/"_s;
    return settings;
}

} // namespace

void BoxSettingsTest::initTestCase()
{
    TestSupport::isolateUserFolders();
    m_secretService = qEnvironmentVariable("CORVANDEL_EXPECT_SECRET_SERVICE") == u"1";
    // The test must run in the mode it was meant for, not silently in the other one.
    QCOMPARE(Keychain::usesFallbackFile(), !m_secretService);
}

void BoxSettingsTest::init()
{
    current().clear();
    former().clear();
}

void BoxSettingsTest::freshDefaults()
{
    const BoxSettings settings = BoxSettings::load();
    QCOMPARE(settings.host, QString());
    QCOMPARE(settings.ftpPort, 21);
    QCOMPARE(settings.httpPort, 80);
    QCOMPARE(settings.telnetPort, 23);
    QCOMPARE(settings.user, u"root"_s);
    QCOMPARE(settings.password, QString());
    QCOMPARE(settings.directory, u"/etc/enigma2/"_s);
    QCOMPARE(settings.customCommand, QString());
    QCOMPARE(settings.piconDirectory, QString());
}

void BoxSettingsTest::wronglyTypedPorts_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("expected");
    QTest::newRow("ftp integer") << u"ftpPort"_s << QVariant(2121) << 2121;
    // The settings file keeps no types: a number saved earlier reads back as digits.
    QTest::newRow("ftp digits") << u"ftpPort"_s << QVariant(u"2121"_s) << 2121;
    QTest::newRow("ftp text") << u"ftpPort"_s << QVariant(u"einundzwanzig"_s) << 21;
    QTest::newRow("ftp fraction") << u"ftpPort"_s << QVariant(21.5) << 21;
    QTest::newRow("ftp list") << u"ftpPort"_s << QVariant(QStringList{u"1"_s, u"2"_s}) << 21;
    QTest::newRow("ftp flag") << u"ftpPort"_s << QVariant(true) << 21;
    QTest::newRow("http text") << u"httpPort"_s << QVariant(u"80x"_s) << 80;
    QTest::newRow("telnet empty") << u"telnetPort"_s << QVariant(QString()) << 23;
}

void BoxSettingsTest::wronglyTypedPorts()
{
    QFETCH(QString, key);
    QFETCH(QVariant, stored);
    QFETCH(int, expected);
    current().setValue(key, stored);
    const BoxSettings settings = BoxSettings::load();
    const int actual = key == u"ftpPort" ? settings.ftpPort : key == u"httpPort" ? settings.httpPort : settings.telnetPort;
    QCOMPARE(actual, expected);
}

void BoxSettingsTest::saveAndLoad()
{
    const BoxSettings saved = sample(u"round.trip"_s);
    saved.save();
    QCOMPARE(BoxSettings::load(), saved);
    QCOMPARE(current().value(u"directory"_s).toString(), u"etc/enigma2"_s);

    // The password is nowhere in the settings file.
    const QByteArray settingsFile = TestSupport::readFile(current().fileName());
    QVERIFY(settingsFile.contains("round.trip"));
    QVERIFY(!settingsFile.contains("wört"));
    QVERIFY(!settingsFile.contains("pa\\\"ss"));
    QVERIFY(!settingsFile.toLower().contains("password"));

    QCOMPARE(readElsewhere(saved.account(), Keychain::currentService), saved.password);
    const QString fallback = Keychain::fallbackFilePath();
    if (m_secretService) {
        QVERIFY(!QFile::exists(fallback));
    } else {
        QCOMPARE(QFile::permissions(fallback), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
        const QJsonObject stored = QJsonDocument::fromJson(TestSupport::readFile(fallback)).object();
        QCOMPARE(stored.value(u"Corvandel"_s).toObject().value(u"admin@round.trip"_s).toString(), saved.password);
    }
}

void BoxSettingsTest::savingAgainLeavesStoreAlone()
{
    BoxSettings settings = sample(u"twice.box"_s);
    settings.password = u"eins"_s;
    settings.save();
    QVERIFY(writeElsewhere(u"von außen"_s, settings.account(), Keychain::currentService));
    settings.save();
    QCOMPARE(readElsewhere(settings.account(), Keychain::currentService), u"von außen"_s);

    settings.password = u"zwei"_s;
    settings.save();
    QCOMPARE(readElsewhere(settings.account(), Keychain::currentService), u"zwei"_s);

    // A load fills the cache, so saving what was loaded writes nothing either.
    QVERIFY(writeElsewhere(u"drei"_s, settings.account(), Keychain::currentService));
    const BoxSettings loaded = BoxSettings::load();
    QCOMPARE(loaded.password, u"drei"_s);
    QVERIFY(writeElsewhere(u"vier"_s, settings.account(), Keychain::currentService));
    loaded.save();
    QCOMPARE(readElsewhere(settings.account(), Keychain::currentService), u"vier"_s);
}

void BoxSettingsTest::emptyPasswordDeletes()
{
    BoxSettings settings = sample(u"empty.box"_s);
    settings.password = u"geheim"_s;
    settings.save();
    QCOMPARE(readElsewhere(settings.account(), Keychain::currentService), u"geheim"_s);
    settings.password.clear();
    settings.save();
    QCOMPARE(readElsewhere(settings.account(), Keychain::currentService), std::nullopt);
    QCOMPARE(BoxSettings::load().password, QString());
    if (!m_secretService)
        QVERIFY(!TestSupport::readFile(Keychain::fallbackFilePath()).contains("empty.box"));
}

void BoxSettingsTest::userChangeReadsOtherAccount()
{
    BoxSettings settings = sample(u"users.box"_s);
    settings.user = u"root"_s;
    settings.password = u"root-passwort"_s;
    settings.save();
    QVERIFY(writeElsewhere(u"admin-passwort"_s, u"admin@users.box"_s, Keychain::currentService));

    current().setValue(u"user"_s, u"admin"_s);
    const BoxSettings loaded = BoxSettings::load();
    QCOMPARE(loaded.account(), u"admin@users.box"_s);
    QCOMPARE(loaded.password, u"admin-passwort"_s);
    QCOMPARE(readElsewhere(u"root@users.box"_s, Keychain::currentService), u"root-passwort"_s);

    current().setValue(u"user"_s, u"nobody"_s);
    QCOMPARE(BoxSettings::load().password, QString());
}

void BoxSettingsTest::normalizedDirectory_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no trailing slash") << u"/etc/enigma2"_s << u"/etc/enigma2/"_s;
    QTest::newRow("no leading slash") << u"etc/enigma2/"_s << u"/etc/enigma2/"_s;
    QTest::newRow("neither") << u"etc/enigma2"_s << u"/etc/enigma2/"_s;
    QTest::newRow("already normal") << u"/etc/enigma2/"_s << u"/etc/enigma2/"_s;
    QTest::newRow("lone slash") << u"/"_s << u"/"_s;
    QTest::newRow("empty") << QString() << u"/"_s;
    QTest::newRow("inner slashes and blanks stay") << u"/media//hdd/my lists"_s << u"/media//hdd/my lists/"_s;
}

void BoxSettingsTest::normalizedDirectory()
{
    QFETCH(QString, directory);
    QFETCH(QString, expected);
    BoxSettings settings;
    settings.directory = directory;
    QCOMPARE(settings.normalizedDirectory(), expected);
}

void BoxSettingsTest::migration()
{
    {
        QSettings old = former();
        old.setValue(u"host"_s, u"192.168.1.20"_s);
        old.setValue(u"ftpPort"_s, 2121);
        old.setValue(u"httpPort"_s, 8080);
        old.setValue(u"user"_s, u"admin"_s);
        old.setValue(u"directory"_s, u"/hdd/lists"_s);
        old.setValue(u"telnetPort"_s, 2323);
        old.setValue(u"customCommand"_s, u"uptime"_s);
    }
    QVERIFY(writeElsewhere(u"altes Passwort"_s, u"admin@192.168.1.20"_s, Keychain::formerService));

    const BoxSettings settings = BoxSettings::load();
    QCOMPARE(settings.host, u"192.168.1.20"_s);
    QCOMPARE(settings.ftpPort, 2121);
    QCOMPARE(settings.httpPort, 8080);
    QCOMPARE(settings.user, u"admin"_s);
    QCOMPARE(settings.directory, u"/hdd/lists"_s);
    QCOMPARE(settings.password, u"altes Passwort"_s);
    // Only the five keys of the former name are taken over.
    QCOMPARE(settings.telnetPort, 23);
    QCOMPARE(settings.customCommand, QString());
    QVERIFY(!current().contains(u"telnetPort"_s));
    QCOMPARE(readElsewhere(u"admin@192.168.1.20"_s, Keychain::formerService), std::nullopt);
    QCOMPARE(readElsewhere(u"admin@192.168.1.20"_s, Keychain::currentService), u"altes Passwort"_s);

    // Once "host" exists, the former settings are left alone.
    former().setValue(u"host"_s, u"10.0.0.1"_s);
    QVERIFY(writeElsewhere(u"später"_s, u"admin@10.0.0.1"_s, Keychain::formerService));
    QCOMPARE(BoxSettings::load().host, u"192.168.1.20"_s);
    QCOMPARE(readElsewhere(u"admin@10.0.0.1"_s, Keychain::formerService), u"später"_s);
    QCOMPARE(readElsewhere(u"admin@10.0.0.1"_s, Keychain::currentService), std::nullopt);
}

void BoxSettingsTest::migrationNeedsFormerHost()
{
    former().setValue(u"ftpPort"_s, 2121);
    QCOMPARE(BoxSettings::load().ftpPort, 21);
    QVERIFY(!current().contains(u"ftpPort"_s));

    // A former host without a stored password: the keys move, the password stays empty.
    former().setValue(u"host"_s, u"box.without.password"_s);
    const BoxSettings settings = BoxSettings::load();
    QCOMPARE(settings.host, u"box.without.password"_s);
    QCOMPARE(settings.user, u"root"_s);
    QCOMPARE(settings.password, QString());
}

void BoxSettingsTest::cache()
{
    const QString account = u"root@cache.box"_s;
    QCOMPARE(Keychain::cached(account), std::nullopt);
    QCOMPARE(Keychain::read(account, Keychain::currentService), std::nullopt);
    QCOMPARE(Keychain::cached(account), std::nullopt);

    // The former service never reaches the cache.
    Keychain::write(u"alt"_s, account, Keychain::formerService);
    QCOMPARE(Keychain::read(account, Keychain::formerService), u"alt"_s);
    QCOMPARE(Keychain::cached(account), std::nullopt);

    Keychain::write(u"neu"_s, account, Keychain::currentService);
    QCOMPARE(Keychain::cached(account), u"neu"_s);
    QVERIFY(writeElsewhere(u"anders"_s, account, Keychain::currentService));
    QCOMPARE(Keychain::cached(account), u"neu"_s);
    QCOMPARE(Keychain::read(account, Keychain::currentService), u"anders"_s);
    QCOMPARE(Keychain::cached(account), u"anders"_s);

    // Deleting caches the empty text, so that saving an empty password again writes nothing.
    Keychain::write(QString(), account, Keychain::currentService);
    QCOMPARE(Keychain::cached(account), QString());
    QCOMPARE(Keychain::read(account, Keychain::currentService), std::nullopt);
}

QTEST_GUILESS_MAIN(BoxSettingsTest)
#include "BoxSettingsTest.moc"
