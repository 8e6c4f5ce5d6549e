#pragma once

#include <QMutex>

// Runs an action the first time only. A timer and a network event may race to resume the same
// waiting task; whichever comes first wins, the other is ignored.
class ResumeOnce
{
public:
    template<typename Action>
    bool run(Action &&action)
    {
        {
            QMutexLocker lock(&m_mutex);
            if (m_done)
                return false;
            m_done = true;
        }
        action();
        return true;
    }

    bool isDone() const
    {
        QMutexLocker lock(&m_mutex);
        return m_done;
    }

private:
    mutable QMutex m_mutex;
    bool m_done = false;
};
