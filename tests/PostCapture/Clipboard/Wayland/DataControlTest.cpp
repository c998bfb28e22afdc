// Runs on a real Wayland desktop that the caller starts: see CMakeLists.txt above it.
#include "PostCapture/Clipboard/Wayland/DataControl.h"

#include "PostCapture/Clipboard/Pasting.h"

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using test::outputOf;
using test::pasted;

class DataControlTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_control = DataControl::open();
        ASSERT_TRUE(m_control);
        QObject::connect(m_control.get(), &DataControl::lost, m_control.get(), [this] { ++m_losses; });
    }
    /// Puts the forms there, and has the compositor know.
    void own(const std::vector<MimeItem>& forms)
    {
        m_control->own(forms);
        ASSERT_TRUE(m_control->owns());
    }

    std::unique_ptr<DataControl> m_control;
    int m_losses = 0;
};

const std::vector<MimeItem> uriAndPicture{{"text/uri-list", "file:///clip.gif\r\n"}, {"image/gif", "GIF89a"}};

TEST_F(DataControlTest, OwnsNothingByItself)
{
    EXPECT_TRUE(m_control->isConnected());
    EXPECT_FALSE(m_control->owns());
    EXPECT_STREQ(DataControl::offered(), "zwlr_data_control_manager_v1");
}

TEST_F(DataControlTest, OffersItsItemsInTheirOrderAndNothingElse)
{
    own(uriAndPicture);
    EXPECT_EQ(outputOf({"wl-paste", "--list-types"}), "text/uri-list\nimage/gif\n");
}

TEST_F(DataControlTest, GivesEachItemByteForByte)
{
    const QByteArray withZeros("G\0I\0F", 5);
    own({{"image/gif", withZeros}, {"text/uri-list", "file:///clip.gif\r\n"}});
    EXPECT_EQ(pasted("image/gif"), withZeros);
    EXPECT_EQ(pasted("text/uri-list"), "file:///clip.gif\r\n");
    EXPECT_EQ(pasted("image/gif"), withZeros) << "again";
}

TEST_F(DataControlTest, GivesALongItemToSeveralProgramsAtATime)
{
    QByteArray picture(20'000'000, '\0'); // far more than a pipe holds
    for (qsizetype i = 0; i < picture.size(); ++i)
        picture[i] = static_cast<char>(i * 7 + i / 251);
    own({{"image/gif", picture}});
    std::vector<std::future<std::string>> readers;
    for (int i = 0; i < 3; ++i)
        readers.push_back(test::startedProgram({"wl-paste", "--no-newline", "--type", "image/gif"}));
    for (auto& reader : readers)
        EXPECT_TRUE(outputOf(std::move(reader)) == picture);
}

TEST_F(DataControlTest, SurvivesAProgramThatGoesAwayMidway)
{
    own({{"image/gif", QByteArray(20'000'000, 'x')}});
    EXPECT_EQ(outputOf({"sh", "-c", "wl-paste --no-newline --type image/gif | head --bytes=1"}), "x");
    own(uriAndPicture);
    EXPECT_EQ(pasted("image/gif"), "GIF89a");
}

TEST_F(DataControlTest, GivesWhatWasPutThereLast)
{
    own(uriAndPicture);
    own({{"text/uri-list", "file:///other.gif\r\n"}});
    EXPECT_EQ(outputOf({"wl-paste", "--list-types"}), "text/uri-list\n");
    EXPECT_EQ(pasted("text/uri-list"), "file:///other.gif\r\n");
    EXPECT_TRUE(m_control->owns());
    EXPECT_EQ(m_losses, 0);
}

TEST_F(DataControlTest, TellsOnceThatAnotherProgramHasTakenIt)
{
    own(uriAndPicture);
    (void)outputOf({"wl-copy", "another program's"});
    EXPECT_TRUE(test::eventually([this] { return m_losses > 0; }));
    EXPECT_FALSE(m_control->owns());
    EXPECT_TRUE(m_control->isConnected());
    m_control->disown(); // what is not ours stays
    EXPECT_EQ(outputOf({"wl-paste", "--no-newline"}), "another program's");
    EXPECT_EQ(m_losses, 1);
}

TEST_F(DataControlTest, TakesItBack)
{
    own(uriAndPicture);
    (void)outputOf({"wl-copy", "another program's"});
    EXPECT_TRUE(test::eventually([this] { return !m_control->owns(); }));
    own(uriAndPicture);
    EXPECT_EQ(pasted("image/gif"), "GIF89a");
}

TEST_F(DataControlTest, EmptiesTheClipboard)
{
    own(uriAndPicture);
    EXPECT_EQ(pasted("image/gif"), "GIF89a");
    m_control->disown();
    EXPECT_FALSE(m_control->owns());
    EXPECT_EQ(outputOf({"wl-paste", "--list-types"}), "");
    EXPECT_EQ(m_losses, 0) << "nobody took it";
}

TEST_F(DataControlTest, EmptiesTheClipboardAtItsEnd)
{
    own(uriAndPicture);
    EXPECT_EQ(pasted("image/gif"), "GIF89a");
    m_control.reset();
    EXPECT_EQ(outputOf({"wl-paste", "--list-types"}), "");
}

TEST(DataControl, IsNotThereWithoutACompositor)
{
    const auto before = qgetenv("WAYLAND_DISPLAY");
    qputenv("WAYLAND_DISPLAY", "wayland-of-nobody");
    EXPECT_EQ(DataControl::offered(), nullptr);
    EXPECT_EQ(DataControl::open(), nullptr);
    qputenv("WAYLAND_DISPLAY", before);
}

} // namespace
} // namespace quillbox
