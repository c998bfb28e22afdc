#include "Platform/CaptureError.h"

#include "Translation/Translate.h"

namespace quillbox {

CaptureError CaptureError::stopped()
{
    return {Reason::Stopped, translate("CaptureError", "Screen capture was stopped before it began")};
}

} // namespace quillbox
