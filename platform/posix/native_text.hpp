#pragma once

#include <string>
#include <string_view>

namespace fl::platform {

/// Converts UTF-16 to the bytes that the system takes for it: UTF-8, with a lone surrogate in its three-byte
/// form, so that distinct texts stay distinct.
std::string to_native_bytes(std::u16string_view text);

/// Converts back. Each byte that is not part of such a form becomes U+FFFD.
std::u16string from_native_bytes(std::string_view bytes);

/// Converts a native path, with backslashes, to the path that the system takes, with slashes.
std::string path_bytes(std::wstring const & native_path);

/// Converts a path of the system, with slashes, to the native form used above this floor, with backslashes.
std::wstring native_path_from_bytes(std::string_view bytes);

} // namespace fl::platform
