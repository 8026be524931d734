#include "foundation/filesystem/path_kind.hpp"

#include "foundation/ascii.hpp"

#include <algorithm>
#include <fl/filesystem/path.hpp>

namespace fl::filesystem::detail {

namespace {

constexpr wchar_t backslash = upath_constant::PATHNAME_SEPARATOR_CHARACTER;
constexpr std::wstring_view unc_prefix = upath_constant::UNC_PREFIX;
constexpr std::wstring_view long_prefix = upath_constant::LONG_PATHNAME_PREFIX;
constexpr std::wstring_view long_unc_prefix = upath_constant::LONG_UNC_PATHNAME_PREFIX;
constexpr std::wstring_view device_prefix = L"\\\\.\\";

bool is_separator(wchar_t c) {
    return c == backslash || c == upath_constant::GENERIC_PATHNAME_SEPARATOR_CHARACTER;
}

/// Either separator matches a backslash of the prefix, and letters match in any case.
bool begins_with(std::wstring_view text, std::wstring_view prefix) {
    return text.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(), [](wchar_t expected, wchar_t actual) {
               return expected == backslash ? is_separator(actual)
                                            : ascii::to_lower(expected) == ascii::to_lower(actual);
           });
}

bool begins_with_drive(std::wstring_view text) {
    return text.size() >= 2 && ascii::is_letter(text[0]) &&
           text[1] == upath_constant::VOLUME_SEPARATOR_CHARACTER;
}

/// Tells whether a text that begins with a drive goes on with the root.
bool has_drive_root(std::wstring_view text) {
    return text.size() > 2 && text[2] == backslash;
}

path_kind kind_if_share_follows(std::wstring_view rest, path_kind kind) {
    return server_and_share_length(rest) > 0 ? kind : path_kind::invalid;
}

} // namespace

std::size_t server_and_share_length(std::wstring_view text) {
    auto const server_end = std::find_if(text.begin(), text.end(), is_separator);
    if (server_end == text.begin() || server_end == text.end()) {
        return 0;
    }
    auto const share_end = std::find_if(server_end + 1, text.end(), is_separator);
    return share_end == server_end + 1 ? 0 : static_cast<std::size_t>(share_end - text.begin());
}

path_kind classify_path(std::wstring_view text, bool root_is_absolute) {
    if (begins_with(text, long_unc_prefix)) {
        return kind_if_share_follows(text.substr(long_unc_prefix.size()), path_kind::long_unc);
    }
    if (begins_with(text, long_prefix)) {
        std::wstring_view const rest = text.substr(long_prefix.size());
        if (!begins_with_drive(rest)) {
            return path_kind::invalid;
        }
        return has_drive_root(rest) ? path_kind::long_drive_absolute : path_kind::long_drive_without_root;
    }
    if (begins_with(text, device_prefix)) {
        return path_kind::device;
    }
    if (begins_with(text, unc_prefix)) {
        return kind_if_share_follows(text.substr(unc_prefix.size()), path_kind::unc);
    }
    if (begins_with_drive(text)) {
        return has_drive_root(text) ? path_kind::drive_absolute : path_kind::drive_relative;
    }
    if (root_is_absolute && !text.empty() && is_separator(text[0])) {
        return path_kind::root_absolute;
    }
    return text.starts_with(backslash) ? path_kind::root_relative : path_kind::relative;
}

std::size_t root_name_length(std::wstring_view text, path_kind kind) {
    switch (kind) {
    case path_kind::long_unc:
        return long_unc_prefix.size() + server_and_share_length(text.substr(long_unc_prefix.size()));
    case path_kind::long_drive_absolute:
    case path_kind::long_drive_without_root:
        return long_prefix.size() + 2;
    case path_kind::unc:
        return unc_prefix.size() + server_and_share_length(text.substr(unc_prefix.size()));
    case path_kind::drive_absolute:
    case path_kind::drive_relative:
        return 2;
    default:
        return 0;
    }
}

bool is_absolute_kind(path_kind kind) {
    switch (kind) {
    case path_kind::long_unc:
    case path_kind::long_drive_absolute:
    case path_kind::device:
    case path_kind::unc:
    case path_kind::drive_absolute:
    case path_kind::root_absolute:
        return true;
    default:
        return false;
    }
}

} // namespace fl::filesystem::detail
