#pragma once

#include <string>
#include <vector>

namespace fl::tool {

/// Returns the parts of a text between separators; a text without one is one part.
std::vector<std::string> split(std::string const & text, char separator);

} // namespace fl::tool
