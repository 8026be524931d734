#include "tests/support/temporary_directory.hpp"

#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <thread>

namespace fl::i18n::messagecatalog {
namespace {

template <class Action>
void expect_not_found(Action action) {
    try {
        action();
        ADD_FAILURE() << "nothing was thrown";
    } catch (std::runtime_error const & error) {
        EXPECT_STREQ(error.what(), "Configuration not found");
    }
}

ustring write(double value) {
    return MessageCatalog::GetFormattedMessage(u"{0}", {value});
}

// One test, since what is registered stays so: from the empty registry to the full one.
TEST(ConfigurationRegistry, KeepsOneObjectOfEachKind) {
    auto & registry = ConfigurationManagerFactory::Get();
    ConfigurationManager * seen_elsewhere = nullptr;
    std::thread([&] { seen_elsewhere = &ConfigurationManagerFactory::Get(); }).join();
    EXPECT_EQ(seen_elsewhere, &registry);

    expect_not_found([&] { registry.GetCriticalCatalogs(); });
    expect_not_found([&] { registry.GetDoubleFormat(); });
    expect_not_found([&] { registry.GetSearchPath(); });
    expect_not_found([&] { registry.UpdateSearchPath({}); });
    expect_not_found([] { MessageCatalog::MessageCatalogInitFromConfigManager(); });
    EXPECT_FALSE(registry.FindDoubleFormat());
    EXPECT_EQ(write(0.5), u"0.5000");

    EXPECT_EQ(registry.Set(ConfigKind::search_path, CriticalMessageCatalog({})), ConfigError::invalid_type);
    EXPECT_EQ(registry.Set(ConfigKind(3), MessageSearchPath({})), ConfigError::invalid_type);
    expect_not_found([&] { registry.GetSearchPath(); });

    auto format = std::make_shared<numeric_format>(numeric_format::scientific_short);
    EXPECT_FALSE(registry.SetDoubleFormat(std::function(
        [format] { return *format == numeric_format{99} ? throw std::out_of_range("own") : *format; })));
    EXPECT_FALSE(registry.SetCriticalCatalogs(std::vector<CatalogID>{CatalogID("a:b")}));
    EXPECT_FALSE(registry.Set(ConfigKind::search_path, MessageSearchPath({u"one", u"two"})));
    EXPECT_EQ(registry.SetDoubleFormat(std::function<numeric_format()>()), ConfigError::already_exists);
    EXPECT_EQ(registry.SetCriticalCatalogs(std::vector<CatalogID>{}), ConfigError::already_exists);
    EXPECT_EQ(registry.SetSearchPath(std::vector<ustring>{}), ConfigError::already_exists);

    EXPECT_EQ(write(0.5), u"5.0000E-1");
    *format = numeric_format::shortest_short;
    EXPECT_EQ(registry.GetDoubleFormat().GetORBLANDoubleFormat(), numeric_format::shortest_short);
    EXPECT_EQ(write(0.5), u"0.5");
    EXPECT_EQ(MessageCatalog::GetFormattedMessage(u"{0}", {0.5}, numeric_format::simple_short), u"0.5000");
    *format = numeric_format{99};
    EXPECT_THROW(write(0.5), std::out_of_range);
    EXPECT_EQ(MessageCatalog::GetFormattedMessage(u"{0}", {ustring(u"no double")}), u"no double");
    std::vector<MessageCatalog::Argument> const two_doubles{0.5, 0.5};
    EXPECT_THROW(MessageCatalog::GetFormattedMessage(u"{1,select,other{{0}}}", two_doubles),
                 std::out_of_range);
    for (ustring const refused : {u"{0} {1,nonsense}", u"{0} {1", u"{0} {1,nonsense} {2}"}) {
        EXPECT_THROW(MessageCatalog::GetFormattedMessage(refused, two_doubles),
                     MessageCatalog::MessageFormatIncorrect);
    }
    EXPECT_THROW(MessageCatalog::GetFormattedMessage(u"{0}", two_doubles),
                 MessageCatalog::IncorrectHoleCount);
    *format = numeric_format::simple_short;

    EXPECT_EQ(registry.GetCriticalCatalogs().GetCriticalCatalogIds().at(0).getCatalogID(), "a:b");
    auto const before = registry.GetSearchPath();
    registry.UpdateSearchPath({u"three"});
    EXPECT_EQ(before.GetSearchPaths(), (std::vector<ustring>{u"one", u"two"}));
    EXPECT_EQ(registry.GetSearchPath().GetSearchPaths(), std::vector<ustring>{u"three"});

    test::temporary_directory const directory;
    directory.make_directory(u"resources");
    registry.UpdateSearchPath({directory.path().string(), filesystem::get_install_path().string()});
    MessageCatalog::FlushCatalogFromCache(CatalogID("a:b"));
    MessageCatalog::MessageCatalogInitFromConfigManager();
    auto const report = explain_lookup(MessageID("a:b:c"), QzLocale::global(), {}, {});
    EXPECT_EQ(report.roots.at(0), directory.path().string());
    EXPECT_TRUE(report.cache_keys.at(0).hit) << "the critical catalog was opened";
}

TEST(Configuration, KnowsWhatCanBeChanged) {
    EXPECT_TRUE(CriticalMessageCatalog({}).IsReadOnly());
    EXPECT_TRUE(DoubleFormatProvider(nullptr).IsReadOnly());
    EXPECT_THROW(DoubleFormatProvider(nullptr).GetORBLANDoubleFormat(), std::bad_function_call);
    MessageSearchPath path({u"old", u"older"});
    path.UpdateConfig({u"new"});
    EXPECT_EQ(path.GetSearchPaths(), std::vector<ustring>{u"new"});
    EXPECT_FALSE(path.IsReadOnly());
}

TEST(Configuration, ErrorCategoryHasATextForEachCode) {
    std::error_category const & category = ConfigurationManager::getConfigErrorCategory();
    EXPECT_STREQ(category.name(), "config_error");
    char const * const texts[] = {"Success", "Configuration already exists", "Configuration not found",
                                  "Invalid configuration type", "Unknown error"};
    for (int value = 0; value < 5; ++value) {
        EXPECT_EQ(category.message(value), texts[value]);
    }
    EXPECT_EQ(category.message(-1), "Unknown error");
    std::error_code const code = ConfigError::not_found;
    EXPECT_EQ(&code.category(), &category);
    EXPECT_EQ(code.message(), "Configuration not found");
}

} // namespace
} // namespace fl::i18n::messagecatalog
