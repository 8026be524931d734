#pragma once

#include <algorithm>
#include <filesystem>
#include <fl/filesystem/path.hpp>

namespace fl::test {

/// Returns the standard library's path of a native path.
inline std::filesystem::path std_path(filesystem::upath const & path) {
    std::u16string text = path.string();
    std::replace(text.begin(), text.end(), u'\\', u'/');
    return text;
}

/// Returns the standard library's path of an absolute native path, under which the system resolves nothing: a
/// long path, or one to a name that ends with a dot, works everywhere.
inline std::filesystem::path long_std_path(filesystem::upath const & path) {
    bool const has_drives = std::filesystem::path::preferred_separator == '\\';
    return has_drives ? std::filesystem::path(filesystem::make_native_access_form_with_cleanup(path))
                      : std_path(path);
}

/// Makes a link to itself, which the system refuses to follow. Returns false where there are no links.
inline bool make_link_loop(filesystem::upath const & path) {
    std::error_code failed;
    std::filesystem::create_symlink(std_path(path).filename(), std_path(path), failed);
    return !failed;
}

} // namespace fl::test
