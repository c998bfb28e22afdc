#include "App/Hotkey/GlobalHotkey.h"

#include <utility>

namespace quillbox {

GlobalHotkey::GlobalHotkey(std::function<void()> onTrigger, std::unique_ptr<HotkeyService> service, QObject* parent,
    std::chrono::milliseconds retryTime)
    : QObject(parent)
    , m_onTrigger(std::move(onTrigger))
    , m_service(std::move(service))
{
    // Queued: the handler of the key press has returned by then.
    connect(
        m_service.get(), &HotkeyService::pressed, this,
        [this] {
            if (m_service) // a press that was under way when the combination was let go counts no more
                m_onTrigger();
        },
        Qt::QueuedConnection);
    m_retry.setInterval(retryTime);
    connect(&m_retry, &QTimer::timeout, this, &GlobalHotkey::retry);
    connect(m_service.get(), &HotkeyService::stateChanged, this, &GlobalHotkey::followState);
}

GlobalHotkey::~GlobalHotkey() = default;

void GlobalHotkey::registerKey(std::uint32_t keyCode, std::uint32_t modifiers)
{
    m_service->grab(keyCode, modifiers); // whether it is ours is told by the state; nothing depends on it
}

void GlobalHotkey::retry()
{
    if (m_service)
        m_service->retry();
}

void GlobalHotkey::reconnect()
{
    if (m_service)
        m_service->reconnect();
}

void GlobalHotkey::followState()
{
    if (state().status != HotkeyStatus::Taken)
        m_retry.stop();
    else if (!m_retry.isActive())
        m_retry.start();
    Q_EMIT stateChanged();
}

void GlobalHotkey::release()
{
    m_retry.stop();
    m_service.reset();
}

HotkeyState GlobalHotkey::state() const
{
    return m_service ? m_service->state() : HotkeyState{};
}

} // namespace quillbox

#include "moc_GlobalHotkey.cpp"
