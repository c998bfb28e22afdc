// Runs the export on raw frames and tells how many palette sizes it tried:
//
//     count-attempts [--first-only] slack|github|docs FRAMES.rgba WIDTHxHEIGHT FPS
//
// With --first-only the process ends at the moment the second attempt would begin, so that its time is that of reading
// the frames, preparing them and one complete attempt. Prints {"attempts": N}.

#include "App/FrameSources/BackgroundIntake.h"
#include "App/FrameSources/ByteSource.h"
#include "App/FrameSources/RawReader.h"
#include "Clip.h"
#include "Encoding/GIFOptimizer.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <span>
#include <stdexcept>

namespace {

void print(std::int64_t attempts)
{
    std::printf("{\"attempts\": %lld}\n", static_cast<long long>(attempts));
}

void countAttempts(std::span<char*> arguments, bool firstOnly)
{
    using namespace quillbox;
    const auto preset = ExportPreset::fromRawValue(arguments[0]);
    if (!preset)
        throw std::invalid_argument("no such preset");
    const auto [width, height] = bench::pictureSize(arguments[2]);
    FileByteSource source(arguments[1]);
    const std::int64_t sourceFPS = std::strtol(arguments[3], nullptr, 10);
    BackgroundIntake intake(*preset, sourceFPS);
    RawReader::read(source, {.width = width, .height = height}, intake);

    std::int64_t attempts = 0;
    const auto progress = [&attempts, firstOnly](const GIFOptimizer::Progress& now) {
        if (firstOnly && now.attempt > 1) {
            print(1);
            (void)std::fflush(stdout); // a reader that went away gets no answer
            std::_Exit(0);             // at once: the frames need not be given back one by one
        }
        attempts = now.attempt;
    };
    (void)GIFOptimizer::optimize(
        intake.finished(), {.preset = *preset, .sourceFPS = sourceFPS}, {.parallelism = {}, .progress = progress});
    print(attempts);
}

} // namespace

int main(int argc, char** argv)
{
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
