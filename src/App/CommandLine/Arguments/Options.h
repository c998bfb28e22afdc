#pragma once

#include "App/FrameSources/FrameRate.h"
#include "App/FrameSources/FrameShaper.h"
#include "App/FrameSources/RawReader.h"
#include "App/FrameSources/SourceColors.h"
#include "Capture/CaptureRegion.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "Encoding/Presets.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbox {

/// Names standard input as INPUT, and standard output as OUT.
inline constexpr const char* standardStreamName = "-";

/// What the process reports to the one that started it.
namespace ExitCode {
inline constexpr int success = 0;
inline constexpr int failure = 1; ///< the work could not be done
inline constexpr int usage = 2;   ///< the command line makes no sense
} // namespace ExitCode

/// A command line that makes no sense; `what()` says what was wrong and what to write instead.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What every command that writes a clip is told about it.
struct OutputOptions {
    ExportPreset preset = ExportPreset::slack;
    std::optional<std::string> output; ///< a path, or `standardStreamName`; none for the command's default
    bool json = false;                 ///< report the result as JSON
    bool force = false;                ///< replace an existing file
    std::optional<PreciseOptimizer::Config> precise; ///< show every change; within the preset's limits or those given
    bool quiet = false;                              ///< print neither progress nor the result, unless as JSON
};

struct EncodeOptions {
    OutputOptions out;
    std::vector<std::string> inputs;       ///< paths or `standardStreamName`, at least one
    std::optional<FrameRate> rate;         ///< 1000 a second to 1 in 655.35 s; none for the input's own
    std::optional<bool> dithering;         ///< always, never, or (none) decided for each palette
    std::optional<PixelSize> raw;          ///< the input is raw RGBA frames of this size
    RawFormat rawFormat = RawFormat::rgba; ///< of raw frames
    std::optional<RGBColor> rawBackground; ///< what their alpha lets through; none: it is not looked at
    SourceColors colors;                   ///< how the inputs' are to be understood
    bool strict = false;                   ///< refuse frames of another size than the first
    FrameShape shape;                      ///< what is taken of each frame
    int threads = 0;                       ///< to read and encode with, at most 256; 0 for as many as are of use
    std::int64_t plays = 0;                ///< how often the GIF plays, at most 65536; 0 for ever
    bool keepGoing = false;                ///< leave out what can't be read, as long as something can
};

struct RecordOptions {
    OutputOptions out;
    std::optional<CaptureRegion> region;   ///< width and height at least 1; none to let the user drag it out
    std::optional<double> durationSeconds; ///< above 0, at most a day; none until told to stop
    bool copy = false;                     ///< put the clip on the clipboard too
};

/// What the running application is asked for.
struct ControlOptions {
    enum class Action { Begin, Stop, Toggle, Again, Show, Status, Quit };
    Action action = Action::Status;
    bool json = false;                       ///< answer as JSON
    bool precise = false;                    ///< keep every change in this clip
    std::optional<ExportPreset> preset = {}; ///< of another clip of the same recording; none for the one before
};

struct HistoryOptions {
    bool json = false; ///< print the list as JSON
};

/// What becomes of recordings that were cut off.
struct RecoverOptions {
    enum class Action { MakeClips, List, Discard };
    Action action = Action::MakeClips;
    OutputOptions out; ///< of a list only how it is printed
};

struct DoctorOptions {
    bool json = false; ///< print the report as JSON
};

/// Nothing asked for: the desktop application.
struct DesktopOptions { };

} // namespace quillbox
