#include "App/Desktop/WindowPlaces/PointerPlacement.h"

namespace quillbox {

PointerPlacement::PointerPlacement()
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &PointerPlacement::ready);
}

void PointerPlacement::prepare(const QString& title)
{
    if (m_patience.isActive())
        return;
    m_patience.start();
    begin(title);
}

void PointerPlacement::becomeReady()
{
    if (!m_patience.isActive())
        return; // it has been shown without
    m_patience.stop();
    Q_EMIT ready();
}

} // namespace quillbox

#include "moc_PointerPlacement.cpp"
