#pragma once

#include <QElapsedTimer>
#include <QPainter>
#include <QRasterWindow>
#include <QRect>

namespace quillbox::demo {

/// A small picture of a desktop, with a shell that types, bars that swing and a ring that turns: something to record.
/// Everything repeats after `periodSeconds`.
class DemoWindow final : public QRasterWindow {
public:
    static constexpr double periodSeconds = 4.0;

    /// @param place  Where the window stands on the screen, pixels.
    explicit DemoWindow(const QRect& place);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawShell(QPainter& painter, const QRectF& frame, double seconds) const;
    static void drawBars(QPainter& painter, const QRectF& frame, double seconds);
    static void drawRing(QPainter& painter, const QRectF& frame, double seconds);

    QElapsedTimer m_clock;
    bool m_announced = false;
};

} // namespace quillbox::demo
