#pragma once

#include <QString>
#include <QVariantMap>

#include <stdexcept>

namespace quillbox {

/// The running application refused, or vanished meanwhile; `what()` is a sentence for the user.
class InstanceError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The application that runs in this session, as another process sees it. Every call waits for the answer, without an
/// event loop. Stateless; thread: any one, of a program with a QCoreApplication.
namespace RunningInstance {

/// False also where there is no session bus.
[[nodiscard]] bool exists();

// Each as the method of that name of ApplicationService. @throws InstanceError
[[nodiscard]] QVariantMap begin();
[[nodiscard]] QVariantMap stop();
[[nodiscard]] QVariantMap status();
void show();
void quit();
[[nodiscard]] bool copy(const QString& absolutePath);
/// As a desktop would start it a second time.
void activate();

} // namespace RunningInstance
} // namespace quillbox
