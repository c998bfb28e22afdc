#include "App/FrameSources/Images/AnimatedPNG.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quillbox {
namespace {

using namespace AnimatedPNG;
using Span = std::span<const std::uint8_t>;

constexpr std::size_t signatureBytes = 8;
constexpr std::size_t overhead = 12; ///< of a chunk: length, name, checksum
constexpr std::size_t nameBytes = 4;
constexpr std::size_t ihdrBytes = 13; ///< of IHDR
constexpr std::size_t fctlBytes = 26; ///< of fcTL

std::uint32_t number(Span bytes, std::size_t offset, std::size_t count = 4)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = value << 8U | bytes[offset + i];
    return value;
}

void append(Bytes& output, std::uint32_t value)
{
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        output.push_back(static_cast<std::uint8_t>(value >> shift));
}

/// PNG, annex D: the CRC of ISO 3309, bit by bit for each of the 256 bytes.
constexpr std::array<std::uint32_t, 256> crcTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t n = 0; n < table.size(); ++n) {
        std::uint32_t remainder = n;
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder & 1U) != 0 ? 0xEDB88320U ^ (remainder >> 1U) : remainder >> 1U;
        table[n] = remainder;
    }
    return table;
}();

void appendChunk(Bytes& output, std::string_view name, Span data)
{
    append(output, static_cast<std::uint32_t>(data.size()));
    const std::size_t begin = output.size();
    output.insert(output.end(), name.begin(), name.end());
    output.insert(output.end(), data.begin(), data.end());
    std::uint32_t crc = 0xFFFFFFFFU;
    for (std::size_t i = begin; i < output.size(); ++i)
        crc = crcTable[(crc ^ output[i]) & 0xFFU] ^ (crc >> 8U);
    append(output, ~crc);
}

struct Chunk {
    std::string_view name;
    Span data;
};

/// The next whole chunk, taken off `file`; none at its end.
std::optional<Chunk> nextChunk(Span& file)
{
    if (file.size() < overhead || number(file, 0) > file.size() - overhead)
        return std::nullopt;
    const std::size_t length = number(file, 0);
    const auto name = file.subspan(4, nameBytes);
    // The standard library has one type for letters and another for bytes.
    const Chunk chunk{{reinterpret_cast<const char*>(name.data()), nameBytes}, // NOLINT(*-reinterpret-cast)
        file.subspan(4 + nameBytes, length)};
    file = file.subspan(overhead + length);
    return chunk;
}

/// What an fcTL chunk says; none where it makes no sense.
std::optional<Part> partOf(Span control, PixelSize canvas)
{
    if (control.size() != fctlBytes)
        return std::nullopt;
    Part part;
    part.size = {number(control, 4), number(control, 8)};
    part.left = number(control, 12);
    part.top = number(control, 16);
    const std::int64_t numerator = number(control, 20, 2);
    const std::int64_t denominator = number(control, 22, 2);
    part.milliseconds = numerator * 1000 / (denominator == 0 ? 100 : denominator);
    if (control[24] == 1)
        part.disposal = Disposal::clear;
    else if (control[24] == 2)
        part.disposal = Disposal::restore;
    part.isMixed = control[25] == 1;
    const bool fits = part.size.width >= 1 && part.size.height >= 1 && part.left + part.size.width <= canvas.width
        && part.top + part.size.height <= canvas.height;
    return fits ? std::optional(part) : std::nullopt;
}

/// Gathers what one part's file is made of.
class PartFile {
public:
    PartFile(Span header, const Bytes& common)
        : m_header(header)
        , m_common(common)
    {
    }
    void begin(const Part& part)
    {
        m_part = part;
        m_data.clear();
    }
    [[nodiscard]] bool isBegun() const { return m_part.has_value(); }
    void add(Span data) { m_data.insert(m_data.end(), data.begin(), data.end()); }
    /// Ends the part, if one was begun and has data.
    void finish(std::vector<Part>& parts)
    {
        if (!m_part || m_data.empty())
            return;
        Bytes png{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
        Bytes header;
        append(header, static_cast<std::uint32_t>(m_part->size.width));
        append(header, static_cast<std::uint32_t>(m_part->size.height));
        const auto rest = m_header.subspan(8); // depth, colour type and so on
        header.insert(header.end(), rest.begin(), rest.end());
        appendChunk(png, "IHDR", header);
        png.insert(png.end(), m_common.begin(), m_common.end());
        appendChunk(png, "IDAT", m_data);
        appendChunk(png, "IEND", {});
        m_part->png = std::move(png);
        parts.push_back(*std::move(m_part));
        m_part.reset();
    }

private:
    Span m_header;
    const Bytes& m_common;
    std::optional<Part> m_part;
    Bytes m_data;
};

bool isData(std::string_view name)
{
    return name == "IDAT" || name == "fdAT";
}

} // namespace

Animation AnimatedPNG::taken(Span file)
{
    Animation animation;
    file = file.subspan(std::min(signatureBytes, file.size()));
    const auto first = nextChunk(file);
    if (!first || first->name != "IHDR" || first->data.size() != ihdrBytes)
        return animation;
    animation.size = {number(first->data, 0), number(first->data, 4)};

    Bytes common; // palette, transparency, profile: chunks that come before the first picture and hold for all
    PartFile part(first->data, common);
    bool hasPicture = false;
    while (const auto chunk = nextChunk(file)) {
        const auto [name, data] = *chunk;
        if (!isData(name))
            part.finish(animation.parts);
        if (name == "acTL" && data.size() >= 4) {
            animation.announcedCount = number(data, 0);
        } else if (name == "fcTL") {
            const auto next = partOf(data, animation.size);
            if (!next)
                break;
            part.begin(*next);
        } else if (isData(name)) {
            hasPicture = true;
            constexpr std::size_t sequenceBytes = 4;
            const std::size_t skipped = name == "fdAT" ? sequenceBytes : 0;
            if (part.isBegun() && data.size() >= skipped) // an IDAT before the first fcTL is only for other viewers
                part.add(data.subspan(skipped));
        } else if (name == "IEND") {
            break;
        } else if (!hasPicture) {
            appendChunk(common, name, data);
        }
    }
    return animation;
}

Canvas::Canvas(PixelSize size)
    : m_size(size)
    , m_pixels(static_cast<std::size_t>(size.width * size.height * 4))
{
    std::fill(m_pixels.begin(), m_pixels.end(), 0); // not all of our buffers begin as zeros
}

void Canvas::dispose()
{
    if (m_disposal == Disposal::restore) {
        m_pixels = m_before;
    } else if (m_disposal == Disposal::clear) {
        for (std::int64_t y = 0; y < m_partSize.height; ++y) {
            const auto row = m_pixels.begin() + ((m_top + y) * m_size.width + m_left) * 4;
            std::fill(row, row + m_partSize.width * 4, 0);
        }
    }
}

const Bytes& Canvas::draw(const Part& part, Span pixels)
{
    precondition(std::ssize(pixels) == part.size.width * part.size.height * 4, "four bytes per pixel");
    precondition(part.left >= 0 && part.top >= 0 && part.left + part.size.width <= m_size.width
            && part.top + part.size.height <= m_size.height,
        "a part lies on the canvas");
    dispose();
    if (part.disposal == Disposal::restore)
        m_before = m_pixels;
    m_disposal = part.disposal;
    m_partSize = part.size;
    m_left = part.left;
    m_top = part.top;
    for (std::int64_t y = 0; y < part.size.height; ++y) {
        const std::uint8_t* source = pixels.data() + y * part.size.width * 4;
        std::uint8_t* target = m_pixels.data() + ((part.top + y) * m_size.width + part.left) * 4;
        for (std::int64_t x = 0; x < part.size.width; ++x, source += 4, target += 4) {
            const unsigned above = source[3];
            if (!part.isMixed || above == 255) {
                std::copy_n(source, 4, target);
            } else if (above > 0) { // Porter and Duff's "over" for colours that are not premultiplied
                const unsigned below = target[3] * (255 - above);
                const unsigned total = above * 255 + below;
                for (std::size_t i = 0; i < 3; ++i)
                    target[i]
                        = static_cast<std::uint8_t>((source[i] * above * 255 + target[i] * below + total / 2) / total);
                target[3] = static_cast<std::uint8_t>((total + 127) / 255);
            }
        }
    }
    return m_pixels;
}

} // namespace quillbox
