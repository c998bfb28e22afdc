#pragma once

#include "App/Hotkey/HotkeyChoice.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>

namespace quillbox {

/// One key combination that works from every program. That it can't be had is survived silently. Thread: main.
class GlobalHotkey : public QObject {
    Q_OBJECT

public:
    /// @param onTrigger  What a press does; called from the event loop, once a press.
    explicit GlobalHotkey(std::function<void()> onTrigger, std::unique_ptr<HotkeyService> service = makeHotkeyService(),
        QObject* parent = nullptr);
    /// Lets go of the combination.
    ~GlobalHotkey() override;

    /// Asks for the combination; to be called once.
    /// @param keyCode    A physical key, counted as Apple's keyboards are: 18 … 29 hold the digits, 19 is the "2".
    /// @param modifiers  A mask of `HotkeyMath`.
    void registerKey(std::uint32_t keyCode, std::uint32_t modifiers);

    /// Lets go of the combination.
    void release();

    [[nodiscard]] HotkeyState state() const;

Q_SIGNALS:
    void stateChanged();

private:
    std::function<void()> m_onTrigger;
    std::unique_ptr<HotkeyService> m_service; // none once it was let go
};

} // namespace quillbox
