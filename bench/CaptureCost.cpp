// What recording costs: a screen that stands still, one on which somebody types and now and then scrolls a window, and
// one that changes all over sixty times a second. Needs an X11 display; prints a Markdown table.
//
//     capture-cost [--busy] [SECONDS [WIDTH HEIGHT]]
//
// With --busy another process keeps one core busy meanwhile. Cost is the processor time of the recording process, all
// of its threads; while everything moves, a frame without a new picture is a tick that was missed.
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
#include <optional>
#include <random>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace quillbox;

/// A window over the whole screen, for a process of its own.
struct Canvas {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    xcb_window_t window = xcb_generate_id(connection);
    xcb_gcontext_t context = xcb_generate_id(connection);

    Canvas()
    {
        const std::uint32_t values[]{screen->white_pixel, 1}; // no window manager sees it
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, screen->width_in_pixels,
            screen->height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
            XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
        xcb_map_window(connection, window);
        xcb_create_gc(connection, context, window, 0, nullptr);
        xcb_flush(connection);
    }

    void fill(xcb_rectangle_t area, std::uint32_t color) const
    {
        xcb_change_gc(connection, context, XCB_GC_FOREGROUND, &color);
        xcb_poly_fill_rectangle(connection, window, context, 1, &area);
    }
};

/// Ten letters a second; once a second a window of a third of the screen scrolls by a line in each of five ticks.
[[noreturn]] void work()
{
    const Canvas canvas;
    const auto width = static_cast<std::int16_t>(canvas.screen->width_in_pixels);
    const auto height = static_cast<std::int16_t>(canvas.screen->height_in_pixels);
    const auto paneWidth = static_cast<std::uint16_t>(width / 2);
    const auto paneHeight = static_cast<std::uint16_t>(height * 2 / 3);
    std::minstd_rand random; // the same letters each time
    for (std::int16_t y = 0; y < height; y = static_cast<std::int16_t>(y + 18)) {
        for (std::int16_t x = 0; x < width; x = static_cast<std::int16_t>(x + 9))
            canvas.fill({x, y, static_cast<std::uint16_t>(random() % 8), 11}, 0x303030);
    }
    auto next = std::chrono::steady_clock::now();
    for (int tick = 0;; ++tick) {
        if (tick % 3 == 0)
            canvas.fill({static_cast<std::int16_t>(width / 2 + tick * 3 % (width / 2 - 10)),
                            static_cast<std::int16_t>(height - 60), 7, 11},
                random() & 0xFFFFFFU);
        if (tick % 30 < 5)
            xcb_copy_area(
                canvas.connection, canvas.window, canvas.window, canvas.context, 0, 18, 0, 0, paneWidth, paneHeight);
        xcb_flush(canvas.connection);
        next += std::chrono::microseconds(33'333);
        std::this_thread::sleep_until(next);
    }
}

/// Another picture sixty times a second.
[[noreturn]] void move()
{
    const Canvas canvas;
    auto next = std::chrono::steady_clock::now();
    for (std::uint32_t color = 0;; color += 0x010305) {
        canvas.fill({0, 0, canvas.screen->width_in_pixels, canvas.screen->height_in_pixels}, color);
        xcb_flush(canvas.connection);
        next += std::chrono::microseconds(16'667);
        std::this_thread::sleep_until(next);
    }
}

[[noreturn]] void keepBusy()
{
    for (volatile std::uint64_t count = 0;;)
        count = count + 1;
}

/// A process of its own that does `job` until it is killed.
class Child {
public:
    explicit Child(void (*job)())
        : m_process(fork())
    {
        if (m_process == 0) {
            job();
            std::_Exit(EXIT_SUCCESS);
        }
    }
    ~Child()
    {
        (void)kill(m_process, SIGKILL); // it has nothing to lose
        (void)waitpid(m_process, nullptr, 0);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

private:
    pid_t m_process;
};

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

struct Load {
    const char* name;
    void (*job)();
};

QCoro::Task<> measureAll(CaptureRegion region, std::chrono::seconds duration, int& status)
{
    try {
        co_await measure("still", region, duration);
        const Load loads[]{{"ordinary work", work}, {"all in motion", move}};
        for (const Load& load : loads) {
            const Child painter(load.job);
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
    std::optional<Child> competitor;
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
