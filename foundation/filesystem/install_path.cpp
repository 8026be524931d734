#include "foundation/filesystem/install_path.hpp"

#include "foundation/ascii.hpp"
#include "foundation/filesystem/path_kind.hpp"
#include "platform/platform.hpp"

#include <algorithm>
#include <fl/filesystem/path.hpp>
#include <string_view>

namespace fl::filesystem {

namespace {

constexpr wchar_t separator = upath_constant::PATHNAME_SEPARATOR_CHARACTER;

bool is_named(std::wstring_view directory, std::wstring_view name) {
    return std::equal(directory.begin(), directory.end(), name.begin(), name.end(),
                      [](wchar_t a, wchar_t b) { return ascii::to_lower(a) == ascii::to_lower(b); });
}

/// Returns the last element of a path.
std::wstring_view last_element(std::wstring_view path) {
    return path.substr(path.rfind(separator) + 1);
}

/// Returns a path without its last element; a root keeps its separator, and nothing is above a share.
std::wstring_view parent(std::wstring_view path) {
    if (path.size() <= detail::root_name_length(path, detail::classify_path(path, false))) {
        return path;
    }
    std::size_t const end = path.rfind(separator);
    if (end == std::wstring_view::npos) {
        return {};
    }
    bool const is_root = end == 0 || path[end - 1] == upath_constant::VOLUME_SEPARATOR_CHARACTER;
    return path.substr(0, is_root ? end + 1 : end);
}

} // namespace

std::wstring detail::install_base(std::wstring const & module_path) {
    std::wstring_view const directory = parent(module_path);
    std::wstring_view const name = last_element(directory);
    if (is_named(name, L"bin") || is_named(name, L"lib") || is_named(name, L"lib64")) {
        return std::wstring(parent(directory));
    }
    bool const is_architecture = name.find(L"-linux-") != std::wstring_view::npos;
    if (is_architecture && is_named(last_element(parent(directory)), L"lib")) {
        return std::wstring(parent(parent(directory)));
    }
    return std::wstring(directory);
}

upath get_install_path(void const * address) {
    return detail::install_base(platform::module_path(address));
}

upath get_install_path() {
    static char const here = 0;
    return get_install_path(&here);
}

} // namespace fl::filesystem
