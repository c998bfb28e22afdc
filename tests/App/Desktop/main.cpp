// Runs tests of what the application has on a desktop: on an X server and a session bus that the caller starts, with
// windows that are on no screen but a made-up one.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryFile>

namespace {

/// Its corner is not the desktop's: positions on it are not positions on the desktop.
constexpr auto monitors = R"({ "screens": [{ "name": "main", "x": 100, "y": 50, "width": 1280, "height": 720 }] })";

} // namespace

int main(int argc, char** argv)
{
    QTemporaryFile file;
    if (!file.open() || file.write(monitors) < 0 || !file.flush())
        return 1;
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
    qputenv("QUILLBOX_CLIPBOARD_BACKEND", "x11");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
