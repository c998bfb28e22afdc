// What a long recording takes up: records a screen with ordinary work on it, one all in motion, or one that shows
// noise, and makes the GIF. Needs an X11 display; prints one JSON object. Memory is the most that was resident, of this
// process, in megabytes; times are in seconds.
//
//     long-recording work|motion|noise SECONDS [slack|github|docs [WIDTH HEIGHT]]
#include "Painters.h"

#include "Capture/Spill/ByteSpill.h"
#include "Capture/Spill/FrameSpill.h"
#include "Capture/StreamRecorder.h"
#include "Encoding/GIFOptimizer.h"
#include "Platform/ProcessMemory.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>
#include <QCoro/QCoroTimer>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace {

using namespace quillbox;
using Clock = std::chrono::steady_clock;

double seconds(Clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

/// A line of /proc/self/status, in megabytes.
double statusMegabytes(std::string_view name)
{
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(name))
            return std::atof(line.c_str() + name.size() + 1) * 1024 / 1e6;
    }
    return 0;
}

struct Order {
    void (*job)();
    std::chrono::seconds duration;
    ExportPreset preset;
    CaptureRegion region;
};

QCoro::Task<> measure(Order order, int& status)
{
    try {
        const bench::Child painter(order.job);
        StreamRecorder recorder;
        QString interruption;
        QObject::connect(&recorder, &StreamRecorder::interrupted, &recorder,
            [&interruption](const QString& reason) { interruption = reason; });
        co_await recorder.start(order.region);
        co_await QCoro::sleepFor(order.duration);
        const auto stopped = Clock::now();
        const auto recording = co_await recorder.stop();
        const FrameReducer& reducer = recording.reduced();
        const auto known = Clock::now();
        const double recordingPeak = statusMegabytes("VmHWM");
        GIFOptimizer::Config config;
        config.preset = order.preset;
        config.sourceFPS = 30;
        ByteSpill spill(FrameSpill::usualLimits().diskSpaceToLeave, FrameSpill::usualFolder());
        GIFOptimizer::Execution execution;
        execution.store = [&spill](std::span<const std::uint8_t> bytes) {
            return spill.store(bytes);
        };
        const auto made = GIFOptimizer::optimizeInPieces(reducer, config, execution);
        const auto& result = made.clip;
        const auto done = Clock::now();
        std::printf(
            "{\"frames\": %zu, \"recordingPeak\": %.1f, \"wholePeak\": %.1f, \"settle\": %.2f, \"optimize\": %.1f, "
            "\"fileBytes\": %lld, \"bytes\": %lld, \"gifFrames\": %lld, \"interruption\": \"%s\"}\n",
            recording.frames().size(), recordingPeak, statusMegabytes("VmHWM"), seconds(known - stopped),
            seconds(done - known), static_cast<long long>(recording.fileBytes()),
            static_cast<long long>(result.byteCount), static_cast<long long>(result.frameCount),
            interruption.toUtf8().constData());
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "long-recording: %s\n", error.what()); // nothing is left to do if that fails
        status = EXIT_FAILURE;
    }
    QCoreApplication::quit();
}

} // namespace

int main(int argc, char** argv)
{
    quillbox::preferHugePages();
    QCoreApplication application(argc, argv);
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const auto preset = ExportPreset::fromRawValue(argc > 3 ? arguments[3] : "slack");
    const std::map<std::string_view, void (*)()> screens{
        {"work", bench::work}, {"motion", bench::move}, {"noise", bench::flicker}};
    const auto screen = screens.find(argc > 1 ? arguments[1] : "");
    if (argc < 3 || screen == screens.end() || !preset) {
        (void)std::fputs("usage: long-recording work|motion|noise SECONDS [PRESET [WIDTH HEIGHT]]\n", stderr);
        return 2;
    }
    const auto number = [&](std::size_t index, int otherwise) {
        return index < arguments.size() ? std::atoi(arguments[index]) : otherwise;
    };
    int status = EXIT_SUCCESS;
    auto running = measure({.job = screen->second,
                               .duration = std::chrono::seconds(number(2, 0)),
                               .preset = *preset,
                               .region = {0, 0, number(4, 1920), number(5, 1080)}},
        status);
    QCoreApplication::exec();
    return status;
}
