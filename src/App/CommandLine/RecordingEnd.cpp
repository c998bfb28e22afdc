#include "App/CommandLine/RecordingEnd.h"

#include "App/CommandLine/TerminationSignals.h"
#include "Capture/ScreenRecorder.h"

#include <cmath>

namespace quillbox {

RecordingEnd::RecordingEnd(
    ScreenRecorder& recorder, const TerminationSignals& signals, std::optional<double> durationSeconds)
{
    m_promise.start();
    connect(&signals, &TerminationSignals::received, this, [this] { end({}); });
    connect(&signals, &TerminationSignals::received, &recorder, &ScreenRecorder::giveUpStart);
    connect(&recorder, &ScreenRecorder::interrupted, this, [this](const QString& reason) { end(reason); });
    if (durationSeconds) {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setSingleShot(true);
        m_timer.setInterval(static_cast<int>(std::ceil(*durationSeconds * 1000))); // at most a day
        connect(&m_timer, &QTimer::timeout, this, [this] { end({}); });
    }
}

void RecordingEnd::startClock()
{
    if (m_timer.isSingleShot())
        m_timer.start();
}

void RecordingEnd::end(const QString& interruption)
{
    if (m_promise.future().isFinished())
        return; // it ends once, for the first reason
    m_promise.addResult(interruption);
    m_promise.finish();
}

} // namespace quillbox

#include "moc_RecordingEnd.cpp"
