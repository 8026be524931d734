#pragma once

#include <fl/filesystem/path.hpp>
#include <fl/i18n/ustring_type.hpp>
#include <functional>
#include <vector>

namespace fl::filesystem::detail {

/// What is asked of a candidate for the directory of temporary files.
struct directory_queries {
    /// Tells the status as `status` does, exceptions included.
    std::function<file_status(upath const & directory)> status;
    /// Returns 0 when the directory can be read and written, else the `errno` value that tells why not.
    std::function<int(upath const & directory)> writability;
};

/// Returns the first candidate that serves; throws as `temp_directory_name` does when none does.
i18n::ustring choose_temp_directory(std::vector<i18n::ustring> const & candidates,
                                    directory_queries const & queries);

} // namespace fl::filesystem::detail
