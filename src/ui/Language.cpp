#include "Language.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QProcess>
#include <QSettings>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace Language {

namespace {

QSettings preferences()
{
    return QSettings(u"Corvandel"_s, u"Corvandel"_s);
}

const QString key = u"language"_s;

QString &activeCode()
{
    static QString code = current();
    return code;
}

// Installs the first translation of that name found in the folders.
bool load(QCoreApplication &application, const QLocale &locale, const QString &name, const QStringList &folders)
{
    auto translator = std::make_unique<QTranslator>(&application);
    for (const QString &folder : folders) {
        if (translator->load(locale, name, u"_"_s, folder)) {
            QCoreApplication::installTranslator(translator.release());
            return true;
        }
    }
    return false;
}

} // namespace

QList<Choice> choices()
{
    // Each language is named in itself, so that the user finds it whatever the current language.
    return {
        {QString(), QCoreApplication::translate("Language", "Systemsprache")},
        {u"de"_s, u"Deutsch"_s},
        {u"en"_s, u"English"_s},
        {u"fr"_s, u"Français"_s},
        {u"es"_s, u"Español"_s},
    };
}

QString current()
{
    return preferences().value(key).toString();
}

void setCurrent(const QString &code)
{
    if (code.isEmpty())
        preferences().remove(key);
    else
        preferences().setValue(key, code);
}

QString active()
{
    return activeCode();
}

QStringList translationFolders()
{
    const QString program = QCoreApplication::applicationDirPath();
    // The executables of a build sit two folders below its top, where i18n/ compiles the translations.
    return {QDir::cleanPath(program + u"/../share/corvandel/translations"_s),
            QDir::cleanPath(program + u"/../../i18n"_s)};
}

bool install(QCoreApplication &application)
{
    const QString code = current();
    activeCode() = code;
    const QLocale locale = code.isEmpty() ? QLocale::system() : QLocale(code);
    // Qt's own texts: standard buttons, the context menus of text fields.
    load(application, locale, u"qtbase"_s, {QLibraryInfo::path(QLibraryInfo::TranslationsPath)});
    return load(application, locale, u"corvandel"_s, translationFolders());
}

bool relaunch()
{
    if (!QProcess::startDetached(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1)))
        return false;
    QCoreApplication::quit();
    return true;
}

} // namespace Language
