#include "Encoding/BytesKeeper.h"

#include "Encoding/Precondition.h"

#include <iterator>
#include <utility>

namespace quillbox {

KeptBytes::KeptBytes(Bytes bytes)
    : m_bytes(std::make_shared<const Bytes>(std::move(bytes)))
{
}

KeptBytes::KeptBytes(std::shared_ptr<const Bytes> bytes)
    : m_bytes(std::move(bytes))
{
}

KeptBytes::KeptBytes(std::unique_ptr<const BackingStore> stored)
    : m_stored(std::move(stored))
{
    precondition(m_stored != nullptr, "what is stored comes back from somewhere");
}

std::shared_ptr<const Bytes> KeptBytes::read() const
{
    precondition(isThere(), "what was kept is read");
    return m_bytes ? m_bytes : m_stored->read();
}

BytesKeeper::BytesKeeper(std::int64_t memoryBytes, const ByteStore& store)
    : m_memoryLeft(memoryBytes)
    , m_store(store)
{
}

KeptBytes BytesKeeper::keep(std::shared_ptr<const Bytes> bytes, Otherwise otherwise)
{
    const auto size = std::ssize(*bytes);
    if (m_memoryLeft.fetch_sub(size) >= size)
        return KeptBytes(std::move(bytes));
    m_memoryLeft += size; // a smaller one may have room
    if (m_store) {
        if (auto stored = m_store(*bytes))
            return KeptBytes(std::move(stored));
    }
    return otherwise == Otherwise::InMemory ? KeptBytes(std::move(bytes)) : KeptBytes();
}

} // namespace quillbox
