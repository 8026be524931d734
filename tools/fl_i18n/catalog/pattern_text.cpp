#include "tools/fl_i18n/catalog/pattern_text.hpp"

#include "tools/fl_i18n/code_points.hpp"

#include <algorithm>
#include <boost/numeric/conversion/cast.hpp>
#include <unicode/messagepattern.h>
#include <unicode/uchar.h>

namespace fl::tool {

namespace {

class pattern_splitter {
public:
    explicit pattern_splitter(icu::MessagePattern const & pattern)
        : pattern_(pattern) {}

    std::vector<pattern_piece> split() {
        for (std::int32_t i = 0; i < pattern_.countParts(); ++i) {
            take(pattern_.getPart(i));
        }
        return std::move(pieces_);
    }

private:
    /// A hole among the messages that are open.
    static constexpr std::size_t hole = static_cast<std::size_t>(-1);

    void take(icu::MessagePattern::Part const & part) {
        auto const begin = static_cast<std::size_t>(part.getIndex());
        auto const end = static_cast<std::size_t>(part.getLimit());
        switch (part.getType()) {
        case UMSGPAT_PART_TYPE_MSG_START:
            advance(begin);
            open_.push_back(messages_++);
            add(pattern_piece::kind::syntax, end);
            break;
        case UMSGPAT_PART_TYPE_MSG_LIMIT:
            advance(begin);
            pieces_.push_back({pattern_piece::kind::end, at_, at_, open_.back()});
            open_.pop_back();
            if (!open_.empty()) {
                add(pattern_piece::kind::syntax, end);
            }
            break;
        case UMSGPAT_PART_TYPE_ARG_START:
            advance(begin);
            open_.push_back(hole);
            break;
        case UMSGPAT_PART_TYPE_ARG_LIMIT:
            advance(end);
            open_.pop_back();
            break;
        default:
            if (open_.back() != hole) {
                advance(begin);
                add(pattern_piece::kind::syntax, end);
            }
        }
    }

    /// Takes what lies before a part.
    void advance(std::size_t end) {
        bool const in_text = !open_.empty() && open_.back() != hole;
        add(in_text ? pattern_piece::kind::text : pattern_piece::kind::syntax, end);
    }

    void add(pattern_piece::kind what, std::size_t end) {
        if (end > at_) {
            auto const message =
                std::find_if(open_.rbegin(), open_.rend(), [](std::size_t each) { return each != hole; });
            pieces_.push_back({what, at_, end, message != open_.rend() ? *message : 0});
            at_ = end;
        }
    }

    icu::MessagePattern const & pattern_;
    std::vector<pattern_piece> pieces_;
    std::vector<std::size_t> open_;
    std::size_t messages_ = 0;
    std::size_t at_ = 0;
};

bool has_letter(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (u_isalpha(static_cast<UChar32>(code_point_at(text, i)))) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<std::vector<pattern_piece>> split_pattern(i18n::ustring const & message) {
    UErrorCode status = U_ZERO_ERROR;
    icu::MessagePattern pattern(UMSGPAT_APOS_DOUBLE_OPTIONAL, status);
    icu::UnicodeString const text(false, message.data(), boost::numeric_cast<std::int32_t>(message.size()));
    pattern.parse(text, nullptr, status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    return pattern_splitter(pattern).split();
}

bool has_words(i18n::ustring const & message) {
    auto const pieces = split_pattern(message);
    if (!pieces) {
        return has_letter(message);
    }
    return std::any_of(pieces->begin(), pieces->end(), [&](pattern_piece const & piece) {
        return piece.what == pattern_piece::kind::text &&
               has_letter(std::u16string_view(message).substr(piece.begin, piece.end - piece.begin));
    });
}

} // namespace fl::tool
