#pragma once

#include <QFuture>
#include <QPromise>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace quillbox {

/// Runs `ask`, which may wait for another program, on a thread of its own. @return what it gives, or none once `limit`
/// is over; the thread is then left to itself, and ends with the process at the latest. `ask` must not throw. Thread:
/// any with an event loop.
template <typename T>
[[nodiscard]] QFuture<std::optional<T>> runWithTimeout(std::chrono::milliseconds limit, std::function<T()> ask)
{
    struct State {
        QPromise<std::optional<T>> promise;
        std::atomic_flag isSettled;

        void settle(std::optional<T> answer)
        {
            if (isSettled.test_and_set())
                return;
            promise.addResult(std::move(answer));
            promise.finish();
        }
    };
    const auto state = std::make_shared<State>();
    state->promise.start();
    std::thread([state, ask = std::move(ask)] { state->settle(ask()); }).detach();
    QTimer::singleShot(limit, [state] { state->settle(std::nullopt); });
    return state->promise.future();
}

} // namespace quillbox
