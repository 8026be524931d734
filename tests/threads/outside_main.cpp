// The library is used before main, after it, and by a thread that still runs then: outside_main MODULE. The
// module, which does the same when it is loaded and freed, comes and goes meanwhile.
#include "tests/support/shared_module.hpp"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/environment.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/ustring.hpp>
#include <iostream>
#include <string>
#include <thread>

namespace {

using namespace fl::i18n;

bool answers() {
    MessageID const id(std::string("fl:i18n:QzLcInvLcArgument"));
    // The category and the environment are objects with a destructor.
    return MessageCatalog::get_message(id, *QzLocale::createLocale("ja_JP")) == u"引数が無効です。" &&
           MessageCatalog::GetFormattedMessage(u"{0}", {std::int64_t{7}}) == u"7" &&
           to_ustring(to_string(u"a")) == u"a" &&
           make_error_code(messagecatalog::ConfigError::not_found).message() == "Configuration not found" &&
           !isenv(ustring(u"FL_I18N_NOT_THERE"));
}

void require_answers(char const * when) {
    if (!answers()) {
        std::cerr << "wrong answers " << when << '\n';
        std::_Exit(1);
    }
}

std::atomic<unsigned> rounds = 0;

/// Waits until the thread has done something more.
void wait_for_thread() {
    for (unsigned const before = rounds; rounds == before;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

struct program_lifetime {
    program_lifetime() {
        require_answers("before main");
        std::thread([] {
            for (;; ++rounds) {
                require_answers("in the thread");
            }
        }).detach();
    }
    ~program_lifetime() {
        require_answers("after main");
        wait_for_thread();
    }
};

program_lifetime const lifetime;

} // namespace

int main(int, char ** arguments) {
    for (int i = 0; i < 20; ++i) {
        fl::test::shared_module const module(arguments[1]);
        if (module.call("uses_library") != 1) {
            std::cerr << "wrong answers of the module\n";
            return 1;
        }
    }
    wait_for_thread();
}
