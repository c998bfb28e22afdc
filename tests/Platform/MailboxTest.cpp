#include "Platform/Mailbox.h"

#include "Platform/QtArguments.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <memory>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

class MailboxTest : public testing::Test {
protected:
    /// Turns the event loop until nothing waits in it.
    static void turnEventLoop() { QCoreApplication::processEvents(); }

    QCoreApplication application{QtArguments::count, QtArguments::values};
    QObject receiver;
    int calls = 0;
    std::optional<Mailbox<int>> mailbox{std::in_place, receiver, [this] {
                                            ++calls;
                                        }};
};

TEST_F(MailboxTest, GivesWhatWasSentInOrder)
{
    const auto sender = mailbox->sender();
    std::thread([&sender] {
        for (const int value : {1, 2, 3})
            sender.send(value);
    }).join();
    EXPECT_EQ(calls, 0) << "nobody is called on another thread";
    turnEventLoop();
    EXPECT_EQ(calls, 1) << "once for all three";
    EXPECT_EQ(mailbox->take(), (std::vector{1, 2, 3}));
    EXPECT_EQ(mailbox->take(), std::vector<int>());
}

TEST_F(MailboxTest, KeepsTheLatestValueIfOnlyThatCounts)
{
    const auto sender = mailbox->sender();
    for (const int value : {1, 2, 3})
        sender.sendLatest(value);
    turnEventLoop();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(mailbox->take(), std::vector{3});
}

TEST_F(MailboxTest, WakesItsReceiverWithoutAValue)
{
    mailbox->sender().wake();
    turnEventLoop();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(mailbox->take(), std::vector<int>());
}

TEST_F(MailboxTest, NeverFillsTheEventLoop)
{
    const auto sender = mailbox->sender();
    for (int value = 0; value < 100; ++value) {
        sender.send(value);
        EXPECT_EQ(mailbox->take(), std::vector{value}); // the announcement still waits
    }
    turnEventLoop();
    EXPECT_EQ(calls, 1);
}

TEST_F(MailboxTest, AnnouncesAgainWhatComesAfterTheAnnouncement)
{
    const auto sender = mailbox->sender();
    sender.send(1);
    turnEventLoop();
    sender.send(2);
    turnEventLoop();
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(mailbox->take(), (std::vector{1, 2}));
}

TEST_F(MailboxTest, DropsWhatComesOnceItIsGone)
{
    const auto sender = mailbox->sender();
    const auto value = std::make_shared<int>(7);
    std::optional<Mailbox<std::shared_ptr<int>>> other(std::in_place, receiver, [] {});
    const auto otherSender = other->sender();
    otherSender.send(value);
    other.reset();
    otherSender.send(value);
    EXPECT_EQ(value.use_count(), 1);
    sender.send(1);
    mailbox.reset(); // while an announcement waits
    sender.send(2);
    turnEventLoop();
    EXPECT_EQ(calls, 0);
}

/// Sends as it goes.
struct Farewell {
    using Sender = Mailbox<std::shared_ptr<Farewell>>::Sender;

    explicit Farewell(Sender to)
        : sender(std::move(to))
    {
    }
    Farewell(const Farewell&) = delete;
    Farewell& operator=(const Farewell&) = delete;
    ~Farewell() { sender.wake(); }

    Sender sender;
};

TEST_F(MailboxTest, DropsValuesThatSendAsTheyGo)
{
    std::optional<Mailbox<std::shared_ptr<Farewell>>> other(std::in_place, receiver, [] {});
    const auto sender = other->sender();
    sender.send(std::make_shared<Farewell>(sender));
    sender.sendLatest(std::make_shared<Farewell>(sender));
    other.reset(); // without waiting for itself
    turnEventLoop();
}

TEST_F(MailboxTest, MayBeDestroyedByItsCallback)
{
    std::optional<Mailbox<int>> other;
    other.emplace(receiver, [&other] { other.reset(); });
    const auto sender = other->sender();
    sender.send(1);
    turnEventLoop();
    EXPECT_FALSE(other);
    sender.send(2);
    turnEventLoop();
}

TEST_F(MailboxTest, TakesValuesFromSeveralThreads)
{
    constexpr int each = 500;
    std::vector<std::thread> threads;
    for (int number = 0; number < 3; ++number) {
        threads.emplace_back([sender = mailbox->sender()] {
            for (int i = 0; i < each; ++i)
                sender.send(i);
        });
    }
    std::vector<int> taken;
    while (taken.size() < 3 * each) {
        turnEventLoop();
        const auto some = mailbox->take();
        taken.insert(taken.end(), some.begin(), some.end());
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(taken.size(), 3U * each);
}

} // namespace
} // namespace quillbox
