#pragma once

#include <string>
#include <string_view>

/// What the export of a catalog as PO and its import share.
namespace fl::tool {

/// The flag of messages whose holes gettext's tools compare.
constexpr std::string_view placeholder_flag = "python-brace-format";

/// @{ Attributes of an embedded tag that say something of the message, not of the entry: its texts are
/// escaped, its text is empty and not missing.
constexpr std::string_view escaped_mark = "escaped";
constexpr std::string_view empty_mark = "empty";
/// @}

/// Returns the text of the header of a file that no translator has changed.
std::string default_header(std::string const & language);

} // namespace fl::tool
