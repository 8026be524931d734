#include "catalogs/decimal_number.hpp"

#include <charconv>
#include <cmath>

namespace fl::i18n {

decimal_number::decimal_number(double value) {
    if (value == 0) {
        return;
    }
    std::array<char, 32> text; // "d.ddde+dd"
    char const * const end =
        std::to_chars(text.data(), text.data() + text.size(), std::abs(value), std::chars_format::scientific)
            .ptr;
    char const * at = text.data();
    for (; *at != 'e'; ++at) {
        if (*at != '.') {
            digits_[static_cast<std::size_t>(count_++)] = *at;
        }
    }
    bool const below_one = *++at == '-';
    std::from_chars(at + 1, end, magnitude_);
    if (below_one) {
        magnitude_ = -magnitude_;
    }
}

void decimal_number::round(int power) {
    int const kept = magnitude_ - power + 1;
    if (kept >= count_) {
        return;
    }
    bool const up = rounds_up(kept);
    count_ = kept > 0 ? kept : 0;
    // A nine that is counted up becomes a zero, which no digit follows.
    while (up && count_ > 0 && digits_[static_cast<std::size_t>(count_ - 1)] == '9') {
        --count_;
    }
    if (up && count_ > 0) {
        ++digits_[static_cast<std::size_t>(count_ - 1)];
    } else if (up) {
        digits_[0] = '1';
        count_ = 1;
        ++magnitude_;
    }
    drop_zeros();
}

bool decimal_number::rounds_up(int kept) const {
    if (kept < 0 || digit(kept) != u'5') {
        return kept >= 0 && digit(kept) > u'5';
    }
    bool const is_middle = kept + 1 == count_;
    return !is_middle || (digit(kept - 1) - u'0') % 2 == 1;
}

void decimal_number::drop_zeros() {
    while (count_ > 0 && digits_[static_cast<std::size_t>(count_ - 1)] == '0') {
        --count_;
    }
    if (count_ == 0) {
        magnitude_ = 0;
    }
}

} // namespace fl::i18n
