#pragma once

#include <QCoroTask>
#include <QEventLoop>
#include <QString>

#include <exception>
#include <optional>

// Runs a task to its end in a local event loop and returns its value or rethrows its error.
// QCoro::waitFor never returns for a task that already ended before the loop started (a client
// that throws before its first suspension, such as on a missing host address).
template<typename T>
T await(QCoro::Task<T> &&task)
{
    QEventLoop loop;
    bool done = false;
    // A placeholder type stands in for void.
    using Value = std::conditional_t<std::is_void_v<T>, bool, T>;
    std::optional<Value> result;
    std::exception_ptr error;
    auto runner = [&](QCoro::Task<T> awaited) -> QCoro::Task<void> {
        try {
            if constexpr (std::is_void_v<T>) {
                co_await std::move(awaited);
                result.emplace(true);
            } else {
                result.emplace(co_await std::move(awaited));
            }
        } catch (...) {
            error = std::current_exception();
        }
        done = true;
        loop.quit();
    }(std::move(task));
    if (!done)
        loop.exec();
    if (error)
        std::rethrow_exception(error);
    if constexpr (!std::is_void_v<T>)
        return std::move(*result);
}

// The error of type E that the task ends with; none when it succeeds. Errors of other types pass
// through, so that the test fails on them.
template<typename E, typename T>
std::optional<E> awaitError(QCoro::Task<T> &&task)
{
    try {
        await(std::move(task));
    } catch (const E &error) {
        return error;
    }
    return std::nullopt;
}

// The description of that error, which names its kind; a null string when the task succeeds.
template<typename E, typename T>
QString awaitFailure(QCoro::Task<T> &&task)
{
    const std::optional<E> error = awaitError<E>(std::move(task));
    return error ? error->description() : QString();
}
