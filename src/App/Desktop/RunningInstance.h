#pragma once

#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include <optional>
#include <stdexcept>

namespace quillbox {

/// The running application refused, or vanished meanwhile; `what()` is a sentence for the user.
class InstanceError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The application that runs in this session, as another process sees it. Every call waits for the answer, without an
/// event loop. Thread: any one, of a program with a QCoreApplication.
class RunningInstance {
public:
    /// None where nothing runs, or where there is no session bus.
    [[nodiscard]] static std::optional<RunningInstance> find();

    // Each as the method of that name of ApplicationService. @throws InstanceError
    QVariantMap begin() const;
    QVariantMap stop() const;
    QVariantMap status() const;
    void show() const;
    void quit() const;
    bool copy(const QString& absolutePath) const;
    /// As a desktop would start it a second time.
    void activate() const;

private:
    RunningInstance() = default;
};

} // namespace quillbox
