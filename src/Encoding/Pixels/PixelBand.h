#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Pixels/BackingStore.h"
#include "Encoding/Pixels/PixelView.h"

#include <cstddef>
#include <memory>
#include <mutex>

namespace quillbox {

/// Some rows of a picture: immutable, shared by all frames that show them. Its pixels may be evicted from memory; its
/// backing store gives them back when they are looked at. Thread: any.
class PixelBand {
public:
    explicit PixelBand(Bytes pixels);
    /// @param pixels   Not null.
    /// @param backing  Where they can be read again, as those of a file; null if nowhere.
    explicit PixelBand(std::shared_ptr<const Bytes> pixels, std::unique_ptr<const BackingStore> backing = nullptr);
    /// Evicted from the start. @param byteCount  Of the pixels. @pre `backing` is not null; it gives so many bytes.
    PixelBand(std::size_t byteCount, std::unique_ptr<const BackingStore> backing);
    PixelBand(const PixelBand&) = delete;
    PixelBand& operator=(const PixelBand&) = delete;

    [[nodiscard]] std::size_t byteCount() const { return m_byteCount; }

    /// Whether it has a backing store, so that evicting its pixels costs nothing.
    [[nodiscard]] bool isBacked() const;

    /// What it keeps in memory: its pixels, unless evicted, and what its backing store takes up.
    [[nodiscard]] std::size_t memoryBytes() const;

    /// The pixels, in memory for as long as the result is held, evicted or not. Throws what the backing store throws if
    /// they have to be read and can't be any more.
    [[nodiscard]] PixelView pixels() const;

    /// Gives it a backing store; its pixels stay. @pre as evict().
    void back(std::unique_ptr<const BackingStore> backing) const;

    /// Evicts the pixels: they leave memory as soon as nobody else holds them. @pre isBacked().
    void evict() const;
    /// The same with a backing store from now on. @pre not null; it gives `byteCount()` bytes, the same.
    void evict(std::unique_ptr<const BackingStore> backing) const;

private:
    std::size_t m_byteCount;
    mutable std::mutex m_mutex;                            ///< guards what follows
    mutable std::shared_ptr<const Bytes> m_resident;       ///< null once evicted
    mutable std::weak_ptr<const Bytes> m_held;             ///< once evicted, what somebody holds nevertheless
    mutable std::shared_ptr<const BackingStore> m_backing; ///< null only while not evicted
};

} // namespace quillbox
