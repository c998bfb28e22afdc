#pragma once

#include <QCoreApplication>
#include <QCoro/QCoroTask>
#include <QDeadlineTimer>

#include <chrono>
#include <exception>
#include <functional>
#include <optional>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace quillbox::test {

/// Long enough for the slowest machine; only a test that fails waits that long.
inline constexpr std::chrono::seconds patience{120};

/// Turns the event loop until `condition` holds. @return false when the time ran out.
inline bool eventually(const std::function<bool()>& condition, std::chrono::seconds limit = patience)
{
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

template <typename T> struct Outcome {
    std::optional<T> value;
    std::exception_ptr error;
    bool isDone = false;
};

template <typename T, typename Value> QCoro::Task<> follow(QCoro::Task<T> task, Outcome<Value>& outcome)
{
    try {
        if constexpr (std::is_void_v<T>)
            co_await task;
        else
            outcome.value = co_await task;
    } catch (...) {
        outcome.error = std::current_exception();
    }
    outcome.isDone = true;
}

/// Turns the event loop until `task` has finished, and gives what it returned or throws what it threw.
template <typename T> T await(QCoro::Task<T> task)
{
    Outcome<std::conditional_t<std::is_void_v<T>, bool, T>> outcome;
    const auto following = follow(std::move(task), outcome);
    if (!eventually([&] { return outcome.isDone; }))
        throw std::runtime_error("a task did not finish");
    if (outcome.error)
        std::rethrow_exception(outcome.error);
    if constexpr (!std::is_void_v<T>)
        return std::move(*outcome.value);
}

} // namespace quillbox::test
