#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

#include <cstdint>
#include <optional>

namespace quillbox {

/// What there is to know of the portal's global shortcuts, apart from any one of them. Stateless; thread: main.
/// @see  The documentation of org.freedesktop.portal.GlobalShortcuts.
namespace ShortcutsPortal {

inline constexpr auto interface = "org.freedesktop.portal.GlobalShortcuts";

inline constexpr auto shortcutID = "record-region"; ///< our only one

/// Of our session. Constant, as KDE keeps the user's keys under it. KDE 5.27 takes none that is a UUID.
inline constexpr auto sessionName = "quillbox_shortcuts";

/// One shortcut, as the portal is told of it, and tells of it.
struct Shortcut {
    QString id;
    QVariantMap properties;
};

/// Has Qt know how a list of shortcuts travels. Has to be called before one is sent.
void registerTypes();

/// The shortcuts of an answer, a(sa{sv}); none if it is something else.
[[nodiscard]] QList<Shortcut> shortcutsIn(const QVariant& value);

/// The combination as portals want it proposed, "LOGO+SHIFT+2"; none for a key that has no name there. Only the digits
/// of the main block are known.
/// @param keyCode    As `GlobalHotkey::registerKey` counts.
/// @param modifiers  A mask of `HotkeyMath`.
/// @see  freedesktop.org, “XDG Shortcuts”: how triggers are written.
[[nodiscard]] std::optional<QString> triggerFor(std::uint32_t keyCode, std::uint32_t modifiers);

/// The same for a desktop that knows keys by what they give: KWin never hears of "SHIFT+2" where Shift and the key give
/// "@", and wants "LOGO+at".
/// @param symbol  What the key gives with Shift, as xkbcommon names it.
[[nodiscard]] QString triggerForSymbol(const QString& symbol, std::uint32_t modifiers);

/// The words of a portal for a person: GNOME's are written as its settings keep them, "Press <super><shift>2".
[[nodiscard]] QString readable(const QString& description);

/// Whether the words of a portal can be for Super, Shift and the "2": they are made of names that desktops have for
/// them.
/// @param symbol  What Shift and that key give on the keyboard.
[[nodiscard]] bool isUsual(const QString& description, const QString& symbol);

} // namespace ShortcutsPortal
} // namespace quillbox

Q_DECLARE_METATYPE(quillbox::ShortcutsPortal::Shortcut)
