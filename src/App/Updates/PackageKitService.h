#pragma once

#include "App/Updates/PackageKitTransaction.h"
#include "App/Updates/Restart.h"
#include "App/Updates/UpdateService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace quillbox {

/// Updates by way of PackageKit, which stands before the package managers of most distributions. Thread: main.
class PackageKitService : public UpdateService {
    Q_OBJECT

public:
    struct Options {
        QDBusConnection bus;
        QString package;                             ///< that installs this program
        std::chrono::milliseconds firstLook{60'000}; ///< after the start, when the desktop has come to rest
        std::chrono::milliseconds quiet{5'000};      ///< without further news before it looks again
    };
    /// On the system bus, for our own package.
    static Options usual();

    explicit PackageKitService(Options options = usual());
    ~PackageKitService() override;

    void start() override;
    [[nodiscard]] Obstacle obstacle() const override;
    QCoro::Task<Finding> look() override;
    QCoro::Task<> install(Update update) override;
    void cancelLook() override;
    bool startInstalledVersion() override { return m_restart.start(); }

private Q_SLOTS:
    void lookOnceQuiet();

private: // NOLINT(readability-redundant-access-specifiers): Qt sees another one
    using Outcome = PackageKitTransaction::Outcome;
    using Request = PackageKitTransaction::Request;
    using Manner = PackageKitTransaction::Manner;
    class Work;

    void askBus(const QString& method, const QString& argument, const std::function<void(const QDBusMessage&)>& then);
    void askWhatCanBeStarted();
    void setOwner(const QString& owner);
    void update(const std::function<void()>& change);
    void lookIfRunning();
    QCoro::Task<> lookSilently();
    QCoro::Task<Outcome> transact(Request request, Manner manner);
    [[nodiscard]] Request installedRequest() const;
    [[nodiscard]] std::optional<PackageKit::PackageId> ours(const Outcome& outcome) const;
    [[nodiscard]] std::optional<PackageKit::PackageId> updateIn(const Outcome& updates) const;

    Options m_options;
    Restart m_restart;
    QDBusServiceWatcher m_watcher;
    QString m_owner;              // the daemon's unique name; empty while it does not run
    bool m_canBeStarted = false;  // by the bus
    std::optional<bool> m_isOurs; // whether it has installed us, once it was asked
    bool m_isWorking = false;     // for the user
    bool m_isLookingSilently = false;
    bool m_hasWaited = false; // the first look is due, or was
    QTimer m_quiet;
    QPointer<PackageKitTransaction> m_transaction; // for the user
    QPointer<PackageKitTransaction> m_silentTransaction;
};

} // namespace quillbox
