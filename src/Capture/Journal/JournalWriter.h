#pragma once

#include "Capture/Journal/JournalFormat.h"
#include "Capture/Spill/SpillFile.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace quillbox {

/// Writes a recording's pictures into a journal. What has been written can be evicted from memory: each band gets the
/// file as its backing store. One thread at a time.
class JournalWriter {
public:
    /// Writes the header. @param file  Empty. @throws SpillError  it can't be written.
    JournalWriter(std::shared_ptr<SpillFile> file, JournalFormat::WallClock::time_point began);

    /// Adds a picture: of its bands those that the one before doesn't share, and of these the ones that the file does
    /// not hold already. One without pixels is ignored. After an error the file is as it was before the call.
    /// @param firstFrame  The frame that it begins at; not below the one before. The first picture begins at 0.
    /// @throws SpillError  there is no room for it, or a band's pixels can't be read.
    void addPicture(const RGBAFrame& picture, std::int64_t firstFrame);
    /// The last picture is still there. @param frameCount  Frames by now. @throws SpillError
    void addStill(std::int64_t frameCount);
    /// From this frame on the picture is repeated though the screen may show something else; and until this one.
    /// @throws SpillError
    void addHeld(std::int64_t firstFrame);
    void addResumed(std::int64_t firstFrame);
    /// There is no more. @throws SpillError
    void addEnd(std::int64_t frameCount);

    [[nodiscard]] std::int64_t size() const { return m_file->size(); }
    void sync() const { m_file->sync(); }

private:
    /// A band of the file.
    struct Place {
        std::uint32_t band = 0; ///< which of the file's
        std::uint32_t checksum = 0;
        std::int64_t offset = 0; ///< 0: none
        std::size_t size = 0;
        std::size_t byteCount = 0; ///< of the pixels
    };
    /// A band that is being added.
    struct Added {
        RGBAFrame::Band band;
        Place place;
        bool isNew = false;
    };

    [[nodiscard]] Added added(RGBAFrame::Band band);
    [[nodiscard]] bool holds(const Place& place, std::size_t offsetInBuffer) const;
    void beginRecord();
    void finishRecord(JournalFormat::Kind kind, std::int64_t value);
    void addNumber(JournalFormat::Kind kind, std::int64_t value);

    static constexpr std::size_t rememberedBands = 4096;

    std::shared_ptr<SpillFile> m_file;
    std::optional<RGBAFrame> m_previous;
    std::vector<Place> m_remembered; ///< by checksum: bands that may come again
    std::uint32_t m_records = 0;
    std::uint32_t m_bands = 0;
    // Of the call under way.
    Bytes m_buffer; ///< what it appends
    std::size_t m_recordBegin = 0;
    std::uint32_t m_newRecords = 0;
    std::uint32_t m_newBands = 0;
};

} // namespace quillbox
