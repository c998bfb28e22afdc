#include "App/Workflow/CutOffOffer.h"

#include "App/Workflow/CurrentCoordinator.h"
#include "App/Workflow/FlowMessages.h"
#include "Capture/FrameTimeline.h"
#include "Capture/Recording.h"
#include "Capture/Spill/FrameSpill.h"

#include <QtConcurrent/QtConcurrentRun>

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

namespace quillbox {
namespace {

std::vector<CutOffRecordings::Found> findIn(const std::filesystem::path& folder)
{
    return CutOffRecordings::find(folder);
}

} // namespace

CutOffOffer::CutOffOffer(CurrentCoordinator& coordinator, std::filesystem::path folder, QObject* parent)
    : QObject(parent)
    , m_coordinator(coordinator)
    , m_folder(std::move(folder))
{
    connect(&coordinator, &CurrentCoordinator::phaseChanged, this, [this] {
        if (!m_coordinator.isBusy())
            look(); // the coordinator may have let go of a recording that no clip came of
        Q_EMIT changed();
    });
}

CutOffOffer::CutOffOffer(CurrentCoordinator& coordinator, QObject* parent)
    : CutOffOffer(coordinator, FrameSpill::usualFolder(), parent)
{
}

QDateTime CutOffOffer::began() const
{
    const auto sinceEpoch = found()->began.time_since_epoch();
    return QDateTime::fromMSecsSinceEpoch(std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count());
}

std::int64_t CutOffOffer::seconds() const
{
    constexpr auto rate = FrameTimeline::framesPerSecond;
    return std::max<std::int64_t>(1, (found()->frameCount + rate / 2) / rate);
}

bool CutOffOffer::canMakeClip() const
{
    return canDiscard() && !isDamaged() && !m_coordinator.isBusy();
}

void CutOffOffer::look()
{
    m_looksAgain = m_isLooking || m_isAtWork;
    if (m_looksAgain)
        return;
    m_isLooking = true;
    QtConcurrent::run(&findIn, m_folder)
        .then(this, [this](const std::vector<CutOffRecordings::Found>& all) { take(all); })
        .onFailed(this, [this](const std::exception&) { take({}); }); // out of memory: they are found another time
}

void CutOffOffer::take(std::vector<CutOffRecordings::Found> all)
{
    m_isLooking = false;
    if (m_isAtWork) {
        m_looksAgain = true;
    } else if (m_looksAgain) {
        look();
    } else {
        if (found() != nullptr && (all.empty() || all.front().path != found()->path))
            m_problem.clear(); // it was about another one
        m_all = std::move(all);
        Q_EMIT changed();
    }
}

void CutOffOffer::makeClip()
{
    if (!canMakeClip())
        return;
    beginWork();
    QtConcurrent::run(&CutOffRecordings::take, m_all.front())
        .then(this,
            [this](const Recording& recording) {
                const bool isTaken = m_coordinator.makeOf(recording);
                if (isTaken)
                    m_all.erase(m_all.begin());
                endWork({});
                if (isTaken) // else something has begun meanwhile; its end has us look
                    look();
            })
        .onFailed(this, [this](const std::exception& error) {
            endWork(FlowMessages::describe(error));
            look();
        });
}

void CutOffOffer::discard()
{
    if (!canDiscard())
        return;
    beginWork();
    QtConcurrent::run(&CutOffRecordings::discard, m_all.front())
        .then(this,
            [this] {
                m_all.erase(m_all.begin());
                endWork({});
                look();
            })
        .onFailed(this, [this](const std::exception& error) {
            endWork(FlowMessages::describe(error));
            look();
        });
}

void CutOffOffer::beginWork()
{
    m_isAtWork = true;
    m_problem.clear();
    Q_EMIT changed();
}

void CutOffOffer::endWork(const QString& problem)
{
    m_isAtWork = false;
    m_problem = problem;
    Q_EMIT changed();
}

} // namespace quillbox

#include "moc_CutOffOffer.cpp"
