#include "Platform/FileWorker.h"

#include <QThreadPool>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <utility>

namespace quillbox {
namespace {

struct FileWork {
    FileWork() { worker.setMaxThreadCount(1); } // which keeps the order

    QThreadPool worker;
    std::mutex mutex; ///< guards what follows
    std::condition_variable changed;
    std::int64_t given = 0;
    std::int64_t done = 0;
    bool isLate = false; ///< somebody has waited in vain for what is not done yet
};

/// Never destroyed, as that would wait for a worker that hangs when the program ends.
FileWork& fileWork()
{
    static FileWork& work = *new FileWork;
    return work;
}

} // namespace

bool FileWorker::run(std::function<void()> work)
{
    FileWork& all = fileWork();
    std::unique_lock lock(all.mutex);
    const std::int64_t number = ++all.given;
    all.worker.start([&all, work = std::move(work)]() mutable {
        std::exchange(work, nullptr)(); // what it owns may take a while to go
        const std::scoped_lock doneLock(all.mutex);
        ++all.done;
        all.isLate = all.isLate && all.done < all.given;
        all.changed.notify_all();
    });
    if (all.isLate)
        return false;
    const bool isDone = all.changed.wait_for(lock, patience, [&] { return all.done >= number; });
    all.isLate = !isDone;
    return isDone;
}

bool FileWorker::finish(std::chrono::milliseconds limit)
{
    FileWork& all = fileWork();
    std::unique_lock lock(all.mutex);
    return all.changed.wait_for(lock, limit, [&] { return all.done == all.given; });
}

} // namespace quillbox
