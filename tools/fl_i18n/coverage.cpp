#include "tools/fl_i18n/coverage.hpp"

#include "tools/fl_i18n/catalog/catalog.hpp"
#include "tools/fl_i18n/catalog/catalog_tree.hpp"
#include "tools/fl_i18n/catalog/pattern_text.hpp"
#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/progress.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace fl::tool {

namespace {

/// The files of one catalog, by locale.
using locale_files = std::map<std::string, std::string>;
using messages = std::unordered_map<std::string, catalog_entry>;

struct catalog_files {
    std::string catalog;
    locale_files files;
    std::string base; ///< the locale to compare with; empty when there is none
};

/// Reads a catalog; nothing, and a problem, when the loader refuses it.
messages read_messages(std::string const & file, std::vector<std::string> & problems) {
    messages result;
    try {
        for (catalog_entry & entry : read_good_catalog(file).entries) {
            std::string key = entry.key;
            result.try_emplace(std::move(key), std::move(entry));
        }
    } catch (command_failure const & failure) {
        problems.emplace_back(failure.what());
    }
    return result;
}

std::string find_base(locale_files const & files, std::string const & wanted) {
    for (std::string const & name : base_locales(wanted)) {
        if (files.contains(name)) {
            return name;
        }
    }
    return {};
}

coverage_count compare(messages const & base, messages const & translation, bool same_language) {
    coverage_count count;
    count.total = base.size();
    for (auto const & [key, original] : base) {
        auto const found = translation.find(key);
        if (found == translation.end()) {
            count.missing_keys.push_back(key);
        } else if (!same_language && found->second.text.units == original.text.units &&
                   is_translatable(original) && is_translatable(found->second) &&
                   has_words(original.text.units)) {
            ++count.same;
        } else {
            ++count.translated;
        }
    }
    std::sort(count.missing_keys.begin(), count.missing_keys.end());
    return count;
}

std::vector<catalog_files> find_catalogs(std::string const & directory) {
    std::map<std::pair<std::string, std::string>, locale_files> found;
    for (catalog_file const & file : find_catalog_files(directory)) {
        if (!file.catalog.empty() && !file.name.ends_with("/catalog_map.xml")) {
            found[{file.catalog, file.resources}].emplace(file.locale, file.name);
        }
    }
    if (found.empty()) {
        throw command_failure(exit_input_output, "no catalogs below " + directory);
    }
    std::vector<catalog_files> catalogs;
    for (auto & [id, files] : found) {
        catalogs.push_back({id.first, std::move(files), {}});
    }
    return catalogs;
}

/// Returns the file that a lookup in a language uses, short of the default; empty when there is none.
std::string file_for(locale_files const & files, std::string const & locale) {
    auto const own = files.find(locale);
    auto const found = own != files.end() ? own : files.find(language_of(locale));
    return found != files.end() ? found->second : std::string();
}

void compare_languages(catalog_files const & catalog, coverage & result) {
    if (result.catalogs.empty() || result.catalogs.back() != catalog.catalog) {
        result.catalogs.push_back(catalog.catalog);
    }
    messages const original = read_messages(catalog.files.at(catalog.base), result.problems);
    for (auto & [locale, counts] : result.languages) {
        bool const same_language = language_of(locale) == language_of(catalog.base);
        std::string const file = file_for(catalog.files, locale);
        // The default serves a variant of its own language.
        coverage_count const count =
            file.empty() && same_language ? compare(original, original, true)
            : file.empty()                ? compare(original, {}, false)
                           : compare(original, read_messages(file, result.problems), same_language);
        counts[catalog.catalog] += count;
    }
}

} // namespace

coverage_count & coverage_count::operator+=(coverage_count const & other) {
    total += other.total;
    translated += other.translated;
    same += other.same;
    missing_keys.insert(missing_keys.end(), other.missing_keys.begin(), other.missing_keys.end());
    return *this;
}

coverage measure_coverage(std::string const & directory, std::string const & base) {
    std::vector<catalog_files> catalogs = find_catalogs(directory);
    coverage result;
    for (catalog_files & each : catalogs) {
        each.base = find_base(each.files, base);
        if (each.base.empty()) {
            result.problems.push_back(each.catalog + ": there is no file for the base language");
            continue;
        }
        for (auto const & [locale, file] : each.files) {
            if (locale != each.base) {
                result.languages[locale];
            }
        }
    }
    progress shown("comparing catalog", catalogs.size());
    for (catalog_files const & each : catalogs) {
        if (!each.base.empty()) {
            compare_languages(each, result);
        }
        shown.advance();
    }
    return result;
}

} // namespace fl::tool
