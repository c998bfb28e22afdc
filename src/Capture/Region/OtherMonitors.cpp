#include "Capture/Region/OtherMonitors.h"

#include "Capture/Region/SelectionWindow.h"
#include "Platform/Wayland/LayerSurface.h"
#include "Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QImage>
#include <QScreen>

#include <utility>

namespace quillbox {

OtherMonitors::OtherMonitors(SelectionWindow& overlay, const QScreen& recordable)
    : QObject(&overlay)
    , m_notice(recordable)
{
    connect(&overlay, &SelectionWindow::pressedElsewhere, this, &OtherMonitors::sayAt);
    connect(&overlay, &SelectionWindow::finished, this, &OtherMonitors::end);
    if (toolkitWindowSystem() != WindowSystem::Wayland)
        return;
    m_notice.setAttribute(Qt::WA_DontShowOnScreen); // for assistive technologies it is there all the same
    for (const auto* const screen : QGuiApplication::screens())
        if (screen != &recordable)
            watch(*screen);
}

OtherMonitors::~OtherMonitors() = default;

void OtherMonitors::watch(const QScreen& other)
{
    auto output = LayerOutput::open(other.name());
    if (!output)
        return;
    auto cover
        = std::make_unique<LayerSurface>(output, QRect(QPoint(), output->points()), LayerSurface::Pointer::Taken);
    cover->showNothing();
    connect(cover.get(), &LayerSurface::pressed, this,
        [this, output](QPointF position) { sayOn(output, position.toPoint()); });
    m_watched.push_back({std::move(output), std::move(cover)});
}

/// On an X server.
void OtherMonitors::sayAt(const QPoint& pressed)
{
    const auto* const screen = QGuiApplication::screenAt(pressed);
    if (screen == nullptr)
        return;
    m_notice.setGeometry(m_notice.place(pressed, screen->geometry()));
    m_notice.show();
    m_notice.raise();
}

/// @param pressed  Points of the output.
void OtherMonitors::sayOn(const std::shared_ptr<LayerOutput>& output, const QPoint& pressed)
{
    const QRect place = m_notice.place(pressed, QRect(QPoint(), output->points()));
    QImage picture(place.size() * output->scale(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(output->scale());
    m_notice.show();
    m_notice.render(&picture);
    m_line = std::make_unique<LayerSurface>(output, place, LayerSurface::Pointer::Passed);
    m_line->show(picture);
}

void OtherMonitors::end()
{
    m_notice.hide();
    m_line.reset();
    m_watched.clear();
}

} // namespace quillbox

#include "moc_OtherMonitors.cpp"
