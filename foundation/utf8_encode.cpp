#include "foundation/utf8_encode.hpp"

#include "foundation/ascii_run.hpp"

#include <emmintrin.h>

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

/// Encodes four units if each takes three bytes; two more bytes may be overwritten.
inline bool put_four_of_three(char * to, char16_t const * from) {
    __m128i const units =
        _mm_unpacklo_epi16(_mm_loadl_epi64(reinterpret_cast<__m128i const *>(from)), _mm_setzero_si128());
    __m128i const high_bits = _mm_and_si128(units, _mm_set1_epi32(0xF800));
    __m128i const others = _mm_or_si128(_mm_cmpeq_epi32(high_bits, _mm_setzero_si128()),
                                        _mm_cmpeq_epi32(high_bits, _mm_set1_epi32(0xD800)));
    if (_mm_movemask_epi8(others) != 0) {
        return false;
    }
    __m128i const first = _mm_srli_epi32(units, 12);
    __m128i const second = _mm_slli_epi32(_mm_and_si128(units, _mm_set1_epi32(0xFC0)), 2);
    __m128i const third = _mm_slli_epi32(_mm_and_si128(units, _mm_set1_epi32(0x3F)), 16);
    __m128i const bytes =
        _mm_or_si128(_mm_or_si128(first, second), _mm_or_si128(third, _mm_set1_epi32(0x8080E0)));
    __m128i const sixes =
        _mm_or_si128(_mm_and_si128(bytes, _mm_set1_epi64x(0xFFFFFF)),
                     _mm_and_si128(_mm_srli_epi64(bytes, 8), _mm_set1_epi64x(0xFFFFFF000000)));
    _mm_storel_epi64(reinterpret_cast<__m128i *>(to), sixes);
    _mm_storel_epi64(reinterpret_cast<__m128i *>(to + 6), _mm_unpackhi_epi64(sixes, sixes));
    return true;
}

/// Encodes up to the end, or to the first lone surrogate where they are not replaced.
template <bool replacing>
conversion_progress encode(char * destination, std::u16string_view source) {
    char16_t const * from = source.data();
    char16_t const * const end = from + source.size();
    char * to = destination;
    // A run is worth its call at the beginning of a text and where a long one is possible.
    char16_t const * const end_of_runs = source.size() >= 16 ? end - 15 : from + (source.size() >= 3 ? 1 : 0);
    while (from != end) {
        unsigned const unit = *from;
        if (unit < 0x80) {
            if (from < end_of_runs && (from[1] | from[2]) < 0x80) {
                std::size_t const run = narrow_ascii_run(to, from, static_cast<std::size_t>(end - from));
                from += run;
                to += run;
                continue;
            }
            *to++ = static_cast<char>(unit);
            ++from;
        } else if (unit < 0x800) {
            to[0] = static_cast<char>(0xC0 | unit >> 6);
            to[1] = trail_byte(unit);
            to += 2;
            ++from;
        } else if (!is_surrogate(unit)) {
            if (end - from > 4 && from[3] >= 0x800 && put_four_of_three(to, from)) {
                to += 12;
                from += 4;
                continue;
            }
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
