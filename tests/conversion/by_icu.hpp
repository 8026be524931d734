#pragma once

#include "foundation/icu_converter.hpp"

#include <cstdint>
#include <string>
#include <string_view>

/// What the conversion library itself makes of whole texts, for comparison.
namespace fl::i18n {

/// What a conversion gives, or the id of what it throws.
template <class To>
struct outcome {
    std::basic_string<To> text;
    int excp = 0;
    bool operator==(outcome const &) const = default;
};

template <class To, class Function, class From>
outcome<To> converted_by_icu(Function function, UConverter * converter, std::size_t room,
                             std::basic_string_view<From> source) {
    std::basic_string<To> result(room, To());
    UErrorCode status = U_ZERO_ERROR;
    auto const length = function(converter, result.data(), static_cast<std::int32_t>(room), source.data(),
                                 static_cast<std::int32_t>(source.size()), &status);
    if (U_FAILURE(status)) {
        return {{}, status == U_INVALID_CHAR_FOUND || status == U_ILLEGAL_CHAR_FOUND ? 5 : 7};
    }
    result.resize(static_cast<std::size_t>(length));
    return {result};
}

/// Decodes bytes under the call-backs of a converter.
inline outcome<char16_t> decoded_by_icu(UConverter * converter, std::string_view bytes) {
    return converted_by_icu<char16_t>(ucnv_toUChars, converter, 4 * bytes.size() + 16, bytes);
}

/// Encodes a text under the call-backs of a converter, which make at most `unit_size` bytes of a unit.
inline outcome<char> encoded_by_icu(UConverter * converter, std::u16string_view text,
                                    std::size_t unit_size = 16) {
    return converted_by_icu<char>(ucnv_fromUChars, converter, unit_size * text.size() + 32, text);
}

} // namespace fl::i18n
