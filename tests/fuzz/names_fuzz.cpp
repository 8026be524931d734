// Names of locales, encodings and catalogs from outside: nothing that is done with them leads out of the
// resource directories, or makes the conversion library look for files. No file system is asked for the
// answers.

#include "catalogs/catalog_service.hpp"
#include "catalogs/identifier_syntax.hpp"
#include "foundation/ascii.hpp"
#include "locale/locale_name.hpp"
#include "locale/qz_locale_ctx.hpp"
#include "tests/fuzz/fuzz.hpp"
#include "tests/fuzz/names.hpp"
#include "tests/support/harmless_names.hpp"

namespace {

using namespace fl;
using namespace fl::i18n;
using fuzz::is_encoding_name;
using fuzz::is_locale_name;
using fuzz::require;

void require_harmless(test::directory const & base, ustring const & pattern, ustring const & marker,
                      ustring const & name) {
    if (pattern.find(marker) == pattern.npos) {
        return;
    }
    char const * const fault = test::fault_of(base, pattern, marker, name);
    require(fault == nullptr, fault);
    require(resource_search::localise(pattern, marker, name) || !is_locale_name(ascii::narrow(name)) ||
                name == u".",
            "a locale name is left out");
}

void require_harmless_catalog(test::directory const & base, std::string const & id,
                              ustring const & locale_name) {
    ustring const pattern = catalog_file_pattern(detail::is_identifier(id) ? id : "fl:i18n");
    require(test::stays_below(pattern) && pattern.find_first_of(u"/:.") == pattern.size() - 4,
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
    test::directory const & base = input.pick(test::directories);
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
