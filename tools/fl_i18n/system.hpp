#pragma once

#include <string>

namespace fl::tool {

/// Returns the name and version of the operating system; empty when it does not tell.
std::string system_version();

} // namespace fl::tool
