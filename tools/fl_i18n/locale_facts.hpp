#pragma once

#include "tools/fl_i18n/facts.hpp"

#include <fl/i18n/locale.hpp>
#include <string>
#include <vector>

namespace fl::tool {

/// Returns why a text is no locale name; empty when it is one.
std::string check_locale_name(std::string const & name);

/// The locale database and what the start-up made of it.
struct locale_database {
    enum class state { missing, in_part, whole };
    std::string file; ///< where it is, or is to be; empty when that cannot be told
    state is = state::missing;
};
locale_database find_database();

/// Returns what the library knows of a locale. An origin is told only where it is certain.
std::vector<fact> describe_locale(i18n::QzLocale const & locale);

} // namespace fl::tool
