#pragma once

#include <bit>
#include <emmintrin.h>

namespace fl {

/// Returns the first place in a text at which either of two UTF-16 units stands, or the text's end.
inline char16_t const * find_either(char16_t const * at, char16_t const * end, char16_t a, char16_t b) {
    __m128i const all_a = _mm_set1_epi16(static_cast<short>(a));
    __m128i const all_b = _mm_set1_epi16(static_cast<short>(b));
    for (; end - at >= 8; at += 8) {
        __m128i const block = _mm_loadu_si128(reinterpret_cast<__m128i const *>(at));
        __m128i const found = _mm_or_si128(_mm_cmpeq_epi16(block, all_a), _mm_cmpeq_epi16(block, all_b));
        if (auto const bytes = static_cast<unsigned>(_mm_movemask_epi8(found))) {
            return at + std::countr_zero(bytes) / 2;
        }
    }
    while (at != end && *at != a && *at != b) {
        ++at;
    }
    return at;
}

} // namespace fl
