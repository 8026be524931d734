#include "locale/system_locale.hpp"

#include "locale/classic_name.hpp"
#include "locale/code_pages.hpp"
#include "locale/locale_name.hpp"

namespace fl::i18n::lcmgmt {

system_locale read_system_locale(platform::locale_settings const & settings, lc_tables const & tables,
                                 event_log & log) {
    system_locale result;
    for (std::size_t i = 0; i < result.categories.size(); ++i) {
        std::string const & system_name = settings.category_names[i];
        auto const read = read_system_locale_name(system_name);
        if (!read) {
            if (!system_name.empty()) {
                log.add("QzLocaleCtx::initGlobalLocale",
                        "The system's locale name cannot be used: " + system_name);
            }
            result.categories[i] = {classic_name, {}};
            continue;
        }
        std::string_view alias_of = tables.find_locale_alias(system_name);
        if (alias_of.empty()) {
            alias_of = tables.find_locale_alias(read->name);
        }
        result.categories[i] = {alias_of.empty() ? read->name : std::string(alias_of), system_name};
        if (i == 0) {
            result.encoding = read->codeset;
        }
    }
    if (settings.ansi_code_page != 0) {
        result.encoding = encoding_of_code_page(settings.ansi_code_page);
    }
    result.terminal_input_encoding = encoding_of_code_page(settings.terminal_input_code_page);
    result.terminal_output_encoding = encoding_of_code_page(settings.terminal_output_code_page);
    return result;
}

} // namespace fl::i18n::lcmgmt
