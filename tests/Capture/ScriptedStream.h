#pragma once

#include "Capture/CaptureStream.h"

#include <QCoro/QCoroFuture>
#include <QFuture>
#include <QPromise>

#include <exception>
#include <memory>
#include <optional>
#include <utility>

namespace quillbox::test {

/// What a scripted stream shall do, and what was asked of it.
struct Script {
    std::exception_ptr startError;           ///< thrown by start(), if any
    std::exception_ptr stopError;            ///< thrown by stop(), if any
    std::optional<QPromise<void>> startGate; ///< start() waits until it is finished
    std::optional<QPromise<void>> stopGate;  ///< stop() waits until it is finished

    bool hasPicturesOnDemand = false;

    int starts = 0;
    int stops = 0;
    bool isAlive = true;
    CaptureRegion region;
    FrameSink sink; ///< of the latest start()
    std::optional<CaptureClock::time_point> requested;

    static QFuture<void> close(std::optional<QPromise<void>>& gate)
    {
        gate.emplace();
        gate->start();
        return gate->future();
    }
};

/// A capture stream that follows a script.
class ScriptedStream : public CaptureStream {
public:
    explicit ScriptedStream(std::shared_ptr<Script> script)
        : m_script(std::move(script))
    {
    }
    ~ScriptedStream() override { m_script->isAlive = false; }

    QCoro::Task<> start(CaptureRegion region, FrameSink sink) override
    {
        const auto script = m_script; // the stream may be destroyed meanwhile
        ++script->starts;
        script->region = region;
        script->sink = std::move(sink);
        if (script->startGate) {
            const QFuture<void> gate = script->startGate->future();
            co_await gate;
        }
        if (script->startError)
            std::rethrow_exception(script->startError);
    }

    bool requestPicture(CaptureClock::time_point moment) override
    {
        m_script->requested = moment;
        return m_script->hasPicturesOnDemand;
    }

    QCoro::Task<> stop() override
    {
        const auto script = m_script;
        ++script->stops;
        if (script->stopGate) {
            const QFuture<void> gate = script->stopGate->future();
            co_await gate;
        }
        if (script->stopError)
            std::rethrow_exception(script->stopError);
    }

private:
    std::shared_ptr<Script> m_script;
};

} // namespace quillbox::test
