#pragma once

#include <QCoro/QCoroTask>
#include <QDBusConnection>
#include <QString>
#include <QStringList>

#include <optional>

namespace quillbox {

/// What KDE's own service of global shortcuts knows. Its portal may claim keys that are another program's, or that it
/// has forgotten; this service has those that are in force. Stateless; thread: main.
namespace KDEShortcuts {

/// Whether this session says that it is KDE's.
[[nodiscard]] bool isDesktop();

/// What its portal calls our shortcuts there, the latest first. Plasma 6: the program's id, or the session's name where
/// it knows no id; Plasma 5: both, or the name.
[[nodiscard]] QStringList componentNames(const QString& session);

/// The keys that trigger an action of ours, as KDE's settings name them ("Meta+@"); empty where there are none. None
/// where the service doesn't run or doesn't know us.
/// @param session  The name that we gave our session with the portal: its shortcuts are kept under that.
[[nodiscard]] QCoro::Task<std::optional<QString>> keysInForce(QDBusConnection bus, QString session, QString action);

} // namespace KDEShortcuts
} // namespace quillbox
