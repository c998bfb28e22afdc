#include "Capture/Journal/JournalsAtExit.h"

#include "Capture/Journal/RecordingJournal.h"

#include <chrono>
#include <cstdlib>
#include <mutex>
#include <vector>

namespace quillbox {
namespace {

struct LivingJournals {
    std::mutex mutex;
    std::vector<RecordingJournal*> all;
};

/// Never destroyed: it is needed until the very end.
LivingJournals& living()
{
    static LivingJournals& journals = *new LivingJournals;
    return journals;
}

void endLivingJournals()
{
    constexpr std::chrono::seconds limit{1}; // a disk that takes longer has what came before
    const std::scoped_lock lock(living().mutex);
    for (RecordingJournal* const journal : living().all)
        journal->end(limit);
}

} // namespace

void JournalsAtExit::add(RecordingJournal& journal)
{
    static const bool isAwaited = std::atexit(endLivingJournals) == 0;
    (void)isAwaited; // without it the last quarter of a second is missing
    const std::scoped_lock lock(living().mutex);
    living().all.push_back(&journal);
}

void JournalsAtExit::remove(RecordingJournal& journal)
{
    const std::scoped_lock lock(living().mutex);
    std::erase(living().all, &journal);
}

} // namespace quillbox
