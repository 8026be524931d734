#include "platform/posix/native_text.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace fl::platform {

namespace {

constexpr bool is_lead(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool is_trail(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

void append_bytes(std::string & bytes, char32_t c) {
    auto const append = [&](char32_t byte) { bytes += static_cast<char>(byte); };
    if (c < 0x80) {
        append(c);
        return;
    }
    if (c < 0x800) {
        append(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            append(0xE0 | c >> 12);
        } else {
            append(0xF0 | c >> 18);
            append(0x80 | (c >> 12 & 0x3F));
        }
        append(0x80 | (c >> 6 & 0x3F));
    }
    append(0x80 | (c & 0x3F));
}

void append_units(std::u16string & text, char32_t c) {
    if (c < 0x10000) {
        text += static_cast<char16_t>(c);
    } else {
        text += static_cast<char16_t>(0xD7C0 + (c >> 10));
        text += static_cast<char16_t>(0xDC00 | (c & 0x3FF));
    }
}

/// Returns the length of the form at the beginning of `bytes` and its value in `c`; 0 when there is no valid
/// form.
std::size_t decode(std::string_view bytes, char32_t & c) {
    auto const byte_at = [&](std::size_t i) -> char32_t { return static_cast<unsigned char>(bytes[i]); };
    char32_t const first = byte_at(0);
    std::size_t const length = first < 0x80           ? 1
                               : (first >> 5) == 0x06 ? 2
                               : (first >> 4) == 0x0E ? 3
                               : (first >> 3) == 0x1E ? 4
                                                      : 0;
    if (length == 0 || length > bytes.size()) {
        return 0;
    }
    c = length == 1 ? first : first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte_at(i) & 0xC0) != 0x80) {
            return 0;
        }
        c = c << 6 | (byte_at(i) & 0x3F);
    }
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    return c < smallest[length] || c > 0x10FFFF ? 0 : length;
}

} // namespace

std::string to_native_bytes(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (is_lead(text[i]) && i + 1 < text.size() && is_trail(text[i + 1])) {
            c = 0x10000 + ((c & 0x3FF) << 10 | (text[++i] & 0x3FFu));
        }
        append_bytes(bytes, c);
    }
    return bytes;
}

std::u16string from_native_bytes(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        char32_t c = 0;
        std::size_t const length = decode(bytes, c);
        append_units(text, length > 0 ? c : 0xFFFD);
        bytes.remove_prefix(length > 0 ? length : 1);
    }
    return text;
}

std::string path_bytes(std::wstring const & native_path) {
    std::string bytes = to_native_bytes(std::u16string(native_path.begin(), native_path.end()));
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return bytes;
}

std::wstring native_path_from_bytes(std::string_view bytes) {
    std::u16string const text = from_native_bytes(bytes);
    std::wstring path(text.begin(), text.end());
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

} // namespace fl::platform
