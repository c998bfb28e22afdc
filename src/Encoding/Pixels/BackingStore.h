#pragma once

#include "Encoding/Bytes.h"

#include <cstddef>
#include <memory>

namespace quillbox {

/// Where the pixels of one `PixelBand` come back from after they were evicted: a file, or memory in which they are
/// compressed.
class BackingStore {
public:
    BackingStore() = default;
    BackingStore(const BackingStore&) = delete;
    BackingStore& operator=(const BackingStore&) = delete;
    virtual ~BackingStore() = default;

    /// The pixels, not null, always the same. Thread: any, several at once. What it throws if they can't be read any
    /// more comes out of PixelBand::pixels().
    [[nodiscard]] virtual std::shared_ptr<const Bytes> read() const = 0;

    /// What it takes up in memory itself, where that is more than a few words. Thread: any.
    [[nodiscard]] virtual std::size_t memoryBytes() const { return 0; }
};

} // namespace quillbox
