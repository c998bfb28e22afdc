#include "App/Workflow/CurrentCoordinator.h"

#include "Encoding/Precondition.h"
#include "Platform/Detach.h"

#include <utility>

namespace quillbox {

CurrentCoordinator::CurrentCoordinator(std::unique_ptr<RecordingCoordinator> first, QObject* parent)
    : QObject(parent)
{
    adopt(std::move(first));
}

CurrentCoordinator::~CurrentCoordinator() = default;

void CurrentCoordinator::begin()
{
    if (get().isIn<RecordingCoordinator::Done>() || get().isIn<RecordingCoordinator::Failed>()) {
        auto next = std::make_unique<RecordingCoordinator>(get().recorder(), get().selector(), get().history());
        next->setPreset(get().preset());
        adopt(std::move(next));
        Q_EMIT phaseChanged();
    }
    get().beginFlow();
}

// NOLINTNEXTLINE(readability-make-member-function-const): what it holds changes
void CurrentCoordinator::stop()
{
    detach(get().stopAndExport());
}

// NOLINTNEXTLINE(readability-make-member-function-const): what it holds changes
void CurrentCoordinator::finishNow()
{
    get().finishNow();
}

void CurrentCoordinator::toggle()
{
    if (get().isIn<RecordingCoordinator::Recording>())
        stop();
    else
        begin();
}

void CurrentCoordinator::adopt(std::unique_ptr<RecordingCoordinator> next)
{
    precondition(next != nullptr, "there is always a coordinator");
    if (m_coordinator)
        m_coordinator.release()->deleteLater(); // it may be the one that is telling us something
    m_coordinator = std::move(next);
    const auto* const coordinator = m_coordinator.get();
    connect(coordinator, &RecordingCoordinator::phaseAboutToChange, this, &CurrentCoordinator::phaseAboutToChange);
    connect(coordinator, &RecordingCoordinator::phaseChanged, this, &CurrentCoordinator::phaseChanged);
    connect(coordinator, &RecordingCoordinator::presetChanged, this, &CurrentCoordinator::presetChanged);
    connect(coordinator, &RecordingCoordinator::progressChanged, this, &CurrentCoordinator::progressChanged);
}

} // namespace quillbox
