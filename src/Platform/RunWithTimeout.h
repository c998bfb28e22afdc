#pragma once

#include <QFuture>
#include <QPromise>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace quillbox {

/// Workers for questions that may never be answered. Unlike the toolkit's own, nobody waits for them when the program
/// ends. Thread: any.
[[nodiscard]] QThreadPool& patientWorkers();

/// Runs `ask`, which may wait for another program, on a worker. @return what it gives, or none once `limit` is over;
/// the worker is then left to itself, and ends with the process at the latest. `ask` must not throw. Thread: any with
/// an event loop.
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
    patientWorkers().start([state, ask = std::move(ask)] { state->settle(ask()); });
    QTimer::singleShot(limit, [state] { state->settle(std::nullopt); });
    return state->promise.future();
}

} // namespace quillbox
