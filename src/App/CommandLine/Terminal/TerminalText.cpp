#include "App/CommandLine/Terminal/TerminalText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <iconv.h>
#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale() is POSIX's
#include <optional>
#include <utility>

namespace quillbox {
namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";

struct CodePoint {
    char32_t code = 0;
    std::size_t byteCount = 0;
};

/// The code point at the beginning of `text`, if it begins with one. @see RFC 3629, section 4.
std::optional<CodePoint> codePointAt(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80)
        return CodePoint{first, 1};
    const auto byteCount = static_cast<std::size_t>(std::countl_one(first));
    if (byteCount < 2 || byteCount > 4 || byteCount > text.size())
        return std::nullopt;
    char32_t code = first & (0x7FU >> byteCount);
    for (const char next : text.substr(1, byteCount - 1)) {
        const auto byte = static_cast<unsigned char>(next);
        if ((byte & 0xC0U) != 0x80)
            return std::nullopt;
        code = code << 6U | (byte & 0x3FU);
    }
    constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < least.at(byteCount) || code > 0x10FFFF || isSurrogate)
        return std::nullopt;
    return CodePoint{code, byteCount};
}

/// Whether a letter would act on the terminal or on the order of the others, instead of being shown.
bool actsOnText(char32_t code)
{
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x061C || code == 0x200E || code == 0x200F
        || (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

void appendByte(std::string& line, unsigned char byte)
{
    line += "\\x";
    line += hexDigits[byte >> 4U];
    line += hexDigits[byte & 0xFU];
}

void appendEscaped(std::string& line, char32_t code)
{
    if (code == '\n') {
        line += "\\n";
    } else if (code == '\t') {
        line += "\\t";
    } else if (code == '\r') {
        line += "\\r";
    } else if (code < 0x80) {
        appendByte(line, static_cast<unsigned char>(code));
    } else {
        line += "\\u{";
        for (int shift = 12; shift >= 0; shift -= 4)
            line += hexDigits[code >> static_cast<unsigned>(shift) & 0xFU];
        line += '}';
    }
}

/// How our own signs are written where an encoding lacks them.
std::string_view inASCII(std::string_view letter)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 13> known{
        {{"×", "x"}, {"…", "..."}, {"“", "\""}, {"”", "\""}, {"„", "\""}, {"‘", "'"}, {"’", "'"}, {"«", "\""},
            {"»", "\""}, {"–", "-"}, {"—", "-"}, {"\u00A0", " "}, {"\u202F", " "}}};
    const auto* const found
        = std::find_if(known.begin(), known.end(), [&](const auto& pair) { return pair.first == letter; });
    return found == known.end() ? letter : found->second;
}

/// One conversion from UTF-8; it may be unknown.
class Conversion {
public:
    explicit Conversion(const std::string& encoding)
        : m_conversion(::iconv_open(encoding.c_str(), "UTF-8"))
    {
    }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;
    ~Conversion()
    {
        if (isKnown())
            ::iconv_close(m_conversion);
    }
    [[nodiscard]] bool isKnown() const
    {
        return m_conversion != reinterpret_cast<iconv_t>(-1); // NOLINT: the value that POSIX names
    }
    /// None for a letter that the encoding lacks.
    [[nodiscard]] std::optional<std::string> of(std::string_view letter) const
    {
        std::string input(letter);
        std::array<char, 16> output{};
        char* from = input.data();
        char* to = output.data();
        std::size_t left = input.size();
        std::size_t room = output.size();
        if (::iconv(m_conversion, &from, &left, &to, &room) != 0)
            return std::nullopt; // also letters that were replaced by others
        return std::string(output.data(), to);
    }

private:
    iconv_t m_conversion;
};

} // namespace

std::string TerminalText::escaped(std::string_view text)
{
    std::string line;
    while (!text.empty()) {
        const auto letter = codePointAt(text);
        if (!letter)
            appendByte(line, static_cast<unsigned char>(text.front()));
        else if (actsOnText(letter->code))
            appendEscaped(line, letter->code);
        else
            line += text.substr(0, letter->byteCount);
        text.remove_prefix(letter ? letter->byteCount : 1);
    }
    return line;
}

std::string TerminalText::encoded(std::string_view text, const std::string& encoding)
{
    const Conversion conversion(encoding);
    if (encoding == "UTF-8" || !conversion.isKnown())
        return std::string(text);
    std::string result;
    while (!text.empty()) {
        const auto letter = codePointAt(text);
        const auto bytes = text.substr(0, letter ? letter->byteCount : 1);
        if (!letter || letter->code < 0x80)
            result += bytes;
        else
            result += conversion.of(bytes).value_or(std::string(inASCII(bytes)));
        text.remove_prefix(bytes.size());
    }
    return result;
}

std::string TerminalText::localeEncoding()
{
    const locale_t locale = ::newlocale(LC_CTYPE_MASK, "", nullptr);
    if (locale == nullptr)
        return "UTF-8";
    std::string encoding = ::nl_langinfo_l(CODESET, locale);
    ::freelocale(locale);
    return encoding;
}

} // namespace quillbox
