#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QString>

namespace quillbox {

/// The program as a file: what is there now, which may be newer than what runs.
class Restart {
public:
    /// Remembers where the program is. Later the system can no longer tell: the file may have been replaced.
    Restart()
        : m_program(QCoreApplication::applicationFilePath())
    {
    }

    /// @return whether it could be started
    [[nodiscard]] bool start() const { return QProcess::startDetached(m_program, {}); }

private:
    QString m_program;
};

} // namespace quillbox
