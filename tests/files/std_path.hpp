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

/// Makes a link to itself, which the system refuses to follow. Returns false where there are no links.
inline bool make_link_loop(filesystem::upath const & path) {
    std::error_code failed;
    std::filesystem::create_symlink(std_path(path).filename(), std_path(path), failed);
    return !failed;
}

} // namespace fl::test
