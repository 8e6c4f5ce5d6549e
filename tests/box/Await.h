#pragma once

#include <QCoroTask>
#include <QEventLoop>

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
