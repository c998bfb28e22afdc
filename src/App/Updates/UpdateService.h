#pragma once

#include "App/Updates/UpdateError.h"

#include <QCoro/QCoroTask>
#include <QObject>
#include <QString>

#include <optional>

namespace quillbox {

/// A newer version of this program.
struct Update {
    QString version; ///< of the package; empty where the service does not know
    QString id;      ///< what the service calls it

    bool operator==(const Update&) const = default;
};

/// The system's own way to update programs. It knows no windows and remembers no offers. Thread: main.
class UpdateService : public QObject {
    Q_OBJECT

public:
    /// Why no check may start.
    enum class Obstacle {
        None,
        NoService,   ///< the system has none, or it can't be reached
        NotPackaged, ///< the program was not installed by the service
        SwitchedOff, ///< by the environment
        Busy,        ///< it is working for us
    };

    /// What a look brought.
    struct Finding {
        std::optional<Update> update{};
        QString installedVersion{};             ///< empty where the service does not know
        std::optional<UpdateError> staleness{}; ///< why it knows only what it knew before, if that is so
        bool isCancelled = false;               ///< then it says nothing else
    };

    /// Begins to follow whether updates can be looked for, and to look for them now and then: then it asks the user
    /// nothing, and starts no other program but Flatpak's portal.
    virtual void start() = 0;
    [[nodiscard]] virtual Obstacle obstacle() const = 0;
    /// Looks because the user wishes so, who may be asked for a password.
    /// @pre obstacle() == Obstacle::None
    /// @throws UpdateError
    virtual QCoro::Task<Finding> look() = 0;
    /// Installs what was found, from a trusted source only, and makes sure that it is there now. Can't be cancelled.
    /// @pre no look that the user wished for runs, and no installation
    /// @throws UpdateError
    virtual QCoro::Task<> install(Update update) = 0;
    /// Ends a look at once, whatever the service is doing.
    virtual void cancelLook() = 0;
    /// Starts another instance, of the version that is installed by now. @return whether it could be started
    virtual bool startInstalledVersion() = 0;

Q_SIGNALS:
    void obstacleChanged();
    /// How far what runs is, in percent.
    void progressed(int percent);
    /// The service has heard of an update without being asked.
    void updateSeen(const quillbox::Update& update);
};

} // namespace quillbox
