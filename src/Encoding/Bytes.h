#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillbox {

/// Told of the part of each new large buffer that huge pages can cover, if anyone wants to hear of it: how memory is
/// backed is the system's affair, of which this library knows nothing. Set before other threads start.
using LargeBufferAdvice = void (*)(void* begin, std::size_t byteCount) noexcept;
inline LargeBufferAdvice adviseLargeBuffer = nullptr; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

/// Allocates like std::allocator but leaves elements that are made without a value uninitialised, so that a buffer
/// which is about to be overwritten whole is not written twice; and begins large buffers at a page, because reading a
/// file into a buffer that began 16 bytes behind one took four times as long where it was measured (Zen 3). Buffers
/// that can fill a huge page begin where one may.
template <typename T> struct UninitializedAllocator : std::allocator<T> {
    template <typename U> struct rebind { // NOLINT(readability-identifier-naming): the name is the allocator protocol's
        using other = UninitializedAllocator<U>;
    };

    using std::allocator<T>::allocator;

    [[nodiscard]] T* allocate(std::size_t count)
    {
        if (count < smallestAlignedBytes / sizeof(T))
            return std::allocator<T>::allocate(count);
        if (count > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(T))
            throw std::bad_array_new_length();
        void* const place = ::operator new (count * sizeof(T), std::align_val_t{alignmentFor(count)});
        const std::size_t coverableBytes = count * sizeof(T) / hugePageBytes * hugePageBytes;
        if (coverableBytes > 0 && adviseLargeBuffer)
            adviseLargeBuffer(place, coverableBytes);
        return static_cast<T*>(place);
    }
    void deallocate(T* place, std::size_t count) noexcept
    {
        if (count < smallestAlignedBytes / sizeof(T))
            std::allocator<T>::deallocate(place, count);
        else
            ::operator delete (place, std::align_val_t{alignmentFor(count)});
    }

    template <typename U> void construct(U* place) noexcept
    {
        ::new (static_cast<void*>(place)) U; // default-initialised: no store for a byte
    }
    template <typename U, typename... Arguments> void construct(U* place, Arguments&&... arguments)
    {
        std::construct_at(place, std::forward<Arguments>(arguments)...);
    }

    /// Elements from which on an allocation begins at a page.
    static constexpr std::size_t smallestAlignedCount() { return smallestAlignedBytes / sizeof(T); }

private:
    static constexpr std::size_t pageBytes = 4096;
    static constexpr std::size_t hugePageBytes = 512 * pageBytes;

    static constexpr std::size_t alignmentFor(std::size_t count)
    {
        return count * sizeof(T) >= hugePageBytes ? hugePageBytes : pageBytes;
    }
    static constexpr std::size_t smallestAlignedBytes = 64 * pageBytes; // so that what alignment wastes is little
};

/// So many elements that begin without a value, for a table of which only what is needed is ever touched: a vector
/// would go through all of them, if only to do nothing, where the compiler doesn't see that.
template <typename T> class UninitializedArray {
public:
    static_assert(std::is_trivially_default_constructible_v<T> && std::is_trivially_destructible_v<T>);

    UninitializedArray() = default;
    explicit UninitializedArray(std::size_t size)
        : m_elements(UninitializedAllocator<T>().allocate(size), Deleter{size})
    {
    }

    [[nodiscard]] std::size_t size() const { return m_elements.get_deleter().size; }
    [[nodiscard]] T* begin() { return m_elements.get(); }
    [[nodiscard]] T* end() { return m_elements.get() + size(); }
    [[nodiscard]] T& operator[](std::size_t index) { return m_elements[index]; }
    [[nodiscard]] const T& operator[](std::size_t index) const { return m_elements[index]; }

private:
    struct Deleter {
        std::size_t size = 0;
        void operator()(T* elements) const noexcept { UninitializedAllocator<T>().deallocate(elements, size); }
    };
    std::unique_ptr<T[], Deleter> m_elements; // NOLINT(cppcoreguidelines-avoid-c-arrays): how it owns an array
};

/// A growable byte array. `Bytes(n)` and `resize(n)` leave new bytes undefined; `Bytes(n, 0)` gives zeros.
using Bytes = std::vector<std::uint8_t, UninitializedAllocator<std::uint8_t>>;

} // namespace quillbox
