#include "Encoding/Precise/Thinning.h"

#include <functional>
#include <queue>
#include <tuple>
#include <utility>

namespace quillbox {
namespace {

/// A picture among those that are left.
struct Link {
    std::size_t before;
    std::size_t after; ///< the number of pictures for the end
    double change;     ///< squared difference from the one before
    std::int64_t version = 0;
    bool isLeftOut = false;
};

} // namespace

std::vector<std::size_t> Thinning::order(const DistinctFrames::Recording& recording, std::int64_t maxGap)
{
    const auto& pictures = recording.pictures;
    const std::size_t count = pictures.size();
    std::vector<Link> links;
    for (std::size_t i = 0; i < count; ++i)
        links.push_back({.before = i - 1, .after = i + 1, .change = static_cast<double>(pictures[i].squaredChange)});

    using Candidate = std::tuple<double, std::size_t, std::int64_t>; // visibility, picture, version
    std::priority_queue<Candidate, std::vector<Candidate>, std::greater<>> candidates;
    const auto consider = [&](std::size_t i) {
        if (i == 0 || i >= count)
            return;
        Link& link = links[i];
        ++link.version;
        if (link.after == count)
            return; // the recording's last picture is what its user meant to arrive at
        const std::int64_t end = pictures[link.after].tick;
        if (end - pictures[link.before].tick > maxGap)
            return;
        candidates.emplace(link.change * static_cast<double>(end - pictures[i].tick), i, link.version);
    };
    for (std::size_t i = 1; i < count; ++i)
        consider(i);

    std::vector<std::size_t> order;
    while (!candidates.empty()) {
        const auto [visibility, i, version] = candidates.top();
        candidates.pop();
        Link& link = links[i];
        if (link.isLeftOut || link.version != version)
            continue;
        link.isLeftOut = true;
        order.push_back(i);
        links[link.before].after = link.after;
        links[link.after].before = link.before;
        links[link.after].change += link.change; // what it changes now includes what this one did
        consider(link.before);
        consider(link.after);
    }
    return order;
}

} // namespace quillbox
