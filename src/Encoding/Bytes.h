#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace quillbox {

/// Allocates like std::allocator but leaves elements that are made without a value uninitialised, so that a buffer
/// which is about to be overwritten whole is not written twice.
template <typename T> struct UninitializedAllocator : std::allocator<T> {
    template <typename U> struct rebind { // NOLINT(readability-identifier-naming): the name is the allocator protocol's
        using other = UninitializedAllocator<U>;
    };

    using std::allocator<T>::allocator;

    template <typename U> void construct(U* place) noexcept
    {
        ::new (static_cast<void*>(place)) U; // default-initialised: no store for a byte
    }
    template <typename U, typename... Arguments> void construct(U* place, Arguments&&... arguments)
    {
        std::construct_at(place, std::forward<Arguments>(arguments)...);
    }
};

/// A growable byte array. `Bytes(n)` and `resize(n)` leave new bytes undefined; `Bytes(n, 0)` gives zeros.
using Bytes = std::vector<std::uint8_t, UninitializedAllocator<std::uint8_t>>;

} // namespace quillbox
