#pragma once

#include "App/Hotkey/HotkeyService.h"

#include <memory>
#include <optional>

namespace quillbox {

/// A key grab on the root window of the X server that DISPLAY names, on a connection of its own. Locks (Num Lock, Caps
/// Lock, Scroll Lock) don't matter, and neither does the layout: the key is a place on the keyboard. A changed keyboard
/// is noticed. While another program holds the combination, nothing of it is held here.
class X11Hotkey : public HotkeyService {
    Q_OBJECT

public:
    X11Hotkey();
    ~X11Hotkey() override;

    void grab(std::uint32_t keyCode, std::uint32_t modifiers) override;
    void retry() override;

    /// What would become of that wish now. It is taken hold of for a moment, on another connection. Thread: any.
    /// @throws DisplayError  NoDisplay: no X server answers.
    [[nodiscard]] static HotkeyState tryOut(std::uint32_t keyCode, std::uint32_t modifiers);

private:
    struct Connection;
    struct Wish {
        std::uint32_t keyCode;
        std::uint32_t modifiers;
    };

    void grabAgain();
    void takeEvents();

    std::unique_ptr<Connection> m_connection; // null where there is no X server
    std::optional<Wish> m_wish;
};

} // namespace quillbox
