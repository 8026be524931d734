#include "tests/support/temporary_directory.hpp"

#include <atomic>
#include <fl/i18n/fallback_locales.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/resource_finder.hpp>
#include <fl/i18n/ustring.hpp>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace fl::i18n {
namespace {

constexpr int rounds = 2000;

/// Runs each action `rounds` times on a thread of its own, all at once; an exception is a failure.
void run_together(std::vector<std::function<void(int)>> const & actions) {
    std::atomic<std::size_t> waiting = actions.size();
    std::vector<std::thread> threads;
    for (auto const & action : actions) {
        threads.emplace_back([&] {
            --waiting;
            while (waiting != 0) {
                std::this_thread::yield();
            }
            try {
                for (int i = 0; i < rounds; ++i) {
                    action(i);
                }
            } catch (std::exception const & failure) {
                ADD_FAILURE() << failure.what();
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
}

std::string catalog_with(std::string const & text) {
    return "<rsccat><message><entry key=\"Greeting\">" + text + "</entry></message></rsccat>";
}

TEST(Concurrency, LookupsInitialisationAndGlobalLocaleChanges) {
    test::temporary_directory first;
    test::temporary_directory second;
    for (auto const * root : {&first, &second}) {
        root->write(u"resources/app/en_US_POSIX/ui.xml", catalog_with("hello {0}"));
        root->write(u"resources/app/ja/ui.xml", catalog_with("konnichiwa {0}"));
        root->write(u"resources/app/de/ui.xml", catalog_with("hallo {0}"));
    }
    auto const before = QzLocale::createLocale(QzLocale::global());
    MessageCatalog::MessageCatalogInit(first.path().string());

    MessageID const id(std::string("app:ui:Greeting"));
    std::set<ustring> const allowed{u"hello 7", u"konnichiwa 7", u"hallo 7"};
    auto const look_up = [&](int) {
        auto const catalog = MessageCatalog::GetMessageCatalog(CatalogID(std::string("app:ui")));
        ustring const text =
            MessageCatalog::GetFormattedMessage(catalog->text("Greeting"), {std::int64_t(7)}, std::nullopt);
        ASSERT_TRUE(allowed.contains(text)) << ustring_to_utf8(text);
        ASSERT_EQ(get_fallback_locales(QzLocale::global()).back(), u"en_US_POSIX");
        ASSERT_EQ(to_ustring(to_string(u"\u00E9\u3042")).size(), 2u);
    };
    run_together({
        look_up,
        look_up,
        [&](int i) { MessageCatalog::MessageCatalogInit((i % 2 ? first : second).path().string()); },
        [&](int i) {
            char const * const names[] = {"ja_JP", "de_DE", "fr_FR", "en_US_POSIX"};
            experimental::set_global_locale(names[i % 4]);
            set_lc_messages(names[(i + 1) % 4]);
        },
    });
    change_global_locale(*before);
    MessageCatalog::FlushCatalogFromCache(CatalogID(std::string("app:ui")));
}

TEST(Concurrency, ConvertersAndFindersOfDifferentThreadsAreIndependent) {
    test::temporary_directory root;
    root.write(u"help_ja.txt", "x");
    std::vector<filesystem::upath> const bases{root.path()};
    auto const work = [&](int i) {
        auto const locale = QzLocale::createLocale(i % 2 ? "ja_JP" : "ja_JP.EUC-JP");
        ASSERT_FALSE(resource_finder::find_resource(bases, u"help_%S.txt", *locale, true).empty());
        ASSERT_EQ(locale->getEncoding(), i % 2 ? "UTF-8" : "EUC-JP");
        ASSERT_FALSE(QzLcUtil::getEventLog().empty());
    };
    run_together({work, work});
}

} // namespace
} // namespace fl::i18n
