#include "App/Desktop/LastingNotification.h"

#include "CoordinatorFixture.h"
#include "FakeNotifications.h"

#include <gtest/gtest.h>

#include <memory>

namespace quillbox {
namespace {

class LastingNotificationTest : public testing::Test {
protected:
    /// Nothing arrives in the next test.
    void TearDown() override
    {
        m_message.reset();
        EXPECT_TRUE(test::eventually([this] { return m_desktop.closed.size() == m_desktop.shown.size(); }));
    }

    void show()
    {
        m_message
            = std::make_unique<LastingNotification>("It goes on", "A button ends it.", "End", [this] { ++m_presses; });
        ASSERT_TRUE(test::eventually([this] { return m_desktop.shown.size() == 1; }));
    }
    /// The answer with the number of the message may still be on its way.
    bool pressEventually(const QString& action)
    {
        return test::eventually([&] {
            m_desktop.press(1, action);
            return m_presses > 0;
        });
    }

    test::FakeNotifications m_desktop;
    std::unique_ptr<LastingNotification> m_message;
    int m_presses = 0;
};

TEST_F(LastingNotificationTest, StaysInTheListWithoutABannerAndHasAButton)
{
    show();
    const auto& message = m_desktop.shown[0];
    EXPECT_EQ(message.title, "It goes on");
    EXPECT_EQ(message.text, "A button ends it.");
    EXPECT_EQ(message.actions, (QStringList{"default", "End", "act", "End"}));
    EXPECT_EQ(message.lifetime, 0);
    EXPECT_EQ(message.hints["urgency"].toInt(), 0);
    EXPECT_EQ(message.hints["urgency"].userType(), QMetaType::UChar);
    EXPECT_TRUE(message.hints["resident"].toBool());
}

TEST_F(LastingNotificationTest, DoesWhatTheButtonSays)
{
    show();
    EXPECT_TRUE(pressEventually("act"));
    EXPECT_TRUE(m_desktop.closed.empty());
}

TEST_F(LastingNotificationTest, AClickOnTheMessageDoesTheSame)
{
    show();
    EXPECT_TRUE(pressEventually("default"));
}

TEST_F(LastingNotificationTest, GoesWithItsObject)
{
    show();
    ASSERT_TRUE(pressEventually("act"));
    m_message.reset();
    ASSERT_TRUE(test::eventually([this] { return !m_desktop.closed.empty(); }));
    EXPECT_EQ(m_desktop.closed, std::vector<std::uint32_t>{1});
}

TEST_F(LastingNotificationTest, GoesWithItsObjectAlsoIfTheDesktopAnswersLater)
{
    m_message = std::make_unique<LastingNotification>("It goes on", "", "End", [] {});
    m_message.reset();
    ASSERT_TRUE(test::eventually([this] { return !m_desktop.closed.empty(); }));
    EXPECT_EQ(m_desktop.closed, std::vector<std::uint32_t>{1});
}

TEST_F(LastingNotificationTest, PassesOverWhatIsPressedOnAnotherMessage)
{
    show();
    ASSERT_TRUE(pressEventually("act"));
    int pressesOfAnother = 0;
    const LastingNotification another("It goes on, too", "", "End", [&] { ++pressesOfAnother; });
    ASSERT_TRUE(test::eventually([this] { return m_desktop.shown.size() == 2; }));
    m_presses = 0;
    EXPECT_TRUE(pressEventually("act")); // the first one's
    EXPECT_EQ(pressesOfAnother, 0);
    ASSERT_TRUE(test::eventually([&] {
        m_desktop.press(2, "act");
        return pressesOfAnother > 0;
    }));
}

} // namespace
} // namespace quillbox
