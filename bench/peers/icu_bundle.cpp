#include "bench/lookups.hpp"

#include <memory>
#include <unicode/ures.h>

// The lookup of ICU, in a resource bundle that genrb makes and that is opened once.

namespace fl::bench {
namespace {

UResourceBundle * bundle() {
    static std::unique_ptr<UResourceBundle, decltype(&ures_close)> const opened = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<UResourceBundle, decltype(&ures_close)>(
            ures_openDirect(FL_I18N_BENCH_DATA "/icu", language, &status), ures_close);
    }();
    return opened.get();
}

void icu_bundle(benchmark::State & state) {
    auto const & keys = messages().keys;
    measure_lookups(state, [&keys](std::uint32_t i) {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t length = 0;
        UChar const * const text = ures_getStringByKey(bundle(), keys[i].c_str(), &length, &status);
        return U_FAILURE(status) ? std::u16string() : std::u16string(text, static_cast<std::size_t>(length));
    });
}

BENCHMARK(icu_bundle)->Name("lookup/hot/ICU bundle");
BENCHMARK(icu_bundle)->Name("lookup/two threads/ICU bundle")->Threads(2)->UseRealTime();

} // namespace
} // namespace fl::bench
