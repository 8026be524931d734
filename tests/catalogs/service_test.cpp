#include "catalogs/catalog_service.hpp"
#include "catalogs/message_pattern.hpp"
#include "tests/support/temporary_directory.hpp"

#include <algorithm>
#include <boost/numeric/conversion/cast.hpp>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

namespace fl::i18n {
namespace {

class CatalogService : public testing::Test {
protected:
    void write(std::u16string const & file, std::string const & text) const {
        directory_.write(file, "<rsccat><message><entry key='k'>" + text + "</entry></message></rsccat>");
    }
    ustring path(ustring const & name) const { return (directory_.path() / name).string(); }
    catalog_service::catalog_pointer get(std::string const & id, std::string const & locale,
                                         LookupReport * report = nullptr) {
        return service_.get_catalog(id, *QzLocale::createLocale(locale), report);
    }
    ustring text(std::string const & id, std::string const & locale) { return get(id, locale)->text("k"); }
    bool is_cached(std::string const & id, std::string const & locale) {
        LookupReport report;
        get(id, locale, &report);
        return report.cache_keys.front().hit;
    }

    test::temporary_directory directory_;
    ustring install_path_ = path(u"install");
    catalog_service service_{[this] { return install_path_; }};
};

TEST_F(CatalogService, StartsWithTheInstallationDirectory) {
    LookupReport report;
    EXPECT_THROW(get("a:b", "ja", &report), MessageCatalog::MessageCatalogIncorrectRoot);
    EXPECT_EQ(report.step, LookupStep::set_roots);
    write(u"install/resources/a/ja/b.xml", "ja");
    EXPECT_EQ(text("a:b", "ja"), u"ja");
    EXPECT_FALSE(service_.initialise({install_path_}));
}

TEST_F(CatalogService, AcceptsOnlyRootsWithResources) {
    write(u"one/resources/a/ja/b.xml", "one");
    write(u"two/resources/a/ja/b.xml", "two");
    directory_.write(u"file/resources", "no directory");
    EXPECT_THROW(service_.initialise({}), MessageCatalog::MessageCatalogIncorrectRoot);
    EXPECT_THROW(service_.initialise({path(u"none"), path(u"file"), u"", path(u"one") + u'\0'}),
                 MessageCatalog::MessageCatalogIncorrectRoot);
    EXPECT_TRUE(service_.initialise({path(u"none"), path(u"one"), path(u"two")}));
    EXPECT_EQ(text("a:b", "ja"), u"one");
    EXPECT_FALSE(service_.initialise({path(u"two")}));
    EXPECT_EQ(text("a:b", "ja"), u"one") << "the catalog stays in the cache";
    service_.flush("a:b");
    EXPECT_EQ(text("a:b", "ja"), u"two");
    for (auto const & unusable : {std::vector<ustring>{}, {path(u"none")}}) {
        EXPECT_THROW(service_.initialise(unusable), MessageCatalog::MessageCatalogIncorrectRoot);
        service_.flush("a:b");
        EXPECT_EQ(text("a:b", "ja"), u"two");
    }
}

TEST_F(CatalogService, PrefersTheMoreSpecificLocaleOverTheEarlierRoot) {
    write(u"one/resources/a/ja/b/c.xml", "one ja");
    write(u"one/resources/a/en_US_POSIX/b/c.xml", "classic");
    write(u"two/resources/a/ja_JP/b/c.xml", "two ja_JP");
    service_.initialise({path(u"one"), path(u"two")});
    EXPECT_EQ(text("a:b:c", "ja_JP"), u"two ja_JP");
    EXPECT_EQ(text("a:b:c", "ja_XX"), u"one ja");
    EXPECT_EQ(text("a:b:c", "fr_FR"), u"classic");
    LookupReport report;
    get("a:b:c", "de_DE", &report);
    ASSERT_EQ(report.candidates.size(), 5u);
    EXPECT_EQ(report.candidates[0].path, path(u"one\\resources\\a\\de_DE\\b\\c.xml"));
    EXPECT_EQ(report.candidates[3].path, path(u"two\\resources\\a\\de\\b\\c.xml"));
    EXPECT_FALSE(report.candidates[3].exists);
    EXPECT_EQ(report.candidates[4].path, path(u"one\\resources\\a\\en_US_POSIX\\b\\c.xml"));
    EXPECT_TRUE(report.candidates[4].exists);
    EXPECT_EQ(report.roots, (std::vector<ustring>{path(u"one"), path(u"two")}));
}

TEST_F(CatalogService, KeepsACatalogUnderTheAskedAndTheFoundLocale) {
    write(u"one/resources/a/ja/b.xml", "ja");
    service_.initialise({path(u"one")});
    LookupReport report;
    auto const catalog = get("a:b", "ja_JP", &report);
    ASSERT_EQ(report.cache_keys.size(), 2u);
    EXPECT_EQ(report.cache_keys[0].key, "a:b:ja_JP");
    EXPECT_EQ(report.cache_keys[1].key, "a:b:ja");
    for (auto const & key : report.cache_keys) {
        EXPECT_TRUE(!key.hit && key.stored) << key.key;
    }
    EXPECT_EQ(catalog->locale(), "ja");
    EXPECT_EQ(catalog->path().string(), path(u"one\\resources\\a\\ja\\b.xml"));
    for (std::uint64_t hits = 1; hits < 4; ++hits) {
        LookupReport again;
        EXPECT_EQ(get("a:b", "ja", &again), catalog);
        EXPECT_EQ(again.cache_keys.at(0).hits, hits);
        EXPECT_TRUE(again.candidates.empty());
    }
    LookupReport other;
    EXPECT_EQ(get("a:b", "ja_XX", &other), catalog);
    EXPECT_TRUE(!other.cache_keys.at(0).hit && other.cache_keys.at(0).stored);
    EXPECT_TRUE(other.cache_keys.at(1).hit && !other.cache_keys.at(1).stored);
    EXPECT_TRUE(is_cached("a:b", "ja_XX"));
}

TEST_F(CatalogService, KeepsWhatCouldNotBeLoaded) {
    directory_.write(u"one/resources/a/ja/bad.xml", "<rsccat>");
    service_.initialise({path(u"one")});
    for (std::string const id : {"a:none", "a:bad"}) {
        SCOPED_TRACE(id);
        auto const catalog = get(id, "ja");
        EXPECT_EQ(catalog->path().empty(), id == "a:none");
        EXPECT_TRUE(catalog->keys().empty());
        try {
            catalog->text("k");
            ADD_FAILURE() << "nothing was thrown";
        } catch (MessageCatalog::MessageCatalogLoadFailed const & error) {
            EXPECT_EQ(error.what(),
                      "Message Catalog " + id +
                          " was not loaded from the file. Please check file location, format or contents");
        }
    }
    write(u"one/resources/a/ja/none.xml", "late");
    EXPECT_THROW(text("a:none", "ja"), MessageCatalog::MessageCatalogLoadFailed);
    EXPECT_FALSE(is_cached("a:none", "en_US_POSIX"));
    service_.flush("a:none");
    EXPECT_EQ(text("a:none", "ja"), u"late");
}

TEST_F(CatalogService, AnswersFromOneCatalogOnly) {
    write(u"one/resources/a/ja_JP/b.xml", "isn''t");
    write(u"one/resources/a/ja/b.xml", "ja");
    service_.initialise({path(u"one")});
    auto const catalog = get("a:b", "ja_JP");
    EXPECT_EQ(catalog->keys(), std::vector<std::string>{"k"});
    EXPECT_EQ(catalog->text("k"), u"isn''t");
    EXPECT_EQ(catalog->message(MessageID("a:b:k")), u"isn't");
    for (auto const & id : {MessageID("a:b:K"), MessageID("a:c:k"), MessageID(CatalogID(), "k")}) {
        try {
            catalog->message(id);
            ADD_FAILURE() << "nothing was thrown";
        } catch (MessageCatalog::MessageNotFound const & error) {
            EXPECT_EQ(error.what(), "Message Key " + id.getMsgKey() + " was not found in the catalog a:b");
        }
    }
}

TEST_F(CatalogService, FlushesACatalogForAllLocales) {
    for (std::u16string const file : {u"ja/b.xml", u"en/b.xml", u"ja/bc.xml", u"ja/b/c.xml"}) {
        write(u"one/resources/a/" + file, "text");
    }
    service_.initialise({path(u"one")});
    auto const kept = get("a:b", "en");
    get("a:b", "ja_JP");
    get("a:bc", "ja");
    get("a:b:c", "ja");
    service_.flush("a:b");
    EXPECT_FALSE(is_cached("a:b", "en"));
    EXPECT_FALSE(is_cached("a:b", "ja"));
    EXPECT_TRUE(is_cached("a:bc", "ja"));
    EXPECT_TRUE(is_cached("a:b:c", "ja"));
    EXPECT_EQ(kept->text("k"), u"text");
}

TEST_F(CatalogService, AddsAdditionalLocationsAfterTheRoots) {
    write(u"one/resources/a/ja/b.xml", "one");
    write(u"more/resources/a/ja/b.xml", "more");
    write(u"more/resources/a/ja/c.xml", "more");
    EXPECT_THROW(service_.set_additional_locations({path(u"more"), path(u"none")}),
                 MessageCatalog::ResDirNotPresent);
    EXPECT_THROW(service_.set_additional_locations({ustring(1, u'\0')}), MessageCatalog::ResDirNotPresent);
    service_.initialise({path(u"one")});
    service_.set_additional_locations({path(u"more")});
    EXPECT_FALSE(get("a:c", "ja")->loaded()) << "the next initialisation adds it";
    service_.flush("a:c");
    service_.initialise({path(u"one")});
    EXPECT_EQ(text("a:b", "ja"), u"one");
    EXPECT_EQ(text("a:c", "ja"), u"more");
    EXPECT_FALSE(service_.initialise({}));
    service_.flush("a:b");
    EXPECT_EQ(text("a:b", "ja"), u"more");
}

TEST_F(CatalogService, RemovesAdditionalLocations) {
    directory_.make_directory(u"one/resources");
    directory_.make_directory(u"bare");
    ustring gone;
    {
        test::temporary_directory const other;
        other.make_directory(u"resources");
        gone = other.path().string();
        service_.set_additional_locations({path(u"one"), gone});
    }
    EXPECT_NO_THROW(service_.remove_additional_location(gone));
    EXPECT_THROW(service_.remove_additional_location(gone), MessageCatalog::ResDirNotPresent);
    EXPECT_NO_THROW(service_.remove_additional_location(path(u"one") + u'/'));
    EXPECT_THROW(service_.remove_additional_location(path(u"one")), MessageCatalog::ResourcePathNotFound);
    EXPECT_THROW(service_.remove_additional_location(path(u"bare")), MessageCatalog::ResDirNotPresent);
    EXPECT_THROW(service_.remove_additional_location(u""), MessageCatalog::InvalidPathSupplied);
    EXPECT_THROW(service_.remove_additional_location(path(u"one") + u'\0'),
                 MessageCatalog::InvalidPathSupplied);
}

/// A locale that is not the library's own, whose names it does not check.
class foreign_locale final : public QzLocale {
public:
    explicit foreign_locale(std::string name)
        : name_(std::move(name)) {}
    bool operator==(QzLocale const & other) const override { return this == &other; }
    bool operator!=(QzLocale const & other) const override { return this != &other; }
    std::string getLcName(LcCategory) const override { return name_; }
    bool isUserLocale(LcCategory) const override { return false; }
    std::string getLanguage(LcCategory) const override { return {}; }
    std::string getUserLcName(LcCategory) const override { return {}; }
    std::string getTerritory(LcCategory) const override { return {}; }
    std::string getXpgName() const override { return {}; }
    std::string getEncoding() const override { return {}; }
    LcOptData getOptData(LcOptDataType) const override { return {}; }

private:
    std::string name_;
};

TEST_F(CatalogService, KeepsCatalogsForAnyNameOfALocale) {
    write(u"one/resources/a/en_US_POSIX/b.xml", "classic");
    service_.initialise({path(u"one")});
    for (std::string const name : {"ja:JP", "", "a_name_of_a_locale_longer_than_most_others:::"}) {
        SCOPED_TRACE(name);
        foreign_locale const locale(name);
        auto const catalog = service_.get_catalog("a:b", locale);
        LookupReport report;
        EXPECT_EQ(service_.get_catalog("a:b", locale, &report), catalog);
        EXPECT_TRUE(report.cache_keys.at(0).hit);
        EXPECT_EQ(report.cache_keys.at(0).key, "a:b:" + name);
        EXPECT_EQ(service_.get_texts("a:b", locale).find("k"), u"classic");
    }
}

TEST_F(CatalogService, LoadsACatalogOnceForAllThreads) {
    write(u"one/resources/a/ja/b.xml", "ja");
    service_.initialise({path(u"one")});
    std::vector<catalog_service::catalog_pointer> seen(8);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        threads.emplace_back([&, i] { seen[i] = get("a:b", i % 2 ? "ja_JP" : "ja"); });
    }
    for (auto & thread : threads) {
        thread.join();
    }
    EXPECT_NE(seen[0], nullptr);
    EXPECT_EQ(std::count(seen.begin(), seen.end(), seen[0]), 8);
}

TEST(CatalogKey, EqualsOnlyTheSameParts) {
    for (std::size_t size = 0; size <= 40; ++size) {
        SCOPED_TRACE(size);
        std::string const id(size, 'a');
        catalog_key const key{id, "ja"};
        EXPECT_TRUE(key == stored_catalog_key(key).parts());
        EXPECT_FALSE(key == (catalog_key{id, "jv"}));
        EXPECT_FALSE(key == (catalog_key{id + 'j', "a"}));
        for (std::size_t i = 0; i < size; ++i) {
            std::string changed = id;
            changed[i] = 'b';
            EXPECT_FALSE(key == (catalog_key{changed, "ja"})) << i;
        }
    }
}

TEST(CatalogSearch, KnowsWhereACatalogLies) {
    EXPECT_EQ(catalog_file_pattern("fl:i18n"), u"fl\\%S\\i18n.xml");
    EXPECT_EQ(catalog_file_pattern("a:b:c"), u"a\\%S\\b\\c.xml");
    for (char const * id : {"", "a", "a:", "a:b:"}) {
        EXPECT_EQ(catalog_file_pattern(id), u"") << id;
    }
    EXPECT_EQ(search_directories({u"C:\\x"}), (std::vector<filesystem::upath>{u"C:\\x\\resources"}));
    EXPECT_THROW(search_directories({}), MessageCatalog::MessageCatalogNotInitialized);
}

TEST(MessagePattern, RefusesATextThatIsTooLongBeforeItIsRead) {
    EXPECT_THROW(message_pattern(std::u16string_view(u"x", std::size_t{1} << 31)),
                 boost::numeric::positive_overflow);
}

} // namespace
} // namespace fl::i18n
