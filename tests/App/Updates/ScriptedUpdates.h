#pragma once

#include "App/Updates/UpdateService.h"

#include <QCoro/QCoroFuture>
#include <QFuture>
#include <QPromise>
#include <QStringList>

#include <memory>
#include <utility>
#include <variant>

namespace quillbox::test {

/// A service of updates that does as it is told.
class ScriptedUpdates : public UpdateService {
public:
    int starts = 0;
    int checks = 0;
    int cancels = 0;
    QStringList installed; ///< the ids of what was to be installed

    ScriptedUpdates() = default;
    ScriptedUpdates(const ScriptedUpdates&) = delete;
    ScriptedUpdates& operator=(const ScriptedUpdates&) = delete;
    ~ScriptedUpdates() override
    {
        if (m_asked)
            end(Finding{}); // whoever waits comes to an end
    }

    void start() override { ++starts; }
    [[nodiscard]] Obstacle obstacle() const override { return m_obstacle; }
    void cancelLook() override { ++cancels; }
    bool startInstalledVersion() override { return true; }

    QCoro::Task<Finding> look() override
    {
        ++checks;
        const auto end = ask();
        const auto ending = co_await end;
        if (const auto* const error = std::get_if<UpdateError>(&ending))
            throw UpdateError(*error);
        co_return std::get<Finding>(ending);
    }

    QCoro::Task<> install(Update update) override
    {
        installed.append(update.id);
        const auto end = ask();
        const auto ending = co_await end;
        if (const auto* const error = std::get_if<UpdateError>(&ending))
            throw UpdateError(*error);
    }

    void setObstacle(Obstacle obstacle)
    {
        m_obstacle = obstacle;
        Q_EMIT obstacleChanged();
    }
    void setAvailable(bool available) { setObstacle(available ? Obstacle::None : Obstacle::NoService); }

    /// How the latest look or installation ends; only a look finds something.
    void answer(const Finding& finding = {}) { end(finding); }
    void answer(const UpdateError& error) { end(error); }

private:
    using Ending = std::variant<Finding, UpdateError>;

    QFuture<Ending> ask()
    {
        if (m_asked)
            end(Finding{}); // nobody waits for that one any more
        m_asked = std::make_unique<QPromise<Ending>>();
        m_asked->start();
        return m_asked->future();
    }

    void end(const Ending& ending)
    {
        m_asked->addResult(ending);
        m_asked->finish();
        m_asked.reset();
    }

    Obstacle m_obstacle = Obstacle::None;
    std::unique_ptr<QPromise<Ending>> m_asked;
};

} // namespace quillbox::test
