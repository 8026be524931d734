#include "tools/fl_i18n/lint/inputs.hpp"

#include "tools/fl_i18n/catalog/xml_document.hpp"
#include "tools/fl_i18n/files.hpp"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <tuple>
#include <utility>

namespace fl::tool::lint {

namespace {

std::filesystem::path absolute_path(std::string const & name) {
    return std::filesystem::absolute(to_path(name)).lexically_normal();
}

/// Finds the name of the root element.
class root_finder final : public xml::events {
public:
    void on_start(std::string_view name, std::vector<xml::attribute> const &, std::size_t) override {
        name_ = name;
        throw found();
    }
    void on_end(std::string_view, std::size_t) override {}
    void on_text(std::string_view, std::size_t, bool) override {}

    /// Returns an empty name for a document that breaks off before.
    static std::string find(source_text const & source, bool decoded) {
        root_finder finder;
        try {
            xml::read(source.bytes(), finder, decoded);
        } catch (found const &) {
        }
        return finder.name_;
    }

private:
    struct found {};
    std::string name_;
};

/// Returns the directory of resources that a file is in, or that lies beside it.
std::filesystem::path resources_of(std::string const & file) {
    std::filesystem::path const own = absolute_path(file).parent_path();
    for (std::filesystem::path directory = own; directory != directory.parent_path();
         directory = directory.parent_path()) {
        if (directory.filename() == "resources") {
            return directory;
        }
    }
    return own / "resources";
}

/// Tells whether a file without place has a directory of resources right above it.
bool lies_too_high(catalog_file const & file) {
    std::filesystem::path const own = absolute_path(file.name).parent_path();
    return file.resources.empty() &&
           (own.filename() == "resources" || own.parent_path().filename() == "resources");
}

} // namespace

std::vector<input> find_inputs(std::vector<std::string> const & paths) {
    std::vector<input> inputs;
    std::set<std::filesystem::path> seen;
    for (std::string const & path : paths) {
        bool const named = !is_directory(path);
        for (catalog_file & file : find_catalog_files(path)) {
            if (seen.insert(absolute_path(file.name)).second) {
                bool const too_high = !named && lies_too_high(file);
                inputs.push_back({std::move(file), named, too_high});
            }
        }
    }
    std::ranges::stable_sort(inputs, {}, [](input const & each) {
        return std::tie(each.file.resources, each.file.catalog, each.file.locale, each.file.name);
    });
    return inputs;
}

file_kind kind_of(input const & subject, source_text const & source, bool decoded) {
    std::string const root = root_finder::find(source, decoded);
    std::string const name = to_name(to_path(subject.file.name).filename());
    bool const known = root == "lcdata" || root == "MessageCatalogMap" || root == "rsccat";
    bool const by_name = !known && subject.file.resources.empty();
    if (root == "lcdata" || (by_name && name == "lcdata.xml")) {
        return file_kind::locale_database;
    }
    if (root == "MessageCatalogMap" || (by_name && name == "catalog_map.xml")) {
        return file_kind::catalog_map;
    }
    return root == "rsccat" || subject.named || !subject.file.resources.empty() ? file_kind::catalog
                                                                                : file_kind::other;
}

std::optional<std::set<std::string>> catalogs_beside(std::string const & map) {
    std::string const resources = to_name(resources_of(map));
    if (!is_directory(resources)) {
        return std::nullopt;
    }
    std::set<std::string> catalogs;
    for (catalog_file const & each : find_catalog_files(resources)) {
        catalogs.insert(each.catalog);
    }
    return catalogs;
}

} // namespace fl::tool::lint
