#include "Capture/CaptureReport.h"

#include "Capture/CaptureBackEnd.h"
#include "Capture/CaptureError.h"
#include "Capture/PipeWire/PipeWireSession.h"
#include "Capture/Portal/RestoreToken.h"
#include "Capture/Portal/ScreenCastPortal.h"
#include "Platform/DBus/BusQueries.h"
#include "Platform/DBus/SessionBus.h"
#include "Platform/Portal/DesktopPortal.h"
#include "Platform/RunWithTimeout.h"
#include "Platform/Sandbox.h"
#include "Platform/X11/X11Display.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroFuture>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <utility>

namespace quillbox {

namespace {

using Health = ServiceReport::Health;

ServiceReport begun()
{
    ServiceReport report;
    report.service = QT_TRANSLATE_NOOP("Doctor", "Screen");
    return report;
}

/// On the thread that may wait for the server.
ServiceReport x11Report()
{
    ServiceReport report = begun();
    try {
        const X11Display display;
        (void)display.layout(); // throws where pixels can't be read
        report.used = withArguments(translate("Doctor", "the X server %1"), {std::getenv("DISPLAY")});
        const std::array<std::pair<const char*, bool>, 4> extensions{
            {{"MIT-SHM", display.hasSharedMemory()}, {"DAMAGE", display.damageEvents().has_value()},
                {"XFIXES", display.xfixesEvents().has_value()}, {"RANDR", display.hasMonitors()}}};
        std::string present;
        std::string absent;
        for (const auto& [name, isPresent] : extensions) {
            auto& list = isPresent ? present : absent;
            list += (list.empty() ? "" : ", ") + std::string(name);
        }
        if (!present.empty())
            report.found.push_back(withArguments(translate("Doctor", "extensions %1"), {present}));
        if (!absent.empty())
            report.advice.push_back(withArguments(
                translate("Doctor", "the server lacks %1: recording is slower, has no pointer, or knows no monitors"),
                {absent}));
        report.health = absent.empty() ? Health::Works : Health::Limited;
    } catch (const DisplayError& error) {
        report.used = error.what();
        report.advice.emplace_back(
            translate("Doctor", "start it inside a desktop session; quillbox encode needs none"));
    }
    return report;
}

std::string logInAgain()
{
    return translate("Doctor", "log in again when it is installed: the portal looks for its pieces only once");
}

/// What the sources are that the portal offers, by the bits of AvailableSourceTypes.
std::string sourcesIn(uint bits)
{
    constexpr std::array<const char*, 3> names{QT_TRANSLATE_NOOP("Doctor", "monitors"),
        QT_TRANSLATE_NOOP("Doctor", "windows"), QT_TRANSLATE_NOOP("Doctor", "virtual monitors")};
    std::string text;
    for (std::size_t bit = 0; bit < names.size(); ++bit)
        if ((bits & (1U << bit)) != 0)
            text += (text.empty() ? "" : ", ") + translate("Doctor", names.at(bit));
    return text;
}

/// What there is of PipeWire; none where it does not answer.
QCoro::Task<std::optional<PipeWireSession>> pipeWireSession()
{
    PipeWireSession whole;
    whole.isRunning = true;
    whole.hasManager = true;
    if (isInSandbox()) // the portal reaches it from a sandbox
        co_return whole;
    const auto answer = runWithTimeout<PipeWireSession>(reportPatience, &PipeWireSession::look);
    co_return co_await answer;
}

/// Why the pictures of a portal that has them don't reach us, and what helps. @return false where nothing is in the way
bool reportsPipeWire(ServiceReport& report, const std::optional<PipeWireSession>& session)
{
    if (!session) {
        report.used = translate("Doctor", "PipeWire, which brings the screen's pictures, does not answer");
        report.advice.emplace_back(translate("Doctor", "systemctl --user restart pipewire wireplumber may help"));
    } else if (!session->isRunning) {
        report.used = translate("Doctor", "The desktop portal shows the screen through PipeWire, which does not run");
        report.packages = {"pipewire", "wireplumber"};
        report.advice.push_back(logInAgain());
    } else if (!session->hasManager) {
        report.used = translate("Doctor", "PipeWire has no session manager, which connects its programs");
        report.packages = {"wireplumber"};
        report.advice.emplace_back(
            translate("Doctor", "systemctl --user start wireplumber starts one that is installed"));
    }
    return !report.used.empty();
}

/// Why the portal has no pictures, and what helps.
void reportPortal(ServiceReport& report, const std::string& failure, BusQueries::Presence presence, bool lacksPipeWire)
{
    report.used = failure;
    report.advice.push_back(logInAgain());
    if (!SessionBus::connection().isConnected()) {
        report.packages.emplace_back("dbus-user-session");
        return;
    }
    if (presence == BusQueries::Presence::None)
        report.packages.emplace_back("xdg-desktop-portal");
    const auto backEnd = CaptureReport::portalPackage(qgetenv("XDG_CURRENT_DESKTOP").toStdString());
    if (!backEnd.empty())
        report.packages.push_back(backEnd);
    if (lacksPipeWire)
        report.packages.insert(report.packages.end(), {"pipewire", "wireplumber"});
}

QCoro::Task<ServiceReport> portalReport()
{
    ServiceReport report = begun();
    auto portal = std::make_unique<ScreenCastPortal>(reportPatience);
    ScreenCastPortal::Offer offer;
    std::string failure;
    bool doesNotAnswer = false;
    try {
        auto looking = portal->look();
        offer = co_await looking;
    } catch (const CaptureError& error) {
        failure = error.what();
        doesNotAnswer = error.reason() == CaptureError::Reason::DisplayGone;
    }
    auto lookingFor = BusQueries::presence(SessionBus::connection(), QLatin1String(DesktopPortal::service));
    const auto presence = co_await lookingFor;
    auto lookingAtPipeWire = pipeWireSession();
    const auto session = co_await lookingAtPipeWire;
    if (presence != BusQueries::Presence::None)
        report.found.push_back(failure.empty()
                ? withArguments(translate("Doctor", "the portal's ScreenCast, version %1: %2"),
                    {std::to_string(offer.version), sourcesIn(offer.sources)})
                : translate("Doctor", "a desktop portal"));
    if (session && session->isRunning)
        report.found.emplace_back("PipeWire");
    if (doesNotAnswer) {
        report.used = translate("Doctor", "The desktop portal does not answer");
        report.advice.emplace_back(translate("Doctor", "systemctl --user restart xdg-desktop-portal may help"));
        co_return report;
    }
    if (!failure.empty()) {
        const bool lacksPipeWire = session && !session->isRunning;
        reportPortal(report, failure, presence, lacksPipeWire);
        co_return report;
    }
    if (reportsPipeWire(report, session))
        co_return report;
    report.health = Health::Works;
    report.used = translate("Doctor", "the desktop portal and PipeWire");
    report.found.emplace_back(RestoreToken::read().isEmpty()
            ? translate("Doctor", "the desktop will ask which monitor to show")
            : translate("Doctor", "the desktop may remember which monitor to show"));
    if (!RestoreToken::read().isEmpty())
        report.advice.push_back(withArguments(
            translate("Doctor", "to choose another monitor, remove %1"), {RestoreToken::path().toStdString()}));
    co_return report;
}

} // namespace

std::string CaptureReport::portalPackage(std::string_view desktop)
{
    constexpr std::array<std::pair<std::string_view, const char*>, 9> packages{{
        {"GNOME", "xdg-desktop-portal-gnome"},
        {"KDE", "xdg-desktop-portal-kde"},
        {"Hyprland", "xdg-desktop-portal-hyprland"},
        {"sway", "xdg-desktop-portal-wlr"},
        {"wlroots", "xdg-desktop-portal-wlr"},
        {"river", "xdg-desktop-portal-wlr"},
        {"labwc", "xdg-desktop-portal-wlr"},
        {"wayfire", "xdg-desktop-portal-wlr"},
        {"Wayfire", "xdg-desktop-portal-wlr"},
    }};
    while (!desktop.empty()) {
        const auto name = desktop.substr(0, desktop.find(':'));
        for (const auto& [known, package] : packages)
            if (name == known)
                return package;
        desktop.remove_prefix(std::min(name.size() + 1, desktop.size()));
    }
    return {};
}

QCoro::Task<ServiceReport> CaptureReport::make()
{
    const auto choice = chooseCapture();
    if (choice.backEnd == CaptureBackEnd::Portal) {
        auto asking = portalReport();
        co_return co_await asking;
    }
    ServiceReport report = begun();
    if (choice.backEnd == CaptureBackEnd::None) {
        report.used = choice.reason;
        co_return report;
    }
    const auto answer = runWithTimeout<ServiceReport>(reportPatience, &x11Report);
    const std::optional<ServiceReport> answered = co_await answer;
    if (answered)
        co_return *answered;
    report.used = translate("Doctor", "The X server does not answer");
    co_return report;
}

} // namespace quillbox
