#include "Translation.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace Translation {

namespace {

std::unique_ptr<QTranslator> &installed()
{
    static std::unique_ptr<QTranslator> translator;
    return translator;
}

// Beside an installed program, and the build's own folder when run from the build.
QStringList folders()
{
    QStringList dirs{QCoreApplication::applicationDirPath() + u"/../share/corvandel/translations"_s};
#ifdef CORVANDEL_I18N_DIR
    dirs << QStringLiteral(CORVANDEL_I18N_DIR);
#endif
    return dirs;
}

} // namespace

void install()
{
    const QString preferred = QSettings(u"Corvandel"_s, u"Corvandel"_s).value(u"language"_s).toString();
    const QLocale locale = preferred.isEmpty() ? QLocale::system() : QLocale(preferred);
    auto translator = std::make_unique<QTranslator>();
    const QStringList languages = locale.uiLanguages();
    for (const QString &language : languages) {
        const QString name = QString(language).replace(u'-', u'_');
        // German is the source; a later language in the user's list must not win over it.
        if (QLocale(name).language() == QLocale::German) return;
        for (const QString &dir : folders()) {
            if (translator->load(u"corvandel_"_s + name, dir)) {
                QCoreApplication::installTranslator(translator.get());
                installed() = std::move(translator);
                return;
            }
        }
    }
}

Untranslated::Untranslated()
{
    if (installed()) QCoreApplication::removeTranslator(installed().get());
}

Untranslated::~Untranslated()
{
    if (installed()) QCoreApplication::installTranslator(installed().get());
}

} // namespace Translation
