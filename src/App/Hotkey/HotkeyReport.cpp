#include "App/Hotkey/HotkeyReport.h"

#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/HotkeyRefusal.h"
#include "App/Hotkey/HotkeyService.h"
#include "App/Hotkey/ShortcutsPortal.h"
#include "App/Hotkey/X11Hotkey.h"
#include "Capture/AnswerWithin.h"
#include "Capture/BusQueries.h"
#include "Capture/CaptureError.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroFuture>

namespace quillbox {

namespace {

using Health = ServiceReport::Health;
using Lack = ShortcutsPortal::Offer::Lack;

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
HotkeyStatus tryOutDefault()
{
    try {
        return X11Hotkey::tryOut(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    } catch (const CaptureError&) {
        return HotkeyStatus::Unavailable; // the report on the screen says more
    }
}

QCoro::Task<ServiceReport> x11Report()
{
    ServiceReport report = begun();
    auto looking = BusQueries::presence(QDBusConnection::sessionBus(), QStringLiteral(QUILLBOX_APP_ID));
    const auto presence = co_await looking;
    const auto answer = answerWithin<HotkeyStatus>(reportPatience, &tryOutDefault);
    const std::optional<HotkeyStatus> status = co_await answer;
    if (status == HotkeyStatus::Active) {
        report.health = Health::Works;
        report.used = translate("Doctor", "Super+Shift+2 of the X server");
        report.found.emplace_back(translate("Doctor", "no other program holds it"));
    } else if (status == HotkeyStatus::Taken && presence == BusQueries::Presence::Running) {
        report.health = Health::Works;
        report.used = translate("Doctor", "Super+Shift+2 of the X server");
        report.found.emplace_back(translate("Doctor", "it is held, as Quillbox runs"));
    } else if (status == HotkeyStatus::Taken) {
        report.used = translate("Doctor", "Another program holds Super+Shift+2");
        report.advice.push_back(bindToggle());
    } else {
        report.used = translate("Doctor", "There is no X server that has the keys");
    }
    co_return report;
}

QCoro::Task<ServiceReport> portalReport()
{
    ServiceReport report = begun();
    auto looking = ShortcutsPortal::look(QDBusConnection::sessionBus(), static_cast<int>(reportPatience.count()));
    const auto offer = co_await looking;
    switch (offer.lack) {
    case Lack::None:
        report.found.push_back(withArguments(
            translate("Doctor", "the portal's GlobalShortcuts, version %1"), {std::to_string(offer.version)}));
        break;
    case Lack::NoBus:
        report.used = translate("Doctor", "There is no session bus");
        break;
    case Lack::NoPortal:
        report.used = translate("Doctor", "There is no desktop portal");
        break;
    case Lack::NoInterface:
        report.used = translate("Doctor", "The portal has no global shortcuts on this desktop");
        break;
    case Lack::NoAnswer:
        report.used = translate("Doctor", "The desktop portal does not answer");
        break;
    }
    if (offer.lack != Lack::None) {
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
    report.health = Health::Works;
    report.used = translate("Doctor", "the desktop portal, which proposes Super+Shift+2");
    co_return report;
}

} // namespace

QCoro::Task<ServiceReport> HotkeyReport::make()
{
    const HotkeyChoice choice = chooseHotkey();
    if (choice.backend == HotkeyChoice::Backend::None) {
        ServiceReport report = begun();
        report.used = choice.reason;
        co_return report;
    }
    auto asking = choice.backend == HotkeyChoice::Backend::Portal ? portalReport() : x11Report();
    co_return co_await asking;
}

} // namespace quillbox
