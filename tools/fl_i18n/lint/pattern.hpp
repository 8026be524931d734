#pragma once

#include "tools/fl_i18n/catalog/placed_text.hpp"

#include <cstddef>
#include <fl/i18n/ustring_type.hpp>
#include <optional>
#include <string>
#include <vector>

/// A message text as the formatter reads it, with the place of every part in its document.
namespace fl::tool::lint {

/// A branch of a plural or select hole.
struct selector {
    std::size_t offset = 0;
    i18n::ustring text; ///< the word, or "=" and a number
};

struct hole {
    std::size_t offset = 0; ///< the place of its opening brace
    i18n::ustring name;     ///< the number in digits, or the name
    int number = -1;        ///< that of a numbered hole
    std::size_t type_offset = 0;
    std::string type; ///< in lower case; empty for a plain hole
    std::size_t style_offset = 0;
    i18n::ustring style;              ///< what follows the type of a simple hole
    std::vector<selector> selectors;  ///< the branches of a plural or select hole
    bool has_offset = false;          ///< a number is taken off before a category is chosen
    bool has_branches() const;        ///< whether it is of the types that hold messages
    bool has_plural_branches() const; ///< whether its branches are plural categories
};

/// A part of a text that an apostrophe shields from being read as a pattern.
struct quotation {
    std::size_t offset = 0;     ///< the place of the opening apostrophe
    std::size_t end_offset = 0; ///< the place of what follows the apostrophe
    i18n::ustring content;
    bool closed = false; ///< at the top level every quotation is
};

/// What makes a text no pattern.
struct pattern_fault {
    std::size_t offset = 0;
    std::string text;
};

struct pattern {
    std::vector<hole> holes; ///< in the order in which they are written, at any depth
    std::vector<quotation> quotations;
    std::vector<std::size_t> stray_braces; ///< the places of closing braces that close nothing
    bool has_letter = false;               ///< outside the holes' names, types and styles
    std::optional<pattern_fault> fault;    ///< what ended the reading
};

/// Reads a text as the formatter does, apostrophes included.
///
/// There is a fault exactly when the formatter's parser refuses the text, or when holes are nested so deeply
/// that nobody should try it.
pattern read_pattern(placed_text const & text);

} // namespace fl::tool::lint
