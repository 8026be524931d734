#pragma once

#include <fl/i18n/message_catalog.hpp>

#include <optional>
#include <string_view>
#include <vector>

namespace fl::i18n {

/// Returns a message with its holes filled; does what `MessageCatalog::GetFormattedMessage` does.
ustring format_message(std::u16string_view message, std::vector<MessageCatalog::Argument> const & args,
                       std::optional<numeric_format> const & format);

/// Does the same for a message without arguments, which needs no format.
ustring format_message(std::u16string_view message);

} // namespace fl::i18n
