#include "App/Desktop/Recording/EdgeStop.h"

#include "App/Desktop/Recording/PanelGuard.h"
#include "Capture/ScreenRecorder.h"
#include "Views/Recording/StopControl.h"

#include <QCursor>

#include <algorithm>
#include <chrono>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr auto lookInterval = 100ms;
/// A pointer that is on its way to a menu does not bring it up.
constexpr std::chrono::milliseconds restBeforeShown = 300ms;
constexpr std::chrono::milliseconds leaveBeforeHidden = 600ms;
/// Long enough to read a line.
constexpr std::chrono::milliseconds introduction = 2500ms;
/// Longer than the panel's: nobody waits for the picture to go on, and a program that is slow has the time to repaint.
constexpr PanelGuard::Times guardTimes{.repaint = 400ms, .fade = 1500ms};
/// Points around the control that count as it.
constexpr int reach = 24;

} // namespace

EdgeStop::EdgeStop(
    CurrentCoordinator& coordinator, ScreenRecorder& recorder, const ScreenSession& screen, const QRect& area)
    : m_control(std::make_unique<StopControl>(coordinator))
    , m_recorder(recorder)
    , m_area(area)
{
    m_control->setHint(tr("Rest the pointer at the upper edge of the screen to see this again."));
    new PanelGuard(recorder, screen, *m_control, guardTimes); // the control owns it
    connect(&m_looking, &QTimer::timeout, this, &EdgeStop::look);
    m_looking.start(lookInterval);
}

EdgeStop::~EdgeStop() = default;

void EdgeStop::remove()
{
    m_looking.stop();
    m_control->hide();
}

void EdgeStop::look()
{
    if (!m_sinceChange.isValid()) {
        if (m_recorder.frameCount() == 0)
            return; // the first picture is to be seen without it
        m_sinceChange.start();
        showAt(m_area.center().x());
    }
    const QPoint pointer = QCursor::pos();
    const bool isAtEdge = m_area.contains(pointer) && pointer.y() == m_area.top();
    const bool isOnControl
        = m_control->isVisible() && m_control->geometry().adjusted(-reach, -reach, reach, reach).contains(pointer);
    if (m_isWished != (isAtEdge || isOnControl)) {
        m_isWished = !m_isWished;
        m_sinceChange.start();
    }
    const std::chrono::milliseconds rest(m_sinceChange.elapsed());
    if (m_isWished && !m_control->isVisible() && rest >= restBeforeShown) {
        showAt(pointer.x());
    } else if (!m_isWished && m_control->isVisible() && rest >= (m_isIntroducing ? introduction : leaveBeforeHidden)) {
        m_control->hide();
        m_isIntroducing = false;
    }
}

void EdgeStop::showAt(int x)
{
    const QSize size = m_control->sizeHint();
    m_control->setFixedSize(size);
    m_control->move(
        std::clamp(x - size.width() / 2, m_area.left(), m_area.left() + m_area.width() - size.width()), m_area.top());
    m_control->show();
}

} // namespace quillbox

#include "moc_EdgeStop.cpp"
