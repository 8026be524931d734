#include <fl/i18n/ctype.hpp>

namespace fl::i18n::lcctype {

namespace {

constexpr char32_t last_single_unit = 0xFFFF;
constexpr char32_t last_code_point = 0x10FFFF;
constexpr char32_t replacement_character = 0xFFFD;

constexpr bool is_surrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

constexpr bool is_high_surrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool is_low_surrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

bool is_valid_uchar(char32_t c) noexcept {
    return c <= last_single_unit;
}

bool is_valid_utf32(char32_t c) noexcept {
    return c <= last_code_point && !is_surrogate(c);
}

std::size_t make_uchar_from_utf32(char32_t c, char16_t * out) noexcept {
    if (c > last_single_unit) {
        out[0] = static_cast<char16_t>((c >> 10) + 0xD7C0);
        out[1] = static_cast<char16_t>((c & 0x3FF) | 0xDC00);
        return 2;
    }
    out[0] = static_cast<char16_t>(c);
    return 1;
}

char32_t make_utf32_from_uchar(char16_t high, char16_t low) noexcept {
    if (!is_high_surrogate(high) || !is_low_surrogate(low)) {
        return replacement_character;
    }
    return ((char32_t{high} - 0xD800) << 10) + (char32_t{low} - 0xDC00) + 0x10000;
}

} // namespace fl::i18n::lcctype
