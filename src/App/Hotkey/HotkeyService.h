#pragma once

#include <QObject>

#include <cstdint>
#include <memory>

namespace quillbox {

/// What became of a wish for a system-wide key combination.
enum class HotkeyStatus {
    NotRegistered, ///< nobody asked yet
    Active,        ///< presses are reported
    Taken,         ///< another program holds the combination
    Unavailable,   ///< this desktop has no such thing, or no such key
};

/// The window system's way to report one key combination from wherever it is pressed. Thread: main.
class HotkeyService : public QObject {
    Q_OBJECT

public:
    /// Asks for the combination; to be called once. Nothing is thrown: the status tells.
    /// @param keyCode    Number of the physical key, as `GlobalHotkey::registerKey` counts.
    /// @param modifiers  A mask of `HotkeyMath`.
    virtual void grab(std::uint32_t keyCode, std::uint32_t modifiers) = 0;
    [[nodiscard]] virtual HotkeyStatus status() const = 0;

Q_SIGNALS:
    void pressed();
    void statusChanged();
};

/// The service of this desktop; one that is never available where there is none.
[[nodiscard]] std::unique_ptr<HotkeyService> makeHotkeyService();

} // namespace quillbox
