#include "tools/fl_i18n/exchange/message_key.hpp"

#include "foundation/ascii.hpp"

#include <algorithm>
#include <cstdint>

namespace fl::tool {

namespace {

constexpr std::size_t longest_beginning = 28;

bool is_key_character(char c) {
    return ascii::is_letter(c) || ascii::is_digit(c) || c == '_';
}

/// Continues an FNV-1a hash of 64 bits.
std::uint64_t hash(std::string_view bytes, std::uint64_t value) {
    for (char const c : bytes) {
        value = (value ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    }
    return value;
}

/// Returns 8 letters and digits: 40 bits of a hash.
std::string to_text(std::uint64_t value) {
    constexpr std::string_view digits = "0123456789abcdefghijklmnopqrstuv";
    value ^= value >> 40;
    std::string result;
    for (int i = 0; i < 8; ++i, value >>= 5) {
        result += digits[value & 31];
    }
    return result;
}

} // namespace

std::string make_key(std::optional<std::string> const & context, std::string_view text) {
    std::string key;
    for (char const c : text) {
        if (key.size() == longest_beginning) {
            break;
        }
        if (is_key_character(c)) {
            key += c;
        } else if (!key.empty() && key.back() != '_') {
            key += '_';
        }
    }
    if (key.empty() || ascii::is_digit(key.front())) {
        key.insert(0, "m_");
    }
    if (key.back() != '_') {
        key += '_';
    }
    std::uint64_t value = 0xcbf29ce484222325u;
    if (context) {
        // The byte after the context never stands in a text: no other pair hashes the same bytes.
        value = hash(std::string_view("\0", 1), hash(*context, value));
    }
    return key + to_text(hash(text, value));
}

bool is_key(std::string_view text) {
    return !text.empty() && !ascii::is_digit(text.front()) &&
           std::all_of(text.begin(), text.end(), is_key_character);
}

} // namespace fl::tool
