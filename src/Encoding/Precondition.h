#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace quillbox {

/// A line of the source. (clang 14 lacks what libstdc++ needs for std::source_location.)
struct SourceLine {
    const char* file;
    unsigned line;

    /// As a default argument: the line of the call.
    [[nodiscard]] static constexpr SourceLine current(
        const char* file = __builtin_FILE(), unsigned line = __builtin_LINE())
    {
        return {file, line};
    }
};

/// Ends the process with the rule that was broken and the place that demanded it, on standard error.
/// Works in every build type: it does not depend on NDEBUG. Thread: any.
[[noreturn]] void brokenInvariant(std::string_view rule, SourceLine where);

/// States a rule that only a bug can break. When `holds` is false the process ends (SIGABRT) naming `rule`.
/// What the user or the platform can cause is an exception instead, never a precondition.
inline void precondition(bool holds, std::string_view rule, SourceLine where = SourceLine::current())
{
    if (!holds) [[unlikely]]
        brokenInvariant(rule, where);
}

/// `a * b`; an overflow ends the process.
template <std::signed_integral T>
[[nodiscard]] T checkedMul(T a, std::type_identity_t<T> b, SourceLine where = SourceLine::current())
{
    T product{};
    precondition(!__builtin_mul_overflow(a, b, &product), "a product fits its integer type", where);
    return product;
}

/// `a + b`; an overflow ends the process.
template <std::signed_integral T>
[[nodiscard]] T checkedAdd(T a, std::type_identity_t<T> b, SourceLine where = SourceLine::current())
{
    T sum{};
    precondition(!__builtin_add_overflow(a, b, &sum), "a sum fits its integer type", where);
    return sum;
}

} // namespace quillbox
