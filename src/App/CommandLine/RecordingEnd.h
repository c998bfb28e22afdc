#pragma once

#include <QCoro/QCoroTask>
#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QString>
#include <QTimer>

#include <optional>

namespace quillbox {

class ScreenRecorder;
class TerminationSignals;

/// Knows when a recording is to end: when its time is over, when a signal asks for it, or when the screen can't be
/// captured any longer; whichever comes first. Main thread.
class RecordingEnd : public QObject {
    Q_OBJECT

public:
    /// Listens from now on; the duration begins with `startClock`. A signal also ends the recorder's start.
    RecordingEnd(ScreenRecorder& recorder, const TerminationSignals& signals, std::optional<double> durationSeconds);

    void startClock();
    /// Finishes when the recording is to end; holds why the screen can't be captured, or nothing in the other cases.
    [[nodiscard]] QFuture<QString> future() const { return m_promise.future(); }

private:
    void end(const QString& interruption);

    QTimer m_timer;
    QPromise<QString> m_promise;
};

} // namespace quillbox
