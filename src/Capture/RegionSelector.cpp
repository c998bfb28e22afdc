#include "Capture/RegionSelector.h"

#include "Capture/ScreenBackdrop.h"
#include "Capture/SelectionWindow.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include <chrono>
#include <utility>

namespace quillbox {
namespace {

/// How long the programs below get to draw what a panel of ours covered until now.
constexpr std::chrono::milliseconds panelSettlingTime{40};

void showOverlay(const QPixmap& backdrop, RegionSelector::Completion completion)
{
    auto* const window // deletes itself after its one gesture, or with the application
        = new SelectionWindow(QGuiApplication::primaryScreen()->geometry(), backdrop, std::move(completion));
    QObject::connect(qGuiApp, &QGuiApplication::aboutToQuit, window, [window] { delete window; });
    window->makeKeyAndOrderFront();
}

} // namespace

RegionSelector::~RegionSelector() = default;

void RegionSelector::present(Completion completion)
{
    if (QGuiApplication::primaryScreen() == nullptr) {
        completion(std::nullopt);
        return;
    }
    if (ScreenBackdrop::showsThrough()) {
        showOverlay(QPixmap(), std::move(completion));
        return;
    }
    ScreenBackdrop::waitUntilApplied();
    QTimer::singleShot(panelSettlingTime, qGuiApp, [completion = std::move(completion)] {
        auto* const screen = QGuiApplication::primaryScreen();
        if (screen == nullptr)
            completion(std::nullopt);
        else
            showOverlay(ScreenBackdrop::picture(*screen), completion);
    });
}

} // namespace quillbox
