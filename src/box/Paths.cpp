#include "Paths.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

// The XDG rule: the variable when it holds an absolute path, else the default below the home folder.
QString xdgFolder(const char *variable, const QString &fallback)
{
    const QString value = qEnvironmentVariable(variable);
    const QString base = QDir::isAbsolutePath(value) ? value : QDir::homePath() + u'/' + fallback;
    return QDir::cleanPath(base + u"/Corvandel"_s);
}

} // namespace

namespace Paths {

QString dataDir()
{
    return xdgFolder("XDG_DATA_HOME", u".local/share"_s);
}

QString stateDir()
{
    return xdgFolder("XDG_STATE_HOME", u".local/state"_s);
}

} // namespace Paths
