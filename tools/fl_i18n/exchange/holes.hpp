#pragma once

#include <cstddef>
#include <fl/i18n/ustring_type.hpp>
#include <vector>

namespace fl::tool {

/// A hole of a message: "{0}", "{name}", "{0, number}".
struct hole {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Returns the holes of a text, in order, but those that choose between texts (plural, select). None when the
/// text is no pattern.
std::vector<hole> simple_holes(i18n::ustring const & text);

/// Tells whether every brace of a text belongs to a hole without type or blanks.
bool has_plain_braces(i18n::ustring const & text);

/// Tells whether a text has holes and no other braces, as `has_plain_braces`.
bool has_plain_holes(i18n::ustring const & text);

} // namespace fl::tool
