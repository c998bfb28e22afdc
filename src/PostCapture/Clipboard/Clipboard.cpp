#include "PostCapture/Clipboard/Clipboard.h"

#include <utility>

namespace quillbox {

void Clipboard::setState(State state)
{
    if (state == std::exchange(m_state, state))
        return;
    Q_EMIT stateChanged();
}

} // namespace quillbox

#include "moc_Clipboard.cpp"
