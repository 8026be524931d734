#include "tools/fl_i18n/lint/catalog_rules.hpp"

#include "foundation/ascii.hpp"
#include "tools/fl_i18n/catalog/catalog_tree.hpp"
#include "tools/fl_i18n/lint/pattern_syntax.hpp"

#include <algorithm>

namespace fl::tool::lint {

namespace {

/// Tells whether a text is empty because of a fault that is reported.
bool has_bad_escape(catalog_case const & subject, catalog_entry const & entry) {
    return std::ranges::any_of(subject.faults, [&](catalog_fault const & each) {
        return each.rule == "bad-escape" && each.offset > entry.offset &&
               each.offset < entry.text.places.back();
    });
}

bool holds_letters(placed_text const & text) {
    return has_brace(text.units) ? read_pattern(text).has_letter : has_letter(text.units);
}

bool is_left_over(catalog_case const & subject, catalog_entry const & entry, base_entry const & base) {
    return entry.text.units == base.text && is_translatable(entry) && base.translatable &&
           !ascii::equal_ignoring_case(language_of(subject.locale), language_of(subject.base->locale())) &&
           holds_letters(entry.text);
}

} // namespace

void text_rules::check(catalog_case const & subject, file_findings & out) {
    for (catalog_entry const & entry : subject.contents.entries) {
        check_entry(subject, entry, out);
    }
}

void text_rules::check_entry(catalog_case const & subject, catalog_entry const & entry, file_findings & out) {
    base_entry const * const base = subject.base != nullptr ? subject.base->find(entry.key) : nullptr;
    std::size_t const offset = entry.text.places.front();
    if (entry.text.units.empty()) {
        if (base != nullptr && !base->text.empty() && !has_bad_escape(subject, entry)) {
            out.add("empty-text",
                    {.offset = offset, .text = "the text is empty, in the base language it is not"});
        }
        return;
    }
    if (base != nullptr && is_left_over(subject, entry, *base)) {
        out.add("same-as-base", {.offset = offset, .text = "the text is that of the base language"});
    }
    if (has_brace(entry.text.units)) {
        check_text_pattern(subject, entry.text, base, out);
    } else if (base != nullptr && base->holes && !base->holes->empty()) {
        check_holes({}, offset, *base->holes, out);
    }
}

void text_rules::check_text_pattern(catalog_case const & subject, placed_text const & text,
                                    base_entry const * base, file_findings & out) {
    pattern const found = read_pattern(text);
    check_pattern(found, out);
    if (found.fault) {
        return;
    }
    formats_.check(found, out);
    if (!subject.locale.empty()) {
        plurals_.check(found, subject.locale, out);
    }
    if (base != nullptr && base->holes) {
        check_holes(found, text.places.front(), *base->holes, out);
    } else {
        check_numbering(found, out);
    }
}

} // namespace fl::tool::lint
