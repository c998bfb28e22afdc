#include "App/Hotkey/HotkeyChoice.h"

#include "App/Hotkey/PortalHotkey.h"
#include "App/Hotkey/X11Hotkey.h"
#include "Platform/WindowSystem.h"
#include "Translation/Translate.h"

namespace quillbox {
namespace {

using BackEnd = HotkeyBackEnd;

constexpr BackEndNames<BackEnd, 3> names{{{"x11", BackEnd::X11}, {"portal", BackEnd::Portal}, {"none", BackEnd::None}}};

class NoHotkey : public HotkeyService {
public:
    void grab(std::uint32_t /*keyCode*/, std::uint32_t /*modifiers*/) override
    {
        setState({.status = HotkeyStatus::Unavailable});
    }
};

} // namespace

BackEndChoice<BackEnd> chooseHotkey()
{
    auto choice = backEndByEnvironment("QUILLBOX_HOTKEY_BACKEND", names);
    if (!choice)
        return {sessionWindowSystem() == WindowSystem::Wayland ? BackEnd::Portal : BackEnd::X11};
    if (choice->backEnd == BackEnd::None && choice->reason.empty())
        choice->reason = translate("Doctor", "The hotkey is switched off by QUILLBOX_HOTKEY_BACKEND");
    return *choice;
}

std::unique_ptr<HotkeyService> makeHotkeyService()
{
    switch (chooseHotkey().backEnd) {
    case BackEnd::X11:
        return std::make_unique<X11Hotkey>();
    case BackEnd::Portal:
        return std::make_unique<PortalHotkey>();
    case BackEnd::None:
        break;
    }
    return std::make_unique<NoHotkey>();
}

} // namespace quillbox
