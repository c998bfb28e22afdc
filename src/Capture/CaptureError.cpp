#include "Capture/CaptureError.h"

#include "Translation/Translate.h"

namespace quillbox {
namespace {

CaptureError::Reason reasonFor(DisplayError::Reason reason)
{
    switch (reason) {
    case DisplayError::Reason::NoDisplay:
        return CaptureError::Reason::NoDisplay;
    case DisplayError::Reason::Gone:
        return CaptureError::Reason::DisplayGone;
    case DisplayError::Reason::Unreadable:
        break;
    }
    return CaptureError::Reason::Unreadable;
}

} // namespace

CaptureError::CaptureError(const DisplayError& error)
    : CaptureError(reasonFor(error.reason()), error.what())
{
}

CaptureError CaptureError::stopped()
{
    return {Reason::Stopped, translate("CaptureError", "Screen capture was stopped before it began")};
}

CaptureError CaptureError::failed(const std::exception& error)
{
    return {Reason::Unreadable, withArguments(translate("CaptureError", "Screen capture failed: %1"), {error.what()})};
}

} // namespace quillbox
