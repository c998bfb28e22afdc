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

        /// The pixels, not null. Thread: any, several at once. What it throws if they can't be read any more comes out
        /// of PixelBand::pixels().
        [[nodiscard]] virtual std::shared_ptr<const Bytes> pixels() const = 0;
    };

    explicit PixelBand(Bytes pixels);
    /// @param pixels     Not null.
    /// @param elsewhere  The same pixels, parked; perhaps none.
    explicit PixelBand(std::shared_ptr<const Bytes> pixels, std::shared_ptr<const PixelBand> elsewhere = nullptr);
    /// Parked from the start. @pre `source` gives `byteCount` bytes, always the same.
    PixelBand(std::size_t byteCount, std::unique_ptr<const Source> source);
    PixelBand(const PixelBand&) = delete;
    PixelBand& operator=(const PixelBand&) = delete;

    [[nodiscard]] std::size_t byteCount() const { return m_byteCount; }

    /// A band of the same pixels that takes up no memory for them, if there is one.
    [[nodiscard]] const std::shared_ptr<const PixelBand>& elsewhere() const { return m_elsewhere; }

    /// The pixels, for as long as the result is held. Throws what the source throws if they were parked and can't be
    /// read any more.
    [[nodiscard]] PixelView pixels() const;

    /// Lets go of the pixels, which `source` gives back from now on. @pre it gives `byteCount()` bytes, the same.
    void park(std::unique_ptr<const Source> source) const;

private:
    std::size_t m_byteCount;
    std::shared_ptr<const PixelBand> m_elsewhere;
    mutable std::mutex m_mutex;
    mutable std::shared_ptr<const Bytes> m_resident;  ///< null while parked
    mutable std::shared_ptr<const Source> m_source;   ///< null unless parked
    mutable std::weak_ptr<const Bytes> m_broughtBack; ///< what somebody holds while parked
};

} // namespace quillbox
