#pragma once

#include "Platform/FileDescriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <optional>

namespace quillbox {

/// The signals with which a terminal, a service manager or another process asks a program to end.
inline constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP};

/// Turns the first SIGINT, SIGTERM or SIGHUP into a Qt signal while it lives; a second one ends the process at once.
/// One at a time; made and used on the main thread.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

    [[nodiscard]] bool wasReceived() const { return !m_notifier->isEnabled(); }

Q_SIGNALS:
    void received();

private:
    FileDescriptor m_event; // readable once a signal has come
    std::optional<QSocketNotifier> m_notifier;
    std::array<struct sigaction, endingSignals.size()> m_before{}; ///< what the signals did until now
};

/// Keeps the signals that end a program away from this thread and those that it starts, for good: they reach the main
/// thread instead. For worker threads.
void leaveEndingSignalsToMainThread();

} // namespace quillbox
