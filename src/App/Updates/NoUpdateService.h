#pragma once

#include "App/Updates/Restart.h"
#include "App/UpdateService.h"

namespace quillbox {

/// For a program that nothing has installed: it was built here, or unpacked somewhere. Thread: main.
class NoUpdateService : public UpdateService {
public:
    void start() override { }
    [[nodiscard]] Obstacle obstacle() const override { return Obstacle::NotPackaged; }
    QCoro::Task<Finding> look() override { throw UpdateError(UpdateError::Reason::NotPackaged); }
    QCoro::Task<> install(Update /*update*/) override { throw UpdateError(UpdateError::Reason::NotPackaged); }
    void cancelLook() override { }
    bool startInstalledVersion() override { return m_restart.start(); }

private:
    Restart m_restart;
};

} // namespace quillbox
