#include "catalogs/pattern_nesting.hpp"

#include "foundation/ascii.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace fl::i18n {

namespace {

class nesting_reader {
public:
    explicit nesting_reader(std::u16string_view pattern)
        : pattern_(pattern) {}

    bool stays_within(std::size_t deepest) {
        for (; at_ < pattern_.size() && depth_ <= deepest; ++at_) {
            if (place_ == place::plural_hole || place_ == place::select_hole) {
                read_between_branches();
            } else {
                read_text();
            }
        }
        return depth_ <= deepest;
    }

private:
    enum class place : std::uint8_t { text, plural_hole, plural_branch, select_hole, select_branch, choice };

    char16_t unit() const { return pattern_[at_]; }
    char16_t next() const { return at_ + 1 < pattern_.size() ? pattern_[at_ + 1] : u'\0'; }
    bool at_special() const {
        return next() == u'{' || next() == u'}' || (place_ == place::plural_branch && next() == u'#') ||
               (place_ == place::choice && next() == u'|');
    }

    void enter(place inner) {
        outer_.push_back(place_);
        place_ = inner;
    }
    void leave() {
        place_ = outer_.back();
        outer_.pop_back();
    }

    // Each of these leaves the position at the last unit that it has read.

    void read_between_branches() {
        if (unit() == u'{') {
            enter(place_ == place::plural_hole ? place::plural_branch : place::select_branch);
            ++depth_;
        } else if (unit() == u'}') {
            leave();
        }
    }

    void read_text() {
        if (unit() == u'\'') {
            read_apostrophe();
        } else if (unit() == u'{') {
            read_hole();
        } else if (unit() == u'}' && place_ != place::text) {
            leave();
            --depth_;
        }
    }

    void read_apostrophe() {
        if (next() == u'\'') {
            ++at_;
        } else if (at_special()) {
            do {
                at_ = find(u"'", at_ + 1);
            } while (next() == u'\'' && ++at_ < pattern_.size());
        }
    }

    void read_hole() {
        at_ = find(u",}", at_ + 1);
        if (at_ == pattern_.size() || unit() == u'}') {
            return;
        }
        std::size_t const begin = at_ + 1;
        at_ = find(u",}", begin);
        if (at_ == pattern_.size() || unit() == u'}') {
            return;
        }
        std::string const type = read_type(pattern_.substr(begin, at_ - begin));
        if (type == "plural" || type == "selectordinal") {
            enter(place::plural_hole);
        } else if (type == "select") {
            enter(place::select_hole);
        } else if (type == "choice") {
            enter(place::choice);
            ++depth_;
        } else {
            read_style();
        }
    }

    /// Returns the letters, which white space surrounds.
    static std::string read_type(std::u16string_view text) {
        constexpr std::size_t more_than_any_type = 16;
        std::string letters;
        for (std::size_t i = 0; i < text.size() && letters.size() < more_than_any_type; ++i) {
            if (ascii::is_letter(text[i])) {
                letters += static_cast<char>(text[i] | u' ');
            }
        }
        return letters;
    }

    void read_style() {
        std::size_t open = 0;
        while ((at_ = find(u"'{}", at_ + 1)) < pattern_.size()) {
            if (unit() == u'\'') {
                at_ = find(u"'", at_ + 1);
            } else if (unit() == u'{') {
                ++open;
            } else if (open-- == 0) {
                return;
            }
        }
    }

    /// Returns the place of one of the units, or the end.
    std::size_t find(std::u16string_view units, std::size_t from) const {
        std::size_t const found = pattern_.find_first_of(units, from);
        return found == pattern_.npos ? pattern_.size() : found;
    }

    std::u16string_view pattern_;
    std::size_t at_ = 0;
    std::size_t depth_ = 0;
    place place_ = place::text;
    std::vector<place> outer_;
};

} // namespace

bool nests_within(std::size_t deepest, std::u16string_view pattern) {
    return nesting_reader(pattern).stays_within(deepest);
}

} // namespace fl::i18n
