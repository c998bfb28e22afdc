#include "Encoding/GIFEncoder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iomanip>
#include <regex>
#include <sstream>
#include <string>

namespace quillbox {
namespace {

/// The clip that docs/gif-format.md takes apart: a 3 × 2 picture for half a second, then another for a second.
Bytes documentedFile()
{
    const RGBColor black(0, 0, 0);
    const RGBColor red(255, 0, 0);
    const RGBColor white(255, 255, 255);
    const IndexedFrame first{.width = 3,
        .height = 2,
        .palette = {black, red, white},
        .indices = {1, 1, 1, 1, 2, 2},
        .delayCentiseconds = 50};
    const IndexedFrame second{
        .width = 3, .height = 2, .palette = {black, red}, .indices = {0, 1, 0, 1, 0, 1}, .delayCentiseconds = 100};
    return GIFEncoder::encode(std::array{first, second});
}

/// The bytes in the document's tables: `offset` | `bytes` | meaning.
std::string documentedBytes()
{
    std::ifstream document(QUILLBOX_DOCS "/gif-format.md");
    const std::regex row("^\\| ([0-9]+) \\| `([0-9A-F ]+)` \\|.*");
    std::string bytes;
    for (std::string line; std::getline(document, line);) {
        std::smatch match;
        if (!std::regex_match(line, match, row))
            continue;
        // Three characters a byte, one less after the last.
        EXPECT_EQ(std::to_string((bytes.size() + 1) / 3), match[1].str()) << "the offset of: " << line;
        bytes += (bytes.empty() ? "" : " ") + match[2].str();
    }
    return bytes;
}

std::string hexadecimal(const Bytes& bytes)
{
    std::ostringstream text;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        text << (i == 0 ? "" : " ") << std::hex << std::uppercase << std::setw(2) << std::setfill('0') << int{bytes[i]};
    return text.str();
}

TEST(FormatDocument, ShowsTheBytesThatTheEncoderWrites)
{
    EXPECT_EQ(documentedBytes(), hexadecimal(documentedFile()));
}

} // namespace
} // namespace quillbox
