#pragma once

#include "Capture/IncrementalFrameBuilder.h"
#include "Capture/Spill/FrameSpill.h"
#include "Encoding/PixelTypes.h"

#include <cstdint>
#include <filesystem>

namespace quillbox {

/// Bounds what the pictures kept of a long input take up: the first ones stay as they are; beyond their share of the
/// memory, pictures are compressed and put into a file without a name. One thread at a time; the pictures may be
/// looked at by any meanwhile, and outlive this.
class KeptPictures {
public:
    /// @param memoryBytes  For pictures as they are.
    /// @param folder       Where the file is made, if need be.
    KeptPictures(std::int64_t memoryBytes, std::filesystem::path folder);
    /// A quarter of the memory that is available now, 2 GB at most, or what the environment's QUILLBOX_RECORDING_MEMORY
    /// says; and the program's own folder.
    KeptPictures();
    /// For pictures that are asked for in order, once or twice: the memory of `FrameSpill::usualLimits`.
    [[nodiscard]] static KeptPictures frugal();

    /// Takes care of the next picture. @return the same picture, to be held instead of `picture`.
    /// @throws SpillError  there is no room any more.
    [[nodiscard]] RGBAFrame keep(const RGBAFrame& picture);

    [[nodiscard]] std::int64_t fileBytes() const { return m_store.fileBytes(); }

private:
    std::int64_t m_memoryBytes; ///< left
    IncrementalFrameBuilder m_bands;
    FrameSpill m_store;
};

} // namespace quillbox
