// What recording costs: a screen that stands still, and one that changes all over sixty times a second. Needs an X11
// display; prints a Markdown table.   CaptureCost [SECONDS [WIDTH HEIGHT]]
#include "Capture/StreamRecorder.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>
#include <QCoro/QCoroTimer>

#include <xcb/xcb.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

using namespace quillbox;

/// Fills the screen with a new colour sixty times a second until killed.
[[noreturn]] void paint()
{
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const xcb_window_t window = xcb_generate_id(connection);
    const std::uint32_t bypassWindowManager = 1;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, screen->width_in_pixels,
        screen->height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
        &bypassWindowManager);
    xcb_map_window(connection, window);
    const xcb_gcontext_t context = xcb_generate_id(connection);
    xcb_create_gc(connection, context, window, 0, nullptr);
    const xcb_rectangle_t everything{0, 0, screen->width_in_pixels, screen->height_in_pixels};
    auto next = std::chrono::steady_clock::now();
    for (std::uint32_t color = 0;; color += 0x010305) {
        xcb_change_gc(connection, context, XCB_GC_FOREGROUND, &color);
        xcb_poly_fill_rectangle(connection, window, context, 1, &everything);
        xcb_flush(connection);
        next += std::chrono::microseconds(16'667);
        std::this_thread::sleep_until(next);
    }
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
    const auto frames = co_await recorder.stop();
    std::size_t repeated = 0;
    for (std::size_t i = 1; i < frames.size(); ++i)
        if (frames[i].sharesPixels(frames[i - 1]))
            ++repeated;
    std::printf("| %s | %lldx%lld | %.1f | %zu | %zu | %.2f |\n", name, static_cast<long long>(region.width),
        static_cast<long long>(region.height), wall, frames.size(), repeated, 100 * cpu / wall);
}

QCoro::Task<> measureBoth(CaptureRegion region, std::chrono::seconds duration, int& status)
{
    try {
        co_await measure("still", region, duration);
        const pid_t painter = fork();
        if (painter == 0)
            paint();
        co_await QCoro::sleepFor(std::chrono::seconds(1)); // until it paints at its own pace
        co_await measure("all in motion", region, duration);
        (void)kill(painter, SIGKILL); // it has nothing to lose
        (void)waitpid(painter, nullptr, 0);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "CaptureCost: %s\n", error.what());
        status = EXIT_FAILURE;
    }
    QCoreApplication::quit();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const std::chrono::seconds duration(argc > 1 ? std::atoi(argv[1]) : 5);
    const CaptureRegion region{0, 0, argc > 3 ? std::atoi(argv[2]) : 1920, argc > 3 ? std::atoi(argv[3]) : 1080};
    std::puts("| Screen | Region | Seconds | Frames | Without a new picture | CPU, % of one core |");
    std::puts("|---|---|---|---|---|---|");
    int status = EXIT_SUCCESS;
    auto running = measureBoth(region, duration, status);
    QCoreApplication::exec();
    return status;
}
