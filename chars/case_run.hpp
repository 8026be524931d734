#pragma once

#include "foundation/ascii.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <emmintrin.h>
#include <initializer_list>
#include <string_view>

/// Case mapping of the part of a text that needs no more than one unit at a time.
namespace fl::i18n::case_run {

enum class letter_case { lower, upper };

/// The languages with rules of their own. Turkic are Turkish and Azeri.
enum class rules { common, turkic, lithuanian, greek };

/// The units below this have an entry in the table.
inline constexpr char16_t table_end = 0x460;

/// The one letter of the table whose mapping is longer, two letters S, and yet no matter of its neighbours.
inline constexpr char16_t sharp_s = 0xDF;

/// Stands for a unit that is not mapped by itself: its mapping is longer, or hangs on its neighbours.
inline constexpr char16_t no_mapping = 0xFFFF;

using mapping_table = std::array<char16_t, table_end>;

/// Returns the mapping of ASCII and of the Latin letters up to U+017F, the Greek and the Cyrillic ones.
constexpr mapping_table make_table(letter_case to, rules rules) {
    mapping_table table{};
    table.fill(no_mapping);
    bool const upper = to == letter_case::upper;
    auto const leave = [&](std::initializer_list<char16_t> units) {
        for (char16_t const c : units) {
            table[c] = no_mapping;
        }
    };
    auto const keep = [&](std::initializer_list<char16_t> units) {
        for (char16_t const c : units) {
            table[c] = c;
        }
    };
    auto const pair = [&](char16_t capital, char16_t small) {
        table[capital] = upper ? capital : small;
        table[small] = upper ? capital : small;
    };
    auto const shifted = [&](char16_t first, char16_t last, char16_t distance) {
        for (char16_t c = first; c <= last; ++c) {
            pair(c, static_cast<char16_t>(c + distance));
        }
    };
    auto const alternating = [&](char16_t first, char16_t last) {
        for (char16_t c = first; c < last; c = static_cast<char16_t>(c + 2)) {
            pair(c, static_cast<char16_t>(c + 1));
        }
    };
    for (char16_t c = 0; c < 0xC0; ++c) {
        keep({c});
    }
    shifted(u'A', u'Z', 0x20);
    shifted(0xC0, 0xDE, 0x20);
    keep({0xD7, 0xF7, 0x138}); // the signs of multiplication and division, kra
    alternating(0x100, 0x12F);
    alternating(0x132, 0x137);
    alternating(0x139, 0x148);
    alternating(0x14A, 0x177);
    pair(0x178, 0xFF);
    alternating(0x179, 0x17E);
    pair(0x386, 0x3AC);
    shifted(0x388, 0x38A, 0x25);
    pair(0x38C, 0x3CC);
    shifted(0x38E, 0x38F, 0x3F);
    shifted(0x391, 0x3AB, 0x20);
    leave({0x3A2});
    shifted(0x400, 0x40F, 0x50);
    shifted(0x410, 0x42F, 0x20);
    if (upper) {
        table[0xB5] = 0x39C;  // micro sign
        table[0x131] = u'I';  // dotless i
        table[0x17F] = u'S';  // long s
        table[0x3C2] = 0x3A3; // final sigma
    } else {
        keep({sharp_s, 0x131, 0x149, 0x17F, 0x390, 0x3B0, 0x3C2});
        leave({0x3A3}); // a final sigma at the end of a word
    }
    if (rules == rules::turkic) {
        if (upper) {
            table[u'i'] = 0x130;
        } else {
            table[u'I'] = 0x131;
            table[0x130] = u'i';
        }
    } else if (rules == rules::lithuanian && !upper) {
        leave({0xCC, 0xCD, 0x128}); // with a dot above
    } else if (rules == rules::greek && upper) {
        for (char16_t c = 0x370; c < 0x400; ++c) {
            leave({c});
        }
    }
    return table;
}

/// Tells whether a unit is of a script, or a sort of punctuation, without case.
constexpr bool is_caseless(char16_t unit) {
    auto const is_between = [unit](char16_t first, char16_t last) {
        return static_cast<char16_t>(unit - first) <= last - first;
    };
    return is_between(0x2E80, 0x9FFF) || is_between(0xAC00, 0xD7A3) || is_between(0x2000, 0x206F);
}

/// Maps some blocks of eight ASCII units; false, and nothing is written, when not all are ASCII.
template <letter_case To, std::size_t Blocks>
bool map_ascii(char16_t * dst, char16_t const * src) {
    // The letters, moved to the upper end of the numbers.
    constexpr short last = To == letter_case::upper ? 'z' : 'Z';
    constexpr short end = 0x7FFF;
    __m128i units[Blocks];
    __m128i all = _mm_setzero_si128();
    for (std::size_t i = 0; i < Blocks; ++i) {
        units[i] = _mm_loadu_si128(reinterpret_cast<__m128i const *>(src) + i);
        all = _mm_or_si128(all, units[i]);
    }
    __m128i const beyond_ascii = _mm_and_si128(all, _mm_set1_epi16(short(~0x7F)));
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(beyond_ascii, _mm_setzero_si128())) != 0xFFFF) {
        return false;
    }
    for (std::size_t i = 0; i < Blocks; ++i) {
        __m128i const moved = _mm_add_epi16(units[i], _mm_set1_epi16(end - last));
        __m128i const letters = _mm_cmpgt_epi16(moved, _mm_set1_epi16(end - 26));
        __m128i const mapped = _mm_xor_si128(units[i], _mm_and_si128(letters, _mm_set1_epi16('a' - 'A')));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(dst) + i, mapped);
    }
    return true;
}

/// How far a text is mapped.
struct progress {
    std::size_t read;
    std::size_t written;
};

/// Maps the units at the start of a text that are mapped one by one, as far as the buffer has room.
template <letter_case To>
progress map(char16_t * dst, std::size_t room, std::u16string_view text, rules language) {
    // In the order of the rules.
    static constexpr mapping_table tables[] = {make_table(To, rules::common), make_table(To, rules::turkic),
                                               make_table(To, rules::lithuanian),
                                               make_table(To, rules::greek)};
    mapping_table const & table = tables[static_cast<std::size_t>(language)];
    bool const plain_ascii = To == letter_case::upper ? table[u'i'] == u'I' : table[u'I'] == u'i';
    std::size_t i = 0;
    while (plain_ascii && std::min(text.size(), room) - i >= 32 &&
           map_ascii<To, 4>(dst + i, text.data() + i)) {
        i += 32;
    }
    std::size_t written = i;
    while (i < text.size()) {
        // The last block may begin in what is mapped already.
        std::size_t const rest = text.size() - i;
        std::size_t const back = rest < 8 ? 8 - rest : 0;
        if (plain_ascii && back <= i && room - written + back >= 8 &&
            map_ascii<To, 1>(dst + written - back, text.data() + i - back)) {
            i += 8 - back;
            written += 8 - back;
            continue;
        }
        for (std::size_t const end = i + std::min<std::size_t>(rest, 8); i < end; ++i) {
            char16_t const unit = text[i];
            char16_t const mapped = unit < table_end ? table[unit] : is_caseless(unit) ? unit : no_mapping;
            if (mapped != no_mapping && written < room) {
                dst[written++] = mapped;
            } else if (To == letter_case::upper && unit == sharp_s && room - written >= 2) {
                dst[written++] = u'S';
                dst[written++] = u'S';
            } else {
                return {i, written};
            }
        }
    }
    return {i, written};
}

} // namespace fl::i18n::case_run
