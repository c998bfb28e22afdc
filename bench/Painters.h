#pragma once

#include <xcb/xcb.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <thread>
#include <vector>

/// What a screen may show while it is recorded.
namespace quillbox::bench {

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
[[noreturn]] inline void work()
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
[[noreturn]] inline void move()
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

/// Another picture sixty times a second, none of which can be compressed.
[[noreturn]] inline void flicker()
{
    const Canvas canvas;
    const std::uint16_t width = canvas.screen->width_in_pixels;
    const std::uint16_t height = canvas.screen->height_in_pixels;
    // Noise twice as large as the screen, of which each picture shows another part.
    const xcb_pixmap_t noise = xcb_generate_id(canvas.connection);
    xcb_create_pixmap(canvas.connection, canvas.screen->root_depth, noise, canvas.screen->root,
        static_cast<std::uint16_t>(2 * width), height);
    std::minstd_rand random;
    std::vector<std::uint32_t> row(2 * std::size_t{width});
    for (std::int16_t y = 0; y < height; ++y) {
        for (std::uint32_t& pixel : row)
            pixel = static_cast<std::uint32_t>(random()) & 0xFFFFFFU;
        xcb_put_image(canvas.connection, XCB_IMAGE_FORMAT_Z_PIXMAP, noise, canvas.context,
            static_cast<std::uint16_t>(2 * width), 1, 0, y, 0, canvas.screen->root_depth,
            static_cast<std::uint32_t>(4 * row.size()), reinterpret_cast<const std::uint8_t*>(row.data()));
    }
    auto next = std::chrono::steady_clock::now();
    for (;;) {
        xcb_copy_area(canvas.connection, noise, canvas.window, canvas.context,
            static_cast<std::int16_t>(random() % width), 0, 0, 0, width, height);
        xcb_flush(canvas.connection);
        next += std::chrono::microseconds(16'667);
        std::this_thread::sleep_until(next);
    }
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

} // namespace quillbox::bench
