#pragma once

#include "Platform/FileDescriptor.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

namespace quillbox {

/// Bytes on their way into a pipe that somebody else reads, as fast as they are read: nobody waits for a slow reader,
/// and one that goes away is no error. Deletes itself at the end. Thread: one with an event loop.
class PipeWriter : public QObject {
    Q_OBJECT

public:
    /// @param pipe    The end to write to; closed once all is written, so that the reader sees the end.
    /// @param parent  With it goes what has not been written.
    PipeWriter(FileDescriptor pipe, QByteArray data, QObject* parent);

private:
    void writeMore();
    void end();

    FileDescriptor m_pipe;
    QByteArray m_data; // shares its bytes with what was offered
    qsizetype m_written = 0;
    QSocketNotifier m_notifier;
};

} // namespace quillbox
