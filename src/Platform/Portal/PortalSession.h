#pragma once

#include "Platform/Portal/PortalError.h"

#include <QCoro/QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariantMap>

#include <chrono>

namespace quillbox {

class PortalRequest;

/// A session with one interface of the desktop portal, and the way to ask that interface for anything. Destroying the
/// object withdraws the question that is open and ends the session, also one that the portal is only about to begin;
/// a task that is under way then ends with PortalError::Withdrawn. Thread: main.
/// @see  The documentation of org.freedesktop.portal.Request and org.freedesktop.portal.Session.
class PortalSession : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds busTimeout{25'000}; ///< as long as the bus waits, too

    /// @param interface    One that has sessions, such as "org.freedesktop.portal.ScreenCast".
    /// @param callTimeout  How long the portal may take to answer one call. The user, whom it may ask, takes any time.
    explicit PortalSession(QString interface, std::chrono::milliseconds callTimeout = busTimeout);
    ~PortalSession() override;

    /// Makes us known to the portal by the name under which permissions are kept, and reads the properties of the
    /// interface. Asks the user nothing, and begins nothing. To be done before all else.
    /// @throws PortalError  NoInterface: also where the properties have no version.
    QCoro::Task<QVariantMap> look();

    /// Begins the session. Called until it succeeds.
    /// @param name     What stands for it in its path; empty for one that no other session has. A constant name is for
    ///                 what the desktop keeps from one start to the next.
    /// @param options  Of CreateSession.
    /// @return what the answer tells. @throws PortalError
    QCoro::Task<QVariantMap> open(QString name = {}, QVariantMap options = {});

    enum class Answer {
        OfPortal, ///< without asking anybody: within the call's time
        OfUser,   ///< whenever the user, or the desktop in their place, gives it
    };

    /// Calls a method whose answer comes later than its reply.
    /// @param arguments  Those between the session, which comes first, and the options.
    /// @return what the answer tells. @throws PortalError  Closed, Gone: also where the session has ended before.
    QCoro::Task<QVariantMap> request(Answer answer, QString method, QVariantList arguments, QVariantMap options);

    /// Calls a method that answers at once.
    /// @param arguments  Those after the session, which comes first.
    /// @throws PortalError  Closed, Gone: also where the session has ended, at the latest while it was waited for.
    QCoro::Task<QDBusMessage> call(QString method, QVariantList arguments);

    /// The object that stands for the session on the bus; empty before it is open and once it has ended.
    [[nodiscard]] const QString& path() const { return m_path; }

Q_SIGNALS:
    /// The open session has ended without our doing: Closed or Gone.
    void ended(const quillbox::PortalError& reason);

private:
    Q_SLOT void noteClosed();

    QCoro::Task<QVariantMap> ask(
        PortalRequest* request, Answer answer, QString method, QVariantList arguments, QVariantMap options);
    QCoro::Task<QDBusMessage> send(QDBusMessage message);
    [[nodiscard]] int callMilliseconds() const;
    void end(PortalError::Reason reason);
    [[nodiscard]] QVariant handle() const;

    QDBusConnection m_bus;
    QString m_interface;
    std::chrono::milliseconds m_callTimeout;
    QDBusServiceWatcher m_watcher;
    QPointer<PortalRequest> m_opening; // the question for the session, while it is open
    QString m_path;
    PortalError::Reason m_end = PortalError::Reason::Closed; // once the path is empty again
};

} // namespace quillbox
