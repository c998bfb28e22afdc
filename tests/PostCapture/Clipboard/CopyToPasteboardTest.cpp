// Runs on a real Wayland desktop and on an X server that the caller starts: see CMakeLists.txt beside it.
#include "PostCapture/ClipboardExporter.h"

#include "Pasting.h"
#include "PostCapture/Clipboard/Clipboard.h"
#include "PostCapture/Clipboard/ToolkitClipboard.h"

#include <gtest/gtest.h>

#include <QMimeData>

#include <memory>

namespace quillbox {
namespace {

const QUrl clipFile("file:///a%20clip.gif");
const QStringList conventions{"TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS"}; // of X11, for every owner

/// The types in which another program could have the clip.
QStringList offeredTypes()
{
    const auto answer = test::isOnWayland()
        ? test::outputOf({"wl-paste", "--list-types"})
        : test::outputOf({"xclip", "-selection", "clipboard", "-o", "-t", "TARGETS"});
    QStringList types = QString::fromUtf8(answer).split('\n', Qt::SkipEmptyParts);
    for (const auto& convention : conventions)
        types.removeAll(convention);
    return types;
}

class CopyToPasteboard : public testing::Test {
protected:
    void TearDown() override { Clipboard::general().clear(); }
};

TEST_F(CopyToPasteboard, PutsTheFileAndThenItsBytesThere)
{
    ClipboardExporter::copyToPasteboard(clipFile, "GIF89a");
    EXPECT_EQ(offeredTypes(), QStringList({"text/uri-list", "image/gif"}));
    EXPECT_EQ(test::pasted("text/uri-list"), "file:///a%20clip.gif\r\n");
    EXPECT_EQ(test::pasted("image/gif"), "GIF89a");
}

TEST_F(CopyToPasteboard, WithoutBytesPutsOnlyTheFileThere)
{
    ClipboardExporter::copyToPasteboard(clipFile, "the clip before");
    ClipboardExporter::copyToPasteboard(clipFile, std::nullopt);
    EXPECT_EQ(offeredTypes(), QStringList("text/uri-list"));
    EXPECT_EQ(test::pasted("text/uri-list"), "file:///a%20clip.gif\r\n");
    EXPECT_EQ(Clipboard::general().state(), Clipboard::State::Accepted);
}

TEST(ClipMimeData, HoldsOnlyTheFileWithoutBytes)
{
    const std::unique_ptr<QMimeData> content(makeMimeData(clipFile, std::nullopt));
    EXPECT_EQ(content->formats(), QStringList("text/uri-list"));
    EXPECT_EQ(content->urls(), QList<QUrl>{clipFile});
}

} // namespace
} // namespace quillbox
