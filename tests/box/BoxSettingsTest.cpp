#include "BoxSettings.h"
#include "Keychain.h"
#include "TestSupport.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSettings>
#include <QTest>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

QSettings current() { return QSettings(u"Corvandel"_s, u"Corvandel"_s); }
QSettings former() { return QSettings(u"Tessavrin"_s, u"Tessavrin"_s); }

// This program started again as a second process on the password store (see main), which sees
// the store without this process's cache. Returns what it printed, none when it failed.
std::optional<QString> elsewhere(const QStringList &arguments)
{
    QProcess tool;
    tool.start(QCoreApplication::applicationFilePath(), QStringList{u"--keychain"_s} + arguments);
    if (!tool.waitForFinished(30'000) || tool.exitStatus() != QProcess::NormalExit)
        return u"<tool failed>"_s;
    return tool.exitCode() == 0 ? std::optional(QString::fromUtf8(tool.readAllStandardOutput())) : std::nullopt;
}

std::optional<QString> readElsewhere(const QString &account, const QString &service = Keychain::currentService)
{ return elsewhere({u"read"_s, account, service}); }

bool writeElsewhere(const QString &value, const QString &account, const QString &service = Keychain::currentService)
{ return elsewhere({u"write"_s, value, account, service}) == QString(); }

} // namespace

// Runs once under a private gnome-keyring and once without a session bus (the password file).
class BoxSettingsTest : public QObject
{
    Q_OBJECT

    bool m_secretService = false;

private slots:
    void initTestCase()
    {
        TestSupport::isolateUserFolders();
        m_secretService = qEnvironmentVariable("CORVANDEL_EXPECT_SECRET_SERVICE") == u"1";
        // The test must run in the mode it was meant for, not silently in the other one.
        QCOMPARE(Keychain::usesFallbackFile(), !m_secretService);
    }

    void init()
    {
        current().clear();
        former().clear();
    }

    void defaultsAndWronglyTypedPorts()
    {
        QCOMPARE(BoxSettings::load(),
                 (BoxSettings{QString(), 21, 80, u"root"_s, QString(), u"/etc/enigma2/"_s, 23, QString(), QString()}));
        // The settings file keeps no types: a number saved earlier reads back as digits.
        const QList<std::tuple<QString, QVariant, int>> cases{
            {u"ftpPort"_s, 2121, 2121},         {u"ftpPort"_s, u"2121"_s, 2121},
            {u"ftpPort"_s, u"einundzwanzig"_s, 21}, {u"ftpPort"_s, 21.5, 21},
            {u"ftpPort"_s, QStringList{u"1"_s, u"2"_s}, 21}, {u"ftpPort"_s, true, 21},
            {u"httpPort"_s, u"80x"_s, 80},      {u"telnetPort"_s, QString(), 23}};
        for (const auto &[key, stored, expected] : cases) {
            current().setValue(key, stored);
            const BoxSettings settings = BoxSettings::load();
            QCOMPARE(key == u"ftpPort" ? settings.ftpPort : key == u"httpPort" ? settings.httpPort : settings.telnetPort,
                     expected);
        }
    }

    void saveAndLoad()
    {
        const BoxSettings saved{u"round.trip"_s, 2121,    8080,       u"admin"_s,          u"pa\"ss\\wört"_s,
                                u"etc/enigma2"_s, 2323, u"df -h"_s, u"/media/hdd/picon/"_s};
        saved.save();
        QCOMPARE(BoxSettings::load(), saved);
        QCOMPARE(current().value(u"directory"_s).toString(), u"etc/enigma2"_s);

        // The password is nowhere in the settings file.
        const QByteArray settingsFile = TestSupport::readFile(current().fileName()).toLower();
        QVERIFY(settingsFile.contains("round.trip"));
        for (const char *secret : {"wört", "pa\\\"ss", "password"})
            QVERIFY2(!settingsFile.contains(secret), secret);

        QCOMPARE(readElsewhere(saved.account()), saved.password);
        const QString fallback = Keychain::fallbackFilePath();
        if (m_secretService) {
            QVERIFY(!QFile::exists(fallback));
        } else {
            QCOMPARE(QFile::permissions(fallback), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
            const QJsonObject stored = QJsonDocument::fromJson(TestSupport::readFile(fallback)).object();
            QCOMPARE(stored.value(u"Corvandel"_s).toObject().value(u"admin@round.trip"_s).toString(), saved.password);
        }
    }

    void passwordsPerAccount()
    {
        BoxSettings settings;
        settings.host = u"twice.box"_s;
        settings.password = u"eins"_s;
        settings.save();
        QVERIFY(writeElsewhere(u"von außen"_s, settings.account()));
        settings.save();
        QCOMPARE(readElsewhere(settings.account()), u"von außen"_s);
        settings.password = u"zwei"_s;
        settings.save();
        QCOMPARE(readElsewhere(settings.account()), u"zwei"_s);

        // A load fills the cache, so saving what was loaded writes nothing either.
        QVERIFY(writeElsewhere(u"drei"_s, settings.account()));
        const BoxSettings loaded = BoxSettings::load();
        QCOMPARE(loaded.password, u"drei"_s);
        QVERIFY(writeElsewhere(u"vier"_s, settings.account()));
        loaded.save();
        QCOMPARE(readElsewhere(settings.account()), u"vier"_s);

        // An empty password deletes the item, once.
        settings.password.clear();
        settings.save();
        QCOMPARE(readElsewhere(settings.account()), std::nullopt);
        QCOMPARE(BoxSettings::load().password, QString());
        if (!m_secretService)
            QVERIFY(!TestSupport::readFile(Keychain::fallbackFilePath()).contains("twice.box"));
        QVERIFY(writeElsewhere(u"fünf"_s, settings.account()));
        settings.save();
        QCOMPARE(readElsewhere(settings.account()), u"fünf"_s);

        // Another user reads another account; the old item stays.
        QVERIFY(writeElsewhere(u"admin-passwort"_s, u"admin@twice.box"_s));
        current().setValue(u"user"_s, u"admin"_s);
        QCOMPARE(BoxSettings::load().password, u"admin-passwort"_s);
        QCOMPARE(readElsewhere(u"root@twice.box"_s), u"fünf"_s);
        current().setValue(u"user"_s, u"nobody"_s);
        QCOMPARE(BoxSettings::load().password, QString());

        // The former application's items never reach the cache.
        Keychain::write(u"alt"_s, u"root@former.box"_s, Keychain::formerService);
        QCOMPARE(Keychain::read(u"root@former.box"_s, Keychain::formerService), u"alt"_s);
        QCOMPARE(Keychain::cached(u"root@former.box"_s), std::nullopt);
    }

    void normalizedDirectory()
    {
        // Inner slashes and blanks stay.
        const QList<std::pair<QString, QString>> cases{
            {u"/etc/enigma2"_s, u"/etc/enigma2/"_s}, {u"etc/enigma2/"_s, u"/etc/enigma2/"_s}, {u"etc/enigma2"_s, u"/etc/enigma2/"_s},
            {u"/"_s, u"/"_s}, {QString(), u"/"_s}, {u"/media//hdd/my lists"_s, u"/media//hdd/my lists/"_s}};
        BoxSettings settings;
        for (const auto &[directory, expected] : cases) {
            settings.directory = directory;
            QCOMPARE(settings.normalizedDirectory(), expected);
        }
    }

    void migration()
    {
        // Without a former host nothing moves.
        former().setValue(u"ftpPort"_s, 2121);
        QCOMPARE(BoxSettings::load().ftpPort, 21);
        QVERIFY(!current().contains(u"ftpPort"_s));

        const QList<std::pair<QString, QVariant>> old{{u"host"_s, u"192.168.1.20"_s}, {u"ftpPort"_s, 2121},
            {u"httpPort"_s, 8080}, {u"user"_s, u"admin"_s}, {u"directory"_s, u"/hdd/lists"_s}, {u"telnetPort"_s, 2323},
            {u"customCommand"_s, u"uptime"_s}};
        for (const auto &[key, value] : old)
            former().setValue(key, value);
        const QString account = u"admin@192.168.1.20"_s;
        QVERIFY(writeElsewhere(u"altes Passwort"_s, account, Keychain::formerService));
        // Only the five keys of the former name are taken over, and the password moves.
        QCOMPARE(BoxSettings::load(), (BoxSettings{u"192.168.1.20"_s, 2121, 8080, u"admin"_s, u"altes Passwort"_s,
                                                   u"/hdd/lists"_s, 23, QString(), QString()}));
        QVERIFY(!current().contains(u"telnetPort"_s));
        QCOMPARE(readElsewhere(account, Keychain::formerService), std::nullopt);
        QCOMPARE(readElsewhere(account), u"altes Passwort"_s);

        // Once "host" exists, the former settings are left alone.
        former().setValue(u"host"_s, u"10.0.0.1"_s);
        QVERIFY(writeElsewhere(u"später"_s, u"admin@10.0.0.1"_s, Keychain::formerService));
        QCOMPARE(BoxSettings::load().host, u"192.168.1.20"_s);
        QCOMPARE(readElsewhere(u"admin@10.0.0.1"_s, Keychain::formerService), u"später"_s);
        QCOMPARE(readElsewhere(u"admin@10.0.0.1"_s), std::nullopt);

        // A former host without a stored password: the keys move, the password stays empty.
        current().clear();
        former().clear();
        former().setValue(u"host"_s, u"box.without.password"_s);
        BoxSettings bare;
        bare.host = u"box.without.password"_s;
        QCOMPARE(BoxSettings::load(), bare);
    }
};

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    // "--keychain write VALUE ACCOUNT SERVICE" stores (an empty value deletes), "--keychain read
    // ACCOUNT SERVICE" prints the password and fails when there is none.
    const QStringList args = app.arguments();
    if (args.value(1) == u"--keychain" && args.value(2) == u"write")
        Keychain::write(args.value(3), args.value(4), args.value(5));
    if (args.value(1) == u"--keychain" && args.value(2) == u"read") {
        const std::optional<QString> password = Keychain::read(args.value(3), args.value(4));
        QTextStream(stdout) << password.value_or(QString());
        return password ? 0 : 1;
    }
    if (args.value(1) == u"--keychain")
        return 0;
    BoxSettingsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "BoxSettingsTest.moc"
