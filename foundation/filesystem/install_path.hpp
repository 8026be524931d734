#pragma once

#include <string>

namespace fl::filesystem::detail {

/// Returns the base directory of the installation that a module belongs to, by the module's full native path;
/// empty for the empty path.
std::wstring install_base(std::wstring const & module_path);

} // namespace fl::filesystem::detail
