// What recording costs: a screen that stands still, one on which somebody types and now and then scrolls a window, and
// one that changes all over sixty times a second. Needs an X11 display, or a Wayland desktop of tests/desktop; prints a
// Markdown table.
//
//     capture-cost [--busy] [SECONDS [WIDTH HEIGHT]]
//
// With --busy another process keeps one core busy meanwhile. Cost is the processor time of the recording process, all
// of its threads; while everything moves, a frame without a new picture is a tick that was missed.
#include "Painters.h"

#include "Capture/CaptureBackEnd.h"
#include "Capture/StreamRecorder.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>
#include <QCoro/QCoroTimer>

#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

namespace {

using namespace quillbox;

[[noreturn]] void keepBusy()
{
    for (volatile std::uint64_t count = 0;;)
        count = count + 1;
}

double cpuSeconds()
{
    rusage usage{};
    (void)getrusage(RUSAGE_SELF, &usage); // cannot fail
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

QCoro::Task<> measure(const char* name, CaptureRegion region, std::chrono::seconds duration)
{
    StreamRecorder recorder;
    co_await recorder.start(region);
    const double cpuBefore = cpuSeconds();
    const auto wallBefore = std::chrono::steady_clock::now();
    co_await QCoro::sleepFor(duration);
    const double cpu = cpuSeconds() - cpuBefore;
    const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - wallBefore).count();
    const auto recording = co_await recorder.stop();
    const auto& frames = recording.frames();
    std::size_t repeated = 0;
    for (std::size_t i = 1; i < frames.size(); ++i)
        if (frames[i].sharesPixels(frames[i - 1]))
            ++repeated;
    std::printf("| %s | %lldx%lld | %.1f | %zu | %zu | %.2f |\n", name, static_cast<long long>(region.width),
        static_cast<long long>(region.height), wall, frames.size(), repeated, 100 * cpu / wall);
}

struct Load {
    const char* name;
    void (*job)();
};

/// Becomes the program that paints on a Wayland desktop.
[[noreturn]] void becomePainter(const char* what)
{
    (void)::execl(QUILLBOX_WAYLAND_PAINTER, QUILLBOX_WAYLAND_PAINTER, what, nullptr); // returns only if it is missing
    std::_Exit(EXIT_FAILURE);
}

[[noreturn]] void workOnWayland()
{
    becomePainter("work");
}

[[noreturn]] void moveOnWayland()
{
    becomePainter("move");
}

std::array<Load, 2> loads()
{
    const bool isWayland = chooseCapture().backEnd == CaptureBackEnd::Portal;
    return {{{"ordinary work", isWayland ? workOnWayland : bench::work},
        {"all in motion", isWayland ? moveOnWayland : bench::move}}};
}

QCoro::Task<> measureAll(CaptureRegion region, std::chrono::seconds duration, int& status)
{
    try {
        co_await measure("still", region, duration);
        for (const Load& load : loads()) {
            const bench::Child painter(load.job);
            co_await QCoro::sleepFor(std::chrono::seconds(1)); // until it paints at its own pace
            co_await measure(load.name, region, duration);
        }
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "capture-cost: %s\n", error.what()); // nothing is left to do if that fails
        status = EXIT_FAILURE;
    }
    QCoreApplication::quit();
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string_view> arguments(argv + 1, argv + argc);
    std::optional<bench::Child> competitor;
    if (!arguments.empty() && arguments.front() == "--busy") {
        competitor.emplace(keepBusy);
        arguments.erase(arguments.begin());
    }
    const auto number = [&arguments](std::size_t index, int otherwise) {
        return index < arguments.size() ? std::atoi(arguments[index].data()) : otherwise;
    };
    QCoreApplication application(argc, argv);
    const std::chrono::seconds duration(number(0, 5));
    const CaptureRegion region{0, 0, number(1, 1920), number(2, 1080)};
    std::puts("| Screen | Region | Seconds | Frames | Without a new picture | CPU, % of one core |");
    std::puts("|---|---|---|---|---|---|");
    int status = EXIT_SUCCESS;
    auto running = measureAll(region, duration, status);
    QCoreApplication::exec();
    return status;
}
