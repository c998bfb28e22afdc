#pragma once

#include <QObject>

#include <memory>

namespace quillbox {

/// The system's own way to update programs. Thread: main.
class UpdateService : public QObject {
    Q_OBJECT

public:
    /// Begins to follow whether updates can be looked for. Starts no other program and asks the user nothing.
    virtual void start() = 0;
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    /// @pre canCheckForUpdates()
    virtual void checkForUpdates() = 0;

Q_SIGNALS:
    void canCheckForUpdatesChanged();
};

/// The service of this system; one that can never check where there is none.
[[nodiscard]] std::unique_ptr<UpdateService> makeUpdateService();

} // namespace quillbox
