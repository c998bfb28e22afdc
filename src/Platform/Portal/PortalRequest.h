#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QString>
#include <QVariantMap>

#include <chrono>
#include <optional>

namespace quillbox {

/// One question to the desktop portal, the answer to which comes as a signal whenever the user has decided. Made before
/// the call that asks, so that no answer is too early. Destroyed without an answer, it withdraws the question.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    struct Answer {
        uint code = 0; ///< 0 yes, 1 the user refused, 2 it ended otherwise
        QVariantMap results;
    };
    using Outcome = std::optional<Answer>; // none: the portal went away, or the request was given up

    PortalRequest(const QDBusConnection& bus, QObject* parent);
    ~PortalRequest() override;

    /// For the call's option `handle_token`.
    [[nodiscard]] QString token() const { return m_token; }
    [[nodiscard]] QFuture<Outcome> outcome() { return m_promise.future(); }

    /// As if the portal had gone away, unless the answer is there by then.
    void giveUpAfter(std::chrono::milliseconds time);

    /// Ends a session of the portal's; an empty handle is none.
    static void closeSession(const QDBusConnection& bus, const QString& handle);
    /// The session that an answer brings, which portals give as a string or as a path; empty if there is none.
    [[nodiscard]] static QString sessionIn(const QVariantMap& results);
    /// What names a new request or session of ours.
    [[nodiscard]] static QString newToken();

    /// Nobody waits for the answer any more, to a question that cannot be withdrawn: closes the session that it brings,
    /// then destroys this object, which has no other owner from here on.
    void closeWhatComes();

private:
    Q_SLOT void finish(uint code, const QVariantMap& results);

    void settle(Outcome outcome);
    void closeWhatCame();

    QDBusConnection m_bus;
    QString m_token;
    QString m_handle;
    QDBusServiceWatcher m_watcher;
    QPromise<Outcome> m_promise;
    bool m_closesWhatComes = false;
};

} // namespace quillbox
