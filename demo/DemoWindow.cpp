#include "DemoWindow.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPen>
#include <QStringList>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace quillbox::demo {
namespace {

constexpr int framesPerSecond = 30;

QColor desktop()
{
    return {0x1b, 0x2a, 0x41};
}
QColor paper()
{
    return {0x10, 0x14, 0x1c};
}
QColor titleBar()
{
    return {0x2e, 0x3a, 0x50};
}
QColor ink()
{
    return {0xd8, 0xde, 0xe9};
}
QColor accent(int index)
{
    static const std::array colors{QColor(0x88, 0xc0, 0xd0), QColor(0xa3, 0xbe, 0x8c), QColor(0xeb, 0xcb, 0x8b),
        QColor(0xd0, 0x87, 0x70), QColor(0xb4, 0x8e, 0xad)};
    return colors.at(static_cast<std::size_t>(index) % colors.size());
}

QFont letters(int pixels)
{
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(pixels);
    return font;
}

/// Letters of one colour without grades: few colours make a small file.
QFont plainLetters(int pixels)
{
    QFont font = letters(pixels);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

/// A window with a title bar. @return the part of it that is free.
QRectF drawFrame(QPainter& painter, const QRectF& frame, const QString& title)
{
    constexpr double barHeight = 24;
    constexpr double radius = 8;
    QPainterPath outline;
    outline.addRoundedRect(frame, radius, radius);
    painter.fillPath(outline, paper());
    painter.save();
    painter.setClipPath(outline);
    painter.fillRect(QRectF(frame.topLeft(), QSizeF(frame.width(), barHeight)), titleBar());
    painter.restore();
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 3; ++i) {
        painter.setBrush(accent(3 - i));
        painter.drawEllipse(QPointF(frame.left() + 16 + 16 * i, frame.top() + barHeight / 2), 4.5, 4.5);
    }
    painter.setPen(ink());
    painter.setFont(plainLetters(12));
    painter.drawText(QRectF(frame.topLeft(), QSizeF(frame.width(), barHeight)), Qt::AlignCenter, title);
    return frame.adjusted(14, barHeight + 10, -14, -12);
}

} // namespace

DemoWindow::DemoWindow(const QRect& place)
{
    setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    setGeometry(place);
    m_clock.start();
    auto* timer = new QTimer(this);
    timer->setTimerType(Qt::PreciseTimer);
    connect(timer, &QTimer::timeout, this, [this] { update(); });
    timer->start(std::chrono::milliseconds(1000 / framesPerSecond));
}

void DemoWindow::paintEvent(QPaintEvent* /*event*/)
{
    const double seconds = std::fmod(static_cast<double>(m_clock.elapsed()) / 1000, periodSeconds);
    QPainter painter(this);
    painter.fillRect(QRect(QPoint(), size()), desktop());
    drawShell(painter, {20, 20, 370, 360}, seconds);
    drawBars(painter, {410, 20, 210, 190}, seconds);
    drawRing(painter, {410, 228, 210, 152}, seconds);
    if (!m_announced) {
        m_announced = true;
        // By then the first picture is on the screen.
        QTimer::singleShot(std::chrono::milliseconds(200), this, [this] {
            std::printf("%d,%d,%dx%d\n", x(), y(), width(), height());
            (void)std::fflush(stdout); // whoever asked has gone away; the window stays
        });
    }
}

void DemoWindow::drawShell(QPainter& painter, const QRectF& frame, double seconds) const
{
    static const QStringList lines{QStringLiteral("$ echo This window is being recorded."),
        QStringLiteral("This window is being recorded."), QStringLiteral("$ quillbox record \\"),
        QStringLiteral("    --region %1,%2,%3x%4 \\").arg(x()).arg(y()).arg(width()).arg(height()),
        QStringLiteral("    --duration 4 -o demo.gif"), QString(), QStringLiteral("Seconds later it is a GIF,"),
        QStringLiteral("small enough for a chat.")};
    static const QStringList typed{lines[0], lines[2], lines[3], lines[4]};

    const QRectF inside = drawFrame(painter, frame, QStringLiteral("quillbox"));
    painter.setFont(letters(14));
    const double lineHeight = 22;
    constexpr double lettersPerSecond = 42;
    auto budget = static_cast<int>(seconds * lettersPerSecond);
    double y = inside.top() + 14;
    for (const QString& line : lines) {
        const bool isTyped = typed.contains(line);
        const int shown = isTyped ? std::min(budget, static_cast<int>(line.size())) : static_cast<int>(line.size());
        painter.setPen(ink());
        painter.drawText(QPointF(inside.left(), y), line.left(shown));
        budget -= isTyped ? shown : 0;
        if (isTyped && (budget == 0 || shown < line.size())) {
            const QFontMetricsF metrics(painter.font());
            painter.fillRect(QRectF(inside.left() + metrics.horizontalAdvance(line.left(shown)), y - 13,
                                 metrics.horizontalAdvance(QLatin1Char('M')), 17),
                ink());
            return;
        }
        y += lineHeight;
    }
}

void DemoWindow::drawBars(QPainter& painter, const QRectF& frame, double seconds)
{
    constexpr int count = 9;
    const QRectF inside = drawFrame(painter, frame, QStringLiteral("levels"));
    const double step = inside.width() / count;
    for (int i = 0; i < count; ++i) {
        const double turn = 2 * std::numbers::pi * seconds / periodSeconds;
        const double level = 0.5 + 0.3 * std::sin(3 * turn + 0.7 * i) + 0.18 * std::sin(7 * turn - 1.3 * i);
        const double height = std::round(inside.height() * std::clamp(level, 0.02, 1.0));
        painter.fillRect(
            QRectF(std::round(inside.left() + step * i), inside.bottom() - height, std::floor(step) - 2, height),
            accent(i));
    }
}

void DemoWindow::drawRing(QPainter& painter, const QRectF& frame, double seconds)
{
    constexpr int fullCircle = 360 * 16; // QPainter counts in sixteenths of a degree
    const QRectF inside = drawFrame(painter, frame, QStringLiteral("progress"));
    const double share = seconds / periodSeconds;
    const double side = std::min(inside.width(), inside.height()) - 10;
    const QRectF circle(inside.center() - QPointF(side / 2, side / 2), QSizeF(side, side));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(titleBar(), 11));
    painter.drawEllipse(circle);
    painter.setPen(QPen(accent(0), 11, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, fullCircle / 4, -static_cast<int>(share * fullCircle));
    painter.setPen(ink());
    painter.setFont(plainLetters(20));
    painter.drawText(circle, Qt::AlignCenter, QStringLiteral("%1 %").arg(static_cast<int>(share * 100)));
}

} // namespace quillbox::demo
