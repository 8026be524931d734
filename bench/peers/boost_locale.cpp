#include "bench/peers/boost_locale.hpp"

#include "bench/answers.hpp"
#include "bench/case_texts.hpp"
#include "bench/conversion_cases.hpp"
#include "bench/lookups.hpp"

#include <deque>

// Boost.Locale: look-ups with the message file that msgfmt makes, conversions, case mapping.

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

void add_utf8(utf8_case const & c) {
    // It leaves out what it cannot convert.
    if (c.is_well_formed) {
        add_answer(c.to_utf16() + "Boost.Locale", c.utf16,
                   [&c] { return boost_locale::utf8_to_utf16(c.utf8); });
        add_answer(c.to_utf8() + "Boost.Locale", c.utf8,
                   [&c] { return boost_locale::utf16_to_utf8(c.utf16); });
    }
}

/// Adds what it has for other encodings: between them and UTF-8.
void add_encoding(encoding_case const & c) {
    static std::deque<std::string> utf8_texts;
    std::string const & utf8 = utf8_texts.emplace_back(boost_locale::utf16_to_utf8(c.utf16));
    add_answer(c.contest("named to UTF-16") + "Boost.Locale, to UTF-8", utf8,
               [&c] { return boost_locale::to_utf8(c.bytes, c.encoding); });
    add_answer(c.contest("named from UTF-16") + "Boost.Locale, from UTF-8", c.bytes,
               [&c, &utf8] { return boost_locale::from_utf8(utf8, c.encoding); });
}

/// Adds the mapping of wide strings, of which only ASCII is the same text in as many units everywhere.
void add_upper_case(std::string const & name, std::size_t length) {
    auto const text = repeated(english, length);
    std::wstring const wide(text.begin(), text.end());
    static std::deque<std::wstring> answers;
    std::wstring & answer = answers.emplace_back(wide);
    for (wchar_t & unit : answer) {
        unit = L'a' <= unit && unit <= L'z' ? unit - L'a' + L'A' : unit;
    }
    add_answer("upper case/" + name + "/Boost.Locale", answer,
               [wide] { return boost_locale::to_upper(wide); });
}

bool const registered = [] {
    for (utf8_case const & c : utf8_cases()) {
        add_utf8(c);
    }
    for (encoding_case const & c : encoding_cases()) {
        if (!c.is_utf8()) {
            add_encoding(c);
        }
    }
    add_upper_case("20 ASCII", 20);
    add_upper_case("1 MB ASCII", long_text);
    return true;
}();

} // namespace
} // namespace fl::bench
