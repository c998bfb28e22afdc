#include "App/Desktop/ApplicationService.h"

#include "App/Desktop/DesktopEntryAdaptor.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "Capture/RecorderControlling.h"
#include "Platform/DBus/SessionBus.h"
#include "PostCapture/Clipboard/Clipboard.h"
#include "PostCapture/SavedClip.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QMetaClassInfo>
#include <QTimer>

#include <utility>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;

/// The phase as a map for other programs.
struct Describe {
    QVariantMap operator()(const Coordinator::Idle&) const { return named("idle"); }
    QVariantMap operator()(const Coordinator::SelectingRegion&) const { return named("selecting"); }
    QVariantMap operator()(const Coordinator::Recording&) const { return named("recording"); }
    QVariantMap operator()(const Coordinator::Processing&) const { return named("processing"); }
    QVariantMap operator()(const Coordinator::Done& done) const
    {
        auto map = named("done");
        map.insert(QStringLiteral("path"), done.path);
        map.insert(QStringLiteral("byteCount"), qlonglong{done.byteCount});
        return map;
    }
    QVariantMap operator()(const Coordinator::Failed& failed) const
    {
        auto map = named("failed");
        map.insert(QStringLiteral("message"), failed.message);
        return map;
    }

private:
    static QVariantMap named(const char* phase) { return {{QStringLiteral("phase"), QString::fromLatin1(phase)}}; }
};

QString clipboardState()
{
    switch (Clipboard::general().state()) {
    case Clipboard::State::Pending:
        return QStringLiteral("pending");
    case Clipboard::State::Accepted:
        return QStringLiteral("accepted");
    case Clipboard::State::Empty:
        break;
    }
    return QStringLiteral("empty");
}

} // namespace

QString ApplicationService::interfaceName()
{
    const int index = staticMetaObject.indexOfClassInfo("D-Bus Interface");
    return QString::fromLatin1(staticMetaObject.classInfo(index).value());
}

QString ApplicationService::busName()
{
    return QStringLiteral(QUILLBOX_APP_ID);
}

QString ApplicationService::objectPath()
{
    return QLatin1Char('/')
        + busName().replace(QLatin1Char('.'), QLatin1Char('/')).replace(QLatin1Char('-'), QLatin1Char('_'));
}

ApplicationService::ApplicationService(CurrentCoordinator& coordinator, Actions actions, QObject* parent)
    : QObject(parent)
    , m_coordinator(coordinator)
    , m_actions(std::move(actions))
{
    new DesktopEntryAdaptor( // this object owns it
        this, {.showPanel = m_actions.showPanel, .showSettings = m_actions.showSettings, .begin = [this] {
                   begin();
               }});
    connect(&coordinator, &CurrentCoordinator::phaseChanged, this, &ApplicationService::answerWaiting);
}

ApplicationService::Claim ApplicationService::claimName()
{
    auto bus = SessionBus::connection();
    if (!bus.isConnected())
        return Claim::NoBus;
    m_waiting.clear(); // whoever waits on another connection gets no answer any more
    // The object first: whoever sees the name finds it.
    bus.registerObject(objectPath(), this,
        QDBusConnection::ExportScriptableInvokables | QDBusConnection::ExportScriptableProperties
            | QDBusConnection::ExportAdaptors);
    const auto reply = bus.interface()->registerService(busName(), QDBusConnectionInterface::DontQueueService);
    if (!reply.isValid())
        return Claim::NoBus;
    return reply.value() == QDBusConnectionInterface::ServiceRegistered ? Claim::Granted : Claim::Taken;
}

void ApplicationService::releaseName()
{
    SessionBus::connection().unregisterService(busName());
}

void ApplicationService::begin()
{
    m_coordinator.begin();
}

void ApplicationService::quit() const
{
    releaseName(); // whoever has the answer can start the application again
    QTimer::singleShot(0, this, m_actions.quit);
}

QVariantMap ApplicationService::Begin(const QVariantMap& options)
{
    DesktopEntryAdaptor::passOnActivation(options);
    m_coordinator.begin(options.value(QStringLiteral("precise")).toBool() ? CurrentCoordinator::Precision::Precise
                                                                          : CurrentCoordinator::Precision::AsChosen);
    return Status();
}

QVariantMap ApplicationService::Stop()
{
    if (!m_coordinator.isIn<Coordinator::Recording>()) {
        sendErrorReply(QStringLiteral("org.quillbox.quillbox.Error.NotRecording"), tr("Nothing is being recorded"));
        return {};
    }
    setDelayedReply(true);
    m_waiting.push_back(message());
    m_coordinator.stop();
    return {};
}

QVariantMap ApplicationService::Again(const QVariantMap& options)
{
    if (m_coordinator.isBusy()) {
        sendErrorReply(QStringLiteral("org.quillbox.quillbox.Error.Busy"), tr("A clip is being made already"));
        return {};
    }
    if (!m_coordinator.canMakeAgain()) {
        sendErrorReply(QStringLiteral("org.quillbox.quillbox.Error.NothingRecorded"),
            tr("Nothing has been recorded since Quillbox was started"));
        return {};
    }
    ClipRequest request = m_coordinator.latestRequest();
    if (!m_coordinator.canTryAgain())
        request.path.clear(); // a clip is there, and stays
    const auto name = options.value(QStringLiteral("preset")).toString();
    const auto preset = name.isEmpty() ? request.preset : ExportPreset::fromRawValue(name.toStdString());
    if (!preset) {
        sendErrorReply(QDBusError::InvalidArgs, tr("There is no preset “%1”").arg(name));
        return {};
    }
    request.preset = *preset;
    request.isPrecise = options.value(QStringLiteral("precise"), request.isPrecise).toBool();
    setDelayedReply(true);
    m_waiting.push_back(message());
    m_coordinator.makeAgain(request);
    return {};
}

void ApplicationService::answerWaiting()
{
    if (!m_coordinator.isIn<Coordinator::Done>() && !m_coordinator.isIn<Coordinator::Failed>())
        return;
    for (const auto& call : std::exchange(m_waiting, {}))
        SessionBus::connection().send(call.createReply(Status()));
}

void ApplicationService::Show(const QVariantMap& platformData) const
{
    DesktopEntryAdaptor::passOnActivation(platformData);
    m_actions.showPanel();
}

QVariantMap ApplicationService::Status() const
{
    auto status = std::visit(Describe{}, m_coordinator.phase());
    if (m_coordinator.get().recorder()->isRecording())
        status.insert(QStringLiteral("frameCount"), qlonglong{m_actions.frameCount()});
    if (m_coordinator.isIn<Coordinator::Recording>())
        status.insert(QStringLiteral("elapsedSeconds"), qlonglong{m_coordinator.recordingClock().elapsed().count()});
    status.insert(QStringLiteral("clipboard"), clipboardState());
    return status;
}

bool ApplicationService::Copy(const QString& path)
{
    setDelayedReply(true);
    const auto call = message();
    SavedClip::copy(path, *this).then(this, [call](bool isCopied) {
        SessionBus::connection().send(call.createReply(isCopied));
    });
    return false; // nobody gets this answer
}

void ApplicationService::Quit() const
{
    quit();
}

} // namespace quillbox

#include "moc_ApplicationService.cpp"
