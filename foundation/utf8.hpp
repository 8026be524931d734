#pragma once

#include <string>
#include <string_view>

namespace fl {

/// Returns a text in UTF-8 for people to read, with U+FFFD for lone surrogates.
///
/// For names and messages of the floors below the conversions: what comes after 2^20 units is left out.
std::string to_readable_utf8(std::u16string_view text);

} // namespace fl
