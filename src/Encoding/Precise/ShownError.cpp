#include "Encoding/Precise/ShownError.h"

#include "Encoding/Precise/Colors/NearestColors.h"

#include <algorithm>
#include <cmath>

namespace quillbox::ShownError {

double mean(double sum, const DistinctFrames::Recording& recording)
{
    const double samples = 3.0 * static_cast<double>(recording.size.width) * static_cast<double>(recording.size.height)
        * static_cast<double>(recording.frameCount);
    return sum / samples;
}

double decibels(double sum, const DistinctFrames::Recording& recording)
{
    const double meanSquare = mean(sum, recording);
    return meanSquare <= 0 ? perfectDecibels : std::min(perfectDecibels, 10 * std::log10(255.0 * 255.0 / meanSquare));
}

double ofTable(const DistinctFrames::Recording& recording, const std::vector<RGBColor>& table)
{
    NearestColors nearest(table);
    double sum = 0;
    for (const auto& [color, weight] : recording.colors)
        sum += static_cast<double>(color.distanceSquared(table[nearest.index(color)])) * static_cast<double>(weight);
    return sum;
}

} // namespace quillbox::ShownError
