#pragma once

#include "Encoding/Presets.h"

#include <QString>
#include <QVariantMap>

#include <optional>
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
[[nodiscard]] QVariantMap begin(bool precise);
[[nodiscard]] QVariantMap stop();
/// @param precise  False for as precise as the clip before. @param preset  None for the one of the clip before.
[[nodiscard]] QVariantMap again(bool precise, std::optional<ExportPreset> preset);
[[nodiscard]] QVariantMap status();
void show();
void quit();
[[nodiscard]] bool copy(const QString& absolutePath);
/// Has another process's application put a clip on the clipboard, whatever comes of it. Waits for nothing. Thread:
/// main.
void passOn(const QString& absolutePath);
/// As a desktop would start it a second time.
void activate();

} // namespace RunningInstance
} // namespace quillbox
