#pragma once

#include <cstdio>
#include <fl/i18n/ustring_type.hpp>
#include <functional>

namespace fl::filesystem::detail {

/// Returns a new name at each call; empty when none can be made.
using name_source = std::function<i18n::ustring()>;
/// Creates the file of a name and opens it; null with `errno` set when that fails.
using file_creator = std::function<std::FILE *(i18n::ustring const & name)>;

/// Creates a file under the first name that can be had, in at most 11 attempts.
///
/// Stores that name in `name`. Returns null and empties `name` when all attempts fail, with `errno` as the
/// last one has left it, or when there is no name. An exception leaves `name` as it was.
std::FILE * create_under_new_name(i18n::ustring & name, name_source const & make_name,
                                  file_creator const & create);

} // namespace fl::filesystem::detail
