#include "App/Workflow/FlowMessages.h"

#include "Capture/StreamRecorder.h"
#include "Encoding/GIFEncoder.h"

#include <QCoreApplication>
#include <QUnhandledException>

#include <filesystem>
#include <new>
#include <stdexcept>

namespace quillbox {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(RecordingCoordinator)
};

/// Hands `error` to `use`, or what a worker threw if that is what it carries.
template <typename Use> auto unwrapped(const std::exception& error, const Use& use) -> decltype(use(error))
{
    const auto* const carrier = dynamic_cast<const QUnhandledException*>(&error);
    if (carrier == nullptr || !carrier->exception())
        return use(error);
    try {
        std::rethrow_exception(carrier->exception());
    } catch (const std::exception& inner) {
        return use(inner);
    } catch (...) {
        return use(std::runtime_error(Text::tr("an unknown error").toStdString()));
    }
}

QString description(const std::exception& error)
{
    if (dynamic_cast<const StreamRecorder::RecorderError*>(&error) != nullptr)
        return Text::tr("There is no display to record");
    if (const auto* const file = dynamic_cast<const std::filesystem::filesystem_error*>(&error))
        return Text::tr("%1: %2").arg(
            QString::fromStdString(file->path1().string()), QString::fromStdString(file->code().message()));
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return Text::tr("There is not enough memory for this recording");
    return QString::fromUtf8(error.what());
}

} // namespace

QString FlowMessages::describe(const std::exception& error)
{
    return unwrapped(error, &description);
}

QString FlowMessages::couldNotStart(const std::exception& error)
{
    return Text::tr("Couldn't start recording: %1").arg(describe(error));
}

QString FlowMessages::noFrames()
{
    return Text::tr("No frames captured.");
}

QString FlowMessages::couldNotSave(const std::exception& error)
{
    return unwrapped(error, [](const std::exception& cause) {
        const auto* const encodingError = dynamic_cast<const GIFEncodingError*>(&cause);
        if (encodingError == nullptr)
            return Text::tr("Couldn't save clip: %1").arg(description(cause));
        const auto& size = encodingError->dimensionTooLarge();
        return Text::tr("Region too large to encode (%1×%2). Max is %3 per side.")
            .arg(QString::number(size.width), QString::number(size.height),
                QString::number(GIFEncoder::maximumFieldValue));
    });
}

bool FlowMessages::mayPass(const std::exception& error)
{
    return unwrapped(
        error, [](const std::exception& cause) { return dynamic_cast<const GIFEncodingError*>(&cause) == nullptr; });
}

} // namespace quillbox
