#include "bench/answers.hpp"
#include "bench/conversion_cases.hpp"

#include <algorithm>
#include <cstdint>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <stdexcept>
#include <unicode/ucnv.h>
#include <unicode/ustring.h>

// Conversions beside ICU's functions, each with the result as a string.

namespace fl::bench {
namespace {

using namespace i18n;

void check(UErrorCode status) {
    if (U_FAILURE(status)) {
        throw std::runtime_error(u_errorName(status));
    }
}

std::int32_t length_of(auto const & text) {
    return static_cast<std::int32_t>(std::size(text));
}

// What a program makes of ICU's functions: a buffer on the stack for short texts; else either one of the
// greatest length that is possible, or two passes, the first of which counts when the text does not fit.

template <class To, class Pass>
std::basic_string<To> in_one_pass(std::size_t most, Pass pass) {
    if (To buffer[1024]; most <= std::size(buffer)) {
        return {buffer, static_cast<std::size_t>(pass(buffer, length_of(buffer)))};
    }
    std::basic_string<To> result(most, To());
    result.resize(static_cast<std::size_t>(pass(result.data(), length_of(result))));
    return result;
}

template <class To, class Pass>
std::basic_string<To> in_two_passes(std::size_t source_length, Pass pass) {
    std::basic_string<To> result(std::min<std::size_t>(source_length, 32768), To());
    auto const needed = static_cast<std::size_t>(pass(result.data(), length_of(result)));
    if (needed > result.size()) {
        result.assign(needed, To());
        pass(result.data(), length_of(result));
    }
    result.resize(needed);
    return result;
}

auto from_utf8(std::string const & text) {
    return [&text](char16_t * to, std::int32_t capacity) {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t needed = 0;
        u_strFromUTF8WithSub(to, capacity, &needed, text.data(), length_of(text), 0xFFFD, nullptr, &status);
        return needed;
    };
}

auto to_utf8(ustring const & text) {
    return [&text](char * to, std::int32_t capacity) {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t needed = 0;
        u_strToUTF8WithSub(to, capacity, &needed, text.data(), length_of(text), 0xFFFD, nullptr, &status);
        return needed;
    };
}

using icu_handle = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

icu_handle open(std::string const & encoding) {
    UErrorCode status = U_ZERO_ERROR;
    icu_handle handle(ucnv_open(encoding.c_str(), &status), &ucnv_close);
    check(status);
    return handle;
}

ustring decode(UConverter * converter, std::string const & text) {
    return in_one_pass<char16_t>(text.size(), [&](char16_t * to, std::int32_t capacity) {
        UErrorCode status = U_ZERO_ERROR;
        auto const length = ucnv_toUChars(converter, to, capacity, text.data(), length_of(text), &status);
        check(status);
        return length;
    });
}

std::string encode(UConverter * converter, ustring const & text) {
    return in_one_pass<char>(4 * text.size(), [&](char * to, std::int32_t capacity) {
        UErrorCode status = U_ZERO_ERROR;
        auto const length = ucnv_fromUChars(converter, to, capacity, text.data(), length_of(text), &status);
        check(status);
        return length;
    });
}

void add_utf8(utf8_case const & c) {
    if (c.is_well_formed) {
        add_answer(c.to_utf16() + "ours", c.utf16, [&c] { return utf8_to_ustring(c.utf8); });
        add_answer(c.to_utf16() + "ICU", c.utf16,
                   [&c] { return in_one_pass<char16_t>(c.utf8.size(), from_utf8(c.utf8)); });
    }
    add_answer(c.to_utf8() + "ours", c.utf8, [&c] { return ustring_to_utf8(c.utf16); });
    add_answer(c.to_utf8() + "ICU", c.utf8,
               [&c] { return in_one_pass<char>(3 * c.utf16.size(), to_utf8(c.utf16)); });
    if (c.is_well_formed && c.utf16.size() > 1024) {
        add_answer(c.to_utf16() + "ICU, two passes", c.utf16,
                   [&c] { return in_two_passes<char16_t>(c.utf8.size(), from_utf8(c.utf8)); });
        add_answer(c.to_utf8() + "ICU, two passes", c.utf8,
                   [&c] { return in_two_passes<char>(c.utf16.size(), to_utf8(c.utf16)); });
    }
}

/// Adds our contestant of a case, which runs under the locale that has the encoding.
template <class Text, class Function>
void add_under(char const * locale, std::string const & name, Text const & expected, Function function) {
    benchmark::RegisterBenchmark(name.c_str(), [=, &expected](benchmark::State & state) {
        change_global_locale(*QzLocale::createLocale(locale));
        measure_answer(state, expected, function);
    });
}

void add_icu_to_utf16(encoding_case const & c, std::string const & contest) {
    add_answer(contest + "ICU opened each time", c.utf16,
               [&c] { return decode(open(c.encoding).get(), c.bytes); });
}

void add_icu_from_utf16(encoding_case const & c, std::string const & contest) {
    add_answer(contest + "ICU opened each time", c.bytes,
               [&c] { return encode(open(c.encoding).get(), c.utf16); });
}

void add_process_encoding(encoding_case const & c) {
    auto const to = c.contest("to_ustring");
    auto const from = c.contest("to_string");
    std::shared_ptr<UConverter> const kept = open(c.encoding);
    add_under(c.locale, to + "ours", c.utf16, [&c] { return to_ustring(c.bytes); });
    add_answer(to + "ICU kept", c.utf16, [&c, kept] { return decode(kept.get(), c.bytes); });
    add_icu_to_utf16(c, to);
    add_under(c.locale, from + "ours", c.bytes, [&c] { return to_string(c.utf16); });
    add_answer(from + "ICU kept", c.bytes, [&c, kept] { return encode(kept.get(), c.utf16); });
    add_icu_from_utf16(c, from);
}

/// Converters of a name, or the terminal's, each made for one text.
void add_converters(encoding_case const & c) {
    auto const to = c.contest("named to UTF-16");
    auto const from = c.contest("named from UTF-16");
    auto const by_function = c.contest("named, by to_ustring");
    auto const terminal = c.contest("terminal to UTF-16");
    add_answer(to + "ours", c.utf16,
               [&c] { return codecvt_string_to_ustring(c.encoding, false).convert(c.bytes); });
    add_icu_to_utf16(c, to);
    add_answer(from + "ours", c.bytes,
               [&c] { return codecvt_ustring_to_string(c.encoding, false).convert(c.utf16); });
    add_icu_from_utf16(c, from);
    add_answer(by_function + "ours", c.utf16,
               [&c] { return to_ustring(c.bytes, codecvt_string_to_ustring(c.encoding, false)); });
    add_icu_to_utf16(c, by_function);
    add_under(c.locale, terminal + "ours", c.utf16,
              [&c] { return to_ustring(c.bytes, *create_codecvt_terminal_to_ustring()); });
    add_icu_to_utf16(c, terminal);
}

bool const registered = [] {
    for (utf8_case const & c : utf8_cases()) {
        add_utf8(c);
    }
    for (encoding_case const & c : encoding_cases()) {
        add_process_encoding(c);
        // ICU opens a converter of UTF-8 in no time.
        if (!c.is_utf8()) {
            add_converters(c);
        }
    }
    return true;
}();

} // namespace
} // namespace fl::bench
