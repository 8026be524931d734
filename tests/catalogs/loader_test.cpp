#include "catalogs/catalog_event_handler.hpp"
#include "catalogs/catalog_file_loader.hpp"
#include "catalogs/catalog_map_event_handler.hpp"
#include "foundation/ascii.hpp"
#include "foundation/filesystem/open_file.hpp"
#include "foundation/hash.hpp"
#include "foundation/xml_reader.hpp"
#include "tests/support/temporary_directory.hpp"

#include <algorithm>
#include <cstring>
#include <fl/i18n/limits.hpp>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace fl::i18n {
namespace {

using namespace std::string_literals;
using texts = std::map<std::string, ustring>;

std::optional<texts> load(filesystem::upath const & path) {
    auto const store = std::make_shared<XMLCatalogDataStore>();
    if (!XMLCatalogFileLoader().load(path, store)) {
        return std::nullopt;
    }
    texts result;
    for (auto const & key : store->keys()) {
        result[key] = ustring(store->texts().find(key).value());
    }
    return result;
}

std::string in_messages(std::string const & entries) {
    return "<rsccat version='1.0' locale='en' x='y'>\r\n <message>" + entries + "</message>\r\n</rsccat>";
}

std::string utf16(std::u16string const & text) {
    std::string bytes;
    for (char16_t const unit : u"\uFEFF" + text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

struct file_row {
    char const * name;
    std::string bytes;
    std::optional<texts> expected;
};

class CatalogFile : public testing::TestWithParam<file_row> {};

TEST_P(CatalogFile, IsLoadedOrRefused) {
    test::temporary_directory const directory;
    directory.write(u"c.xml", GetParam().bytes);
    EXPECT_EQ(load(directory.path() / u"c.xml"), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Good, CatalogFile,
    testing::Values(
        file_row{"Entries",
                 in_messages("<entry key='a'>A</entry>text<entry x='1' key='b'>B</entry>"),
                 {{{"a", u"A"}, {"b", u"B"}}}},
        file_row{"NoMessages", "<rsccat/>", {texts()}}, file_row{"NoEntries", in_messages(""), {texts()}},
        file_row{"EmptyEntry", in_messages("<entry key='a'/>"), {{{"a", u""}}}},
        file_row{"FirstTextWins",
                 in_messages("<entry key='a'>1</entry><entry key='a'>2</entry>"),
                 {{{"a", u"1"}}}},
        file_row{
            "EntryAfterMessages", "<rsccat><message/><entry key='a'>A</entry></rsccat>", {{{"a", u"A"}}}},
        file_row{"Lines",
                 in_messages("<entry key='a'>\r\n  one  two\r\n\t\r\n three\n </entry>"),
                 {{{"a", u"one  two three"}}}},
        file_row{"References",
                 in_messages("<entry key='a'>x&amp;y &lt;<![CDATA[<b>]]><!-- c -->z &#x3042;</entry>"),
                 {{{"a", u"x&y <<b>z \u3042"}}}},
        file_row{"Escapes",
                 in_messages("<entry key='a'>\\n\\t\\\\\\u3042\\U0001F600\\x41\\101\\q</entry>"),
                 {{{"a", u"\n\t\\\u3042\U0001F600AAq"}}}},
        file_row{
            "EscapedBlanksStay", in_messages("<entry key='a'> \\u0020x\\n </entry>"), {{{"a", u" x\n"}}}},
        file_row{"MalformedEscape", in_messages("<entry key='a'>x\\u12</entry>"), {{{"a", u""}}}},
        file_row{"Latin1",
                 "<?xml version='1.0' encoding='ISO-8859-1'?>" + in_messages("<entry key='a'>\xE9</entry>"),
                 {{{"a", u"\u00E9"}}}},
        file_row{"Utf8ByteOrderMark",
                 "\xEF\xBB\xBF" + in_messages("<entry key='a'>\xC3\xA9</entry>"),
                 {{{"a", u"\u00E9"}}}},
        file_row{"Utf16",
                 utf16(u"<rsccat><message><entry key='\u00E9'>\u0D0A\u3042</entry></message></rsccat>"),
                 {{{"\xC3\xA9", u"\u0D0A\u3042"}}}}),
    [](auto const & row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Bad, CatalogFile,
    testing::Values(file_row{"Empty", "", {}}, file_row{"NotXml", "text", {}},
                    file_row{"Truncated", "<rsccat><message><entry key='a'>A</entry>", {}},
                    file_row{"InvalidUtf8", in_messages("<entry key='a'>\xFF</entry>"), {}},
                    file_row{"UnknownEncoding", "<?xml version='1.0' encoding='x-none'?><rsccat/>", {}},
                    file_row{"OtherRoot", "<catalog/>", {}}, file_row{"RootInOtherCase", "<RscCat/>", {}},
                    file_row{"MessagesAsRoot", "<message/>", {}},
                    file_row{"EntryAsRoot", "<entry key='a'/>", {}},
                    file_row{"RootInRoot", "<rsccat><rsccat/></rsccat>", {}},
                    file_row{"RootInMessages", in_messages("<rsccat/>"), {}},
                    file_row{"RootInEntry", in_messages("<entry key='a'><rsccat/></entry>"), {}},
                    file_row{"EntryOutsideMessages", "<rsccat><entry key='a'/></rsccat>", {}},
                    file_row{"MessagesTwice", "<rsccat><message/><message/></rsccat>", {}},
                    file_row{"MessagesInMessages", in_messages("<message/>"), {}},
                    file_row{"MessagesInEntry", in_messages("<entry key='a'><message/></entry>"), {}},
                    file_row{"UnknownInRoot", "<rsccat><other/></rsccat>", {}},
                    file_row{"UnknownInEntry", in_messages("<entry key='a'><b>x</b></entry>"), {}},
                    file_row{"NoKey", in_messages("<entry>A</entry>"), {}},
                    file_row{"EmptyKey", in_messages("<entry key=''>A</entry>"), {}},
                    file_row{"KeyTwice", in_messages("<entry key='a' key='b'>A</entry>"), {}},
                    file_row{
                        "NestedEntry", in_messages("<entry key='a'>1<entry key='b'>2</entry>3</entry>"), {}}),
    [](auto const & row) { return row.param.name; });

TEST(CatalogLoader, RefusesWhatIsNoFile) {
    test::temporary_directory const directory;
    directory.make_directory(u"c.xml");
    EXPECT_FALSE(load(directory.path() / u"c.xml"));
    EXPECT_FALSE(load(directory.path() / u"none.xml"));
    EXPECT_FALSE(load(u"relative.xml"));
}

// As many entries of one odd length as a block has bytes: each byte of an entry falls on a block's edge once.
TEST(CatalogLoader, ReadsTheSameTextHoweverTheFileFallsIntoBlocks) {
    std::string const content = "\r\n  one &amp; \xE3\x81\x82\xF0\x9F\x98\x80 two\r\n\r\n"
                                " three&#10; ]] &lt;fours\r\n";
    std::string entries;
    texts expected;
    for (int i = 1000; i < 2024; ++i) {
        std::string const key = "k\xC3\xA9" + std::to_string(i);
        entries += "<entry key='" + key + "'>" + content + "</entry>\n";
        expected[key] = u"one & \u3042\U0001F600 two three ]] <fours";
    }
    ASSERT_EQ(entries.size() / 1024 % 2, 1u);
    test::temporary_directory const directory;
    directory.write(u"c.xml", in_messages(entries));
    EXPECT_EQ(load(directory.path() / u"c.xml"), expected);
}

/// Takes any document.
struct any_document final : xml::event_sink {
    bool on_declaration(char const *, char const *) override { return true; }
    bool on_start_element(char const *, char const **) override { return true; }
    bool on_end_element(char const *) override { return true; }
    bool on_character_data(std::string_view) override { return true; }
};

bool is_complete(std::string const & document) {
    test::temporary_directory const directory;
    directory.write(u"c.xml", document);
    any_document sink;
    auto const file = filesystem::open_file(directory.path() / u"c.xml");
    return xml::read_document(xml::blocks_of(file.get()), nullptr, sink).status == xml::read_status::complete;
}

std::string times(std::size_t count, std::string const & text) {
    std::string result;
    for (; count > 0; --count) {
        result += text;
    }
    return result;
}

std::string nested(std::size_t depth) {
    return times(depth, "<a>") + times(depth, "</a>");
}

/// Returns a document whose text is `lol` ten to a power times.
std::string laughs(int power) {
    std::string entities = "<!ENTITY e0 'lol'>";
    for (int i = 1; i <= power; ++i) {
        std::string const reference = "&e" + std::to_string(i - 1) + ";";
        entities += "<!ENTITY e" + std::to_string(i) + " '" + times(10, reference) + "'>";
    }
    return "<!DOCTYPE a [" + entities + "]><a>&e" + std::to_string(power) + ";</a>";
}

TEST(XmlReader, RefusesWhatIsBeyondALimit) {
    using namespace i18n::limits;
    EXPECT_TRUE(is_complete(nested(deepest_element)));
    EXPECT_FALSE(is_complete(nested(deepest_element + 1)));
    EXPECT_TRUE(is_complete("<a>" + times(deepest_element + 1, "<a/>") + "</a>"));

    std::string tag = "<a k=''/>";
    tag.insert(6, longest_tag - tag.size(), 'k');
    EXPECT_TRUE(is_complete(tag));
    EXPECT_FALSE(is_complete(tag.insert(6, 1, 'k')));

    EXPECT_TRUE(is_complete(laughs(3)));
    EXPECT_FALSE(is_complete(laughs(5)));
    std::string const entity = "<!DOCTYPE a [<!ENTITY e '" + std::string(100, 'x') + "'>]>";
    EXPECT_TRUE(is_complete(entity + "<a>" + times(10'000, "&e;") + "</a>"));
}

// The first blocks of sixteen bytes are chosen so that what follows them is multiplied by zero, were the hash
// not begun with what nobody knows.
TEST(CatalogStore, KeysCannotBeMadeToCollide) {
    using namespace hash_detail;
    constexpr std::size_t length = 32;
    std::string block;
    std::string cancelling(8, '\0');
    auto const is_text = [](char c) { return c > ' ' && c < '\x7F'; };
    for (unsigned i = 0; !std::all_of(cancelling.begin(), cancelling.end(), is_text); ++i) {
        block = std::to_string(10'000'000 + i) + "abcdefgh";
        std::uint64_t const h =
            mix(hash_detail::load<std::uint64_t>(block.data()) ^ multiplier_2,
                hash_detail::load<std::uint64_t>(block.data() + 8) ^ (length + multiplier_1));
        std::memcpy(cancelling.data(), &h, sizeof h);
    }
    std::string const first = block + "original" + cancelling;
    std::string const second = block + "imitator" + cancelling;
    ASSERT_EQ(hash_text(first), hash_text(second));
    EXPECT_NE(message_texts::hash(first), message_texts::hash(second));
}

TEST(CatalogHandler, StoresANestedEntryBeforeItFails) {
    XMLCatalogDataStore store;
    MessageCatalogExpatEventHandler handler(store);
    char const * none[] = {nullptr};
    char const * outer[] = {"key", "outer", nullptr};
    char const * inner[] = {"other", "x", "key", "", "key", "inner", "key", "late", nullptr};
    EXPECT_TRUE(handler.start_element("rsccat", none) && handler.start_element("message", none));
    EXPECT_TRUE(handler.character_data("ignored", 7));
    EXPECT_TRUE(handler.start_element("entry", outer) && handler.character_data("one ", 4));
    EXPECT_TRUE(handler.start_element("entry", inner) && handler.character_data("two", 3));
    EXPECT_TRUE(handler.end_element("entry"));
    EXPECT_FALSE(handler.end_element("entry"));
    ASSERT_EQ(store.keys(), std::vector<std::string>{"inner"});
    EXPECT_EQ(store.texts().find("inner"), u"one two");
}

/// A store that cannot hold anything.
class full_store final : public XMLCatalogDataStore {
public:
    explicit full_store(bool throws)
        : throws_(throws) {}
    bool add(std::string_view, std::string_view) override {
        return throws_ ? throw std::length_error("full") : false;
    }

private:
    bool throws_;
};

TEST(CatalogLoader, FailsWhenATextCannotBeHeld) {
    test::temporary_directory const directory;
    directory.write(u"c.xml", in_messages("<entry key='a'>A</entry>"));
    auto const path = directory.path() / u"c.xml";
    EXPECT_FALSE(XMLCatalogFileLoader().load(path, std::make_shared<full_store>(false)));
    EXPECT_THROW(XMLCatalogFileLoader().load(path, std::make_shared<full_store>(true)), std::length_error);
}

TEST(CatalogStore, KeepsTheFirstTextOfEachKey) {
    std::map<std::string, ustring> expected;
    XMLCatalogDataStore store;
    std::mt19937 random(5489);
    for (unsigned i = 0; i < 3000; ++i) {
        std::string key;
        while (random() % 4 != 0) {
            key += "ab\xE9:"[random() % 4];
        }
        std::string const number = std::to_string(i);
        EXPECT_TRUE(store.add(key, i % 5 == 0 ? "\\t" + number : number + "\xE3\x81\x82"));
        EXPECT_EQ(store.texts().find(key + '\0'), std::nullopt);
        expected.emplace(key, i % 5 == 0 ? u'\t' + ascii::widen(number) : ascii::widen(number) + u'\u3042');
    }
    ASSERT_GT(expected.size(), 300u);
    message_pool pool;
    store.seal(pool);
    EXPECT_EQ(store.keys().size(), expected.size());
    for (auto const & [key, text] : expected) {
        EXPECT_EQ(store.texts().find(key), text) << key;
        EXPECT_EQ(store.texts().find(key + '\0'), std::nullopt) << key;
    }
    EXPECT_EQ(XMLCatalogDataStore().texts().find(""), std::nullopt);
}

TEST(MessagePool, GivesEachItsOwnMemory) {
    message_pool pool;
    std::mt19937 random(5489);
    std::vector<std::pair<std::shared_ptr<void>, std::string>> given;
    for (char c = 'a'; given.size() < 500; c = c == 'z' ? 'a' : static_cast<char>(c + 1)) {
        std::string const content(random() % 2500, c);
        given.emplace_back(pool.allocate(content.size()), content);
        content.copy(static_cast<char *>(given.back().first.get()), content.size());
    }
    for (auto const & [memory, content] : given) {
        EXPECT_EQ(std::string_view(static_cast<char const *>(memory.get()), content.size()), content);
    }
}

TEST(MessageText, IsJoinedFromItsLines) {
    struct row {
        std::vector<std::string> chunks;
        char const * expected;
    };
    for (row const & r : {
             row{{}, ""},
             row{{"", " \t\v\f\r\n "}, ""},
             row{{" a  b\t", "c "}, "a  b\tc"},
             row{{"a ", "\n", "", " b"}, "a b"},
             row{{"a", "\n", "\n", "  \n", "b", "\n"}, "a b"},
             row{{"a\f", "b\r", "c\v", "d"}, "a b c\vd"},
             // A line break inside a chunk ends the line with the chunk, and stays.
             row{{"a \n b", "c"}, "a \n b c"},
         }) {
        detail::MessageCatalogTextProcessor processor;
        for (auto const & chunk : r.chunks) {
            processor.add_chunk(chunk);
        }
        EXPECT_EQ(processor.extract_complete_message(), r.expected);
        processor.add_chunk("next");
        EXPECT_EQ(processor.extract_complete_message(), "next");
    }
}

TEST(CatalogMap, ReadsItsKeys) {
    struct row {
        char const * text;
        std::optional<std::set<ustring>> expected;
    };
    for (row const & r : {
             row{"<MessageCatalogMap/>", {std::set<ustring>()}},
             row{"<MessageCatalogMap>x<entry key='a:b'/><entry x='1' key='\xC3\xA9'>y</entry><entry "
                 "key='a:b'/>"
                 "</MessageCatalogMap>",
                 {{u"a:b", u"\u00E9"}}},
             row{"<MessageCatalogMap><entry key=''/></MessageCatalogMap>", {{u""}}},
             row{"<MessageCatalogMap><entry/></MessageCatalogMap>", {std::set<ustring>()}},
             row{"<MessageCatalogMap><entry key='a'><entry key='b'/></entry></MessageCatalogMap>", {}},
             row{"<MessageCatalogMap><MessageCatalogMap/></MessageCatalogMap>", {}},
             row{"<MessageCatalogMap><other/></MessageCatalogMap>", {}},
             row{"<entry key='a'/>", {}},
             row{"<rsccat/>", {}},
         }) {
        SCOPED_TRACE(r.text);
        test::temporary_directory const directory;
        directory.write(u"catalog_map.xml", r.text);
        auto const keys = std::make_shared<std::set<ustring>>();
        MetaInfoExpatEventHandler handler(keys);
        bool const good = parse_file(directory.path() / u"catalog_map.xml", handler);
        EXPECT_EQ(good, r.expected.has_value());
        EXPECT_TRUE(!good || *keys == r.expected);
    }
}

} // namespace
} // namespace fl::i18n
