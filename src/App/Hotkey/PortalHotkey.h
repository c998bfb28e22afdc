#pragma once

#include "App/Hotkey/HotkeyService.h"
#include "Platform/Portal/PortalSession.h"

#include <QCoro/QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

namespace quillbox {

/// A global shortcut of the desktop portal. The user is asked at the first start, as far as the desktop remembers
/// answers; a refusal is remembered by us. Which keys it is in the end, the user decides; what is told of them is what
/// is in force, as far as the desktop has a way to find out. A portal that goes away and comes back is asked anew.
class PortalHotkey : public HotkeyService {
    Q_OBJECT

public:
    PortalHotkey();
    /// Withdraws the question, if one is open, and gives the shortcut back.
    ~PortalHotkey() override;

    void grab(std::uint32_t keyCode, std::uint32_t modifiers) override;
    void reconnect() override;

private:
    // Whole messages: Qt may not know the name of a path's type yet when the signals are connected.
    Q_SLOT void notePress(const QDBusMessage& signal);
    Q_SLOT void noteChange(const QDBusMessage& signal);

    void listen();
    void followOwner(const QString& before, const QString& now);
    void begin();
    QCoro::Task<> bindAndTell();
    QCoro::Task<HotkeyState> bind();
    QCoro::Task<> follow(HotkeyState told);
    [[nodiscard]] bool isFromOurSession(const QDBusMessage& signal) const;

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    struct Wish {
        std::uint32_t keyCode;
        std::uint32_t modifiers;
    };
    std::optional<Wish> m_wish;
    QString m_symbol;                         // what Shift and the key give, as xkbcommon names it
    std::unique_ptr<PortalSession> m_session; // null before a wish, and while there is no portal
    bool m_isBinding = false;
};

} // namespace quillbox
