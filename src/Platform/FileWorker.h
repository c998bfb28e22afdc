#pragma once

#include <chrono>
#include <functional>

namespace quillbox {

/// Writes the user's small files without holding up the event loop, although a home folder, one on a network above
/// all, may take seconds or never answer. Stateless; thread: any.
namespace FileWorker {

/// How long a caller is held up at most: usually it finds its work done.
inline constexpr std::chrono::milliseconds patience{100};

/// Runs `work` on a worker, behind all that was given before, and waits for it, but no longer than `patience`, and not
/// at all while earlier work is late. `work` owns what it needs, as it may outlive its caller, and must not throw.
/// @return whether it is done
bool run(std::function<void()> work);

/// Waits until all that was given is done, for `limit` at most: what is not done when the process ends is lost.
/// @return whether it is
bool finish(std::chrono::milliseconds limit);

} // namespace FileWorker
} // namespace quillbox
