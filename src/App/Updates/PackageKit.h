#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// Names and numbers of PackageKit's interface on the system bus. @see PackageKit 1.2, org.freedesktop.PackageKit.xml,
/// org.freedesktop.PackageKit.Transaction.xml and the enumerations in pk-enum.h
namespace quillbox::PackageKit {

inline constexpr const char* service = "org.freedesktop.PackageKit"; ///< also the name of its interface
inline constexpr const char* path = "/org/freedesktop/PackageKit";
inline constexpr const char* transactionInterface = "org.freedesktop.PackageKit.Transaction";

/// How a transaction ends.
enum class Exit : std::uint32_t {
    Success = 1,
    Failed = 2,
    Cancelled = 3,
    KeyRequired = 4,
    NeedUntrusted = 8,
    CancelledPriority = 9, ///< for one that was more urgent
};

/// Why one fails: those that mean something to us.
enum class ErrorCode : std::uint32_t {
    NoNetwork = 2,
    GPGFailure = 5,
    PackageDownloadFailed = 10,
    TransactionCancelled = 17,
    CannotGetLock = 26,
    BadGPGSignature = 30,
    MissingGPGSignature = 31,
    RepoNotAvailable = 37,
    NoMoreMirrorsToTry = 43,
    NotAuthorized = 48,
    CannotInstallRepoUnsigned = 50,
    CannotUpdateRepoUnsigned = 51,
    CannotFetchSources = 64,
    LockRequired = 67,
};

// Sets of filters and of flags are numbers of 64 bits, one bit for each member of the enumeration.
inline constexpr qulonglong filterNone = 1U << 1U;
inline constexpr qulonglong filterInstalled = 1U << 2U;
inline constexpr qulonglong flagOnlyTrusted = 1U << 1U;

inline constexpr std::uint32_t percentageUnknown = 101;

// What is said of a package, in the low half of a number; the other half has its own meaning in later versions.
inline constexpr std::uint32_t infoMask = 0xFFFF;
inline constexpr std::uint32_t infoLow = 3;      ///< an update, and not an urgent one
inline constexpr std::uint32_t infoSecurity = 8; ///< the most urgent one; those between are updates, too

/// The name of a package: "name;version;architecture;repository".
struct PackageId {
    QString name;
    QString version;
    QString repository; ///< where it is offered, or was when it was installed
    QString whole;      ///< as PackageKit writes it
    std::uint32_t info = 0;

    /// @return nothing where a part is missing
    [[nodiscard]] static std::optional<PackageId> parse(const QString& whole);
    /// Of a package that GetUpdates names: whether it can be installed.
    [[nodiscard]] bool isUpdate() const { return info >= infoLow && info <= infoSecurity; }
    /// Of a package that is installed: whether no source offers it, in this version at least. The apt back end says so.
    [[nodiscard]] bool isLocal() const { return repository.endsWith(QLatin1String(":local")); }
};

} // namespace quillbox::PackageKit
