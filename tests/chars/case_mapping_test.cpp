#include <algorithm>
#include <cstdlib>
#include <fl/i18n/ctype.hpp>
#include <gtest/gtest.h>
#include <random>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

namespace fl::i18n {
namespace {

struct locale_row {
    char const * name;
    char const * language; ///< what the conversion library is to make of the name
};
constexpr locale_row locales[] = {
    {"", ""},        {"en_US_POSIX", "en"}, {"de_DE", "de"},    {"nl", "nl"},    {"hy_AM", "hy"},
    {"ja", "ja"},    {"tr", "tr"},          {"tr.UTF-8", "tr"}, {"TUR", "tr"},   {"az-Latn", "az"},
    {"aze@x", "az"}, {"lt_LT@x", "lt"},     {"lit", "lt"},      {"el_GR", "el"}, {"ell.x", "el"},
    {"tum", "tum"},  {"turk", "turk"},      {"e", "e"},
};

ustring mapped_by_icu(ustring const & text, decltype(&u_strToUpper) mapping, char const * language) {
    ustring result(3 * text.size() + 1, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    result.resize(std::size_t(mapping(result.data(), std::int32_t(result.size()), text.data(),
                                      std::int32_t(text.size()), language, &status)));
    EXPECT_LE(status, U_ZERO_ERROR);
    return result;
}

ustring composed_by_icu(ustring const & text) {
    ustring result(3 * text.size() + 1, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    result.resize(
        std::size_t(unorm2_normalize(unorm2_getNFCInstance(&status), text.data(), std::int32_t(text.size()),
                                     result.data(), std::int32_t(result.size()), &status)));
    return result;
}

/// Maps the text at an odd or even place in memory into one with exactly the room, then with less.
template <class Mode>
void expect_mapping(ustring const & text, ustring const & expected, Mode const & mode, std::size_t offset) {
    constexpr char16_t canary = u'\xFFFE';
    ustring const source = ustring(offset % 9, u'x') + text;
    ustring target(offset % 7 + expected.size() + 8, canary);
    for (std::size_t const room : {expected.size(), expected.size() + 1, offset % (expected.size() + 1),
                                   std::min(text.size(), expected.size())}) {
        std::size_t const begin = offset % 7;
        target.assign(target.size(), canary);
        ASSERT_EQ(
            detail::transform(target.data() + begin, room, source.data() + offset % 9, text.size(), mode),
            expected.size());
        if (room >= expected.size()) {
            ASSERT_EQ(target.substr(begin, expected.size()), expected);
        }
        if (room > expected.size() && !text.empty()) {
            ASSERT_EQ(target[begin + expected.size()], u'\0');
        }
        ASSERT_EQ(target.substr(begin + room), ustring(target.size() - begin - room, canary));
    }
    ASSERT_EQ(detail::transform(nullptr, 0, text.data(), text.size(), mode), expected.size());
    ASSERT_EQ(transform(text, mode), expected);
}

void expect_mappings(ustring const & text, locale_row const & row, QzLocale const & locale,
                     std::size_t offset) {
    ustring const upper = mapped_by_icu(text, &u_strToUpper, row.language);
    ustring const lower = mapped_by_icu(text, &u_strToLower, row.language);
    ASSERT_NO_FATAL_FAILURE(expect_mapping(text, upper, to_upper_locale(locale), offset));
    ASSERT_NO_FATAL_FAILURE(expect_mapping(text, lower, to_lower_locale(locale), offset));
    ASSERT_EQ(transform(text, to_upper_locale(locale), normalization_form::compose), composed_by_icu(upper));
}

/// Strings together what the rules of languages are about, between runs of plain text.
ustring random_text(std::mt19937 & random) {
    static std::u16string_view const pieces[] = {
        u"i",
        u"I",
        u"j",
        u"J",
        u"\x307",
        u"\x300",
        u"\x301",
        u"\x323",
        u"\x130",
        u"\x131",
        u"\x12E",
        u"\x12F",
        u"\xCC",
        u"\x128",
        u"\xDF",
        u"\x1E9E",
        u"\x149",
        u"\x133",
        u"\xFB01",
        u"\x1C6",
        u"\xB5",
        u"\xFF",
        u"\xA3",
        u"\x3A3",
        u"\x3C3",
        u"\x3C2",
        u"\x386",
        u"\x397",
        u"\x389",
        u"\x3AE",
        u"\x3B9\x308\x301",
        u"\x390",
        u"\x3CB",
        u"\x1F80",
        u"\x345",
        u"\x587",
        u"\x10D0",
        u"\xD800",
        u"\xDC00",
        u"\xD801\xDC28",
        u"\xD83D\xDE00",
        u"'",
        u".",
        u":",
        u"^",
        u"`",
        u"\xAD",
        u"\xB7",
        u"\x2019",
        u"\x2060",
        u" ",
        u"-",
        u"A",
        u"z",
        u"0",
        u"\x416",
        u"\x451",
        u"\x460",
        u"\x65E5\x672C",
        u"\x30FC",
        u"\x302A",
        u"\x3099",
        u"\xD55C",
        u"\xFF41",
        u"\x212A",
        u"\x10A0",
        u"\xA64A",
    };
    static std::u16string_view const runs[] = {
        u"The Quick {Brown} Fox@[`~ Jumps Over IT", u"\xE9t\xE9 \x15BWIT \xD7\xF7\x138 \x178",
        u"\x3B1\x3A9\x3AC \x416\x451\x402 abc", u"\x65E5\x672C\x8A9E \x3042\x3001 Abc ",
        u"''..::^^``''..::^^``"};
    ustring text;
    for (std::size_t parts = random() % 4; parts != std::size_t(-1); --parts) {
        std::u16string_view const run = runs[random() % std::size(runs)];
        text += run.substr(random() % 9, random() % 40);
        for (std::size_t n = random() % 5; n != 0; --n) {
            text += pieces[random() % std::size(pieces)];
        }
    }
    return text;
}

TEST(CaseMapping, IsThatOfTheConversionLibraryForRandomTexts) {
    char const * const rounds = std::getenv("FL_I18N_TEST_ROUNDS");
    unsigned const seed = 20251121;
    std::mt19937 random(seed);
    for (locale_row const & row : locales) {
        auto const locale = QzLocale::createLocale(row.name);
        for (int i = rounds ? std::atoi(rounds) : 1000; i > 0; --i) {
            ustring const text = random_text(random);
            SCOPED_TRACE(testing::Message()
                         << row.name << ", seed " << seed << ", text " << testing::PrintToString(text));
            ASSERT_NO_FATAL_FAILURE(expect_mappings(text, row, *locale, random()));
        }
    }
}

TEST(CaseMapping, TakesABufferOverItsSource) {
    auto const locale = QzLocale::createLocale("de");
    ustring const text = u"The Gru\xDF of Some Length, and More of It Behind \x149 the End";
    std::size_t const place = text.size();
    ustring const expected = transform(text, to_upper_locale(*locale));
    for (std::size_t begin = 0; begin < 2 * place; ++begin) {
        ustring memory(4 * place, u'.');
        text.copy(memory.data() + place, text.size(), 0);
        ASSERT_EQ(detail::transform(memory.data() + begin, expected.size(), memory.data() + place,
                                    text.size(), to_upper_locale(*locale)),
                  expected.size());
        ASSERT_EQ(memory.substr(begin, expected.size()), expected) << begin;
    }
}

TEST(CaseMapping, IsThatOfTheConversionLibraryForEachUnit) {
    for (locale_row const & row : locales) {
        auto const locale = QzLocale::createLocale(row.name);
        for (char32_t unit = 0; unit < 0x10000; unit += unit < 0x600 ? 1 : 37) {
            SCOPED_TRACE(testing::Message() << row.name << ", unit " << std::uint32_t(unit));
            ASSERT_NO_FATAL_FAILURE(expect_mappings(ustring(1, char16_t(unit)) + u"a", row, *locale, 0));
        }
    }
}

TEST(CaseMapping, LooksBackFromWhereTheConversionLibraryTakesOver) {
    struct row {
        char const * name;
        char const * locale;
        ustring text, lower, upper;
    };
    for (row const & row : {
             row{"SigmaBehindLetter", "en", u"ABCDEFGHI\x3A3", u"abcdefghi\x3C2", u"ABCDEFGHI\x3A3"},
             row{"SigmaBehindSpace", "en", u"ABCDEFGHI \x3A3", u"abcdefghi \x3C3", u"ABCDEFGHI \x3A3"},
             row{"SigmaBehindIgnorable", "en", u"abcdefgh'.:^`\x2019\x3A3", u"abcdefgh'.:^`\x2019\x3C2",
                 u"ABCDEFGH'.:^`\x2019\x3A3"},
             row{"LithuanianDot", "lt", u"abcdefghi\x307", u"abcdefghi\x307", u"ABCDEFGHI"},
             row{"TurkishDot", "tr", u"abcdefghI\x307I", u"abcdefghi\x131", u"ABCDEFGHI\x307I"},
             row{"GreekEtaBehindLetter", "el", u"abcdefgh\x3AE ", u"abcdefgh\x3AE ", u"ABCDEFGH\x397 "},
             row{"GreekEtaAlone", "el", u"abcdefg \x3AE ", u"abcdefg \x3AE ", u"ABCDEFG \x389 "},
         }) {
        SCOPED_TRACE(row.name);
        auto const locale = QzLocale::createLocale(row.locale);
        EXPECT_EQ(transform(row.text, to_lower_locale(*locale)), row.lower);
        EXPECT_EQ(transform(row.text, to_upper_locale(*locale)), row.upper);
    }
}

} // namespace
} // namespace fl::i18n
