// Runs a fuzzer's property once over every file given, and over every file of every folder given.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& path)
{
    if (!std::filesystem::is_directory(path))
        return {path};
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

int main(int argc, char** argv)
{
    int replayed = 0;
    for (int argument = 1; argument < argc; ++argument) {
        for (const auto& file : filesIn(argv[argument])) {
            std::ifstream stream(file, std::ios::binary);
            const std::vector<char> bytes(std::istreambuf_iterator<char>(stream), {});
            if (!stream.is_open()) {
                std::fprintf(stderr, "cannot read %s\n", file.c_str());
                return 1;
            }
            std::printf("%s\n", file.filename().c_str()); // the last line names the file if the property ends us
            std::fflush(stdout);
            const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
            LLVMFuzzerTestOneInput(data.data(), data.size());
            ++replayed;
        }
    }
    std::printf("%d inputs\n", replayed);
    return replayed > 0 ? 0 : 1;
}
