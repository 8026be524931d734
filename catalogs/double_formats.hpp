#pragma once

#include <fl/i18n/numeric_format.hpp>

#include <cstddef>
#include <cstdint>

/// Numbers as ICU writes them by the rules of "en_US_POSIX". The functions that write do so to `out`, where
/// there is room for as many units as `room_for` says, and return the end of what they wrote.
namespace fl::i18n {

/// The most units of any double.
inline constexpr std::size_t longest_double = 360;

/// Returns a number of units that is enough for an integer.
std::size_t room_for(std::int64_t value);
/// Returns a number of units that is enough for a double in each format.
std::size_t room_for(double value);

/// Returns what the registered provider says, whose exceptions pass through, else `simple_short`.
numeric_format default_double_format();

/// Writes a double in a numeric format.
char16_t * write_double(double value, numeric_format format, char16_t * out);

/// Writes a double without an exponent, with at most so many digits, 15 or fewer, after the point.
char16_t * write_number(double value, int fraction_digits, char16_t * out);

/// Writes an integer.
char16_t * write_integer(std::int64_t value, char16_t * out);

} // namespace fl::i18n
