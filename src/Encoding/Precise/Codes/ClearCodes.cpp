#include "Encoding/Precise/Codes/ClearCodes.h"

#include <algorithm>
#include <limits>

namespace quillbox::ClearCodes {

std::vector<std::size_t> Division::everyNthMark(std::size_t every) const
{
    std::vector<std::size_t> chosen;
    auto clear = placement.positions.begin();
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const bool isClear = clear != placement.positions.end() && *clear == marks[i];
        if (isClear)
            ++clear;
        if (isClear || i % every == 0 || i + 1 == marks.size())
            chosen.push_back(marks[i]);
    }
    return chosen;
}

Division whenFull(PictureParser& parser, const FreePicture& picture)
{
    const CodeWidths widths(picture.minCodeSize);
    const auto clear = static_cast<PictureParser::Code>(1U << static_cast<unsigned>(picture.minCodeSize));
    const std::size_t count = picture.indices.size();
    Division division{.placement = {.bits = widths.after(0)}, .marks = {0}};
    std::int64_t& bits = division.placement.bits;
    parser.begin(0);
    while (parser.position() < count) {
        bits += widths.after(parser.codeCount());
        division.codes.push_back(parser.next(count));
        const bool clears = parser.tableIsFull() && parser.position() < count;
        if (parser.position() < count && (clears || parser.codeCount() % Division::codesAPart == 0))
            division.marks.push_back(parser.position());
        if (clears) {
            bits += widths.after(parser.codeCount());
            division.codes.push_back(clear);
            division.placement.positions.push_back(parser.position());
            parser.begin(parser.position());
        }
    }
    bits += widths.after(parser.codeCount());
    division.marks.push_back(count);
    return division;
}

Placement amongMarks(
    PictureParser& parser, const FreePicture& picture, const std::vector<std::size_t>& marks, Bounds bounds)
{
    struct Way {
        std::int64_t bits = std::numeric_limits<std::int64_t>::max() / 2;
        std::size_t from = 0;
    };
    const CodeWidths widths(picture.minCodeSize);
    const std::size_t count = picture.indices.size();
    const std::size_t last = marks.size() - 1;
    const std::int64_t stepsBefore = parser.steps();
    std::vector<Way> ways(marks.size());
    ways.front().bits = widths.after(0);
    for (std::size_t from = 0; from < last; ++from) {
        const std::int64_t margin = parser.steps() - stepsBefore < bounds.steps ? bounds.margin : 0;
        std::int64_t bits = ways[from].bits;
        std::size_t to = from + 1;
        parser.begin(marks[from]);
        for (bool isWorthwhile = true; isWorthwhile && parser.position() < count;) {
            const std::int64_t codesBefore = parser.codeCount();
            (void)parser.next(count);
            bits += widths.after(codesBefore);
            // A code that reaches beyond a mark can end there as well: all beginnings of its sequence have codes.
            for (; to <= last && marks[to] <= parser.position(); ++to) {
                const std::int64_t bitsThere = bits + widths.after(codesBefore + 1);
                if (bitsThere < ways[to].bits)
                    ways[to] = {.bits = bitsThere, .from = from};
                isWorthwhile = bitsThere <= ways[to].bits + margin;
            }
        }
    }
    Placement placement{.bits = ways[last].bits};
    for (std::size_t mark = ways[last].from; mark > 0; mark = ways[mark].from)
        placement.positions.push_back(marks[mark]);
    std::ranges::reverse(placement.positions);
    return placement;
}

} // namespace quillbox::ClearCodes
