// Converters of named encodings, by each of their operations, against the conversion library itself with the
// same call-backs.
//
// The first bytes of an input choose the encoding, the direction, the mode, the room in a buffer and how the
// text is cut up; the others are the text: as it is, or after a conversion the other way, which gives
// characters that the encoding has.

#include "conversion/driver.hpp"
#include "locale/builtin_tables.hpp"
#include "locale/encodings.hpp"
#include "tests/conversion/by_icu.hpp"
#include "tests/fuzz/fuzz.hpp"

#include <algorithm>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <vector>

namespace {

using namespace fl::i18n;

constexpr char const * process_encoding = "Shift_JIS";

/// The conversion library keeps the state of compound text when it is told to forget it.
bool is_broken_in_icu(std::string const & name) {
    return name.find("compound") != std::string::npos;
}

fl::icu_converter open(std::string const & name) {
    UErrorCode status = U_ZERO_ERROR;
    return fl::icu_converter(ucnv_open(name.c_str(), &status));
}

struct encoding_row {
    std::string name;
    std::string icu_name;
};

/// The encoding at work.
encoding_row const * current = nullptr;

void require(bool holds, char const * what) {
    if (!holds) {
        fl::fuzz::require(false, (current->name + ", " + what).c_str());
    }
}

std::vector<encoding_row> make_encodings() {
    experimental::set_global_locale(std::string("ja_JP.") + process_encoding);
    std::vector<encoding_row> rows;
    auto const add = [&rows](std::string const & name, std::string const & icu_name) {
        if (open(icu_name) && !is_broken_in_icu(icu_name)) {
            rows.push_back({name, icu_name});
        }
    };
    for (int i = 0; i < ucnv_countAvailable(); ++i) {
        add(ucnv_getAvailableName(i), ucnv_getAvailableName(i));
    }
    for (auto const & encoding : lcmgmt::builtin_encodings()) {
        std::string const name(encoding.name);
        add(name, open(name) ? name : std::string(encoding.compat));
    }
    for (char const * const name :
         {"LMBCS-1,locale=ja", "IBM-037,swaplfnl", "UTF-16,version=1", "UTF-8,version=1",
          "ISO-2022,locale=ja,version=3", "ISO-2022-KR,version=1", "GB18030,version=1", "SCSU,locale=ja"}) {
        add(name, name);
    }
    add("", process_encoding);
    return rows;
}

struct choices {
    std::uint8_t encoding, direction, mode, room, chunk, output, piece, repetitions;
};

constexpr codecvt_call_back_mode modes[] = {call_back_default,        call_back_stop,
                                            call_back_substitute,     call_back_escape_java,
                                            call_back_escape_c,       call_back_escape_xml_dec,
                                            call_back_escape_xml_hex, call_back_escape_unicode,
                                            call_back_escape_css2,    codecvt_call_back_mode(768)};
constexpr char const * escapes[] = {"", "", "", "J", "C", "D", "X", "U", "S", nullptr};
constexpr std::size_t to_unicode_modes = 2;

// Each direction: how the library's converter and the conversion library's own are made for a mode.

struct to_unicode : to_unicode_direction {
    using direction = to_unicode_direction;
    using converter_type = codecvt_string_to_ustring;
    using other = struct from_unicode;
    static converter_type make(encoding_row const & row, std::size_t mode, std::string const &) {
        return converter_type(modes[mode % to_unicode_modes], row.name);
    }
    static void change(converter_type & converter, std::size_t mode, std::string const &) {
        converter.change_call_back(modes[mode % to_unicode_modes]);
    }
    static fl::icu_converter make_by_icu(encoding_row const & row, std::size_t mode, std::string const &) {
        auto converter = open(row.icu_name);
        UErrorCode status = U_ZERO_ERROR;
        if (modes[mode % to_unicode_modes] == call_back_stop) {
            ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        }
        return converter;
    }
    static outcome<to> expected(UConverter * converter, std::string_view text) {
        return decoded_by_icu(converter, text);
    }
    static bool depends_on_calls(encoding_row const &, std::string_view) { return false; }
    static ustring convert_with(std::string const & text, converter_type const & converter) {
        return to_ustring(text, converter);
    }
    static ustring by_process(std::string const & text) { return to_ustring(text); }
    static auto for_terminal(bool input) {
        return input ? create_codecvt_terminal_input_to_ustring() : create_codecvt_terminal_to_ustring();
    }
};

struct from_unicode : from_unicode_direction {
    using direction = from_unicode_direction;
    using converter_type = codecvt_ustring_to_string;
    using other = to_unicode;
    static converter_type make(encoding_row const & row, std::size_t mode, std::string const & substitution) {
        return converter_type(modes[mode], row.name, substitution);
    }
    static void change(converter_type & converter, std::size_t mode, std::string const & substitution) {
        converter.change_call_back(modes[mode], substitution);
    }
    /// Returns null when the conversion library refuses the substitution.
    static fl::icu_converter make_by_icu(encoding_row const & row, std::size_t mode,
                                         std::string const & substitution) {
        auto converter = open(row.icu_name);
        UErrorCode status = U_ZERO_ERROR;
        if (modes[mode] == call_back_substitute) {
            ucnv_setSubstChars(converter.get(), substitution.data(), std::int8_t(substitution.size()),
                               &status);
        } else if (modes[mode] != call_back_default) {
            bool const stop = modes[mode] == call_back_stop;
            ucnv_setFromUCallBack(converter.get(),
                                  stop ? UCNV_FROM_U_CALLBACK_STOP : UCNV_FROM_U_CALLBACK_ESCAPE,
                                  stop ? nullptr : escapes[mode], nullptr, nullptr, &status);
        }
        return U_SUCCESS(status) ? std::move(converter) : nullptr;
    }
    static outcome<to> expected(UConverter * converter, std::u16string_view text) {
        return encoded_by_icu(converter, text, 40);
    }
    /// Some encodings have two substitutes; which of them a character gets depends on earlier calls too.
    static bool depends_on_calls(encoding_row const & row, std::u16string_view text) {
        auto const strict = make_by_icu(row, 1, {});
        return ucnv_getType(strict.get()) == UCNV_MBCS && expected(strict.get(), text).excp != 0;
    }
    static std::string convert_with(ustring const & text, converter_type const & converter) {
        return to_string(text, converter);
    }
    static std::string by_process(ustring const & text) { return to_string(text); }
    static auto for_terminal(bool output) {
        return output ? create_codecvt_ustring_to_terminal_output() : create_codecvt_ustring_to_terminal();
    }
};

/// Requires that an operation gives the text expected, or throws the exception expected.
template <class To, class Operation>
void same(outcome<To> const & expected, char const * what, Operation operation) {
    try {
        auto const result = operation();
        require(expected.excp == 0 && result == expected.text, what);
    } catch (CvtExceptionBase const & e) {
        require(expected.excp == e.get_excp_id(), what);
    }
}

/// Requires that a converter writes what has room, in a block of just that size, and counts all.
template <class To, class From>
void fills(outcome<To> const & expected, std::size_t room, converter<To, From> const & with,
           std::basic_string_view<From> source) {
    std::unique_ptr<To[]> const buffer(new To[room]);
    same(expected, "a conversion into a buffer", [&]() -> std::basic_string<To> {
        std::size_t const length = with.convert(buffer.get(), room, source.data(), source.size());
        require(length == expected.text.size(), "the length that a conversion into a buffer returns");
        return std::basic_string<To>(buffer.get(), std::min(room, length)) +
               expected.text.substr(std::min(room, length));
    });
}

template <class Direction>
void check(encoding_row const & row, choices const & chosen,
           std::basic_string<typename Direction::from> const & text) {
    // In a block of just that size, so that nothing behind it may be read.
    std::unique_ptr<typename Direction::from[]> const block(new typename Direction::from[text.size()]);
    std::copy(text.begin(), text.end(), block.get());
    std::basic_string_view<typename Direction::from> const source(block.get(), text.size());
    using to = typename Direction::to;
    std::size_t const mode = chosen.mode % std::size(modes);
    std::string const substitution =
        chosen.mode & 0x80 ? "?" : std::string(1 + chosen.piece % 4, char(chosen.output));
    auto const by_icu = Direction::make_by_icu(row, mode, substitution);
    if (!by_icu) {
        same(outcome<to>{{}, 3}, "a substitution",
             [&] { return Direction::make(row, mode, substitution).convert(text); });
        return;
    }
    auto const expected = Direction::expected(by_icu.get(), source);
    auto const full = expected.text.size();

    auto converter = Direction::make(row, mode, substitution);
    same(expected, "a conversion", [&] { return converter.convert(source.data(), source.size()); });
    same(expected, "a length", [&] {
        require(converter.get_destination_size(source.data(), source.size()) == full,
                "the length of a result");
        return expected.text;
    });
    fills(expected, 1 + chosen.room % (full + 2), converter, source);
    same(expected, "a conversion by a converter that is handed over",
         [&] { return Direction::convert_with(text, converter); });
    auto moved = std::move(converter);
    if (chosen.direction & 4 && modes[mode] != call_back_substitute) {
        Direction::change(moved, chosen.room % 2, "?");
        Direction::change(moved, mode, substitution);
    }
    same(expected, "a conversion after others", [&] { return moved.convert(source.data(), source.size()); });

    if (!Direction::depends_on_calls(row, source)) {
        auto const own = Direction::make_by_icu(row, mode, substitution);
        driver_limits const limits{
            {1 + chosen.output % 64u, 1 + chosen.output % 7u}, 1 + chosen.chunk % 16u, 1 + chosen.piece % 4u};
        same(expected, "a conversion piece by piece", [&] {
            return run_driver<typename Direction::direction>(own.get(), source.data(), source.size(), limits);
        });
    }

    if (row.icu_name == process_encoding && modes[mode] == call_back_default) {
        same(expected, "a conversion by the process encoding", [&] { return Direction::by_process(text); });
        fills(expected, 1 + chosen.room % (full + 2), *Direction::for_terminal(chosen.direction & 8), source);
    }
}

template <class Direction>
void check(encoding_row const & row, choices const & chosen, std::string_view rest) {
    using from = typename Direction::from;
    constexpr std::size_t longest = 2500;
    std::basic_string<from> source;
    if (chosen.direction & 2) {
        std::basic_string<typename Direction::to> other(rest.size() / sizeof(typename Direction::to), 0);
        rest.copy(reinterpret_cast<char *>(other.data()), other.size() * sizeof other[0]);
        source = Direction::other::expected(open(row.icu_name).get(), other).text;
    } else {
        source.resize(rest.size() / sizeof(from));
        rest.copy(reinterpret_cast<char *>(source.data()), source.size() * sizeof(from));
    }
    auto const once = source;
    // Few texts are so long that they are converted in more pieces than one.
    for (int i = chosen.repetitions < 0xF4 ? chosen.repetitions % 4 : 1000;
         i > 0 && source.size() + once.size() <= longest; --i) {
        source += once;
    }
    source.resize(std::min(source.size(), longest));
    if (!source.empty()) {
        check<Direction>(row, chosen, source);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    static auto const encodings = make_encodings();
    choices chosen{};
    std::size_t const header = std::min(size, sizeof chosen);
    std::copy_n(data, header, reinterpret_cast<std::uint8_t *>(&chosen));
    std::string_view const rest(reinterpret_cast<char const *>(data) + header, size - header);
    // There are more encodings than values of a byte.
    auto const & row = encodings[(chosen.encoding + 256u * (chosen.direction >> 6)) % encodings.size()];
    current = &row;
    if (chosen.direction & 1) {
        check<to_unicode>(row, chosen, rest);
    } else {
        check<from_unicode>(row, chosen, rest);
    }
    return 0;
}
