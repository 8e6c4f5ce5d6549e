#include "EventWait.h"

EventWait::EventWait(std::chrono::milliseconds limit)
    : m_limit(limit)
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_context, [this] { finish(timedOut); });
}

EventWait::~EventWait()
{
    for (const auto &connection : std::as_const(m_connections))
        QObject::disconnect(connection);
}

void EventWait::finish(int outcome)
{
    m_once.run([&] {
        m_outcome = outcome;
        m_timer.stop();
        for (const auto &connection : std::as_const(m_connections))
            QObject::disconnect(connection);
        m_connections.clear();
        if (m_handle) {
            const std::coroutine_handle<> handle = m_handle;
            QTimer::singleShot(0, [handle] { handle.resume(); });
        }
    });
}

void EventWait::suspend(std::coroutine_handle<> handle)
{
    m_handle = handle;
    if (m_limit.count() >= 0)
        m_timer.start(m_limit);
}
