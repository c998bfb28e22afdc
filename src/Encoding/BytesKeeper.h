#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Pixels/BackingStore.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace quillbox {

/// Takes bytes out of memory. @return null where there is no room.
using ByteStore = std::function<std::unique_ptr<const BackingStore>(std::span<const std::uint8_t>)>;

/// Bytes that are wanted again later, in memory or in a store. Thread: any.
class KeptBytes {
public:
    /// Not there.
    KeptBytes() = default;
    explicit KeptBytes(Bytes bytes);
    explicit KeptBytes(std::shared_ptr<const Bytes> bytes);
    /// @pre not null
    explicit KeptBytes(std::unique_ptr<const BackingStore> stored);

    [[nodiscard]] bool isThere() const { return m_bytes || m_stored; }
    /// @pre isThere()
    [[nodiscard]] bool isInMemory() const { return m_bytes != nullptr; }
    /// @pre isThere(). Throws what the store's reading throws.
    [[nodiscard]] std::shared_ptr<const Bytes> read() const;

private:
    std::shared_ptr<const Bytes> m_bytes;
    std::unique_ptr<const BackingStore> m_stored;
};

/// Keeps the first bytes that come in memory and the others in a store. Thread: any.
class BytesKeeper {
public:
    /// @param memoryBytes  That may be kept in memory. @param store  May be empty; else it outlives this object.
    BytesKeeper(std::int64_t memoryBytes, const ByteStore& store);

    enum class Otherwise {
        InMemory, ///< where the store has no room, either
        NotAtAll,
    };
    /// @param bytes  Not null.
    [[nodiscard]] KeptBytes keep(std::shared_ptr<const Bytes> bytes, Otherwise otherwise);

private:
    std::atomic<std::int64_t> m_memoryLeft;
    const ByteStore& m_store;
};

} // namespace quillbox
