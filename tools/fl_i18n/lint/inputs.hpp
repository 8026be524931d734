#pragma once

#include "tools/fl_i18n/catalog/catalog_tree.hpp"
#include "tools/fl_i18n/catalog/source_text.hpp"

#include <optional>
#include <set>
#include <string>
#include <vector>

/// The files of a run and what they are.
namespace fl::tool::lint {

struct input {
    catalog_file file;
    bool named = false;    ///< by the user, not found in a directory
    bool too_high = false; ///< below a directory of resources, but in no component and locale
};

/// Returns the files of all paths once, the languages of a catalog together.
std::vector<input> find_inputs(std::vector<std::string> const & paths);

enum class file_kind { catalog, locale_database, catalog_map, other };

/// Tells what a file is, by its root element, or by its name when that is none of the three.
file_kind kind_of(input const & subject, source_text const & source, bool decoded);

/// Returns the catalogs with files where a catalog map is; nothing when there is no directory of them.
std::optional<std::set<std::string>> catalogs_beside(std::string const & map);

} // namespace fl::tool::lint
