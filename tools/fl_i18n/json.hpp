#pragma once

#include <string>
#include <string_view>

namespace fl::tool {

/// Returns a UTF-8 text as a JSON string, quotes included. Malformed bytes become U+FFFD.
std::string to_json_string(std::string_view text);

} // namespace fl::tool
