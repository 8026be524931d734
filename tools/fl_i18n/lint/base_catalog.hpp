#pragma once

#include "tools/fl_i18n/catalog/catalog.hpp"
#include "tools/fl_i18n/catalog/catalog_tree.hpp"
#include "tools/fl_i18n/lint/text_rules.hpp"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace fl::tool::lint {

/// What the other languages of a catalog are compared with.
struct base_entry {
    i18n::ustring text;
    bool translatable = true;
    std::optional<hole_types> holes; ///< none when the text is empty or no pattern
};

class base_catalog {
public:
    base_catalog(std::string locale, catalog const & contents);

    std::string const & locale() const noexcept { return locale_; }
    /// The keys in the order of the file.
    std::vector<std::string> const & keys() const noexcept { return keys_; }
    base_entry const * find(std::string const & key) const;

private:
    std::string locale_;
    std::vector<std::string> keys_;
    std::unordered_map<std::string, base_entry> entries_;
};

/// Reads what a catalog file is compared with: the same catalog in the locale `wanted`, in the usual ones
/// when that is empty. Nothing when there is no file that can be read.
std::optional<base_catalog> load_base(catalog_file const & file, std::string const & wanted);

} // namespace fl::tool::lint
