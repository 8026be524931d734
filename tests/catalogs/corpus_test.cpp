// Loads catalogs made from the message files of real packages and compares every text.

#include "tests/support/message_files.hpp"
#include "tests/support/temporary_directory.hpp"

#include <algorithm>
#include <cstdlib>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace fl::i18n {
namespace {

constexpr std::size_t language_count = 30;
constexpr std::size_t fewest_entries = 10000;

using languages = std::map<std::string, test::translations>;

/// Returns the languages with the most translations.
std::vector<std::string> choose(languages const & all) {
    std::vector<std::string> names;
    for (auto const & [name, messages] : all) {
        names.push_back(name);
    }
    std::stable_sort(names.begin(), names.end(), [&](std::string const & a, std::string const & b) {
        return all.at(a).size() > all.at(b).size();
    });
    names.resize(std::min(names.size(), language_count));
    return names;
}

/// Returns a key for each original text that one of the languages translates.
std::map<std::string, std::string> make_keys(languages const & all, std::vector<std::string> const & names) {
    std::map<std::string, std::string> keys;
    for (std::string const & name : names) {
        for (auto const & [original, translation] : all.at(name)) {
            keys.try_emplace(original, "m" + std::to_string(keys.size()));
        }
    }
    return keys;
}

/// Returns what the source's own look-up would show: the translation, else the original.
std::string const & expected(test::translations const & messages, std::string const & original) {
    auto const found = messages.find(original);
    return found != messages.end() ? found->second : original;
}

TEST(Corpus, EveryTextOfEveryLanguageComesBackUnchanged) {
    char const * const source = std::getenv("FL_I18N_MESSAGE_FILES");
    if (source == nullptr) {
        GTEST_SKIP() << "FL_I18N_MESSAGE_FILES names no directory of message files";
    }
    languages const all = test::read_message_files(source);
    std::vector<std::string> const names = choose(all);
    ASSERT_EQ(names.size(), language_count);
    auto const keys = make_keys(all, names);
    ASSERT_GE(keys.size(), fewest_entries);

    test::temporary_directory root;
    for (std::string const & name : names) {
        std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rsccat version=\"1.0\">\n<message>\n";
        for (auto const & [original, key] : keys) {
            xml += "<entry key=\"" + key + "\">" + test::to_catalog_text(expected(all.at(name), original)) +
                   "</entry>\n";
        }
        root.write(utf8_to_ustring("resources/corpus/" + name + "/all.xml"), xml + "</message>\n</rsccat>\n");
    }
    MessageCatalog::MessageCatalogInit(root.path().string());

    std::size_t texts = 0;
    std::size_t translated = 0;
    for (std::string const & name : names) {
        auto const catalog =
            MessageCatalog::GetMessageCatalog(CatalogID("corpus:all"), *QzLocale::createLocale(name));
        ASSERT_EQ(catalog->keys().size(), keys.size()) << name;
        for (auto const & [original, key] : keys) {
            ASSERT_EQ(catalog->text(key), utf8_to_ustring(expected(all.at(name), original)))
                << name << ' ' << key;
            ++texts;
            translated += all.at(name).count(original);
        }
    }
    MessageCatalog::FlushCatalogFromCache(CatalogID("corpus:all"));
    RecordProperty("texts", static_cast<int>(texts));
    std::cout << names.size() << " languages of " << keys.size() << " entries: " << texts
              << " texts compared, " << translated << " of them translations\n";
}

} // namespace
} // namespace fl::i18n
