#pragma once

#include "App/Updates/UpdateService.h"

namespace quillbox {

/// For a program that nothing can update. Thread: main.
class NoUpdateService : public UpdateService {
public:
    explicit NoUpdateService(Obstacle obstacle)
        : m_obstacle(obstacle)
    {
    }

    void start() override { }
    [[nodiscard]] Obstacle obstacle() const override { return m_obstacle; }
    QCoro::Task<Finding> look() override { throw UpdateError(UpdateError::Reason::NotPackaged); }
    QCoro::Task<> install(Update /*update*/) override { throw UpdateError(UpdateError::Reason::NotPackaged); }
    void cancelLook() override { }
    bool startInstalledVersion() override { return false; } // there is none

private:
    Obstacle m_obstacle;
};

} // namespace quillbox
