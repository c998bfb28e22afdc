#pragma once

#include "App/Hotkey/HotkeyChoice.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace quillbox {

/// One key combination that works from every program. That it can't be had is survived silently; while another program
/// holds it, it is asked for again now and then. Thread: main.
class GlobalHotkey : public QObject {
    Q_OBJECT

public:
    /// How often it is asked for again; a few requests to the window system each time.
    static constexpr std::chrono::milliseconds usualRetryTime{10'000};

    /// @param onTrigger  What a press does; called from the event loop, once a press.
    explicit GlobalHotkey(std::function<void()> onTrigger, std::unique_ptr<HotkeyService> service = makeHotkeyService(),
        QObject* parent = nullptr, std::chrono::milliseconds retryTime = usualRetryTime);
    /// Lets go of the combination.
    ~GlobalHotkey() override;

    /// Asks for the combination; to be called once.
    /// @param keyCode    A physical key, counted as Apple's keyboards are: 18 … 29 hold the digits, 19 is the "2".
    /// @param modifiers  A mask of `HotkeyMath`.
    void registerKey(std::uint32_t keyCode, std::uint32_t modifiers);

    /// Asks again now, if another program held the combination when it was last asked for.
    void retry();

    /// Asks once more whoever was asked on the session bus, which has been restarted.
    void reconnect();

    /// Lets go of the combination.
    void release();

    [[nodiscard]] HotkeyState state() const;

Q_SIGNALS:
    void stateChanged();

private:
    void followState();

    std::function<void()> m_onTrigger;
    std::unique_ptr<HotkeyService> m_service; // none once it was let go
    QTimer m_retry;                           // runs while another program holds the combination
};

} // namespace quillbox
