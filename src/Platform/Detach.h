#pragma once

#include <QCoro/QCoroTask>

namespace quillbox {

/// Lets a task that nobody awaits run on by itself. An exception that leaves it is a bug: it ends the process, with the
/// exception's own words. Thread: main.
void detach(QCoro::Task<> task);

} // namespace quillbox
