#include "foundation/utf8_decode.hpp"

#include "foundation/ascii_run.hpp"

#include <cstring>
#include <emmintrin.h>

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

/// Tells whether a byte begins a character of three bytes.
bool begins_three(char const * p) {
    return (byte_at(p) & 0xF0) == 0xE0;
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

/// Decodes four characters if each is well-formed and takes three bytes; reads one byte more.
inline bool decode_four_of_three(char16_t * to, char const * from) {
    auto const word = [from](std::size_t at) {
        int value;
        std::memcpy(&value, from + at, sizeof value);
        return _mm_cvtsi32_si128(value);
    };
    __m128i const bytes =
        _mm_unpacklo_epi64(_mm_unpacklo_epi32(word(0), word(3)), _mm_unpacklo_epi32(word(6), word(9)));
    __m128i const three =
        _mm_cmpeq_epi32(_mm_and_si128(bytes, _mm_set1_epi32(0xC0C0F0)), _mm_set1_epi32(0x8080E0));
    __m128i const first = _mm_and_si128(_mm_slli_epi32(bytes, 12), _mm_set1_epi32(0xF000));
    __m128i const second = _mm_and_si128(_mm_srli_epi32(bytes, 2), _mm_set1_epi32(0xFC0));
    __m128i const third = _mm_and_si128(_mm_srli_epi32(bytes, 16), _mm_set1_epi32(0x3F));
    __m128i const units = _mm_or_si128(_mm_or_si128(first, second), third);
    // Such as have a shorter form, and surrogates.
    __m128i const high_bits = _mm_and_si128(units, _mm_set1_epi32(0xF800));
    __m128i const bad = _mm_or_si128(_mm_cmpeq_epi32(high_bits, _mm_setzero_si128()),
                                     _mm_cmpeq_epi32(high_bits, _mm_set1_epi32(0xD800)));
    if (_mm_movemask_epi8(_mm_andnot_si128(bad, three)) != 0xFFFF) {
        return false;
    }
    // Packing saturates signed values.
    __m128i const extended = _mm_srai_epi32(_mm_slli_epi32(units, 16), 16);
    _mm_storel_epi64(reinterpret_cast<__m128i *>(to), _mm_packs_epi32(extended, extended));
    return true;
}

// Each of these decodes one character with a certain first byte, if it is well-formed and complete.

inline bool decode_two(char16_t * to, char const * from, std::size_t length) {
    unsigned const lead = byte_at(from);
    if (lead < 0xC2 || length < 2) {
        return false;
    }
    *to = static_cast<char16_t>((lead & 0x1F) << 6 | trail_bits(from + 1));
    return trail_bits(from + 1) <= 0x3F;
}

inline bool decode_three(char16_t * to, char const * from, std::size_t length) {
    if (length < 3) {
        return false;
    }
    unsigned const trail_1 = trail_bits(from + 1);
    unsigned const trail_2 = trail_bits(from + 2);
    unsigned const code_point = (byte_at(from) & 0x0F) << 12 | trail_1 << 6 | trail_2;
    *to = static_cast<char16_t>(code_point);
    return (trail_1 | trail_2) <= 0x3F && code_point >= 0x800 && !is_surrogate(code_point);
}

inline bool decode_four(char16_t * to, char const * from, std::size_t length) {
    if (length < 4) {
        return false;
    }
    unsigned const trail_1 = trail_bits(from + 1);
    unsigned const trail_2 = trail_bits(from + 2);
    unsigned const trail_3 = trail_bits(from + 3);
    unsigned const code_point = (byte_at(from) & 0x0F) << 18 | trail_1 << 12 | trail_2 << 6 | trail_3;
    if ((trail_1 | trail_2 | trail_3) > 0x3F || code_point < 0x10000 || code_point > 0x10FFFF) {
        return false;
    }
    to[0] = static_cast<char16_t>((code_point >> 10) + 0xD7C0);
    to[1] = static_cast<char16_t>((code_point & 0x3FF) + 0xDC00);
    return true;
}

/// Decodes up to the end, or to the first ill-formed piece where they are not replaced.
template <bool replacing>
conversion_progress decode(char16_t * destination, std::string_view source) {
    char const * from = source.data();
    char const * const end = from + source.size();
    char16_t * to = destination;
    // A run is worth its call at the beginning of a text and where a long one is possible.
    char const * const end_of_runs = source.size() >= 16 ? end - 15 : from + (source.size() >= 2 ? 1 : 0);
    auto const rest = [&] { return static_cast<std::size_t>(end - from); };
    while (from != end) {
        unsigned const lead = byte_at(from);
        if (lead < 0x80) {
            if (from < end_of_runs && byte_at(from + 1) < 0x80) {
                std::size_t const run = widen_ascii_run(to, from, rest());
                from += run;
                to += run;
                continue;
            }
            *to++ = static_cast<char16_t>(lead);
            ++from;
        } else if (lead < 0xE0 && decode_two(to, from, rest())) {
            from += 2;
            ++to;
        } else if (begins_three(from) && rest() > 12 && begins_three(from + 9) &&
                   decode_four_of_three(to, from)) {
            from += 12;
            to += 4;
        } else if (begins_three(from) && decode_three(to, from, rest())) {
            from += 3;
            ++to;
        } else if (lead >= 0xF0 && decode_four(to, from, rest())) {
            from += 4;
            to += 2;
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
