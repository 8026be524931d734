// Loads and frees the library, which this program is not linked to, unused and used: load_and_free LIBRARY
// MODULE TIMES. Once loaded it stays, so nothing piles up, and threads may go on in it. MODULE is linked to
// the library.
#include "tests/support/process_usage.hpp"
#include "tests/support/shared_module.hpp"
#include "tests/support/together.hpp"

#include <atomic>
#include <iostream>
#include <string>

namespace {

using fl::test::process_usage;
using fl::test::query_usage;
using fl::test::shared_module;

/// Under a sanitizer memory is not counted: it keeps what was freed.
#if defined __SANITIZE_ADDRESS__ || defined __SANITIZE_THREAD__
constexpr bool counts_memory = false;
#else
constexpr bool counts_memory = true;
#endif

/// Calls `action` many times; what the process has must not grow after the first ten.
template <class Action>
bool stays_flat(char const * name, int times, Action action) {
    process_usage before{};
    for (int i = 0; i < times; ++i) {
        if (i == 10) {
            before = query_usage();
        }
        action();
    }
    process_usage const after = query_usage();
    std::cout << name << ": " << times << " times, memory " << before.memory << " -> " << after.memory
              << " KiB, mapped " << before.mapped << " -> " << after.mapped << " KiB, handles "
              << before.handles << " -> " << after.handles << '\n';
    constexpr std::size_t noise = 512;
    return after.handles <= before.handles && (!counts_memory || (after.memory <= before.memory + noise &&
                                                                  after.mapped <= before.mapped + noise));
}

} // namespace

int main(int, char ** arguments) {
    std::string const library = arguments[1];
    std::string const module = arguments[2];
    int const times = std::stoi(arguments[3]);
    fl::test::wrong_answers wrong;
    wrong.look_at("unused", [&] {
        return stays_flat("loaded and freed", times, [&] { shared_module const loaded(library); }) &&
               shared_module::is_loaded(library);
    });
    wrong.look_at("loading starts nothing",
                  [&] { return shared_module(module).call("found_library_in_use") == 0; });
    wrong.look_at("used", [&] {
        return stays_flat("loaded, used and freed", times,
                          [&] {
                              shared_module const loaded(module);
                              wrong.look_at("state",
                                            [&] { return loaded.call("found_library_in_use") == 1; });
                              wrong.look_at("use", [&] { return loaded.call("uses_library") == 1; });
                          }) &&
               !shared_module::is_loaded(module);
    });
    wrong.look_at("a thread in the library while it is freed", [&] {
        auto * const start = shared_module(library).function<void()>("_ZN2fl4i18n16initLcMgmtSystemEv");
        fl::test::run_together(2, [&](std::size_t i) {
            for (int k = 0; k < 1000; ++k) {
                if (i == 0) {
                    start();
                } else {
                    shared_module const loaded(library);
                }
            }
        });
        return true;
    });
    std::cout << "load and free: " << times << " times unused, " << times << " times used, " << wrong.count()
              << " failures\n";
    return wrong.count() == 0 ? 0 : 1;
}
