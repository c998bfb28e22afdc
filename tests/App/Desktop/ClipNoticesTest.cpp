#include "App/Desktop/ClipNotices.h"

#include "CoordinatorFixture.h"
#include "FakeNotifications.h"

#include "App/Workflow/CurrentCoordinator.h"
#include "PostCapture/FileReveal.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

class RememberedReveal : public FileReveal {
public:
    void reveal(const QString& path) override { revealed.append(path); }
    QStringList revealed;
};

class ClipNoticesTest : public testing::Test {
protected:
    void TearDown() override
    {
        ClipNotices(m_coordinator, m_reveal, [] { return false; }).setOn(true);
    }

    void record()
    {
        m_coordinator.begin();
        m_fixture.selector->select(test::someRegion);
        ASSERT_TRUE(m_coordinator.isIn<RecordingCoordinator::Recording>());
    }
    void finish()
    {
        record();
        m_coordinator.stop();
        ASSERT_TRUE(test::eventually([this] { return !m_coordinator.isBusy(); }));
    }
    bool isShown(std::size_t count)
    {
        return test::eventually([&] { return m_desktop.shown.size() == count; });
    }

    test::FakeNotifications m_desktop;
    test::CoordinatorFixture m_fixture;
    CurrentCoordinator m_coordinator{std::move(m_fixture.coordinator)};
    RememberedReveal m_reveal;
    bool m_isPanelOpen = false;
    ClipNotices m_notices{m_coordinator, m_reveal, [this] {
                              return m_isPanelOpen;
                          }};
};

TEST_F(ClipNoticesTest, OffersToShowAClipThatIsDone)
{
    finish();
    ASSERT_TRUE(isShown(1));
    EXPECT_EQ(m_desktop.shown[0].title, "The clip is ready to paste");
    EXPECT_EQ(m_desktop.shown[0].actions, (QStringList{"default", "Show", "show", "Show"}));
    const auto path = std::get<RecordingCoordinator::Done>(m_coordinator.phase()).path;
    EXPECT_TRUE(m_desktop.shown[0].text.startsWith(path.section('/', -1) + " · "));
    ASSERT_TRUE(test::eventually([&] { // the answer with the number of the message may still be on its way
        m_desktop.press(1, "show");
        return !m_reveal.revealed.empty();
    }));
    EXPECT_EQ(m_reveal.revealed.first(), path);
}

TEST_F(ClipNoticesTest, SaysWhyThereIsNoClip)
{
    m_fixture.recorder->frames.clear();
    finish();
    ASSERT_TRUE(isShown(1));
    EXPECT_EQ(m_desktop.shown[0].title, "No clip was made");
    EXPECT_EQ(m_desktop.shown[0].text, "No frames captured.");
}

TEST_F(ClipNoticesTest, SaysNothingWhileThePanelIsOpenOrItIsSwitchedOff)
{
    m_isPanelOpen = true;
    finish();
    m_isPanelOpen = false;
    m_notices.setOn(false);
    finish();
    m_notices.tellOfEarlyEnd("The disk is full");
    m_notices.tellOfRemains();
    EXPECT_FALSE(ClipNotices(m_coordinator, m_reveal, [] { return false; }).isOn()) << "it is remembered";
    m_notices.setOn(true);
    m_notices.tellOfEarlyEnd("The disk is full");
    ASSERT_TRUE(test::eventually([this] { return !m_desktop.shown.empty(); }));
    EXPECT_EQ(m_desktop.shown[0].title, "The recording ended early") << "messages arrive in order";
}

TEST_F(ClipNoticesTest, SaysThatTheSelectionMayBeInTheClip)
{
    m_notices.tellOfRemains();
    ASSERT_TRUE(isShown(1));
    EXPECT_EQ(m_desktop.shown[0].title, "The clip may begin with remains of the selection");
    EXPECT_EQ(m_desktop.shown[0].text, "The desktop took more than two seconds to remove them from the screen.");
}

} // namespace
} // namespace quillbox
