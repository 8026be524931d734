#include "tests/faults/sweep.hpp"

#include "tests/faults/allocation_faults.hpp"

#include <cstdio>
#include <fl/i18n/catalog_config.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/fallback_locales.hpp>
#include <fl/i18n/locale_status.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <new>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace fl::test {

using namespace i18n;

namespace {

struct first_use {
    char const * name;
    void (*act)(fault_files const & files);
};

first_use const first_uses[] = {
    {"start-up", [](fault_files const &) { initLcMgmtSystem(); }},
    {"initialisation",
     [](fault_files const & files) { MessageCatalog::MessageCatalogInit(files.path("one")); }},
    {"message",
     [](fault_files const & files) {
         MessageCatalog::MessageCatalogInit(files.path("one"));
         MessageCatalog::get_message(MessageID("app:ui:Plain"));
     }},
    {"converter",
     [](fault_files const &) { codecvt_ustring_to_string("Shift_JIS", false).convert(u"\u3042"); }},
    {"registry",
     [](fault_files const &) { messagecatalog::ConfigurationManagerFactory::Get().FindSearchPath(); }},
    {"formatting",
     [](fault_files const &) {
         MessageCatalog::GetFormattedMessage(u"{0,plural,other{#}}", {std::int64_t(3)});
     }},
    {"fallback locales", [](fault_files const &) { get_fallback_locales(QzLocale::global()); }},
};

/// Everything that the first use made, as seen by uses after it.
std::string aftermath(first_use const & use, fault_files const & files) {
    use.act(files);
    MessageCatalog::MessageCatalogInit({files.path("one"), files.path("two")});
    return ustring_to_utf8(MessageCatalog::get_message(MessageID("app:ui:Plain"))) + '\n' + process_state();
}

/// Runs a first use in this process. Returns the status to end with.
int run_point(first_use const & use, fault_files const & files, std::uint64_t number, bool and_all_further,
              std::string const & expected) {
    bool is_good = true;
    fail_allocation(number, and_all_further);
    try {
        use.act(files);
    } catch (std::bad_alloc const &) {
    } catch (std::runtime_error const & error) {
        done();
        is_good = std::string(error.what()) == "Failed to initialize locale context";
    }
    std::uint64_t const allocations = end_allocation_faults();
    if (allocations < number) {
        return 2;
    }
    std::string const found = aftermath(use, files);
    // The start-up goes on where there is no memory for the parser, and says so.
    bool const is_documented =
        found.find("Failed to create the parser for the XML locale database.") != found.npos;
    is_good = is_good && (found == expected || is_documented);
    if (!is_good) {
        std::printf("FAILED first use of %s, allocation %llu: %s\n", use.name,
                    static_cast<unsigned long long>(number), difference(expected, found).c_str());
    }
    std::fflush(stdout);
    return is_good ? 0 : 1;
}

/// Runs a function in a new process and returns its status, and what it wrote to the pipe.
template <class Run>
int in_process(Run run, std::string * written = nullptr) {
    int ends[2];
    if (::pipe(ends) != 0) {
        return 1;
    }
    std::fflush(stdout);
    pid_t const child = ::fork();
    if (child == 0) {
        int status = 1;
        try {
            status = run(ends[1]);
        } catch (...) {
        }
        ::_exit(status);
    }
    ::close(ends[1]);
    char block[4096];
    for (ssize_t size; (size = ::read(ends[0], block, sizeof block)) > 0;) {
        if (written != nullptr) {
            written->append(block, static_cast<std::size_t>(size));
        }
    }
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

} // namespace

void sweep_first_uses(tally & allocations, fault_files const & files, sweep_options const & options) {
    std::uint64_t point = 0;
    for (first_use const & use : first_uses) {
        if (!std::string("first use").starts_with(options.only)) {
            continue;
        }
        std::string expected;
        std::string count;
        auto const write_to = [](int pipe, std::string const & text) {
            return ::write(pipe, text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? 0 : 1;
        };
        in_process([&](int pipe) { return write_to(pipe, aftermath(use, files)); }, &expected);
        in_process(
            [&](int pipe) {
                fail_allocation(0, false);
                use.act(files);
                return write_to(pipe, std::to_string(end_allocation_faults()));
            },
            &count);
        std::uint64_t const before = allocations.points;
        for (std::uint64_t number = 1; number <= std::stoull(count); ++number) {
            for (bool const and_all_further : {false, true}) {
                if (point++ % options.stride != 0) {
                    continue;
                }
                int const status =
                    in_process([&](int) { return run_point(use, files, number, and_all_further, expected); });
                allocations.points += status != 2 ? 1 : 0;
                if (status != 0 && status != 2) {
                    allocations.fail(std::string("first use of ") + use.name + ", allocation " +
                                     std::to_string(number) + ", status " + std::to_string(status));
                }
            }
        }
        if (options.verbose) {
            std::printf("  first use: %-39s %6llu\n", use.name,
                        static_cast<unsigned long long>(allocations.points - before));
        }
    }
}

} // namespace fl::test
