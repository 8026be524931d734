#include "tests/support/temporary_directory.hpp"

#include <boost/exception_ptr.hpp>
#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <gtest/gtest.h>
#include <string>

namespace fl::i18n {
namespace {

using resource_core::BaseCatalogID;
using resource_core::BaseMsgID;
constexpr auto global_messages = QzLocale::LcCategory::messages;

/// Makes a root of its own the first one; the library's own root stays in force after it.
class MessageLookup : public testing::Test {
protected:
    MessageLookup() {
        write(u"zz", u"msgs",
              "<entry key='Plain'>zz isn''t</entry><entry key='Holes'>{0}, {1,number}</entry>"
              "<entry key='Bad'>{0</entry><entry key='BadType'>{0,nonsense}</entry>");
        write(u"en_US_POSIX", u"msgs", "<entry key='Plain'>classic</entry>");
        ustring global_name;
        for (char const c : QzLocale::global().getLcName(global_messages)) {
            global_name += static_cast<char16_t>(c);
        }
        write(global_name, u"global", "<entry key='Plain'>global</entry>");
        write(u"zz", u"broken", "<entry>");
        MessageCatalog::MessageCatalogInit(roots());
    }
    ~MessageLookup() override {
        for (char const * id :
             {"lookuptest:msgs", "lookuptest:global", "lookuptest:broken", "lookuptest:none"}) {
            MessageCatalog::FlushCatalogFromCache(CatalogID(id));
        }
    }

    std::vector<ustring> roots() const {
        return {directory_.path().string(), filesystem::get_install_path().string()};
    }
    void write(ustring const & locale, ustring const & catalog, std::string const & entries) const {
        directory_.write(u"resources/lookuptest/" + locale + u"/" + catalog + u".xml",
                         "<rsccat><message>" + entries + "</message></rsccat>");
    }
    LookupReport explain(std::string const & id,
                         std::vector<MessageCatalog::Argument> const & args = {}) const {
        return explain_lookup(id, *zz_, args, numeric_format::simple_short);
    }

    test::temporary_directory directory_;
    std::shared_ptr<QzLocale const> zz_ = QzLocale::createLocale("zz_ZZ");
};

TEST_F(MessageLookup, TakesAllKindsOfIdentifiers) {
    EXPECT_EQ(MessageCatalog::get_message(MessageID("lookuptest:msgs:Plain"), *zz_), u"zz isn't");
    EXPECT_EQ(MessageCatalog::get_message(MessageID("lookuptest:global:Plain")), u"global");
    EXPECT_EQ(MessageCatalog::get_message(BaseMsgID("lookuptest:msgs:Plain"), *zz_, std::nullopt),
              u"zz isn't");
    EXPECT_EQ(MessageCatalog::get_message(BaseMsgID("lookuptest:global:Plain")), u"global");
    EXPECT_EQ(MessageCatalog::get_default_locale_message(BaseMsgID("lookuptest:msgs:Plain")), u"classic");
    auto const catalog = MessageCatalog::openCatalog(BaseCatalogID("lookuptest:msgs"), *zz_);
    EXPECT_EQ(MessageCatalog::GetMessageCatalog(CatalogID("lookuptest:msgs"), *zz_), catalog);
    EXPECT_EQ(MessageCatalog::openCatalog(BaseCatalogID("lookuptest:global")),
              MessageCatalog::GetMessageCatalog(CatalogID("lookuptest:global")));
    EXPECT_THROW(MessageCatalog::get_message(BaseMsgID("lookuptest:Plain")),
                 MessageID::badMessageIDException);
    EXPECT_THROW(MessageCatalog::openCatalog(BaseCatalogID("lookuptest")), CatalogID::badCatalogIDException);
    EXPECT_THROW(MessageCatalog::get_message(MessageID(CatalogID(), "k"), *zz_),
                 MessageCatalog::MessageCatalogLoadFailed);
    EXPECT_THROW(MessageCatalog::get_message(MessageID("lookuptest:msgs:Holes"), *zz_),
                 MessageCatalog::IncorrectHoleCount);
}

TEST_F(MessageLookup, OpensCriticalCatalogsAtOnce) {
    BaseCatalogID const global("lookuptest:global");
    BaseCatalogID const malformed("lookuptest");
    EXPECT_FALSE(MessageCatalog::MessageCatalogInit(roots(), {&global}));
    EXPECT_THROW(MessageCatalog::MessageCatalogInit(roots(), {&malformed}), CatalogID::badCatalogIDException);
    EXPECT_THROW(MessageCatalog::MessageCatalogInit(roots(), {nullptr}), CatalogID::badCatalogIDException);
    auto const report = explain_lookup(MessageID("lookuptest:global:Plain"), QzLocale::global(), {}, {});
    EXPECT_TRUE(report.cache_keys.at(0).hit);
    EXPECT_EQ(report.text, u"global");
}

TEST_F(MessageLookup, IsExplainedWhenItSucceeds) {
    auto const report = explain("lookuptest:msgs:Holes", {0.5, std::int64_t{7}});
    EXPECT_EQ(report.catalog, "lookuptest:msgs");
    EXPECT_EQ(report.key, "Holes");
    EXPECT_EQ(report.messages_locale, "zz_ZZ");
    EXPECT_EQ(report.fallback_chain, (std::vector<ustring>{u"zz_ZZ", u"zz", u"en_US_POSIX"}));
    ASSERT_FALSE(report.roots.empty());
    EXPECT_EQ(report.roots[0], directory_.path().string());
    ASSERT_FALSE(report.candidates.empty());
    EXPECT_FALSE(report.candidates.front().exists);
    EXPECT_TRUE(report.candidates.back().exists);
    EXPECT_EQ(report.candidates.back().path, report.path);
    EXPECT_EQ(report.path, (directory_.path() / u"resources\\lookuptest\\zz\\msgs.xml").string());
    EXPECT_EQ(report.found_locale, "zz");
    EXPECT_TRUE(report.loaded && report.key_found);
    EXPECT_EQ(report.raw_text, u"{0}, {1,number}");
    ASSERT_EQ(report.holes.size(), 2u);
    EXPECT_EQ(report.holes[1].name, u"1");
    EXPECT_EQ(report.holes[1].type, "number");
    EXPECT_EQ(report.holes_expected, 2u);
    EXPECT_EQ(report.arguments_given, 2u);
    EXPECT_EQ(report.text, u"0.5000, 7");
    EXPECT_EQ(report.step, LookupStep::done);
    EXPECT_EQ(report.error, "");
}

TEST_F(MessageLookup, IsExplainedWhenItFails) {
    struct row {
        char const * id;
        LookupStep step;
        bool has_path;
        bool loaded;
        bool key_found;
        char const * error;
    };
    for (row const & r : {
             row{"lookuptest:none:Plain", LookupStep::find_file, false, false, false,
                 "Message Catalog lookuptest:none was not loaded"},
             row{"lookuptest:broken:Plain", LookupStep::load_file, true, false, false,
                 "Message Catalog lookuptest:broken was not loaded"},
             row{"lookuptest:msgs:None", LookupStep::find_key, true, true, false,
                 "Message Key None was not found in the catalog lookuptest:msgs"},
             row{"lookuptest:msgs:Holes", LookupStep::fill_holes, true, true, true,
                 "Incorrect number of parameters supplied. Expected : 2 but found : 0"},
             row{"lookuptest:msgs:Bad", LookupStep::fill_holes, true, true, true,
                 "Incorrect Message Formatting Attempted"},
             row{"lookuptest:msgs:BadType", LookupStep::fill_holes, true, true, true,
                 "Incorrect Message Formatting Attempted"},
         }) {
        SCOPED_TRACE(r.id);
        auto const report = explain(r.id);
        EXPECT_EQ(report.step, r.step);
        EXPECT_EQ(!report.path.empty(), r.has_path);
        EXPECT_EQ(report.loaded, r.loaded);
        EXPECT_EQ(report.key_found, r.key_found);
        EXPECT_TRUE(report.error.starts_with(r.error)) << report.error;
        EXPECT_EQ(report.text, u"");
        EXPECT_EQ(report.holes.size(), report.error.starts_with("Incorrect number") ? 2u : 0u);
    }
}

template <class Exception>
void expect_text(Exception const & exception, std::string const & text) {
    // Thrown as the library throws, it can be carried to another thread.
    boost::exception_ptr carried;
    try {
        boost::throw_exception(exception);
    } catch (std::exception const & error) {
        EXPECT_EQ(error.what(), text);
        carried = boost::current_exception();
    }
    EXPECT_THROW(boost::rethrow_exception(carried), Exception);
}

TEST(CatalogExceptions, HaveTheirTexts) {
    expect_text(MessageCatalog::MessageCatalogNotInitialized(),
                "Message Catalog has not been initialized by a successful call to "
                "MessageCatalog::MessageCatalogInit");
    expect_text(MessageCatalog::MessageCatalogIncorrectRoot(), "Incorrect Message Root Set");
    expect_text(
        MessageCatalog::MessageCatalogLoadFailed("a:b"),
        "Message Catalog a:b was not loaded from the file. Please check file location, format or contents");
    expect_text(MessageCatalog::MessageNotFound("a:b", "k"),
                "Message Key k was not found in the catalog a:b");
    expect_text(MessageCatalog::InvalidPathSupplied(), "Path is not valid!");
    expect_text(MessageCatalog::ResDirNotPresent(), "Resource directory not found on the path!");
    expect_text(MessageCatalog::ResourcePathNotFound(), "Resource path not found!");
    expect_text(MessageCatalog::ResPathRemovalUnknownError("x"),
                "Unknown error while removal of path! Error : x");
}

} // namespace
} // namespace fl::i18n
