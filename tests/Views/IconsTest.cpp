#include "Views/Icons.h"

#include "Palettes.h"
#include "support/QtTests.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QTest>

#include <set>

namespace quillbox {
namespace {

using namespace test;

constexpr Symbol allSymbols[]
    = {Symbol::RectangleDashedBadgeRecord, Symbol::InfoCircle, Symbol::RectangleDashed, Symbol::RecordCircle,
        Symbol::WandAndStars, Symbol::CheckmarkCircleFill, Symbol::ExclamationmarkTriangleFill, Symbol::StopCircleFill,
        Symbol::PhotoStack, Symbol::Film, Symbol::MagnifyingglassCircle, Symbol::RectangleOnRectangleAngled,
        Symbol::Gearshape, Symbol::LockShield, Symbol::ArrowDownCircle, Symbol::Keyboard};

QImage drawn(Symbol symbol, const QColor& color, int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    Icons::paint(painter, image.rect(), symbol, color);
    return image;
}

/// Pixels of the picture for which `holds`.
template <typename Predicate> int count(const QImage& image, Predicate holds)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            found += holds(image.pixelColor(x, y)) ? 1 : 0;
    return found;
}

class IconsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void hasADrawingForEachSymbol();
    void drawsEachSymbolDifferently();
    void drawsInTheGivenColourOnly();
    void leavesAMarginOfNothingAround();
    void followsThePalette();
    void makesPixmapsForTheDevicesPixels();
    void drawsLargePixmapsFromTheVectors();
    void greysOutWhatIsDisabled();
    void hasTrayPixmapsOfAllSizes();
    void showsInTheTrayWhetherItRecords();
    void showsInTheTrayOnLightAndDarkPanels();
};

void IconsTest::hasADrawingForEachSymbol()
{
    for (const Symbol symbol : allSymbols) {
        QVERIFY2(QFile::exists(Icons::resource(symbol)), qPrintable(Icons::resource(symbol)));
        const int inked = count(drawn(symbol, Qt::black, 16), [](const QColor& pixel) { return pixel.alpha() > 128; });
        QVERIFY2(inked > 15, qPrintable(Icons::resource(symbol)));
        QVERIFY2(inked < 200, qPrintable(Icons::resource(symbol)));
    }
}

void IconsTest::drawsEachSymbolDifferently()
{
    std::set<QByteArray> pictures;
    for (const Symbol symbol : allSymbols) {
        const QImage image = drawn(symbol, Qt::black, 16);
        pictures.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
    }
    QCOMPARE(pictures.size(), std::size(allSymbols));
}

void IconsTest::drawsInTheGivenColourOnly()
{
    for (const Symbol symbol : allSymbols) {
        const int foreign = count(drawn(symbol, QColor(255, 0, 0), 32),
            [](const QColor& pixel) { return pixel.alpha() > 8 && (pixel.green() > 40 || pixel.blue() > 40); });
        QCOMPARE(foreign, 0);
    }
}

void IconsTest::leavesAMarginOfNothingAround()
{
    for (const Symbol symbol : allSymbols) {
        QImage image(48, 48, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        Icons::paint(painter, QRect(8, 8, 32, 32), symbol, Qt::black);
        painter.end();
        const int inside = count(image.copy(8, 8, 32, 32), [](const QColor& pixel) { return pixel.alpha() > 0; });
        QCOMPARE(count(image, [](const QColor& pixel) { return pixel.alpha() > 0; }), inside);
    }
}

void IconsTest::followsThePalette()
{
    const QIcon icon = Icons::icon(Symbol::StopCircleFill, Role::Accent);
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        QApplication::setPalette(palette);
        const QColor drawnColor = icon.pixmap(QSize(32, 32), 1).toImage().pixelColor(16, 5);
        QCOMPARE(drawnColor, Theme(palette).color(Role::Accent));
    }
}

void IconsTest::makesPixmapsForTheDevicesPixels()
{
    const QPixmap pixmap = Icons::icon(Symbol::Film, Role::Primary).pixmap(QSize(16, 16), 1.5);
    QCOMPARE(pixmap.size(), QSize(24, 24));
    QCOMPARE(pixmap.devicePixelRatio(), 1.5);
}

void IconsTest::drawsLargePixmapsFromTheVectors()
{
    // Enlarged pixels would be blurred: few pixels of a large picture may be half transparent.
    const QImage image = drawn(Symbol::RecordCircle, Qt::black, 256);
    const int inked = count(image, [](const QColor& pixel) { return pixel.alpha() == 255; });
    const int blurred = count(image, [](const QColor& pixel) { return pixel.alpha() > 0 && pixel.alpha() < 255; });
    QVERIFY(blurred * 8 < inked);
}

void IconsTest::greysOutWhatIsDisabled()
{
    QApplication::setPalette(lightPalette());
    const QImage image
        = Icons::icon(Symbol::StopCircleFill, Role::Accent).pixmap(QSize(32, 32), 1, QIcon::Disabled).toImage();
    QCOMPARE(image.pixelColor(16, 5), Theme(lightPalette()).color(Role::Tertiary));
}

void IconsTest::hasTrayPixmapsOfAllSizes()
{
    for (const bool recording : {false, true}) {
        const QList<QSize> sizes = Icons::trayIcon(recording).availableSizes();
        for (const int side : {16, 22, 24, 32, 44, 48})
            QVERIFY(sizes.contains(QSize(side, side)));
    }
}

void IconsTest::showsInTheTrayWhetherItRecords()
{
    const auto redPixels = [](bool recording, int side) {
        return count(Icons::trayIcon(recording).pixmap(QSize(side, side), 1).toImage(), [](const QColor& pixel) {
            return pixel.alpha() > 200 && pixel.red() > 190 && pixel.green() < 110 && pixel.blue() < 110;
        });
    };
    for (const int side : {16, 22, 24, 32, 44, 48}) {
        QCOMPARE(redPixels(false, side), 0);
        QVERIFY(redPixels(true, side) * 12 > side * side);
    }
}

void IconsTest::showsInTheTrayOnLightAndDarkPanels()
{
    for (const QColor panel :
        {QColor(Qt::white), QColor(0xf0, 0xf0, 0xf0), QColor(0x20, 0x20, 0x20), QColor(Qt::black)})
        for (const bool recording : {false, true}) {
            const QImage icon = Icons::trayIcon(recording).pixmap(QSize(22, 22), 1).toImage();
            const int distinct = count(icon,
                [&panel](const QColor& pixel) { return pixel.alpha() == 255 && Theme::contrast(pixel, panel) >= 3; });
            QVERIFY(distinct > 22 * 22 / 3);
        }
}

const test::Registration<IconsTest> registeredIconsTest("Icons");

} // namespace
} // namespace quillbox

#include "IconsTest.moc"
