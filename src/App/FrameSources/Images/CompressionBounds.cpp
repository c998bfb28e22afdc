#include "App/FrameSources/Images/CompressionBounds.h"

#include <algorithm>

namespace quillbox {
namespace {

constexpr std::int64_t bitsPerByte = 8;

} // namespace

std::int64_t CompressionBounds::maxPixelsOfLZW(std::int64_t byteCount, std::int64_t minCodeSize)
{
    constexpr std::int64_t tableSize = 4096; // an entry is one pixel longer than another, so none is longer than that
    const std::int64_t codeCount = byteCount * bitsPerByte / (std::max<std::int64_t>(minCodeSize, 1) + 1);
    const std::int64_t growing = std::min(codeCount, tableSize); // the n-th code stands for n pixels at most
    return growing * (growing + 1) / 2 + (codeCount - growing) * tableSize;
}

std::int64_t CompressionBounds::maxPixelsOfHuffmanJPEG(std::int64_t byteCount)
{
    constexpr std::int64_t pixelsOfBlock = 64; // each has a code for its mean, of one bit or more
    return byteCount * bitsPerByte * pixelsOfBlock;
}

std::int64_t CompressionBounds::maxBytesOfDeflate(std::int64_t byteCount)
{
    constexpr std::int64_t longestMatch = 258; // a code of a bit for its length, one of a bit for its distance
    constexpr std::int64_t matchBits = 2;
    return byteCount * bitsPerByte / matchBits * longestMatch;
}

} // namespace quillbox
