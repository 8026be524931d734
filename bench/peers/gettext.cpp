#include "bench/lookups.hpp"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <libintl.h>
#include <unicode/ustring.h>

// The lookup of the C library, with the message file that msgfmt makes. Its texts are UTF-8; those who need
// UTF-16 convert.

namespace fl::bench {
namespace {

constexpr char domain[] = "contest";

/// The language is that of the environment, which counts only when the process has a locale other than "C".
void prepare() {
    static bool const done = [] {
        setenv("LANGUAGE", language, 1);
        bindtextdomain(domain, FL_I18N_BENCH_DATA "/gettext");
        return std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr &&
               std::setlocale(LC_MESSAGES, "C.UTF-8") != nullptr;
    }();
    benchmark::DoNotOptimize(done);
}

std::u16string to_utf16(char const * text) {
    std::size_t const bytes = std::strlen(text);
    std::u16string result(bytes, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strFromUTF8(result.data(), static_cast<std::int32_t>(bytes), &length, text,
                  static_cast<std::int32_t>(bytes), &status);
    result.resize(static_cast<std::size_t>(length));
    return result;
}

void gettext_utf8(benchmark::State & state) {
    prepare();
    auto const & keys = messages().keys;
    measure_lookups(state,
                    [&keys](std::uint32_t i) -> char const * { return dgettext(domain, keys[i].c_str()); });
}

void gettext_utf16(benchmark::State & state) {
    prepare();
    auto const & keys = messages().keys;
    measure_lookups(state, [&keys](std::uint32_t i) { return to_utf16(dgettext(domain, keys[i].c_str())); });
}

BENCHMARK(gettext_utf8)->Name("lookup/hot/dgettext");
BENCHMARK(gettext_utf16)->Name("lookup/hot/dgettext, to UTF-16");
BENCHMARK(gettext_utf8)->Name("lookup/two threads/dgettext")->Threads(2)->UseRealTime();
BENCHMARK(gettext_utf16)->Name("lookup/two threads/dgettext, to UTF-16")->Threads(2)->UseRealTime();

} // namespace
} // namespace fl::bench
