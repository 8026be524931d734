#include "foundation/filesystem/native_form.hpp"

#include "foundation/filesystem/path_kind.hpp"
#include "platform/platform.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <fl/filesystem/exceptions.hpp>

namespace fl::filesystem {

namespace detail {

namespace {

/// The length from which on Windows takes the long form only.
constexpr std::size_t native_form_limit = 260;

std::wstring join(upath const & directory, std::wstring const & rest) {
    return (directory / rest).native();
}

[[noreturn]] void throw_no_access_form(std::wstring const & path) {
    i18n::ustring const text = upath(path).string();
    // One message for every kind of path that has no long form: callers rely on the text.
    boost::throw_exception(InvalidArgument("Long UNC path without root not permitted", text, {text}));
}

} // namespace

std::wstring complete_native_path(std::wstring const & path, bool root_is_absolute,
                                  current_directory_query const & current_directory) {
    if (path.empty()) {
        return path;
    }
    switch (classify_path(path, root_is_absolute)) {
    case path_kind::relative:
        return join(current_directory(0), path);
    case path_kind::drive_relative: {
        std::wstring const directory = current_directory(path[0]);
        return join(directory.empty() ? path.substr(0, 2) + L"\\" : directory, path.substr(2));
    }
    case path_kind::root_relative: {
        std::wstring const directory = current_directory(0);
        return directory.substr(0, root_name_length(directory, classify_path(directory, root_is_absolute))) +
               path;
    }
    default:
        return path;
    }
}

std::wstring access_form(std::wstring const & path, bool root_is_absolute) {
    switch (classify_path(path, root_is_absolute)) {
    case path_kind::drive_absolute:
        return upath_constant::LONG_PATHNAME_PREFIX + path;
    case path_kind::unc:
        return upath_constant::LONG_UNC_PATHNAME_PREFIX + path.substr(2);
    case path_kind::long_drive_absolute:
    case path_kind::long_unc:
    case path_kind::root_absolute:
        return path;
    default:
        throw_no_access_form(path);
    }
}

std::wstring make_query_form(upath const & path) {
    std::wstring native = make_native_form(path, true);
    path_kind const kind = classify_path(native, platform::root_is_absolute());
    bool const has_access_form = is_absolute_kind(kind) && kind != path_kind::device;
    return native.size() < native_form_limit || !has_access_form ? native : make_native_access_form(native);
}

} // namespace detail

std::wstring make_native_form(upath const & path, bool absolute) {
    std::wstring native = path.native();
    std::replace(native.begin(), native.end(), upath_constant::GENERIC_PATHNAME_SEPARATOR_CHARACTER,
                 upath_constant::PATHNAME_SEPARATOR_CHARACTER);
    return absolute ? detail::complete_native_path(native, platform::root_is_absolute(),
                                                   platform::current_directory)
                    : native;
}

std::wstring make_native_access_form(upath const & path) {
    return detail::access_form(path.native(), platform::root_is_absolute());
}

bool is_absolute(upath const & path) {
    std::wstring const native = make_native_form(path, false);
    return detail::is_absolute_kind(detail::classify_path(native, platform::root_is_absolute()));
}

} // namespace fl::filesystem
