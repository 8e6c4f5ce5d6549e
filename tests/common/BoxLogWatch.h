#pragma once

#include "BoxLog.h"

#include <QFile>
#include <QStringList>

// The entries the shared box log received since this watch was made.
class BoxLogWatch
{
public:
    BoxLogWatch()
    {
        BoxLog::shared().flush();
        m_start = QFile(BoxLog::shared().filePath()).size();
    }

    QStringList lines() const
    {
        BoxLog::shared().flush();
        QFile file(BoxLog::shared().filePath());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        file.seek(m_start);
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    // Each entry without its time: marker, category and message as the file holds them.
    QStringList entries() const
    {
        QStringList result;
        for (const QString &line : lines()) {
            if (BoxLog::dayOfHeader(line).isNull())
                result << line.mid(10);
        }
        return result;
    }

    // The messages only, without time, level and category.
    QStringList messages(const QString &category) const
    {
        QStringList result;
        for (const QString &line : lines()) {
            if (line.mid(15, 9).trimmed() == category)
                result << line.mid(26);
        }
        return result;
    }

private:
    qint64 m_start = 0;
};
