#include "Platform/TaskSink.h"

#include "Encoding/Precondition.h"

#include <exception>
#include <utility>

namespace quillbox {
namespace {

QCoro::Task<> guarded(QCoro::Task<> task)
{
    try {
        co_await task;
    } catch (const std::exception&) {
        precondition(false, "a task that nobody awaits handles its errors");
    }
}

} // namespace

void TaskSink::keep(QCoro::Task<> task)
{
    guarded(std::move(task)); // dropped: it runs on and ends itself
}

} // namespace quillbox
