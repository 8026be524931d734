#pragma once

#include <cstddef>
#include <string_view>

namespace fl::filesystem::detail {

/// What a path names, as told by its first characters.
enum class path_kind {
    invalid,
    long_unc,                ///< \\?\UNC\server\share
    long_drive_without_root, ///< \\?\C:
    long_drive_absolute,     ///< \\?\C:\x
    device,                  ///< \\.\pipe
    unc,                     ///< \\server\share
    drive_relative,          ///< C:x
    drive_absolute,          ///< C:\x
    root_relative,           ///< \x
    root_absolute,           ///< the same on a system without drives, with either separator
    relative,                ///< x
};

/// Tells the kind of a path. Backslashes count as roots, forward slashes only in the prefixes.
///
/// `root_is_absolute` is the rule of systems without drives.
path_kind classify_path(std::wstring_view text, bool root_is_absolute);

/// Returns the length of "server\share" at the beginning of a text; 0 when there is no server or no share.
std::size_t server_and_share_length(std::wstring_view text);

/// Returns the length of what is before the root separator: "C:", "\\server\share", their long forms, or
/// nothing.
std::size_t root_name_length(std::wstring_view text, path_kind kind);

/// Tells whether a path of a kind is complete.
bool is_absolute_kind(path_kind kind);

} // namespace fl::filesystem::detail
