#include "tests/faults/sweep.hpp"

#include "platform/testing/file_faults.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ctype.hpp>
#include <fl/i18n/resource_finder.hpp>
#include <stdlib.h>
#include <unistd.h>

namespace fl::test {

using namespace i18n;
using filesystem::upath;

namespace {

// Longer than the buffers on the stack, of characters that take tables and of one that takes a converter.
ustring const long_text = ustring(900, u'a') + ustring(900, u'\u3042') + u"\u00a5\U0001F600";

/// Converts by a new converter.
auto encode(codecvt_call_back_mode mode) {
    return action([mode] { return codecvt_ustring_to_string(mode, "ISO-2022-JP", "?").convert(long_text); });
}

std::string encode_by_tables() {
    codecvt_ustring_to_string converter("GB18030", true);
    codecvt_ustring_to_string const other("windows-1253", true);
    return converter.convert(long_text) + to_string(long_text, other);
}

ustring decode_by_tables() {
    std::string const bytes = std::string(1500, '\xa4') + "\x8e\xb1 text \xff";
    codecvt_string_to_ustring converter("EUC-KR", true);
    return converter.convert(bytes) + to_ustring(bytes, converter);
}

/// Changes the mode of a converter, which is the default one when that fails.
auto change_mode(codecvt_call_back_mode from, codecvt_call_back_mode to) {
    return [=](fault_files const &) {
        auto const converter = std::make_shared<codecvt_ustring_to_string>(from, "ISO-8859-2", std::string());
        auto const show = [=] {
            std::string const mode = std::to_string(converter->get_call_back_mode());
            try {
                return mode + converter->convert(u"a\u3042");
            } catch (CvtExceptionBase const & error) {
                return mode + error.what();
            }
        };
        return trial{acting([=] { converter->change_call_back(to, "*"); }), show, {[=] {
                         converter->reset_call_back();
                     }}};
    };
}

ustring unicode_forms() {
    codecvt_ustring_to_java_nonstandard_utf8 java;
    codecvt_ustring_to_ascii ascii(true);
    return to_ustring(to_wstring(long_text)) + to_ustring(to_u32string(long_text)) +
           utf8_to_ustring(ustring_to_utf8(long_text) + java.convert(long_text) + ascii.convert(long_text));
}

ustring terminal() {
    auto const out = create_codecvt_ustring_to_terminal_output();
    auto const in = create_codecvt_terminal_input_to_ustring();
    return to_ustring(to_string(u"a text for a terminal", *out), *in) +
           utf8_to_ustring(get_standard_encoding_name("latin1"));
}

ustring letter_case() {
    ustring const text = u"stra\u00dfe \u0130 " + ustring(700, u'\u00df') + u" \u03a3";
    auto const locale = QzLocale::createLocale("tr_TR");
    return transform(text, to_upper_locale(*locale)) + transform(text, to_lower_locale(*locale));
}

ustring normalise() {
    ustring const text = ustring(40, u'\u00e9') + u'a' + ustring(60, u'\u0323') + ustring(60, u'\u0301');
    return transform(text, normalization_form::decompose) +
           transform(text, to_upper_locale(), normalization_form::compose);
}

/// Returns what prepares an action on a finder that has searched, and the name that a caller got of it.
template <class Action>
std::function<trial(fault_files const &)> finder(Action act) {
    return [act](fault_files const & files) {
        files.write("two/resources/app/xx_with_a_name_that_is_no_short_string/ui.xml", "");
        auto const finder = std::make_shared<resource_finder>(
            std::vector<upath>{files.path("one/resources/app"), files.path("two/resources/app")},
            *QzLocale::createLocale("ja_JP"), false);
        auto const found = std::make_shared<std::string>("none");
        finder->find(u"%S\\ui.xml");
        auto const show = [=] {
            std::string text = finder->get_locale() + ' ' + *found;
            for (auto const & path : finder->get_base_path_list()) {
                text += ' ' + text_of(path);
            }
            return text;
        };
        auto const find_nothing = [=] { finder->find(u"%S\\none.xml", QzLocale::global(), *found); };
        return trial{acting([=, more = files.path("more"), one = files.path("one/resources/app")] {
                         return act(*finder, *found, more, one);
                     }),
                     show,
                     {find_nothing}};
    };
}

upath find(resource_finder & finder, std::string & found, ustring const &, ustring const &) {
    return finder.find(u"%S\\ui.xml", *QzLocale::createLocale("xx_with_a_name_that_is_no_short_string"),
                       found);
}

int open_and_close(std::FILE * file) {
    return file != nullptr ? std::fclose(file) : errno;
}

/// Opens a file of the tree.
auto open(char const * name) {
    return [name](fault_files const & files) {
        return trial{
            acting([path = files.path(name)] { return open_and_close(filesystem::fopen(path, "rb")); })};
    };
}

trial reopen(fault_files const & files) {
    return {acting([path = files.path("file.txt"), name = files.name("small.xml")] {
        platform::testing::hold_faults hold;
        std::FILE * const file = std::fopen(name.c_str(), "rb");
        hold.end();
        try {
            return open_and_close(filesystem::freopen(path, "rb", file));
        } catch (...) {
            std::fclose(file); // what throws leaves the stream as it is
            throw;
        }
    })};
}

trial make_temporary_file(fault_files const & files) {
    auto const name = std::make_shared<ustring>();
    return {acting([name, directory = files.path("two")] {
                int const code =
                    open_and_close(filesystem::tmpfile(*name, directory, u"a_prefix", u"suffix"));
                done();
                std::string path = to_string(*name);
                std::replace(path.begin(), path.end(), '\\', '/');
                bool const is_there = ::unlink(path.c_str()) == 0;
                return is_there == (code == 0) ? code : -1;
            }),
            [name] { return std::string(name->empty() ? "no name" : "a name"); }};
}

trial find_temporary_directory(fault_files const & files) {
    ::setenv("TMPDIR", files.name("one").c_str(), 1);
    return {acting([] { return filesystem::temp_directory_name(); })};
}

trial set_time(fault_files const & files) {
    boost::posix_time::ptime const time(boost::gregorian::date(2001, 2, 3));
    return {acting([=, path = files.path("file.txt")] { filesystem::last_write_time(path, time); })};
}

ustring path_forms() {
    upath const path = make_native_form(upath(u"relative\\path"), true);
    return filesystem::to_generic_ustring(boost::filesystem::path("/a/path/of/some/length")) +
           upath(make_native_access_form_with_cleanup(path)).string();
}

} // namespace

std::vector<scenario> text_scenarios() {
    std::vector<std::string> const nothing = {""};
    return {
        {"encode by the process encoding",
         action([] { return to_string(ustring(700, u'\u3042') + u"\u00e9 and more"); })},
        {"decode by the process encoding", action([] { return to_ustring(std::string(3000, '\xb1')); })},
        {"convert among Unicode forms", action(unicode_forms)},
        {"encode with substitution", encode(call_back_default)},
        {"encode and substitute", encode(call_back_substitute)},
        {"encode with escapes", encode(call_back_escape_java)},
        {"encode and stop", encode(call_back_stop), {"Invalid character", "Conversion failure"}},
        {"encode by tables", action(encode_by_tables)},
        {"decode by tables", action(decode_by_tables)},
        {"decode and stop",
         action(
             [] { return codecvt_string_to_ustring("Shift_JIS", false).convert(std::string(40, '\xff')); }),
         {"Invalid character"}},
        {"open an unknown encoding",
         action(
             [] { return codecvt_string_to_ustring("an encoding that nobody knows", false).convert("x"); }),
         {"Invalid encoding"}},
        {"change a mode from stopping", change_mode(call_back_stop, call_back_escape_c)},
        {"change a mode from escapes", change_mode(call_back_escape_c, call_back_substitute)},
        {"refuse a mode", change_mode(call_back_escape_c, call_back_skip), {"Non-supported mode"}},
        {"convert for a terminal", action(terminal)},
        {"map letter case", action(letter_case)},
        {"normalise", action(normalise)},
        {"find a resource", finder(find), {}, nothing},
        {"find a relative resource",
         action([] {
             return resource_finder::find_resource(u"one\\resources\\app\\%S\\ui.xml", QzLocale::global(),
                                                   true);
         }),
         {},
         nothing},
        {"add a base path", finder([](auto & finder, auto &, auto & more, auto &) {
             return finder.add_base_path(upath(more));
         })},
        {"remove a base path", finder([](auto & finder, auto &, auto &, auto & one) {
             return finder.remove_base_path(upath(one));
         })},
        {"open a file", open("file.txt")},
        {"open a directory", open("one")},
        {"open a relative file",
         action([] { return open_and_close(filesystem::fopen(u"a directory\\none", "rb")); })},
        {"reopen a file", reopen},
        {"make a temporary file", make_temporary_file},
        {"find the temporary directory", find_temporary_directory, {}, {"\\tmp"}, false, true},
        {"set the time of a file", set_time},
        {"make path forms", action(path_forms), {}, {"/a"}},
    };
}

} // namespace fl::test
