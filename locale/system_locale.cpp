#include "locale/system_locale.hpp"

#include "locale/classic_name.hpp"
#include "locale/code_pages.hpp"
#include "locale/locale_name.hpp"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace fl::i18n::lcmgmt {

namespace {

/// Returns the locale name that a system's name stands for; empty when it is none.
std::string read_name(std::string const & system_name, lc_tables const & tables) {
    if (!is_valid_locale_name(system_name)) {
        return {};
    }
    auto read = read_system_locale_name(system_name);
    std::string spelling = without_codeset(system_name);
    std::replace(spelling.begin(), spelling.end(), '-', '_');
    // The tables may know a name that its parts alone do not tell: an alias, a variant, a region.
    std::string known = tables.resolve_locale(spelling);
    return known.empty() && read ? std::move(read->name) : known;
}

} // namespace

system_locale read_system_locale(platform::locale_settings const & settings, lc_tables const & tables,
                                 event_log & log) {
    system_locale result;
    std::set<std::string> refused;
    for (std::size_t i = 0; i < result.categories.size(); ++i) {
        system_locale::category & category = result.categories[i];
        for (std::string const & system_name : settings.category_names[i]) {
            category.name = read_name(system_name, tables);
            if (!category.name.empty()) {
                category.system_name = system_name;
                break;
            }
            if (refused.insert(system_name).second) {
                log.add("QzLocaleCtx::initGlobalLocale",
                        "The system's locale name cannot be used: " + system_name);
            }
        }
        if (category.name.empty()) {
            category.name = classic_name;
        }
    }
    result.encoding = settings.ansi_code_page != 0
                          ? encoding_of_code_page(settings.ansi_code_page)
                          : std::string(split_locale_name(result.categories.front().system_name).codeset);
    result.terminal_input_encoding = encoding_of_code_page(settings.terminal_input_code_page);
    result.terminal_output_encoding = encoding_of_code_page(settings.terminal_output_code_page);
    return result;
}

} // namespace fl::i18n::lcmgmt
