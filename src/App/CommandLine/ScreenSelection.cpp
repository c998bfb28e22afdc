#include "App/CommandLine/ScreenSelection.h"

#include "App/CommandLine/TerminationSignals.h"
#include "Capture/Region/RegionSelector.h"

#include <QPromise>

#include <memory>

namespace quillbox {

QFuture<std::optional<CaptureRegion>> ScreenSelection::askForRegion(const TerminationSignals& stop)
{
    const auto promise = std::make_shared<QPromise<std::optional<CaptureRegion>>>();
    promise->start();
    const auto answer = [promise](std::optional<CaptureRegion> region) {
        if (promise->future().isFinished())
            return;
        promise->addResult(region);
        promise->finish();
    };
    QObject::connect(&stop, &TerminationSignals::received, &stop, [answer] { answer(std::nullopt); });
    RegionSelector().present(answer);
    return promise->future();
}

} // namespace quillbox
