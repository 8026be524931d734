#pragma once

#include "platform/platform.hpp"

#include <fl/filesystem/path.hpp>

namespace fl::filesystem {

/// Opens a file for reading bytes, without denying others read or write access; null when that fails.
///
/// A path that names an existing file to `exists` names it here too.
platform::file_handle open_file(upath const & path);

} // namespace fl::filesystem
