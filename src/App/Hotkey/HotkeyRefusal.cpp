#include "App/Hotkey/HotkeyRefusal.h"

#include "Platform/StateFile.h"

namespace quillbox::HotkeyRefusal {

namespace {

const auto file = QStringLiteral("global-shortcut");
const auto refused = QStringLiteral("refused");

} // namespace

bool isRemembered()
{
    return StateFile::read(file) == refused;
}

void remember()
{
    StateFile::replace(file, refused);
}

QString path()
{
    return StateFile::path(file);
}

} // namespace quillbox::HotkeyRefusal
