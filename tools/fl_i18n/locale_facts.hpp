#pragma once

#include "tools/fl_i18n/facts.hpp"

#include <fl/i18n/locale.hpp>
#include <string>
#include <vector>

namespace fl::tool {

/// Returns why a text is no locale name; empty when it is one.
std::string check_locale_name(std::string const & name);

/// Returns what the library knows of a locale. An origin is told only where it is certain.
std::vector<fact> describe_locale(i18n::QzLocale const & locale);

} // namespace fl::tool
