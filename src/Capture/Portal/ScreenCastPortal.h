#pragma once

#include "Capture/CaptureError.h"
#include "Capture/Portal/ScreenCast.h"
#include "Platform/FileDescriptor.h"
#include "Platform/Portal/PortalSession.h"

#include <QCoro/QCoroTask>
#include <QObject>
#include <QVariantMap>

namespace quillbox {

/// One screen cast of one monitor, pointer included, from the desktop portal: asks for it, and gives the PipeWire
/// stream in which the pictures come. The user's permission is asked for the first time only, as far as the desktop
/// remembers it. Destroying the object ends the cast. Thread: main.
/// @see  The documentation of org.freedesktop.portal.ScreenCast.
class ScreenCastPortal : public QObject {
    Q_OBJECT

public:
    /// @param callTimeout  As PortalSession has it.
    explicit ScreenCastPortal(std::chrono::milliseconds callTimeout = PortalSession::busTimeout);

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
    /// @throws CaptureError  Unavailable: no bus, no portal, or one that casts no screen. DisplayGone: the portal does
    ///                       not answer. Unreadable: it answered an error.
    QCoro::Task<Offer> look();

Q_SIGNALS:
    /// The cast that open() began has ended without our doing. At most once.
    void ended(const quillbox::CaptureError& reason);

private:
    QCoro::Task<ScreenCast> begin();
    QCoro::Task<QVariantMap> lookAtScreenCast();

    PortalSession m_session;
    bool m_isOpen = false;
};

} // namespace quillbox
