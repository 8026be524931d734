#pragma once

#include <cstddef>
#include <fl/i18n/ustring_type.hpp>
#include <optional>
#include <vector>

namespace fl::tool {

/// A piece of a message pattern: literal text, syntax (a hole with all in it, the frame of a plural or
/// select, a quoting apostrophe), or, empty, the end of a message.
struct pattern_piece {
    enum class kind { text, syntax, end };

    kind what;
    std::size_t begin; ///< in units
    std::size_t end;
    std::size_t message; ///< 0 for the whole message, else a branch of a plural, select or choice

    friend bool operator==(pattern_piece const &, pattern_piece const &) = default;
};

/// Splits a message as the library reads it; nothing when it refuses the pattern. The pieces cover the whole
/// message.
std::optional<std::vector<pattern_piece>> split_pattern(i18n::ustring const & message);

/// Tells whether people can read something in the literal text of a message: a letter. A refused pattern is
/// text as a whole.
bool has_words(i18n::ustring const & message);

} // namespace fl::tool
