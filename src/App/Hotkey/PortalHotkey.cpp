#include "App/Hotkey/PortalHotkey.h"

#include "App/Hotkey/HotkeyRefusal.h"
#include "App/Hotkey/ShortcutsPortal.h"
#include "Platform/Detach.h"
#include "Platform/Portal/DesktopPortal.h"

#include <QCoro/QCoroDBus>
#include <QCoro/QCoroFuture>
#include <QDBusObjectPath>
#include <QPointer>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace quillbox {

namespace {

using ShortcutsPortal::Shortcut;

const auto shortcutID = QStringLiteral("record-region");
const auto sessionInterface = QStringLiteral("org.freedesktop.portal.Session");

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

PortalHotkey::~PortalHotkey()
{
    closeSession();
}

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
        ++m_attempt;
        m_isBinding = false;
        m_session.clear();
        if (state().status != HotkeyStatus::NotRegistered)
            setState({.status = HotkeyStatus::Unavailable});
    }
    if (!now.isEmpty() && !m_trigger.isEmpty() && !m_isBinding)
        begin();
}

void PortalHotkey::begin()
{
    ++m_attempt;
    m_isBinding = true;
    detach(bindAndTell());
}

QCoro::Task<> PortalHotkey::bindAndTell()
{
    const auto isOver = [self = QPointer(this), attempt = m_attempt] {
        return self.isNull() || self->m_attempt != attempt;
    };
    auto binding = bind();
    const HotkeyState outcome = co_await binding;
    if (isOver())
        co_return;
    m_isBinding = false;
    if (outcome.status != HotkeyStatus::Active && outcome.status != HotkeyStatus::Unassigned)
        closeSession(); // the user may still assign a key to one that is open
    setState(outcome);
}

/// What becomes of the wish; without a meaning when the portal, or this object, goes meanwhile.
QCoro::Task<HotkeyState> PortalHotkey::bind()
{
    const auto isOver = [self = QPointer(this), attempt = m_attempt] {
        return self.isNull() || self->m_attempt != attempt;
    };
    HotkeyState outcome;
    outcome.status = HotkeyStatus::Unavailable;
    auto looking = ShortcutsPortal::look(m_bus);
    const auto offer = co_await looking;
    if (isOver() || offer.lack != ShortcutsPortal::Offer::Lack::None)
        co_return outcome;
    if (HotkeyRefusal::isRemembered()) {
        outcome.status = HotkeyStatus::Refused;
        co_return outcome;
    }
    setState({.status = HotkeyStatus::Asking, .isDesktops = true});

    QVariantMap options;
    options.insert(QStringLiteral("session_handle_token"),
        QString(QStringLiteral("quillbox_") + QUuid::createUuid().toString(QUuid::Id128)));
    auto creating = ask(QStringLiteral("CreateSession"), QVariantList(), options);
    const PortalRequest::Outcome created = co_await creating;
    if (isOver() || !created || created->code != 0)
        co_return outcome;
    m_session = DesktopPortal::sessionIn(created->results);
    m_bus.connect(QString(), m_session, sessionInterface, QStringLiteral("Closed"), this, SLOT(noteClosed()));

    Shortcut wish;
    wish.id = shortcutID;
    wish.properties.insert(QStringLiteral("description"), tr("Record a region of the screen"));
    wish.properties.insert(QStringLiteral("preferred_trigger"), m_trigger);
    QList<Shortcut> wishes;
    wishes << wish;
    QVariantList arguments;
    arguments << QVariant::fromValue(QDBusObjectPath(m_session)) << QVariant::fromValue(wishes)
              << QString(); // no window that a question could belong to
    auto binding = ask(QStringLiteral("BindShortcuts"), arguments, QVariantMap());
    const PortalRequest::Outcome bound = co_await binding;
    if (isOver() || !bound)
        co_return outcome;
    constexpr uint refused = 1;
    if (bound->code == 0) {
        outcome = stateIn(bound->results.value(QStringLiteral("shortcuts")));
    } else if (bound->code == refused) {
        HotkeyRefusal::remember();
        outcome.status = HotkeyStatus::Refused;
    }
    co_return outcome;
}

/// Calls `method` of GlobalShortcuts, `options` last, and waits for the user's answer. None if the portal, or this
/// object, goes meanwhile, or the portal wants none of it.
QCoro::Task<PortalRequest::Outcome> PortalHotkey::ask(QString method, QVariantList arguments, QVariantMap options)
{
    const QPointer request(new PortalRequest(m_bus));
    request->setParent(this);
    const auto outcome = request->outcome();
    options.insert(QStringLiteral("handle_token"), request->token());
    arguments << options;
    const QDBusPendingCall calling
        = m_bus.asyncCall(DesktopPortal::method(QLatin1String(ShortcutsPortal::interface), method, arguments));
    const QDBusMessage reply = co_await calling;
    PortalRequest::Outcome answer;
    if (reply.type() != QDBusMessage::ErrorMessage)
        answer = co_await outcome;
    if (request) // else this object destroyed it
        request->deleteLater();
    co_return answer;
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
    return !m_session.isEmpty() && signal.arguments().value(0).value<QDBusObjectPath>().path() == m_session;
}

void PortalHotkey::noteClosed()
{
    m_session.clear();
    if (!m_isBinding)
        setState({.status = HotkeyStatus::Unassigned, .isDesktops = true});
}

void PortalHotkey::closeSession()
{
    PortalRequest::closeSession(m_bus, std::exchange(m_session, QString()));
}

} // namespace quillbox
