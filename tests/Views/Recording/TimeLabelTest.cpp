#include "Views/Recording/TimeLabel.h"
#include "support/QtTests.h"

#include <QTest>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

class TimeLabelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void countsWithItsClock();
    void keepsItsWidthAsItCounts();
    void paintsADigitWhereTheOneBeforeWas();

private:
    std::chrono::steady_clock::time_point m_now;
    RecordingClock m_clock{nullptr, [this] {
                               return m_now;
                           }};
};

void TimeLabelTest::countsWithItsClock()
{
    const TimeLabel label(m_clock, TextStyle::Caption, Role::Red);
    QCOMPARE(label.text(), QString("0:00"));
    m_clock.start();
    m_now += 75s;
    Q_EMIT m_clock.changed();
    QCOMPARE(label.text(), QString("1:15"));
    m_clock.stop();
    QCOMPARE(label.text(), QString("0:00"));
}

void TimeLabelTest::keepsItsWidthAsItCounts()
{
    const TimeLabel label(m_clock, TextStyle::Headline, Role::Red);
    const int width = label.sizeHint().width();
    m_clock.start();
    for (int second = 1; second < 600; ++second) {
        m_now += 1s;
        Q_EMIT m_clock.changed();
        QCOMPARE(label.sizeHint().width(), width);
    }
}

void TimeLabelTest::paintsADigitWhereTheOneBeforeWas()
{
    TimeLabel label(m_clock, TextStyle::Headline, Role::Red);
    label.resize(label.sizeHint());
    const auto minutes = [&label] { // "0" of "0:00"
        return label.grab(QRect(0, 0, label.width() / 4, label.height())).toImage();
    };
    m_clock.start();
    const QImage before = minutes();
    m_now += 11s; // narrow digits in many fonts
    Q_EMIT m_clock.changed();
    QCOMPARE(minutes(), before);
    m_now += 60s;
    Q_EMIT m_clock.changed();
    QVERIFY(minutes() != before);
}

const test::Registration<TimeLabelTest> registeredTimeLabelTest("TimeLabel");

} // namespace
} // namespace quillbox

#include "TimeLabelTest.moc"
