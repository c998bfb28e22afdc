#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// One line at the bottom of the terminal that says how far the work has come; nothing where standard error is not a
/// terminal. While it lives, the signals that end the program first move the cursor to a fresh line. One at a time;
/// one thread at a time.
class ProgressLine {
public:
    ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine();

    [[nodiscard]] bool isVisible() const { return m_isTerminal; }
    /// Replaces the line; an unchanged one is not written again.
    void show(std::string_view text);
    /// Removes the line, to make room for a message.
    void clear();

private:
    bool m_isTerminal;
    std::string m_shown;
};

} // namespace quillbox
