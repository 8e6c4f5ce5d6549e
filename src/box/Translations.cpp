#include "Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace Translations {

namespace {

const QString key = u"language"_s;

QSettings preferences()
{
    return QSettings(u"Corvandel"_s, u"Corvandel"_s);
}

QString &activeCode()
{
    static QString code = preference();
    return code;
}

QTranslator *&programTranslator()
{
    static QTranslator *translator = nullptr;
    return translator;
}

// The first file "<name>_<language>.qm" found in the folders, loaded; null when there is none.
QTranslator *loaded(const QString &name, const QString &language, const QStringList &dirs)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    for (const QString &dir : dirs) {
        if (translator->load(name + u'_' + language, dir)) return translator.release();
    }
    return nullptr;
}

void installQtTexts(const QString &language)
{
    if (QTranslator *translator =
            loaded(u"qtbase"_s, language, {QLibraryInfo::path(QLibraryInfo::TranslationsPath)}))
        QCoreApplication::installTranslator(translator);
}

} // namespace

QString preference()
{
    return preferences().value(key).toString();
}

void setPreference(const QString &code)
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

QStringList folders()
{
    const QString program = QCoreApplication::applicationDirPath();
    // The programs of a build sit two folders below its top, where i18n/ holds the compiled files.
    return {QDir::cleanPath(program + u"/../share/corvandel/translations"_s),
            QDir::cleanPath(program + u"/../../i18n"_s)};
}

bool install()
{
    const QString code = preference();
    activeCode() = code;
    const QStringList languages = code.isEmpty() ? QLocale::system().uiLanguages() : QStringList{code};
    for (QString language : languages) {
        language.replace(u'-', u'_');
        // German is the source: a later language in the user's list must not win over it.
        if (QLocale(language).language() == QLocale::German) break;
        if (QTranslator *program = loaded(u"corvandel"_s, language, folders())) {
            installQtTexts(language);
            QCoreApplication::installTranslator(program);
            programTranslator() = program;
            return true;
        }
    }
    // No language of the user's has a translation: German throughout, Qt's texts too.
    installQtTexts(u"de"_s);
    return false;
}

Untranslated::Untranslated()
{
    if (programTranslator()) QCoreApplication::removeTranslator(programTranslator());
}

Untranslated::~Untranslated()
{
    if (programTranslator()) QCoreApplication::installTranslator(programTranslator());
}

} // namespace Translations
