#pragma once

#include "App/Updates/PackageKit.h"
#include "App/Updates/UpdateError.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QVariantList>
#include <QVariantMap>

#include <cstdint>
#include <optional>
#include <vector>

namespace quillbox {

/// One piece of work that PackageKit does for us: a method of its transaction interface, called once. Waits for its end
/// as long as it takes, and notices when the daemon dies. Thread: main.
class PackageKitTransaction : public QObject {
    Q_OBJECT

public:
    struct Request {
        QString method;
        QVariantList arguments;       ///< of the types that the method has on the bus
        bool goesOnUnwatched = false; ///< cancel() only ends the waiting
    };
    enum class Manner {
        Interactive, ///< the user waits: the daemon may be started, and a password asked for
        Silent,      ///< nobody knows: neither
    };
    struct Outcome {
        std::vector<PackageKit::PackageId> packages; ///< that it named
        std::optional<UpdateError> error;
        bool isCancelled = false; ///< by us or by somebody else; then there is no error
    };

    explicit PackageKitTransaction(QDBusConnection bus);
    /// As cancel().
    ~PackageKitTransaction() override;

    /// Begins. @pre called once @return what comes of it; it always comes
    [[nodiscard]] QFuture<Outcome> run(Request request, Manner manner);
    /// Ends it: at once for us, when it likes for the daemon, unless it goes on unwatched. Does nothing once it has
    /// ended.
    void cancel();

Q_SIGNALS:
    /// How far it is, in percent; not emitted while nobody knows.
    void progressed(int percent);

private Q_SLOTS:
    // The signals of the transaction on the bus.
    void receivePackage(uint info, const QString& packageId, const QString& summary);
    void receiveErrorCode(uint code, const QString& details);
    void receiveFinished(uint exit, uint milliseconds);
    void receiveProperties(
        const QString& interface, const QVariantMap& changed, const QStringList& invalidated); // NOLINT

private: // NOLINT(readability-redundant-access-specifiers): Qt sees another one
    void begin(const QDBusMessage& created);
    void send(const QString& method, const QVariantList& arguments);
    void fail(const QDBusMessage& refusal);
    void end();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    Request m_request;
    Manner m_manner = Manner::Silent;
    QString m_owner; // the daemon's unique name on the bus: what others say in its name does not count
    QString m_path;  // of the transaction; empty until there is one
    Outcome m_outcome;
    QPromise<Outcome> m_promise;
    bool m_hasEnded = false;
};

} // namespace quillbox
