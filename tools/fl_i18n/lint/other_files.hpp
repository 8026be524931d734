#pragma once

#include "tools/fl_i18n/catalog/source_text.hpp"
#include "tools/fl_i18n/lint/finding.hpp"

#include <optional>
#include <set>
#include <string>

/// The rules on the files beside the catalogs.
namespace fl::tool::lint {

/// Checks a locale database.
void check_locale_database(source_text const & source, file_findings & out);

/// Checks a catalog map; `catalogs` are those that have files, where that is known.
void check_catalog_map(source_text const & source, bool decoded,
                       std::optional<std::set<std::string>> const & catalogs, file_findings & out);

/// Tells whether a name can be that of a locale.
bool is_locale_name(std::string const & name);

} // namespace fl::tool::lint
