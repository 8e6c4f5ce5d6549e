#pragma once

#include "TestSupport.h"

#include <QDir>
#include <QStringList>

// Files of the corpus's list folders, by name pattern; empty when the corpus is absent.
namespace CorpusFiles {

inline QStringList matching(const QStringList &patterns)
{
    QStringList files;
    for (const QString &folder : TestSupport::corpusListFolders()) {
        for (const QString &name : QDir(folder).entryList(patterns, QDir::Files, QDir::Name))
            files << folder + u'/' + name;
    }
    return files;
}

// The path below the corpus folder, for naming test rows.
inline QByteArray rowName(const QString &path)
{
    return path.mid(TestSupport::corpusDir().size() + 1).toUtf8();
}

} // namespace CorpusFiles
