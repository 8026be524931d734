#include "foundation/filesystem/native_form.hpp"
#include "foundation/filesystem/system_error.hpp"
#include "platform/platform.hpp"

#include <fl/filesystem/path.hpp>

namespace fl::filesystem {

namespace {

namespace error = platform::error;

bool means_not_there(std::uint32_t code) {
    switch (code) {
    case error::file_not_found:
    case error::path_not_found:
    case error::invalid_drive:
    case error::not_ready:
    case error::bad_network_path:
    case error::bad_network_name:
    case error::invalid_name:
    case error::bad_path_name:
    case error::name_too_long:
        return true;
    default:
        return false;
    }
}

std::uint32_t query(upath const & path, platform::file_attributes & attributes) {
    // A system call would read such a name up to the null character only, and find another file.
    if (path.empty() || path.native().find(L'\0') != std::wstring::npos) {
        return error::invalid_name;
    }
    std::wstring const name = detail::make_query_form(path);
    return name.size() > detail::longest_path ? error::name_too_long : platform::query_file(name, attributes);
}

} // namespace

file_status status(upath const & path) {
    platform::file_attributes attributes;
    std::uint32_t const code = query(path, attributes);
    if (code == error::success) {
        return {true, attributes.is_directory};
    }
    if (!means_not_there(code)) {
        detail::throw_system_error(code, path.string());
    }
    return {};
}

bool exists(upath const & path) {
    return status(path).exists;
}

} // namespace fl::filesystem
