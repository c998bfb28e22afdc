#include "App/Desktop/ClipNotices.h"

#include "App/Desktop/DesktopNotification.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "Platform/StateFile.h"
#include "PostCapture/FileReveal.h"
#include "Views/ByteFormat.h"
#include "Views/History/ShownName.h"

#include <QPointer>

#include <utility>

namespace quillbox {
namespace {

const auto noticesFile = QStringLiteral("notifications");
const auto noticesOff = QStringLiteral("off");

} // namespace

ClipNotices::ClipNotices(
    CurrentCoordinator& coordinator, FileReveal& fileReveal, std::function<bool()> isSeen, QObject* parent)
    : QObject(parent)
    , m_coordinator(coordinator)
    , m_fileReveal(fileReveal)
    , m_isSeen(std::move(isSeen))
    , m_isOn(StateFile::read(noticesFile) != noticesOff)
{
    connect(&coordinator, &CurrentCoordinator::phaseChanged, this, &ClipNotices::follow);
}

void ClipNotices::setOn(bool isOn)
{
    m_isOn = isOn;
    StateFile::replace(noticesFile, isOn ? QString() : noticesOff);
}

void ClipNotices::tellOfEarlyEnd(const QString& reason) const
{
    if (m_isOn)
        DesktopNotification::show(tr("The recording ended early"), tr("%1. What was recorded is kept.").arg(reason));
}

void ClipNotices::tellOfRemains() const
{
    if (m_isOn)
        DesktopNotification::show(tr("The clip may begin with remains of the selection"),
            tr("The desktop took more than two seconds to remove them from the screen."));
}

void ClipNotices::follow()
{
    if (!m_isOn || m_isSeen())
        return;
    const auto& phase = m_coordinator.phase();
    if (const auto* const done = std::get_if<RecordingCoordinator::Done>(&phase)) {
        const auto show = [self = QPointer(this), path = done->path] {
            if (self)
                self->m_fileReveal.reveal(path);
        };
        DesktopNotification::show(tr("The clip is ready to paste"),
            tr("%1 · %2").arg(shownName(done->path), ByteFormat::inLocale(done->byteCount)),
            {.label = tr("Show"), .run = show});
    } else if (const auto* const failed = std::get_if<RecordingCoordinator::Failed>(&phase)) {
        DesktopNotification::show(tr("No clip was made"), failed->message);
    }
}

} // namespace quillbox

#include "moc_ClipNotices.cpp"
