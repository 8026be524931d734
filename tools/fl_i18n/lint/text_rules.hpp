#pragma once

#include "tools/fl_i18n/catalog/catalog.hpp"
#include "tools/fl_i18n/lint/finding.hpp"
#include "tools/fl_i18n/lint/pattern.hpp"

#include <fl/i18n/ustring_type.hpp>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// The rules on message texts, in groups.
namespace fl::tool::lint {

/// The types of each hole by its name, "" for a plain one.
using hole_types = std::map<i18n::ustring, std::set<std::string>>;

hole_types types_of(pattern const & text);

/// Tells whether a text has to be a pattern: there is a brace in it.
bool has_brace(i18n::ustring const & text);

/// Returns a name in braces, in UTF-8.
std::string in_braces(i18n::ustring const & name);

/// Returns the names of the holes that a quotation hides.
std::vector<i18n::ustring> hidden_holes(quotation const & shield);

/// Reports what keeps a text from being a pattern, and what was hardly meant.
void check_pattern(pattern const & text, file_findings & out);

/// Reports holes that cannot be filled as they are numbered and named.
void check_numbering(pattern const & text, file_findings & out);

/// Compares the holes with those of the base language.
void check_holes(pattern const & text, std::size_t offset, hole_types const & base, file_findings & out);

/// Reports types and styles of holes that the formatter cannot build.
class format_rules {
public:
    void check(pattern const & text, file_findings & out);

private:
    enum class verdict { good, bad_type, bad_style, absurd };
    static verdict judge(hole const & each);

    std::map<std::pair<std::string, i18n::ustring>, verdict> known_;
};

/// Reports plural categories that a language has or has not.
class plural_rules {
public:
    void check(pattern const & text, std::string const & locale, file_findings & out);

private:
    /// The categories of a language with a number that is of each.
    using categories = std::map<std::string, std::string>;
    struct category_set {
        categories samples;
        std::vector<std::string> small_numbers; ///< the category of each
    };
    /// Null for a locale whose language is unknown.
    category_set const * find(std::string const & locale, bool ordinal);
    static std::optional<category_set> load(std::string const & locale, bool ordinal);
    static void check_hole(hole const & each, category_set const & expected, std::string const & locale,
                           file_findings & out);

    std::map<std::pair<std::string, bool>, std::optional<category_set>> known_;
};

} // namespace fl::tool::lint
