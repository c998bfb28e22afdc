#include "Capture/Portal/PortalStream.h"

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/PortalSource.h"
#include "Capture/Portal/ScreenCastPortal.h"
#include "Encoding/Precondition.h"

#include <QCoro/QCoroFuture>
#include <QPointer>

#include <memory>
#include <utility>

namespace quillbox {

PortalStream::PortalStream(std::unique_ptr<OpenCast> cast)
    : m_cast(std::move(cast))
{
}

PortalStream::~PortalStream()
{
    m_pictures.reset(); // before the cast that it is a part of
}

QCoro::Task<> PortalStream::start(CaptureRegion region, FrameSink sink)
{
    precondition(!m_pictures, "a stream is started once");
    const bool isOpen = m_cast != nullptr;
    if (!isOpen) {
        m_cast = std::make_unique<OpenCast>();
        m_cast->portal = std::make_unique<ScreenCastPortal>();
    }
    const QPointer portal(m_cast->portal.get());
    if (!isOpen) {
        auto opening = portal->open();
        const auto cast = co_await opening; // throws if the portal's object is gone, and this one with it
        m_cast->cast = cast;
    }
    auto connecting = portal->openRemote();
    auto remote = co_await connecting; // likewise
    m_pictures = std::make_unique<PipeWireStream>(
        sourceOf(m_cast->cast, std::move(remote), m_cast->points), region, std::move(sink));
    QObject::connect(portal, &ScreenCastPortal::ended, portal,
        [pictures = m_pictures.get()](const CaptureError& reason) { pictures->end(reason); });
    const auto started = m_pictures->started();
    const auto outcome = co_await started; // this object may be gone from here on
    if (!outcome)
        co_return;
    if (portal) { // nothing runs
        m_pictures.reset();
        m_cast.reset();
    }
    throw CaptureError(*outcome);
}

QCoro::Task<> PortalStream::stop()
{
    m_pictures.reset();
    m_cast.reset();
    co_return;
}

} // namespace quillbox
