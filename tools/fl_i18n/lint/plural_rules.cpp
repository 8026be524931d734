#include "tools/fl_i18n/lint/spelling.hpp"
#include "tools/fl_i18n/lint/text_rules.hpp"

#include <algorithm>
#include <array>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <sstream>
#include <unicode/locid.h>
#include <unicode/plurrule.h>
#include <unicode/strenum.h>

namespace fl::tool::lint {

namespace {

constexpr int small_number_count = 1000;

/// Tells whether there are rules for a language. For any other the library behind them knows one category,
/// as for languages that have but one.
bool is_known_language(icu::Locale const & locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::StringEnumeration> const known(icu::PluralRules::getAvailableLocales(status));
    while (U_SUCCESS(status) && known) {
        char const * const name = known->next(nullptr, status);
        if (name == nullptr) {
            break;
        }
        if (icu::Locale(name).getLanguage() == std::string_view(locale.getLanguage())) {
            return true;
        }
    }
    return false;
}

std::string to_utf8(icu::UnicodeString const & text) {
    std::string result;
    return text.toUTF8String(result);
}

std::string sample_of(icu::PluralRules & rules, icu::UnicodeString const & category) {
    std::array<double, 1> sample{};
    UErrorCode status = U_ZERO_ERROR;
    if (rules.getSamples(category, sample.data(), 1, status) < 1 || U_FAILURE(status)) {
        return {};
    }
    std::ostringstream text;
    text.precision(10);
    text << sample[0];
    return text.str();
}

bool has_branch(hole const & each, std::string const & text) {
    return std::ranges::any_of(
        each.selectors, [&](selector const & branch) { return i18n::ustring_to_utf8(branch.text) == text; });
}

/// Tells whether branches for single values ("=1") leave nothing to a category.
bool values_cover(hole const & each, std::string const & category, std::vector<std::string> const & numbers) {
    bool found = false;
    for (std::size_t number = 0; number < numbers.size(); ++number) {
        if (numbers[number] == category) {
            found = true;
            if (each.has_offset || !has_branch(each, "=" + std::to_string(number))) {
                return false;
            }
        }
    }
    return found;
}

} // namespace

std::optional<plural_rules::category_set> plural_rules::load(std::string const & locale, bool ordinal) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale const name(locale.c_str());
    std::unique_ptr<icu::PluralRules> const rules(
        icu::PluralRules::forLocale(name, ordinal ? UPLURAL_TYPE_ORDINAL : UPLURAL_TYPE_CARDINAL, status));
    if (U_FAILURE(status) || !rules || !is_known_language(name)) {
        return std::nullopt;
    }
    category_set result;
    std::unique_ptr<icu::StringEnumeration> const keywords(rules->getKeywords(status));
    while (U_SUCCESS(status) && keywords) {
        icu::UnicodeString const * const keyword = keywords->snext(status);
        if (keyword == nullptr) {
            break;
        }
        result.samples[to_utf8(*keyword)] = sample_of(*rules, *keyword);
    }
    for (std::int32_t number = 0; number < small_number_count; ++number) {
        result.small_numbers.push_back(to_utf8(rules->select(number)));
    }
    return result;
}

plural_rules::category_set const * plural_rules::find(std::string const & locale, bool ordinal) {
    auto known = known_.find({locale, ordinal});
    if (known == known_.end()) {
        known = known_.insert({{locale, ordinal}, load(locale, ordinal)}).first;
    }
    return known->second ? &*known->second : nullptr;
}

void plural_rules::check(pattern const & text, std::string const & locale, file_findings & out) {
    for (hole const & each : text.holes) {
        if (!each.has_plural_branches()) {
            continue;
        }
        if (category_set const * const expected = find(locale, each.type == "selectordinal")) {
            check_hole(each, *expected, locale, out);
        }
    }
}

void plural_rules::check_hole(hole const & each, category_set const & expected, std::string const & locale,
                              file_findings & out) {
    std::string missing;
    std::vector<std::string> words;
    for (auto const & [category, sample] : expected.samples) {
        words.push_back(category);
        if (category != "other" && !has_branch(each, category) &&
            !values_cover(each, category, expected.small_numbers)) {
            missing += (missing.empty() ? "" : " and ") + in_quotes(category) +
                       (sample.empty() ? "" : " (as for " + sample + ")");
        }
    }
    if (!missing.empty()) {
        out.add("plural-categories", {.offset = each.offset,
                                      .text = in_quotes(each.type) + " of " + in_braces(each.name) +
                                              " lacks " + missing + " of the locale " + in_quotes(locale)});
    }
    for (selector const & branch : each.selectors) {
        std::string const word = i18n::ustring_to_utf8(branch.text);
        if (word.starts_with('=') || expected.samples.contains(word)) {
            continue;
        }
        fault found{.offset = branch.offset,
                    .text = in_quotes(word) + " is no category of " + in_quotes(each.type) +
                            " in the locale " + in_quotes(locale)};
        constexpr std::array<std::string_view, 6> names{"zero", "one", "two", "few", "many", "other"};
        auto const guess = guess_spelling(word, words);
        if (guess && std::ranges::find(names, word) == names.end()) {
            found.repair = mend<std::size_t>{branch.offset + word.size(), *guess};
        }
        out.add("plural-categories", found);
    }
}

} // namespace fl::tool::lint
