#pragma once

#include "Platform/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <optional>

namespace quillbox {

/// The files that journals lie in: one a recording, in the program's cache folder, for the user's eyes only. Whoever
/// has one open has it locked, so that no other instance takes it. Stateless; thread: any.
/// @see flock(2)
namespace JournalFile {

/// An open journal and its name.
struct Named {
    FileDescriptor file;
    std::filesystem::path path;
};

/// A new one, empty, open for reading and writing, locked before anyone can see it.
/// @param folder  Made if need be. @param began  What it is named after.
/// @throws SpillError  there can be none.
[[nodiscard]] Named create(const std::filesystem::path& folder, std::chrono::system_clock::time_point began);

enum class Lock {
    Shared,   ///< to look at it, beside others who do
    Exclusive ///< to have it
};
/// Opens one that nobody writes any more. @return none if it is in use, gone, or no file of this user.
[[nodiscard]] std::optional<Named> open(const std::filesystem::path& path, Lock kind);

/// Whether a file is called as create() would call it.
[[nodiscard]] bool isName(const std::filesystem::path& path);

} // namespace JournalFile
} // namespace quillbox
