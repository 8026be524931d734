// The start of the locale management with names from the system and the environment, and a change of the
// global locale.

#include "foundation/ascii.hpp"
#include "locale/qz_locale_ctx.hpp"
#include "tests/fuzz/fuzz.hpp"
#include "tests/fuzz/names.hpp"

#include <fl/i18n/fallback_locales.hpp>

namespace {

using namespace fl;
using namespace fl::i18n;
using fuzz::is_encoding_name;
using fuzz::is_locale_name;
using fuzz::require;

void require_fallbacks(QzLocale const & locale, std::string const & name) {
    std::vector<ustring> expected{ascii::widen(name)};
    if (name.find('_') != name.npos) {
        expected.push_back(ascii::widen(name.substr(0, name.find('_'))));
    }
    if (!expected.back().empty()) {
        expected.emplace_back();
    }
    require(get_fallback_locales_with_empty_default(locale) == expected, "the fallbacks of a locale");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    fuzz::fuzz_input input(data, size);
    std::string const name = input.text();
    lcmgmt::startup_inputs inputs;
    inputs.environment["QZLOCALE_TERMINAL_ENCODING"] = ascii::widen(input.text());
    for (auto & names : inputs.settings.category_names) {
        names.push_back(input.text());
    }
    inputs.settings.category_names[0].push_back(name);
    inputs.settings.ansi_code_page = input.byte() * 5;
    lcmgmt::QzLocaleCtx context(std::move(inputs));
    for (auto const & record : context.system().records()) {
        require(is_locale_name(record.name) && (record.user_name.empty() || is_locale_name(record.user_name)),
                "a name from the system");
    }
    for (std::string const & encoding :
         {context.terminal_input_encoding(), context.terminal_output_encoding()}) {
        require(encoding.empty() || is_encoding_name(encoding), "the terminal's encoding");
    }
    require(is_encoding_name(context.system().getEncoding()), "the system's encoding");
    auto const * const before = &context.global();
    try {
        context.set_global_locale(name);
        require(name.empty() || is_locale_name(name), "a global locale is set");
        require_fallbacks(QzLocaleImpl(context, records_of(name)), name);
        context.global().getOptData(LcOptDataType::papersize);
    } catch (QzLcInvLcName const &) {
        require(!name.empty() && !is_locale_name(name) && &context.global() == before,
                "a global locale is refused");
    }
    return 0;
}
