#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <variant>

namespace quillbox {

/// Why the frames of an input could not be read. `what()` is one line for the user that names the input, the frame
/// (counted from 1) and what was expected.
class FrameReadError : public std::exception {
public:
    /// The input could not be opened; `errorNumber` is an errno value.
    struct CannotOpen {
        int errorNumber = 0;
    };
    /// The input could not be read on.
    struct CannotRead {
        int errorNumber = 0;
    };
    /// The input is well formed as far as it goes but holds no frame.
    struct NoFrames { };
    /// The input ends inside a frame.
    struct Truncated {
        std::int64_t frame = 1;
        std::int64_t byteCount = 0;         ///< bytes of the frame that are there
        std::int64_t expectedByteCount = 0; ///< bytes that a frame has
        std::string advice;                 ///< what to check or do
    };
    /// A file that was read once has become shorter since.
    struct BecameShorter { };
    /// A side is 0 or above 65535.
    struct SideOutOfRange {
        std::int64_t frame = 1;
        std::int64_t width = 0;  ///< pixels
        std::int64_t height = 0; ///< pixels
    };
    /// One frame is larger than the machine's memory.
    struct TooLargeForMemory {
        std::int64_t frame = 1;
        std::int64_t width = 0;  ///< pixels
        std::int64_t height = 0; ///< pixels
    };
    /// The start of the input, or of one of its frames, is not what its format demands.
    struct InvalidHeader {
        std::int64_t frame = 0; ///< 0 when it is the header of the whole input
        std::string found;
        std::string expected;
    };
    /// No decoder knows the input. `missing` is the kind of image whose decoder is not installed; empty if it is none.
    struct NotAnImage {
        std::string missing;
    };
    /// The input is a film, of which only other programs can take the pictures.
    struct IsVideo { };
    /// The input ends before its last picture does.
    struct CutOff {
        std::int64_t wholeFrames = 0; ///< pictures that are there
    };
    /// A picture has another size than the first one of the clip.
    struct AnotherSize {
        std::int64_t frame = 1;
        std::int64_t width = 0;  ///< pixels
        std::int64_t height = 0; ///< pixels
        std::int64_t firstWidth = 0;
        std::int64_t firstHeight = 0;
    };
    /// A part is asked for that a picture doesn't have.
    struct NotInFrame {
        std::int64_t width = 0;  ///< of the picture, pixels
        std::int64_t height = 0; ///< pixels
    };
    /// A folder, or a pattern of names, that no file with pictures is in or fits.
    struct NoFiles { };
    /// A decoder gave up; `reason` is its own text.
    struct CannotDecode {
        std::int64_t frame = 1;
        std::string reason;
    };
    /// An animation lasts longer than can be turned into a clip at its own pace.
    struct TooLong {
        std::int64_t milliseconds = 0;
        std::int64_t maximumMilliseconds = 0;
    };

    using Reason
        = std::variant<CannotOpen, CannotRead, NoFrames, Truncated, BecameShorter, SideOutOfRange, TooLargeForMemory,
            InvalidHeader, NotAnImage, IsVideo, CutOff, AnotherSize, NotInFrame, NoFiles, CannotDecode, TooLong>;

    /// @param input  The input as the user knows it: a path, or "standard input".
    FrameReadError(std::string input, Reason reason);

    [[nodiscard]] const std::string& input() const { return m_input; }
    [[nodiscard]] const Reason& reason() const { return m_reason; }
    [[nodiscard]] const char* what() const noexcept override { return m_message.c_str(); }

private:
    std::string m_input;
    Reason m_reason;
    std::string m_message;
};

} // namespace quillbox
