#pragma once

#include "Encoding/BytesKeeper.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <span>
#include <string>

namespace quillbox {

/// Why a file could not be saved. `what()` is one line for the user that names the file and what to do.
class OutputFileError : public std::exception {
public:
    enum class Reason {
        AlreadyExists, ///< and may not be replaced
        FolderMissing, ///< the folder it would lie in
        IsFolder,      ///< a folder has its name
        IsInput,       ///< it is what the clip is made from
        NoSpace,       ///< the disk, or the user's share of it, is full
        TooLarge,      ///< for the file system, or for the limit on the size of files (ulimit -f)
        Refused,       ///< the system said no; `errorNumber` says why
    };

    /// @param errorNumber  The errno value behind `Refused`; 0 for the others.
    OutputFileError(std::filesystem::path path, Reason reason, int errorNumber = 0);
    /// The error that an errno value stands for.
    [[nodiscard]] static OutputFileError fromErrorNumber(const std::filesystem::path& path, int errorNumber);

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] Reason reason() const { return m_reason; }
    [[nodiscard]] int errorNumber() const { return m_errorNumber; }
    /// The reason in a few words, without the path.
    [[nodiscard]] const std::string& description() const { return m_description; }
    [[nodiscard]] const char* what() const noexcept override { return m_message.c_str(); }

private:
    std::filesystem::path m_path;
    Reason m_reason;
    int m_errorNumber;
    std::string m_description;
    std::string m_message;
};

/// Saves finished files: each appears whole or not at all. Stateless.
namespace OutputFile {

enum class IfExists { Refuse, Replace };

/// Fails now if `save` is bound to fail, so that no work is done in vain. Creates nothing.
/// @throws OutputFileError
void check(const std::filesystem::path& path, IfExists ifExists);

/// Writes `bytes` to `path`. A file that comes to exist meanwhile is not replaced either, unless that is asked for;
/// one that is replaced gives way in one step and leaves its permissions to the new one. A symbolic link is followed.
/// What is not a file at all (a device, a pipe) is written to directly. An error leaves
/// nothing behind, nor does the end of the process at any time; but for file systems that know no files without a name
/// (FAT, some networks), where removeLeftovers() finds it. SIGINT, SIGTERM and SIGHUP wait while the file gets its
/// name. Waits for the disk. Thread: any; other threads that may be killed by those signals should block them.
/// @throws OutputFileError
void save(const std::filesystem::path& path, std::span<const std::uint8_t> bytes, IfExists ifExists);

/// The same for bytes in pieces, of which only one is in memory at a time. @throws also what reading them throws
void saveInPieces(const std::filesystem::path& path, std::span<const KeptBytes> pieces, IfExists ifExists);

/// Removes what ended processes of this user left of their saving in `folder`; what cannot be removed stays. A save
/// that still goes on is recognised by its lock. Waits for the disk; thread: any.
void removeLeftovers(const std::filesystem::path& folder);

/// Writes all of `bytes` to an open `descriptor`.
/// @param path  What to call it in an error. @throws OutputFileError
void write(int descriptor, std::span<const std::uint8_t> bytes, const std::filesystem::path& path);

} // namespace OutputFile
} // namespace quillbox
