#include "App/CommandLine/ScreenSelection.h"

#include "Capture/RegionSelector.h"

#include <QPromise>

#include <memory>

namespace quillbox {

QFuture<std::optional<CaptureRegion>> ScreenSelection::askForRegion()
{
    const auto promise = std::make_shared<QPromise<std::optional<CaptureRegion>>>();
    promise->start();
    RegionSelector().present([promise](std::optional<CaptureRegion> region) {
        promise->addResult(region);
        promise->finish();
    });
    return promise->future();
}

} // namespace quillbox
