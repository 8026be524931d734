// Pseudo-languages: texts change, holes and structure do not.

#include "tests/support/temporary_directory.hpp"
#include "tools/fl_i18n/catalog/pattern_text.hpp"
#include "tools/fl_i18n/pseudo.hpp"

#include <algorithm>
#include <fl/filesystem/path.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace fl::tool {
namespace {

using i18n::MessageCatalog;
using i18n::ustring;

/// Returns the syntax of a pattern alone.
ustring syntax_of(ustring const & message) {
    ustring result;
    auto const pieces = split_pattern(message).value();
    for (pattern_piece const & piece : pieces) {
        if (piece.what == pattern_piece::kind::syntax) {
            result += message.substr(piece.begin, piece.end - piece.begin) + u'\n';
        }
    }
    return result;
}

struct row {
    ustring message;
    ustring accented; ///< without expansion
    std::vector<MessageCatalog::Argument> arguments;
    ustring formatted; ///< the accented message with its arguments
};

std::vector<row> const rows = {
    {u"", u"", {}, u""},
    {u"...", u"[...]", {}, u"[...]"},
    {u"Open {0}?", u"[Öþéñ {0}?]", {ustring(u"a.txt")}, u"[Öþéñ a.txt?]"},
    {u"It's {0}'s", u"[Îţ'š {0}'š]", {ustring(u"x")}, u"[Îţ'š x'š]"},
    {u"'{a}' ''{0}'' '{'b", u"['{å}' ''{0}'' '{'ƀ]", {ustring(u"x")}, u"[{å} 'x' {ƀ]"},
    {u"open '{quote", u"[öþéñ '{ǫûöţé]", {}, u"[öþéñ {ǫûöţé]"},
    {u"dogs'", u"[ðöĝš']", {}, u"[ðöĝš']"},
    {u"{0,plural,=0{no file}one{# file of {1}}other{# files '#'}} end",
     u"[{0,plural,=0{ñö ƒîļé}one{# ƒîļé öƒ {1}}other{# ƒîļéš '#'}} éñð]",
     {std::int64_t(5), ustring(u"all")},
     u"[5 ƒîļéš # éñð]"},
    {u"{0,select,one{a {1,plural,offset:1 one{b}other{c #}}}other{d}}",
     u"[{0,select,one{å {1,plural,offset:1 one{ƀ}other{ç #}}}other{ð}}]",
     {ustring(u"one"), std::int64_t(3)},
     u"[å ç 2]"},
    {u"{0,choice,0#none|1#one '|' {0}|1<many}",
     u"[{0,choice,0#ñöñé|1#öñé '|' {0}|1<ɱåñý}]",
     {std::int64_t(1)},
     u"[öñé | 1]"},
    {u"{0,number,'a'0.0} {1,date,'at' y}",
     u"[{0,number,'a'0.0} {1,date,'at' y}]",
     {2.5, 0.0},
     u"[a2.5 at 1970]"},
    {u"\U0001F600 日本 é", u"[\U0001F600 日本 é]", {}, u"[\U0001F600 日本 é]"},
};

TEST(Pseudo, KeepsHolesAndStructure) {
    for (row const & each : rows) {
        SCOPED_TRACE(testing::PrintToString(each.message));
        EXPECT_EQ(pseudo_text(each.message, {false, 0}), each.accented);
        EXPECT_EQ(MessageCatalog::GetFormattedMessage(each.accented, each.arguments), each.formatted);
        for (pseudo_style const style :
             {pseudo_style{false, 35}, pseudo_style{true, 35}, pseudo_style{true, 200}}) {
            ustring const changed = pseudo_text(each.message, style).value();
            EXPECT_EQ(syntax_of(changed), syntax_of(each.message));
            EXPECT_NO_THROW(MessageCatalog::GetFormattedMessage(changed, each.arguments));
        }
    }
    EXPECT_EQ(pseudo_text(u"{0", {}), std::nullopt);
    EXPECT_EQ(pseudo_text(u"ab {0}-c1", {true, 0}),
              u"[\u200F\u202Eab\u202C\u200F {0}-\u200F\u202Ec1\u202C\u200F]");
}

TEST(Pseudo, KeepsTheHolesOfTheShippedCatalogs) {
    MessageCatalog::MessageCatalogInit(filesystem::get_install_path().string());
    std::size_t texts = 0;
    for (char const * const locale :
         {"en_US_POSIX", "de", "es", "fr", "ja", "ko", "pt_BR", "ru", "zh_CN", "zh_TW"}) {
        i18n::CatalogID const id("fl:i18n");
        MessageCatalog::FlushCatalogFromCache(id);
        auto const catalog = MessageCatalog::GetMessageCatalog(id, *i18n::QzLocale::createLocale(locale));
        for (std::string const & key : catalog->keys()) {
            SCOPED_TRACE(locale + (" " + key));
            ustring const text = catalog->text(key);
            ustring const changed = pseudo_text(text, {texts % 2 == 0, 35}).value();
            EXPECT_EQ(syntax_of(changed), syntax_of(text));
            std::vector<MessageCatalog::Argument> const arguments(
                static_cast<std::size_t>(std::count(text.begin(), text.end(), u'{')), ustring(u"<hole>"));
            EXPECT_NO_THROW(MessageCatalog::GetFormattedMessage(changed, arguments));
            ++texts;
        }
    }
    EXPECT_GT(texts, 100u);
}

TEST(Pseudo, MakesTextsLongerInEveryBranch) {
    EXPECT_EQ(pseudo_text(u"OK", {false, 35}), u"[ÖĶ öñé]");
    EXPECT_EQ(pseudo_text(u"{0,plural,one{day}other{# days}}", {false, 35}),
              u"[{0,plural,one{ðåý öñé}other{# ðåýš öñé ţŵö}}]");
    ustring const plain(100, u'x');
    for (unsigned const percent : {0u, 30u, 150u}) {
        std::size_t const grown = pseudo_text(plain, {false, percent}).value().size() - 2;
        EXPECT_GE(grown, 100 + percent);
        EXPECT_LE(grown, 106 + percent);
    }
}

TEST(Pseudo, CatalogsAreLoaded) {
    catalog contents;
    contents.attributes = {{"version", "1.0", 0, 0}, {"locale", "en", 0, 0}};
    for (row const & each : rows) {
        catalog_entry entry;
        entry.key = "k" + std::to_string(contents.entries.size());
        entry.text.units = each.message;
        contents.entries.push_back(entry);
    }
    contents.entries[1].attributes = {{"translate", "no", 0, 0}};
    contents.entries[2].text.units = u"refused {";
    EXPECT_EQ(make_pseudo(contents, {}), 1u);
    EXPECT_EQ(contents.attribute("locale"), "en_XA");
    test::temporary_directory root;
    root.write(u"resources/app/en_XA/ui.xml", write_catalog(contents));
    MessageCatalog::MessageCatalogInit(root.path().string());
    auto const loaded =
        MessageCatalog::GetMessageCatalog(i18n::CatalogID("app:ui"), *i18n::QzLocale::createLocale("en_XA"));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        ustring const expected = i == 1   ? rows[1].message
                                 : i == 2 ? u"refused {"
                                          : pseudo_text(rows[i].message, {}).value();
        EXPECT_EQ(loaded->text("k" + std::to_string(i)), expected);
    }
}

} // namespace
} // namespace fl::tool
