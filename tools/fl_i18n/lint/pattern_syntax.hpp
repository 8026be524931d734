#pragma once

#include "tools/fl_i18n/catalog/placed_text.hpp"

#include <string_view>

/// The small print of the formatter's patterns.
namespace fl::tool::lint {

/// Tells whether a unit is white space between the parts of a hole.
bool is_space(char16_t unit);

/// Tells whether a unit cannot be in the name of a hole or branch.
bool ends_name(char16_t unit);

/// Tells whether a unit belongs to a number, well-formed or not.
bool may_be_in_number(char16_t unit);

/// Tells whether a text of such units is a number.
bool is_number(std::u16string_view text, bool infinity_allowed);

bool has_letter(std::u16string_view text);

/// Tells whether the formatter takes a hole for a named one: only by the first character of its name.
bool begins_with_letter(std::u16string_view name);

/// Returns the text as the formatter hands it to its parser: an apostrophe that quotes nothing is doubled,
/// and an open quotation is closed. What is added has the place of what follows it.
placed_text quote_apostrophes(placed_text const & text);

} // namespace fl::tool::lint
