#include "HistoryFixture.h"

#include "PostCapture/HistoryFile.h"

#include <atomic>
#include <semaphore>
#include <thread>

namespace quillbox {
namespace {

using test::clip;
using test::HistoryStoreTest;
using test::paths;
using test::Store;

/// A disk that answers no fdatasync() until it is told to.
class HangingDisk {
public:
    HangingDisk()
    {
        support::systemCalls().fdatasync = [this](int descriptor) {
            ++m_count;
            m_isAsked.release();
            // Where the caller is the one who ends it, it waits in vain.
            EXPECT_TRUE(m_answers.try_acquire_for(std::chrono::seconds(20))) << "nobody else goes on meanwhile";
            return support::realSystemCalls().fdatasync(descriptor);
        };
    }
    void awaitCall() { m_isAsked.acquire(); }
    void answer(int count) { m_answers.release(count); }
    [[nodiscard]] int count() const { return m_count; }

private:
    std::counting_semaphore<> m_isAsked{0};
    std::counting_semaphore<> m_answers{0};
    std::atomic<int> m_count{0};
};

TEST_F(HistoryStoreTest, DoesNotHoldUpTheEventLoopWhileTheDiskHangs)
{
    HangingDisk disk;
    HistoryStore store(url());
    store.record(clip(1));
    disk.awaitCall();
    store.record(clip(2));
    store.remove(store.entries().back().id);
    store.record(clip(3));
    EXPECT_EQ(paths(store.entries()), (std::vector<QString>{"/clips/3.gif", "/clips/2.gif"}));
    EXPECT_FALSE(std::filesystem::exists(file()));
    EXPECT_EQ(disk.count(), 1) << "one behind the other";
    disk.answer(4);
    ASSERT_TRUE(FileWorker::finish(std::chrono::minutes(1)));
    EXPECT_EQ(disk.count(), 4);
    EXPECT_EQ(HistoryFile::decode(written()), store.entries());
}

TEST_F(HistoryStoreTest, IsWrittenBeforeTheProgramEnds)
{
    HangingDisk disk;
    std::jthread someTime;
    {
        HistoryStore store(url());
        store.record(clip(1));
        someTime = std::jthread([&disk] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            disk.answer(1);
        });
    }
    EXPECT_EQ(HistoryFile::decode(written()).value().size(), 1U);
}

TEST_F(HistoryStoreTest, TellsWhatOthersHaveRecordedOnceTheDiskAnswers)
{
    HistoryStore store(url());
    Store(url()).record(clip(1));
    HangingDisk disk;
    store.record(clip(2));
    disk.awaitCall();
    store.record(clip(3));
    EXPECT_EQ(paths(store.entries()), (std::vector<QString>{"/clips/3.gif", "/clips/2.gif"}));
    int changes = 0;
    QObject::connect(&store, &HistoryStore::entriesChanged, &store, [&] { ++changes; });
    disk.answer(1);
    disk.awaitCall(); // the first is written
    QCoreApplication::sendPostedEvents(&store);
    EXPECT_EQ(changes, 0);
    disk.answer(1);
    ASSERT_TRUE(FileWorker::finish(std::chrono::minutes(1)));
    QCoreApplication::sendPostedEvents(&store);
    EXPECT_EQ(paths(store.entries()), (std::vector<QString>{"/clips/3.gif", "/clips/2.gif", "/clips/1.gif"}));
    EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace quillbox
