#pragma once

#include "tools/fl_i18n/exchange/exchange.hpp"

#include <cstddef>
#include <fl/i18n/ustring_type.hpp>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// XLIFF files, 1.2 and 2.0: what is translated in them, with its place.
namespace fl::tool {

/// Tells whether a state of either version says that work is left.
bool is_unfinished(std::string_view state);

/// A text to translate: a trans-unit of 1.2, a segment of 2.0.
struct xliff_unit {
    std::string original; ///< the file that it comes from
    std::string id;
    std::string name;
    i18n::ustring source;
    std::optional<i18n::ustring> target;
    bool target_has_codes = false; ///< elements stand in the target
    std::string unknown_code;      ///< an element of the target for which nothing is known to stand
    std::string state;             ///< as the file names it
    std::vector<std::string> notes;
    std::string tag;          ///< what an export has noted of the entry
    std::size_t segments = 1; ///< into which the unit that it comes from is cut
    std::size_t offset = 0;
    std::size_t target_begin = 0; ///< the place of the target element, or where it would stand
    std::size_t target_end = 0;

    /// Tells whether the target is no translation yet, or must be looked at.
    bool needs_work() const { return is_unfinished(state); }

    /// Returns the target, unless it is an empty one that waits for its translation.
    std::optional<i18n::ustring> translation() const;
};

struct xliff_file {
    int version = 0; ///< 1 or 2
    std::string target_language;
    std::optional<std::string> catalog_lines; ///< what an export has noted of the catalog
    std::vector<xliff_unit> units;
    std::map<std::string, std::size_t>
        other_elements; ///< those that are not read, and how often they are there
};

/// Reads an XLIFF file, as UTF-8 whatever it declares when `decoded`; throws `command_failure` with `name`
/// and the place of what is wrong.
xliff_file read_xliff(std::string const & name, std::string const & document, bool decoded);

/// Reads the text of a target element as the reader of files does. `has_codes` tells of elements in it.
i18n::ustring read_target(std::string const & element, bool & has_codes);

/// Returns the content of a source or target element, where elements stand for what XML cannot hold and, if
/// `with_holes`, for the simple holes of the text.
std::string to_xliff_content(i18n::ustring const & text, int version, bool with_holes);

/// Returns the place after the tag that begins at `offset`.
std::size_t end_of_tag(std::string const & document, std::size_t offset);

} // namespace fl::tool
