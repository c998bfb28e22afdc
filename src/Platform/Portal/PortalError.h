#pragma once

#include <QString>

#include <exception>
#include <utility>

namespace quillbox {

/// Why the desktop portal did not do what it was asked for. A value.
class PortalError : public std::exception {
public:
    enum class Reason {
        NoBus,       ///< there is no session bus
        NoPortal,    ///< none runs, and none can be started
        NoInterface, ///< it does not offer such a thing on this desktop
        Gone,        ///< it did not answer: it went away, or takes too long
        Closed,      ///< the desktop ended the session
        Denied,      ///< the user did not permit it
        Failed,      ///< the request ended in another way
        Refused,     ///< the call brought an error; `details()` is all there is to say
        Unreadable,  ///< the answer lacks what it should hold
        Withdrawn,   ///< the object that asked was destroyed
    };

    /// @param details  The portal's own words; may be empty.
    explicit PortalError(Reason reason, QString details = {})
        : m_reason(reason)
        , m_details(std::move(details))
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }
    [[nodiscard]] const QString& details() const { return m_details; }
    [[nodiscard]] const char* what() const noexcept override { return "the desktop portal refused"; }

private:
    Reason m_reason;
    QString m_details;
};

} // namespace quillbox
