#include "App/CommandLine/ScreenSelection.h"

#include "App/CommandLine/TerminationSignals.h"

#include <QPromise>

#include <utility>

namespace quillbox {

QFuture<RegionSelector::Outcome> ScreenSelection::askForRegion(
    std::shared_ptr<ScreenSession> screen, const TerminationSignals& stop)
{
    const auto promise = std::make_shared<QPromise<RegionSelector::Outcome>>();
    promise->start();
    const auto answer = [promise](const RegionSelector::Outcome& outcome) {
        if (promise->future().isFinished())
            return;
        promise->addResult(outcome);
        promise->finish();
    };
    QObject::connect(&stop, &TerminationSignals::received, &stop, [answer] { answer(RegionSelector::Cancelled{}); });
    RegionSelector(std::move(screen)).present(answer);
    return promise->future();
}

} // namespace quillbox
