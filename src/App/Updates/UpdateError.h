#pragma once

#include <QString>

#include <exception>
#include <utility>

namespace quillbox {

/// Why updates could not be looked for, or not be installed. A value.
class UpdateError : public std::exception {
public:
    enum class Reason {
        Unreachable,  ///< the service is not there, or can't be started
        Vanished,     ///< it ended while it worked for us
        NotPackaged,  ///< it has not installed this program
        NotOffered,   ///< no source of packages has any version of it
        Refused,      ///< the user may not, or did not want to when asked for a password
        NoNetwork,    ///< the sources of packages can't be reached
        Untrusted,    ///< the newer package is not signed by somebody whom the system trusts
        Busy,         ///< another program installs something
        Cancelled,    ///< by somebody else
        NotInstalled, ///< the service reported success, and the old version is still there
        Failed,       ///< anything else; `details()` is all there is to say
    };

    /// @param details  The service's own words; may be empty, may have several lines.
    explicit UpdateError(Reason reason, QString details = {})
        : m_reason(reason)
        , m_details(std::move(details))
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }
    [[nodiscard]] const QString& details() const { return m_details; }
    [[nodiscard]] const char* what() const noexcept override { return "the update failed"; }

private:
    Reason m_reason;
    QString m_details;
};

} // namespace quillbox
