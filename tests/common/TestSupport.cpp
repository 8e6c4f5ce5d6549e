#include "TestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace TestSupport {

QString isolateUserFolders()
{
    static QTemporaryDir home;
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"}) {
        const QString dir = home.path() + u'/' + QLatin1String(name);
        QDir().mkpath(dir);
        qputenv(name, dir.toUtf8());
    }
    // Passwords would go to the desktop's real keyring: cut the session bus, so that they land in
    // the file fallback below XDG_DATA_HOME. tests/box/with-keyring.sh brings a private keyring.
    if (!qEnvironmentVariableIsSet("CORVANDEL_TEST_KEYRING"))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/corvandel-test-bus");
    return home.path();
}

QString sourceDir()
{
    return QStringLiteral(CORVANDEL_SOURCE_DIR);
}

QString corpusDir()
{
    const QString dir = QDir::cleanPath(sourceDir() + u"/../shared/corpus"_s);
    return QFileInfo(dir).isDir() ? dir : QString();
}

QStringList corpusListFolders()
{
    QStringList folders;
    const QString root = corpusDir();
    if (root.isEmpty())
        return folders;
    QDirIterator it(root, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString dir = it.next();
        for (const char *name : {"lamedb", "lamedb5", "bouquets.tv"}) {
            if (QFileInfo::exists(dir + u'/' + QLatin1String(name))) {
                folders << dir;
                break;
            }
        }
    }
    folders.sort();
    return folders;
}

QString examplesDir()
{
    return sourceDir() + u"/examples"_s;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    return file.write(bytes) == bytes.size();
}

} // namespace TestSupport
