#pragma once

#include <cstddef>
#include <fl/filesystem/path.hpp>
#include <functional>
#include <string>

/// The path forms with their surroundings as arguments, so that the rules of every system are tested on each.
namespace fl::filesystem::detail {

/// The most units of a name that a system takes. A longer one must not reach a system call: not every system
/// refuses it, some take its length modulo 65536.
inline constexpr std::size_t longest_path = 32767;

/// Tells the current directory of a drive, or of the process for 0, as `platform::current_directory` does.
using current_directory_query = std::function<std::wstring(wchar_t drive)>;

/// Completes a native path, which has no forward slashes.
std::wstring complete_native_path(std::wstring const & path, bool root_is_absolute,
                                  current_directory_query const & current_directory);

/// Returns the long form of a path; throws as `make_native_access_form` does.
std::wstring access_form(std::wstring const & path, bool root_is_absolute);

/// Returns the long form without redundant elements; throws as `make_native_access_form_with_cleanup` does.
std::wstring access_form_with_cleanup(std::wstring const & path, bool root_is_absolute);

/// Returns the form under which a file is opened: the path completed, in long form, without redundant
/// elements.
///
/// Throws `PathNotFound` when there is no current directory to complete the path with, and `InvalidArgument`
/// for a path without long form.
std::wstring make_file_form(upath const & path);

/// Returns the form under which a file is looked for: that under which it is opened or, for a path that has
/// none, its native form. Throws nothing of its own.
std::wstring make_query_form(upath const & path);

} // namespace fl::filesystem::detail
