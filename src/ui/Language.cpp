#include "Language.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace Language {

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

bool relaunch()
{
    if (!QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                 QCoreApplication::arguments().mid(1)))
        return false;
    QCoreApplication::quit();
    return true;
}

} // namespace Language
