#include "App/CommandLine/InputFiles.h"

#include "App/CommandLine/Arguments/Options.h"
#include "App/FrameSources/FrameReadError.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillbox {
namespace {

namespace fs = std::filesystem;
using InputFiles::Pattern;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The extensions of what may be an image; a folder may hold other files as well.
bool hasImageExtension(const fs::path& path)
{
    static constexpr std::array<std::string_view, 23> known{"png", "apng", "jpg", "jpeg", "jpe", "gif", "bmp", "webp",
        "tif", "tiff", "ppm", "pgm", "pbm", "pnm", "xbm", "xpm", "ico", "tga", "avif", "heic", "jxl", "jp2", "svg"};
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
        [](unsigned char c) { return static_cast<char>(c < 0x80 ? std::tolower(c) : c); });
    return !extension.empty() && std::find(known.begin(), known.end(), extension.substr(1)) != known.end();
}

/// Files of `folder` whose names `isWanted` accepts, in natural order.
template <typename IsWanted>
std::vector<std::string> filesOf(const std::string& input, const fs::path& folder, IsWanted isWanted)
{
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error); !error && entry != fs::end(entry);
         entry.increment(error)) {
        std::error_code gone; // what has vanished in the meantime is not there
        if (!entry->is_directory(gone) && isWanted(entry->path().filename().string()))
            names.push_back((folder / entry->path().filename()).string());
    }
    if (error)
        throw FrameReadError(input, FrameReadError::CannotOpen{error.value()});
    if (names.empty())
        throw FrameReadError(input, FrameReadError::NoFiles{});
    std::sort(names.begin(), names.end(), InputFiles::comesBefore);
    return names;
}

std::vector<std::string> filesThatFit(const std::string& input, const Pattern& pattern)
{
    const fs::path before(pattern.before);
    const std::string begin = before.filename().string();
    return filesOf(input, before.parent_path(), [&](std::string_view name) {
        if (name.size() <= begin.size() + pattern.behind.size() || !name.starts_with(begin)
            || !name.ends_with(pattern.behind))
            return false;
        const auto number = name.substr(begin.size(), name.size() - begin.size() - pattern.behind.size());
        const bool hasExactWidth
            = number.size() == pattern.digits || (number.size() > pattern.digits && number.front() != '0');
        return hasExactWidth && std::all_of(number.begin(), number.end(), isDigit);
    });
}

} // namespace

std::optional<Pattern> InputFiles::patternIn(const std::string& input)
{
    std::error_code error;
    if (fs::exists(input, error))
        return std::nullopt;
    const auto percent = input.find('%');
    if (percent == std::string::npos || input.find('/', percent) != std::string::npos)
        return std::nullopt;
    const auto letter = input.find_first_not_of("0123456789", percent + 1);
    if (letter == std::string::npos || input[letter] != 'd' || letter > percent + 3)
        return std::nullopt;
    const std::string width = input.substr(percent + 1, letter - percent - 1);
    return Pattern{.before = input.substr(0, percent),
        .behind = input.substr(letter + 1),
        .digits = width.empty() ? 1 : std::max<std::size_t>(std::stoul(width), 1)};
}

std::vector<std::string> InputFiles::expanded(const std::vector<std::string>& inputs)
{
    std::vector<std::string> files;
    const auto add = [&files](std::vector<std::string> more) {
        files.insert(files.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    };
    for (const std::string& input : inputs) {
        std::error_code error; // what can't be looked at is reported when it is opened
        const bool isStream = input == standardStreamName;
        if (!isStream && fs::is_directory(input, error))
            add(filesOf(
                input, input, [](const std::string& name) { return name.front() != '.' && hasImageExtension(name); }));
        else if (const auto pattern = isStream ? std::nullopt : patternIn(input))
            add(filesThatFit(input, *pattern));
        else
            files.push_back(input);
    }
    return files;
}

bool InputFiles::comesBefore(std::string_view a, std::string_view b)
{
    const std::pair whole(a, b);
    while (!a.empty() && !b.empty()) {
        if (isDigit(a.front()) && isDigit(b.front())) {
            const auto numberOf = [](std::string_view& text) {
                text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
                const auto* const end = std::find_if_not(text.begin(), text.end(), isDigit);
                const auto number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
                text.remove_prefix(number.size());
                return number;
            };
            const auto first = numberOf(a);
            const auto second = numberOf(b);
            if (first.size() != second.size())
                return first.size() < second.size();
            if (first != second)
                return first < second;
        } else if (a.front() != b.front()) {
            return static_cast<unsigned char>(a.front()) < static_cast<unsigned char>(b.front());
        } else {
            a.remove_prefix(1);
            b.remove_prefix(1);
        }
    }
    return a.empty() != b.empty() ? a.empty() : whole.first < whole.second;
}

std::string InputFiles::outputNameFor(const std::string& input)
{
    std::error_code error; // a file that can't be looked at is reported when it is opened
    if (input == standardStreamName || fs::is_other(input, error)) // a pipe or device has no folder to put a GIF in
        return {};
    fs::path path(input);
    if (fs::is_directory(path, error)) {
        if (!path.has_filename())
            path = path.parent_path();
        const auto name = path.filename();
        return name.empty() || name == "." || name == ".." ? std::string() : path.string() + ".gif";
    }
    if (const auto pattern = patternIn(input)) {
        path = pattern->before;
        return path.has_filename() ? path.string() + ".gif" : std::string();
    }
    return path.replace_extension("gif").string();
}

} // namespace quillbox
