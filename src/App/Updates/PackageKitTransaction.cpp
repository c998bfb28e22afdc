#include "App/Updates/PackageKitTransaction.h"

#include "Encoding/Precondition.h"

#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <limits>
#include <utility>

namespace quillbox {
namespace {

using Reason = UpdateError::Reason;

constexpr int forever = std::numeric_limits<int>::max(); // milliseconds; libdbus takes it literally
const auto properties = QStringLiteral("org.freedesktop.DBus.Properties");

Reason reasonOf(PackageKit::ErrorCode code)
{
    switch (code) {
    case PackageKit::ErrorCode::NotAuthorized:
        return Reason::Refused;
    case PackageKit::ErrorCode::NoNetwork:
    case PackageKit::ErrorCode::PackageDownloadFailed:
    case PackageKit::ErrorCode::RepoNotAvailable:
    case PackageKit::ErrorCode::NoMoreMirrorsToTry:
    case PackageKit::ErrorCode::CannotFetchSources:
        return Reason::NoNetwork;
    case PackageKit::ErrorCode::GPGFailure:
    case PackageKit::ErrorCode::BadGPGSignature:
    case PackageKit::ErrorCode::MissingGPGSignature:
    case PackageKit::ErrorCode::CannotInstallRepoUnsigned:
    case PackageKit::ErrorCode::CannotUpdateRepoUnsigned:
        return Reason::Untrusted;
    case PackageKit::ErrorCode::CannotGetLock:
    case PackageKit::ErrorCode::LockRequired:
        return Reason::Busy;
    case PackageKit::ErrorCode::TransactionCancelled:
        break; // the exit says so, too
    }
    return Reason::Failed;
}

/// What the bus, or the daemon before it begins, answers instead of working.
Reason reasonOf(const QString& errorName)
{
    if (errorName == QLatin1String("org.freedesktop.DBus.Error.AccessDenied")
        || errorName.endsWith(QLatin1String(".RefusedByPolicy")))
        return Reason::Refused;
    if (errorName == QLatin1String("org.freedesktop.DBus.Error.NoReply"))
        return Reason::Vanished;
    return errorName.startsWith(QLatin1String("org.freedesktop.PackageKit.")) ? Reason::Failed : Reason::Unreachable;
}

QDBusMessage callOf(const QString& owner, const QString& path, const QString& method)
{
    return QDBusMessage::createMethodCall(owner, path, QString::fromLatin1(PackageKit::transactionInterface), method);
}

} // namespace

std::optional<PackageKit::PackageId> PackageKit::PackageId::parse(const QString& whole)
{
    const auto parts = whole.split(QLatin1Char(';'));
    if (parts.size() != 4 || parts[0].isEmpty() || parts[1].isEmpty())
        return std::nullopt;
    return PackageId{.name = parts[0], .version = parts[1], .repository = parts[3], .whole = whole};
}

PackageKitTransaction::PackageKitTransaction(QDBusConnection bus)
    : m_bus(std::move(bus))
    , m_watcher(QString::fromLatin1(PackageKit::service), m_bus, QDBusServiceWatcher::WatchForUnregistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        m_outcome.error = UpdateError(Reason::Vanished);
        end();
    });
}

PackageKitTransaction::~PackageKitTransaction()
{
    cancel();
}

QFuture<PackageKitTransaction::Outcome> PackageKitTransaction::run(Request request, Manner manner)
{
    precondition(m_request.method.isEmpty(), "a transaction does one thing");
    m_request = std::move(request);
    m_manner = manner;
    m_promise.start();
    const auto service = QString::fromLatin1(PackageKit::service);
    auto call = QDBusMessage::createMethodCall(
        service, QString::fromLatin1(PackageKit::path), service, QStringLiteral("CreateTransaction"));
    call.setAutoStartService(manner == Manner::Interactive);
    auto* const pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call, forever), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        if (m_hasEnded)
            return; // cancelled meanwhile; the daemon forgets what is not used
        if (finished->isError())
            fail(finished->reply());
        else
            begin(finished->reply());
    });
    return m_promise.future();
}

void PackageKitTransaction::begin(const QDBusMessage& created)
{
    const auto first = created.arguments().value(0);
    m_owner = created.service();
    m_path = first.value<QDBusObjectPath>().path();
    const auto interface = QString::fromLatin1(PackageKit::transactionInterface);
    m_bus.connect(
        m_owner, m_path, interface, QStringLiteral("Package"), this, SLOT(receivePackage(uint, QString, QString)));
    m_bus.connect(m_owner, m_path, interface, QStringLiteral("ErrorCode"), this, SLOT(receiveErrorCode(uint, QString)));
    m_bus.connect(m_owner, m_path, interface, QStringLiteral("Finished"), this, SLOT(receiveFinished(uint, uint)));
    m_bus.connect(m_owner, m_path, properties, QStringLiteral("PropertiesChanged"), this,
        SLOT(receiveProperties(QString, QVariantMap, QStringList)));

    const bool interactive = m_manner == Manner::Interactive;
    const QStringList hints{interactive ? QStringLiteral("interactive=true") : QStringLiteral("interactive=false"),
        interactive ? QStringLiteral("background=false") : QStringLiteral("background=true")};
    send(QStringLiteral("SetHints"), {hints});
    send(m_request.method, m_request.arguments);
}

void PackageKitTransaction::send(const QString& method, const QVariantList& arguments)
{
    auto call = callOf(m_owner, m_path, method);
    call.setArguments(arguments);
    // The answer may wait for a password; only a refusal is of interest, the rest comes as signals.
    auto* const pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call, forever), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        if (finished->isError())
            fail(finished->reply());
    });
}

void PackageKitTransaction::cancel()
{
    if (m_hasEnded || m_request.method.isEmpty())
        return;
    if (!m_path.isEmpty() && !m_request.goesOnUnwatched)
        (void)m_bus.send(callOf(m_owner, m_path, QStringLiteral("Cancel"))); // what it then does is its own affair
    m_outcome.isCancelled = true;
    end();
}

void PackageKitTransaction::receivePackage(uint info, const QString& packageId, const QString& /*summary*/)
{
    auto id = PackageKit::PackageId::parse(packageId);
    if (!id)
        return;
    id->info = info & PackageKit::infoMask;
    m_outcome.packages.push_back(std::move(*id));
}

void PackageKitTransaction::receiveErrorCode(uint code, const QString& details)
{
    if (!m_outcome.error) // the first is the cause of the others
        m_outcome.error = UpdateError(reasonOf(PackageKit::ErrorCode{code}), details.trimmed());
}

void PackageKitTransaction::receiveFinished(uint exit, uint /*milliseconds*/)
{
    switch (PackageKit::Exit{exit}) {
    case PackageKit::Exit::Success:
        m_outcome.error.reset(); // what it got over
        break;
    case PackageKit::Exit::Cancelled:
    case PackageKit::Exit::CancelledPriority:
        m_outcome.isCancelled = true;
        break;
    case PackageKit::Exit::NeedUntrusted:
    case PackageKit::Exit::KeyRequired:
        m_outcome.error = UpdateError(Reason::Untrusted);
        break;
    case PackageKit::Exit::Failed:
    default: // whatever comes in later versions, it is no success
        if (!m_outcome.error)
            m_outcome.error = UpdateError(Reason::Failed);
        break;
    }
    end();
}

void PackageKitTransaction::receiveProperties(
    const QString& /*interface*/, const QVariantMap& changed, const QStringList& /*invalidated*/)
{
    const auto percentage = changed.value(QStringLiteral("Percentage"));
    if (percentage.isValid() && percentage.toUInt() < PackageKit::percentageUnknown)
        Q_EMIT progressed(percentage.toInt());
}

void PackageKitTransaction::fail(const QDBusMessage& refusal)
{
    if (!m_outcome.error)
        m_outcome.error = UpdateError(reasonOf(refusal.errorName()), refusal.errorMessage().trimmed());
    end();
}

void PackageKitTransaction::end()
{
    if (m_hasEnded || m_request.method.isEmpty())
        return;
    m_hasEnded = true;
    if (m_outcome.isCancelled)
        m_outcome.error.reset();
    m_promise.addResult(std::move(m_outcome));
    m_promise.finish();
}

} // namespace quillbox

#include "moc_PackageKitTransaction.cpp"
