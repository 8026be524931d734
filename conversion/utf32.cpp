#include <fl/i18n/ustring.hpp>

#include <string_view>

namespace fl::i18n {

namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool is_high_surrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool is_low_surrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

/// Takes one code point off the front of a text that is not empty; U+FFFD stands for a lone surrogate.
char32_t take_code_point(std::u16string_view & text) {
    char16_t const unit = text.front();
    text.remove_prefix(1);
    if (is_high_surrogate(unit) && !text.empty() && is_low_surrogate(text.front())) {
        char16_t const low = text.front();
        text.remove_prefix(1);
        return (char32_t(unit) - 0xD800) * 0x400 + (char32_t(low) - 0xDC00) + 0x10000;
    }
    return is_high_surrogate(unit) || is_low_surrogate(unit) ? replacement : unit;
}

std::u32string utf16_to_utf32(std::u16string_view text) {
    std::size_t length = 0;
    for (auto rest = text; !rest.empty(); ++length) {
        take_code_point(rest);
    }
    std::u32string result(length, U'\0');
    for (char32_t & code_point : result) {
        code_point = take_code_point(text);
    }
    return result;
}

ustring utf32_to_utf16(std::u32string_view text) {
    std::size_t length = 0;
    for (char32_t const value : text) {
        length += value < 0x10000 ? 1 : 2;
    }
    ustring result(length, u'\0');
    char16_t * to = result.data();
    for (char32_t const value : text) {
        if (value < 0x10000) {
            *to++ = static_cast<char16_t>(value);
        } else {
            *to++ = static_cast<char16_t>((value >> 10) + 0xD7C0);
            *to++ = static_cast<char16_t>((value & 0x3FF) + 0xDC00);
        }
    }
    return result;
}

} // namespace

std::u32string to_u32string(ustring const & text) {
    return utf16_to_utf32(text);
}

std::u32string to_u32string(char16_t const * text) {
    return text ? utf16_to_utf32(text) : std::u32string();
}

ustring to_ustring(std::u32string const & text) {
    return utf32_to_utf16(text);
}

ustring to_ustring(char32_t const * text) {
    return text ? utf32_to_utf16(text) : ustring();
}

} // namespace fl::i18n
