// A host that configures the message catalogs once, in the process-wide registry, before anything needs a
// message.

#include <fl/filesystem/path.hpp>
#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/ustring.hpp>

#include <atomic>
#include <iostream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

using namespace fl::i18n;
using namespace fl::i18n::messagecatalog;

namespace {

CatalogID const report("lab:report");

/// The user's setting. Any thread may format a message, so any thread may read it.
std::atomic<numeric_format> chosen_format = numeric_format::simple_short;

/// Writes a line in the encoding that the terminal understands.
void print(ustring const & line) {
    static auto const to_terminal = create_codecvt_ustring_to_terminal_output();
    std::cout << to_string(line, *to_terminal) << '\n';
}

/// A refused registration is a code, not an exception. A host that registers once takes any refusal for a
/// fault.
void require(std::error_code const & code) {
    if (code) {
        throw std::system_error(code);
    }
}

void configure(std::vector<ustring> const & search_path) {
    ConfigurationManager & registry = ConfigurationManagerFactory::Get();
    require(registry.SetSearchPath(MessageSearchPath(search_path)));
    // The initialisation opens these, so that their texts are in memory before something is wrong to report.
    require(registry.SetCriticalCatalogs(CriticalMessageCatalog({report, CatalogID("lab:alarms")})));
    // The function is asked for each message, so that a change of the setting shows at once.
    require(registry.SetDoubleFormat(DoubleFormatProvider([] { return chosen_format.load(); })));
}

void print_report() {
    auto const catalog = MessageCatalog::GetMessageCatalog(report);
    print(catalog->text("Title"));
    // No format is given here: the registered function chooses.
    print(MessageCatalog::GetFormattedMessage(catalog->text("Resistance"), {1234567.891}));
}

/// Puts a new search path in force. Catalogs that were loaded before stay in the cache until they are
/// flushed, and that only when no other thread can be looking up a message.
void search_in(std::vector<ustring> const & search_path) {
    ConfigurationManagerFactory::Get().UpdateSearchPath(search_path);
    MessageCatalog::MessageCatalogInitFromConfigManager();
    MessageCatalog::FlushCatalogFromCache(report);
}

void print_error(char const * situation, std::string const & text) {
    print(utf8_to_ustring(std::string(situation) + ": " + text));
}

void run() {
    static char const in_this_program = 0;
    fl::filesystem::upath const home = fl::filesystem::get_install_path(&in_this_program);

    ConfigurationManager & registry = ConfigurationManagerFactory::Get();
    try {
        MessageCatalog::MessageCatalogInitFromConfigManager();
    } catch (std::runtime_error const & failure) {
        print_error("initialisation before registration", failure.what());
    }
    configure({home.string()});
    std::error_code const again = registry.SetSearchPath(MessageSearchPath({home.string()}));
    print_error("a second registration", std::string(again.category().name()) + ", " + again.message());

    MessageCatalog::MessageCatalogInitFromConfigManager();
    print_report();
    chosen_format = numeric_format::engineering_short;
    print_report();

    // A site's own texts come first in the search path. Its catalog stands for the whole of the program's.
    search_in({(home / u"site").string(), home.string()});
    print_report();

    try {
        search_in({(home / u"nowhere").string()});
    } catch (MessageCatalog::MessageCatalogIncorrectRoot const & failure) {
        print_error("a search path without resources", failure.what());
    }
    print_report(); // The directories in force before still are.
}

} // namespace

int main(int argc, char ** argv) {
    try {
        // The language of the messages is the global locale's: the system's, unless the command line names
        // one.
        if (argc > 1) {
            set_lc_messages(argv[1]);
        }
        run();
        return 0;
    } catch (std::exception const & failure) {
        std::cerr << "configured: " << failure.what() << '\n';
        return 1;
    }
}
