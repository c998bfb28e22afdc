#include "App/Hotkey/HotkeyNotice.h"

namespace quillbox {

QString HotkeyNotice::combination(const HotkeyState& state)
{
    return tr("Super + Shift + %1").arg(state.key.isEmpty() ? QStringLiteral("2") : state.key);
}

QString HotkeyNotice::instead(const HotkeyState& state)
{
    return isUsable(state.status) ? QString() : tr("Press “Record Region”, not ⌘⇧2.");
}

QString HotkeyNotice::problem(const HotkeyState& state)
{
    if (state.status == HotkeyStatus::Active && state.isOther)
        return otherKeys(state);
    const QString what = reason(state);
    return what.isEmpty() ? instead(state) : tr("%1 %2", "two sentences").arg(instead(state), what);
}

QString HotkeyNotice::introduction(const HotkeyState& state)
{
    const bool isAskedFor = state.status == HotkeyStatus::Asking || state.status == HotkeyStatus::NotRegistered;
    const bool isUsual = state.status == HotkeyStatus::Active && state.trigger.isEmpty();
    if (isAskedFor || isUsual)
        return {};
    const QString what = reason(state);
    return what.isEmpty() ? explanation(state) : what;
}

QString HotkeyNotice::explanation(const HotkeyState& state)
{
    if (state.status == HotkeyStatus::Refused)
        return tr(
            "No hotkey, as you decided. “quillbox toggle” can be bound to a key; “quillbox doctor” tells how to be "
            "asked again.");
    if (state.status == HotkeyStatus::Asking || state.status == HotkeyStatus::NotRegistered)
        return tr("The desktop may ask whether Quillbox may have this hotkey.");
    if (!isUsable(state.status))
        return problem(state);
    if (!state.isDesktops)
        return tr("⌘ is the Super key: press %1 in any program.").arg(combination(state));
    if (state.trigger.isEmpty())
        return tr("The desktop's settings tell the keys, and can change them.");
    return otherKeys(state);
}

QString HotkeyNotice::otherKeys(const HotkeyState& state)
{
    return tr("The desktop has set the keys to: %1. Its settings can change them.").arg(state.trigger);
}

/// Whether the combination does something, or is not known to do nothing.
bool HotkeyNotice::isUsable(HotkeyStatus status)
{
    switch (status) {
    case HotkeyStatus::Active:
    case HotkeyStatus::Asking:
    case HotkeyStatus::NotRegistered:
        return true;
    case HotkeyStatus::Taken:
    case HotkeyStatus::Unassigned:
    case HotkeyStatus::Unavailable:
    case HotkeyStatus::Refused:
        break;
    }
    return false;
}

/// Why there is no hotkey, and what the user can do; empty where there is one, or where the user did not want it.
QString HotkeyNotice::reason(const HotkeyState& state)
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

} // namespace quillbox
