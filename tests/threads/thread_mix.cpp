// Eight threads do everything that several may, in a random order: thread_mix SECONDS [SEED]. Every answer
// must be one of those that the state of some moment allows. Every now and then all pause, and the catalogs
// are flushed.
#include "tests/support/temporary_directory.hpp"
#include "tests/support/together.hpp"

#include <array>
#include <atomic>
#include <cctype>
#include <chrono>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ctype.hpp>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/fallback_locales.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/resource_finder.hpp>
#include <fl/i18n/ustring.hpp>
#include <iostream>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace fl {
namespace {

using namespace i18n;
namespace config = messagecatalog;

constexpr unsigned thread_count = 8;
constexpr int operations_in_a_round = 100;
constexpr std::array locale_names{"ja_JP",       "de_DE",        "fr_FR",
                                  "en_US_POSIX", "ja_JP.EUC-JP", "de_AT.ISO-8859-1"};

test::temporary_directory const first;
test::temporary_directory const second;
test::temporary_directory const added;

struct thread_state {
    unsigned number;
    std::minstd_rand random;
    unsigned round = 0;

    unsigned choose(std::size_t count) { return static_cast<unsigned>(random() / 7 % count); }
    std::string locale_name() { return locale_names[choose(locale_names.size())]; }
    /// Returns a locale that has no cached catalog yet, now and then.
    std::shared_ptr<QzLocale const> locale() {
        std::string const name = locale_name();
        return QzLocale::createLocale(choose(4) ? name
                                                : name.substr(0, 2) + "_X" + std::to_string(choose(100)));
    }
};

bool one_of(std::set<ustring> const & allowed, ustring const & text) {
    return allowed.contains(text);
}

template <class Exception, class Action>
bool throws(Action action) {
    try {
        action();
    } catch (Exception const &) {
        return true;
    }
    return false;
}

std::set<ustring> const greetings{u"hello {0} first",  u"konnichiwa {0} first",  u"hallo {0} first",
                                  u"hello {0} second", u"konnichiwa {0} second", u"hallo {0} second",
                                  u"hello {0} added",  u"konnichiwa {0} added",  u"hallo {0} added"};

bool gets_messages(thread_state & thread) {
    auto const catalog =
        MessageCatalog::GetMessageCatalog(CatalogID(std::string("app:ui")), *thread.locale());
    ustring const text = catalog->text("Greeting");
    return one_of(greetings, text) && catalog->keys().size() == 2 &&
           MessageCatalog::GetFormattedMessage(text, {ustring(u"{0}")}) == text &&
           one_of({u"title first", u"title second", u"title added"},
                  MessageCatalog::get_message(MessageID(std::string("app:ui:Title"))));
}

bool misses(thread_state & thread) {
    std::string const catalog = "app:no" + std::to_string(thread.choose(50));
    return throws<MessageCatalog::MessageCatalogLoadFailed>(
               [&] { MessageCatalog::get_message(MessageID(catalog + ":Title"), *thread.locale()); }) &&
           throws<MessageCatalog::MessageNotFound>(
               [] { MessageCatalog::get_message(MessageID(std::string("app:ui:Nothing"))); });
}

bool formats(thread_state & thread) {
    std::int64_t const number = thread.choose(1000);
    std::string const digits = std::to_string(number);
    ustring const wide(digits.begin(), digits.end());
    struct refused {};
    return MessageCatalog::GetFormattedMessage(u"{0} {1,number,0.00} {2}", {number, 0.5, 12345.678901234}) ==
               wide + u" 0.50 1.2346E4" &&
           MessageCatalog::GetFormattedMessage(u"{0,plural,=1{a}other{# b}}", {std::int64_t{2}}) == u"2 b" &&
           throws<MessageCatalog::IncorrectHoleCount>(
               [] { MessageCatalog::GetFormattedMessage(u"{0}", {}); }) &&
           throws<refused>([] {
               MessageCatalog::GetFormattedMessage(
                   u"{0}", 1, [](auto &, auto const &) { throw refused(); }, std::nullopt);
           });
}

bool initialises(thread_state & thread) {
    if (thread.choose(2)) {
        // One that fails is in nobody's way. It succeeds while there is an additional location.
        try {
            return !MessageCatalog::MessageCatalogInit(u"no such directory");
        } catch (MessageCatalog::MessageCatalogIncorrectRoot const &) {
            return true;
        }
    }
    ustring const root = (thread.choose(2) ? first : second).path().string();
    return thread.choose(2) ? !MessageCatalog::MessageCatalogInit(root)
                            : !MessageCatalog::MessageCatalogInit({root, first.path().string()});
}

bool changes_locale(thread_state & thread) {
    std::string const name = thread.locale_name();
    change_global_locale(*thread.locale());
    bool const set = experimental::set_global_locale(name) && set_lc_messages(thread.locale_name());
    std::string const encoding = QzLocale::global().getEncoding();
    return set && throws<QzLcInvLcName>([] { experimental::set_global_locale("a/b"); }) &&
           get_l10n_resource_status() && !encoding.empty() && QzLocale::classic().getEncoding() == "UTF-8" &&
           get_fallback_locales(QzLocale::global()).back() == u"en_US_POSIX";
}

bool finds_files(thread_state & thread) {
    std::vector<filesystem::upath> const bases{first.path(), second.path()};
    std::string found_locale;
    auto const found = resource_finder::find_resource(bases, u"help_%S.txt", found_locale,
                                                      *QzLocale::createLocale("ja_JP"), true);
    return found == second.path() / u"help_ja.txt" && found_locale == "ja" &&
           resource_finder::find_resource(bases, u"none_%S.txt", *thread.locale(), true).empty();
}

bool converts(thread_state & thread) {
    constexpr std::array encodings{"EUC-JP", "Shift_JIS", "UTF-8", "GB18030"};
    // In the encodings of the locales above, and where the system has none.
    static std::set<std::string> const accents{"\xC3\xA9", "\xE9", "\x8F\xAB\xB1", "\x1A"};
    std::string encoding = encodings[thread.choose(encodings.size())];
    // All threads meet a new name in a round.
    for (std::size_t i = 0; i < encoding.size(); ++i) {
        encoding[i] =
            static_cast<char>(thread.round >> i & 1 ? std::toupper(encoding[i]) : std::tolower(encoding[i]));
    }
    codecvt_ustring_to_string to(encoding, false);
    codecvt_string_to_ustring from(encoding, false);
    ustring const text = u"a\u3042\u30A2";
    return from.convert(to.convert(text)) == text && to_ustring(to_string(u"ab")) == u"ab" &&
           accents.contains(to_string(u"\u00E9")) && create_codecvt_ustring_to_terminal() != nullptr &&
           get_standard_encoding_name("cp1252") == "windows-1252" && throws<CvtInvalidEncodingName>([&] {
               codecvt_string_to_ustring("no-" + std::to_string(thread.choose(1000)), true);
           });
}

bool uses_environment(thread_state & thread) {
    std::string const name = "FL_I18N_MIX_" + std::to_string(thread.number);
    ustring const value = thread.choose(2) ? u"\u3042" : ustring(300, u'x');
#ifdef _WIN32
    // Two threads that change the environment crash in some versions of Wine.
    bool const may_change = thread.number == 0;
#else
    bool const may_change = true;
#endif
    bool const own = !may_change || (setenv(name, value, 1, false) == 0 && getenv(name) == value &&
                                     (thread.choose(2) || unsetenv(name) == 0));
    return own && one_of({u"", u"\u3042", ustring(300, u'x')}, getenv("FL_I18N_MIX_0")) &&
           !isenv(ustring(u"NO\u00E9")) && !filesystem::temp_directory_name().empty();
}

bool uses_registry(thread_state & thread) {
    auto & registry = config::ConfigurationManagerFactory::Get();
    ustring const path = (thread.choose(2) ? first : second).path().string();
    registry.UpdateSearchPath({path});
    auto const found = registry.GetSearchPath().GetSearchPaths();
    return registry.SetSearchPath(config::MessageSearchPath({path})) == config::ConfigError::already_exists &&
           one_of({first.path().string(), second.path().string()}, found.at(0)) &&
           !MessageCatalog::MessageCatalogInitFromConfigManager();
}

bool changes_additional_locations(thread_state & thread) {
    MessageID const id(std::string("app:added:Title"));
    try {
        switch (thread.choose(3)) {
        case 0:
            MessageCatalog::set_additional_resource_locations({added.path().string()});
            return true;
        case 1:
            MessageCatalog::remove_additional_resource_location(added.path().string());
            return true;
        default:
            return MessageCatalog::get_message(id, *thread.locale()) == u"added";
        }
    } catch (MessageCatalog::ResourcePathNotFound const &) {
        return true;
    } catch (MessageCatalog::MessageCatalogLoadFailed const &) {
        return true;
    }
}

bool reads_event_log(thread_state &) {
    auto const events = QzLcUtil::getEventLog();
    return events.front() == "QzLocaleCtx::initQzLcCtx - Locale context was initialized." &&
           events.size() <= 512 + 1 + 512 && QzLcUtil::getLcStatus() == LcStatusInitialized;
}

bool explains(thread_state & thread) {
    LookupReport const report = explain_lookup(MessageID(std::string("app:ui:Greeting")), *thread.locale(),
                                               {ustring(u"{0}")}, std::nullopt);
    return report.step == LookupStep::done && one_of(greetings, report.text) && report.key_found &&
           report.error.empty();
}

bool maps_characters(thread_state &) {
    return transform(u"i\u00DF", to_upper_locale(QzLocale::classic())) == u"ISS" &&
           transform(u"e\u0301", normalization_form::compose) == u"\u00E9";
}

struct subject {
    char const * name;
    bool (*has_allowed_answers)(thread_state &);
    unsigned weight;
};

constexpr std::array<subject, 13> subjects{{
    {"messages", gets_messages, 8},
    {"misses", misses, 2},
    {"formatting", formats, 2},
    {"initialisation", initialises, 1},
    {"global locale", changes_locale, 2},
    {"finder", finds_files, 1},
    {"converters", converts, 2},
    {"environment", uses_environment, 1},
    {"registry", uses_registry, 1},
    {"additional locations", changes_additional_locations, 1},
    {"event log", reads_event_log, 1},
    {"reports", explains, 1},
    {"characters", maps_characters, 1},
}};

void write_files() {
    auto const entry = [](std::string const & key, std::string const & text) {
        return "<entry key=\"" + key + "\">" + text + "</entry>";
    };
    auto const catalog = [](std::string const & entries) {
        return "<rsccat><message>" + entries + "</message></rsccat>";
    };
    for (auto const & [root, name] :
         {std::pair(&first, " first"), std::pair(&second, " second"), std::pair(&added, " added")}) {
        for (auto const & [file, greeting] : {std::pair(u"resources/app/en_US_POSIX/ui.xml", "hello {0}"),
                                              std::pair(u"resources/app/ja/ui.xml", "konnichiwa {0}"),
                                              std::pair(u"resources/app/de/ui.xml", "hallo {0}")}) {
            root->write(file, catalog(entry("Greeting", std::string(greeting) + name) +
                                      entry("Title", std::string("title") + name)));
        }
    }
    second.write(u"help_ja.txt", "x");
    added.write(u"resources/app/en_US_POSIX/added.xml", catalog(entry("Title", "added")));
}

void flush_catalogs() noexcept {
    for (std::string const name : {"ui", "added"}) {
        MessageCatalog::FlushCatalogFromCache(CatalogID("app:" + name));
    }
    for (int i = 0; i < 50; ++i) {
        MessageCatalog::FlushCatalogFromCache(CatalogID("app:no" + std::to_string(i)));
    }
}

void set_up() {
    write_files();
    MessageCatalog::MessageCatalogInit(first.path().string());
    auto & registry = config::ConfigurationManagerFactory::Get();
    registry.SetSearchPath(config::MessageSearchPath({first.path().string()}));
    registry.SetDoubleFormat(config::DoubleFormatProvider([] { return numeric_format::shortest_short; }));
}

} // namespace
} // namespace fl

int main(int count, char ** arguments) {
    using namespace fl;
    std::chrono::seconds const duration(count > 1 ? std::stol(arguments[1]) : 5);
    unsigned const seed =
        count > 2 ? static_cast<unsigned>(std::stoul(arguments[2])) : std::random_device()();
    set_up();
    std::vector<subject const *> choices;
    for (subject const & s : subjects) {
        choices.insert(choices.end(), s.weight, &s);
    }
    test::wrong_answers wrong;
    std::atomic<std::uint64_t> operations = 0;
    auto const end = std::chrono::steady_clock::now() + duration;
    bool running = true;
    unsigned rounds = 0;
    test::meeting_point pause(thread_count, [&] {
        if (++rounds % 10 == 0) {
            flush_catalogs();
        }
        running = std::chrono::steady_clock::now() < end;
    });
    test::run_together(thread_count, [&](std::size_t number) {
        thread_state thread{static_cast<unsigned>(number),
                            std::minstd_rand(seed + static_cast<unsigned>(number))};
        while (running) {
            for (int i = 0; i < operations_in_a_round; ++i) {
                subject const & s = *choices[thread.choose(choices.size())];
                wrong.look_at(s.name, [&] { return s.has_allowed_answers(thread); });
            }
            operations += operations_in_a_round;
            ++thread.round;
            pause.arrive_and_wait();
        }
    });
    std::cout << "thread mixture: " << thread_count << " threads, " << duration.count() << " s, "
              << operations << " operations, " << wrong.count() << " failures (seed " << seed << ")\n";
    return wrong.count() == 0 ? 0 : 1;
}
