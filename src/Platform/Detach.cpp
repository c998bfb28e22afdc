#include "Platform/Detach.h"

#include "Encoding/Precondition.h"

#include <exception>
#include <utility>

namespace quillbox {
namespace {

QCoro::Task<> guarded(QCoro::Task<> task)
{
    try {
        co_await task;
    } catch (const std::exception& error) {
        precondition(false, error.what());
    } catch (...) {
        precondition(false, "a detached task handles its errors");
    }
}

} // namespace

void detach(QCoro::Task<> task)
{
    guarded(std::move(task)); // dropped: it runs on and ends itself
}

} // namespace quillbox
