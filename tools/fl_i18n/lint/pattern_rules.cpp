#include "tools/fl_i18n/lint/pattern_syntax.hpp"
#include "tools/fl_i18n/lint/text_rules.hpp"

#include <algorithm>
#include <fl/i18n/ustring.hpp>
#include <utility>

namespace fl::tool::lint {

namespace {

constexpr std::u16string_view blanks = u" \t\n";

void check_quotation(quotation const & shield, file_findings & out) {
    auto const hidden = hidden_holes(shield);
    if (shield.closed && hidden.empty()) {
        return;
    }
    std::string const what = shield.closed ? in_quotes(in_braces(hidden.front())) : "all the rest";
    out.add("quoted-hole", {.offset = shield.offset,
                            .text = "the apostrophe makes " + what + " plain text",
                            .repair = mend<std::size_t>{shield.end_offset, "''"}});
}

void check_branches(hole const & each, file_findings & out) {
    std::map<i18n::ustring, std::size_t> seen;
    for (selector const & branch : each.selectors) {
        auto const [first, is_new] = seen.try_emplace(branch.text, branch.offset);
        if (!is_new) {
            out.add("repeated-branch",
                    {.offset = branch.offset,
                     .text = "the branch " + in_quotes(i18n::ustring_to_utf8(branch.text)) +
                             " is there already: this one is never chosen",
                     .first = first->second});
        }
    }
}

} // namespace

hole_types types_of(pattern const & text) {
    hole_types types;
    for (hole const & each : text.holes) {
        types[each.name].insert(each.type);
    }
    return types;
}

bool has_brace(i18n::ustring const & text) {
    return text.find_first_of(u"{}") != i18n::ustring::npos;
}

std::string in_braces(i18n::ustring const & name) {
    return "{" + i18n::ustring_to_utf8(name) + "}";
}

std::vector<i18n::ustring> hidden_holes(quotation const & shield) {
    std::u16string_view const content = shield.content;
    std::vector<i18n::ustring> names;
    for (std::size_t brace = content.find(u'{'); brace != content.npos;
         brace = content.find(u'{', brace + 1)) {
        std::size_t const begin = content.find_first_not_of(blanks, brace + 1);
        std::size_t const end = content.find_first_of(u"{},; \t\n", std::min(begin, content.size()));
        std::size_t const mark = content.find_first_not_of(blanks, std::min(end, content.size()));
        if (mark != content.npos && begin != end && (content[mark] == u'}' || content[mark] == u',')) {
            names.emplace_back(content.substr(begin, end - begin));
        }
    }
    return names;
}

void check_pattern(pattern const & text, file_findings & out) {
    if (text.fault) {
        out.add("bad-pattern", {.offset = text.fault->offset, .text = text.fault->text});
    }
    for (std::size_t const offset : text.stray_braces) {
        out.add("stray-brace", {.offset = offset, .text = "this brace closes nothing and is shown"});
    }
    for (quotation const & shield : text.quotations) {
        check_quotation(shield, out);
    }
    for (hole const & each : text.holes) {
        check_branches(each, out);
    }
}

void check_numbering(pattern const & text, file_findings & out) {
    auto const is_named = [](hole const & each) { return each.number < 0; };
    auto const other = std::ranges::find_if(
        text.holes, [&](hole const & each) { return is_named(each) != is_named(text.holes.front()); });
    if (other != text.holes.end()) {
        out.add("mixed-holes", {.offset = other->offset,
                                .text = "named and numbered holes in one text: " +
                                        in_quotes(in_braces(text.holes.front().name)) + " and " +
                                        in_quotes(in_braces(other->name))});
        return;
    }
    if (!text.holes.empty() && is_named(text.holes.front()) && !begins_with_letter(text.holes.front().name)) {
        out.add("bad-name", {.offset = text.holes.front().offset,
                             .text = in_quotes(in_braces(text.holes.front().name)) +
                                     " is filled like \"{0}\": the name of a hole begins with a letter"});
        return;
    }
    std::set<int> numbers;
    for (hole const & each : text.holes) {
        numbers.insert(each.number);
    }
    int gap = 0;
    for (auto at = numbers.begin(); at != numbers.end() && *at <= gap; ++at) {
        gap = *at + 1;
    }
    auto const beyond =
        std::ranges::find_if(text.holes, [gap](hole const & each) { return each.number > gap; });
    if (beyond != text.holes.end()) {
        out.add("hole-gap", {.offset = beyond->offset,
                             .text = "there is no hole {" + std::to_string(gap) +
                                     "}: arguments go to holes by their numbers"});
    }
}

} // namespace fl::tool::lint
