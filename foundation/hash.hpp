#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace fl {

namespace hash_detail {

// Odd numbers whose bits look random.
inline constexpr std::uint64_t multiplier_1 = 0x9E3779B97F4A7C15;
inline constexpr std::uint64_t multiplier_2 = 0xD6E8FEB86659FD93;

template <class Word>
std::uint64_t load(char const * from) {
    Word word;
    std::memcpy(&word, from, sizeof word);
    return word;
}

/// Multiplies to 128 bits and folds them, so that each bit of the factors reaches most of the result.
inline std::uint64_t mix(std::uint64_t a, std::uint64_t b) {
    __extension__ using wide = unsigned __int128;
    wide const product = static_cast<wide>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

} // namespace hash_detail

/// Returns a hash of a text, for tables in memory. Hashes of several texts are chained by the seed.
///
/// Short texts, as keys and names are, take one multiplication for each sixteen bytes.
inline std::uint64_t hash_text(std::string_view text, std::uint64_t seed = 0) {
    using namespace hash_detail;
    char const * p = text.data();
    std::size_t n = text.size();
    std::uint64_t h = (seed ^ n) + multiplier_1;
    for (; n > 16; p += 16, n -= 16) {
        h = mix(load<std::uint64_t>(p) ^ multiplier_2, load<std::uint64_t>(p + 8) ^ h);
    }
    // What is left, at most sixteen bytes, in two words that may overlap.
    std::uint64_t a = 0;
    std::uint64_t b = 0;
    if (n >= 8) {
        a = load<std::uint64_t>(p);
        b = load<std::uint64_t>(p + n - 8);
    } else if (n >= 4) {
        a = load<std::uint32_t>(p);
        b = load<std::uint32_t>(p + n - 4);
    } else if (n != 0) {
        a = load<std::uint8_t>(p) << 16 | load<std::uint8_t>(p + n / 2) << 8 | load<std::uint8_t>(p + n - 1);
    }
    return mix(mix(a ^ multiplier_2, b ^ h), multiplier_1);
}

/// Tells whether two texts are equal. For short keys, which a call of the C library would take longer for.
inline bool equal_text(std::string_view a, std::string_view b) {
    using namespace hash_detail;
    char const * const p = a.data();
    char const * const q = b.data();
    std::size_t const n = a.size();
    if (n != b.size()) {
        return false;
    }
    if (n >= 8) {
        // The last word may overlap the one before.
        for (std::size_t i = 0; i + 8 < n; i += 8) {
            if (load<std::uint64_t>(p + i) != load<std::uint64_t>(q + i)) {
                return false;
            }
        }
        return load<std::uint64_t>(p + n - 8) == load<std::uint64_t>(q + n - 8);
    }
    if (n >= 4) {
        return load<std::uint32_t>(p) == load<std::uint32_t>(q) &&
               load<std::uint32_t>(p + n - 4) == load<std::uint32_t>(q + n - 4);
    }
    return n == 0 || (*p == *q && p[n / 2] == q[n / 2] && p[n - 1] == q[n - 1]);
}

} // namespace fl
