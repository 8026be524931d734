#pragma once

#include "tools/fl_i18n/catalog/catalog.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// Catalogs to and from the formats of translators. What a format knows of a message and the loader ignores
/// stands in attributes of the namespace `exchange_namespace`, whose values are escaped as texts of entries
/// are.
namespace fl::tool {

struct exchange_counts {
    std::size_t messages = 0;
    std::size_t untranslated = 0;
    std::size_t fuzzy = 0;
};

/// How a catalog goes out.
struct export_settings {
    catalog const * base = nullptr; ///< the catalog of the original language
    std::string source_locale;      ///< the original language
    bool is_template = false;       ///< without translations
};

using attributes = std::vector<xml::attribute>;

/// Returns the text of an attribute of the exchange namespace by its local name ("source"), in UTF-8.
std::optional<std::string> exchange_text(attributes const & from, std::string_view name);

/// Sets an attribute of the exchange namespace.
void set_exchange_text(attributes & to, std::string_view name, std::string const & text);

/// Declares the namespace on a catalog whose entries or root use it.
void declare_exchange_namespace(catalog & contents);

/// Refuses a catalog file that has a key twice, since only the first is ever seen; throws `command_failure`.
void check_keys(std::string const & file, catalog const & contents);

/// Tells whether an entry shows its original text still, for want of a translation.
bool shows_original(catalog_entry const & entry);

/// Returns the original text of an entry that came back from translators with `original`: that which it has
/// in the catalog of a foreign file, of which it is a part.
i18n::ustring kept_original(catalog const & contents, catalog_entry const & entry,
                            i18n::ustring const & original);

/// Gives an entry that came back from translators its text: the translation, or the original where there is
/// none or one that must be looked at, which is then kept aside.
void set_translation(catalog_entry & entry, i18n::ustring const & original,
                     std::optional<i18n::ustring> const & translation, bool fuzzy);

/// Returns what translators see of an entry: its original text in the language of `base`, if that has it.
i18n::ustring original_text(catalog_entry const & entry, catalog_entry const * base);

/// Makes attributes that name an original text name this one: that of the base may be newer.
void renew_source(attributes & tag, i18n::ustring const & original);

/// Returns the translation of an entry that translators see, without value where there is none; `fuzzy` tells
/// whether it must be looked at.
std::optional<i18n::ustring> translation_of(catalog_entry const & entry, bool & fuzzy);

/// An entry of a catalog and of the base, of which one may be missing.
struct entry_pair {
    catalog_entry const * entry = nullptr;
    catalog_entry const * base = nullptr;
};

/// Returns all entries that translators see: those of the catalog in their order, and those that the base
/// alone has after the one that precedes them there.
std::vector<entry_pair> pair_entries(catalog const & contents, catalog const * base);

/// Returns lines as one text, with a line feed between two.
std::string join_lines(std::vector<std::string> const & lines);

/// Sets an attribute, which keeps its place when it is there.
void set_attribute(attributes & all, xml::attribute const & value);

/// Removes an attribute; returns whether it was there.
bool remove_attribute(attributes & from, std::string_view name);

/// Counts a catalog's messages.
exchange_counts count(catalog const & contents);

/// Ends the command: something is wrong at a place of a file's decoded text.
[[noreturn]] void fail_at(std::string const & file, std::string const & text, std::size_t offset,
                          std::string const & what);

} // namespace fl::tool
