#pragma once

#include <bit>
#include <cstddef>
#include <emmintrin.h>

namespace fl {

namespace find_detail {

/// Returns two bits for each of eight units, set for those that are one of two.
inline unsigned matches(char16_t const * at, __m128i all_a, __m128i all_b) {
    __m128i const block = _mm_loadu_si128(reinterpret_cast<__m128i const *>(at));
    return static_cast<unsigned>(
        _mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi16(block, all_a), _mm_cmpeq_epi16(block, all_b))));
}

} // namespace find_detail

/// Returns the first place in a text at which either of two UTF-16 units stands, or the text's end.
inline char16_t const * find_either(char16_t const * at, char16_t const * end, char16_t a, char16_t b) {
    using find_detail::matches;
    if (end - at < 8) {
        while (at != end && *at != a && *at != b) {
            ++at;
        }
        return at;
    }
    __m128i const all_a = _mm_set1_epi16(static_cast<short>(a));
    __m128i const all_b = _mm_set1_epi16(static_cast<short>(b));
    for (; end - at >= 16; at += 16) {
        if (unsigned const found = matches(at, all_a, all_b) | matches(at + 8, all_a, all_b) << 16) {
            return at + std::countr_zero(found) / 2;
        }
    }
    if (end - at >= 8) {
        if (unsigned const found = matches(at, all_a, all_b)) {
            return at + std::countr_zero(found) / 2;
        }
    }
    // The last block may overlap the one before, which holds neither.
    unsigned const found = matches(end - 8, all_a, all_b);
    return found ? end - 8 + std::countr_zero(found) / 2 : end;
}

} // namespace fl
