#pragma once

#include "foundation/conversion_progress.hpp"

#include <string_view>

namespace fl {

/// Decodes UTF-8 up to its end or to the first piece that is ill-formed or incomplete.
///
/// The destination has room for `source.size()` units; those beyond the ones produced may be overwritten.
conversion_progress decode_well_formed_utf8(char16_t * destination, std::string_view source);

/// Decodes UTF-8 and returns the length of the result; each ill-formed piece, a maximal subpart of a
/// character or a stray byte, becomes U+FFFD.
///
/// The destination has room for `source.size()` units; those beyond the result may be overwritten.
std::size_t decode_utf8(char16_t * destination, std::string_view source);

} // namespace fl
