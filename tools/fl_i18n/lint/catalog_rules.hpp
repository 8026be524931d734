#pragma once

#include "tools/fl_i18n/catalog/catalog.hpp"
#include "tools/fl_i18n/catalog/catalog_tree.hpp"
#include "tools/fl_i18n/lint/base_catalog.hpp"
#include "tools/fl_i18n/lint/finding.hpp"
#include "tools/fl_i18n/lint/text_rules.hpp"

#include <string>
#include <vector>

/// The rules on catalog files, in groups.
namespace fl::tool::lint {

/// A catalog file as the rules see it.
struct catalog_case {
    catalog_file const & file;
    catalog const & contents;
    std::vector<catalog_fault> const & faults; ///< those of its reading
    std::string locale;                  ///< that of its directory, else the one that it names; may be empty
    base_catalog const * base = nullptr; ///< null for the base language and where there is none
};

/// Reports names in the path that no look-up asks for, and the locale in the file when it is another.
void check_path(catalog_case const & subject, file_findings & out);

void check_attributes(catalog_case const & subject, file_findings & out);

/// Reports keys that are repeated, not to be named, unknown to the base language or missing.
void check_keys(catalog_case const & subject, file_findings & out);

/// Applies the rules on texts; what they remember lasts for a run.
class text_rules {
public:
    void check(catalog_case const & subject, file_findings & out);

private:
    void check_entry(catalog_case const & subject, catalog_entry const & entry, file_findings & out);
    void check_text_pattern(catalog_case const & subject, placed_text const & text, base_entry const * base,
                            file_findings & out);

    format_rules formats_;
    plural_rules plurals_;
};

} // namespace fl::tool::lint
