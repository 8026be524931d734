#pragma once

#include <fl/i18n/numeric_format.hpp>

#include <cstddef>
#include <cstdint>

/// Numbers as ICU writes them by the rules of "en_US_POSIX". The functions that write do so to `out`, which
/// has room, and return the end of what they wrote.
namespace fl::i18n {

/// The most units of a double, in any format, and those of an integer.
inline constexpr std::size_t longest_double = 360;
inline constexpr std::size_t longest_integer = 20;

/// Returns what the registered provider says, whose exceptions pass through, else `simple_short`.
numeric_format default_double_format();

/// Writes a double in a numeric format.
char16_t * write_double(double value, numeric_format format, char16_t * out);

/// Writes a double without an exponent, with at most so many digits after the point.
char16_t * write_number(double value, int fraction_digits, char16_t * out);

/// Writes an integer.
char16_t * write_integer(std::int64_t value, char16_t * out);

} // namespace fl::i18n
