#include "Views/Theme.h"

#include "Palettes.h"
#include "support/QtTests.h"

#include <QApplication>
#include <QFontMetrics>
#include <QTest>

namespace quillbox {
namespace {

using namespace test;

class ThemeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsLightFromDark();
    void knowsTheContrastOfKnownPairs();
    void keepsEveryTextReadable_data();
    void keepsEveryTextReadable();
    void keepsTheRolesApart();
    void makesHeadlinesHeavierAndCaptionsSmaller();
    void givesMonospacedDigitsOneWidth();
    void copesWithAFontGivenInPixels();
};

void ThemeTest::tellsLightFromDark()
{
    QVERIFY(!Theme(lightPalette()).isDark());
    QVERIFY(Theme(darkPalette()).isDark());
}

void ThemeTest::knowsTheContrastOfKnownPairs()
{
    QCOMPARE(Theme::contrast(Qt::black, Qt::white), 21.0);
    QCOMPARE(Theme::contrast(Qt::white, Qt::white), 1.0);
    QVERIFY(std::abs(Theme::contrast(QColor(0x76, 0x76, 0x76), Qt::white) - 4.54) < 0.01); // the known lightest grey
}

void ThemeTest::keepsEveryTextReadable_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << lightPalette();
    QTest::newRow("dark") << darkPalette();
    QTest::newRow("the toolkit's own") << QPalette();
    const auto with = [](QPalette palette, QPalette::ColorRole role, const QColor& color) {
        palette.setColor(role, color);
        return palette;
    };
    QTest::newRow("yellow accent") << with(lightPalette(), QPalette::Highlight, QColor(0xff, 0xd8, 0x40));
    QTest::newRow("black accent") << with(lightPalette(), QPalette::Highlight, Qt::black);
    QTest::newRow("dark accent on dark") << with(darkPalette(), QPalette::Highlight, QColor(0x20, 0x20, 0x40));
    QTest::newRow("black window") << with(darkPalette(), QPalette::Window, Qt::black);
    QTest::newRow("middle grey window") << with(lightPalette(), QPalette::Window, QColor(0x84, 0x84, 0x84));
    QTest::newRow("faint text") << with(lightPalette(), QPalette::WindowText, QColor(0xa0, 0xa0, 0xa0));
}

void ThemeTest::keepsEveryTextReadable()
{
    QFETCH(const QPalette, palette);
    const Theme theme(palette);
    const auto against = [&theme](Role role) {
        return Theme::contrast(theme.color(role), theme.surface());
    };
    QVERIFY(against(Role::Primary) >= 4.5);
    QVERIFY(against(Role::Secondary) >= 4.5);
    QVERIFY(against(Role::Tertiary) >= 3);
    QVERIFY(against(Role::Accent) >= 4.5);
    QVERIFY(against(Role::Red) >= 4.5);
    QVERIFY(against(Role::Green) >= 4.5);
    QVERIFY(Theme::contrast(theme.color(Role::OnAccent), theme.accentFill()) >= 4.5);
    QVERIFY(Theme::contrast(theme.color(Role::Primary), theme.raised()) >= 4.5);
    QVERIFY(Theme::contrast(theme.color(Role::Secondary), theme.raised()) >= 4.5);
}

void ThemeTest::keepsTheRolesApart()
{
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const Theme theme(palette);
        QVERIFY(Theme::contrast(theme.color(Role::Primary), theme.surface())
            > Theme::contrast(theme.color(Role::Secondary), theme.surface()));
        QVERIFY(Theme::contrast(theme.color(Role::Secondary), theme.surface())
            > Theme::contrast(theme.color(Role::Tertiary), theme.surface()));
        QVERIFY(theme.color(Role::Red).red() > theme.color(Role::Red).green() + 60);
        QVERIFY(theme.color(Role::Green).green() > theme.color(Role::Green).red() + 60);
    }
}

void ThemeTest::makesHeadlinesHeavierAndCaptionsSmaller()
{
    const auto size = [](TextStyle style) {
        return Theme::font(style).pointSizeF();
    };
    QVERIFY(Theme::font(TextStyle::Headline).weight() > Theme::font(TextStyle::Body).weight());
    QVERIFY(size(TextStyle::Body) > size(TextStyle::Callout));
    QVERIFY(size(TextStyle::Callout) > size(TextStyle::Caption));
    QVERIFY(size(TextStyle::Caption) > size(TextStyle::SmallCaption));
    QCOMPARE(size(TextStyle::Monospaced), size(TextStyle::Body));
}

void ThemeTest::givesMonospacedDigitsOneWidth()
{
    const QFontMetrics metrics(Theme::font(TextStyle::Monospaced));
    QCOMPARE(metrics.horizontalAdvance('i'), metrics.horizontalAdvance('W'));
}

void ThemeTest::copesWithAFontGivenInPixels()
{
    const QFont before = QApplication::font();
    QFont pixels = before;
    pixels.setPixelSize(20);
    QApplication::setFont(pixels);
    const int caption = Theme::font(TextStyle::Caption).pixelSize();
    QApplication::setFont(before);
    QCOMPARE(caption, 18);
}

const test::Registration<ThemeTest> registeredThemeTest("Theme");

} // namespace
} // namespace quillbox

#include "ThemeTest.moc"
