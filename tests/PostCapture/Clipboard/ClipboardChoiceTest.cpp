#include "PostCapture/Clipboard/ClipboardChoice.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QtGlobal>

#include <map>
#include <string>
#include <utility>

namespace quillbox {
namespace {

using BackEnd = ClipboardBackEnd;

/// The choice in a session that has these variables and none of the others that count. No compositor answers in it.
BackEndChoice<BackEnd> choiceIn(const std::map<const char*, QByteArray>& session)
{
    for (const char* name : {"QUILLBOX_CLIPBOARD_BACKEND", "QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
        qunsetenv(name);
    qputenv("XDG_RUNTIME_DIR", "/nonexistent");
    for (const auto& [name, value] : session)
        qputenv(name, value);
    return chooseClipboard();
}

TEST(ClipboardChoice, IsNoneWithoutADisplay)
{
    const auto choice = choiceIn({});
    EXPECT_EQ(choice.backEnd, BackEnd::None);
    EXPECT_EQ(choice.reason, "There is no display");
}

TEST(ClipboardChoice, IsX11OnAnX11Desktop)
{
    EXPECT_EQ(choiceIn({{"DISPLAY", ":7"}}).backEnd, BackEnd::X11);
    EXPECT_EQ(choiceIn({{"DISPLAY", ":7"}, {"WAYLAND_DISPLAY", "wayland-0"}, {"QT_QPA_PLATFORM", "xcb"}}).backEnd,
        BackEnd::X11);
}

TEST(ClipboardChoice, NeedsTheFocusWhereTheCompositorOffersNothingElse)
{
    const auto choice = choiceIn({{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(choice.backEnd, BackEnd::FocusedToolkit);
}

TEST(ClipboardChoice, IsTheToolkitOnAnyOtherPlatform)
{
    const auto choice = choiceIn({{"QT_QPA_PLATFORM", "offscreen:size=1x1;xcb"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(choice.backEnd, BackEnd::Toolkit);
    EXPECT_EQ(choice.reason, "The toolkit shows its windows on \"offscreen\"");
}

TEST(ClipboardChoice, DoesWhatItIsTold)
{
    const std::map<std::string, BackEnd> backEnds{{"x11", BackEnd::X11}, {"data-control", BackEnd::DataControl},
        {"toolkit", BackEnd::Toolkit}, {"none", BackEnd::None}};
    for (const auto& [name, backEnd] : backEnds) {
        const auto choice
            = choiceIn({{"QUILLBOX_CLIPBOARD_BACKEND", QByteArray::fromStdString(name)}, {"DISPLAY", ":7"}});
        EXPECT_EQ(choice.backEnd, backEnd);
        EXPECT_EQ(choice.reason, "QUILLBOX_CLIPBOARD_BACKEND is \"" + name + '"');
    }
}

TEST(ClipboardChoice, KnowsThatAToolkitItIsToldToUseNeedsTheFocusOnWayland)
{
    EXPECT_EQ(choiceIn({{"QUILLBOX_CLIPBOARD_BACKEND", "toolkit"}, {"WAYLAND_DISPLAY", "wayland-0"}}).backEnd,
        BackEnd::FocusedToolkit);
}

TEST(ClipboardChoice, IsNoneWhenItIsToldNonsense)
{
    const auto choice = choiceIn({{"QUILLBOX_CLIPBOARD_BACKEND", "paper"}, {"DISPLAY", ":7"}});
    EXPECT_EQ(choice.backEnd, BackEnd::None);
    EXPECT_EQ(
        choice.reason, "QUILLBOX_CLIPBOARD_BACKEND is \"paper\", which is none of x11, data-control, toolkit, none");
}

} // namespace
} // namespace quillbox
