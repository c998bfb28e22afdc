#include "Capture/Region/OverlayPictures.h"

#include "Capture/Region/SelectionWindow.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

namespace quillbox {
namespace {

/// A screen with something on it.
QImage screen()
{
    QImage image(160, 120, QImage::Format_RGB32);
    image.fill(QColor(200, 190, 180));
    QPainter painter(&image);
    for (int x = 0; x < 160; x += 8)
        painter.fillRect(x, x / 2, 5, 30, QColor(x, 255 - x, 90));
    return image;
}

RGBAFrame part(const QImage& image, const QRect& rect)
{
    return OverlayPictures::frameOf(QPixmap::fromImage(image.copy(rect)));
}

/// As the toolkit paints the overlay and the selection on it, this much of both.
QImage covered(QImage image, float share)
{
    QColor accent = SelectionWindow::accentColor();
    accent.setAlphaF(SelectionWindow::fillOpacity * share);
    QPainter painter(&image);
    painter.fillRect(image.rect(), QColor(0, 0, 0, qRound(255 * SelectionWindow::dimming * share)));
    painter.fillRect(image.rect(), accent);
    return image;
}

TEST(OverlayPictures, KnowWhatTheOverlayMakesOfTheRegion)
{
    const CaptureGeometry geometry{.source = {16, 8, 96, 96}, .output = {96, 96}};
    const QRect region(16, 8, 96, 96);
    const auto remains = OverlayPictures::remainsOf(OverlayPictures::frameOf(QPixmap::fromImage(screen())), geometry);
    EXPECT_TRUE(remains.likenessOf(part(screen(), region)).isUncovered);
    for (const float share : {1.0F, 0.5F, 0.2F}) {
        const auto likeness = remains.likenessOf(part(covered(screen(), share), region));
        EXPECT_FALSE(likeness.isUncovered) << share;
        EXPECT_TRUE(likeness.isCovered) << share;
    }
    const QRect elsewhere(48, 16, 96, 96);
    EXPECT_FALSE(remains.likenessOf(part(screen(), elsewhere)).isUncovered);
}

TEST(OverlayPictures, AreAsLargeAsTheFramesOfTheRecording)
{
    const CaptureGeometry geometry{.source = {0, 0, 160, 120}, .output = {80, 60}};
    const auto whole = OverlayPictures::frameOf(QPixmap::fromImage(screen()));
    const auto remains = OverlayPictures::remainsOf(whole, geometry);
    EXPECT_TRUE(remains.likenessOf(scaledTo(whole, {80, 60})).isUncovered);
    EXPECT_FALSE(remains.likenessOf(whole).isUncovered) << "it is of another size";
}

} // namespace
} // namespace quillbox
