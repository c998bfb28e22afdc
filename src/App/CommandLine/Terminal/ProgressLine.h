#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillbox {

/// One line at the bottom of the terminal that says how far the work has come; nothing where standard error is not a
/// terminal. It is cut to the terminal's width, and where TERM is dumb, or not set, it is written without escapes.
/// While it lives, the signals that end the program first move the cursor to a fresh line. One at a time; one thread at
/// a time.
class ProgressLine {
public:
    /// @param isWanted  Whether it is to be shown at all.
    explicit ProgressLine(bool isWanted = true);
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine();

    [[nodiscard]] bool isVisible() const { return m_isTerminal; }
    /// Replaces the line; an unchanged one is not written again.
    void show(std::string_view text);
    /// Removes the line, to make room for a message.
    void clear();

private:
    void replaceBy(std::string_view text);

    bool m_isTerminal;
    bool m_isDumb;
    std::string m_shown; ///< whole
    std::size_t m_shownColumns = 0;
};

} // namespace quillbox
