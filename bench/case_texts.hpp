#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fl::bench {

inline constexpr std::size_t long_text = 1'000'000;
inline constexpr std::u16string_view english = u"The Quick Brown Fox, ";

/// Returns the first units of a text that is repeated without end.
inline std::u16string repeated(std::u16string_view text, std::size_t length) {
    std::u16string result;
    while (result.size() < length) {
        result += text;
    }
    result.resize(length);
    return result;
}

} // namespace fl::bench
