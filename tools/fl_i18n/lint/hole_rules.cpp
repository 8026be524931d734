#include "tools/fl_i18n/lint/text_rules.hpp"

#include <algorithm>
#include <string_view>

namespace fl::tool::lint {

namespace {

enum class kind { any, number, date, text };

/// Returns the kind of values that a hole of a type takes.
kind kind_of(std::string_view type) {
    if (type.empty()) {
        return kind::any;
    }
    if (type == "date" || type == "time") {
        return kind::date;
    }
    return type == "select" ? kind::text : kind::number;
}

bool chooses(std::string_view type) {
    return type == "plural" || type == "selectordinal" || type == "select" || type == "choice";
}

/// Tells whether a type fits one of the base language. A language may choose by a value where another does
/// not, but a value is shown in one way.
bool fits(std::string_view type, std::set<std::string> const & base) {
    return std::ranges::any_of(base, [&](std::string_view each) {
        if (chooses(type) || chooses(each)) {
            return kind_of(type) == kind_of(each) || (type.empty() && chooses(each));
        }
        return type == each;
    });
}

std::string name_of(std::string_view type) {
    return type.empty() ? "no type" : "the type " + in_quotes(type);
}

} // namespace

void check_holes(pattern const & text, std::size_t offset, hole_types const & base, file_findings & out) {
    hole_types found = types_of(text);
    std::set<std::pair<i18n::ustring, std::string>> reported;
    for (hole const & each : text.holes) {
        auto const expected = base.find(each.name);
        bool const extra = expected == base.end();
        if ((!extra && fits(each.type, expected->second)) ||
            !reported.insert({each.name, extra ? std::string() : each.type}).second) {
            continue;
        }
        if (extra) {
            out.add("hole-extra",
                    {.offset = each.offset, .text = "the base language has no hole " + in_braces(each.name)});
        } else {
            out.add("hole-type", {.offset = each.offset,
                                  .text = "the hole " + in_braces(each.name) + " has " + name_of(each.type) +
                                          ", in the base language " + name_of(*expected->second.begin())});
        }
    }
    for (quotation const & shield : text.quotations) {
        for (i18n::ustring const & name : hidden_holes(shield)) {
            found[name];
        }
    }
    for (auto const & [name, types] : base) {
        if (!found.contains(name)) {
            out.add("hole-missing",
                    {.offset = offset,
                     .text = "the hole " + in_braces(name) + " of the base language is missing"});
        }
    }
}

} // namespace fl::tool::lint
