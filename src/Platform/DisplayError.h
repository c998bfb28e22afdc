#pragma once

#include <exception>
#include <string>
#include <utility>

namespace quillbox {

/// Why the display server can't be used, or can't be used any longer. Copyable; thread: any.
class DisplayError : public std::exception {
public:
    enum class Reason {
        NoDisplay,  ///< there is none to connect to
        Unreadable, ///< it lays out its pixels in a way that can't be read
        Gone,       ///< the connection broke
    };

    /// @param sentence  One sentence for the user, UTF-8, without a full stop.
    DisplayError(Reason reason, std::string sentence)
        : m_reason(reason)
        , m_sentence(std::move(sentence))
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }
    [[nodiscard]] const char* what() const noexcept override { return m_sentence.c_str(); }

private:
    Reason m_reason;
    std::string m_sentence;
};

} // namespace quillbox
