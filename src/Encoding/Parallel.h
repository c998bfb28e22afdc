#pragma once

#include <cstdint>
#include <functional>

namespace quillbox {

/// How many threads a stage may use at once. No result depends on it.
struct Parallelism {
    int threads = 0; ///< 0 means one a core
};

/// For many items that are all there: threads of its own share them, and are gone when it returns.
///
/// Calls `body(item, worker)` once for every item in 0…count−1, in any order. `worker`, in 0…workerCount−1, names the
/// thread, so that scratch memory can be reused. Returns when all calls have.
/// @throws whatever a call threw (the first one, if several did); items not begun by then are left out.
void parallelFor(
    Parallelism parallelism, std::int64_t count, const std::function<void(std::int64_t item, int worker)>& body);

/// The number of workers that `parallelFor` uses for `count` items; at least 1.
[[nodiscard]] int workerCount(Parallelism parallelism, std::int64_t count);

} // namespace quillbox
