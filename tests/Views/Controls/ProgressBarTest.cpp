#include "Views/Controls/ProgressBar.h"

#include "Palettes.h"

#include "support/QtTests.h"
#include "Views/Theme.h"

#include <QApplication>
#include <QImage>
#include <QTest>

namespace quillbox {
namespace {

using namespace test;

class ProgressBarTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void tellsWholePercents();
    void staysWithinItsEnds();
    void fillsTheDoneShareWithTheAccentColour();
    void fillsFromTheRightWhereOneReadsFromThere();
    void isEmptyAtFirst();
    void showsADotAsSoonAsSomethingIsDone();
    void isFullAtTheEnd();

private:
    /// The bar, 200 pixels long, as it is painted; whether each pixel of its middle row has the accent colour.
    [[nodiscard]] static std::vector<bool> accented(ProgressBar& bar);
};

std::vector<bool> ProgressBarTest::accented(ProgressBar& bar)
{
    bar.resize(200, bar.sizeHint().height());
    QImage image(bar.size(), QImage::Format_RGB32);
    image.fill(Theme(bar.palette()).surface());
    bar.render(&image);
    std::vector<bool> row;
    for (int x = 0; x < image.width(); ++x)
        row.push_back(image.pixelColor(x, image.height() / 2) == Theme(bar.palette()).color(Role::Accent));
    return row;
}

void ProgressBarTest::cleanup()
{
    QApplication::setPalette(QPalette());
}

void ProgressBarTest::tellsWholePercents()
{
    ProgressBar bar("Progress");
    bar.setFraction(0.4299);
    QCOMPARE(bar.value(), 42);
    QCOMPARE(bar.text(), QString("42%"));
}

void ProgressBarTest::staysWithinItsEnds()
{
    ProgressBar bar("Progress");
    bar.setFraction(-0.1);
    QCOMPARE(bar.value(), 0);
    bar.setFraction(1.1);
    QCOMPARE(bar.value(), 100);
}

void ProgressBarTest::fillsTheDoneShareWithTheAccentColour()
{
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        QApplication::setPalette(palette);
        ProgressBar bar("Progress");
        bar.setFraction(0.5);
        const auto row = accented(bar);
        QVERIFY(row[10]);
        QVERIFY(row[95]);
        QVERIFY(!row[105]);
        QVERIFY(!row[190]);
    }
}

void ProgressBarTest::fillsFromTheRightWhereOneReadsFromThere()
{
    ProgressBar bar("Progress");
    bar.setLayoutDirection(Qt::RightToLeft);
    bar.setFraction(0.25);
    const auto row = accented(bar);
    QVERIFY(row[190]);
    QVERIFY(row[155]);
    QVERIFY(!row[145]);
    QVERIFY(!row[10]);
}

void ProgressBarTest::isEmptyAtFirst()
{
    ProgressBar bar("Progress");
    const auto row = accented(bar);
    QCOMPARE(std::count(row.begin(), row.end(), true), 0);
}

void ProgressBarTest::showsADotAsSoonAsSomethingIsDone()
{
    ProgressBar bar("Progress");
    bar.setFraction(0.01);
    const auto row = accented(bar);
    QVERIFY(std::count(row.begin(), row.end(), true) >= 2);
    QVERIFY(std::count(row.begin(), row.end(), true) <= bar.height());
}

void ProgressBarTest::isFullAtTheEnd()
{
    ProgressBar bar("Progress");
    bar.setFraction(1);
    const auto row = accented(bar);
    QVERIFY(std::count(row.begin(), row.end(), true) >= 196); // all but the round ends
}

const test::Registration<ProgressBarTest> registeredProgressBarTest("ProgressBar");

} // namespace
} // namespace quillbox

#include "ProgressBarTest.moc"
