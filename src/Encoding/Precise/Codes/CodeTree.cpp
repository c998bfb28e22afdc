#include "Encoding/Precise/Codes/CodeTree.h"

namespace quillbox {

CodeTree::CodeTree()
    : m_runCodes(std::size_t{256} << codeBits)
{
}

void CodeTree::reset(int minCodeSize)
{
    m_entries.fill(0);
    m_longestRun.fill(1);
    m_next = (1 << minCodeSize) + 2;
}

} // namespace quillbox
