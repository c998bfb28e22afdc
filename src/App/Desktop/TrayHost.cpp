#include "App/Desktop/TrayHost.h"

#include "Capture/CaptureError.h"
#include "Capture/X11/X11Display.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>

#include <chrono>
#include <string_view>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 2s;
constexpr auto searchTime = 10s;

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");

} // namespace

TrayHost::TrayHost(QObject* parent)
    : QObject(parent)
    , m_watcher(watcherService, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &TrayHost::askWatcher);
    QDBusConnection::sessionBus().connect(watcherService, QStringLiteral("/StatusNotifierWatcher"), watcherService,
        QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(askWatcher()));
    m_patience.setSingleShot(true);
    m_search.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &TrayHost::missing);
    connect(&m_search, &QTimer::timeout, this, [this] {
        end();
        Q_EMIT gaveUp();
    });
}

void TrayHost::find()
{
    m_patience.start(patience);
    m_search.start(searchTime);
    askWatcher();
}

void TrayHost::askWatcher()
{
    if (m_isOver)
        return;
    auto question = QDBusMessage::createMethodCall(watcherService, QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setAutoStartService(false);
    question << watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        const bool isThere = (reply.isValid() && reply.value().variant().toBool()) || hasXEmbedTray();
        if (m_isOver || !isThere)
            return;
        end();
        Q_EMIT found();
    });
}

void TrayHost::end()
{
    m_isOver = true;
    m_patience.stop();
    m_search.stop();
}

bool TrayHost::hasXEmbedTray()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return false;
    try {
        const X11Display display;
        auto* const connection = display.connection();
        constexpr std::string_view name = "_NET_SYSTEM_TRAY_S0";
        const XCBPointer<xcb_intern_atom_reply_t> atom(
            xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 1, name.size(), name.data()), nullptr));
        if (!atom || atom->atom == XCB_ATOM_NONE)
            return false;
        const XCBPointer<xcb_get_selection_owner_reply_t> owner(
            xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
        return owner && owner->owner != XCB_WINDOW_NONE;
    } catch (const CaptureError&) {
        return false; // the display is gone; so is the tray
    }
}

} // namespace quillbox
