#include "App/Workflow/RecordingClock.h"

#include <QLatin1Char>

#include <utility>

namespace quillbox {
namespace {

/// Two digits.
QString padded(std::int64_t number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

RecordingClock::RecordingClock(QObject* parent, Now now)
    : QObject(parent)
    , m_now(std::move(now))
{
    m_second.setSingleShot(true);
    m_second.setTimerType(Qt::PreciseTimer);
    connect(&m_second, &QTimer::timeout, this, [this] {
        awaitNextSecond();
        Q_EMIT changed();
    });
}

void RecordingClock::start()
{
    m_started = m_now();
    m_isRunning = true;
    awaitNextSecond();
    Q_EMIT changed();
}

void RecordingClock::stop()
{
    m_second.stop();
    if (std::exchange(m_isRunning, false))
        Q_EMIT changed();
}

std::chrono::seconds RecordingClock::elapsed() const
{
    using std::chrono::seconds;
    return m_isRunning ? std::chrono::floor<seconds>(m_now() - m_started) : seconds(0);
}

void RecordingClock::awaitNextSecond()
{
    using namespace std::chrono;
    const auto passed = m_now() - m_started;
    m_second.start(ceil<milliseconds>(floor<seconds>(passed) + 1s - passed));
}

QString RecordingClock::text(std::chrono::seconds time)
{
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 60 * minute;
    const std::int64_t seconds = time.count();
    const QString rest = padded(seconds % minute);
    if (seconds < hour)
        return QStringLiteral("%1:%2").arg(QString::number(seconds / minute), rest);
    return QStringLiteral("%1:%2:%3").arg(QString::number(seconds / hour), padded(seconds % hour / minute), rest);
}

} // namespace quillbox

#include "moc_RecordingClock.cpp"
