#include "App/Hotkey/HotkeyService.h"

#include <utility>

namespace quillbox {

void HotkeyService::setState(HotkeyState next)
{
    if (m_state == next)
        return;
    m_state = std::move(next);
    Q_EMIT stateChanged();
}

} // namespace quillbox

#include "moc_HotkeyService.cpp"
