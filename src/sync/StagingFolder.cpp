#include "StagingFolder.h"

#include "Error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// A path beside `target` that does not exist yet; the leading dot keeps it out of the folder
// lists of boxes and backups.
QString freePathBeside(const QString &target, const QString &purpose)
{
    const QFileInfo info(target);
    QTemporaryDir reserved(info.path() + u"/."_s + info.fileName() + u'-' + purpose + u"-XXXXXX"_s);
    if (!reserved.isValid())
        throw MessageError(StagingFolder::tr("Im Ordner „%1“ kann nichts angelegt werden: %2")
                               .arg(info.path(), reserved.errorString()));
    reserved.setAutoRemove(false);
    return reserved.path();
}

} // namespace

StagingFolder::StagingFolder(const QString &target)
    : m_target(QDir::cleanPath(target))
{
    const QString parent = QFileInfo(m_target).path();
    if (!QDir().mkpath(parent))
        throw MessageError(tr("Der Ordner „%1“ konnte nicht angelegt werden.").arg(parent));
    m_path = freePathBeside(m_target, u"neu"_s);
}

StagingFolder::~StagingFolder()
{
    if (!m_installed)
        QDir(m_path).removeRecursively();
}

void StagingFolder::install(const std::function<void()> &open)
{
    QString aside;
    if (QFileInfo(m_target).exists() || QFileInfo(m_target).isSymLink()) {
        aside = freePathBeside(m_target, u"alt"_s);
        QDir().rmdir(aside);
        if (!QDir().rename(m_target, aside))
            throw MessageError(tr("Der Ordner „%1“ konnte nicht ersetzt werden.").arg(m_target));
    }
    const auto putBack = [&] {
        if (!aside.isEmpty())
            QDir().rename(aside, m_target);
    };
    if (!QDir().rename(m_path, m_target)) {
        putBack();
        throw MessageError(tr("Der Ordner „%1“ konnte nicht ersetzt werden.").arg(m_target));
    }
    try {
        open();
    } catch (...) {
        // The staged content moves back to where the destructor removes it.
        QDir().rename(m_target, m_path);
        putBack();
        throw;
    }
    m_installed = true;
    if (!aside.isEmpty())
        QDir(aside).removeRecursively();
}

void StagingFolder::copyTree(const QString &from, const QString &to)
{
    const QDir source(from);
    if (!source.exists())
        throw MessageError(tr("Der Ordner „%1“ konnte nicht gelesen werden.").arg(from));
    const QFileInfoList entries =
        source.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo &entry : entries) {
        const QString target = QDir(to).filePath(entry.fileName());
        if (entry.isSymLink())
            continue;
        if (entry.isDir()) {
            if (!QDir().mkdir(target))
                throw MessageError(tr("Der Ordner „%1“ konnte nicht angelegt werden.").arg(target));
            copyTree(entry.filePath(), target);
        } else if (!QFile::copy(entry.filePath(), target)) {
            throw MessageError(tr("„%1“ konnte nicht kopiert werden.").arg(entry.fileName()));
        }
    }
}
