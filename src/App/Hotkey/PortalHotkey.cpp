#include "App/Hotkey/PortalHotkey.h"

#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/HotkeyRefusal.h"
#include "App/Hotkey/KDEShortcuts.h"
#include "App/Hotkey/KeyboardMap.h"
#include "App/Hotkey/ShortcutsPortal.h"
#include "Platform/DBus/SessionBus.h"
#include "Platform/Detach.h"
#include "Platform/Portal/DesktopPortal.h"
#include "Platform/RunWithTimeout.h"
#include "Platform/Wayland/KeyboardLayout.h"

#include <QCoro/QCoroFuture>
#include <QDBusObjectPath>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <utility>

namespace quillbox {

namespace {

using ShortcutsPortal::Shortcut;

const auto shortcutID = QString::fromLatin1(ShortcutsPortal::shortcutID);
const auto sessionName = QString::fromLatin1(ShortcutsPortal::sessionName);

constexpr std::chrono::seconds keymapPatience{10}; // nobody waits for a hotkey of a desktop that is just starting

/// What Shift and the "2" give on a US keyboard: for want of the true one.
const auto usualSymbol = QStringLiteral("at");

/// What a list of shortcuts, which holds those that are bound, means for ours.
HotkeyState stateIn(const QVariant& shortcuts)
{
    const auto bound = ShortcutsPortal::shortcutsIn(shortcuts);
    const auto ours = std::ranges::find(bound, shortcutID, &Shortcut::id);
    if (ours == bound.end())
        return {.status = HotkeyStatus::Unassigned, .isDesktops = true};
    const auto trigger = ours->properties.value(QStringLiteral("trigger_description")).toString().simplified();
    return {.status = HotkeyStatus::Active, .trigger = ShortcutsPortal::readable(trigger), .isDesktops = true};
}

/// What a key gives with Shift, as xkbcommon names it.
QCoro::Task<QString> shiftedSymbol(std::uint32_t keyCode)
{
    using Symbol = std::optional<std::string>;
    const std::uint32_t key = *KeyboardMap::x11KeyCode(keyCode); // keymaps of Wayland count as X does
    const std::function<Symbol()> look = [key] {
        return KeyboardLayout::shiftedSymbol(key);
    };
    const auto looking = runWithTimeout<Symbol>(keymapPatience, look); // it waits for the compositor
    const std::optional<Symbol> symbol = co_await looking;
    const bool isKnown = symbol && *symbol;
    co_return isKnown ? QString::fromStdString(**symbol) : usualSymbol;
}

/// Begins a session that the desktop may know from an earlier start.
QCoro::Task<QVariantMap> openSession(QPointer<PortalSession> session, QVariantMap options)
{
    auto opening = session->open(sessionName, options);
    std::optional<PortalError> failure;
    try {
        const QVariantMap opened = co_await opening;
        co_return opened;
    } catch (const PortalError& error) {
        failure = error;
    }
    if (failure->reason() != PortalError::Reason::Failed || !session)
        throw PortalError(*failure);
    // A back end that has outlived its portal goes on with the session of that name, which nobody can reach any more.
    auto again = session->open(sessionName + QStringLiteral("_again"), options);
    const QVariantMap opened = co_await again;
    co_return opened;
}

/// What is in force, where the portal has told `told`. `session` is its path, `symbol` what Shift and the key give.
QCoro::Task<HotkeyState> checked(QDBusConnection bus, QString session, HotkeyState told, QString symbol)
{
    auto asking = KDEShortcuts::keysInForce(bus, session.section(QLatin1Char('/'), -1), shortcutID);
    const std::optional<QString> keys = co_await asking;
    if (keys) {
        told.status = keys->isEmpty() ? HotkeyStatus::Unassigned : HotkeyStatus::Active;
        told.trigger = *keys;
    }
    const auto text = QString::fromStdString(KeyboardLayout::textOf(symbol.toStdString()));
    told.isOther = !told.trigger.isEmpty() && !ShortcutsPortal::isUsual(told.trigger, text);
    co_return told;
}

} // namespace

PortalHotkey::PortalHotkey()
    : m_bus(SessionBus::connection())
    , m_watcher(QLatin1String(DesktopPortal::service), m_bus, QDBusServiceWatcher::WatchForOwnerChange)
    , m_symbol(usualSymbol)
{
    ShortcutsPortal::registerTypes();
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString& /*service*/, const QString& before, const QString& now) { followOwner(before, now); });
    listen();
}

PortalHotkey::~PortalHotkey() = default; // the session goes, and with it the question and the shortcut

void PortalHotkey::grab(std::uint32_t keyCode, std::uint32_t modifiers)
{
    if (!ShortcutsPortal::triggerFor(keyCode, modifiers)) {
        setState({.status = HotkeyStatus::Unavailable});
        return;
    }
    m_wish = Wish{keyCode, modifiers};
    begin();
}

void PortalHotkey::listen()
{
    const auto path = QLatin1String(DesktopPortal::path);
    const auto interface = QLatin1String(ShortcutsPortal::interface);
    m_bus.connect(QString(), path, interface, QStringLiteral("Activated"), this, SLOT(notePress(QDBusMessage)));
    m_bus.connect(QString(), path, interface, QStringLiteral("ShortcutsChanged"), this, SLOT(noteChange(QDBusMessage)));
}

void PortalHotkey::reconnect()
{
    m_bus = SessionBus::connection();
    m_watcher.setConnection(m_bus);
    listen();
    if (m_wish)
        begin(); // the session ended with the bus, and with it the portal
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
    if (!now.isEmpty() && m_wish && !m_isBinding)
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
    const QPointer session(m_session.get());
    QString trigger = *ShortcutsPortal::triggerFor(m_wish->keyCode, m_wish->modifiers);
    if (KDEShortcuts::isDesktop() && (m_wish->modifiers & HotkeyMath::shift) != 0) {
        auto naming = shiftedSymbol(m_wish->keyCode);
        const QString symbol = co_await naming;
        if (!session)
            throw PortalError(PortalError::Reason::Withdrawn);
        m_symbol = symbol;
        trigger = ShortcutsPortal::triggerForSymbol(symbol, m_wish->modifiers);
    }

    Shortcut wish;
    wish.id = shortcutID;
    wish.properties.insert(QStringLiteral("description"), tr("Record a region of the screen"));
    wish.properties.insert(QStringLiteral("preferred_trigger"), trigger);
    QList<Shortcut> wishes;
    wishes << wish;
    // KDE 5.27 binds what this option holds; BindShortcuts makes it open its settings. Others don't know the option.
    QVariantMap options;
    options.insert(QStringLiteral("shortcuts"), QVariant::fromValue(wishes));
    auto opening = openSession(session, options);
    const QVariantMap opened = co_await opening;
    HotkeyState told = stateIn(opened.value(QStringLiteral("shortcuts")));
    if (told.status != HotkeyStatus::Active) {
        QVariantList arguments;
        arguments << QVariant::fromValue(wishes) << QString(); // no window that a question could belong to
        auto binding = session->request(
            PortalSession::Answer::OfUser, QStringLiteral("BindShortcuts"), arguments, QVariantMap());
        bool isDenied = false;
        QVariant list;
        try {
            const QVariantMap bound = co_await binding;
            list = bound.value(QStringLiteral("shortcuts"));
        } catch (const PortalError& error) {
            isDenied = error.reason() == PortalError::Reason::Denied;
            if (!isDenied)
                throw;
        }
        if (isDenied) {
            HotkeyRefusal::remember();
            co_return refused;
        }
        if (!list.isValid()) { // Plasma 6 says only that there is an answer, where the user was asked for it
            auto listing = session->request(
                PortalSession::Answer::OfPortal, QStringLiteral("ListShortcuts"), QVariantList(), QVariantMap());
            const QVariantMap listed = co_await listing;
            list = listed.value(QStringLiteral("shortcuts"));
        }
        told = stateIn(list);
    }
    auto checking = checked(m_bus, session->path(), told, m_symbol);
    const HotkeyState state = co_await checking;
    if (!session)
        throw PortalError(PortalError::Reason::Withdrawn);
    co_return state;
}

/// Tells what has become of the keys, where the portal has told `told`.
QCoro::Task<> PortalHotkey::follow(HotkeyState told)
{
    const QPointer session(m_session.get());
    auto checking = checked(m_bus, session->path(), std::move(told), m_symbol);
    const HotkeyState state = co_await checking;
    if (session && !m_isBinding)
        setState(state);
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
        detach(follow(stateIn(signal.arguments().value(1))));
}

bool PortalHotkey::isFromOurSession(const QDBusMessage& signal) const
{
    return m_session && !m_session->path().isEmpty()
        && signal.arguments().value(0).value<QDBusObjectPath>().path() == m_session->path();
}

} // namespace quillbox

#include "moc_PortalHotkey.cpp"
