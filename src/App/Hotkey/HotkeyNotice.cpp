#include "App/Hotkey/HotkeyNotice.h"

namespace quillbox {

QString HotkeyNotice::combination(const HotkeyState& state)
{
    return tr("Super + Shift + %1").arg(state.key.isEmpty() ? QStringLiteral("2") : state.key);
}

QString HotkeyNotice::problem(const HotkeyState& state)
{
    switch (state.status) {
    case HotkeyStatus::Taken:
        return tr(
            "Another program uses %1. Quillbox gets it as soon as it is free; “quillbox toggle” can be bound to any "
            "other key.")
            .arg(combination(state));
    case HotkeyStatus::Unassigned:
        return tr("This desktop has given Quillbox no hotkey. Bind “quillbox toggle” to a key in its settings.");
    case HotkeyStatus::Unavailable:
        return tr("This desktop has no global hotkeys. Bind “quillbox toggle” to a key in its settings.");
    case HotkeyStatus::Active:
    case HotkeyStatus::Asking:
    case HotkeyStatus::NotRegistered:
    case HotkeyStatus::Refused:
        break;
    }
    return {};
}

QString HotkeyNotice::introduction(const HotkeyState& state)
{
    const bool isAskedFor = state.status == HotkeyStatus::Asking || state.status == HotkeyStatus::NotRegistered;
    const bool isUsual = state.status == HotkeyStatus::Active && state.trigger.isEmpty();
    return isAskedFor || isUsual ? QString() : explanation(state);
}

QString HotkeyNotice::explanation(const HotkeyState& state)
{
    if (state.status == HotkeyStatus::Refused)
        return tr(
            "No hotkey, as you decided. “quillbox toggle” can be bound to a key; “quillbox doctor” tells how to be "
            "asked again.");
    if (state.status == HotkeyStatus::Asking || state.status == HotkeyStatus::NotRegistered)
        return tr("The desktop may ask whether Quillbox may have this hotkey.");
    auto trouble = problem(state);
    if (!trouble.isEmpty())
        return trouble;
    if (!state.isDesktops)
        return tr("⌘ is the Super key: press %1 in any program.").arg(combination(state));
    if (state.trigger.isEmpty())
        return tr("The desktop's settings tell the keys, and can change them.");
    return tr("The desktop has set the keys to: %1. Its settings can change them.").arg(state.trigger);
}

} // namespace quillbox
