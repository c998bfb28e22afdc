#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace quillbox::support {

/// A fresh folder below the system's temporary folder; removed with all it holds when the object goes.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// The whole file; empty if it can't be read.
[[nodiscard]] std::string readFile(const std::filesystem::path& path);
/// @throws std::runtime_error  the file can't be written.
void writeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

} // namespace quillbox::support
