#include "tests/faults/sweep.hpp"

#include "platform/testing/file_faults.hpp"

#include <cerrno>
#include <cstdio>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ctype.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/resource_finder.hpp>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <unistd.h>

namespace fl::test {

using namespace i18n;
using filesystem::upath;

namespace {

// Longer than the buffers on the stack, of characters that take tables and of one that takes a converter.
ustring const long_text = ustring(900, u'a') + ustring(900, u'\u3042') + u"\u00a5\U0001F600";

template <class Text>
std::string answer(Text const & text) {
    done();
    if constexpr (std::is_same_v<Text, std::string>) {
        return text;
    } else if constexpr (std::is_same_v<Text, ustring>) {
        return ustring_to_utf8(text);
    } else if constexpr (std::is_integral_v<Text>) {
        return std::to_string(text);
    } else {
        return std::to_string(text.size()) + ' ' + std::to_string(std::hash<Text>()(text));
    }
}

trial to_narrow(fault_files const &) {
    return {[] { return answer(to_string(ustring(700, u'\u3042') + u"\u00e9 and more")); }};
}

trial to_wide_units(fault_files const &) {
    static std::string const narrow(3000, '\xb1');
    return {[] { return answer(to_ustring(narrow)); }};
}

trial unicode_forms(fault_files const &) {
    return {[] {
        auto const wide = to_wstring(long_text);
        auto const code_points = to_u32string(long_text);
        auto const bytes = ustring_to_utf8(long_text);
        ustring const sum = to_ustring(wide) + to_ustring(code_points) + utf8_to_ustring(bytes);
        return answer(sum == long_text + long_text + long_text ? std::string("same") : std::string("other"));
    }};
}

/// Converts by a new converter of an encoding that the process has not met.
template <codecvt_call_back_mode Mode>
trial encode(fault_files const &) {
    return {[] {
        codecvt_ustring_to_string converter(Mode, "ISO-2022-JP", "?");
        return answer(converter.convert(long_text));
    }};
}

trial encode_by_tables(fault_files const &) {
    return {[] {
        codecvt_ustring_to_string converter("GB18030", true);
        codecvt_ustring_to_string other("windows-1253", true);
        std::string const bytes = converter.convert(long_text) + other.convert(long_text);
        return answer(bytes + to_string(long_text, other));
    }};
}

trial decode_by_tables(fault_files const &) {
    return {[] {
        static std::string const bytes = std::string(1500, '\xa4') + "\x8e\xb1 text \xff";
        codecvt_string_to_ustring converter("EUC-KR", true);
        return answer(converter.convert(bytes) + to_ustring(bytes, converter));
    }};
}

trial decode_and_stop(fault_files const &) {
    return {[] {
        codecvt_string_to_ustring converter("Shift_JIS", false);
        return answer(converter.convert(std::string(40, '\xff')));
    }};
}

trial unknown_encoding(fault_files const &) {
    return {[] {
        return answer(codecvt_string_to_ustring("an encoding that nobody knows", false).convert("x"));
    }};
}

/// A converter whose mode was changed, and is again.
template <codecvt_call_back_mode From, codecvt_call_back_mode To>
trial change_mode(fault_files const &) {
    auto const converter = std::make_shared<codecvt_ustring_to_string>(From, "ISO-8859-2", std::string());
    auto const show = [=] {
        std::string text = std::to_string(converter->get_call_back_mode());
        try {
            return text + converter->convert(u"a\u3042");
        } catch (CvtExceptionBase const & error) {
            return text + error.what();
        }
    };
    return {[=] {
                converter->change_call_back(To, To == call_back_substitute ? "*" : std::string(200, '*'));
                done();
                return show();
            },
            show,
            {[=] { converter->reset_call_back(); }}};
}

trial terminal(fault_files const &) {
    return {[] {
        auto const out = create_codecvt_ustring_to_terminal_output();
        auto const in = create_codecvt_terminal_input_to_ustring();
        ustring const text = to_ustring(to_string(u"a text for a terminal", *out), *in);
        return answer(text + utf8_to_ustring(get_standard_encoding_name("latin1")));
    }};
}

trial java(fault_files const &) {
    return {[] {
        codecvt_ustring_to_java_nonstandard_utf8 java_converter;
        codecvt_ustring_to_ascii ascii(true);
        return answer(java_converter.convert(long_text) + ascii.convert(long_text));
    }};
}

trial letter_case(fault_files const &) {
    return {[] {
        static ustring const text = u"stra\u00dfe \u0130 " + ustring(700, u'\u00df') + u" \u03a3";
        auto const locale = QzLocale::createLocale("tr_TR");
        return answer(transform(text, to_upper_locale(*locale)) + transform(text, to_lower_locale(*locale)));
    }};
}

trial normalise(fault_files const &) {
    return {[] {
        static ustring const text =
            ustring(40, u'\u00e9') + ustring(u"a") + ustring(60, u'\u0323') + ustring(60, u'\u0301');
        return answer(transform(text, normalization_form::decompose) +
                      transform(text, to_upper_locale(), normalization_form::compose));
    }};
}

/// A finder, its last search, and what a caller got of it.
struct finder_state {
    resource_finder finder;
    std::string found_locale = "none";
};

std::shared_ptr<finder_state> make_finder(fault_files const & files) {
    auto const state = std::make_shared<finder_state>(
        finder_state{{{upath(files.path("one/resources/app")), upath(files.path("two/resources/app"))},
                      *QzLocale::createLocale("ja_JP"),
                      false}});
    state->finder.find(u"%S\\ui.xml");
    return state;
}

std::function<std::string()> show(std::shared_ptr<finder_state> const & state) {
    return [state] {
        std::string text =
            state->finder.get_locale() + ' ' + state->finder.get_current_locale() + ' ' + state->found_locale;
        for (auto const & path : state->finder.get_base_path_list()) {
            text += ' ' + ustring_to_utf8(path.string());
        }
        return text;
    };
}

trial find_resource(fault_files const & files) {
    files.write("two/resources/app/xx_with_a_name_that_is_no_short_string/ui.xml", "");
    auto const state = make_finder(files);
    return {[state] {
                auto const locale = QzLocale::createLocale("xx_with_a_name_that_is_no_short_string");
                upath const path = state->finder.find(u"%S\\ui.xml", *locale, state->found_locale);
                done();
                return answer(path.string());
            },
            show(state),
            {[state] {
                // As after a search that finds nothing.
                state->finder.find(u"%S\\none.xml", QzLocale::global(), state->found_locale);
            }}};
}

trial find_by_list(fault_files const & files) {
    auto const paths = std::make_shared<std::vector<upath>>(2, files.path("one/resources/app"));
    return {[=] {
        std::string locale;
        return answer(
            resource_finder::find_resource(*paths, u"%S\\ui.xml", locale, QzLocale::global(), true).string());
    }};
}

/// The program stands in the directory of the files.
trial find_relative(fault_files const &) {
    return {[] {
        auto const locale = QzLocale::createLocale("ja_JP");
        return answer(
            resource_finder::find_resource(u"one\\resources\\app\\%S\\ui.xml", *locale, true).string());
    }};
}

trial add_base_path(fault_files const & files) {
    auto const state = make_finder(files);
    return {[=, path = upath(files.path("more"))] { return answer(state->finder.add_base_path(path)); },
            show(state)};
}

trial remove_base_path(fault_files const & files) {
    auto const state = make_finder(files);
    return {[=, path = upath(files.path("one/resources/app"))] {
                return answer(state->finder.remove_base_path(path));
            },
            show(state)};
}

using stream = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

std::string opened(std::FILE * file) {
    int const code = errno;
    done();
    stream const closer(file, &std::fclose);
    return file != nullptr ? "opened" : "failed " + std::to_string(code);
}

/// The first bytes of a file, which shows whether it was left alone.
std::function<std::string()> content(fault_files const & files, char const * name) {
    return [path = files.name(name)] {
        stream const file(std::fopen(path.c_str(), "rb"),
                          [](std::FILE * f) { return f ? std::fclose(f) : 0; });
        char text[16] = "none";
        std::string const read(text, file ? std::fread(text, 1, sizeof text, file.get()) : 4);
        return read;
    };
}

trial open_file(fault_files const & files) {
    auto const path = std::make_shared<ustring>(files.path("file.txt"));
    return {[=] { return opened(filesystem::fopen(*path, "rb")); }, content(files, "file.txt")};
}

trial open_relative(fault_files const & files) {
    return {[] { return opened(filesystem::fopen(u"a directory\\a file that is not there", "rb")); },
            content(files, "file.txt")};
}

trial open_directory(fault_files const & files) {
    auto const path = std::make_shared<ustring>(files.path("one"));
    return {[=] { return opened(filesystem::fopen(*path, "rb")); }};
}

trial reopen_file(fault_files const & files) {
    auto const path = std::make_shared<ustring>(files.path("file.txt"));
    auto const name = std::make_shared<std::string>(files.name("small.xml"));
    return {[=] {
        platform::testing::hold_faults hold;
        std::FILE * const file = std::fopen(name->c_str(), "rb");
        hold.end();
        std::FILE * result = nullptr;
        try {
            result = filesystem::freopen(*path, "rb", file);
        } catch (...) {
            std::fclose(file); // what throws leaves the stream as it is
            throw;
        }
        return opened(result);
    }};
}

trial temporary_file(fault_files const & files) {
    auto const directory = std::make_shared<ustring>(files.path("two"));
    auto const name = std::make_shared<ustring>();
    return {[=] {
                std::string const result =
                    opened(filesystem::tmpfile(*name, *directory, u"a_prefix", u"suffix"));
                if (result == "opened") {
                    ::unlink(to_string(ustring(*name)).c_str());
                }
                return result;
            },
            [=] { return std::string(name->empty() ? "no name" : "a name"); }};
}

trial temporary_directory(fault_files const & files) {
    ::setenv("TMPDIR", files.name("one").c_str(), 1);
    return {[] { return answer(filesystem::temp_directory_name()); }};
}

trial set_time(fault_files const & files) {
    auto const path = std::make_shared<ustring>(files.path("file.txt"));
    boost::posix_time::ptime const time(boost::gregorian::date(2001, 2, 3));
    return {[=] {
        filesystem::last_write_time(*path, time);
        return answer(0);
    }};
}

trial path_forms(fault_files const & files) {
    auto const path = std::make_shared<ustring>(files.path("one"));
    return {[=] {
        bool const same = filesystem::compare(*path, *path + u"\\x") < 0;
        return answer(
            filesystem::to_generic_ustring(boost::filesystem::path("/a/path/of/some/length")) +
            upath(filesystem::make_native_form(upath(u"relative\\path"), true)).string().substr(0, same));
    }};
}

} // namespace

std::vector<scenario> text_scenarios() {
    return {
        {"encode by the process encoding", to_narrow},
        {"decode by the process encoding", to_wide_units},
        {"convert among Unicode forms", unicode_forms},
        {"encode with substitution", encode<call_back_default>},
        {"encode and substitute", encode<call_back_substitute>},
        {"encode with escapes", encode<call_back_escape_java>},
        {"encode and stop", encode<call_back_stop>, {"Invalid character", "Conversion failure"}},
        {"encode by tables", encode_by_tables},
        {"decode by tables", decode_by_tables},
        {"decode and stop", decode_and_stop, {"Invalid character"}},
        {"open an unknown encoding", unknown_encoding, {"Invalid encoding"}},
        {"change a mode from stopping", change_mode<call_back_stop, call_back_escape_c>},
        {"change a mode from escapes", change_mode<call_back_escape_c, call_back_substitute>},
        {"refuse a mode", change_mode<call_back_escape_c, call_back_skip>, {"Non-supported mode"}},
        {"change a mode to default", change_mode<call_back_stop, call_back_default>},
        {"convert for a terminal", terminal},
        {"encode for Java", java},
        {"map letter case", letter_case},
        {"normalise", normalise},
        {"find a resource", find_resource, {}, {""}},
        {"find a resource in a list", find_by_list, {}, {""}},
        {"find a relative resource", find_relative, {}, {""}},
        {"add a base path", add_base_path},
        {"remove a base path", remove_base_path},
        {"open a file", open_file},
        {"open a relative file", open_relative},
        {"open a directory", open_directory},
        {"reopen a file", reopen_file},
        {"make a temporary file", temporary_file},
        {"find the temporary directory", temporary_directory, {}, {"\\tmp"}, false, true},
        {"set the time of a file", set_time},
        {"make path forms", path_forms, {}, {"/a"}},
    };
}

} // namespace fl::test
