#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <csignal>
#include <optional>

namespace quillbox {

/// Turns the first SIGINT, SIGTERM or SIGHUP into a Qt signal while it lives; a second one ends the process at once.
/// One at a time; made and used on the main thread.
class StopRequest : public QObject {
    Q_OBJECT

public:
    StopRequest();
    ~StopRequest() override;

Q_SIGNALS:
    void received();

private:
    static constexpr int signalCount = 3;

    std::optional<QSocketNotifier> m_notifier;
    struct sigaction m_before[signalCount] { }; ///< what the signals did until now
};

/// Keeps the signals that end a program away from this thread and those that it starts, for good: they reach the main
/// thread instead. For worker threads.
void leaveEndingSignalsToMainThread();

} // namespace quillbox
