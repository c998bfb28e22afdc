#include "App/Desktop/HotkeyReport.h"

#include "App/Desktop/ApplicationService.h"
#include "App/Hotkey/HotkeyChoice.h"
#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/HotkeyNotice.h"
#include "App/Hotkey/HotkeyRefusal.h"
#include "App/Hotkey/KDEShortcuts.h"
#include "App/Hotkey/ShortcutsPortal.h"
#include "App/Hotkey/X11Hotkey.h"
#include "Platform/DBus/BusQueries.h"
#include "Platform/DBus/SessionBus.h"
#include "Platform/DisplayError.h"
#include "Platform/Portal/PortalSession.h"
#include "Platform/RunWithTimeout.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroFuture>
#include <QDBusArgument>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quillbox {

namespace {

using Health = ServiceReport::Health;

constexpr std::array statusNames{
    std::pair{HotkeyStatus::NotRegistered, "none"},
    std::pair{HotkeyStatus::Asking, "asking"},
    std::pair{HotkeyStatus::Active, "active"},
    std::pair{HotkeyStatus::Taken, "taken"},
    std::pair{HotkeyStatus::Refused, "refused"},
    std::pair{HotkeyStatus::Unassigned, "unassigned"},
    std::pair{HotkeyStatus::Unavailable, "unavailable"},
};

/// What the running application tells of its hotkey; none where none runs.
QCoro::Task<std::optional<HotkeyState>> toldState()
{
    auto asking = BusQueries::property(SessionBus::connection(), ApplicationService::busName(),
        ApplicationService::objectPath(), ApplicationService::interfaceName(), QStringLiteral("Hotkey"));
    const QVariant answer = co_await asking;
    const auto map = qdbus_cast<QVariantMap>(answer);
    const auto name = map.value(QStringLiteral("status")).toString().toStdString();
    HotkeyState state;
    const auto* const known = std::ranges::find(
        statusNames, std::string_view(name), [](const auto& each) { return std::string_view(each.second); });
    if (known == statusNames.end())
        co_return std::nullopt;
    state.status = known->first;
    state.trigger = map.value(QStringLiteral("keys")).toString();
    state.key = map.value(QStringLiteral("key")).toString();
    co_return state;
}

std::string bindToggle()
{
    return translate("Doctor", "bind quillbox toggle to a key in the desktop's settings");
}

ServiceReport begun()
{
    ServiceReport report;
    report.service = QT_TRANSLATE_NOOP("Doctor", "Hotkey");
    report.health = Health::Limited; // there is always quillbox toggle
    return report;
}

/// On the thread that may wait for the server.
HotkeyState tryOutDefault()
{
    try {
        return X11Hotkey::tryOut(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    } catch (const DisplayError&) {
        return {.status = HotkeyStatus::Unavailable}; // the report on the screen says more
    }
}

std::string combination(const HotkeyState& state)
{
    return HotkeyNotice::combination(state).toStdString();
}

/// The running application knows; without one, a look tells what it would have.
QCoro::Task<ServiceReport> x11Report()
{
    ServiceReport report = begun();
    auto asking = toldState();
    const auto told = co_await asking;
    std::optional<HotkeyState> state = told;
    if (!told) {
        const auto answer = runWithTimeout<HotkeyState>(reportPatience, &tryOutDefault);
        state = co_await answer;
    }
    const auto status = state ? state->status : HotkeyStatus::Unavailable;
    if (status == HotkeyStatus::Active) {
        report.health = Health::Works;
        report.used = withArguments(translate("Doctor", "%1 of the X server"), {combination(*state)});
        report.found.emplace_back(told ? translate("Doctor", "it is held, as Quillbox runs")
                                       : translate("Doctor", "no other program holds it"));
    } else if (status == HotkeyStatus::Taken) {
        report.used = withArguments(translate("Doctor", "Another program holds %1"), {combination(*state)});
        report.advice.push_back(bindToggle());
    } else {
        report.used = translate("Doctor", "There is no X server that has the keys");
    }
    co_return report;
}

/// What the next start will get, where KDE keeps these keys from the last one; none where it keeps none.
std::optional<HotkeyState> stateOf(const std::optional<QString>& keys)
{
    if (!keys)
        return std::nullopt;
    return HotkeyState{.status = keys->isEmpty() ? HotkeyStatus::Unassigned : HotkeyStatus::Active, .trigger = *keys};
}

/// What the portal's shortcuts come to: who has asked for them knows, and KDE.
void reportBinding(ServiceReport& report, const std::optional<HotkeyState>& state)
{
    const auto status = state ? state->status : HotkeyStatus::NotRegistered;
    if (status == HotkeyStatus::Active) {
        report.health = Health::Works;
        report.used = state->trigger.isEmpty()
            ? translate("Doctor", "the desktop portal; the desktop's settings tell the keys")
            : withArguments(translate("Doctor", "the desktop portal: %1"), {state->trigger.toStdString()});
    } else if (status == HotkeyStatus::NotRegistered || status == HotkeyStatus::Asking) {
        report.used = withArguments(
            translate("Doctor", "the desktop portal, once it has been asked for %1"), {combination(HotkeyState())});
        report.advice.emplace_back(
            translate("Doctor", "start Quillbox and look again: only then the desktop tells what it has bound"));
    } else {
        report.used = translate("Doctor", "The desktop has bound no key for Quillbox");
        report.advice.push_back(bindToggle());
    }
}

/// Why the portal has no shortcuts for us.
std::string obstacleIn(const PortalError& error)
{
    switch (error.reason()) {
    case PortalError::Reason::NoBus:
        return translate("Doctor", "There is no session bus");
    case PortalError::Reason::NoPortal:
        return translate("Doctor", "There is no desktop portal");
    case PortalError::Reason::NoInterface:
        return translate("Doctor", "The portal has no global shortcuts on this desktop");
    default:
        return translate("Doctor", "The desktop portal does not answer");
    }
}

QCoro::Task<ServiceReport> portalReport()
{
    ServiceReport report = begun();
    PortalSession portal(QLatin1String(ShortcutsPortal::interface), reportPatience);
    try {
        auto looking = portal.look();
        const QVariantMap properties = co_await looking;
        report.found.push_back(withArguments(translate("Doctor", "the portal's GlobalShortcuts, version %1"),
            {std::to_string(properties.value(QStringLiteral("version")).toUInt())}));
    } catch (const PortalError& error) {
        report.used = obstacleIn(error);
        report.advice.push_back(bindToggle());
        co_return report;
    }
    if (HotkeyRefusal::isRemembered()) {
        report.used = translate("Doctor", "You refused it when the desktop asked");
        report.advice.push_back(withArguments(translate("Doctor",
                                                  "to be asked again, remove %1 and start Quillbox anew; or bind "
                                                  "quillbox toggle to a key in the desktop's settings"),
            {HotkeyRefusal::path().toStdString()}));
        co_return report;
    }
    auto asking = toldState();
    std::optional<HotkeyState> state = co_await asking;
    if (!state) {
        auto looking = KDEShortcuts::keysInForce(SessionBus::connection(), QLatin1String(ShortcutsPortal::sessionName),
            QLatin1String(ShortcutsPortal::shortcutID));
        const std::optional<QString> keys = co_await looking;
        state = stateOf(keys);
    }
    reportBinding(report, state);
    co_return report;
}

} // namespace

QVariantMap HotkeyReport::told(const HotkeyState& state)
{
    const auto* const known = std::ranges::find(statusNames, state.status, [](const auto& each) { return each.first; });
    QVariantMap map;
    map.insert(QStringLiteral("status"), QString::fromLatin1(known->second));
    if (!state.trigger.isEmpty())
        map.insert(QStringLiteral("keys"), state.trigger);
    if (!state.key.isEmpty())
        map.insert(QStringLiteral("key"), state.key);
    return map;
}

QCoro::Task<ServiceReport> HotkeyReport::make()
{
    const auto choice = chooseHotkey();
    if (choice.backEnd == HotkeyBackEnd::None) {
        ServiceReport report = begun();
        report.used = choice.reason;
        co_return report;
    }
    auto asking = choice.backEnd == HotkeyBackEnd::Portal ? portalReport() : x11Report();
    co_return co_await asking;
}

} // namespace quillbox
