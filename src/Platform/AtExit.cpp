#include "Platform/AtExit.h"

#include <cstdlib>
#include <mutex>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

struct PendingWork {
    std::mutex mutex;
    std::vector<const std::function<void()>*> all;
};

/// Never destroyed: it is needed until the very end.
PendingWork& pendingWork()
{
    static PendingWork& pending = *new PendingWork;
    return pending;
}

void doPendingWork()
{
    const std::scoped_lock lock(pendingWork().mutex);
    for (const auto* const work : pendingWork().all)
        (*work)();
}

} // namespace

AtExit::AtExit(std::function<void()> work)
    : m_work(std::move(work))
{
    static const bool isAwaited = std::atexit(doPendingWork) == 0;
    (void)isAwaited; // else it is not done: nobody could do anything about it here
    const std::scoped_lock lock(pendingWork().mutex);
    pendingWork().all.push_back(&m_work);
}

AtExit::~AtExit()
{
    const std::scoped_lock lock(pendingWork().mutex);
    std::erase(pendingWork().all, &m_work);
}

} // namespace quillbox
