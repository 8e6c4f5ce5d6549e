#pragma once

#include "ResumeOnce.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <coroutine>
#include <optional>

// An awaitable that suspends a coroutine until the first of several events: a signal mapped to an
// outcome, or the time limit. Later events are ignored. The coroutine resumes from the event loop,
// never inside the emitting object's signal, so it may delete that object.
class EventWait
{
public:
    static constexpr int timedOut = -1;

    // A negative limit waits without one.
    explicit EventWait(std::chrono::milliseconds limit = std::chrono::milliseconds(-1));
    ~EventWait();
    EventWait(const EventWait &) = delete;
    EventWait &operator=(const EventWait &) = delete;

    template<typename Sender, typename Signal>
    void on(const Sender *sender, Signal signal, int outcome)
    {
        m_connections.append(QObject::connect(sender, signal, &m_context, [this, outcome] { finish(outcome); }));
    }
    // The context for connections that decide themselves (for example by a signal's argument).
    QObject *context() { return &m_context; }
    // Ends the wait with this outcome unless it has already ended.
    void finish(int outcome);

    // co_await wait.outcome(): the outcome of the first event, or timedOut.
    struct Awaiter
    {
        EventWait *wait;
        bool await_ready() const noexcept { return wait->m_outcome.has_value(); }
        void await_suspend(std::coroutine_handle<> handle) { wait->suspend(handle); }
        int await_resume() const { return wait->m_outcome.value_or(timedOut); }
    };
    Awaiter outcome() { return Awaiter{this}; }

private:
    void suspend(std::coroutine_handle<> handle);

    ResumeOnce m_once;
    QObject m_context;
    QTimer m_timer;
    QList<QMetaObject::Connection> m_connections;
    std::optional<int> m_outcome;
    std::coroutine_handle<> m_handle;
    std::chrono::milliseconds m_limit;
};
