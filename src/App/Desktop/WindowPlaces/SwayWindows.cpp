#include "App/Desktop/WindowPlaces/SwayWindows.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>
#include <vector>

namespace quillbox {

SwayWindows::SwayWindows(QByteArray socket)
    : m_sway(std::move(socket))
{
    connect(&m_sway, &SwayConnection::received, this, [this](SwayConnection::Kind /*kind*/, const QByteArray& tree) {
        tell(placeIn(QJsonDocument::fromJson(tree).object(), m_title, QCoreApplication::applicationPid()));
    });
    connect(&m_sway, &SwayConnection::lost, this, [this] { tell(std::nullopt); });
}

void SwayWindows::ask(const QString& title)
{
    if (!m_title.isEmpty() || title.isEmpty())
        return;
    m_title = title;
    if (!m_sway.send(SwayConnection::Kind::Tree))
        tell(std::nullopt);
}

void SwayWindows::tell(const std::optional<QRect>& place)
{
    m_title.clear();
    Q_EMIT told(place);
}

QRect SwayWindows::rectOf(const QJsonObject& container)
{
    const QJsonObject rect = container.value(QLatin1String("rect")).toObject();
    return {rect.value(QLatin1String("x")).toInt(), rect.value(QLatin1String("y")).toInt(),
        rect.value(QLatin1String("width")).toInt(), rect.value(QLatin1String("height")).toInt()};
}

std::optional<QRect> SwayWindows::placeIn(const QJsonObject& tree, const QString& title, qint64 process)
{
    std::vector<QJsonObject> containers{tree};
    while (!containers.empty()) {
        const QJsonObject container = std::move(containers.back());
        containers.pop_back();
        if (container.value(QLatin1String("pid")).toInteger() == process
            && container.value(QLatin1String("name")).toString() == title)
            return container.value(QLatin1String("visible")).toBool() ? rectOf(container) : QRect();
        for (const char* const kind : {"nodes", "floating_nodes"}) {
            const QJsonArray children = container.value(QLatin1String(kind)).toArray();
            for (const auto& child : children)
                containers.push_back(child.toObject());
        }
    }
    return std::nullopt;
}

} // namespace quillbox

#include "moc_SwayWindows.cpp"
