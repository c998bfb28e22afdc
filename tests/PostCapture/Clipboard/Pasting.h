#pragma once

#include "support/Await.h"
#include "support/Subprocess.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QtGlobal>

#include <chrono>
#include <future>
#include <string>
#include <utility>
#include <vector>

namespace quillbox::test {

/// Starts a program; what it writes until it ends.
inline std::future<std::string> startedProgram(std::vector<std::string> command)
{
    return std::async(
        std::launch::async, [command = std::move(command)] { return support::runProcess(command).output; });
}

/// What a program has written when it has ended. Meanwhile the event loop turns.
inline QByteArray outputOf(std::future<std::string> program)
{
    EXPECT_TRUE(eventually([&] { return program.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    return QByteArray::fromStdString(program.get());
}

inline QByteArray outputOf(const std::vector<std::string>& command)
{
    return outputOf(startedProgram(command));
}

inline bool isOnWayland()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// What another program reads from the clipboard.
inline QByteArray pasted(const std::string& type)
{
    return isOnWayland() ? outputOf({"wl-paste", "--no-newline", "--type", type})
                         : outputOf({"xclip", "-selection", "clipboard", "-o", "-t", type});
}

} // namespace quillbox::test
