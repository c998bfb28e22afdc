#pragma once

#include "Capture/StreamRecorder.h"

#include "ScriptedStream.h"
#include "support/Await.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace quillbox::test {

using Frames = std::vector<RGBAFrame>;

inline constexpr CaptureRegion recordedRegion{1, 2, 30, 40};

inline RGBAFrame frame(std::uint8_t number)
{
    return RGBAFrame::ofBands(1, 1, {std::make_shared<const PixelBand>(Bytes{number, number, number, 255})});
}

inline std::vector<int> numbers(const Frames& frames)
{
    std::vector<int> result;
    for (const RGBAFrame& each : frames)
        result.push_back(each.pixels()[0]);
    return result;
}

inline std::vector<int> numbers(const Recording& recording)
{
    return numbers(recording.frames());
}

/// A recorder whose streams and clock are made up.
struct RecorderFixture {
    std::shared_ptr<Script> script = std::make_shared<Script>(); // of the next stream
    int streams = 0;
    std::shared_ptr<CaptureClock::time_point> now = std::make_shared<CaptureClock::time_point>();
    std::unique_ptr<StreamRecorder> recorder;

    explicit RecorderFixture(std::optional<FrameSpill::Limits> limits = std::nullopt,
        std::optional<RecordingJournal::Options> journal = std::nullopt)
        : recorder(std::make_unique<StreamRecorder>(
            [this] {
                ++streams;
                return std::make_unique<ScriptedStream>(script);
            },
            [now = now] { return *now; }, limits, std::move(journal)))
    {
    }
    RecorderFixture(const RecorderFixture&) = delete;
    RecorderFixture& operator=(const RecorderFixture&) = delete;

    void start() { await(recorder->start(recordedRegion)); }
    Frames stop() { return stopRecording().frames(); }
    Recording stopRecording() { return await(recorder->stop()); }
    /// Time goes on by one tick.
    void tick() { *now += std::chrono::nanoseconds(1'000'000'000 / 30 + 1); }
    /// The stream delivers a picture now, from a thread of its own.
    void deliver(std::uint8_t number) const
    {
        std::thread([&] { script->sink.frame(frame(number), *now); }).join();
    }
    void end(const char* reason) const
    {
        std::thread([&] { script->sink.ended(CaptureError(CaptureError::Reason::DisplayGone, reason)); }).join();
    }
    /// A recording of two frames, 1 and 2, still running.
    void recordTwo()
    {
        start();
        deliver(1);
        tick();
        deliver(2);
        tick();
    }
};

} // namespace quillbox::test
