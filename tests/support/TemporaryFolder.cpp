#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace quillbox::support {

TemporaryFolder::TemporaryFolder()
{
    std::string pattern = std::filesystem::temp_directory_path() / "quillbox-test-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("cannot make a folder like " + pattern);
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored; // a file left in the temporary folder hurts nobody
    std::filesystem::remove_all(m_path, ignored);
}

std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes)
{
    std::ofstream file(path, std::ios::binary);
    for (const std::uint8_t byte : bytes)
        file.put(static_cast<char>(byte));
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace quillbox::support
