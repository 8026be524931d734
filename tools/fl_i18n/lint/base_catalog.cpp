#include "tools/fl_i18n/lint/base_catalog.hpp"

#include "tools/fl_i18n/files.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace fl::tool::lint {

namespace {

std::optional<hole_types> read_holes(placed_text const & text) {
    if (text.units.empty()) {
        return std::nullopt;
    }
    if (!has_brace(text.units)) {
        return hole_types();
    }
    pattern const result = read_pattern(text);
    return result.fault ? std::nullopt : std::optional(types_of(result));
}

/// Returns the path of a catalog's file in a locale.
std::string path_of(catalog_file const & file, std::string const & locale) {
    std::size_t const colon = file.catalog.find(':');
    std::string rest = file.catalog.substr(colon + 1);
    std::ranges::replace(rest, ':', '/');
    return file.resources + "/" + file.catalog.substr(0, colon) + "/" + locale + "/" + rest + ".xml";
}

} // namespace

base_catalog::base_catalog(std::string locale, catalog const & contents)
    : locale_(std::move(locale)) {
    for (catalog_entry const & entry : contents.entries) {
        auto const [added, is_new] = entries_.try_emplace(entry.key);
        if (is_new) {
            added->second = {entry.text.units, is_translatable(entry), read_holes(entry.text)};
            keys_.push_back(entry.key);
        }
    }
}

base_entry const * base_catalog::find(std::string const & key) const {
    auto const found = entries_.find(key);
    return found == entries_.end() ? nullptr : &found->second;
}

std::optional<base_catalog> load_base(catalog_file const & file, std::string const & wanted) {
    for (std::string const & locale : base_locales(wanted)) {
        try {
            bool decoded = false;
            source_text const source(decode_xml(read_file(path_of(file, locale)), decoded));
            std::vector<catalog_fault> ignored;
            return base_catalog(locale, read_catalog(source, decoded, ignored));
        } catch (std::runtime_error const &) {
            // There is none, or it is no text.
        }
    }
    return std::nullopt;
}

} // namespace fl::tool::lint
