#pragma once

#include <QObject>
#include <QString>

#include <cstdint>

namespace quillbox {

/// What became of a wish for a system-wide key combination.
enum class HotkeyStatus {
    NotRegistered, ///< nobody asked yet
    Asking,        ///< the desktop has been asked, and may be asking the user
    Active,        ///< presses are reported
    Taken,         ///< another program holds the combination
    Refused,       ///< the user does not want it
    Unassigned,    ///< the desktop could have one, but has bound none for us
    Unavailable,   ///< this desktop has no such thing, or no such key
};

struct HotkeyState {
    HotkeyStatus status = HotkeyStatus::NotRegistered;
    /// The words in which a desktop that lets the user choose the keys describes them; empty where it is the
    /// combination that was asked for, or where the desktop doesn't tell.
    QString trigger{};
    bool isDesktops = false; ///< the desktop's settings say which keys they are
    bool isOther = false;    ///< they are others than those that were asked for, as far as the words tell
    QString key{};           ///< what this keyboard calls the key, without its modifiers; empty where nobody tells

    friend bool operator==(const HotkeyState&, const HotkeyState&) = default;
};

/// The window system's way to report one key combination from wherever it is pressed. Thread: main.
class HotkeyService : public QObject {
    Q_OBJECT

public:
    /// Asks for the combination; to be called once. Nothing is thrown: the state tells.
    /// @param keyCode    Number of the physical key, as `GlobalHotkey::registerKey` counts.
    /// @param modifiers  A mask of `HotkeyMath`.
    virtual void grab(std::uint32_t keyCode, std::uint32_t modifiers) = 0;
    /// Asks once more, if another program held the combination: it may have let go.
    virtual void retry() { }
    /// The session bus has been restarted: SessionBus has another connection.
    virtual void reconnect() { }
    [[nodiscard]] const HotkeyState& state() const { return m_state; }

Q_SIGNALS:
    /// Once for every press, also for presses that are learnt of together.
    void pressed();
    void stateChanged();

protected:
    void setState(HotkeyState next);

private:
    HotkeyState m_state;
};

} // namespace quillbox
