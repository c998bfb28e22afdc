#include "App/CommandLine/Terminal/TextColumns.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace quillbox {
namespace {

struct Letter {
    char32_t code = 0;
    std::size_t byteCount = 0;
};

/// The first letter of text that is not empty; a byte that begins none stands for itself.
Letter firstOf(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const auto byteCount = static_cast<std::size_t>(std::countl_one(first)); // RFC 3629, section 3
    if (byteCount < 2 || byteCount > 4 || byteCount > text.size())
        return {first, 1};
    char32_t code = first & (0x7FU >> byteCount);
    for (const char next : text.substr(1, byteCount - 1))
        code = code << 6U | (static_cast<unsigned char>(next) & 0x3FU);
    return {code, byteCount};
}

bool isWide(char32_t code)
{
    // First and last of the blocks with wide letters that our languages use.
    constexpr std::array<std::pair<char32_t, char32_t>, 7> blocks{{{0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF},
        {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFF01, 0xFF60}, {0x20000, 0x3FFFD}}};
    return std::ranges::any_of(
        blocks, [code](const auto& block) { return code >= block.first && code <= block.second; });
}

/// Whether a line may end between two letters that stand side by side.
bool mayBreak(char32_t before, char32_t after)
{
    constexpr std::u32string_view opening = U"(（「『“";
    constexpr std::u32string_view closing = U").,:;?!）」』”、。，：；？！…ー";
    return (isWide(before) || isWide(after)) && opening.find(before) == std::u32string_view::npos
        && closing.find(after) == std::u32string_view::npos;
}

/// How many bytes come before the first place where a line may end; 0 only for text that begins with a blank.
std::size_t unbrokenBytes(std::string_view text)
{
    char32_t before = 0;
    std::size_t at = 0;
    while (at < text.size() && text[at] != ' ') {
        const Letter letter = firstOf(text.substr(at));
        if (at > 0 && mayBreak(before, letter.code))
            break;
        before = letter.code;
        at += letter.byteCount;
    }
    return at;
}

} // namespace

std::size_t TextColumns::widthOf(std::string_view text)
{
    std::size_t width = 0;
    while (!text.empty()) {
        const Letter letter = firstOf(text);
        width += isWide(letter.code) ? 2U : 1U;
        text.remove_prefix(letter.byteCount);
    }
    return width;
}

std::vector<std::string> TextColumns::wrapped(std::string_view text, std::size_t width)
{
    std::vector<std::string> lines{std::string()};
    bool followsBlank = false;
    while (!text.empty()) {
        const auto piece = text.substr(0, unbrokenBytes(text));
        text.remove_prefix(piece.size());
        if (!lines.back().empty() && widthOf(lines.back()) + (followsBlank ? 1U : 0U) + widthOf(piece) > width)
            lines.emplace_back();
        lines.back() += (followsBlank && !lines.back().empty() ? " " : "") + std::string(piece);
        followsBlank = text.starts_with(' ');
        text.remove_prefix(followsBlank ? 1U : 0U);
    }
    return lines;
}

std::string TextColumns::shortened(std::string_view text, std::size_t width)
{
    constexpr std::string_view dots = "...";
    if (widthOf(text) <= width)
        return std::string(text);
    const std::size_t room = width > dots.size() ? width - dots.size() : width;
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t next = end + firstOf(text.substr(end)).byteCount;
        if (widthOf(text.substr(0, next)) > room)
            break;
        end = next;
    }
    return std::string(text.substr(0, end)) += width > dots.size() ? dots : std::string_view();
}

} // namespace quillbox
