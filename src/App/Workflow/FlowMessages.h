#pragma once

#include <QString>

#include <exception>

namespace quillbox {

/// The sentences that a flow can fail with, as the user reads them. Stateless; thread: any.
namespace FlowMessages {

[[nodiscard]] QString couldNotStart(const std::exception& error);
[[nodiscard]] QString noFrames();
/// A frame that is too large for the format gets a sentence of its own.
[[nodiscard]] QString couldNotSave(const std::exception& error);

/// Whether what kept a clip from being saved can be otherwise another time: a disk can be emptied, a frame that is too
/// large stays so.
[[nodiscard]] bool mayPass(const std::exception& error);

/// What went wrong, in a few words. What a worker threw (QUnhandledException) is unwrapped first.
[[nodiscard]] QString describe(const std::exception& error);

} // namespace FlowMessages
} // namespace quillbox
