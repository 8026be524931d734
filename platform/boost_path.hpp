#pragma once

#include <boost/filesystem/path.hpp>
#include <string>

namespace fl::platform {

/// Returns the text of a path in native form, one UTF-16 unit per `wchar_t`.
std::wstring native_path(boost::filesystem::path const & path);

} // namespace fl::platform
