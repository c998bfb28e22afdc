// Runs the export on raw frames and tells how many palette sizes it tried:
//
//     count-attempts [--first-only] slack|github|docs FRAMES.rgba WIDTHxHEIGHT FPS
//
// With --first-only the process ends after one complete attempt, so that its time is that of reading the frames,
// preparing them and making that attempt. Prints {"attempts": N}.

#include "App/FrameSources/BackgroundReducer.h"
#include "App/FrameSources/ByteSource.h"
#include "App/FrameSources/RawReader.h"
#include "Clip.h"
#include "Encoding/GIFOptimizer.h"
#include "Platform/ProcessMemory.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <set>
#include <span>
#include <stdexcept>
#include <stop_token>

namespace {

void countAttempts(std::span<char*> arguments, bool firstOnly)
{
    using namespace quillbox;
    const auto preset = ExportPreset::fromRawValue(arguments[0]);
    if (!preset)
        throw std::invalid_argument("no such preset");
    const auto [width, height] = bench::pictureSize(arguments[2]);
    FileByteSource source(arguments[1]);
    const std::int64_t sourceFPS = std::strtol(arguments[3], nullptr, 10);
    BackgroundReducer reducer(*preset);
    reducer.setRate({.frames = sourceFPS, .seconds = 1});
    RawReader::read(source, {.width = width, .height = height}, reducer);

    std::set<std::int64_t> colors;
    std::stop_source finishNow;
    if (firstOnly)
        finishNow.request_stop();
    const auto progress = [&colors](const GIFOptimizer::Progress& now) {
        colors.insert(now.colors);
    };
    (void)GIFOptimizer::optimize(reducer.finished(), {.preset = *preset, .sourceFPS = sourceFPS},
        {.parallelism = {}, .progress = progress, .finishNow = finishNow.get_token()});
    std::printf("{\"attempts\": %zu}\n", colors.size());
    (void)std::fflush(stdout); // a reader that went away gets no answer
    std::_Exit(0);             // at once: the frames need not be given back one by one
}

} // namespace

int main(int argc, char** argv)
{
    quillbox::preferHugePages();
    std::span arguments(argv, static_cast<std::size_t>(argc));
    arguments = arguments.subspan(1);
    const bool firstOnly = !arguments.empty() && std::strcmp(arguments.front(), "--first-only") == 0;
    if (firstOnly)
        arguments = arguments.subspan(1);
    if (arguments.size() != 4) {
        (void)std::fputs("usage: count-attempts [--first-only] PRESET FRAMES.rgba WIDTHxHEIGHT FPS\n", stderr);
        return 2;
    }
    try {
        countAttempts(arguments, firstOnly);
        return 0;
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "count-attempts: %s\n", error.what()); // nothing is left to do if that fails
        return 1;
    }
}
