#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>

namespace quillbox {

/// How long the recording has been going on, in whole seconds. Thread: main.
class RecordingClock : public QObject {
    Q_OBJECT

public:
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    /// Stands at zero.
    explicit RecordingClock(QObject* parent = nullptr, Now now = &std::chrono::steady_clock::now);

    /// Begins anew.
    void start();
    /// Back to zero.
    void stop();

    /// Zero unless it has been started.
    [[nodiscard]] std::chrono::seconds elapsed() const;

    /// Minutes and seconds as a player shows them: "0:07", "12:34", "1:02:03". @pre not negative
    [[nodiscard]] static QString text(std::chrono::seconds time);

Q_SIGNALS:
    /// elapsed() has changed, as it does every second.
    void changed();

private:
    void awaitNextSecond();

    Now m_now;
    QTimer m_second;
    std::chrono::steady_clock::time_point m_started;
    bool m_isRunning = false;
};

} // namespace quillbox
