// Names of locales, encodings and catalogs from outside: nothing that is done with them leads out of the
// resource directories, or makes the conversion library look for files. No file system is asked for the
// answers.

#include "catalogs/catalog_service.hpp"
#include "catalogs/identifier_syntax.hpp"
#include "foundation/ascii.hpp"
#include "foundation/filesystem/native_form.hpp"
#include "locale/locale_name.hpp"
#include "locale/qz_locale_ctx.hpp"
#include "lookup/resource_search.hpp"
#include "tests/fuzz/fuzz.hpp"
#include "tests/fuzz/names.hpp"

namespace {

using namespace fl;
using namespace fl::i18n;
using filesystem::upath;
using fuzz::is_encoding_name;
using fuzz::is_locale_name;
using fuzz::require;

/// Tells whether a relative path never leads above where it begins, by the rules of any system: with dots and
/// blanks at the end of a name not counting, too.
bool stays_below(std::u16string_view path) {
    int depth = 0;
    while (depth >= 0 && !path.empty()) {
        std::u16string_view const element = path.substr(0, path.find_first_of(u"\\/"));
        path.remove_prefix(std::min(element.size() + 1, path.size()));
        if (element.find_first_not_of(u". ") != element.npos) {
            ++depth;
        } else if (std::count(element.begin(), element.end(), u'.') > 1) {
            --depth;
        }
    }
    return depth >= 0;
}

/// A directory under the rules of a system.
struct directory {
    char16_t const * path;
    bool root_is_absolute;
};
directory const directories[] = {{u"C:\\r", false},       {u"C:/r/s", false},       {u"D:r", false},
                                 {u"\\\\s\\x\\r", false}, {u"\\\\?\\C:\\r", false}, {u"r", false},
                                 {u"\\r", false},         {u"/usr/r", true}};

/// Requires that what is opened for a path below a directory lies below it, by the rules of a system.
void require_below(directory const & base, ustring const & relative) {
    auto const form = [&](upath const & path) {
        auto const here = [](wchar_t drive) { return std::wstring(drive ? L"D:\\here" : L"C:\\here"); };
        std::wstring const native = make_native_form(path, false);
        return filesystem::detail::access_form_with_cleanup(
            filesystem::detail::complete_native_path(native, base.root_is_absolute, here),
            base.root_is_absolute);
    };
    std::wstring const above = form(base.path);
    std::wstring const file = form(upath(base.path) / relative);
    require(file.starts_with(above) && (file.size() == above.size() || file[above.size()] == L'\\'),
            "the path of a resource");
    // Behind this prefix the names of devices are names as others are.
    require(base.root_is_absolute || above.starts_with(L"\\\\?\\"), "the form of a path");
}

void require_harmless(directory const & base, ustring const & pattern, ustring const & marker,
                      ustring const & name) {
    std::size_t const place = pattern.find(marker);
    if (place == pattern.npos) {
        return;
    }
    auto const localised = resource_search::localise(pattern, marker, name);
    if (!localised) {
        return require(!is_locale_name(ascii::narrow(name)) || name == u".", "a locale name is left out");
    }
    ustring expected = pattern;
    expected.replace(place, marker.size(), name);
    if (name.empty() && place > 0 && expected[place - 1] == u'_') {
        expected.erase(place - 1, 1);
    }
    require(*localised == expected, "a pattern with a locale name");
    ustring harmless = pattern;
    harmless.replace(place, marker.size(), u"x");
    if (name.empty() || !stays_below(harmless)) {
        return;
    }
    require(stays_below(*localised), "a locale name stays below the pattern");
    for (char16_t const special : {u'\\', u'/', u':', u'\0'}) {
        require(std::count(localised->begin(), localised->end(), special) ==
                    std::count(harmless.begin(), harmless.end(), special),
                "a locale name is one element of a path");
    }
    require_below(base, *localised);
}

void require_harmless_catalog(directory const & base, std::string const & id, ustring const & locale_name) {
    ustring const pattern = catalog_file_pattern(detail::is_identifier(id) ? id : "fl:i18n");
    require(stays_below(pattern) && pattern.find_first_of(u"/:.") == pattern.size() - 4,
            "the pattern of a catalog");
    require_harmless(base, pattern, u"%S", locale_name);
}

void require_harmless_encoding(std::string const & name) {
    bool const is_harmless = lcmgmt::stays_in_icu_data(name);
    std::string const converter = name.substr(0, name.find(','));
    UErrorCode status = U_ZERO_ERROR;
    bool const is_alias = is_encoding_name(name) && ucnv_countAliases(converter.c_str(), &status) > 0;
    require(is_harmless == (is_encoding_name(name) && (is_alias || name.find(':') == name.npos)),
            "whether the conversion library is asked for an encoding");
    require(is_harmless || !lcmgmt::open_icu_converter(name), "a converter by a harmful name");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    static char16_t const * const patterns[] = {u"%S",         u"_%S",      u".%S/x",  u"%S.\\x",
                                                u"a/%S/..\\b", u"a.%S.xml", u"h_%S.%S"};
    fuzz::fuzz_input input(data, size);
    std::size_t const choice = input.byte();
    directory const & base = input.pick(directories);
    std::string const name = input.text();
    require(lcmgmt::is_valid_locale_name(name) == (name.empty() || is_locale_name(name)),
            "whether a text is a locale name");
    switch (choice % 8) {
    case 0:
    case 1:
        require_harmless_encoding(name);
        break;
    case 2:
        require_harmless_catalog(base, input.text(), ascii::widen(name));
        break;
    case 3:
        require_harmless(base, ascii::widen(input.text()), ascii::widen(input.text() + "S"),
                         ascii::widen(name));
        break;
    default:
        require_harmless(base, patterns[choice / 8 % std::size(patterns)], u"%S", ascii::widen(name));
    }
    return 0;
}
