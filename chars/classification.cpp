#include <array>
#include <cstdint>
#include <fl/i18n/ctype.hpp>
#include <unicode/uchar.h>

namespace fl::i18n::lcctype {

namespace {

enum ascii_property : std::uint16_t {
    letter = 0x001,
    digit = 0x002,
    control = 0x004,
    punctuation = 0x008,
    space = 0x010,
    hexadecimal_digit = 0x020,
    lower_case = 0x040,
    upper_case = 0x080,
    printable = 0x100,
    blank = 0x200,
};

struct property_range {
    ascii_property property;
    std::size_t first;
    std::size_t last;
};

// clang-format off
constexpr property_range property_ranges[] = {
    {letter, 0x41, 0x5A}, {letter, 0x61, 0x7A},
    {digit, 0x30, 0x39},
    {control, 0x00, 0x1F}, {control, 0x7F, 0x7F},
    {punctuation, 0x21, 0x2F}, {punctuation, 0x3A, 0x40},
    {punctuation, 0x5B, 0x60}, {punctuation, 0x7B, 0x7E},
    {space, 0x09, 0x0D}, {space, 0x20, 0x20},
    {hexadecimal_digit, 0x30, 0x39}, {hexadecimal_digit, 0x41, 0x46}, {hexadecimal_digit, 0x61, 0x66},
    {lower_case, 0x61, 0x7A},
    {upper_case, 0x41, 0x5A},
    {printable, 0x20, 0x7E},
    {blank, 0x09, 0x09}, {blank, 0x20, 0x20},
};
// clang-format on

constexpr std::array<std::uint16_t, 128> ascii_properties = [] {
    std::array<std::uint16_t, 128> table{};
    for (auto const & [property, first, last] : property_ranges) {
        for (std::size_t c = first; c <= last; ++c) {
            table[c] |= property;
        }
    }
    return table;
}();

int has_ascii_property(char32_t c, unsigned properties) {
    return c < ascii_properties.size() && (ascii_properties[c] & properties) != 0;
}

UChar32 icu(char32_t c) {
    return static_cast<UChar32>(c);
}

} // namespace

int isalpha(char32_t c) noexcept {
    return u_isalpha(icu(c)) != 0;
}

int isalnum(char32_t c) noexcept {
    return u_isalnum(icu(c)) != 0;
}

int isdigit(char32_t c) noexcept {
    return u_isdigit(icu(c)) != 0;
}

int isxdigit(char32_t c) noexcept {
    return u_isxdigit(icu(c)) != 0;
}

int islower(char32_t c) noexcept {
    return u_islower(icu(c)) != 0;
}

int isupper(char32_t c) noexcept {
    return u_isupper(icu(c)) != 0;
}

int iscntrl(char32_t c) noexcept {
    return u_iscntrl(icu(c)) != 0;
}

int isprint(char32_t c) noexcept {
    return u_isprint(icu(c)) != 0;
}

int ispunct(char32_t c) noexcept {
    return u_ispunct(icu(c)) != 0;
}

int isblank(char32_t c) noexcept {
    return u_isblank(icu(c)) != 0;
}

int isspace(char32_t c) noexcept {
    return u_isUWhiteSpace(icu(c)) != 0;
}

int isbreakable_space(char32_t c) noexcept {
    return u_isWhitespace(icu(c)) != 0;
}

int isgraph(char32_t c) noexcept {
    constexpr std::uint32_t visible = U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK | U_GC_P_MASK | U_GC_S_MASK;
    return (U_GET_GC_MASK(icu(c)) & visible) != 0;
}

int isalpha_ascii(char32_t c) noexcept {
    return has_ascii_property(c, letter);
}

int isdigit_ascii(char32_t c) noexcept {
    return has_ascii_property(c, digit);
}

int isalnum_ascii(char32_t c) noexcept {
    return has_ascii_property(c, letter | digit);
}

int isspace_ascii(char32_t c) noexcept {
    return has_ascii_property(c, space);
}

int islower_ascii(char32_t c) noexcept {
    return has_ascii_property(c, lower_case);
}

int isupper_ascii(char32_t c) noexcept {
    return has_ascii_property(c, upper_case);
}

int isblank_ascii(char32_t c) noexcept {
    return has_ascii_property(c, blank);
}

int isascii_character(char32_t c) noexcept {
    return c < ascii_properties.size();
}

char32_t tolower(char32_t c) noexcept {
    return static_cast<char32_t>(u_tolower(icu(c)));
}

char32_t toupper(char32_t c) noexcept {
    return static_cast<char32_t>(u_toupper(icu(c)));
}

} // namespace fl::i18n::lcctype
