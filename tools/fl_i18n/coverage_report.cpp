#include "tools/fl_i18n/coverage.hpp"
#include "tools/fl_i18n/json.hpp"

#include <algorithm>

namespace fl::tool {

namespace {

using table = std::vector<std::vector<std::string>>;

coverage_count sum(std::map<std::string, coverage_count> const & counts) {
    coverage_count total;
    for (auto const & [catalog, count] : counts) {
        total += count;
    }
    return total;
}

/// Returns the counts of all languages together, by catalog.
std::map<std::string, coverage_count> sum_of_languages(coverage const & measured) {
    std::map<std::string, coverage_count> total;
    for (auto const & [language, counts] : measured.languages) {
        for (auto const & [catalog, count] : counts) {
            total[catalog] += count;
        }
    }
    return total;
}

std::string share(coverage_count const & count) {
    std::size_t const percent = count.total == 0 ? 100 : count.translated * 100 / count.total;
    return std::to_string(count.translated) + "/" + std::to_string(count.total) + " " +
           std::to_string(percent) + "%";
}

std::vector<std::string> row(std::string const & name, std::vector<std::string> const & catalogs,
                             std::map<std::string, coverage_count> const & counts) {
    std::vector<std::string> cells = {name};
    for (std::string const & catalog : catalogs) {
        cells.push_back(share(counts.at(catalog)));
    }
    coverage_count const total = sum(counts);
    cells.push_back(share(total));
    cells.push_back(std::to_string(total.same));
    cells.push_back(std::to_string(total.missing_keys.size()));
    return cells;
}

/// Returns the rows with their columns aligned, the first on the left.
std::string aligned(table const & rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (auto const & cells : rows) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            widths[i] = std::max(widths[i], cells[i].size());
        }
    }
    std::string text;
    for (auto const & cells : rows) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            std::string const blanks(widths[i] - cells[i].size(), ' ');
            text += i == 0 ? cells[i] + blanks : "  " + blanks + cells[i];
        }
        text += '\n';
    }
    return text;
}

std::string json_counts(coverage_count const & count) {
    return "\"total\":" + std::to_string(count.total) +
           ",\"translated\":" + std::to_string(count.translated) + ",\"same\":" + std::to_string(count.same) +
           ",\"missing\":" + std::to_string(count.missing_keys.size());
}

/// Returns a JSON array of the elements that a function makes.
template <class Range, class ToJson>
std::string json_array(Range const & elements, ToJson to_json) {
    std::string text = "[";
    for (auto const & element : elements) {
        text += (text.size() > 1 ? "," : "") + to_json(element);
    }
    return text + "]";
}

} // namespace

std::string to_text(coverage const & measured, bool list_missing) {
    table rows = {{"language"}};
    rows.front().insert(rows.front().end(), measured.catalogs.begin(), measured.catalogs.end());
    for (char const * const name : {"total", "same as base", "missing"}) {
        rows.front().emplace_back(name);
    }
    for (auto const & [language, counts] : measured.languages) {
        rows.push_back(row(language, measured.catalogs, counts));
    }
    if (!measured.languages.empty()) {
        rows.push_back(row("total", measured.catalogs, sum_of_languages(measured)));
    }
    std::string text = aligned(rows);
    if (list_missing) {
        for (auto const & [language, counts] : measured.languages) {
            for (auto const & [catalog, count] : counts) {
                for (std::string const & key : count.missing_keys) {
                    text += "missing in " + language + ": " + catalog + ":" + key + "\n";
                }
            }
        }
    }
    return text;
}

std::string to_json(coverage const & measured, bool list_missing) {
    auto const catalog_json = [&](auto const & entry) {
        auto const & [catalog, count] = entry;
        std::string const keys =
            list_missing ? ",\"missing_keys\":" + json_array(count.missing_keys, to_json_string) : "";
        return "{\"catalog\":" + to_json_string(catalog) + "," + json_counts(count) + keys + "}";
    };
    auto const language_json = [&](auto const & entry) {
        auto const & [language, counts] = entry;
        return "\n{\"language\":" + to_json_string(language) + "," + json_counts(sum(counts)) +
               ",\"catalogs\":" + json_array(counts, catalog_json) + "}";
    };
    return "{\"catalogs\":" + json_array(measured.catalogs, to_json_string) +
           ",\n\"languages\":" + json_array(measured.languages, language_json) + ",\n\"total\":{" +
           json_counts(sum(sum_of_languages(measured))) +
           "},\n\"problems\":" + json_array(measured.problems, to_json_string) + "}\n";
}

} // namespace fl::tool
