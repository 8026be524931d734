#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fl::tool {

/// Returns the key of a message that comes without one: the readable beginning of its original text and a
/// short hash of context and text, both UTF-8. It is a token of message identifiers, and the same in every
/// language.
std::string make_key(std::optional<std::string> const & context, std::string_view text);

/// Tells whether a text is a token of message identifiers.
bool is_key(std::string_view text);

} // namespace fl::tool
