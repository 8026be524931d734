#pragma once

#include "tools/fl_i18n/exchange/exchange.hpp"
#include "tools/fl_i18n/exchange/xliff_file.hpp"

#include <optional>
#include <string>

/// Catalogs from XLIFF files and back. A file that the export of a catalog has made gives the same catalog
/// again. The catalog of any other file holds, in attributes, all that stands between its translations, as it
/// is.
namespace fl::tool {

/// Returns the text of an XLIFF file in UTF-8, which it then declares; throws `command_failure`. `decoded` is
/// what `read_xliff` must know.
std::string decode_xliff(std::string const & file, std::string bytes, bool & decoded);

/// Returns an XLIFF document's catalog, in the language that it names unless `locale` does. `file` serves the
/// places of errors; throws `command_failure`.
catalog catalog_from_xliff(xliff_file const & xliff, std::optional<std::string> const & locale,
                           std::string const & file, std::string const & document,
                           std::vector<std::string> & left_out);

/// Returns a catalog's XLIFF document of version 1 (1.2) or 2 (2.0); throws `command_failure`. `name` is that
/// of the catalog's file.
std::string xliff_from_catalog(catalog const & contents, export_settings const & settings, int version,
                               std::string const & name);

/// Tells whether a catalog was made from an XLIFF file of this version that no export has made.
bool is_foreign_xliff(catalog const & contents, int version);

/// @{ The two kinds of files.
catalog catalog_from_foreign_xliff(xliff_file const & xliff, std::string const & document);
catalog catalog_from_own_xliff(xliff_file const & xliff, std::string const & file,
                               std::string const & document, std::vector<std::string> & left_out);
std::string foreign_xliff_from_catalog(catalog const & contents, int version);
std::string own_xliff_from_catalog(catalog const & contents, export_settings const & settings, int version,
                                   std::string const & name);
/// @}

} // namespace fl::tool
