#pragma once

#include <concepts>
#include <cstdint>
#include <source_location>
#include <string_view>

namespace quillbox {

/// Ends the process with the rule that was broken and the place that demanded it, on standard error.
/// Works in every build type: it does not depend on NDEBUG. Thread: any.
[[noreturn]] void brokenInvariant(std::string_view rule, std::source_location where);

/// States a rule that only a bug can break. When `holds` is false the process ends (SIGABRT) naming `rule`.
/// What the user or the platform can cause is an exception instead, never a precondition.
inline void precondition(bool holds, std::string_view rule,
    std::source_location where = std::source_location::current())
{
    if (!holds) [[unlikely]]
        brokenInvariant(rule, where);
}

/// `a * b`; an overflow ends the process.
template <std::signed_integral T>
[[nodiscard]] T checkedMul(T a, std::type_identity_t<T> b, std::source_location where = std::source_location::current())
{
    T product {};
    precondition(!__builtin_mul_overflow(a, b, &product), "a product fits its integer type", where);
    return product;
}

/// `a + b`; an overflow ends the process.
template <std::signed_integral T>
[[nodiscard]] T checkedAdd(T a, std::type_identity_t<T> b, std::source_location where = std::source_location::current())
{
    T sum {};
    precondition(!__builtin_add_overflow(a, b, &sum), "a sum fits its integer type", where);
    return sum;
}

} // namespace quillbox
