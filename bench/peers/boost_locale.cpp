#include "bench/peers/boost_locale.hpp"

#include "bench/lookups.hpp"

// The lookup of Boost.Locale, with the message file that msgfmt makes.

namespace fl::bench {
namespace {

boost_locale::texts const & texts() {
    static boost_locale::texts const result(FL_I18N_BENCH_DATA "/gettext", "contest", "ja_JP.UTF-8");
    return result;
}

void boost_utf8(benchmark::State & state) {
    auto const & keys = messages().keys;
    measure_lookups(state, [&keys](std::uint32_t i) { return texts().find(keys[i].c_str()); });
}

BENCHMARK(boost_utf8)->Name("lookup/hot/Boost.Locale");
BENCHMARK(boost_utf8)->Name("lookup/two threads/Boost.Locale")->Threads(2)->UseRealTime();

} // namespace
} // namespace fl::bench
