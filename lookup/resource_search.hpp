#pragma once

#include <fl/filesystem/path.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring_type.hpp>
#include <functional>
#include <optional>
#include <vector>

namespace fl::i18n::resource_search {

/// What to search for, and where.
struct query {
    std::vector<filesystem::upath> const & base_paths;
    ustring const & pattern;
    ustring const & marker;
    /// The names to put in the marker's place, most specific first; the empty one stands for the unlocalised
    /// file.
    std::vector<ustring> const & locale_names;
};

/// A file that was found: its absolute native path and the name that matched. Empty when nothing was found.
struct match {
    filesystem::upath path;
    ustring locale_name;
};

/// Is told each candidate in the order of the search, with its locale name and whether it exists.
using visitor =
    std::function<void(filesystem::upath const & candidate, ustring const & locale_name, bool exists)>;

/// Returns the first candidate that exists.
match find(query const & what, visitor const & visit = {});

/// Returns a pattern, which holds the marker, with a locale name in its place; nothing for a name that could
/// lead elsewhere than below where the pattern does.
std::optional<ustring> localise(ustring const & pattern, ustring const & marker, ustring const & locale_name);

/// Returns the names to try for a locale.
std::vector<ustring> locale_names(QzLocale const & locale, bool use_classic_default);

} // namespace fl::i18n::resource_search
