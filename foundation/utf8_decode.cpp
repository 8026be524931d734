#include "foundation/utf8_decode.hpp"

#include "foundation/ascii_run.hpp"

namespace fl {

namespace {

unsigned byte_at(char const * p) {
    return static_cast<unsigned char>(*p);
}

/// Returns the six bits of a trail byte, more than 0x3F for another byte.
unsigned trail_bits(char const * p) {
    return byte_at(p) ^ 0x80;
}

bool is_surrogate(unsigned code_point) {
    return (code_point & 0xF800) == 0xD800;
}

/// Returns the length of the ill-formed piece that a text begins with, which is not empty.
std::size_t ill_formed_length(std::string_view text) {
    unsigned const lead = byte_at(text.data());
    if (lead < 0xC2 || lead > 0xF4) {
        return 1;
    }
    unsigned const lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned const highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    std::size_t const most = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    if (text.size() < 2 || byte_at(&text[1]) < lowest || byte_at(&text[1]) > highest) {
        return 1;
    }
    std::size_t length = 2;
    while (length < most && length < text.size() && trail_bits(&text[length]) <= 0x3F) {
        ++length;
    }
    return length;
}

/// Decodes one character that is not ASCII and returns its length in bytes, 4 for two units; 0 when it is
/// ill-formed or incomplete.
inline std::size_t decode_character(char16_t * to, char const * from, std::size_t length) {
    unsigned const lead = byte_at(from);
    if (lead < 0xE0) {
        if (lead < 0xC2 || length < 2 || trail_bits(from + 1) > 0x3F) {
            return 0;
        }
        *to = static_cast<char16_t>((lead & 0x1F) << 6 | trail_bits(from + 1));
        return 2;
    }
    if (lead < 0xF0) {
        if (length < 3) {
            return 0;
        }
        unsigned const trail_1 = trail_bits(from + 1);
        unsigned const trail_2 = trail_bits(from + 2);
        unsigned const code_point = (lead & 0x0F) << 12 | trail_1 << 6 | trail_2;
        *to = static_cast<char16_t>(code_point);
        return (trail_1 | trail_2) > 0x3F || code_point < 0x800 || is_surrogate(code_point) ? 0 : 3;
    }
    if (length < 4) {
        return 0;
    }
    unsigned const trail_1 = trail_bits(from + 1);
    unsigned const trail_2 = trail_bits(from + 2);
    unsigned const trail_3 = trail_bits(from + 3);
    unsigned const code_point = (lead & 0x0F) << 18 | trail_1 << 12 | trail_2 << 6 | trail_3;
    if ((trail_1 | trail_2 | trail_3) > 0x3F || code_point < 0x10000 || code_point > 0x10FFFF) {
        return 0;
    }
    to[0] = static_cast<char16_t>((code_point >> 10) + 0xD7C0);
    to[1] = static_cast<char16_t>((code_point & 0x3FF) + 0xDC00);
    return 4;
}

/// Decodes up to the end, or to the first ill-formed piece where they are not replaced.
template <bool replacing>
conversion_progress decode(char16_t * destination, std::string_view source) {
    char const * from = source.data();
    char const * const end = from + source.size();
    char16_t * to = destination;
    auto const rest = [&] { return static_cast<std::size_t>(end - from); };
    while (from != end) {
        unsigned const lead = byte_at(from);
        if (lead < 0x80) {
            // A run is worth its call at the beginning of a text and where a long one is possible.
            std::size_t run = 1;
            *to = static_cast<char16_t>(lead);
            if (rest() > 1 && byte_at(from + 1) < 0x80 && (rest() >= 16 || from == source.data())) {
                run = widen_ascii_run(to, from, rest());
            }
            from += run;
            to += run;
        } else if (std::size_t const length = decode_character(to, from, rest())) {
            from += length;
            to += length == 4 ? 2 : 1;
        } else if (replacing) {
            *to++ = u'\xFFFD';
            from += ill_formed_length({from, rest()});
        } else {
            break;
        }
    }
    return {static_cast<std::size_t>(from - source.data()), static_cast<std::size_t>(to - destination)};
}

} // namespace

conversion_progress decode_well_formed_utf8(char16_t * destination, std::string_view source) {
    return decode<false>(destination, source);
}

std::size_t decode_utf8(char16_t * destination, std::string_view source) {
    return decode<true>(destination, source).produced;
}

} // namespace fl
