#include <boost/exception/exception.hpp>
#include <cmath>
#include <fl/i18n/message_catalog.hpp>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace fl::i18n {
namespace {

using Arguments = std::vector<MessageCatalog::Argument>;
constexpr auto short_format = numeric_format::simple_short;

ustring format(ustring const & message, Arguments const & args) {
    return MessageCatalog::GetFormattedMessage(message, args, short_format);
}

struct fill_row {
    char const * name;
    ustring message;
    Arguments args;
    ustring expected;
};

class FilledMessage : public testing::TestWithParam<fill_row> {};

TEST_P(FilledMessage, IsText) {
    EXPECT_EQ(format(GetParam().message, GetParam().args), GetParam().expected);
}

ustring const plural = u"{0,plural,=0{none}one{one of {1}}other{# of {1}}}";
ustring const choice = u"{0,choice,0#few {1}|5#many {1}}";
ustring const select = u"{0, select, a {A {1}} other {other {1,number}}}";

INSTANTIATE_TEST_SUITE_P(
    Messages, FilledMessage,
    testing::Values(
        fill_row{"Empty", u"", {}, u""}, fill_row{"NoHoles", u"plain", {}, u"plain"},
        fill_row{"Apostrophe", u"it isn't {0}'s", {ustring(u"Bob")}, u"it isn't Bob's"},
        fill_row{"ApostropheTwice", u"isn''t", {}, u"isn't"},
        fill_row{"QuotedHole", u"'{0}' and {0}", {ustring(u"x")}, u"{0} and x"},
        fill_row{"ApostropheInsideBranch",
                 u"{0,plural,other{# isn't {1}}}",
                 {std::int64_t{2}, 0.5},
                 u"2 isn't 0.5000"},
        fill_row{"AllTypes",
                 u"{0}|{1}|{2}|{3}",
                 {std::int64_t{-7}, "\xC3\xA9", ustring(u"\u3042"), 0.5},
                 u"-7|\u00E9|\u3042|0.5000"},
        fill_row{"Utf8Malformed", u"{0}", {"a\xFFz"}, u"a\uFFFDz"},
        fill_row{"LoneSurrogate", u"{0}", {ustring(1, char16_t(0xD800))}, ustring(1, char16_t(0xD800))},
        fill_row{"ArgumentIsNoPattern", u"{0}", {ustring(u"{1} 'x'")}, u"{1} 'x'"},
        fill_row{"SameHoleTwice", u"{0} and {0}", {1.0}, u"1.0000 and 1.0000"},
        fill_row{"AnyOrder", u"{1}{0}", {ustring(u"a"), ustring(u"b")}, u"ba"},
        fill_row{"HoleWithBlanks", u"{ 0 }", {0.25}, u"0.2500"},
        fill_row{"HoleWithoutItsArgument", u"{0} {2}", {1.0, ustring(u"x")}, u"1.0000 {2}"},
        fill_row{"TypedHoleKeepsItsFormat", u"{0,number} {0,number,percent} {0}", {0.5}, u"0.5 50% 0.5000"},
        fill_row{"IntegerIsNotADouble", u"{0}", {std::int64_t{123456789012}}, u"123456789012"},
        fill_row{"PluralZero", plural, {std::int64_t{0}, 2.0}, u"none"},
        fill_row{"PluralOne", plural, {std::int64_t{1}, 2.0}, u"one of 2.0000"},
        fill_row{"PluralOther", plural, {std::int64_t{3}, ustring(u"x")}, u"3 of x"},
        fill_row{"ChoiceFew", choice, {std::int64_t{1}, -0.5}, u"few -0.5000"},
        fill_row{"ChoiceMany", choice, {5.5, 1e300 * 1e300}, u"many INF"},
        fill_row{"SelectPlain", select, {ustring(u"a"), 1.5}, u"A 1.5000"},
        fill_row{"SelectTyped", select, {ustring(u"b"), 1.5}, u"other 1.5"},
        fill_row{"DoubleInANamedHole", u"{_x}|{0}", {1.5, 2.5}, u"1.5000|1.5000"},
        fill_row{"NamedHolesStay", u"isn't {name} {0}", {}, u"isn't {name} {0}"}),
    [](auto const & row) { return row.param.name; });

struct number_row {
    double value;
    std::vector<ustring> expected; ///< for the formats 1 to 6, 12 and 13
};

TEST(Formatting, WritesDoublesInEachFormat) {
    double const infinity = std::numeric_limits<double>::infinity();
    std::vector<unsigned> const formats{1, 2, 3, 4, 5, 6, 12, 13};
    for (number_row const & row : {
             number_row{0,
                        {u"0.0000", u"0.000000000000000", u"0.0000E0", u"0.000000000000000E0", u"0", u"0",
                         u"0.0000E0", u"0.00000000000000E0"}},
             number_row{-1234.5678,
                        {u"-1234.5678", u"-1234.567800000000000", u"-1.2346E3", u"-1.234567800000000E3",
                         u"-1.2346E3", u"-1234.5678", u"-1.2346E3", u"-1.23456780000000E3"}},
             number_row{99999,
                        {u"99999.0000", u"99999.000000000000000", u"9.9999E4", u"9.999900000000000E4",
                         u"99999", u"99999", u"99.9990E3", u"99.9990000000000E3"}},
             // Both forms have 3 characters, or 6: the scientific one is taken.
             number_row{100,
                        {u"100.0000", u"100.000000000000000", u"1.0000E2", u"1.000000000000000E2", u"1E2",
                         u"1E2", u"100.0000E0", u"100.000000000000E0"}},
             number_row{0.0012,
                        {u"0.0012", u"0.001200000000000", u"1.2000E-3", u"1.200000000000000E-3", u"1.2E-3",
                         u"1.2E-3", u"1.2000E-3", u"1.20000000000000E-3"}},
             number_row{1e-300,
                        {u"0.0000", u"0.000000000000000", u"1.0000E-300", u"1.000000000000000E-300",
                         u"1E-300", u"1E-300", u"1.0000E-300", u"1.00000000000000E-300"}},
             number_row{123456.789,
                        {u"123456.7890", u"123456.789000000000000", u"1.2346E5", u"1.234567890000000E5",
                         u"1.2346E5", u"123456.789", u"123.4568E3", u"123.456789000000E3"}},
             number_row{-infinity, std::vector<ustring>(8, u"-INF")},
         }) {
        SCOPED_TRACE(row.value);
        for (std::size_t i = 0; i < formats.size(); ++i) {
            SCOPED_TRACE(formats[i]);
            EXPECT_EQ(MessageCatalog::GetFormattedMessage(u"{0}", {row.value}, numeric_format(formats[i])),
                      row.expected[i]);
        }
    }
    for (unsigned const other : {0u, 7u, 11u, 14u}) {
        EXPECT_EQ(MessageCatalog::GetFormattedMessage(u"{0}", {0.5}, numeric_format(other)), u"0.5000");
    }
}

struct refusal_row {
    char const * name;
    ustring message;
    Arguments args;
    std::optional<std::pair<std::uint64_t, std::uint64_t>> counts; ///< none when the format is what is wrong
};

class RefusedMessage : public testing::TestWithParam<refusal_row> {};

TEST_P(RefusedMessage, RaisesItsException) {
    auto const & row = GetParam();
    if (!row.counts) {
        EXPECT_THROW(format(row.message, row.args), MessageCatalog::MessageFormatIncorrect);
        EXPECT_THROW(format(row.message, row.args), boost::exception);
        return;
    }
    try {
        format(row.message, row.args);
        ADD_FAILURE() << "nothing was thrown";
    } catch (MessageCatalog::IncorrectHoleCount const & error) {
        EXPECT_EQ(error.getNumHolesExpected(), row.counts->first);
        EXPECT_EQ(error.getNumHolesFound(), row.counts->second);
        EXPECT_EQ(error.what(),
                  "Incorrect number of parameters supplied. Expected : " + std::to_string(row.counts->first) +
                      " but found : " + std::to_string(row.counts->second));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Messages, RefusedMessage,
    testing::Values(refusal_row{"TooMany", u"{0} {1}", {1.0, 2.0, 3.0}, {{2, 3}}},
                    refusal_row{"TooFew", u"{0} {1}", {1.0}, {{2, 1}}},
                    refusal_row{"NoArguments", u"{0}", {}, {{1, 0}}},
                    refusal_row{"NoHoles", u"'{0}'", {1.0}, {{0, 1}}},
                    refusal_row{"NestedHoleCounts", plural, {std::int64_t{0}}, {{2, 1}}},
                    refusal_row{"NamedHoles", u"{name}", {1.0}, {{0, 1}}},
                    refusal_row{"OpenBrace", u"{0", {1.0}, {}}, refusal_row{"EmptyHole", u"{}", {1.0}, {}},
                    refusal_row{"UnknownTypeBeforeCount", u"{0,nonsense}", {}, {}},
                    refusal_row{"PluralWithoutOther", u"{0,plural,one{x}}", {std::int64_t{1}}, {}},
                    refusal_row{"TextInNumberHole", u"{0,number}", {ustring(u"x")}, {}},
                    refusal_row{"TextInPluralHole", u"{0,plural,other{#}}", {"x"}, {}},
                    refusal_row{"HugeHoleNumber", u"{99999999999}", {1.0}, {}}),
    [](auto const & row) { return row.param.name; });

TEST(Formatting, TakesArgumentsFromACallback) {
    auto const fill = [](Arguments & args, std::pair<ustring const &, std::uint64_t const> const & call) {
        args.at(0) = call.first;
        args.at(1) = static_cast<std::int64_t>(call.second);
    };
    EXPECT_EQ(MessageCatalog::GetFormattedMessage(u"{1}: {0}", 2, fill, short_format), u"2: {1}: {0}");
    EXPECT_EQ(MessageCatalog::GetFormattedMessage(u"plain", 0, nullptr, short_format), u"plain");
    EXPECT_THROW(MessageCatalog::GetFormattedMessage(u"plain", 1, nullptr, short_format),
                 MessageCatalog::MessageFormatIncorrect);
    auto const fail = [](auto &, auto const &) { throw std::out_of_range("own"); };
    EXPECT_THROW(MessageCatalog::GetFormattedMessage(u"{0}", 1, fail, short_format), std::out_of_range);
}

TEST(Formatting, TellsTheTypeOfAHole) {
    struct row {
        ustring message;
        std::uint64_t hole;
        ustring type;
    };
    for (row const & r :
         {row{u"{0} {1,number}", 0, u""}, row{u"{0} {1,number}", 1, u"number"},
          row{u"{0} {1,number}", 2, u""}, row{u"{0, Date , short}", 0, u"Date"}, row{plural, 0, u"plural"},
          row{plural, 1, u""}, row{choice, 0, u"choice"}, row{select, 0, u"select"}, row{select, 1, u""},
          row{u"{0,select,other{{1,spellout}}}", 1, u"spellout"},
          row{u"{0,SelectOrdinal,other{}}", 0, u"SelectOrdinal"}, row{u"{name,number}", 0, u""},
          row{u"none", 0, u""}}) {
        EXPECT_EQ(MessageCatalog::GetCustomHoleType(r.message, r.hole), r.type) << r.hole;
    }
    try {
        MessageCatalog::GetCustomHoleType(u"{0} {0}", 2);
        ADD_FAILURE() << "nothing was thrown";
    } catch (MessageCatalog::IncorrectHoleCount const & error) {
        EXPECT_EQ(error.getNumHolesExpected(), 2u);
        EXPECT_EQ(error.getNumHolesFound(), 1u);
    }
    EXPECT_THROW(MessageCatalog::GetCustomHoleType(u"{0", 0), MessageCatalog::MessageFormatIncorrect);
}

} // namespace
} // namespace fl::i18n
