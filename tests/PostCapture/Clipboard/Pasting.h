#pragma once

#include "support/Await.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace quillbox::test {

/// What a program writes until it ends. Meanwhile the event loop turns.
inline QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(eventually([&] { return process.state() == QProcess::NotRunning; }));
    return process.readAllStandardOutput();
}

inline bool isOnWayland()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// What another program reads from the clipboard.
inline QByteArray pasted(const QString& type)
{
    return isOnWayland() ? outputOf("wl-paste", {"--no-newline", "--type", type})
                         : outputOf("xclip", {"-selection", "clipboard", "-o", "-t", type});
}

} // namespace quillbox::test
