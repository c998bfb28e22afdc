#include "Capture/Wayland/HiddenPointer.h"

#include "Platform/Wayland/LayerSurface.h"
#include "Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>

namespace quillbox {

HiddenPointer::HiddenPointer()
{
    if (toolkitWindowSystem() != WindowSystem::Wayland)
        return;
    for (const auto* const screen : QGuiApplication::screens()) {
        const auto output = LayerOutput::open(screen->name());
        if (!output)
            continue;
        m_covers.push_back(
            std::make_unique<LayerSurface>(output, QRect(QPoint(), output->points()), LayerSurface::Pointer::Hidden));
        m_covers.back()->showNothing();
    }
    m_limit.setSingleShot(true);
    QObject::connect(&m_limit, &QTimer::timeout, [this] { m_covers.clear(); });
    m_limit.start(limit);
}

HiddenPointer::~HiddenPointer() = default;

} // namespace quillbox
