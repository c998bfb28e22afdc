#include "Capture/Portal/PortalStream.h"

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/PortalSource.h"
#include "Capture/Portal/ScreenCastPortal.h"
#include "Capture/ScreenSession.h"
#include "Encoding/Precondition.h"

#include <QCoro/QCoroFuture>
#include <QPointer>

#include <memory>
#include <optional>
#include <utility>

namespace quillbox {

PortalStream::PortalStream() = default;

PortalStream::~PortalStream()
{
    m_pictures.reset(); // before the cast that it is a part of
}

QCoro::Task<> PortalStream::start(CaptureRegion region, FrameSink sink)
{
    precondition(!m_portal, "a stream is started once");
    auto selected = SelectedCast::take();
    m_portal = selected ? selected->portal : std::make_shared<ScreenCastPortal>();
    const QPointer portal(m_portal.get());
    ScreenCast cast;
    std::optional<PixelSize> points;
    if (selected) {
        cast = selected->cast;
        points = selected->points;
        selected.reset(); // the portal's object goes with this one
    } else {
        auto opening = m_portal->open();
        cast = co_await opening; // throws if the portal's object is gone, and this one with it
    }
    auto connecting = m_portal->openRemote();
    auto remote = co_await connecting; // likewise
    m_pictures = std::make_unique<PipeWireStream>(sourceOf(cast, std::move(remote), points), region, std::move(sink));
    QObject::connect(m_portal.get(), &ScreenCastPortal::ended, m_portal.get(),
        [pictures = m_pictures.get()](const CaptureError& reason) { pictures->end(reason); });
    const auto started = m_pictures->started();
    const auto outcome = co_await started; // this object may be gone from here on
    if (!outcome)
        co_return;
    if (portal) { // nothing runs
        m_pictures.reset();
        m_portal.reset();
    }
    throw CaptureError(*outcome);
}

QCoro::Task<> PortalStream::stop()
{
    m_pictures.reset();
    m_portal.reset();
    co_return;
}

} // namespace quillbox
