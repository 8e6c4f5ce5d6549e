#include "BoxSettings.h"

#include "Keychain.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

QSettings currentSettings()
{
    return QSettings(u"Corvandel"_s, u"Corvandel"_s);
}

QString textOr(const QVariant &value, const QString &fallback)
{
    return value.typeId() == QMetaType::QString ? value.toString() : fallback;
}

// The settings file keeps no types: a number written by this program reads back as text of
// digits. Anything else (other text, lists, fractions) counts as wrongly typed.
int integerOr(const QVariant &value, int fallback)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort: {
        bool ok = false;
        const int number = value.toInt(&ok);
        return ok ? number : fallback;
    }
    case QMetaType::QString: {
        bool ok = false;
        const int number = value.toString().toInt(&ok, 10);
        return ok ? number : fallback;
    }
    default:
        return fallback;
    }
}

QString accountOf(const QString &user, const QString &host)
{
    return user + u'@' + host;
}

} // namespace

// Neither load nor save reports errors: missing values fall back to the defaults, an unreadable
// password is empty and a failed write of it is dropped.
BoxSettings BoxSettings::load()
{
    migrateFromOldName();
    const QSettings stored = currentSettings();
    BoxSettings settings;
    settings.host = textOr(stored.value(u"host"_s), {});
    settings.ftpPort = integerOr(stored.value(u"ftpPort"_s), 21);
    settings.httpPort = integerOr(stored.value(u"httpPort"_s), 80);
    settings.user = textOr(stored.value(u"user"_s), u"root"_s);
    settings.directory = textOr(stored.value(u"directory"_s), u"/etc/enigma2/"_s);
    settings.telnetPort = integerOr(stored.value(u"telnetPort"_s), 23);
    settings.customCommand = textOr(stored.value(u"customCommand"_s), {});
    settings.piconDirectory = textOr(stored.value(u"piconDirectory"_s), {});
    settings.password = Keychain::read(settings.account(), Keychain::currentService).value_or(QString());
    return settings;
}

void BoxSettings::save() const
{
    QSettings stored = currentSettings();
    stored.setValue(u"host"_s, host);
    stored.setValue(u"ftpPort"_s, ftpPort);
    stored.setValue(u"httpPort"_s, httpPort);
    stored.setValue(u"user"_s, user);
    stored.setValue(u"directory"_s, directory);
    stored.setValue(u"telnetPort"_s, telnetPort);
    stored.setValue(u"customCommand"_s, customCommand);
    stored.setValue(u"piconDirectory"_s, piconDirectory);
    stored.sync();

    // Saving unchanged settings again must neither prompt nor write the store.
    const QString key = account();
    if (Keychain::cached(key) == password)
        return;
    Keychain::write(password, key, Keychain::currentService);
}

void BoxSettings::migrateFromOldName()
{
    QSettings current = currentSettings();
    if (current.contains(u"host"_s))
        return;
    const QSettings former(u"Tessavrin"_s, u"Tessavrin"_s);
    if (former.status() != QSettings::NoError || !former.contains(u"host"_s))
        return;
    for (const QString &key : {u"host"_s, u"ftpPort"_s, u"httpPort"_s, u"user"_s, u"directory"_s}) {
        if (former.contains(key))
            current.setValue(key, former.value(key));
    }
    current.sync();

    const QString account =
        accountOf(textOr(former.value(u"user"_s), u"root"_s), textOr(former.value(u"host"_s), {}));
    if (const auto password = Keychain::read(account, Keychain::formerService)) {
        Keychain::write(*password, account, Keychain::currentService);
        Keychain::write(QString(), account, Keychain::formerService);
    }
}

QString BoxSettings::normalizedDirectory() const
{
    return withSlashes(directory);
}

QString BoxSettings::withSlashes(QString directory)
{
    if (!directory.startsWith(u'/'))
        directory.prepend(u'/');
    if (!directory.endsWith(u'/'))
        directory.append(u'/');
    return directory;
}

QString BoxSettings::account() const
{
    return accountOf(user, host);
}
