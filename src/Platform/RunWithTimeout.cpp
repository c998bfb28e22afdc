#include "Platform/RunWithTimeout.h"

namespace quillbox {

QThreadPool& patientWorkers()
{
    constexpr int maxWorkers = 64; // more than there are questions: none waits for another to be answered
    static QThreadPool& workers = *[] {
        auto* const pool = new QThreadPool; // never destroyed, as that would wait for all answers
        pool->setMaxThreadCount(maxWorkers);
        return pool;
    }();
    return workers;
}

} // namespace quillbox
