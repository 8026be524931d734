#pragma once

#include <string_view>

namespace fl::i18n::detail {

/// Tells whether a text is at least two tokens with colons between them.
///
/// A token begins with an ASCII letter or "_" and goes on with letters, digits and "_".
bool is_identifier(std::string_view text);

} // namespace fl::i18n::detail
