#pragma once

#include "App/Updates/UpdateChoice.h"

#include <QCoro/QCoroTask>
#include <QObject>

#include <memory>
#include <variant>

namespace quillbox {

/// Looks for updates of the program through whatever service the system has for that, offers what is found and has it
/// installed. Announces each change before and after it happens. Thread: main.
class UpdaterController : public QObject {
    Q_OBJECT

public:
    struct Idle { };
    struct Looking { };
    struct UpToDate {
        QString version;   ///< that is installed; empty where nobody knows
        QString staleness; ///< why that may be wrong; empty where it isn't
    };
    struct Available {
        Update update;
        QString staleness; ///< why there may be a newer one
    };
    struct Installing {
        Update update;
    };
    /// The newer version is on the disk, and would run after a restart.
    struct Installed {
        Update update;
    };
    struct Failed {
        QString title; ///< what did not work
        QString message;
        bool canTrySoftwareCenter; ///< whether another program might do what we could not
    };
    using Phase = std::variant<Idle, Looking, UpToDate, Available, Installing, Installed, Failed>;

    /// Starts the service.
    explicit UpdaterController(std::unique_ptr<UpdateService> service = makeUpdateService(), QObject* parent = nullptr);
    ~UpdaterController() override;

    /// Looks for an update now and offers what is found. Ignored while `canCheckForUpdates` is false.
    void checkForUpdates();
    /// Whether a check may start now; asked of the service each time.
    [[nodiscard]] bool canCheckForUpdates() const;
    /// Why not, for the user; empty while one may start or runs.
    [[nodiscard]] QString obstacle() const;

    [[nodiscard]] const Phase& phase() const { return m_phase; }
    template <typename P> [[nodiscard]] bool isIn() const { return std::holds_alternative<P>(m_phase); }

    /// Installs what is available. Ignored in other phases.
    void install();
    /// The user has seen it, or wants no more of it: ends a look, forgets a result. An installation goes on.
    void dismiss();
    /// Starts the version that is installed by now, beside this one. @return whether that worked
    bool startInstalledVersion();

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    void phaseAboutToChange(const quillbox::UpdaterController::Phase& next);
    void phaseChanged();
    /// Of the look or the installation that runs, in percent.
    void progressed(int percent);
    /// There is a newer version, and the user has not been told. Once for each version.
    void updateSeen(const quillbox::Update& update);

private:
    [[nodiscard]] bool isWorking() const { return isIn<Looking>() || isIn<Installing>(); }
    void setPhase(Phase next);
    QCoro::Task<> look();
    QCoro::Task<> installNow(Update update);
    void hearOf(const Update& update);

    std::unique_ptr<UpdateService> m_service;
    Phase m_phase;
    int m_look = 0;                // the number of the latest: what an earlier one brings is of no interest
    std::optional<Update> m_known; // to the user
};

} // namespace quillbox
