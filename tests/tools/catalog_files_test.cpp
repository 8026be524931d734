// Catalog files as the tool reads and writes them: what the loader reads, with places.

#include "tests/support/temporary_directory.hpp"
#include "tools/fl_i18n/catalog/catalog.hpp"

#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace fl::tool {
namespace {

using texts = std::map<std::string, i18n::ustring>;

/// Returns what the library loads from a catalog file; nothing when it refuses it.
std::optional<texts> load(std::string const & xml) {
    static test::temporary_directory const root;
    root.write(u"resources/test/xx/a.xml", xml);
    i18n::MessageCatalog::MessageCatalogInit(root.path().string());
    i18n::CatalogID const id("test:a");
    auto const catalog = i18n::MessageCatalog::GetMessageCatalog(id, *i18n::QzLocale::createLocale("xx"));
    i18n::MessageCatalog::FlushCatalogFromCache(id);
    texts result;
    for (std::string const & key : catalog->keys()) {
        result[key] = catalog->text(key);
    }
    try {
        catalog->text("");
    } catch (i18n::MessageCatalog::MessageCatalogLoadFailed const &) {
        return std::nullopt;
    } catch (i18n::MessageCatalog::MessageNotFound const &) {
    }
    return result;
}

/// Returns the same as the tool reads it.
std::optional<texts> read(std::string const & xml) {
    std::vector<catalog_fault> faults;
    bool decoded = false;
    source_text const source(decode_xml(xml, decoded));
    catalog const contents = read_catalog(source, decoded, faults);
    for (catalog_fault const & fault : faults) {
        if (fault.refused) {
            return std::nullopt;
        }
    }
    texts result;
    for (catalog_entry const & entry : contents.entries) {
        result.try_emplace(entry.key, entry.text.units);
    }
    return result;
}

std::string document(std::string const & entries) {
    return "<rsccat><message>" + entries + "</message></rsccat>";
}

TEST(CatalogFiles, AreReadAsTheLoaderReadsThem) {
    std::vector<std::string> const pieces = {"<rsccat>",
                                             "</rsccat>",
                                             "<message>",
                                             "</message>",
                                             "<entry key=\"a\">",
                                             "<entry key='b'>",
                                             "</entry>",
                                             "<entry>",
                                             "<other/>",
                                             "text",
                                             "  two  words ",
                                             "\n",
                                             "\r\n",
                                             "&#13;",
                                             "&amp;",
                                             "\\n",
                                             "\\",
                                             "\\u00e9",
                                             "\\uD83D\\uDE00",
                                             "\xC3\xA9",
                                             "\t",
                                             "<![CDATA[ <x> \n ]]>",
                                             "<!-- c -->",
                                             "<?pi d?>"};
    std::mt19937 random(1);
    std::size_t accepted = 0;
    for (int i = 0; i < 2000; ++i) {
        std::string content;
        for (auto count = random() % 12; count > 0; --count) {
            // Pieces of structure would spoil most texts: they are rare in half of the documents.
            content += pieces[i % 2 == 0 ? 10 + random() % (pieces.size() - 10) : random() % pieces.size()];
        }
        std::string const xml =
            i % 4 == 1   ? "<rsccat>" + content + "</rsccat>"
            : i % 4 == 3 ? content
                         : document("<entry key=\"k\">" + content + "</entry><entry key=\"k\">2</entry>");
        auto const loaded = load(xml);
        ASSERT_EQ(read(xml), loaded) << xml;
        accepted += loaded.has_value();
    }
    EXPECT_GT(accepted, 700u);
}

TEST(CatalogFiles, AreReadInEveryEncodingOfTheLoader) {
    std::string const text = document("<entry key=\"k\">\xC3\xA9 \xF0\x9F\x98\x80</entry>");
    std::string wide = "\xFF\xFE";
    for (char16_t const unit : i18n::utf8_to_ustring(text)) {
        wide += static_cast<char>(unit & 0xFF);
        wide += static_cast<char>(unit >> 8);
    }
    for (std::string const & xml :
         {"\xEF\xBB\xBF" + text, wide, wide + "x", wide.substr(2),
          "<?xml version='1.0' encoding='ISO-8859-1'?>" + text,
          "<?xml version='1.0' encoding='US-ASCII'?>" + text,
          "<?xml version='1.0' encoding='KOI8-R'?>" + text,
          "<?xml version='1.0' encoding='UTF-8'?>" + document("<entry key=\"k\">\xE9</entry>")}) {
        std::optional<texts> ours;
        try {
            ours = read(xml);
        } catch (std::runtime_error const &) {
        }
        EXPECT_EQ(ours, load(xml)) << xml;
    }
}

TEST(CatalogFiles, KeepThePlaceOfEveryUnit) {
    source_text const source(
        "\xEF\xBB\xBF<rsccat>\n<message>\r\n<entry x='1' key = 'k'>\xC3\xA9\xF0\x9F\x98\x80 a&lt;b\\u0041\n"
        "   second</entry>\n</message></rsccat>\n");
    std::vector<catalog_fault> faults;
    catalog const contents = read_catalog(source, false, faults);
    ASSERT_EQ(contents.entries.size(), 1u);
    catalog_entry const & entry = contents.entries[0];
    EXPECT_EQ(source.position_of(0), (position{1, 1}));
    EXPECT_EQ(source.position_of(entry.offset), (position{3, 1}));
    EXPECT_EQ(source.position_of(entry.key_offset), (position{3, 21}));
    EXPECT_EQ(entry.text.units, u"\u00E9\U0001F600 a<bA second");
    std::vector<position> places;
    for (std::uint32_t const place : entry.text.places) {
        places.push_back(source.position_of(place));
    }
    std::vector<position> const expected = {{3, 24}, {3, 25}, {3, 25}, {3, 26}, {3, 27}, {3, 28},
                                            {3, 32}, {3, 33}, {3, 39}, {4, 4},  {4, 5},  {4, 6},
                                            {4, 7},  {4, 8},  {4, 9},  {4, 10}};
    EXPECT_EQ(places, expected);
}

TEST(CatalogFiles, CountTheCharactersOfALongLine) {
    constexpr std::size_t pairs = 500;
    std::string text = "\n";
    for (std::size_t i = 0; i < pairs; ++i) {
        text += "\xC3\xA9x";
    }
    source_text const source(text);
    for (std::size_t i = 0; i < pairs; ++i) {
        ASSERT_EQ(source.position_of(1 + 3 * i), (position{2, 1 + 2 * i}));
        ASSERT_EQ(source.position_of(3 + 3 * i), (position{2, 2 + 2 * i}));
    }
    EXPECT_EQ(source.position_of(text.size()), (position{2, 1 + 2 * pairs}));
}

TEST(CatalogFiles, AreWrittenSoThatEveryTextComesBack) {
    std::mt19937 random(2);
    std::u16string const alphabet =
        u" \t\n\r\\'\"<>&]{}ax\u007F\u0085\u00A0\u00E9\u2028\u3042\xD83D\xDE00\xDE00\xD83D\uFEFF\uFFFE\uFFFF";
    catalog contents;
    texts expected;
    for (int i = 0; i < 3000; ++i) {
        catalog_entry entry;
        entry.key = "k" + std::to_string(i);
        for (auto count = random() % 8; count > 0; --count) {
            entry.text.units +=
                i % 50 == 0 ? static_cast<char16_t>(random()) : alphabet[random() % alphabet.size()];
        }
        expected[entry.key] = entry.text.units;
        contents.entries.push_back(entry);
    }
    contents.attributes = {{"version", "1.0"}, {"locale", "xx"}, {"x:a", "\"<&>' \n\t"}};
    contents.head_comments = {" head "};
    contents.entries[1].comments = {" before "};
    contents.tail_comments = {" tail "};
    contents.instructions = {"pi data"};
    std::string const xml = write_catalog(contents);
    EXPECT_EQ(load(xml), expected);

    std::vector<catalog_fault> faults;
    catalog const again = read_catalog(source_text(xml), false, faults);
    EXPECT_TRUE(faults.empty());
    EXPECT_EQ(write_catalog(again), xml);
}

} // namespace
} // namespace fl::tool
