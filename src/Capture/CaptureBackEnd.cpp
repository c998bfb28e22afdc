#include "Capture/CaptureBackEnd.h"

#include "Platform/WindowSystem.h"
#include "Translation/Translate.h"

namespace quillbox {

BackEndChoice<CaptureBackEnd> chooseCapture()
{
    using BackEnd = CaptureBackEnd;
    static constexpr BackEndNames<BackEnd, 3> names{
        {{"x11", BackEnd::X11}, {"portal", BackEnd::Portal}, {"none", BackEnd::None}}};
    auto choice = backEndByEnvironment("QUILLBOX_CAPTURE_BACKEND", names);
    if (!choice)
        return {sessionWindowSystem() == WindowSystem::Wayland ? BackEnd::Portal : BackEnd::X11};
    if (choice->backEnd == BackEnd::None && choice->reason.empty())
        choice->reason = translate("CaptureError", "Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND");
    return *choice;
}

CaptureError captureObstacle(const BackEndChoice<CaptureBackEnd>& choice)
{
    return {CaptureError::Reason::Unavailable, choice.reason};
}

} // namespace quillbox
