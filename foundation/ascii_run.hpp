#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <emmintrin.h>

/// The ASCII text that most texts begin with, sixteen units at a time.
///
/// The copying functions may overwrite the units of the destination that follow the run, up to `length`;
/// nothing beyond `length` is read or written.
namespace fl {

/// Tells whether a unit is a letter, digit, mark or the space of ASCII.
template <class Unit>
constexpr bool is_printable_ascii(Unit unit) {
    return unit >= 0x20 && unit < 0x7F; // a negative char is not ASCII
}

namespace ascii_detail {

/// Loads 16, 8 or 4 bytes; the others are 0.
template <std::size_t bytes>
__m128i load(void const * from) {
    if constexpr (bytes == 16) {
        return _mm_loadu_si128(static_cast<__m128i const *>(from));
    } else if constexpr (bytes == 8) {
        return _mm_loadl_epi64(static_cast<__m128i const *>(from));
    } else {
        int value;
        std::memcpy(&value, from, sizeof value);
        return _mm_cvtsi32_si128(value);
    }
}

/// Stores the first 16, 8 or 4 bytes.
template <std::size_t bytes>
void store(void * to, __m128i value) {
    if constexpr (bytes == 16) {
        _mm_storeu_si128(static_cast<__m128i *>(to), value);
    } else if constexpr (bytes == 8) {
        _mm_storel_epi64(static_cast<__m128i *>(to), value);
    } else {
        int const low = _mm_cvtsi128_si32(value);
        std::memcpy(to, &low, sizeof low);
    }
}

// The work on `count` units, 16, 8 or 4, from a position on; each returns one bit for each unit that ends the
// run.

template <bool printable, bool writes>
struct widen {
    char16_t * to;
    char const * from;
    template <std::size_t count>
    unsigned block(std::size_t at) const {
        __m128i const bytes = load<count>(from + at);
        __m128i const zero = _mm_setzero_si128();
        if constexpr (writes) {
            store<count == 16 ? 16 : 2 * count>(to + at, _mm_unpacklo_epi8(bytes, zero));
        }
        if constexpr (writes && count == 16) {
            store<16>(to + at + 8, _mm_unpackhi_epi8(bytes, zero));
        }
        __m128i const others = printable ? _mm_or_si128(_mm_cmplt_epi8(bytes, _mm_set1_epi8(0x20)),
                                                        _mm_cmpeq_epi8(bytes, _mm_set1_epi8(0x7F)))
                                         : bytes;
        return static_cast<unsigned>(_mm_movemask_epi8(others)) & ((1u << count) - 1);
    }
    bool unit(std::size_t at) const {
        auto const byte = static_cast<unsigned char>(from[at]);
        if constexpr (writes) {
            to[at] = byte;
        }
        return printable ? is_printable_ascii(byte) : byte < 0x80;
    }
};

template <bool printable, bool writes>
struct narrow {
    char * to;
    char16_t const * from;
    template <std::size_t count>
    unsigned block(std::size_t at) const {
        __m128i const zero = _mm_setzero_si128();
        constexpr std::size_t low_bytes = count == 16 ? 16 : 2 * count;
        __m128i const low = load<low_bytes>(from + at);
        __m128i const high = count == 16 ? load<16>(from + at + 8) : zero;
        if constexpr (writes) {
            store<count>(to + at, _mm_packus_epi16(low, high));
        }
        __m128i const ends =
            _mm_packs_epi16(_mm_cmpeq_epi16(beyond(low), zero), _mm_cmpeq_epi16(beyond(high), zero));
        return ~static_cast<unsigned>(_mm_movemask_epi8(ends)) & ((1u << count) - 1);
    }
    /// Makes 0 of the units that belong to a run.
    static __m128i beyond(__m128i units) {
        if constexpr (printable) {
            __m128i const from_first = _mm_sub_epi16(units, _mm_set1_epi16(0x20));
            return _mm_subs_epu16(from_first, _mm_set1_epi16(0x7E - 0x20));
        } else {
            return _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFF80)));
        }
    }
    bool unit(std::size_t at) const {
        if constexpr (writes) {
            to[at] = static_cast<char>(from[at]);
        }
        return printable ? is_printable_ascii(from[at]) : from[at] < 0x80;
    }
};

/// Works on a text shorter than two blocks of `count` units, which may overlap.
template <std::size_t count, class Work>
std::size_t two_blocks(Work work, std::size_t length) {
    if (unsigned const others = work.template block<count>(0)) {
        return static_cast<std::size_t>(std::countr_zero(others));
    }
    unsigned const others = work.template block<count>(length - count);
    return others ? length - count + static_cast<std::size_t>(std::countr_zero(others)) : length;
}

template <class Work>
std::size_t run(Work work, std::size_t length) {
    if (length >= 16) {
        std::size_t done = 0;
        for (; length - done >= 16; done += 16) {
            if (unsigned const others = work.template block<16>(done)) {
                return done + static_cast<std::size_t>(std::countr_zero(others));
            }
        }
        // The last block may overlap the one before, which is ASCII.
        unsigned const others = work.template block<16>(length - 16);
        return others ? length - 16 + static_cast<std::size_t>(std::countr_zero(others)) : length;
    }
    if (length >= 8) {
        return two_blocks<8>(work, length);
    }
    if (length >= 4) {
        return two_blocks<4>(work, length);
    }
    std::size_t done = 0;
    while (done != length && work.unit(done)) {
        ++done;
    }
    return done;
}

} // namespace ascii_detail

/// Copies the leading ASCII of a narrow text and returns its length.
inline std::size_t widen_ascii_run(char16_t * to, char const * from, std::size_t length) {
    return ascii_detail::run(ascii_detail::widen<false, true>{to, from}, length);
}

/// Copies the leading ASCII of a UTF-16 text and returns its length.
inline std::size_t narrow_ascii_run(char * to, char16_t const * from, std::size_t length) {
    return ascii_detail::run(ascii_detail::narrow<false, true>{to, from}, length);
}

/// Copies the leading printable ASCII of a narrow text and returns its length.
inline std::size_t widen_printable_run(char16_t * to, char const * from, std::size_t length) {
    return ascii_detail::run(ascii_detail::widen<true, true>{to, from}, length);
}

/// Copies the leading printable ASCII of a UTF-16 text and returns its length.
inline std::size_t narrow_printable_run(char * to, char16_t const * from, std::size_t length) {
    return ascii_detail::run(ascii_detail::narrow<true, true>{to, from}, length);
}

/// Returns the length of the leading ASCII of a narrow text.
inline std::size_t ascii_run_length(char const * text, std::size_t length) {
    return ascii_detail::run(ascii_detail::widen<false, false>{nullptr, text}, length);
}

/// Returns the length of the leading ASCII of a UTF-16 text.
inline std::size_t ascii_run_length(char16_t const * text, std::size_t length) {
    return ascii_detail::run(ascii_detail::narrow<false, false>{nullptr, text}, length);
}

} // namespace fl
