#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <unicode/ucnv.h>
#include <unicode/ustring.h>
#if __has_include(<iconv.h>)
#include <iconv.h>
#define FL_I18N_HAS_ICONV 1
#endif

// Conversions beside ICU's functions and iconv's, each with the result as a string.

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

#ifdef FL_I18N_HAS_ICONV
/// An open iconv conversion between an encoding and UTF-16.
class iconv_handle {
public:
    iconv_handle(char const * to, char const * from)
        : handle_(iconv_open(to, from)) {}
    ~iconv_handle() { iconv_close(handle_); }
    iconv_handle(iconv_handle const &) = delete;
    iconv_handle & operator=(iconv_handle const &) = delete;

    /// Converts a short text.
    template <class To, class From>
    std::basic_string<To> convert(std::basic_string<From> const & text) {
        To buffer[1024];
        auto * from = const_cast<char *>(reinterpret_cast<char const *>(text.data()));
        auto * to = reinterpret_cast<char *>(buffer);
        std::size_t from_left = text.size() * sizeof(From);
        std::size_t to_left = sizeof buffer;
        if (iconv(handle_, &from, &from_left, &to, &to_left) == static_cast<std::size_t>(-1)) {
            throw std::runtime_error("iconv");
        }
        return {buffer, std::size(buffer) - to_left / sizeof(To)};
    }

private:
    iconv_t handle_;
};
#endif

template <class Function>
void add(std::string const & name, Function function) {
    benchmark::RegisterBenchmark(name.c_str(), [function](benchmark::State & state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(function());
        }
    });
}

/// Returns a text of pieces of another in an order without a pattern, as a processor learns the pattern of a
/// text that is repeated.
ustring shuffled(ustring const & text, std::size_t length) {
    std::minstd_rand random(1);
    ustring result;
    while (result.size() < length) {
        auto const from = random() % text.size();
        for (char16_t const unit : text.substr(from, 1 + random() % 10)) {
            // No half of a pair without the other, unless the text has it so.
            bool const after_high = !result.empty() && U16_IS_LEAD(result.back());
            if (U16_IS_TRAIL(unit) == after_high || text.find(u'\xD800') != text.npos) {
                result += unit;
            }
        }
        if (U16_IS_LEAD(result.back())) {
            result.pop_back();
        }
    }
    result.resize(length - (U16_IS_LEAD(result[length - 1]) ? 1 : 0));
    return result;
}

struct script {
    char const * name;
    ustring text;
};

script const scripts[] = {
    {"ascii", u"Cannot open the file: it is in use by another program. "},
    {"latin", u"Les \xE9l\xE8ves fran\xE7"
              u"ais \xE9taient l\xE0-bas, \xE0 c\xF4t\xE9 des autres. "},
    {"cyrillic", u"\x41D\x435 \x443\x434\x430\x43B\x43E\x441\x44C \x43E\x442\x43A\x440\x44B\x442\x44C "
                 u"\x444\x430\x439\x43B. "},
    {"japanese", u"\x30ED\x30B1\x30FC\x30EB\x540D\x304C\x7121\x52B9\x3067\x3059\x3002"
                 u"\x30D5\x30A1\x30A4\x30EB\x3092\x958B\x3051\x307E\x305B\x3093\x3002"},
    {"mixed", u"\x65E5\x672C\x8A9E text \x306E"
              u"ABC\x30C6\x30AD\x30B9\x30C8 12, caf\xE9 \xD83D\xDE00 "},
    {"emoji", u"\xD83D\xDE00\xD83D\xDE01 ok \xD83D\xDE02"},
    {"lone surrogates", u"ab\xD800 cd\xDC00\xE9 "},
};

void add_utf8() {
    for (script const & s : scripts) {
        for (auto const & [size, length] : {std::pair("20 units", 20), {"1 MB", 500000}}) {
            auto const utf16 = std::make_shared<ustring>(shuffled(s.text, static_cast<std::size_t>(length)));
            auto const utf8 = std::make_shared<std::string>(ustring_to_utf8(*utf16));
            std::string const subject = std::string("/") + s.name + " " + size + "/";
            add("utf8 to utf16" + subject + "ours", [=] { return utf8_to_ustring(*utf8); });
            add("utf8 to utf16" + subject + "ICU",
                [=] { return in_one_pass<char16_t>(utf8->size(), from_utf8(*utf8)); });
            add("utf16 to utf8" + subject + "ours", [=] { return ustring_to_utf8(*utf16); });
            add("utf16 to utf8" + subject + "ICU",
                [=] { return in_one_pass<char>(3 * utf16->size(), to_utf8(*utf16)); });
            if (length > 1024) {
                add("utf8 to utf16" + subject + "ICU, two passes",
                    [=] { return in_two_passes<char16_t>(utf8->size(), from_utf8(*utf8)); });
                add("utf16 to utf8" + subject + "ICU, two passes",
                    [=] { return in_two_passes<char>(utf16->size(), to_utf8(*utf16)); });
            }
        }
    }
}

/// The process encodings, by locales that have them, and texts in them.
struct process_case {
    char const * locale;
    char const * encoding;
    char const * name;
    ustring text;
};

process_case const process_cases[] = {
    {"en_US.UTF-8", "UTF-8", "ascii in UTF-8", u"Cannot open file 12."},
    {"ja_JP.UTF-8", "UTF-8", "japanese in UTF-8",
     u"\x30D5\x30A1\x30A4\x30EB 12 \x3092\x958B\x3051\x307E\x305B\x3093\x3067\x3057\x305F\x3002!"},
    {"ja_JP.Shift_JIS", "Shift_JIS", "ascii in Shift_JIS", u"Cannot open file 12."},
    {"ja_JP.Shift_JIS", "Shift_JIS", "japanese in Shift_JIS",
     u"\x30D5\x30A1\x30A4\x30EB 12 \x3092\x958B\x3051\x307E\x305B\x3093\x3067\x3057\x305F\x3002!"},
    {"de_DE.windows-1252", "windows-1252", "ascii in windows-1252", u"Cannot open file 12."},
    {"de_DE.windows-1252", "windows-1252", "latin in windows-1252",
     u"R\xFC"
     u"ckg\xE4ngig gew\xE4hlt."},
};

/// Adds a case that runs under a locale.
template <class Function>
void add_under(char const * locale, std::string const & name, Function function) {
    benchmark::RegisterBenchmark(name.c_str(), [locale, function](benchmark::State & state) {
        change_global_locale(*QzLocale::createLocale(locale));
        for (auto _ : state) {
            benchmark::DoNotOptimize(function());
        }
    });
}

void add_process_encoding() {
    for (process_case const & c : process_cases) {
        std::string const encoding = c.encoding;
        ustring const text = c.text;
        std::string const bytes = encode(open(encoding).get(), text);
        auto const kept = std::make_shared<icu_handle>(open(encoding));
        std::string const to = std::string("to_ustring/") + c.name + "/";
        std::string const from = std::string("to_string/") + c.name + "/";
        add_under(c.locale, to + "ours", [=] { return to_ustring(bytes); });
        add(to + "ICU kept", [=] { return decode(kept->get(), bytes); });
        add(to + "ICU opened each time", [=] { return decode(open(encoding).get(), bytes); });
        add_under(c.locale, from + "ours", [=] { return to_string(text); });
        add(from + "ICU kept", [=] { return encode(kept->get(), text); });
        add(from + "ICU opened each time", [=] { return encode(open(encoding).get(), text); });
#ifdef FL_I18N_HAS_ICONV
        auto const iconv_to = std::make_shared<iconv_handle>("UTF-16LE", c.encoding);
        auto const iconv_from = std::make_shared<iconv_handle>(c.encoding, "UTF-16LE");
        add(to + "iconv kept", [=] { return iconv_to->convert<char16_t>(bytes); });
        add(to + "iconv opened each time",
            [=] { return iconv_handle("UTF-16LE", encoding.c_str()).convert<char16_t>(bytes); });
        add(from + "iconv kept", [=] { return iconv_from->convert<char>(text); });
        add(from + "iconv opened each time",
            [=] { return iconv_handle(encoding.c_str(), "UTF-16LE").convert<char>(text); });
#endif
        // A converter of the name for one text.
        std::string const named_to = std::string("named to UTF-16/") + c.name + "/";
        std::string const named_from = std::string("named from UTF-16/") + c.name + "/";
        add(named_to + "ours", [=] { return codecvt_string_to_ustring(encoding, false).convert(bytes); });
        add(named_to + "ICU opened each time", [=] { return decode(open(encoding).get(), bytes); });
        add(named_from + "ours", [=] { return codecvt_ustring_to_string(encoding, false).convert(text); });
        add(named_from + "ICU opened each time", [=] { return encode(open(encoding).get(), text); });
        std::string const function = std::string("named, by to_ustring/") + c.name + "/";
        add(function + "ours", [=] { return to_ustring(bytes, codecvt_string_to_ustring(encoding, false)); });
        add(function + "ICU opened each time", [=] { return decode(open(encoding).get(), bytes); });
        std::string const terminal = std::string("terminal to UTF-16/") + c.name + "/";
        add_under(c.locale, terminal + "ours",
                  [=] { return to_ustring(bytes, *create_codecvt_terminal_to_ustring()); });
        add(terminal + "ICU opened each time", [=] { return decode(open(encoding).get(), bytes); });
    }
}

bool const registered = [] {
    add_utf8();
    add_process_encoding();
    return true;
}();

} // namespace
} // namespace fl::bench
