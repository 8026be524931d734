#include <fl/i18n/ctype.hpp>
#include <gtest/gtest.h>
#include <set>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace fl::i18n {
namespace {

/// Calls a function with every code point and some values beyond; the function tells whether all is well.
template <class Function>
void expect_everywhere(Function agrees) {
    int mismatches = 0;
    auto const visit = [&](char32_t c) {
        if (!agrees(c) && ++mismatches <= 5) {
            ADD_FAILURE() << "U+" << std::hex << std::uint32_t(c);
        }
    };
    for (char32_t c = 0; c <= 0x110010; ++c) {
        visit(c);
    }
    for (char32_t const c : {0x7FFFFFFFu, 0x80000000u, 0x80000041u, 0xFFFFFFFFu}) {
        visit(c);
    }
    EXPECT_EQ(mismatches, 0);
}

UBool has_graphic_category(UChar32 c) {
    static std::set<int> const others = {U_UNASSIGNED,          U_SPACE_SEPARATOR, U_LINE_SEPARATOR,
                                         U_PARAGRAPH_SEPARATOR, U_CONTROL_CHAR,    U_FORMAT_CHAR,
                                         U_PRIVATE_USE_CHAR,    U_SURROGATE};
    return others.count(u_charType(c)) == 0;
}

TEST(Ctype, FollowsUnicodeProperties) {
    using namespace lcctype;
    struct property_row {
        char const * name;
        int (*function)(char32_t) noexcept;
        UBool (*expected)(UChar32);
    };
    for (property_row const & row : {
             property_row{"isalpha", &isalpha, &u_isalpha},
             property_row{"isalnum", &isalnum, &u_isalnum},
             property_row{"isdigit", &isdigit, &u_isdigit},
             property_row{"isxdigit", &isxdigit, &u_isxdigit},
             property_row{"islower", &islower, &u_islower},
             property_row{"isupper", &isupper, &u_isupper},
             property_row{"iscntrl", &iscntrl, &u_iscntrl},
             property_row{"isprint", &isprint, &u_isprint},
             property_row{"ispunct", &ispunct, &u_ispunct},
             property_row{"isblank", &isblank, &u_isblank},
             property_row{"isspace", &isspace, &u_isUWhiteSpace},
             property_row{"isbreakable_space", &isbreakable_space, &u_isWhitespace},
             property_row{"isgraph", &isgraph, &has_graphic_category},
         }) {
        SCOPED_TRACE(row.name);
        expect_everywhere([&](char32_t c) { return row.function(c) == int(row.expected(UChar32(c)) != 0); });
    }
}

TEST(Ctype, FollowsItsTableWithinAscii) {
    using namespace lcctype;
    std::u32string const upper = U"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    std::u32string const lower = U"abcdefghijklmnopqrstuvwxyz";
    std::u32string all(128, U'\0');
    for (char32_t c = 0; c < 128; ++c) {
        all[c] = c;
    }
    struct ascii_row {
        char const * name;
        int (*function)(char32_t) noexcept;
        std::u32string members;
    };
    for (ascii_row const & row : {
             ascii_row{"isalpha_ascii", &isalpha_ascii, upper + lower},
             ascii_row{"isdigit_ascii", &isdigit_ascii, U"0123456789"},
             ascii_row{"isalnum_ascii", &isalnum_ascii, upper + lower + U"0123456789"},
             ascii_row{"isspace_ascii", &isspace_ascii, U"\t\n\v\f\r "},
             ascii_row{"islower_ascii", &islower_ascii, lower},
             ascii_row{"isupper_ascii", &isupper_ascii, upper},
             ascii_row{"isblank_ascii", &isblank_ascii, U"\t "},
             ascii_row{"isascii_character", &isascii_character, all},
         }) {
        SCOPED_TRACE(row.name);
        expect_everywhere(
            [&](char32_t c) { return row.function(c) == int(row.members.find(c) != std::u32string::npos); });
    }
}

TEST(Ctype, MapsSingleCodePoints) {
    expect_everywhere([](char32_t c) {
        return lcctype::tolower(c) == char32_t(u_tolower(UChar32(c))) &&
               lcctype::toupper(c) == char32_t(u_toupper(UChar32(c)));
    });
    EXPECT_EQ(lcctype::toupper(U'\xDF'), U'\xDF');
}

TEST(Ctype, WritesAndReadsUtf16Units) {
    expect_everywhere([](char32_t c) {
        char16_t units[] = {u'#', u'#', u'#'};
        std::size_t const count = lcctype::make_uchar_from_utf32(c, units);
        bool const one_unit = c <= 0xFFFF;
        bool good = lcctype::is_valid_uchar(c) == one_unit && count == (one_unit ? 1u : 2u) &&
                    units[count] == u'#' &&
                    lcctype::is_valid_utf32(c) == (c <= 0x10FFFF && !U_IS_SURROGATE(c));
        if (one_unit) {
            good = good && units[0] == c;
        } else if (c <= 0x10FFFF) {
            good = good && units[0] == U16_LEAD(c) && units[1] == U16_TRAIL(c) &&
                   lcctype::make_utf32_from_uchar(units[0], units[1]) == c;
        }
        return good;
    });
    for (char16_t const * units : {u"AB", u"\xD83D\x42", u"A\xDE00", u"\xDE00\xD83D", u"\xD7FF\xDC00",
                                   u"\xDC00\xDC00", u"\xD800\xDBFF", u"\xD800\xE000"}) {
        EXPECT_EQ(lcctype::make_utf32_from_uchar(units[0], units[1]), U'\xFFFD') << std::uint32_t(units[0]);
    }
}

TEST(Ctype, ComparesWithoutCase) {
    using lcctype::strcasecmp;
    using lcctype::strncasecmp;
    EXPECT_EQ(strcasecmp(u"Stra\xDF"
                         u"e",
                         u"STRASSE"),
              0);
    EXPECT_EQ(strcasecmp(u"\x3A3", u"\x3C2"), 0);
    EXPECT_EQ(strcasecmp(u"I", u"i"), 0);
    EXPECT_NE(strcasecmp(u"I", u"\x131"), 0);
    EXPECT_LT(strcasecmp(u"a", u"B"), 0);
    EXPECT_LT(strcasecmp(u"\xD83D\xDE00", u"\xE000"), 0);
    EXPECT_EQ(strncasecmp(u"ABx", u"abY", 2), 0);
    EXPECT_EQ(strncasecmp(u"I\xDF", u"iSS", 3), 0);
    EXPECT_GT(strncasecmp(u"ABy", u"abX", 3), 0);
    EXPECT_EQ(strncasecmp(u"AB\0x", u"ab\0Y", 4), 0);
    EXPECT_EQ(strncasecmp(u"a", u"a", 0x7fffffff), 0);
    EXPECT_EQ(strncasecmp(u"a", u"a", 0x80000000), -1);
}

} // namespace
} // namespace fl::i18n
