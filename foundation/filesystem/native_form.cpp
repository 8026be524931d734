#include "foundation/filesystem/native_form.hpp"

#include "foundation/filesystem/path_kind.hpp"
#include "platform/platform.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <fl/filesystem/exceptions.hpp>
#include <string_view>
#include <vector>

namespace fl::filesystem {

namespace detail {

namespace {

constexpr wchar_t separator = upath_constant::PATHNAME_SEPARATOR_CHARACTER;

void turn_slashes(std::wstring & path) {
    std::replace(path.begin(), path.end(), upath_constant::GENERIC_PATHNAME_SEPARATOR_CHARACTER, separator);
}

std::wstring join(upath const & directory, std::wstring const & rest) {
    return (directory / rest).native();
}

[[noreturn]] void throw_no_access_form(std::wstring const & path) {
    i18n::ustring const text = upath(path).string();
    // One message for every kind of path that has no long form: callers rely on the text.
    boost::throw_exception(InvalidArgument("Long UNC path without root not permitted", text, {text}));
}

/// Returns the elements of what follows the root name, without those that lead nowhere or, where
/// `resolve_parents`, back.
std::vector<std::wstring_view> redundancy_free_elements(std::wstring_view rest, bool resolve_parents) {
    std::vector<std::wstring_view> elements;
    for (std::size_t begin = 0; begin < rest.size();) {
        std::size_t const end = std::min(rest.find(separator, begin), rest.size());
        std::wstring_view const element = rest.substr(begin, end - begin);
        begin = end + 1;
        if (resolve_parents && element == L"..") {
            if (!elements.empty()) {
                elements.pop_back();
            }
        } else if (!element.empty() && element != L".") {
            elements.push_back(element);
        }
    }
    return elements;
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

std::wstring access_form_with_cleanup(std::wstring const & path, bool root_is_absolute) {
    std::wstring form = access_form(path, root_is_absolute);
    turn_slashes(form);
    path_kind const kind = classify_path(form, root_is_absolute);
    std::size_t const root = root_name_length(form, kind);
    std::wstring_view const rest = std::wstring_view(form).substr(root);
    if (rest.empty()) {
        return form;
    }
    std::wstring result = form.substr(0, root);
    // Behind a link the parent is not the element before: the systems without drives resolve ".." themselves.
    auto const elements = redundancy_free_elements(rest, kind != path_kind::root_absolute);
    for (std::wstring_view const element : elements) {
        result += separator;
        result += element;
    }
    if (elements.empty() || rest.back() == separator) {
        result += separator;
    }
    return result;
}

std::wstring make_file_form(upath const & path) {
    std::wstring const native = make_native_form(path, true);
    switch (classify_path(native, platform::root_is_absolute())) {
    case path_kind::relative:
    case path_kind::root_relative:
        // The process has no current directory: it was removed, or is out of reach.
        boost::throw_exception(PathNotFound(path.string()));
    default:
        return make_native_access_form_with_cleanup(native);
    }
}

std::wstring make_query_form(upath const & path) {
    std::wstring native = make_native_form(path, true);
    path_kind const kind = classify_path(native, platform::root_is_absolute());
    bool const has_access_form = is_absolute_kind(kind) && kind != path_kind::device;
    return has_access_form ? make_native_access_form_with_cleanup(native) : native;
}

} // namespace detail

std::wstring make_native_form(upath const & path, bool absolute) {
    std::wstring native = path.native();
    detail::turn_slashes(native);
    return absolute ? detail::complete_native_path(native, platform::root_is_absolute(),
                                                   platform::current_directory)
                    : native;
}

std::wstring make_native_access_form(upath const & path) {
    return detail::access_form(path.native(), platform::root_is_absolute());
}

std::wstring make_native_access_form_with_cleanup(upath const & path) {
    return detail::access_form_with_cleanup(path.native(), platform::root_is_absolute());
}

bool is_absolute(upath const & path) {
    std::wstring const native = make_native_form(path, false);
    return detail::is_absolute_kind(detail::classify_path(native, platform::root_is_absolute()));
}

} // namespace fl::filesystem
