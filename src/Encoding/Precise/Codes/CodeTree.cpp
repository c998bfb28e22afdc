#include "Encoding/Precise/Codes/CodeTree.h"

namespace quillbox {

void CodeTree::reset(int minCodeSize)
{
    const std::size_t slots = std::size_t{1} << (static_cast<unsigned>(minCodeSize) + codeBits);
    if (m_runCodes.size() < slots)
        m_runCodes = Codes(slots);
    m_entries.fill(0);
    m_longestRun.fill(1);
    std::fill_n(m_children.begin(), std::size_t{1} << static_cast<unsigned>(minCodeSize), 0U);
    m_next = (1 << minCodeSize) + 2;
}

} // namespace quillbox
