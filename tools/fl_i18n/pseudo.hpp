#pragma once

#include "tools/fl_i18n/catalog/catalog.hpp"

#include <cstddef>
#include <fl/i18n/ustring_type.hpp>
#include <optional>

/// Pseudo-languages: texts that people still read, made to show what breaks in translation.
namespace fl::tool {

struct pseudo_style {
    /// Words run from right to left instead of having accents.
    bool right_to_left = false;
    /// How much longer a text becomes, in percent of its length: three times as much for up to 10 characters,
    /// twice as much for up to 20.
    unsigned expansion = 35;
};

/// Returns a message with its literal text changed, padded and put in brackets, and with its holes as they
/// are. Nothing when the library refuses the pattern; an empty message stays empty.
std::optional<i18n::ustring> pseudo_text(i18n::ustring const & message, pseudo_style const & style);

/// Changes all texts of a catalog but those with `translate="no"` and those that the library refuses as
/// patterns, and names the pseudo-language, "en_XA" or "ar_XB". Returns the number of the refused texts.
std::size_t make_pseudo(catalog & contents, pseudo_style const & style);

} // namespace fl::tool
