#pragma once

#include <memory>

namespace quillbox {

template <auto destroy> struct CDestroyer {
    template <typename T> void operator()(T* object) const { destroy(object); }
};

/// Owns an object of a C library, which `destroy` destroys.
template <typename T, auto destroy> using CHandle = std::unique_ptr<T, CDestroyer<destroy>>;

} // namespace quillbox
