#include "Capture/Wayland/HiddenPointer.h"

#include "Platform/Wayland/LayerSurface.h"
#include "Platform/WindowSystem.h"

#include <QCoro/QCoroSignal>
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
        connect(m_covers.back().get(), &LayerSurface::pointerMoved, this, &HiddenPointer::taken);
        m_covers.back()->showNothing();
    }
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] { m_covers.clear(); });
    m_limit.start(limit);
}

HiddenPointer::~HiddenPointer() = default;

QCoro::Task<> HiddenPointer::hidden()
{
    if (m_covers.empty())
        co_return;
    auto waiting = qCoro(this, &HiddenPointer::taken, patience);
    co_await waiting;
}

} // namespace quillbox

#include "moc_HiddenPointer.cpp"
