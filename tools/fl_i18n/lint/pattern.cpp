#include "tools/fl_i18n/lint/pattern.hpp"

#include "foundation/ascii.hpp"
#include "tools/fl_i18n/lint/pattern_syntax.hpp"

#include <algorithm>
#include <fl/i18n/limits.hpp>
#include <string_view>
#include <utility>

namespace fl::tool::lint {

namespace {

constexpr int greatest_number = 0x7FFF;
constexpr std::size_t longest_part = 0xFFFF;
constexpr int deepest_nesting = i18n::limits::deepest_nesting;

enum class context { top, plural, select, choice };

/// Reads a pattern by recursive descent; a `pattern_fault` is thrown where it ends.
class pattern_reader {
public:
    explicit pattern_reader(placed_text const & text)
        : units_(text.units)
        , places_(text.places) {}

    pattern run() {
        try {
            read_message(context::top, 0, 0);
        } catch (pattern_fault & fault) {
            result_.fault = std::move(fault);
        }
        return std::move(result_);
    }

private:
    [[noreturn]] void fail(std::size_t index, std::string text) const {
        throw pattern_fault{places_[index], std::move(text)};
    }
    [[noreturn]] void fail_unclosed(std::size_t brace) const { fail(brace, "this brace is never closed"); }

    bool at_end() const { return at_ == units_.size(); }
    bool at(char16_t unit) const { return !at_end() && units_[at_] == unit; }

    template <class Predicate>
    std::u16string_view take_while(Predicate predicate) {
        std::size_t const begin = at_;
        while (!at_end() && predicate(units_[at_])) {
            ++at_;
        }
        return units_.substr(begin, at_ - begin);
    }
    void skip_space() { take_while(is_space); }

    void limit_length(std::size_t begin, std::string const & what) const {
        if (at_ - begin > longest_part) {
            fail(begin, what + " is longer than " + std::to_string(longest_part) + " units");
        }
    }

    /// Reads a message up to its end, or in a hole up to what ends the branch. `brace` opened the hole or the
    /// branch.
    void read_message(context where, std::size_t brace, int depth) {
        if (depth > deepest_nesting) {
            fail(brace, "holes are nested more than " + std::to_string(deepest_nesting) + " deep");
        }
        while (!at_end()) {
            if (at(u'\'')) {
                read_apostrophe(where);
            } else if (at(u'{')) {
                read_hole(depth);
            } else if (where != context::top && (at(u'}') || (where == context::choice && at(u'|')))) {
                return;
            } else {
                read_plain_text(where);
            }
        }
        if (where != context::top) {
            fail_unclosed(brace);
        }
    }

    void read_plain_text(context where) {
        if (at(u'}')) {
            result_.stray_braces.push_back(places_[at_++]);
            return;
        }
        auto const text = take_while([where](char16_t unit) {
            return unit != u'\'' && unit != u'{' && unit != u'}' &&
                   (where != context::choice || unit != u'|');
        });
        result_.has_letter = result_.has_letter || has_letter(text);
    }

    void read_apostrophe(context where) {
        std::size_t const begin = at_++;
        if (at(u'\'')) {
            ++at_;
            return;
        }
        if (!at(u'{') && !at(u'}') && !(where == context::plural && at(u'#')) &&
            !(where == context::choice && at(u'|'))) {
            return;
        }
        quotation result{places_[begin], places_[at_], {}, false};
        for (; !at_end() && !result.closed; ++at_) {
            if (at(u'\'') && (at_ + 1 == units_.size() || units_[at_ + 1] != u'\'')) {
                result.closed = true;
            } else {
                if (at(u'\'')) {
                    ++at_;
                }
                result.content += units_[at_];
            }
        }
        result_.has_letter = result_.has_letter || has_letter(result.content);
        result_.quotations.push_back(std::move(result));
    }

    void read_hole(int depth) {
        std::size_t const brace = at_++;
        skip_space();
        std::size_t const index = result_.holes.size();
        result_.holes.push_back(read_name(brace));
        skip_space();
        if (at_end()) {
            fail_unclosed(brace);
        }
        if (at(u',')) {
            ++at_;
            read_type(result_.holes[index], brace);
            if (at(u',')) {
                ++at_;
                read_style(index, brace, depth);
            }
        }
        if (!at(u'}')) {
            fail(at_, "\",\" or \"}\" must follow here");
        }
        ++at_;
    }

    hole read_name(std::size_t brace) {
        std::size_t const begin = at_;
        hole result;
        result.offset = places_[brace];
        result.name = take_while([](char16_t unit) { return !ends_name(unit); });
        if (at_end()) {
            fail_unclosed(brace);
        }
        if (result.name.empty()) {
            fail(begin, "a hole without number or name; a brace that is to be shown is written \"'{'\"");
        }
        limit_length(begin, "the name");
        if (std::all_of(result.name.begin(), result.name.end(), ascii::is_digit<char16_t>)) {
            result.number = to_number(result.name, begin);
        }
        return result;
    }

    int to_number(std::u16string_view digits, std::size_t index) const {
        if (digits.size() > 1 && digits.front() == u'0') {
            fail(index, "the number of a hole has no leading zero");
        }
        int number = 0;
        for (char16_t const digit : digits) {
            number = 10 * number + (digit - u'0');
            if (number > greatest_number) {
                fail(index, "the number of a hole is " + std::to_string(greatest_number) + " at most");
            }
        }
        return number;
    }

    void read_type(hole & result, std::size_t brace) {
        skip_space();
        std::size_t const begin = at_;
        std::u16string_view const type = take_while([](char16_t unit) { return ascii::is_letter(unit); });
        result.type_offset = places_[begin];
        result.type = ascii::to_lower(std::string_view(ascii::narrow(type)));
        skip_space();
        if (at_end()) {
            fail_unclosed(brace);
        }
        if (type.empty()) {
            fail(begin, "the type of the hole is missing: a word such as \"number\"");
        }
        limit_length(begin, "the type");
        if (at(u'}') && result.has_branches()) {
            fail(at_, "\"" + result.type + "\" needs branches");
        }
    }

    void read_style(std::size_t index, std::size_t brace, int depth) {
        std::string const type = result_.holes[index].type;
        if (type == "choice") {
            read_choice(brace, depth);
        } else if (result_.holes[index].has_branches()) {
            read_branches(index, brace, depth);
        } else {
            std::size_t const comma_end = at_;
            skip_space();
            std::size_t const begin = at_;
            read_simple_style(brace);
            result_.holes[index].style_offset = places_[begin];
            result_.holes[index].style = units_.substr(begin, at_ - begin);
            limit_length(comma_end, "the style");
        }
    }

    void read_simple_style(std::size_t brace) {
        std::size_t open = 0;
        for (; !at_end(); ++at_) {
            if (at(u'\'')) {
                std::size_t const closing = units_.find(u'\'', at_ + 1);
                if (closing == std::u16string_view::npos) {
                    fail(at_, "this apostrophe begins a quotation in the style that never ends");
                }
                at_ = closing;
            } else if (at(u'{')) {
                ++open;
            } else if (at(u'}')) {
                if (open == 0) {
                    return;
                }
                --open;
            }
        }
        fail_unclosed(brace);
    }

    void read_number(std::string const & what, bool infinity_allowed) {
        std::size_t const begin = at_;
        std::u16string_view const number = take_while(may_be_in_number);
        limit_length(begin, what);
        if (!is_number(number, infinity_allowed)) {
            fail(begin, what + " is no number");
        }
    }

    void read_choice(std::size_t brace, int depth) {
        skip_space();
        if (at(u'}')) {
            fail(at_, "\"choice\" needs branches");
        }
        for (;; ++at_) {
            skip_space();
            if (at_end()) {
                fail_unclosed(brace);
            }
            read_number("the limit of a branch", true);
            skip_space();
            if (!at(u'#') && !at(u'<') && !at(u'\u2264')) {
                fail(at_, "\"#\" or \"<\" must follow the limit of a branch");
            }
            ++at_;
            read_message(context::choice, brace, depth + 1);
            if (at(u'}')) {
                return;
            }
        }
    }

    void read_branches(std::size_t index, std::size_t brace, int depth) {
        bool const plural = result_.holes[index].has_plural_branches();
        bool has_other = false;
        bool first = true;
        for (skip_space(); !at(u'}'); skip_space(), first = false) {
            if (at_end()) {
                fail_unclosed(brace);
            }
            selector const branch = read_selector(plural, index);
            if (plural && branch.text == u"offset" && at(u':')) {
                read_offset(first);
                result_.holes[index].has_offset = true;
                continue;
            }
            has_other = has_other || branch.text == u"other";
            result_.holes[index].selectors.push_back(branch);
            skip_space();
            if (!at(u'{')) {
                fail(at_, "\"{\" must follow the name of a branch");
            }
            std::size_t const branch_brace = at_++;
            read_message(plural ? context::plural : context::select, branch_brace, depth + 1);
            ++at_;
        }
        if (!has_other) {
            fail(brace, "the branch \"other\" is missing");
        }
    }

    selector read_selector(bool plural, std::size_t index) {
        std::size_t const begin = at_;
        if (plural && at(u'=')) {
            ++at_;
            read_number("the value of a branch", false);
        } else if (take_while([](char16_t unit) { return !ends_name(unit); }).empty()) {
            fail(begin, "the name of a branch of \"" + result_.holes[index].type + "\" must stand here");
        }
        limit_length(begin, "the name of a branch");
        return {places_[begin], i18n::ustring(units_.substr(begin, at_ - begin))};
    }

    void read_offset(bool first) {
        if (!first) {
            fail(at_, "\"offset:\" must stand before the branches");
        }
        ++at_;
        skip_space();
        read_number("the value of \"offset:\"", false);
    }

    std::u16string_view units_;
    std::vector<std::uint32_t> const & places_;
    std::size_t at_ = 0;
    pattern result_;
};

} // namespace

bool hole::has_branches() const {
    return has_plural_branches() || type == "select" || type == "choice";
}

bool hole::has_plural_branches() const {
    return type == "plural" || type == "selectordinal";
}

pattern read_pattern(placed_text const & text) {
    placed_text const quoted = quote_apostrophes(text);
    return pattern_reader(quoted).run();
}

} // namespace fl::tool::lint
