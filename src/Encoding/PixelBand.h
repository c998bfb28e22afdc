#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/PixelView.h"

#include <cstddef>
#include <memory>
#include <mutex>

namespace quillbox {

/// Some rows of a picture: immutable, shared by all frames that show them. They may be put elsewhere than in memory and
/// come back when they are looked at. Thread: any.
class PixelBand {
public:
    /// Where parked pixels are.
    class Source {
    public:
        Source() = default;
        Source(const Source&) = delete;
        Source& operator=(const Source&) = delete;
        virtual ~Source() = default;

        /// The bytes that were parked. Thread: any, several at once.
        /// @throws std::runtime_error  they can't be read any more.
        [[nodiscard]] virtual Bytes bytes() const = 0;
    };

    explicit PixelBand(Bytes pixels);
    PixelBand(const PixelBand&) = delete;
    PixelBand& operator=(const PixelBand&) = delete;

    [[nodiscard]] std::size_t byteCount() const { return m_byteCount; }

    /// The pixels, for as long as the result is held.
    /// @throws std::runtime_error  they were parked and can't be read any more.
    [[nodiscard]] PixelView pixels() const;

    /// Lets go of the pixels, which `source` gives back from now on. @pre it gives `byteCount()` bytes, the same.
    void park(std::unique_ptr<const Source> source) const;

private:
    std::size_t m_byteCount;
    mutable std::mutex m_mutex;
    mutable std::shared_ptr<const Bytes> m_resident;  ///< null while parked
    mutable std::shared_ptr<const Source> m_source;   ///< null unless parked
    mutable std::weak_ptr<const Bytes> m_broughtBack; ///< what somebody holds while parked
};

} // namespace quillbox
