#pragma once

#include <fl/i18n/catalog_id.hpp>
#include <string>
#include <vector>

namespace fl::bench {

/// Returns a catalog file with the messages of the contests from `first` on, `count` of them.
std::string catalog_file(std::uint32_t first, std::uint32_t count);

/// Returns the identifiers of the contests' messages, all in one catalog.
std::vector<i18n::MessageID> const & in_one_catalog();

/// Returns the name of that catalog's file.
std::string file_of_one_catalog();

/// Returns the identifiers of the contests' messages, each in a catalog of its own. The first call writes and
/// loads them all.
std::vector<i18n::MessageID> const & in_many_catalogs();

/// Returns a catalog that has no file in any language.
i18n::CatalogID const & no_catalog();

} // namespace fl::bench
