#include "Capture/Portal/PortalStream.h"

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/PortalSource.h"
#include "Capture/Portal/ScreenCastPortal.h"
#include "Capture/Wayland/OutputWatch.h"
#include "Encoding/Precondition.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroFuture>
#include <QPointer>

#include <memory>
#include <optional>
#include <system_error>
#include <utility>

namespace quillbox {
namespace {

/// The same source; the size of its first picture is noted before that is delivered.
PipeWireStream::Source noting(const std::shared_ptr<std::optional<PixelSize>>& size, PipeWireStream::Source source)
{
    source.points = [ask = std::move(source.points), size](PixelSize picture) {
        if (!*size)
            *size = picture;
        return ask(picture);
    };
    return source;
}

/// Some compositors go on with a cast whose monitor has gone.
/// @return null where there is no thread or descriptor for it: then it is left to the compositor
std::unique_ptr<OutputWatch> watchOf(const CastFacts& facts, PixelSize picture, PipeWireStream& pictures)
{
    try {
        return std::make_unique<OutputWatch>(facts, picture, [&pictures] {
            pictures.end({CaptureError::Reason::DisplayGone,
                translate("CaptureError", "The monitor that is recorded was switched off or unplugged")});
        });
    } catch (const std::system_error&) {
        return nullptr;
    }
}

} // namespace

PortalStream::PortalStream(std::unique_ptr<OpenCast> cast)
    : m_cast(std::move(cast))
{
}

PortalStream::~PortalStream()
{
    m_watch.reset();
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
    const auto size = std::make_shared<std::optional<PixelSize>>();
    m_pictures = std::make_unique<PipeWireStream>(
        noting(size, sourceOf(m_cast->cast, std::move(remote), m_cast->points)), region, std::move(sink));
    QObject::connect(portal, &ScreenCastPortal::ended, portal,
        [pictures = m_pictures.get()](const CaptureError& reason) { pictures->end(reason); });
    const auto started = m_pictures->started();
    const auto outcome = co_await started; // this object may be gone from here on
    if (!outcome) {
        if (portal && *size)
            m_watch = watchOf(m_cast->cast.facts, **size, *m_pictures);
        co_return;
    }
    if (portal) { // nothing runs
        m_pictures.reset();
        m_cast.reset();
    }
    throw CaptureError(*outcome);
}

QCoro::Task<> PortalStream::stop()
{
    m_watch.reset();
    m_pictures.reset();
    m_cast.reset();
    co_return;
}

} // namespace quillbox
