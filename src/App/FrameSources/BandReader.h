#pragma once

#include "App/FrameSources/ByteSource.h"
#include "Encoding/ForkJoinThread.h"
#include "Encoding/Parallel.h"
#include "Encoding/Pixels/FramePool.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace quillbox {

/// Reads raw RGBA pictures of one size, one after another. A picture shares with the one before it the bands in which
/// nothing changed, or all of its storage where it is the same: each band is compared while it is still in the
/// processor's cache, and takes up memory only if it differs. Bands of a file have it as their backing store. Large
/// pictures are read by two threads where the source can be read anywhere. Used by one thread at a time.
class BandReader {
public:
    /// @param source  Outlives the reader, which may read ahead; used by nobody else in the meantime.
    /// @param size    Pixels; both sides are positive, and four bytes for each fit 64 bits.
    BandReader(ByteSource& source, PixelSize size, Parallelism parallelism = {});

    struct Outcome {
        std::optional<RGBAFrame> frame; ///< none where the input ends before its last byte
        std::int64_t byteCount = 0;     ///< of the picture, read
    };

    /// The next picture; at the end of the input none, of 0 bytes. @throws FrameReadError  as `ByteSource::read`.
    [[nodiscard]] Outcome read();

private:
    /// A band, and its pixels, in memory as long as the next picture is compared with them.
    struct PinnedBand {
        RGBAFrame::Band band;
        std::shared_ptr<const Bytes> pixels;
    };
    /// The bands of one picture; null from where it is cut off.
    using Bands = std::vector<PinnedBand>;

    /// The bands from `first` to before `last` of some pictures.
    struct Part {
        std::int64_t first;
        std::int64_t last;
        std::optional<std::int64_t> end{}; ///< of the input, if it was met: bytes from the first picture's beginning
    };

    /// Reads a part. @param readBytes  (distance from the first picture's beginning, buffer) → bytes read.
    template <typename ReadBytes> void readPart(std::vector<Bands>& pictures, Part& part, ReadBytes readBytes);
    [[nodiscard]] PinnedBand made(std::int64_t offset, Bytes pixels) const;
    [[nodiscard]] std::int64_t picturesAtOnce() const;
    void readPictures();

    ByteSource& m_source;
    PixelSize m_size;
    std::int64_t m_pictureBytes;
    std::int64_t m_bandCount;
    std::int64_t m_bandBytes; ///< of each but perhaps the last
    FramePool m_pool;
    std::shared_ptr<const FileExtract> m_file; ///< all pictures, to be read again, if they can be
    std::int64_t m_offset = 0;                 ///< of the next picture to be read among all of them, bytes
    std::optional<RGBAFrame> m_previous;       ///< the latest that was read
    Bands m_pinned;                            ///< of it
    std::deque<Outcome> m_waiting;             ///< read and not yet handed out
    std::unique_ptr<ForkJoinThread> m_side;    ///< none if two threads can't read the source, or it is not worth it
};

} // namespace quillbox
