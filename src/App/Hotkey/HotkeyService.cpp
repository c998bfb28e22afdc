#include "App/Hotkey/HotkeyService.h"

#include "App/Hotkey/X11Hotkey.h"

#include <QGuiApplication>

namespace quillbox {
namespace {

class NoHotkey : public HotkeyService {
public:
    void grab(std::uint32_t /*keyCode*/, std::uint32_t /*modifiers*/) override { }
    [[nodiscard]] HotkeyStatus status() const override { return HotkeyStatus::Unavailable; }
};

} // namespace

std::unique_ptr<HotkeyService> makeHotkeyService()
{
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        return std::make_unique<X11Hotkey>();
    return std::make_unique<NoHotkey>();
}

} // namespace quillbox
