#include "foundation/utf8_encode.hpp"

#include "foundation/ascii_run.hpp"

namespace fl {

namespace {

bool is_surrogate(unsigned unit) {
    return (unit & 0xF800) == 0xD800;
}

char trail_byte(unsigned bits) {
    return static_cast<char>(0x80 | (bits & 0x3F));
}

char * put_three(char * to, unsigned unit) {
    to[0] = static_cast<char>(0xE0 | unit >> 12);
    to[1] = trail_byte(unit >> 6);
    to[2] = trail_byte(unit);
    return to + 3;
}

/// Encodes up to the end, or to the first lone surrogate where they are not replaced.
template <bool replacing>
conversion_progress encode(char * destination, std::u16string_view source) {
    char16_t const * from = source.data();
    char16_t const * const end = from + source.size();
    char * to = destination;
    while (from != end) {
        unsigned const unit = *from;
        if (unit < 0x80) {
            // A run is worth its call at the beginning of a text and where a long one is possible.
            std::size_t run = 1;
            *to = static_cast<char>(unit);
            if (end - from > 1 && from[1] < 0x80 && (end - from >= 16 || from == source.data())) {
                run = narrow_ascii_run(to, from, static_cast<std::size_t>(end - from));
            }
            from += run;
            to += run;
        } else if (unit < 0x800) {
            to[0] = static_cast<char>(0xC0 | unit >> 6);
            to[1] = trail_byte(unit);
            to += 2;
            ++from;
        } else if (!is_surrogate(unit)) {
            to = put_three(to, unit);
            ++from;
        } else if (unit < 0xDC00 && end - from > 1 && (from[1] & 0xFC00) == 0xDC00) {
            unsigned const code_point = (unit << 10) + from[1] - ((0xD800u << 10) + 0xDC00 - 0x10000);
            to[0] = static_cast<char>(0xF0 | code_point >> 18);
            to[1] = trail_byte(code_point >> 12);
            to[2] = trail_byte(code_point >> 6);
            to[3] = trail_byte(code_point);
            to += 4;
            from += 2;
        } else if (replacing) {
            to = put_three(to, 0xFFFD);
            ++from;
        } else {
            break;
        }
    }
    return {static_cast<std::size_t>(from - source.data()), static_cast<std::size_t>(to - destination)};
}

} // namespace

conversion_progress encode_well_formed_utf8(char * destination, std::u16string_view source) {
    return encode<false>(destination, source);
}

std::size_t encode_utf8(char * destination, std::u16string_view source) {
    return encode<true>(destination, source).produced;
}

} // namespace fl
