#include "App/Hotkey/HotkeyService.h"

#include "App/Hotkey/PortalHotkey.h"
#include "App/Hotkey/X11Hotkey.h"
#include "Platform/WindowSystem.h"
#include "Translation/Translate.h"

#include <QByteArray>

#include <utility>

namespace quillbox {
namespace {

using Backend = HotkeyChoice::Backend;

class NoHotkey : public HotkeyService {
public:
    void grab(std::uint32_t /*keyCode*/, std::uint32_t /*modifiers*/) override
    {
        setState({.status = HotkeyStatus::Unavailable});
    }
};

} // namespace

void HotkeyService::setState(HotkeyState next)
{
    if (m_state == next)
        return;
    m_state = std::move(next);
    Q_EMIT stateChanged();
}

HotkeyChoice chooseHotkey()
{
    const QByteArray wanted = qgetenv("QUILLBOX_HOTKEY_BACKEND");
    if (wanted == "x11")
        return {Backend::X11, {}};
    if (wanted == "portal")
        return {Backend::Portal, {}};
    if (wanted == "none")
        return {Backend::None, translate("Doctor", "The hotkey is switched off by QUILLBOX_HOTKEY_BACKEND")};
    if (!wanted.isEmpty())
        return {Backend::None,
            withArguments(
                translate("Doctor", "QUILLBOX_HOTKEY_BACKEND is \"%1\", which is none of x11, portal and none"),
                {wanted.toStdString()})};
    return {sessionWindowSystem() == WindowSystem::Wayland ? Backend::Portal : Backend::X11, {}};
}

std::unique_ptr<HotkeyService> makeHotkeyService()
{
    switch (chooseHotkey().backend) {
    case Backend::X11:
        return std::make_unique<X11Hotkey>();
    case Backend::Portal:
        return std::make_unique<PortalHotkey>();
    case Backend::None:
        break;
    }
    return std::make_unique<NoHotkey>();
}

} // namespace quillbox
