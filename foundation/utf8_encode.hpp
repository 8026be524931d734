#pragma once

#include "foundation/conversion_progress.hpp"

#include <string_view>

namespace fl {

/// Encodes UTF-16 as UTF-8 up to its end or to the first lone surrogate.
///
/// The destination has room for 3 bytes for each unit; those beyond the ones produced may be overwritten.
conversion_progress encode_well_formed_utf8(char * destination, std::u16string_view source);

/// Encodes UTF-16 as UTF-8 and returns the length of the result; each lone surrogate becomes U+FFFD.
///
/// The destination has room for 3 bytes for each unit; those beyond the result may be overwritten.
std::size_t encode_utf8(char * destination, std::u16string_view source);

} // namespace fl
