#pragma once

#include "tools/fl_i18n/exchange/exchange.hpp"
#include "tools/fl_i18n/exchange/po_file.hpp"

#include <optional>
#include <string>

/// Catalogs from PO files and back. A file that the export of a catalog has made holds each message under its
/// key as context, which a field of the header tells; the messages of any other file get keys made from their
/// texts.
namespace fl::tool {

/// Returns a PO file's catalog, in the language that the header names unless `locale` does. `file` and
/// `text`, the decoded file, serve the places of errors; what the catalog
/// cannot hold is told in `left_out`; throws `command_failure`.
catalog catalog_from_po(po_file const & po, std::optional<std::string> const & locale,
                        std::string const & file, std::string const & text,
                        std::vector<std::string> & left_out);

/// Returns a catalog's PO file; throws `command_failure`.
po_file po_from_catalog(catalog const & contents, export_settings const & settings);

/// Tells whether a catalog was made from a PO file that no export has made.
bool is_foreign_po(catalog const & contents);

/// @{ The two kinds of files.
catalog catalog_from_foreign_po(po_file const & po, std::string const & file, std::string const & text);
catalog catalog_from_own_po(po_file const & po, std::string const & file, std::string const & text,
                            std::vector<std::string> & left_out);
po_file foreign_po_from_catalog(catalog const & contents);
po_file own_po_from_catalog(catalog const & contents, export_settings const & settings);
/// @}

/// The header's field that tells a file made from a catalog.
constexpr char own_po_field[] = "X-Catalog-Keys";

/// Adds the lines of a message's comments as attributes, kind by kind.
void add_comments(attributes & to, po_message const & message);
/// Sets a message's comments from attributes.
void set_comments(po_message & message, attributes const & from);

/// Adds the text of PO messages that are none of the catalog, and of lines, as an attribute.
void add_aside(attributes & to, std::string_view name, std::vector<po_message> const & messages,
               std::vector<std::string> const & lines);
/// Reads what `add_aside` has written.
po_file read_aside(attributes const & from, std::string_view name);

/// Adds or takes away the flag of a translation that must be looked at.
void set_fuzzy(po_message & message, bool fuzzy);

} // namespace fl::tool
