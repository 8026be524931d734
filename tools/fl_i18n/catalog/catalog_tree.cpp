#include "tools/fl_i18n/catalog/catalog_tree.hpp"

#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/split.hpp"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace fl::tool {

namespace {

constexpr std::string_view extension = ".xml";

/// The component, the locale and the name of the file.
constexpr std::size_t least_depth = 3;

std::string absolute_name(std::string const & path) {
    std::string name = to_name(std::filesystem::absolute(to_path(path)).lexically_normal());
    if (name.ends_with('/')) {
        name.pop_back();
    }
    return name;
}

/// Returns the number of elements up to the directory of resources and with it. `path_depth` is the number of
/// those that make up the path that is searched.
std::optional<std::size_t> resources_depth(std::vector<std::string> const & elements, std::size_t path_depth,
                                           bool path_is_directory) {
    auto const is_resources = [&](std::size_t depth) { return elements[depth - 1] == "resources"; };
    std::size_t depth = path_depth;
    while (depth < elements.size() && !is_resources(depth)) {
        ++depth;
    }
    if (depth >= elements.size()) {
        depth = path_depth - 1;
        while (depth > 0 && !is_resources(depth)) {
            --depth;
        }
    }
    if (depth == 0 && path_is_directory) {
        depth = path_depth;
    }
    return depth > 0 && depth + least_depth <= elements.size() ? std::optional(depth) : std::nullopt;
}

void place(catalog_file & file, std::vector<std::string> const & elements, std::size_t depth) {
    for (std::size_t i = 0; i < depth; ++i) {
        file.resources += (i == 0 ? "" : "/") + elements[i];
    }
    file.catalog = elements[depth];
    file.locale = elements[depth + 1];
    for (std::size_t i = depth + 2; i < elements.size(); ++i) {
        file.catalog += ":" + elements[i];
    }
    file.catalog.resize(file.catalog.size() - extension.size());
}

} // namespace

std::vector<catalog_file> find_catalog_files(std::string const & path) {
    bool const whole_directory = is_directory(path);
    std::string const start = absolute_name(path);
    std::size_t const path_depth = split(start, '/').size();
    std::vector<catalog_file> files;
    for (std::string const & name : whole_directory ? files_below(path, extension) : std::vector{path}) {
        catalog_file file;
        file.name = name;
        // What follows the path in the file's name begins with a separator unless the path ends with one.
        std::string const rest = name.substr(path.size());
        auto const elements = split(start + (rest.empty() || rest.starts_with('/') ? "" : "/") + rest, '/');
        auto const depth = resources_depth(elements, path_depth, whole_directory);
        if (depth && name.ends_with(extension)) {
            place(file, elements, *depth);
        }
        files.push_back(std::move(file));
    }
    return files;
}

std::string language_of(std::string const & locale) {
    return locale.substr(0, locale.find_first_of("_-.@"));
}

std::vector<std::string> base_locales(std::string const & wanted) {
    return wanted.empty() ? std::vector<std::string>{"en_US_POSIX", "en_US", "en"} : std::vector{wanted};
}

} // namespace fl::tool
