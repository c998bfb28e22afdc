#include "Capture/ScreenSession.h"

#include "Capture/CaptureBackEnd.h"
#include "Capture/Portal/PortalStream.h"
#include "Capture/Portal/RestoreToken.h"
#include "Capture/Portal/ScreenCastPortal.h"
#include "Capture/UncoveredStream.h"
#include "Capture/Wayland/HiddenPointer.h"
#include "Capture/X11/X11Stream.h"
#include "Encoding/Precondition.h"

#include <QScreen>

#include <utility>

namespace quillbox {

ScreenSession::ScreenSession() = default;
ScreenSession::~ScreenSession() = default;

QCoro::Task<CastPicture> ScreenSession::openCast()
{
    m_cast = std::make_unique<OpenCast>();
    m_cast->portal = std::make_unique<ScreenCastPortal>();
    const QPointer portal(m_cast->portal.get()); // null: this object is gone, or keeps another cast
    try {
        auto opening = portal->open();
        const auto cast = co_await opening;
        m_cast->cast = cast;
        HiddenPointer withoutPointer; // until the picture has come
        auto hiding = withoutPointer.hidden();
        co_await hiding;
        if (!portal)
            throw CaptureError::stopped();
        auto looking = firstPicture(*portal, cast);
        auto first = co_await looking;
        m_cast->points = first.points;
        co_return first;
    } catch (...) {
        if (portal)
            m_cast.reset();
        throw;
    }
}

void ScreenSession::selectOnCast(PixelSize points, QScreen* screen)
{
    precondition(m_cast != nullptr, "a region is selected on a cast that is open");
    m_cast->points = points;
    m_castScreen = screen;
}

void ScreenSession::closeCast()
{
    m_cast.reset();
}

void ScreenSession::refuseCast()
{
    closeCast();
    RestoreToken::replace(QString());
}

void ScreenSession::expectUncovering(OverlayRemains remains)
{
    m_uncovering.emplace(Uncovering{std::move(remains), CaptureClock::now()});
}

std::unique_ptr<CaptureStream> ScreenSession::makeStream()
{
    auto uncovering = std::exchange(m_uncovering, std::nullopt);
    *m_hasRemainsLeft = false;
    auto stream = makeBareStream();
    if (!uncovering)
        return stream;
    return std::make_unique<UncoveredStream>(std::move(stream), std::move(uncovering->remains), uncovering->hiddenAt,
        [hasRemainsLeft = m_hasRemainsLeft] { *hasRemainsLeft = true; });
}

std::unique_ptr<CaptureStream> ScreenSession::makeBareStream()
{
    const auto choice = chooseCapture();
    switch (choice.backEnd) {
    case CaptureBackEnd::X11:
        return std::make_unique<X11Stream>();
    case CaptureBackEnd::Portal:
        return std::make_unique<PortalStream>(std::exchange(m_cast, nullptr));
    case CaptureBackEnd::None:
        break;
    }
    throw captureObstacle(choice);
}

QScreen* ScreenSession::castScreen() const
{
    return m_castScreen;
}

} // namespace quillbox
