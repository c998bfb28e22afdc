#include "App/Hotkey/PortalHotkey.h"

#include "App/Hotkey/HotkeyRefusal.h"
#include "App/Hotkey/ShortcutsPortal.h"
#include "Platform/Detach.h"
#include "Platform/Portal/DesktopPortal.h"

#include <QDBusObjectPath>

#include <algorithm>

namespace quillbox {

namespace {

using ShortcutsPortal::Shortcut;

const auto shortcutID = QStringLiteral("record-region");

/// What a list of shortcuts, which holds those that are bound, means for ours.
HotkeyState stateIn(const QVariant& shortcuts)
{
    const auto bound = ShortcutsPortal::shortcutsIn(shortcuts);
    const auto ours = std::ranges::find(bound, shortcutID, &Shortcut::id);
    if (ours == bound.end())
        return {.status = HotkeyStatus::Unassigned, .isDesktops = true};
    const auto trigger = ours->properties.value(QStringLiteral("trigger_description")).toString().simplified();
    return {.status = HotkeyStatus::Active, .trigger = trigger, .isDesktops = true};
}

} // namespace

PortalHotkey::PortalHotkey()
    : m_bus(QDBusConnection::sessionBus())
    , m_watcher(QLatin1String(DesktopPortal::service), m_bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    ShortcutsPortal::registerTypes();
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString& /*service*/, const QString& before, const QString& now) { followOwner(before, now); });
    const auto path = QLatin1String(DesktopPortal::path);
    const auto interface = QLatin1String(ShortcutsPortal::interface);
    m_bus.connect(QString(), path, interface, QStringLiteral("Activated"), this, SLOT(notePress(QDBusMessage)));
    m_bus.connect(QString(), path, interface, QStringLiteral("ShortcutsChanged"), this, SLOT(noteChange(QDBusMessage)));
}

PortalHotkey::~PortalHotkey() = default; // the session goes, and with it the question and the shortcut

void PortalHotkey::grab(std::uint32_t keyCode, std::uint32_t modifiers)
{
    const auto trigger = ShortcutsPortal::triggerFor(keyCode, modifiers);
    if (!trigger) {
        setState({.status = HotkeyStatus::Unavailable});
        return;
    }
    m_trigger = *trigger;
    begin();
}

/// The portal's process ended, or a new one took the name. The bus starts it at our first call: this is no return then.
void PortalHotkey::followOwner(const QString& before, const QString& now)
{
    if (!before.isEmpty()) { // what it had for us is gone with it
        m_isBinding = false;
        m_session.reset();
        if (state().status != HotkeyStatus::NotRegistered)
            setState({.status = HotkeyStatus::Unavailable});
    }
    if (!now.isEmpty() && !m_trigger.isEmpty() && !m_isBinding)
        begin();
}

void PortalHotkey::begin()
{
    m_isBinding = true;
    m_session = std::make_unique<PortalSession>(QLatin1String(ShortcutsPortal::interface));
    connect(m_session.get(), &PortalSession::ended, this, [this](const PortalError& reason) {
        if (!m_isBinding && reason.reason() == PortalError::Reason::Closed)
            setState({.status = HotkeyStatus::Unassigned, .isDesktops = true});
    });
    detach(bindAndTell());
}

QCoro::Task<> PortalHotkey::bindAndTell()
{
    HotkeyState outcome;
    outcome.status = HotkeyStatus::Unavailable;
    try {
        auto binding = bind();
        outcome = co_await binding;
    } catch (const PortalError& error) {
        if (error.reason() == PortalError::Reason::Withdrawn)
            co_return; // this object is gone, or has begun anew
    }
    m_isBinding = false;
    if (outcome.status != HotkeyStatus::Active && outcome.status != HotkeyStatus::Unassigned)
        m_session.reset(); // the user may still assign a key to one that is open
    setState(outcome);
}

/// What becomes of the wish. @throws PortalError  Withdrawn: the session, and perhaps this object, is gone.
QCoro::Task<HotkeyState> PortalHotkey::bind()
{
    HotkeyState refused;
    refused.status = HotkeyStatus::Refused;
    auto looking = m_session->look();
    co_await looking;
    if (HotkeyRefusal::isRemembered())
        co_return refused;
    setState({.status = HotkeyStatus::Asking, .isDesktops = true});
    auto opening = m_session->open();
    co_await opening;

    Shortcut wish;
    wish.id = shortcutID;
    wish.properties.insert(QStringLiteral("description"), tr("Record a region of the screen"));
    wish.properties.insert(QStringLiteral("preferred_trigger"), m_trigger);
    QList<Shortcut> wishes;
    wishes << wish;
    QVariantList arguments;
    arguments << QVariant::fromValue(wishes) << QString(); // no window that a question could belong to
    auto binding = m_session->request(QStringLiteral("BindShortcuts"), arguments, QVariantMap());
    try {
        const QVariantMap bound = co_await binding;
        co_return stateIn(bound.value(QStringLiteral("shortcuts")));
    } catch (const PortalError& error) {
        if (error.reason() != PortalError::Reason::Denied)
            throw;
    }
    HotkeyRefusal::remember();
    co_return refused;
}

void PortalHotkey::notePress(const QDBusMessage& signal)
{
    if (isFromOurSession(signal) && signal.arguments().value(1).toString() == shortcutID)
        Q_EMIT pressed();
}

/// The user has changed the keys.
void PortalHotkey::noteChange(const QDBusMessage& signal)
{
    if (!m_isBinding && isFromOurSession(signal))
        setState(stateIn(signal.arguments().value(1)));
}

bool PortalHotkey::isFromOurSession(const QDBusMessage& signal) const
{
    return m_session && !m_session->path().isEmpty()
        && signal.arguments().value(0).value<QDBusObjectPath>().path() == m_session->path();
}

} // namespace quillbox
