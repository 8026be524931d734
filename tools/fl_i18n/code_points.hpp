#pragma once

#include <cstddef>
#include <string_view>
#include <unicode/utf16.h>

namespace fl::tool {

/// Returns the code point that begins at an index; a lone surrogate is one.
inline char32_t code_point_at(std::u16string_view text, std::size_t index) {
    char16_t const first = text[index];
    bool const is_pair = U16_IS_LEAD(first) && index + 1 < text.size() && U16_IS_TRAIL(text[index + 1]);
    return is_pair ? static_cast<char32_t>(U16_GET_SUPPLEMENTARY(first, text[index + 1])) : first;
}

/// Returns the number of units of a code point.
inline std::size_t unit_count(char32_t code_point) {
    return U16_LENGTH(code_point);
}

} // namespace fl::tool
