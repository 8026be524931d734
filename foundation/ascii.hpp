#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
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

/// Hashes and compares texts without regard to the case of ASCII letters.
struct hash_ignoring_case {
    using is_transparent = void;

    constexpr std::size_t operator()(std::string_view text) const {
        // The method of Fowler, Noll and Vo; the bit is the difference of capital and small letters.
        std::uint64_t hash = 0xCBF29CE484222325;
        for (char const c : text) {
            hash = (hash ^ static_cast<unsigned char>(c | 0x20)) * 0x100000001B3;
        }
        return static_cast<std::size_t>(hash ^ hash >> 32);
    }
};
struct same_ignoring_case {
    using is_transparent = void;

    bool operator()(std::string_view a, std::string_view b) const { return equal_ignoring_case(a, b); }
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
