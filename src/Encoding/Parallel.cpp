#include "Encoding/Parallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace quillbox {

int workerCount(Parallelism parallelism, std::int64_t count)
{
    const auto wanted = parallelism.threads > 0 ? std::int64_t{parallelism.threads}
                                                : std::int64_t{std::thread::hardware_concurrency()};
    return static_cast<int>(std::clamp<std::int64_t>(std::min(wanted, count), 1, 256));
}

void parallelFor(
    Parallelism parallelism, std::int64_t count, const std::function<void(std::int64_t item, int worker)>& body)
{
    const int workers = workerCount(parallelism, count);
    std::atomic<std::int64_t> next = 0;
    std::exception_ptr firstError;
    std::mutex errorMutex;

    const auto work = [&](int worker) {
        try {
            for (auto item = next.fetch_add(1); item < count; item = next.fetch_add(1))
                body(item, worker);
        } catch (...) {
            next = count; // the others finish what they began and take nothing new
            const std::scoped_lock lock(errorMutex);
            if (!firstError)
                firstError = std::current_exception();
        }
    };
    {
        std::vector<std::jthread> others;
        others.reserve(static_cast<std::size_t>(workers) - 1);
        for (int worker = 1; worker < workers; ++worker)
            others.emplace_back(work, worker);
        work(0);
    }
    if (firstError)
        std::rethrow_exception(firstError);
}

} // namespace quillbox
