#pragma once

#include "foundation/ascii.hpp"

#include <array>
#include <cstdint>
#include <string_view>
#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

namespace fl::i18n {

/// Gives the UTF-16 units of a text under full case folding, one after another.
///
/// The comparison of the conversion library is no substitute: it misplaces some texts with lone surrogates.
class folded_text {
public:
    /// Takes a text, which must outlive the object, and the options of the folding.
    folded_text(std::u16string_view text, std::uint32_t options)
        : rest_(text)
        , options_(options) {}

    /// Returns the next unit; -1 after the last.
    int next() {
        if (at_ == end_ && !fold()) {
            return -1;
        }
        return units_[at_++];
    }

private:
    bool fold() {
        if (rest_.empty()) {
            return false;
        }
        std::size_t const length =
            U16_IS_LEAD(rest_[0]) && rest_.size() > 1 && U16_IS_TRAIL(rest_[1]) ? 2 : 1;
        at_ = 0;
        end_ = fold(rest_.substr(0, length));
        rest_.remove_prefix(length);
        return true;
    }

    std::size_t fold(std::u16string_view code_point) {
        // Among ASCII characters the options matter to I only.
        if (code_point[0] < 0x80 && (code_point[0] != u'I' || options_ == U_FOLD_CASE_DEFAULT)) {
            units_[0] = ascii::to_lower(code_point[0]);
            return 1;
        }
        // No code point folds to nothing, or to more than three others, so that this cannot fail.
        UErrorCode status = U_ZERO_ERROR;
        return static_cast<std::size_t>(
            u_strFoldCase(units_.data(), static_cast<std::int32_t>(units_.size()), code_point.data(),
                          static_cast<std::int32_t>(code_point.size()), options_, &status));
    }

    std::u16string_view rest_;
    std::uint32_t options_;
    std::array<char16_t, 8> units_{};
    std::size_t at_ = 0;
    std::size_t end_ = 0;
};

} // namespace fl::i18n
