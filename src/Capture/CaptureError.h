#pragma once

#include "Platform/DisplayError.h"

#include <exception>
#include <string>
#include <utility>

namespace quillbox {

/// Why a screen can't be captured, or can't be captured any longer. Copyable; thread: any.
class CaptureError : public std::exception {
public:
    enum class Reason {
        NoDisplay,      ///< there is no display to connect to
        Unavailable,    ///< this kind of desktop, or the named back end, can't be captured
        OutsideDisplay, ///< no part of the region lies on the main display
        Refused,        ///< the user, or what decides in their place, does not permit it
        Unreadable,     ///< the display refuses its pixels, or lays them out in a way that can't be read
        NoRoom,         ///< neither memory nor disk take more of the recording
        DisplayGone,    ///< the connection to the display broke
        Stopped,        ///< the stream was stopped or destroyed before it had started
    };

    /// @param sentence  One sentence for the user, UTF-8, without a full stop.
    CaptureError(Reason reason, std::string sentence)
        : m_reason(reason)
        , m_sentence(std::move(sentence))
    {
    }
    /// What a display that can't be used means for capturing it.
    explicit CaptureError(const DisplayError& error);

    /// What a start fails with that was given up.
    [[nodiscard]] static CaptureError stopped();
    /// Unreadable, because of what the system refuses, such as memory or a file descriptor.
    [[nodiscard]] static CaptureError failed(const std::exception& error);

    [[nodiscard]] Reason reason() const { return m_reason; }
    [[nodiscard]] const char* what() const noexcept override { return m_sentence.c_str(); }

private:
    Reason m_reason;
    std::string m_sentence;
};

} // namespace quillbox
