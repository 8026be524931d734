#pragma once

#include <algorithm>
#include <string>
#include <string_view>

/// Character tests and case mapping that know ASCII only and never consult a locale.
namespace fl::ascii {

template <class Char>
constexpr bool is_upper(Char c) {
    return c >= Char('A') && c <= Char('Z');
}

template <class Char>
constexpr bool is_letter(Char c) {
    return is_upper(c) || (c >= Char('a') && c <= Char('z'));
}

template <class Char>
constexpr bool is_digit(Char c) {
    return c >= Char('0') && c <= Char('9');
}

template <class Char>
constexpr Char to_lower(Char c) {
    return is_upper(c) ? Char(c - Char('A') + Char('a')) : c;
}

template <class Char>
constexpr Char to_upper(Char c) {
    return is_letter(c) && !is_upper(c) ? Char(c - Char('a') + Char('A')) : c;
}

inline std::string to_lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) { return to_lower(c); });
    return result;
}

inline std::string to_upper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) { return to_upper(c); });
    return result;
}

/// Tells whether two texts are equal when ASCII letters are compared without regard to case.
inline bool equal_ignoring_case(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return to_lower(x) == to_lower(y); });
}

/// Orders texts as if their ASCII letters were in lower case.
struct less_ignoring_case {
    using is_transparent = void;

    constexpr bool operator()(std::string_view a, std::string_view b) const {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                            [](char x, char y) { return to_lower(x) < to_lower(y); });
    }
};

/// Widens a text byte by byte, each byte to the UTF-16 unit of its value.
inline std::u16string widen(std::string_view text) {
    std::u16string result(text.size(), u'\0');
    std::transform(text.begin(), text.end(), result.begin(),
                   [](char c) { return static_cast<char16_t>(static_cast<unsigned char>(c)); });
    return result;
}

/// Narrows a text that `widen` has made.
inline std::string narrow(std::u16string_view text) {
    std::string result(text.size(), '\0');
    std::transform(text.begin(), text.end(), result.begin(), [](char16_t c) { return static_cast<char>(c); });
    return result;
}

} // namespace fl::ascii
