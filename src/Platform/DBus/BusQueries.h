#pragma once

#include <QCoro/QCoroTask>
#include <QDBusConnection>
#include <QString>
#include <QVariant>

namespace quillbox {

/// Short questions to a D-Bus bus, which start no program. Nothing takes longer than `reportPatience`. Stateless;
/// thread: main.
namespace BusQueries {

enum class Presence { None, Startable, Running };

/// Whether a service of that name is on the bus, or would be started by it. None without a bus.
[[nodiscard]] QCoro::Task<Presence> presence(QDBusConnection bus, QString name);

/// A property of a running service; invalid if it doesn't tell.
[[nodiscard]] QCoro::Task<QVariant> property(
    QDBusConnection bus, QString service, QString path, QString interface, QString name);

} // namespace BusQueries
} // namespace quillbox
