#pragma once

#include "App/Hotkey/HotkeyService.h"

#include <QCoreApplication>
#include <QString>

namespace quillbox {

/// Tells the user what became of the hotkey. Stateless; thread: main.
class HotkeyNotice {
    Q_DECLARE_TR_FUNCTIONS(HotkeyNotice)

public:
    /// The combination of this program, by the names that this keyboard has for its keys.
    [[nodiscard]] static QString combination(const HotkeyState& state);
    /// What to press instead of the combination; empty where it works, or may.
    [[nodiscard]] static QString instead(const HotkeyState& state);
    /// What the panel should point out below the sentence that names the combination: first what to press instead, then
    /// what can be done; which keys they are where the desktop has set others. Empty where the combination works, or
    /// may. A user who refused knows why.
    [[nodiscard]] static QString problem(const HotkeyState& state);
    /// What a newcomer should know of the keys, beside instead(); empty where it is that the combination works.
    [[nodiscard]] static QString introduction(const HotkeyState& state);
    /// For the settings window: which way to record by a key is in force.
    [[nodiscard]] static QString explanation(const HotkeyState& state);

private:
    [[nodiscard]] static bool isUsable(HotkeyStatus status);
    [[nodiscard]] static QString otherKeys(const HotkeyState& state);
    [[nodiscard]] static QString reason(const HotkeyState& state);
};

} // namespace quillbox
