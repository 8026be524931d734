#include "foundation/ascii.hpp"
#include "tools/fl_i18n/lint/catalog_rules.hpp"
#include "tools/fl_i18n/lint/other_files.hpp"
#include "tools/fl_i18n/locale_facts.hpp"

#include <fl/i18n/catalog_id.hpp>
#include <unicode/locid.h>

namespace fl::tool::lint {

namespace {

std::string with_underscores(std::string name) {
    for (char & c : name) {
        c = c == '-' ? '_' : c;
    }
    return name;
}

/// Returns a name as locales are named where it differs from that by letter case and separators alone.
std::string usual_spelling(std::string const & name) {
    icu::Locale const locale = icu::Locale::createCanonical(name.c_str());
    std::string const usual = locale.getName();
    // The names "C" and "POSIX" have no language and are asked for as they are.
    std::string_view const language = locale.getLanguage();
    if (language.size() != 2 && language.size() != 3) {
        return name;
    }
    return ascii::equal_ignoring_case(usual, with_underscores(name)) ? usual : name;
}

void check_catalog_name(catalog_file const & file, file_findings & out) {
    try {
        i18n::CatalogID{file.catalog};
    } catch (i18n::CatalogID::badCatalogIDException const &) {
        out.add("unreachable-file", {.text = in_quotes(file.catalog) +
                                             " is no catalog identifier: letters, digits and \"_\" in each "
                                             "name, and no digit at its beginning"});
    }
}

void check_locale_name(catalog_file const & file, file_findings & out) {
    if (!is_locale_name(file.locale)) {
        out.add("unreachable-file", {.text = in_quotes(file.locale) + " is no locale name"});
        return;
    }
    if (std::string const usual = usual_spelling(file.locale); usual != file.locale) {
        out.add("unreachable-file",
                {.text = "the directory of the locale is named " + in_quotes(file.locale) +
                         ", look-ups ask for " + in_quotes(usual)});
    }
}

} // namespace

bool is_locale_name(std::string const & name) {
    return !name.empty() && tool::check_locale_name(name).empty();
}

void check_path(catalog_case const & subject, file_findings & out) {
    if (subject.file.resources.empty()) {
        return;
    }
    check_catalog_name(subject.file, out);
    check_locale_name(subject.file, out);
    xml::attribute const * const named = xml::find(subject.contents.attributes, "locale");
    if (named != nullptr && named->value != subject.file.locale) {
        out.add(
            "locale-mismatch",
            {.offset = named->value_offset,
             .text = "the file is in the directory of the locale " + in_quotes(subject.file.locale),
             .repair = mend<std::size_t>{named->value_offset + named->value.size(), subject.file.locale}});
    }
}

} // namespace fl::tool::lint
