#include "tools/fl_i18n/catalog/catalog.hpp"
#include "tools/fl_i18n/catalog/catalog_tree.hpp"
#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/doctor.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/progress.hpp"

#include <algorithm>
#include <set>

namespace fl::tool {

namespace {

/// Tells whether a lookup in a language finds one of these files of its own.
bool serves(std::set<std::string> const & locales, std::string const & locale) {
    return locales.contains(locale) || locales.contains(language_of(locale));
}

std::string join(std::set<std::string> const & words) {
    std::string text;
    for (std::string const & word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

} // namespace

void examine_root(std::string const & root, diagnosis & result) {
    std::string const resources = root + (root.ends_with('/') ? "" : "/") + "resources";
    bool const usable = is_directory(resources);
    result.facts.push_back({"root", root, usable ? "has resources" : "has no resources"});
    if (!usable) {
        result.problems.push_back("There is no directory " + resources +
                                  ": install the catalogs there, or name another root");
        return;
    }
    std::map<std::string, std::set<std::string>> catalogs;
    std::set<std::string> all_locales;
    auto const files = find_catalog_files(resources);
    progress shown("loading catalog", files.size());
    for (catalog_file const & file : files) {
        shown.advance();
        if (file.catalog.empty() || file.name.ends_with("/catalog_map.xml")) {
            continue;
        }
        try {
            read_good_catalog(file.name);
            catalogs[file.catalog].insert(file.locale);
            all_locales.insert(file.locale);
        } catch (command_failure const & failure) {
            result.problems.push_back("A catalog is not loaded: " + std::string(failure.what()) +
                                      ": correct the file");
        }
    }
    for (auto const & [catalog, locales] : catalogs) {
        result.facts.push_back({"catalog " + catalog, join(locales), {}});
        std::set<std::string> missing;
        std::copy_if(all_locales.begin(), all_locales.end(), std::inserter(missing, missing.end()),
                     [&served = locales](std::string const & locale) { return !serves(served, locale); });
        if (!missing.empty()) {
            result.problems.push_back("The catalog " + catalog + " is missing in " + join(missing) +
                                      " below " + resources);
        }
    }
    if (catalogs.empty()) {
        result.problems.push_back("There are no catalogs below " + resources);
    }
}

} // namespace fl::tool
