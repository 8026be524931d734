#pragma once

#include <optional>
#include <string_view>

namespace fl::i18n::detail {

/// Tells whether a text is at least two tokens with colons between them.
///
/// A token begins with an ASCII letter or "_" and goes on with letters, digits and "_".
bool is_identifier(std::string_view text);

/// A message identifier in its two parts.
struct message_id_parts {
    std::string_view catalog;
    std::string_view key;
};

/// Returns the parts of an identifier of at least three tokens; nothing for any other text.
std::optional<message_id_parts> split_message_id(std::string_view text);

} // namespace fl::i18n::detail
