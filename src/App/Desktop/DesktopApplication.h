#pragma once

#include <QApplication>

#include <stdexcept>

namespace quillbox {

/// There is no display to show anything on; `what()` is a sentence for the user.
class NoDesktopError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Qt with windows, named as the desktop knows the program. Ends only when told to. One a process.
class DesktopApplication {
public:
    /// @throws NoDesktopError  nothing answers where the environment says the display is, or it names no display.
    DesktopApplication();

    /// Turns the event loop until the end.
    /// @return the exit status
    [[nodiscard]] static int run() { return QApplication::exec(); }

private:
    QApplication m_application;
};

} // namespace quillbox
