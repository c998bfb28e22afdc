#include "App/Desktop/Recording/LayerStop.h"

#include "App/Desktop/Recording/LayerPlacement.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "Platform/Wayland/LayerSurface.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QImage>
#include <QMouseEvent>
#include <QScreen>

#include <utility>

namespace quillbox {

namespace {

void sendMouse(QWidget& receiver, const QWidget& control, QEvent::Type type, QPointF position)
{
    const QPointF local = receiver.mapFrom(&control, position);
    const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, local, position, Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&receiver, &event);
}

} // namespace

std::unique_ptr<LayerStop> LayerStop::beside(
    const CaptureRegion& region, QScreen& recorded, CurrentCoordinator& coordinator)
{
    const auto own = LayerOutput::open(recorded.name());
    if (!own)
        return nullptr;
    auto control = std::make_unique<StopControl>(coordinator);
    const QPoint origin = recorded.geometry().topLeft();
    const QRect covered = LayerPlacement::covered(region, recorded.size(), own->points()).translated(origin);
    QList<QScreen*> screens = QGuiApplication::screens();
    screens.removeOne(&recorded);
    screens.prepend(&recorded);
    for (QScreen* const screen : std::as_const(screens)) {
        const auto output = screen == &recorded ? own : LayerOutput::open(screen->name());
        if (!output)
            continue;
        const QRect place(screen->geometry().topLeft(), output->points());
        if (const auto corner = StopControl::place(control->sizeHint(), covered, {place}))
            return std::unique_ptr<LayerStop>(
                new LayerStop(std::move(control), coordinator, output, *corner - place.topLeft()));
    }
    return nullptr;
}

LayerStop::LayerStop(std::unique_ptr<StopControl> control, const CurrentCoordinator& coordinator,
    const std::shared_ptr<LayerOutput>& output, const QPoint& corner)
    : m_control(std::move(control))
    , m_scale(output->scale())
    , m_surface(
          std::make_unique<LayerSurface>(output, QRect(corner, m_control->sizeHint()), LayerSurface::Pointer::Taken))
{
    m_control->setFixedSize(m_control->sizeHint());
    m_control->setAttribute(Qt::WA_DontShowOnScreen); // for assistive technologies it is there all the same
    m_control->show();
    connect(m_surface.get(), &LayerSurface::pointerMoved, this, &LayerStop::movePointer);
    connect(m_surface.get(), &LayerSurface::pointerLeft, this, [this] { movePointer({-1, -1}); });
    connect(m_surface.get(), &LayerSurface::pressed, this, &LayerStop::pressPointer);
    connect(m_surface.get(), &LayerSurface::released, this, &LayerStop::releasePointer);
    connect(&coordinator.recordingClock(), &RecordingClock::changed, this, &LayerStop::paint);
    paint();
}

LayerStop::~LayerStop() = default;

void LayerStop::remove()
{
    m_surface->remove();
    m_control->hide();
}

void LayerStop::paint()
{
    QImage picture(m_control->size() * m_scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(m_scale);
    picture.fill(Qt::transparent);
    m_control->render(&picture);
    m_surface->show(picture);
}

/// What it looks like when the pointer is on it.
void LayerStop::movePointer(QPointF position)
{
    QWidget* const under = m_control->childAt(position.toPoint());
    if (under == m_hovered)
        return;
    if (m_hovered)
        m_hovered->setAttribute(Qt::WA_UnderMouse, false);
    if (under != nullptr)
        under->setAttribute(Qt::WA_UnderMouse);
    m_hovered = under;
    paint();
}

void LayerStop::pressPointer(QPointF position)
{
    m_pressed = m_control->childAt(position.toPoint());
    if (m_pressed)
        sendMouse(*m_pressed, *m_control, QEvent::MouseButtonPress, position);
    paint();
}

void LayerStop::releasePointer(QPointF position)
{
    if (auto* const receiver = std::exchange(m_pressed, nullptr).data())
        sendMouse(*receiver, *m_control, QEvent::MouseButtonRelease, position);
    paint();
}

} // namespace quillbox

#include "moc_LayerStop.cpp"
