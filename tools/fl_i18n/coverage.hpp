#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// How much of the catalogs below a directory is translated.
namespace fl::tool {

/// The state of some messages in a language. A text counts as the base language's own when it is equal to it,
/// is in another language, has a letter outside its holes, and neither entry has `translate="no"`.
struct coverage_count {
    std::size_t total = 0; ///< messages of the base language
    std::size_t translated = 0;
    std::size_t same = 0; ///< texts that are those of the base language
    std::vector<std::string> missing_keys;

    coverage_count & operator+=(coverage_count const & other);
};

struct coverage {
    std::vector<std::string> catalogs; ///< sorted
    /// By language, and in each by catalog. The base languages are not among them.
    std::map<std::string, std::map<std::string, coverage_count>> languages;
    /// Why something could not be compared, in sentences for people.
    std::vector<std::string> problems;
};

/// Compares the catalogs of all languages below a directory with those of the base language: `base` or, when
/// that is empty, the first of "en_US_POSIX", "en_US" and "en" that there is, for each catalog.
///
/// A language with a territory ("de_AT") uses the file of its language where it has none, as a lookup does,
/// and a variant of the base language uses the base; a file that the loader refuses counts as one without
/// messages. Throws `command_failure` when the directory cannot be read or has no catalogs.
coverage measure_coverage(std::string const & directory, std::string const & base);

/// Returns a table of languages and catalogs for people; with `list_missing` also the keys that are missing.
std::string to_text(coverage const & measured, bool list_missing);

/// Returns a JSON object:
/// {"catalogs":[NAME...],"languages":[{"language":NAME,COUNTS,"catalogs":[{"catalog":NAME,COUNTS}...]}...],
/// "total":{COUNTS},"problems":[TEXT...]} where COUNTS are "total", "translated", "same", "missing" and, with
/// `list_missing`, "missing_keys" for each catalog.
std::string to_json(coverage const & measured, bool list_missing);

} // namespace fl::tool
