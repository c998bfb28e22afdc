#include "App/Updates/PackageKitService.h"

#include "Encoding/Precondition.h"
#include "Platform/Detach.h"

#include <QCoro/QCoroFuture>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>

#include <memory>
#include <utility>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

/// A silent look that is not done by then is given up: nobody waits for it, and it keeps the user from checking.
constexpr auto silentPatience = 60s;

const auto busName = QStringLiteral("org.freedesktop.DBus");
const auto busPath = QStringLiteral("/org/freedesktop/DBus");

QString service()
{
    return QString::fromLatin1(PackageKit::service);
}

} // namespace

/// As long as one lives, the service is at work, as `flag` then says.
class PackageKitService::Work {
public:
    Work(PackageKitService& service, bool PackageKitService::*flag)
        : m_service(&service)
        , m_flag(flag)
    {
        precondition(!(service.*flag), "one thing at a time");
        set(true);
    }
    ~Work() { set(false); }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

private:
    void set(bool isWorking)
    {
        if (m_service)
            m_service->update([this, isWorking] { m_service->*m_flag = isWorking; });
    }

    QPointer<PackageKitService> m_service;
    bool PackageKitService::*m_flag;
};

PackageKitService::Options PackageKitService::usual()
{
    return {.bus = QDBusConnection::systemBus(), .package = QStringLiteral(QUILLBOX_PACKAGE_NAME)};
}

PackageKitService::PackageKitService(Options options)
    : m_options(std::move(options))
    , m_watcher(service(), m_options.bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString& /*name*/, const QString& /*before*/, const QString& now) { setOwner(now); });
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(m_options.quiet);
    connect(&m_quiet, &QTimer::timeout, this, &PackageKitService::lookIfRunning);
}

PackageKitService::~PackageKitService()
{
    for (const auto& transaction : {m_transaction, m_silentTransaction})
        if (transaction)
            transaction->cancel(); // whoever waits for it comes to an end
}

void PackageKitService::start()
{
    askWhatCanBeStarted();
    askBus(QStringLiteral("GetNameOwner"), service(), [this](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ReplyMessage) // else nobody has the name
            setOwner(answer.arguments().value(0).toString());
    });
    QTimer::singleShot(m_options.firstLook, this, [this] {
        m_hasWaited = true;
        lookIfRunning();
    });
}

void PackageKitService::askWhatCanBeStarted()
{
    askBus(QStringLiteral("ListActivatableNames"), {}, [this](const QDBusMessage& answer) {
        const bool canBeStarted = answer.arguments().value(0).toStringList().contains(service());
        update([this, canBeStarted] { m_canBeStarted = canBeStarted; });
    });
}

void PackageKitService::askBus(
    const QString& method, const QString& argument, const std::function<void(const QDBusMessage&)>& then)
{
    auto question = QDBusMessage::createMethodCall(busName, busPath, busName, method);
    if (!argument.isEmpty())
        question << argument;
    auto* const pending = new QDBusPendingCallWatcher(m_options.bus.asyncCall(question), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [then](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        then(finished->reply());
    });
}

void PackageKitService::setOwner(const QString& owner)
{
    if (owner == m_owner)
        return;
    const auto path = QString::fromLatin1(PackageKit::path);
    const auto signal = QStringLiteral("UpdatesChanged");
    if (!m_owner.isEmpty())
        m_options.bus.disconnect(m_owner, path, service(), signal, this, SLOT(lookOnceQuiet()));
    if (!owner.isEmpty())
        m_options.bus.connect(owner, path, service(), signal, this, SLOT(lookOnceQuiet()));
    update([this, owner] { m_owner = owner; });
    if (!owner.isEmpty())
        lookOnceQuiet(); // another program has started it: now it can be asked
    else
        askWhatCanBeStarted(); // it may have been removed
}

/// Makes a change that may matter to whether a check can start, and says so if it did.
void PackageKitService::update(const std::function<void()>& change)
{
    const auto before = obstacle();
    change();
    if (obstacle() != before)
        Q_EMIT obstacleChanged();
}

UpdateService::Obstacle PackageKitService::obstacle() const
{
    if (!m_options.bus.isConnected() || (m_owner.isEmpty() && !m_canBeStarted))
        return Obstacle::NoService;
    if (!m_isOurs.value_or(true))
        return Obstacle::NotPackaged;
    return m_isWorking || m_isLookingSilently ? Obstacle::Busy : Obstacle::None;
}

void PackageKitService::cancelLook()
{
    if (m_transaction)
        m_transaction->cancel();
}

void PackageKitService::lookOnceQuiet()
{
    m_quiet.start();
}

void PackageKitService::lookIfRunning()
{
    if (m_isWorking || m_isLookingSilently)
        m_quiet.start();
    else if (m_hasWaited && !m_owner.isEmpty())
        detach(lookSilently());
}

PackageKitService::Request PackageKitService::installedRequest() const
{
    return {.method = QStringLiteral("Resolve"),
        .arguments = {QVariant::fromValue(PackageKit::filterInstalled), QStringList(m_options.package)}};
}

std::optional<PackageKit::PackageId> PackageKitService::ours(const Outcome& outcome) const
{
    for (const auto& each : outcome.packages)
        if (each.name == m_options.package)
            return each;
    return std::nullopt;
}

/// Of what GetUpdates names; it names, too, what is held back and what would be removed.
std::optional<PackageKit::PackageId> PackageKitService::updateIn(const Outcome& updates) const
{
    for (const auto& each : updates.packages)
        if (each.name == m_options.package && each.isUpdate())
            return each;
    return std::nullopt;
}

QCoro::Task<PackageKitTransaction::Outcome> PackageKitService::transact(Request request, Manner manner)
{
    const auto transaction = std::make_unique<PackageKitTransaction>(m_options.bus);
    (manner == Manner::Interactive ? m_transaction : m_silentTransaction) = transaction.get();
    if (manner == Manner::Interactive)
        connect(transaction.get(), &PackageKitTransaction::progressed, this, &UpdateService::progressed);
    else
        QTimer::singleShot(silentPatience, transaction.get(), &PackageKitTransaction::cancel);
    const auto end = transaction->run(std::move(request), manner);
    const auto outcome = co_await end;
    co_return outcome;
}

QCoro::Task<> PackageKitService::lookSilently()
{
    const QPointer self(this);
    const Work work(*this, &PackageKitService::m_isLookingSilently);
    const auto installed = co_await transact(installedRequest(), Manner::Silent);
    if (!self || installed.error || installed.isCancelled)
        co_return; // nobody has asked
    const bool isOurs = ours(installed).has_value();
    const auto learn = [this, isOurs] {
        m_isOurs = isOurs;
    };
    update(learn);
    if (!self || !isOurs)
        co_return;
    const Request request{
        .method = QStringLiteral("GetUpdates"), .arguments = {QVariant::fromValue(PackageKit::filterNone)}};
    const auto updates = co_await transact(request, Manner::Silent);
    if (!self || updates.error || updates.isCancelled)
        co_return;
    if (const auto found = updateIn(updates))
        Q_EMIT updateSeen({.version = found->version, .id = found->whole});
}

QCoro::Task<UpdateService::Finding> PackageKitService::look()
{
    const QPointer self(this);
    const Work work(*this, &PackageKitService::m_isWorking);
    Finding finding;
    const auto installed = co_await transact(installedRequest(), Manner::Interactive);
    finding.isCancelled = installed.isCancelled;
    if (!self || finding.isCancelled)
        co_return finding;
    if (installed.error)
        throw UpdateError(*installed.error);
    const auto current = ours(installed);
    const bool isOurs = current.has_value();
    const auto learn = [this, isOurs] {
        m_isOurs = isOurs;
    };
    update(learn);
    if (!isOurs)
        throw UpdateError(UpdateError::Reason::NotPackaged);
    finding.installedVersion = current->version;

    const Request refresh{.method = QStringLiteral("RefreshCache"), .arguments = {false}};
    const auto refreshed = co_await transact(refresh, Manner::Interactive);
    finding.isCancelled = refreshed.isCancelled;
    if (!self || finding.isCancelled)
        co_return finding;
    if (refreshed.error && refreshed.error->reason() == UpdateError::Reason::Vanished)
        throw UpdateError(*refreshed.error);
    finding.staleness = refreshed.error; // it still knows what it knew

    const Request request{
        .method = QStringLiteral("GetUpdates"), .arguments = {QVariant::fromValue(PackageKit::filterNone)}};
    const auto updates = co_await transact(request, Manner::Interactive);
    finding.isCancelled = updates.isCancelled;
    if (!self || finding.isCancelled)
        co_return finding;
    if (updates.error)
        throw UpdateError(*updates.error);
    if (const auto found = updateIn(updates)) {
        finding.update = Update{.version = found->version, .id = found->whole};
        co_return finding;
    }
    if (!current->isLocal() || finding.staleness)
        co_return finding;
    // Before the refresh no source was known to offer it; is there one now?
    const auto again = co_await transact(installedRequest(), Manner::Interactive);
    finding.isCancelled = again.isCancelled;
    if (!self || finding.isCancelled)
        co_return finding;
    const auto now = ours(again);
    if (now && now->isLocal())
        throw UpdateError(UpdateError::Reason::NotOffered);
    co_return finding;
}

QCoro::Task<> PackageKitService::install(Update update)
{
    const QPointer self(this);
    const Work work(*this, &PackageKitService::m_isWorking);
    const Request request{.method = QStringLiteral("UpdatePackages"),
        .arguments = {QVariant::fromValue(PackageKit::flagOnlyTrusted), QStringList(update.id)},
        .goesOnUnwatched = true}; // quitting does not undo what the user wished for
    const auto done = co_await transact(request, Manner::Interactive);
    if (!self)
        co_return;
    const bool isSettled = done.error && done.error->reason() != UpdateError::Reason::Vanished;
    if (isSettled)
        throw UpdateError(*done.error);
    // "Success" is what it says; and a daemon that died may have been done before.
    const auto installed = co_await transact(installedRequest(), Manner::Interactive);
    if (!self)
        co_return;
    const auto current = ours(installed);
    if (current && current->version == update.version)
        co_return;
    if (done.error)
        throw UpdateError(*done.error);
    if (installed.error)
        throw UpdateError(*installed.error);
    throw UpdateError(done.isCancelled ? UpdateError::Reason::Cancelled : UpdateError::Reason::NotInstalled);
}

} // namespace quillbox

#include "moc_PackageKitService.cpp"
