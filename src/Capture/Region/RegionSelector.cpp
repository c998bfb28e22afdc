#include "Capture/Region/RegionSelector.h"

#include "Capture/CaptureStream.h"
#include "Capture/Portal/SelectedCast.h"
#include "Capture/Region/CastScreen.h"
#include "Capture/Region/ScreenBackdrop.h"
#include "Capture/Region/SelectionWindow.h"
#include "Capture/ScreenSession.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include <chrono>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

/// How long the programs below get to draw what a panel of ours covered until now.
constexpr std::chrono::milliseconds panelSettlingTime{40};

SelectionWindow* showOverlay(
    QScreen& screen, const QRect& frame, const QPixmap& backdrop, RegionSelector::Completion completion)
{
    auto* const window // deletes itself after its one gesture, or with the application
        = new SelectionWindow(frame, backdrop, std::move(completion));
    QObject::connect(qGuiApp, &QGuiApplication::aboutToQuit, window, [window] { delete window; });
    window->setScreen(&screen);
    window->makeKeyAndOrderFront();
    return window;
}

void presentOnX11(RegionSelector::Completion completion)
{
    if (ScreenBackdrop::showsThrough()) {
        auto& screen = *QGuiApplication::primaryScreen();
        showOverlay(screen, screen.geometry(), QPixmap(), std::move(completion));
        return;
    }
    ScreenBackdrop::waitUntilApplied();
    QTimer::singleShot(panelSettlingTime, qGuiApp, [completion = std::move(completion)] {
        auto* const screen = QGuiApplication::primaryScreen();
        if (screen == nullptr)
            completion(std::nullopt);
        else
            showOverlay(*screen, screen->geometry(), ScreenBackdrop::picture(*screen), completion);
    });
}

/// The recording that follows uses the cast whose picture the user selects on. Where it can't be told which of several
/// screens that is, the picture is on all of them, until a region is dragged out on one.
void showOverlays(const SelectedCast::FirstPicture& first, const RegionSelector::Completion& completion)
{
    const auto screens = CastScreen::candidates(first);
    if (screens.empty()) {
        completion(std::nullopt);
        return;
    }
    CastScreen::setRecorded(screens.size() == 1 ? screens.front() : nullptr);
    std::vector<SelectionWindow*> windows;
    for (QScreen* const screen : screens) {
        const QRect frame = CastScreen::frame(*screen, {first.picture.width(), first.picture.height()});
        auto cast = first.cast;
        cast.points = PixelSize{frame.width(), frame.height()}; // what the region counts
        const auto report = [cast = std::move(cast), completion](std::optional<CaptureRegion> region) {
            if (region)
                SelectedCast::keep(cast);
            completion(region);
        };
        auto* const window = showOverlay(*screen, frame, CastScreen::pixmap(first.picture, *screen), report);
        for (SelectionWindow* const other : windows) {
            QObject::connect(window, &SelectionWindow::finished, other, &SelectionWindow::withdraw);
            QObject::connect(other, &SelectionWindow::finished, window, &SelectionWindow::withdraw);
        }
        windows.push_back(window);
    }
}

QCoro::Task<> presentOnCast(RegionSelector::Completion completion)
{
    std::optional<SelectedCast::FirstPicture> first;
    std::optional<CaptureError> failure;
    try {
        auto opening = SelectedCast::open();
        first = co_await opening;
    } catch (const CaptureError& error) {
        failure = error;
    }
    if (first) {
        showOverlays(*first, completion);
    } else if (failure->reason() == CaptureError::Reason::Refused) {
        completion(std::nullopt);
    } else { // there is nothing to select from: the recorder says why
        SelectedCast::keep(*failure);
        completion(CaptureRegion());
    }
}

} // namespace

RegionSelector::~RegionSelector() = default;

void RegionSelector::present(Completion completion)
{
    if (QGuiApplication::primaryScreen() == nullptr) {
        completion(std::nullopt);
        return;
    }
    switch (captureBackend()) {
    case CaptureBackend::X11:
        presentOnX11(std::move(completion));
        break;
    case CaptureBackend::Portal:
        (void)presentOnCast(std::move(completion)); // it runs on by itself
        break;
    case CaptureBackend::None:
    case CaptureBackend::Unknown:
        completion(CaptureRegion()); // the recorder says why there is nothing to select from
        break;
    }
}

} // namespace quillbox
