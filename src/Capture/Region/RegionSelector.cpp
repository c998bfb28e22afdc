#include "Capture/Region/RegionSelector.h"

#include "Capture/CaptureBackEnd.h"
#include "Capture/Region/CastScreen.h"
#include "Capture/Region/OtherMonitors.h"
#include "Capture/Region/OverlayPictures.h"
#include "Capture/Region/ScreenBackdrop.h"
#include "Capture/Region/SelectionWindow.h"
#include "Platform/Detach.h"
#include "Translation/Translate.h"

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
    QScreen& screen, const QRect& frame, const QPixmap& backdrop, SelectionWindow::ResultCallback onResult)
{
    auto* const window // deletes itself after its one gesture, or with the application
        = new SelectionWindow(frame, backdrop, std::move(onResult));
    QObject::connect(qGuiApp, &QGuiApplication::aboutToQuit, window, [window] { delete window; });
    window->setScreen(&screen);
    window->makeKeyAndOrderFront();
    return window;
}

RegionSelector::Outcome outcomeOf(std::optional<CaptureRegion> region)
{
    return region ? RegionSelector::Outcome(*region) : RegionSelector::Cancelled{};
}

/// Tells the session what was where the overlay has just been.
void expectUncovering(ScreenSession& session, const RGBAFrame& backdrop, const std::optional<CaptureGeometry>& geometry)
{
    if (geometry) // else there is nothing to record either
        session.expectUncovering(OverlayPictures::remainsOf(backdrop, *geometry));
}

/// @param backdrop  Is shown dimmed; null to let the desktop show through.
void showOnX11(QScreen& screen, const QPixmap& before, const QPixmap& backdrop,
    const std::shared_ptr<ScreenSession>& session, const RegionSelector::Completion& completion)
{
    const auto report
        = [session, before, scale = screen.devicePixelRatio(), completion](std::optional<CaptureRegion> region) {
              if (region && !before.isNull()) {
                  const PixelRect whole{0, 0, before.width(), before.height()};
                  expectUncovering(*session, OverlayPictures::frameOf(before), captureGeometry(*region, whole, scale));
              }
              completion(outcomeOf(region));
          };
    new OtherMonitors(*showOverlay(screen, screen.geometry(), backdrop, report), screen); // the overlay owns it
}

void presentOnX11(const std::shared_ptr<ScreenSession>& session, const RegionSelector::Completion& completion)
{
    if (ScreenBackdrop::showsThrough()) {
        auto& screen = *QGuiApplication::primaryScreen();
        showOnX11(screen, ScreenBackdrop::picture(screen), QPixmap(), session, completion);
        return;
    }
    ScreenBackdrop::waitUntilApplied();
    QTimer::singleShot(panelSettlingTime, qGuiApp, [session, completion] {
        auto* const screen = QGuiApplication::primaryScreen();
        if (screen == nullptr) {
            completion(RegionSelector::Cancelled{});
            return;
        }
        const auto picture = ScreenBackdrop::picture(*screen);
        showOnX11(*screen, picture, picture, session, completion);
    });
}

/// Where it can't be told which of several screens is cast, the picture is on all of them, until a region is dragged
/// out on one. @return false where there is none
bool showOverlays(const std::shared_ptr<ScreenSession>& session, const CastPicture& first,
    const RegionSelector::Completion& completion)
{
    const auto screens = CastScreen::candidates(first);
    auto* const only = screens.size() == 1 ? screens.front() : nullptr;
    std::vector<SelectionWindow*> windows;
    for (QScreen* const screen : screens) {
        const QRect frame = CastScreen::frame(*screen, {first.picture.width(), first.picture.height()});
        const PixelSize points{frame.width(), frame.height()}; // what the region counts
        const auto report
            = [session, points, only, picture = first.picture, completion](std::optional<CaptureRegion> region) {
                  if (region) {
                      session->selectOnCast(points, only);
                      const PixelRect whole{0, 0, static_cast<std::int32_t>(picture.width()),
                          static_cast<std::int32_t>(picture.height())};
                      expectUncovering(*session, picture, captureGeometry(*region, whole, points));
                  } else {
                      session->closeCast();
                  }
                  completion(outcomeOf(region));
              };
        auto* const window = showOverlay(*screen, frame, CastScreen::pixmap(first.picture, *screen), report);
        for (SelectionWindow* const other : windows) {
            QObject::connect(window, &SelectionWindow::finished, other, &SelectionWindow::withdraw);
            QObject::connect(other, &SelectionWindow::finished, window, &SelectionWindow::withdraw);
        }
        windows.push_back(window);
    }
    if (only != nullptr)
        new OtherMonitors(*windows.front(), *only); // likewise
    if (windows.empty())
        session->closeCast();
    return !windows.empty();
}

/// @param session  May go meanwhile: the question to the user goes with it.
QCoro::Task<> presentOnCast(std::weak_ptr<ScreenSession> session, RegionSelector::Completion completion)
{
    std::optional<CastPicture> first;
    std::optional<CaptureError> failure;
    try {
        auto opening = session.lock()->openCast();
        first = co_await opening;
    } catch (const CaptureError& error) {
        failure = error;
    }
    const auto present = session.lock();
    if (first && present && !CastScreen::isOfOneScreen(*first)) {
        present->refuseCast();
        failure.emplace(CaptureError::Reason::Unreadable,
            translate("CaptureError",
                "What was chosen is not one monitor: record again and choose a single monitor, not all of them"));
    }
    if (failure && failure->reason() != CaptureError::Reason::Refused)
        completion(*failure);
    else if (failure || !present || !showOverlays(present, *first, completion))
        completion(RegionSelector::Cancelled{});
}

} // namespace

RegionSelector::RegionSelector(std::shared_ptr<ScreenSession> screen)
    : m_screen(std::move(screen))
{
}

RegionSelector::~RegionSelector() = default;

void RegionSelector::present(Completion completion)
{
    if (QGuiApplication::primaryScreen() == nullptr) {
        completion(Cancelled{});
        return;
    }
    const auto choice = chooseCapture();
    switch (choice.backEnd) {
    case CaptureBackEnd::X11:
        presentOnX11(m_screen, completion);
        return;
    case CaptureBackEnd::Portal:
        detach(presentOnCast(m_screen, std::move(completion)));
        return;
    case CaptureBackEnd::None:
        completion(captureObstacle(choice));
    }
}

} // namespace quillbox
