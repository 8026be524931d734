#include "tests/faults/allocation_faults.hpp"
#include "tests/faults/sweep.hpp"

#include <cstdio>
#include <cstdlib>
#include <stdlib.h>
#include <string_view>

using namespace fl::test;

namespace {

std::vector<scenario> all_scenarios() {
    std::vector<scenario> all = catalog_scenarios();
    for (auto const & more : {locale_scenarios(), text_scenarios()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

int usage() {
    std::fputs("usage: fl_i18n_fault_sweep [--stride N] [--only SCENARIO] [--verbose] [allocations] [files] "
               "[truncations]\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char ** argv) {
    sweep_options options;
    bool allocations = false;
    bool files = false;
    bool truncations = false;
    for (int i = 1; i < argc; ++i) {
        std::string_view const argument = argv[i];
        if (argument == "--stride" && i + 1 < argc) {
            options.stride = std::strtoull(argv[++i], nullptr, 10);
        } else if (argument == "--only" && i + 1 < argc) {
            options.only = argv[++i];
        } else if (argument == "--verbose") {
            options.verbose = true;
        } else if (argument == "allocations" || argument == "files" || argument == "truncations") {
            (argument == "files" ? files : argument == "allocations" ? allocations : truncations) = true;
        } else {
            return usage();
        }
    }
    if (options.stride == 0) {
        return usage();
    }
    bool const all = !allocations && !files && !truncations;

    count_icu_blocks();
    fault_files const tree;
    ::setenv("QZLOCALE_LCDATA_PATH", tree.name("").c_str(), 1);
    ::setenv("QZLOCALE_LCDATA_FILENAME", "small.xml", 1);
    for (char const * const name : {"LC_ALL", "LANG"}) {
        ::setenv(name, "ja_JP.UTF-8", 1);
    }
    std::filesystem::current_path(tree.name(""));
    std::vector<tally> tallies;
    if (all || allocations) {
        tally first_uses{"allocation faults"};
        sweep_first_uses(first_uses, tree, options);
        tallies.push_back(sweep_allocations(all_scenarios(), tree, options));
        tallies.back().points += first_uses.points;
        tallies.back().failures += first_uses.failures;
    }
    if (all || files) {
        tallies.push_back(sweep_files(all_scenarios(), tree, options));
    }
    if (all || truncations) {
        tallies.push_back(sweep_truncations(tree, options));
    }
    std::uint64_t failures = 0;
    for (tally const & t : tallies) {
        t.print();
        failures += t.failures;
    }
    return failures == 0 ? 0 : 1;
}
