#pragma once

#include <QCoro/QCoroTask>

namespace quillbox {

/// Takes tasks that nobody awaits. They run on by themselves; an exception that leaves one is a bug and ends the
/// process. Thread: main.
namespace TaskSink {

void keep(QCoro::Task<> task);

} // namespace TaskSink
} // namespace quillbox
