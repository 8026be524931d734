#include <fl/i18n/ctype.hpp>
#include <gtest/gtest.h>
#include <random>
#include <unicode/unorm2.h>
#include <unicode/utf16.h>

namespace fl::i18n {
namespace {

template <class... Modes>
void expect_transform(ustring const & text, ustring const & expected, Modes const &... modes) {
    constexpr char16_t canary = u'#';
    std::size_t const length = expected.size();
    EXPECT_EQ(detail::transform(nullptr, 99, text.data(), text.size(), modes...), length);
    for (std::size_t const room : {length - 1, length}) {
        ustring buffer(length + 1, canary);
        EXPECT_EQ(detail::transform(buffer.data(), room, text.data(), text.size(), modes...), length);
        EXPECT_EQ(buffer.substr(room), ustring(length + 1 - room, canary));
        if (room == length) {
            EXPECT_EQ(buffer.substr(0, length), expected);
        }
    }
    EXPECT_EQ(transform(text, modes...), expected);
}

TEST(Transform, MapsCaseByTheRulesOfALocale) {
    struct case_row {
        char const * name;
        char const * locale;
        ustring text, lower, upper;
    };
    for (case_row const & row : {
             case_row{"English", "en_US", u"I\x131\x130i", u"i\x131i\x307i", u"II\x130I"},
             case_row{"Turkish", "tr_TR", u"I\x131\x130i", u"\x131\x131ii", u"II\x130\x130"},
             case_row{"TurkishWithEncoding", "tr.UTF-8", u"Ii", u"\x131i", u"I\x130"},
             case_row{"TurkishWithModifier", "tr@euro", u"Ii", u"\x131i", u"I\x130"},
             case_row{"Azeri", "az_AZ", u"I\x307\x49", u"i\x131", u"I\x307I"},
             case_row{"Lithuanian", "lt_LT", u"\xCCi\x307", u"i\x307\x300i\x307", u"\xCCI"},
             case_row{"Greek", "el_GR", u"\x386\x3BD\x3BF\x3A3", u"\x3AC\x3BD\x3BF\x3C2",
                      u"\x391\x39D\x39F\x3A3"},
             case_row{"German", "de_DE", u"Gro\xDF\x1E9E", u"gro\xDF\xDF", u"GROSS\x1E9E"},
             case_row{"Dutch", "nl_NL", u"\x133sIJ", u"\x133sij", u"\x132SIJ"},
             case_row{"Astral", "en_US_POSIX", u"\xD801\xDC00\xD801\xDC28", u"\xD801\xDC28\xD801\xDC28",
                      u"\xD801\xDC00\xD801\xDC00"},
             case_row{"LoneSurrogate", "en_US", u"a\xD801", u"a\xD801", u"A\xD801"},
         }) {
        SCOPED_TRACE(row.name);
        auto const locale = QzLocale::createLocale("fr", {{QzLocale::LcCategory::ctype, row.locale}});
        expect_transform(row.text, row.lower, to_lower_locale(*locale));
        expect_transform(row.text, row.upper, to_upper_locale(*locale));
    }
}

TEST(Transform, Normalizes) {
    struct form_row {
        char const * name;
        ustring text, composed, decomposed;
    };
    for (form_row const & row : {
             form_row{"Angstrom", u"\x212B", u"\xC5", u"A\x30A"},
             form_row{"Hangul", u"\x1100\x1161\x11A8", u"\xAC01", u"\x1100\x1161\x11A8"},
             form_row{"OrderOfMarks", u"a\x301\x323", u"\x1EA1\x301", u"a\x323\x301"},
             form_row{"LoneSurrogate", u"\xDC00\xE9", u"\xDC00\xE9",
                      u"\xDC00"
                      u"e\x301"},
         }) {
        SCOPED_TRACE(row.name);
        expect_transform(row.text, row.composed, normalization_form::compose);
        expect_transform(row.text, row.decomposed, normalization_form::decompose);
    }
}

TEST(Transform, NormalizesLongRunsOfMarks) {
    // The conversion library alone would take minutes for the longest.
    ustring const marks = u"\x301\x323\xF73\x344\xD834\xDD65\xD834\xDD6D\x307\x1D16\x340";
    std::mt19937 random(20240229);
    for (std::size_t const length : {100u, 127u, 128u, 129u, 130u, 300u, 1000u}) {
        SCOPED_TRACE(length);
        ustring text = u"\xE9";
        while (text.size() < length) {
            std::size_t const at = random() % marks.size();
            text += marks.substr(at, U16_IS_LEAD(marks[at]) ? 2 : 1);
        }
        text += u"\x323z\xD800";
        text += text;
        UErrorCode status = U_ZERO_ERROR;
        ustring expected(20 * text.size(), u'\0');
        expected.resize(std::size_t(unorm2_normalize(unorm2_getNFDInstance(&status), text.data(),
                                                     std::int32_t(text.size()), expected.data(),
                                                     std::int32_t(expected.size()), &status)));
        expect_transform(text, expected, normalization_form::decompose);
        EXPECT_EQ(transform(expected, normalization_form::compose),
                  transform(text, normalization_form::compose));
    }
    ustring const hostile = u"a" + ustring(1'000'000, u'\x301') + ustring(1'000'000, u'\x323');
    ustring const ordered = u"a" + ustring(1'000'000, u'\x323') + ustring(1'000'000, u'\x301');
    EXPECT_EQ(transform(hostile, normalization_form::decompose), ordered);
    EXPECT_EQ(detail::compare(hostile, ordered, character_handling_mode_context::normalized_compose_mode), 0);
}

TEST(Transform, MapsCaseBeforeItNormalizes) {
    auto const turkish = QzLocale::createLocale("tr");
    expect_transform(u"i\x323", u"\x1ECA\x307", to_upper_locale(*turkish), normalization_form::compose);
    expect_transform(u"i\x323", u"I\x323\x307", to_upper_locale(*turkish), normalization_form::decompose);
    expect_transform(u"\x130\x49", u"i\x131", to_lower_locale(*turkish), normalization_form::compose);
    expect_transform(u"\xC9I", u"e\x301\x131", to_lower_locale(*turkish), normalization_form::decompose);
}

TEST(Transform, TakesTheGlobalLocaleOfTheMoment) {
    QzLocale const & before = QzLocale::global();
    change_global_locale(*QzLocale::createLocale("tr"));
    to_lower_locale const lower;
    to_upper_locale const upper;
    character_handling_mode_context const mode(character_handling_mode_context::case_insensitive_mode |
                                               character_handling_mode_context::locale_mode);
    change_global_locale(before);
    EXPECT_EQ(transform(u"I", lower), u"\x131");
    EXPECT_EQ(transform(u"i", upper), u"\x130");
    EXPECT_EQ(detail::compare(u"I", u"\x131", mode), 0);
}

template <class... Modes>
void expect_limits(Modes const &... modes) {
    char16_t units[] = u"#"; // a result is ended with a zero where there is room
    EXPECT_EQ(detail::transform(units, 1, nullptr, 0x80000000, modes...), 0u);
    EXPECT_EQ(detail::transform(units, 1, u"x", 0, modes...), 0u);
    EXPECT_EQ(units[0], u'#');
    EXPECT_THROW(detail::transform(units, 1, u"x", 0x80000000, modes...), CtypeSizeTooLarge);
    EXPECT_EQ(detail::transform(units, std::size_t(1) << 32, u"1", 1, modes...), 1u);
    EXPECT_EQ(units[0], u'1');
    EXPECT_THROW(transform(std::u16string_view(units, 0x80000000), modes...), CtypeSizeTooLarge);
    EXPECT_EQ(transform({}, modes...), u"");
}

TEST(Transform, KeepsToTheLimits) {
    to_lower_locale const lower(QzLocale::classic());
    to_upper_locale const upper(QzLocale::classic());
    auto const none = static_cast<normalization_form>(4);
    expect_limits(lower);
    expect_limits(upper);
    expect_limits(normalization_form::compose);
    expect_limits(lower, normalization_form::decompose);
    EXPECT_THROW(transform(u"x", none), CtypeInvalidArgument);
    EXPECT_THROW(transform(u"", upper, none), CtypeInvalidArgument);
}

} // namespace
} // namespace fl::i18n
