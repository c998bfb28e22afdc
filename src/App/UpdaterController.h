#pragma once

#include "App/UpdateService.h"

#include <QObject>

#include <memory>

namespace quillbox {

/// Looks for updates of the program through whatever service the system has for that. Thread: main.
class UpdaterController : public QObject {
    Q_OBJECT

public:
    /// Starts the service.
    explicit UpdaterController(std::unique_ptr<UpdateService> service = makeUpdateService(), QObject* parent = nullptr);
    ~UpdaterController() override;

    /// Looks for an update now and offers what is found. Ignored while `canCheckForUpdates` is false.
    void checkForUpdates();
    /// Whether a check may start now; asked of the service each time.
    [[nodiscard]] bool canCheckForUpdates() const;

Q_SIGNALS:
    void canCheckForUpdatesChanged();

private:
    std::unique_ptr<UpdateService> m_service;
};

} // namespace quillbox
