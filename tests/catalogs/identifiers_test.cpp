#include <boost/exception/exception.hpp>
#include <fl/i18n/catalog_id.hpp>
#include <gtest/gtest.h>
#include <string>

namespace fl::i18n {
namespace {

using namespace std::string_literals;

template <class Exception, class Action>
void expect_refused(Action action, char const * text) {
    EXPECT_THROW(action(), Exception);
    EXPECT_THROW(action(), boost::exception);
    try {
        action();
    } catch (std::exception const & error) {
        EXPECT_STREQ(error.what(), text);
    }
}

struct syntax_row {
    char const * name;
    std::string text;
    bool is_catalog;
    bool is_message;
};

class IdentifierSyntax : public testing::TestWithParam<syntax_row> {};

TEST_P(IdentifierSyntax, DecidesForBothClasses) {
    auto const & row = GetParam();
    CatalogID catalog("old:one");
    MessageID message("old:one:Key");
    if (row.is_catalog) {
        EXPECT_EQ(CatalogID(row.text).getCatalogID(), row.text);
        catalog.setCatalogID(row.text);
        EXPECT_EQ(catalog.getCatalogIDStr(), row.text);
    } else {
        expect_refused<CatalogID::badCatalogIDException>([&] { CatalogID{row.text}; }, "Bad Catalog ID");
        expect_refused<CatalogID::badCatalogIDException>([&] { catalog.setCatalogID(row.text); },
                                                         "Bad Catalog ID");
        EXPECT_EQ(catalog.getCatalogID(), "old:one");
        EXPECT_EQ(catalog.getSubComponentsNames(), "one");
    }
    if (row.is_message) {
        EXPECT_EQ(MessageID(row.text).getCompositeID(), row.text);
        message.setCompositeMsgID(row.text);
        EXPECT_EQ(message.getCompositeIDstr(), row.text);
    } else {
        expect_refused<MessageID::badMessageIDException>([&] { MessageID{row.text}; }, "Bad Message ID");
        expect_refused<MessageID::badMessageIDException>([&] { message.setCompositeMsgID(row.text); },
                                                         "Bad Message ID");
        EXPECT_EQ(message.getCompositeID(), "old:one:Key");
        EXPECT_EQ(message.getMsgKey(), "Key");
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, IdentifierSyntax,
                         testing::Values(syntax_row{"Empty", "", false, false},
                                         syntax_row{"OneToken", "fl", false, false},
                                         syntax_row{"OnlyColon", ":", false, false},
                                         syntax_row{"LeadingColon", ":fl:i18n", false, false},
                                         syntax_row{"TrailingColon", "fl:i18n:", false, false},
                                         syntax_row{"TwoColons", "fl::i18n", false, false},
                                         syntax_row{"LeadingDigit", "fl:1abc:x", false, false},
                                         syntax_row{"Hyphen", "fl:i-18n:x", false, false},
                                         syntax_row{"TrailingBlank", "fl:i18n ", false, false},
                                         syntax_row{"NonAscii", "fl:i18n:\xC3\xA9", false, false},
                                         syntax_row{"EmbeddedNul", "fl:i18n:x\0y"s, false, false},
                                         syntax_row{"TwoTokens", "fl:i18n", true, false},
                                         syntax_row{"Underscores", "_a:_1", true, false},
                                         syntax_row{"ThreeTokens", "fl:i18n:QzLcInvLcName", true, true},
                                         syntax_row{"FiveTokens", "A:b:c9:_:Z", true, true}),
                         [](auto const & row) { return row.param.name; });

TEST(Identifiers, AreSplit) {
    CatalogID const catalog("fl:i18n:detail");
    EXPECT_EQ(catalog.getComponentName(), "fl");
    EXPECT_EQ(catalog.getSubComponentsNames(), "i18n:detail");
    MessageID const message("fl:i18n:detail:Key");
    EXPECT_EQ(message.getCatalogID(), "fl:i18n:detail");
    EXPECT_EQ(message.getMsgKey(), "Key");
}

TEST(Identifiers, AreJoinedWithoutACheckOfTheKey) {
    MessageID const message(CatalogID("fl:i18n"), "a-b");
    EXPECT_EQ(message.getCompositeID(), "fl:i18n:a-b");
    EXPECT_EQ(message.getCatalogID(), "fl:i18n");
    EXPECT_EQ(message.getMsgKey(), "a-b");
    expect_refused<MessageID::badMessageIDException>([] { MessageID(CatalogID("fl:i18n"), ""); },
                                                     "Bad Message ID");
    EXPECT_EQ(MessageID(CatalogID(), "k").getCompositeID(), "::k");
}

TEST(Identifiers, SettingTheSameTextAgainIsNoCheck) {
    MessageID message(CatalogID("fl:i18n"), "a-b");
    EXPECT_NO_THROW(message.setCompositeMsgID("fl:i18n:a-b"));
    EXPECT_EQ(message.getMsgKey(), "a-b");
}

TEST(Identifiers, AreEmptyByDefault) {
    EXPECT_EQ(CatalogID().getCatalogID() + CatalogID().getComponentName() +
                  CatalogID().getSubComponentsNames(),
              "");
    EXPECT_EQ(MessageID().getCompositeID() + MessageID().getCatalogID() + MessageID().getMsgKey(), "");
    EXPECT_THROW(CatalogID().setCatalogID(""), CatalogID::badCatalogIDException);
    EXPECT_THROW(MessageID().setCompositeMsgID(""), MessageID::badMessageIDException);
}

} // namespace
} // namespace fl::i18n
