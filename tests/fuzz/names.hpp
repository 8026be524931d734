#pragma once

#include <algorithm>
#include <string_view>

namespace fl::fuzz {

/// Tells whether a text that is not empty is a name for locales.
inline bool is_locale_name(std::string_view name) {
    return !name.empty() && name.size() <= 157 && name.find("..") == name.npos &&
           name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-.@=;") ==
               name.npos;
}

/// Tells whether a text is a name for encodings.
inline bool is_encoding_name(std::string_view name) {
    return !name.empty() && name.find("..") == name.npos &&
           std::none_of(name.begin(), name.end(),
                        [](char c) { return c < 0x20 || c > 0x7E || c == '/' || c == '\\'; });
}

} // namespace fl::fuzz
