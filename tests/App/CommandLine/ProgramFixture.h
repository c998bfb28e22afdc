#pragma once

#include "Encoding/Pixels/PixelTypes.h"
#include "support/Subprocess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace quillbox {

/// The real program in an empty folder of its own.
class ProgramFixture : public testing::Test {
protected:
    static constexpr const char* program = QUILLBOX_PROGRAM;

    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder.path(); }
    [[nodiscard]] std::string path(const std::string& name) const { return (folder() / name).string(); }

    /// Runs a shell script in the folder; `quillbox` is the program, and speaks English.
    [[nodiscard]] support::ProcessResult shell(const std::string& script) const
    {
        const auto withProgram
            = "program=$2; LC_ALL=C.UTF-8; export LC_ALL; cd \"$1\" && quillbox() { \"$program\" \"$@\"; }; " + script;
        return support::runProcess({"/bin/sh", "-c", withProgram, "sh", folder().string(), program});
    }

    [[nodiscard]] std::set<std::string> fileNames() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder()))
            names.insert(entry.path().filename().string());
        return names;
    }

    /// Writes the frames as `--raw` wants them.
    void writeRaw(const std::string& name, const std::vector<RGBAFrame>& frames) const
    {
        Bytes bytes;
        for (const auto& frame : frames) {
            const PixelView pixels = frame.pixels();
            bytes.insert(bytes.end(), pixels.begin(), pixels.end());
        }
        support::writeFile(path(name), bytes);
    }

    [[nodiscard]] Bytes bytesOf(const std::string& name) const
    {
        const auto text = support::readFile(path(name));
        return {text.begin(), text.end()};
    }

    static std::ptrdiff_t lineCount(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

private:
    support::TemporaryFolder m_folder;
};

} // namespace quillbox
