#pragma once

#include "App/Hotkey/HotkeyService.h"
#include "Platform/Portal/PortalRequest.h"

#include <QCoro/QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QString>
#include <QVariantMap>

namespace quillbox {

/// A global shortcut of the desktop portal. The user is asked at the first start, as far as the desktop remembers
/// answers; a refusal is remembered by us. Which keys it is in the end, the user decides. A portal that goes away and
/// comes back is asked anew.
class PortalHotkey : public HotkeyService {
    Q_OBJECT

public:
    PortalHotkey();
    /// Withdraws the question, if one is open, and gives the shortcut back.
    ~PortalHotkey() override;

    void grab(std::uint32_t keyCode, std::uint32_t modifiers) override;

private:
    // Whole messages: Qt may not know the name of a path's type yet when the signals are connected.
    Q_SLOT void notePress(const QDBusMessage& signal);
    Q_SLOT void noteChange(const QDBusMessage& signal);
    Q_SLOT void noteClosed();

    void followOwner(const QString& before, const QString& now);
    void begin();
    QCoro::Task<> bindAndTell();
    QCoro::Task<HotkeyState> bind();
    QCoro::Task<PortalRequest::Outcome> ask(QString method, QVariantList arguments, QVariantMap options);
    [[nodiscard]] bool isFromOurSession(const QDBusMessage& signal) const;
    void closeSession();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QString m_trigger; // proposed; empty before a wish
    QString m_session; // empty before there is one
    int m_attempt = 0; // which one; an earlier one has nothing to say any more
    bool m_isBinding = false;
};

} // namespace quillbox
