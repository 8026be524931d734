#include "tests/conversion/classic_locale.hpp"

#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <limits>

namespace fl::i18n {
namespace {

// A slow reference, written from the definitions of the three encoding forms.

void append_utf16(ustring & text, char32_t c) {
    if (c > 0xFFFF) {
        text += static_cast<char16_t>(0xD800 + (c - 0x10000) / 1024);
        text += static_cast<char16_t>(0xDC00 + (c - 0x10000) % 1024);
    } else {
        text += static_cast<char16_t>(c);
    }
}

void append_utf8(std::string & text, char32_t c) {
    if (c < 0x80) {
        text += static_cast<char>(c);
        return;
    }
    int const trailing = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    static constexpr unsigned lead_marks[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(lead_marks[trailing] + (c >> (6 * trailing)));
    for (int i = trailing - 1; i >= 0; --i) {
        text += static_cast<char>(0x80 + ((c >> (6 * i)) % 64));
    }
}

TEST(UnicodeForms, AgreeOnAllCodePoints) {
    std::u32string utf32;
    ustring utf16;
    std::string utf8;
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c < 0xD800 || c > 0xDFFF) {
            utf32 += c;
            append_utf16(utf16, c);
            append_utf8(utf8, c);
        }
    }
    EXPECT_TRUE(to_u32string(utf16) == utf32);
    EXPECT_TRUE(to_ustring(utf32) == utf16);
    EXPECT_TRUE(ustring_to_utf8(utf16) == utf8);
    EXPECT_TRUE(utf8_to_ustring(utf8) == utf16);
}

TEST(UnicodeForms, ReplaceLoneSurrogates) {
    for (unsigned unit = 0xD800; unit <= 0xDFFF; ++unit) {
        SCOPED_TRACE(unit);
        auto const lone = static_cast<char16_t>(unit);
        for (ustring const & text :
             {ustring{lone}, ustring{lone, u'A'}, ustring{u'A', lone}, ustring{lone, lone}}) {
            std::u32string utf32;
            std::string utf8;
            for (char16_t const c : text) {
                utf32 += c == lone ? U'\xFFFD' : char32_t(c);
                utf8 += c == lone ? "\xEF\xBF\xBD" : "A";
            }
            ASSERT_EQ(to_u32string(text), utf32);
            ASSERT_EQ(ustring_to_utf8(text), utf8);
        }
    }
    EXPECT_EQ(to_u32string(u"\xD83D\xD83D\xDE00\xDE00"), U"\xFFFD\U0001F600\xFFFD");
}

TEST(UnicodeForms, DoNotCheckUtf32) {
    struct row {
        char32_t value;
        ustring units;
    };
    for (row const & r :
         {row{0xDFFF, {0xDFFF}}, row{0x110000, {0xDC00, 0xDC00}}, row{0xFFFFFFFF, {0xD7BF, 0xDFFF}}}) {
        EXPECT_EQ(to_ustring(std::u32string(1, r.value)), r.units) << std::hex << std::uint32_t(r.value);
    }
}

TEST(Utf8, ReplacesIllFormedPieces) {
    struct row {
        char const * name;
        std::string bytes;
        ustring text;
    };
    for (row const & r : {
             row{"overlong", "\xC0\xAF", u"\xFFFD\xFFFD"},
             row{"encoded surrogate", "\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},
             row{"truncated at the end", "a\xE2\x82", u"a\xFFFD"},
             row{"truncated within", "\xF0\x9F\x98z", u"\xFFFDz"},
             row{"above the last code point", "\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
             row{"stray trail byte", "a\x80z", u"a\xFFFDz"},
             row{"embedded NUL", std::string("a\0\xC3\xA9", 4), ustring(u"a\0\xE9", 3)},
         }) {
        EXPECT_EQ(utf8_to_ustring(r.bytes), r.text) << r.name;
    }
}

TEST(Utf8, TakesEveryFormOfSource) {
    char16_t const * const text = u"\x20AC!";
    EXPECT_EQ(ustring_to_utf8(text), "\xE2\x82\xAC!");
    EXPECT_EQ(ustring_to_utf8(text, 1), "\xE2\x82\xAC");
    EXPECT_EQ(ustring_to_utf8(std::u16string_view(text)), "\xE2\x82\xAC!");
    EXPECT_EQ(utf8_to_ustring("\xE2\x82\xAC!"), text);
}

TEST(Utf8, ConvertsTextsAroundTheBufferSizes) {
    for (std::size_t const length :
         {1u, 341u, 342u, 1023u, 1024u, 1025u, 10922u, 10923u, 32767u, 32768u, 32769u, 100000u}) {
        ustring const text(length, u'\x20AC');
        std::string bytes;
        for (std::size_t i = 0; i < length; ++i) {
            bytes += "\xE2\x82\xAC";
        }
        EXPECT_TRUE(ustring_to_utf8(text) == bytes) << length;
        EXPECT_TRUE(utf8_to_ustring(bytes) == text) << length;
    }
}

TEST(Utf8, ConvertsCharactersAtTheEndsOfPieces) {
    for (std::size_t before = 1015; before <= 1024; ++before) {
        for (std::string const end : {"\xF0\x9F\x98\x80\x80", "\xE6\x97\xA5\xA5", "\xC3\xA9\xA9\xF0\x9F\x98z",
                                      "\x80\x80\x80\x80\x80\x80\x80\x80", "\xF0\x9F\x98\xF0\x9F\x98\x80"}) {
            EXPECT_TRUE(utf8_to_ustring(std::string(before, 'a') + end + "bc") ==
                        ustring(before, u'a') + utf8_to_ustring(end + "bc"))
                << before << " " << end;
        }
        for (ustring const end :
             {u"\xD83D\xDE00z", u"\xD83D\xD83D\xDE00", u"\xDE00\xDE00\xD83D\xDE00\xDE00"}) {
            EXPECT_TRUE(ustring_to_utf8(ustring(before, u'a') + end) ==
                        std::string(before, 'a') + ustring_to_utf8(end))
                << before << " " << ustring_to_utf8(end);
        }
    }
}

TEST(Utf8, TakesNoRoomForWhatALongTextOnlyBeginsWith) {
    std::size_t const length = 5'000'000;
    auto const bytes = ustring_to_utf8(ustring(2000, u'\x65E5').append(length, u'a'));
    EXPECT_EQ(bytes.size(), 6000 + length);
    EXPECT_LE(bytes.capacity(), 2 * bytes.size());
}

TEST(Wide, CopiesUnitForUnit) {
    ustring const text(u"a\0\xD800\xDE00\xFFFF", 5);
    std::wstring const wide(text.begin(), text.end());
    EXPECT_EQ(to_wstring(text), wide);
    EXPECT_EQ(to_ustring(wide), text);
    EXPECT_EQ(to_ustring(wide.c_str()), u"a");
}

TEST(EmptySources, GiveEmptyResults) {
    codecvt_ascii_to_ustring const from_ascii(false);
    codecvt_ustring_to_ascii const to_ascii(false);
    EXPECT_EQ(to_ustring(std::string()), u"");
    EXPECT_EQ(to_ustring(static_cast<char const *>(nullptr)), u"");
    EXPECT_EQ(to_ustring(""), u"");
    EXPECT_EQ(to_ustring(std::string(), from_ascii), u"");
    EXPECT_EQ(to_ustring(static_cast<char const *>(nullptr), from_ascii), u"");
    EXPECT_EQ(to_ustring(static_cast<char32_t const *>(nullptr)), u"");
    EXPECT_EQ(to_ustring(static_cast<wchar_t const *>(nullptr)), u"");
    EXPECT_EQ(to_string(ustring()), "");
    EXPECT_EQ(to_string(ustring(), to_ascii), "");
    EXPECT_EQ(to_u32string(static_cast<char16_t const *>(nullptr)), U"");
    EXPECT_EQ(to_wstring(ustring()), L"");
    EXPECT_EQ(ustring_to_utf8(static_cast<char16_t const *>(nullptr)), "");
    EXPECT_EQ(ustring_to_utf8(static_cast<char16_t const *>(nullptr), 5), "");
    EXPECT_EQ(ustring_to_utf8(std::u16string_view()), "");
    EXPECT_EQ(utf8_to_ustring(static_cast<char const *>(nullptr)), u"");
}

using ProcessEncoding = ClassicLocale;

TEST_F(ProcessEncoding, IsThatOfTheGlobalLocale) {
    ASSERT_EQ(QzLocale::global().getEncoding(), "UTF-8");
    EXPECT_EQ(to_ustring(std::string("a\0\xC3\xA9", 4)), ustring(u"a\0\xE9", 3));
    EXPECT_EQ(to_ustring("\xE2\x82\xAC"), u"\x20AC");
    EXPECT_EQ(to_ustring("abc\xE9"), u"abc\xFFFD");
    EXPECT_EQ(to_string(u"\xE9\xD83D\xDE00"), "\xC3\xA9\xF0\x9F\x98\x80");
    EXPECT_EQ(to_string(u"\xD800z"), "\xEF\xBF\xBDz");
    ustring const long_text(40000, u'\xE9');
    EXPECT_TRUE(to_ustring(to_string(long_text)) == long_text);
}

TEST(ConverterOverloads, UseTheConverter) {
    EXPECT_EQ(to_ustring("\xA4", codecvt_string_to_ustring("ISO-8859-15", false)), u"\x20AC");
    EXPECT_EQ(to_ustring(std::string("a\0b", 3), codecvt_ascii_to_ustring(false)), ustring(u"a\0b", 3));
    EXPECT_EQ(to_string(u"\x20AC", codecvt_ustring_to_string("ISO-8859-15", false)), "\xA4");
    EXPECT_THROW(to_string(u"\x20AC", codecvt_ustring_to_ascii(false)), CvtInvalidCharacter);
}

TEST(Comparison, OrdersUnits) {
    struct row {
        char16_t const * a;
        char16_t const * b;
        std::size_t n;
        int sign;
        int sign_of_n;
    };
    auto const sign = [](int value) { return (value > 0) - (value < 0); };
    for (row const & r : {
             row{u"abc", u"abd", 2, -1, 0},
             row{u"abc", u"abd", 3, -1, -1},
             row{u"ab", u"abc", 9, -1, -1},
             row{u"b", u"a", 0, 1, 0},
             row{u"\xD83D\xDE00", u"\xE000", 1, -1, -1},
             row{u"x", u"x", 0x7fffffff, 0, 0},
             row{u"y", u"x", 0x80000000, 1, -1},
             row{u"x", u"x", std::numeric_limits<std::size_t>::max(), 0, -1},
         }) {
        EXPECT_EQ(sign(strcmp(r.a, r.b)), r.sign) << ustring_to_utf8(r.a) << " " << ustring_to_utf8(r.b);
        EXPECT_EQ(sign(strncmp(r.a, r.b, r.n)), r.sign_of_n) << ustring_to_utf8(r.a) << " " << r.n;
    }
    EXPECT_EQ(strncmp(nullptr, nullptr, 0x80000000), -1);
}

TEST(LimitedLength, StopsAtTheLimit) {
    char16_t const unterminated[] = {u'a', u'b', u'c'};
    EXPECT_EQ(strlen_lim(unterminated, 3), 3u);
    EXPECT_EQ(strlen_lim(u"ab", 9), 2u);
    EXPECT_EQ(strlen_lim(nullptr, 0), 0u);
}

} // namespace
} // namespace fl::i18n
