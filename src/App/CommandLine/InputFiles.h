#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

/// The files that inputs stand for. Stateless; thread: any.
namespace InputFiles {

/// A pattern like "frame%03d.png": what stands before and behind the number, and how many digits it has at least.
struct Pattern {
    std::string before; ///< with the folder
    std::string behind;
    std::size_t digits = 1;
};

/// None for a name without a number's place, or of a file that is there.
[[nodiscard]] std::optional<Pattern> patternIn(const std::string& input);

/// Each folder replaced by its images and each pattern by the files that fit it, in natural order.
/// @throws FrameReadError  a folder can't be read, or no file is there.
[[nodiscard]] std::vector<std::string> expanded(const std::vector<std::string>& inputs);

/// Whether `a` comes before `b` where numbers in names count by their value: frame2 before frame10.
[[nodiscard]] bool comesBefore(std::string_view a, std::string_view b);

/// The GIF's name for an input: beside it, with the extension gif. Empty where the input gives it none.
[[nodiscard]] std::string outputNameFor(const std::string& input);

} // namespace InputFiles
} // namespace quillbox
