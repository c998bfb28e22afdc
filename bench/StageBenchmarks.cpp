// Times every stage of the pipeline against its plain version, on the clips that are generated here and on recordings:
//
//     stage-benchmarks [--clip=FRAMES.rgba@WIDTHxHEIGHT]… [Google Benchmark's own options]
//
// Each pair is first checked to give equal results. The table of ratios at the end comes from the same run.

#include "Clip.h"
#include "Stages.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox::bench {
namespace {

constexpr int framesOfClip = 8; // enough to differ, few enough for the plain versions
constexpr std::int64_t generatedWidth = 640;
constexpr std::int64_t generatedHeight = 400;

constexpr std::string_view clipOption = "--clip=";
constexpr std::string_view oursSuffix = "/ours";
constexpr std::string_view plainSuffix = "/plain";
constexpr const char* rateCounter = "Mpx/s";

/// Prints as usual and ends with one line a stage that divides the two times.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    RatioReporter()
        : benchmark::ConsoleReporter(OO_None)
    {
    }

    void ReportRuns(const std::vector<Run>& report) override
    {
        ConsoleReporter::ReportRuns(report);
        for (const Run& run : report) {
            if (run.error_occurred || run.run_type != Run::RT_Iteration)
                continue;
            std::string_view name = run.run_name.function_name;
            const bool plain = name.ends_with(plainSuffix);
            name.remove_suffix(plain ? plainSuffix.size() : oursSuffix.size());
            auto& pair = m_milliseconds[std::string(name)];
            (plain ? pair.plain : pair.ours) = run.GetAdjustedRealTime();
            const auto rate = run.counters.find(rateCounter);
            if (!plain && rate != run.counters.end())
                pair.megapixelsPerSecond = rate->second.value;
        }
    }

    void Finalize() override
    {
        std::printf("\n| stage | ours, ms | plain, ms | times faster | Mpx/s | passes over memory |\n"
                    "| --- | ---: | ---: | ---: | ---: | ---: |\n");
        for (const auto& [name, pair] : m_milliseconds) {
            if (pair.ours <= 0 || pair.plain <= 0)
                continue;
            std::printf("| %s | %.3f | %.3f | %.1f | ", name.c_str(), pair.ours, pair.plain, pair.plain / pair.ours);
            const auto onePass = m_milliseconds.find(name.substr(0, name.find('/') + 1) + std::string(onePassName));
            if (pair.megapixelsPerSecond > 0 && onePass != m_milliseconds.end())
                std::printf("%.0f | %.1f |\n", pair.megapixelsPerSecond,
                    onePass->second.megapixelsPerSecond / pair.megapixelsPerSecond);
            else
                std::printf("– | – |\n");
        }
    }

private:
    struct Pair {
        double ours = 0;
        double plain = 0;
        double megapixelsPerSecond = 0; // of ours
    };
    std::map<std::string, Pair> m_milliseconds;
};

void registerOne(const std::string& name, const std::function<void()>& body, double megapixels)
{
    benchmark::RegisterBenchmark(name.c_str(), [body, megapixels](benchmark::State& state) {
        for ([[maybe_unused]] auto iteration : state)
            body();
        if (megapixels > 0)
            state.counters[rateCounter]
                = benchmark::Counter(megapixels * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    })->Unit(benchmark::kMillisecond);
}

void registerStages(const Clip& clip)
{
    for (const Stage& stage : stagesOf(clip)) {
        const std::string name = clip.name + "/" + stage.name;
        if (!stage.agree())
            throw std::logic_error(name + ": the plain version gives another result");
        registerOne(name + std::string(oursSuffix), stage.ours, stage.megapixels);
        registerOne(name + std::string(plainSuffix), stage.plain, stage.megapixels);
    }
}

/// `text` is "PATH@WIDTHxHEIGHT".
Clip clipOfArgument(std::string_view text)
{
    const auto at = text.rfind('@');
    if (at == std::string_view::npos)
        throw std::invalid_argument("--clip wants FRAMES.rgba@WIDTHxHEIGHT");
    const PictureSize size = pictureSize(text.substr(at + 1));
    return rawClip(std::string(text.substr(0, at)), size.width, size.height, framesOfClip);
}

int run(std::vector<char*> arguments)
{
    std::vector<Clip> clips;
    for (const std::string_view name : generatedClipNames())
        clips.push_back(generatedClip(name, generatedWidth, generatedHeight, framesOfClip));
    std::erase_if(arguments, [&clips](const char* argument) {
        const std::string_view text(argument);
        if (!text.starts_with(clipOption))
            return false;
        clips.push_back(clipOfArgument(text.substr(clipOption.size())));
        return true;
    });
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    for (const Clip& clip : clips)
        registerStages(clip);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}

} // namespace
} // namespace quillbox::bench

int main(int argc, char** argv)
{
    try {
        return quillbox::bench::run({argv, argv + argc});
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "stage-benchmarks: %s\n", error.what()); // nothing is left to do if that fails
        return 1;
    }
}
