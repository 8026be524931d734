#pragma once

#include "tools/fl_i18n/catalog/placed_text.hpp"
#include "tools/fl_i18n/catalog/source_text.hpp"
#include "tools/fl_i18n/catalog/xml_document.hpp"

#include <cstddef>
#include <fl/i18n/ustring_type.hpp>
#include <string>
#include <vector>

namespace fl::tool {

/// The namespace of attributes that hold what another format knows of a message and the loader ignores.
constexpr char exchange_namespace[] = "urn:fl:i18n:exchange";

/// A message as a catalog file holds it.
struct catalog_entry {
    std::string key;
    placed_text text;
    std::vector<xml::attribute> attributes; ///< all but the key, in their order
    std::vector<std::string> comments;      ///< the comments before it
    std::size_t offset = 0;                 ///< the place of its tag
    std::size_t key_offset = 0;             ///< the place of its key; that of the tag without one
};

/// A catalog file. The places count the bytes of the text that it was read from.
struct catalog {
    std::vector<xml::attribute> attributes; ///< those of the root element, in their order
    std::vector<std::string> head_comments; ///< those before the root element
    std::vector<catalog_entry> entries;
    std::vector<std::string> tail_comments; ///< those after the last entry
    /// Processing instructions ("target data") before the root element.
    std::vector<std::string> instructions;
    std::size_t offset = 0;     ///< the place of the root element's tag
    std::size_t end_offset = 0; ///< the place of its end tag

    /// Returns the value of an attribute of the root element; empty without it.
    std::string attribute(std::string_view name) const;
};

/// Tells whether an entry is for translators: its attribute "translate" is not "no".
bool is_translatable(catalog_entry const & entry);

/// What is wrong with a file.
struct catalog_fault {
    std::size_t offset = 0;
    bool refused = false; ///< the loader refuses the file for it
    std::string text;
    std::string rule;
};

/// Reads a catalog as the loader does, but goes on after a fault, as far as XML allows.
///
/// An entry without key has an empty one. A key that is there already makes an entry all the same.
catalog read_catalog(source_text const & source, bool forced_utf8, std::vector<catalog_fault> & faults);

/// Reads a catalog file that the loader accepts; throws `command_failure` with the place of the first fault.
catalog read_good_catalog(std::string const & file);

/// Returns a catalog as a file that the loader reads with exactly these keys, texts and attributes.
std::string write_catalog(catalog const & contents);

/// Returns attributes as they stand in a tag after its name, each with a blank before it.
std::string write_attributes(std::vector<xml::attribute> const & attributes);

/// Returns a text in which backslash escapes stand for what would not come back from an XML document:
/// controls, lone surrogates, blanks at the ends.
i18n::ustring escape_text(i18n::ustring const & text);
/// Returns the text that an escaped one stands for; empty when an escape is malformed.
i18n::ustring unescape_text(i18n::ustring const & text);

/// Returns the content of an entry, as XML, that the loader turns into this text.
std::string to_entry_content(i18n::ustring const & text);

} // namespace fl::tool
