#include "App/Desktop/WindowPlaces/KWinWindows.h"

#include "App/Desktop/WindowPlaces/KWinBus.h"
#include "Platform/ServiceReport.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

#include <cmath>
#include <utility>

namespace quillbox {
namespace {

/// The windows that a search of KWin's found, by its names for them.
/// @param matches  a(sssida{sv}): what choosing it would do and the window's name, joined by "_"; then what is shown.
QStringList windowsIn(const QDBusArgument& matches)
{
    QStringList windows;
    matches.beginArray();
    while (!matches.atEnd()) {
        QString id;
        QString text;
        QString icon;
        int kind = 0;
        double relevance = 0;
        QVariantMap properties;
        matches.beginStructure();
        matches >> id >> text >> icon >> kind >> relevance >> properties;
        matches.endStructure();
        windows << id.section(QLatin1Char('_'), 1);
    }
    matches.endArray();
    windows.removeDuplicates();
    return windows;
}

} // namespace

void KWinWindows::ask(const QString& title)
{
    if (!m_title.isEmpty() || title.isEmpty())
        return;
    m_title = title;
    if (m_window.isEmpty())
        find();
    else
        look({m_window});
}

void KWinWindows::find()
{
    const KWinBus::Question search{.path = QStringLiteral("/WindowsRunner"),
        .interface = QStringLiteral("org.kde.krunner1"),
        .method = QStringLiteral("Match"),
        .arguments = {m_title}};
    KWinBus::ask(*this, search, reportPatience, [this](const QDBusMessage& reply) {
        if (reply.signature() == QLatin1String("a(sssida{sv})"))
            look(windowsIn(reply.arguments().constFirst().value<QDBusArgument>()));
        else
            tell(std::nullopt);
    });
}

/// Tells the place of the first of these that is ours.
void KWinWindows::look(const QStringList& windows)
{
    m_window.clear();
    if (windows.isEmpty()) {
        tell(std::nullopt);
        return;
    }
    const QString& window = windows.constFirst();
    const KWinBus::Question description{.path = QStringLiteral("/KWin"),
        .interface = QStringLiteral("org.kde.KWin"),
        .method = QStringLiteral("getWindowInfo"),
        .arguments = {window}};
    KWinBus::ask(
        *this, description, reportPatience, [this, window, others = windows.mid(1)](const QDBusMessage& reply) {
            const auto described = qdbus_cast<QVariantMap>(reply.arguments().value(0));
            if (described.value(QStringLiteral("desktopFile")).toString() != QLatin1String(QUILLBOX_APP_ID)
                || described.value(QStringLiteral("caption")).toString() != m_title) {
                look(others);
                return;
            }
            m_window = window;
            tell(placeIn(described));
        });
}

void KWinWindows::tell(const std::optional<QRect>& place)
{
    m_title.clear();
    Q_EMIT told(place);
}

std::optional<QRect> KWinWindows::placeIn(const QVariantMap& window)
{
    if (window.value(QStringLiteral("minimized")).toBool())
        return QRect();
    const auto number = [&window](const char* name) {
        return window.value(QLatin1String(name)).toDouble();
    };
    const QRectF place(number("x"), number("y"), number("width"), number("height"));
    return place.isEmpty() ? std::nullopt : std::optional(place.toAlignedRect()); // not on the screen yet
}

} // namespace quillbox

#include "moc_KWinWindows.cpp"
