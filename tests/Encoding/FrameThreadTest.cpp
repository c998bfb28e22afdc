#include "Encoding/FrameThread.h"

#include "Encoding/FrameReducer.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/DistinctFrames.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

std::vector<RGBAFrame> grayFrames(int count)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < count; ++i)
        frames.push_back(support::solid(3, 2, support::gray(static_cast<std::uint8_t>(i))));
    return frames;
}

TEST(FrameThread, TakesInWhatAReducerWould)
{
    const auto frames = grayFrames(200);
    for (const std::size_t queue : {FrameThread<FrameReducer>::unlimited, std::size_t{1}, std::size_t{5}}) {
        FrameThread<FrameReducer> thread(FrameReducer::forAnyPreset(30), queue);
        for (const RGBAFrame& frame : frames)
            thread.take(frame);
        EXPECT_EQ(thread.takenCount(), 200);
        for (const ExportPreset preset : ExportPreset::allCases) {
            const GIFOptimizer::Config config{.preset = preset, .sourceFPS = 30, .ditheringOverride = {}};
            EXPECT_EQ(GIFOptimizer::optimize(thread.finished(), config), GIFOptimizer::optimize(frames, config));
        }
    }
}

TEST(FrameThread, MayBeAskedTwice)
{
    FrameThread<FrameReducer> thread(FrameReducer::forAnyPreset(30));
    thread.take(grayFrames(1).front());
    EXPECT_EQ(&thread.finished(), &thread.finished());
}

/// Frames of equal content, none of which shares its storage: a reducer soon lets go of all but the first. It is then
/// held up until the gate is open, so that what is handed over meanwhile waits for certain.
class HoldingFrames {
public:
    /// @param released  Counts the frames that the calling thread lets go of. It does not wait at the gate: it opens
    /// it.
    RGBAFrame frame(int& released)
    {
        const auto letGo = [this, &released, here = std::this_thread::get_id()](const Bytes* pixels) {
            delete pixels; // NOLINT(cppcoreguidelines-owning-memory): a deleter
            if (std::this_thread::get_id() == here) {
                ++released;
                open();
            } else {
                holdUp();
            }
        };
        return RGBAFrame::sharing(3, 2, std::shared_ptr<const Bytes>(new Bytes(3 * 2 * 4, 7), letGo));
    }

    /// Waits until the reducer is held up.
    [[nodiscard]] bool isHoldingUp()
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, limit, [this] { return m_isHoldingUp; });
    }

private:
    static constexpr std::chrono::seconds limit{20}; ///< after which a test fails rather than hangs

    void open()
    {
        const std::scoped_lock lock(m_mutex);
        m_isOpen = true;
        m_changed.notify_all();
    }

    void holdUp()
    {
        std::unique_lock lock(m_mutex);
        m_isHoldingUp = true;
        m_changed.notify_all();
        if (!m_changed.wait_for(lock, limit, [this] { return m_isOpen; }))
            m_isOpen = true; // once is enough
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isHoldingUp = false;
    bool m_isOpen = false;
};

TEST(FrameThread, DropsWhatIsStillWaitingWhenItIsGivenUp)
{
    HoldingFrames frames;
    int takenIn = 0;
    int dropped = 0;
    {
        FrameThread<FrameReducer> thread(FrameReducer::forAnyPreset(30));
        for (int i = 0; i < 5; ++i)
            thread.take(frames.frame(takenIn));
        ASSERT_TRUE(frames.isHoldingUp());
        for (int i = 0; i < 50; ++i)
            thread.take(frames.frame(dropped));
        ASSERT_EQ(dropped, 0);
    }
    EXPECT_EQ(dropped, 50) << "let go of by this thread, so none has been taken in";
}

TEST(FrameThread, KeepsNoFrameThatIsNotShown)
{
    std::vector<std::weak_ptr<const Bytes>> storage;
    FrameThread<FrameReducer> thread(FrameReducer::forAnyPreset(30));
    for (int i = 0; i < 100; ++i) {
        auto pixels = std::make_shared<const Bytes>(3 * 2 * 4, 7);
        storage.push_back(pixels);
        thread.take(RGBAFrame::sharing(3, 2, std::move(pixels)));
    }
    (void)thread.finished();
    const auto kept = std::ranges::count_if(storage, [](const auto& pixels) { return !pixels.expired(); });
    EXPECT_FALSE(storage.front().expired());
    EXPECT_LE(kept, 3) << "all equal the first; the last two have been compared with each other";
}

TEST(FrameThreadDeathTest, TakesNothingAfterTheEnd)
{
    const RGBAFrame frame = grayFrames(1).front();
    EXPECT_DEATH(
        {
            FrameThread<FrameReducer> thread(FrameReducer::forAnyPreset(30));
            (void)thread.finished();
            thread.take(frame);
        },
        "no frame follows the last one");
}

TEST(FrameThread, GivesDistinctFramesAsAppendingAllDoes)
{
    DistinctFrames plain({.sourceFPS = 30});
    FrameThread<DistinctFrames> thread(DistinctFrames({.sourceFPS = 30}), 1);
    for (int i = 0; i < 20; ++i) {
        plain.append(support::textLike(40, 30, i / 2));
        thread.take(support::textLike(40, 30, i / 2));
    }
    const auto& frames = thread.finished();
    EXPECT_EQ(frames.frameCount(), 20);
    EXPECT_EQ(frames.recording().pictures.size(), plain.recording().pictures.size());
    EXPECT_EQ(frames.recording().colors, plain.recording().colors);
}

TEST(FrameThread, PassesOnWhyAPictureCannotBeKept)
{
    FrameThread<DistinctFrames> thread(DistinctFrames({.onKept =
                                                           [](const RGBAFrame&) {
                                                               throw std::runtime_error("full");
                                                           }}),
        1);
    for (int i = 0; i < 5; ++i) // more than may wait: none of them blocks
        thread.take(support::solid(2, 2, support::gray(i)));
    EXPECT_THROW((void)thread.finished(), std::runtime_error);
}

TEST(FrameThread, OfDistinctFramesCanBeDroppedWithFramesUnderWay)
{
    FrameThread<DistinctFrames> thread(DistinctFrames({.sourceFPS = 30}), 8);
    for (int i = 0; i < 8; ++i)
        thread.take(support::solid(20, 20, support::gray(i)));
}

} // namespace
} // namespace quillbox
