#pragma once

#include <fl/filesystem/path.hpp>
#include <functional>
#include <string>

/// The path forms with their surroundings as arguments, so that the rules of every system are tested on each.
namespace fl::filesystem::detail {

/// Tells the current directory of a drive, or of the process for 0, as `platform::current_directory` does.
using current_directory_query = std::function<std::wstring(wchar_t drive)>;

/// Completes a native path, which has no forward slashes.
std::wstring complete_native_path(std::wstring const & path, bool root_is_absolute,
                                  current_directory_query const & current_directory);

/// Returns the long form of a path; throws as `make_native_access_form` does.
std::wstring access_form(std::wstring const & path, bool root_is_absolute);

/// Returns the absolute form of a path under which a system call finds its file.
///
/// It is the native form, in which the system resolves "." and ".."; from 260 units on, where a system may
/// refuse it, the long form, in which the system resolves nothing.
std::wstring make_query_form(upath const & path);

} // namespace fl::filesystem::detail
