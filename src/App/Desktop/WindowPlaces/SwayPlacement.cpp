#include "App/Desktop/WindowPlaces/SwayPlacement.h"

#include "App/Desktop/WindowPlaces/SwayWindows.h"
#include "Views/PanelPlacement.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace quillbox {
namespace {

QJsonArray childrenOf(const QJsonObject& container, const char* kind)
{
    return container.value(QLatin1String(kind)).toArray();
}

/// The place of the floating window with that number; none where it is not in this workspace.
std::optional<QRect> floatingIn(const QJsonObject& workspace, qint64 window)
{
    const QJsonArray windows = childrenOf(workspace, "floating_nodes");
    for (const auto& each : windows)
        if (each.toObject().value(QLatin1String("id")).toInteger() == window)
            return SwayWindows::rectOf(each.toObject());
    return std::nullopt;
}

/// Where the pointer is, as far as it matters, for a window that was centred on it and then kept on the output.
QPoint pointerFor(const QRect& window, const QRect& output)
{
    QPoint pointer = window.topLeft() + QPoint(window.width() / 2, window.height() / 2);
    if (window.top() <= output.top())
        pointer.setY(output.top());
    else if (window.bottom() >= output.bottom())
        pointer.setY(output.bottom());
    return pointer;
}

} // namespace

SwayPlacement::SwayPlacement(QByteArray socket)
    : m_sway(std::move(socket))
{
    connect(&m_sway, &SwayConnection::received, this, &SwayPlacement::take);
    connect(&m_sway, &SwayConnection::lost, this, &SwayPlacement::becomeReady);
}

void SwayPlacement::begin(const QString& title)
{
    m_title = title;
    m_window = 0;
    m_isSettled = false;
    m_sway.close(); // what was prepared before has not come
    if (!m_sway.send(SwayConnection::Kind::Subscribe, R"(["window"])"))
        becomeReady();
}

void SwayPlacement::take(SwayConnection::Kind kind, const QByteArray& payload)
{
    switch (kind) {
    case SwayConnection::Kind::Subscribe:
        becomeReady();
        break;
    case SwayConnection::Kind::WindowEvent:
        noteWindow(QJsonDocument::fromJson(payload).object());
        break;
    case SwayConnection::Kind::Tree:
        settle(QJsonDocument::fromJson(payload).object());
        break;
    case SwayConnection::Kind::RunCommand: // where the first was refused, the tree shows it
        if (std::exchange(m_isSettled, false))
            m_sway.close(); // not before: sway forgets what it has not read
        break;
    }
}

/// A window is new before it has its title.
void SwayPlacement::noteWindow(const QJsonObject& event)
{
    const QString change = event.value(QLatin1String("change")).toString();
    const QJsonObject window = event.value(QLatin1String("container")).toObject();
    if (m_window != 0 || (change != QLatin1String("new") && change != QLatin1String("title"))
        || window.value(QLatin1String("pid")).toInteger() != QCoreApplication::applicationPid()
        || window.value(QLatin1String("name")).toString() != m_title)
        return;
    m_window = window.value(QLatin1String("id")).toInteger();
    if (m_sway.send(SwayConnection::Kind::RunCommand, command("move position pointer")))
        (void)m_sway.send(SwayConnection::Kind::Tree); // it stays on the icon where sway has gone
}

void SwayPlacement::settle(const QJsonObject& tree)
{
    const auto corner = cornerIn(tree, m_window);
    m_isSettled = corner
        && m_sway.send(SwayConnection::Kind::RunCommand,
            command(
                "move absolute position " + QByteArray::number(corner->x()) + ' ' + QByteArray::number(corner->y())));
    if (!m_isSettled)
        m_sway.close();
}

QByteArray SwayPlacement::command(const QByteArray& what) const
{
    return "[con_id=" + QByteArray::number(m_window) + "] " + what;
}

std::optional<QPoint> SwayPlacement::cornerIn(const QJsonObject& tree, qint64 window)
{
    const QJsonArray outputs = childrenOf(tree, "nodes");
    for (const auto& output : outputs) {
        const QRect screen = SwayWindows::rectOf(output.toObject());
        const QJsonArray workspaces = childrenOf(output.toObject(), "nodes");
        for (const auto& each : workspaces) {
            const auto place = floatingIn(each.toObject(), window);
            if (!place)
                continue;
            const QRect anchor(pointerFor(*place, screen), QSize(1, 1));
            return PanelPlacement::place(place->size(), anchor, SwayWindows::rectOf(each.toObject()), screen).topLeft();
        }
    }
    return std::nullopt;
}

} // namespace quillbox

#include "moc_SwayPlacement.cpp"
