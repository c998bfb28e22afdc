#pragma once

#include "Platform/CaptureError.h"
#include "Platform/FileDescriptor.h"
#include "Capture/Portal/ScreenCast.h"

#include <QCoro/QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QPointer>
#include <QVariantMap>

#include <chrono>
#include <optional>

namespace quillbox {

class PortalRequest;

/// One screen cast of one monitor, pointer included, from the desktop portal: asks for it, and gives the PipeWire
/// stream in which the pictures come. The user's permission is asked for the first time only, as far as the desktop
/// remembers it. Destroying the object ends the cast. Thread: main.
/// @see  The documentation of org.freedesktop.portal.ScreenCast.
class ScreenCastPortal : public QObject {
    Q_OBJECT

public:
    ScreenCastPortal();
    ~ScreenCastPortal() override;

    /// Begins the cast. Called once. If the object is destroyed meanwhile, the task ends with CaptureError::Stopped.
    /// @throws CaptureError  Unavailable: no bus, no portal, or one that casts no screen. Refused. DisplayGone: the
    ///                       portal went away. Unreadable: it answered what can't be understood, or an error.
    QCoro::Task<ScreenCast> open();

    /// A new connection to PipeWire, on which the stream of the open cast is to be found.
    /// @throws CaptureError  as open() does. DisplayGone: the cast has ended, at the latest while it was waited for.
    QCoro::Task<FileDescriptor> openRemote();

    /// What the portal can do on this desktop, as its properties tell: version, AvailableSourceTypes.
    struct Offer {
        uint version = 0;
        uint sources = 0;
    };

    /// Makes us known to the portal and finds out what it can do; asks the user nothing, and begins nothing. If the
    /// object is destroyed meanwhile, the task ends with CaptureError::Stopped.
    /// @param patience  How long each of two answers may take.
    /// @throws CaptureError  Unavailable: no bus, no portal, or one that casts no screen. DisplayGone: the portal does
    ///                       not answer. Unreadable: it answered an error.
    QCoro::Task<Offer> look(std::chrono::milliseconds patience);

Q_SIGNALS:
    /// The cast that open() began has ended without our doing. At most once.
    void ended(const quillbox::CaptureError& reason);

private:
    Q_SLOT void noteClosed();

    QCoro::Task<> lookAtPortal();
    QCoro::Task<QVariantMap> ask(QString method, QVariantList arguments, QVariantMap options);
    QCoro::Task<QDBusMessage> call(QString interface, QString method, QVariantList arguments);
    [[nodiscard]] int timeLimit() const;
    void end(const CaptureError& reason);

    QDBusConnection m_bus;
    std::optional<std::chrono::milliseconds> m_patience; // none: as long as the bus has it
    QDBusServiceWatcher m_watcher;
    QString m_session;                 // empty before there is one
    QPointer<PortalRequest> m_request; // the latest
    bool m_isCreating = false;         // the latest asks for the session
    uint m_version = 0;
    uint m_cursorModes = 0;
    uint m_sources = 0;
    bool m_isOpen = false;
    std::optional<CaptureError> m_end; // of the cast, without our doing
};

} // namespace quillbox
