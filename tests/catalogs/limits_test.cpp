#include <fl/i18n/limits.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <gtest/gtest.h>
#include <pthread.h>
#include <string>
#include <vector>

// What is just within each limit, and what is just beyond it.

namespace fl::i18n {
namespace {

using Arguments = std::vector<MessageCatalog::Argument>;

ustring times(std::size_t count, ustring const & text) {
    ustring result;
    result.reserve(count * text.size());
    for (; count > 0; --count) {
        result += text;
    }
    return result;
}

ustring nested(std::size_t depth, ustring const & begin, ustring const & end) {
    return times(depth, begin) + times(depth, end);
}

ustring number(ustring const & style) {
    return u"{0,number," + style + u"}";
}

bool is_filled(ustring const & message, Arguments const & args) {
    try {
        MessageCatalog::GetFormattedMessage(message, args);
        return true;
    } catch (MessageCatalog::MessageFormatIncorrect const &) {
        return false;
    }
}

bool has_hole_type(ustring const & message) {
    try {
        MessageCatalog::GetCustomHoleType(message, 0);
        return true;
    } catch (MessageCatalog::MessageFormatIncorrect const &) {
        return false;
    }
}

struct limit_row {
    char const * name;
    ustring last_within;
    ustring first_beyond; ///< empty for none
    MessageCatalog::Argument argument = 1.5;
};

class PatternLimit : public testing::TestWithParam<limit_row> {};

TEST_P(PatternLimit, IsTheLastThatIsFilled) {
    auto const & [name, last_within, first_beyond, argument] = GetParam();
    EXPECT_TRUE(is_filled(last_within, {argument}));
    EXPECT_TRUE(has_hole_type(last_within));
    if (!first_beyond.empty()) {
        EXPECT_FALSE(is_filled(first_beyond, {argument}));
        EXPECT_FALSE(is_filled(first_beyond, {})) << "before the arguments are counted";
        EXPECT_FALSE(has_hole_type(first_beyond));
    }
}

limit_row nesting(char const * name, ustring const & begin, ustring const & end,
                  MessageCatalog::Argument const & argument = 1.5) {
    return {name, nested(limits::deepest_nesting, begin, end),
            nested(limits::deepest_nesting + 1, begin, end), argument};
}

limit_row count(char const * name, ustring const & begin, ustring const & part, ustring const & end,
                std::size_t most) {
    return {name, begin + times(most, part) + end, begin + times(most + 1, part) + end};
}

INSTANTIATE_TEST_SUITE_P(
    Nesting, PatternLimit,
    testing::Values(nesting("Plural", u"{0,plural,other{x", u"}}"),
                    nesting("Ordinal", u"x{0,SelectOrdinal, one{{0}} other {", u"}}"),
                    nesting("Select", u"{0 ,\tselect\u200E,other{x", u"}}", "x"),
                    nesting("Choice", u"{0,choice,0#x|1#", u"}"),
                    nesting("ShieldedEnd", u"{0,select,other{'}'", u"}}", "x"),
                    nesting("ShieldedBranchEnd", u"{0,choice,0#'}|'''|1#", u"}"),
                    nesting("ShieldedNumber", u"{0,plural,other{'#}'''", u"}}"),
                    nesting("StyleBefore", u"{0,plural,other{{0,number,#'}'{}}", u"}}"),
                    limit_row{"QuotedBraces", u"'" + times(999, u"{") + u"'{0}", u""},
                    limit_row{"BracesInStyle", number(times(99, u"{") + u"#" + times(99, u"}")), u""},
                    limit_row{"OneAfterAnother", times(99, u"{0,plural,other{x}}"), u""}),
    [](auto const & row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Counts, PatternLimit,
    testing::Values(count("Holes", u"", u"{0}", u"", limits::most_holes),
                    count("Branches", u"{0,plural,", u"=1{}", u"other{x}}", limits::most_holes - 2),
                    count("Numbers", u"{0,plural,other{", u"#", u"}}", limits::most_holes - 2),
                    count("Formats", u"", u"{0,number}", u"{0}", limits::most_formats),
                    count("Style", u"{0,number,0", u"x", u"}", limits::longest_style - 1)),
    [](auto const & row) { return row.param.name; });

ustring const most_digits(limits::greatest_magnitude, u'1');

INSTANTIATE_TEST_SUITE_P(
    Skeletons, PatternLimit,
    testing::Values(limit_row{"Scale", number(u"::scale/1E999"), number(u"::scale/1E1000")},
                    limit_row{"SmallScale", number(u"::scale/1e-0999 .00"), number(u"::scale/1e-1000 .00")},
                    limit_row{"HugeScale", number(u" ::percent scale/1E+0"), number(u"::scale/1E999999999")},
                    limit_row{"NumberTooLargeToCount", number(u"::scale/1E000000000000000000000001"),
                              number(u"::scale/1E99999999999999999999999")},
                    limit_row{"Increment", number(u"::precision-increment/1E-9"),
                              number(u"::precision-increment/1E-9999")},
                    limit_row{"Digits", number(u"::scale/" + most_digits),
                              number(u"::scale/1" + most_digits)},
                    limit_row{"SecondOfTwo", number(u"::scale/2") + number(u"::scale/3"),
                              number(u"::scale/2") + number(u"::scale/1E1000")},
                    limit_row{"InBranch", u"{0,plural,other{" + number(u"::scale/9") + u"}}",
                              u"{0,plural,other{" + number(u"::scale/1E1000") + u"}}"},
                    limit_row{"TextOfABranch", u"{0,plural,other{::scale/1E1000}}", u""}),
    [](auto const & row) { return row.param.name; });

TEST(Limits, TextWithoutHolesIsNoPattern) {
    ustring message(limits::longest_pattern + 1, u' ');
    message.replace(0, 8, u"it''s'}'");
    auto const text = MessageCatalog::GetFormattedMessage(message, {});
    EXPECT_EQ(text.substr(0, 6), u"it's} ");
    EXPECT_EQ(text.size(), message.size() - 3);
    EXPECT_EQ(MessageCatalog::GetCustomHoleType(message, 0), u"");
    message.replace(0, 8, u"pattern{");
    EXPECT_FALSE(is_filled(message, {}));
    message.replace(0, 3, u"{0}");
    EXPECT_FALSE(is_filled(message, {1.5}));
}

TEST(Limits, QuotationsWithoutHolesAreReadAsIcuDoes) {
    for (auto const & [message, expected] : std::vector<std::pair<ustring, ustring>>{
             {u"''}'}'x", u"'}}x"}, {u"'}''x'}", u"}'x}"}, {u"'}''}'x", u"}'}x"}, {u"'}'''x'", u"}'x'"}}) {
        EXPECT_EQ(MessageCatalog::GetFormattedMessage(message, {}), expected);
    }
}

// The result is not made when the branch that is not chosen would be too long.
TEST(Limits, ResultIsBoundedByWhatItsHolesName) {
    constexpr std::size_t holes = 256;
    ustring message = u"{0,plural,=1{x}other{" + times(holes, u"{1}") + u"}}";
    message.resize((message.size() + holes - 1) / holes * holes, u'y');
    std::size_t const length = (limits::longest_result - message.size()) / holes;
    Arguments args{std::int64_t{1}, ustring(length, u'z')};
    EXPECT_TRUE(is_filled(message, args));
    args[1] = std::string(length + 1, 'z');
    EXPECT_FALSE(is_filled(message, args));
    EXPECT_FALSE(is_filled(times(limits::most_holes, u"{0}"), {ustring(1 << 20, u'x')}));
    EXPECT_FALSE(is_filled(times(16, u"{0}"), {ustring(limits::longest_result / 16, u'x')})) << "no ICU";
}

// The sanitizers make frames larger and keep data of their own on each stack.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t small_stack = 4 * 1024 * 1024;
#else
constexpr std::size_t small_stack = 256 * 1024;
#endif

TEST(Limits, DeepestNestingNeedsASmallStack) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, small_stack), 0);
    pthread_t thread;
    bool filled = false;
    ASSERT_EQ(pthread_create(
                  &thread, &attributes,
                  [](void * result) -> void * {
                      auto const begin = times(limits::deepest_nesting, u"{0,plural,other{");
                      auto const middle = number(u"::scale/7 .00 unit/meter") + u" {0,spellout} # {0}";
                      auto const message = begin + middle + times(limits::deepest_nesting, u"}}");
                      *static_cast<bool *>(result) = is_filled(message, {1.5});
                      return nullptr;
                  },
                  &filled),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_TRUE(filled);
}

} // namespace
} // namespace fl::i18n
