#include "catalogs/decimal_number.hpp"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace fl::i18n {

namespace {

constexpr std::array<double, 23> powers_of_ten{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                               1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                               1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Returns a value times a power of ten, with the error that comes from steps of at most 22.
double scaled(double value, int power) {
    for (; power >= 22; power -= 22) {
        value *= powers_of_ten[22];
    }
    for (; power <= -22; power += 22) {
        value /= powers_of_ten[22];
    }
    double const last = powers_of_ten[static_cast<std::size_t>(std::abs(power))];
    return power < 0 ? value / last : value * last;
}

} // namespace

decimal_number::decimal_number(double value)
    : value_(std::abs(value)) {
    if (!take_few_digits()) {
        take_all_digits();
    }
}

/// Takes a number of at most six digits after the point and 15 in all: different ones of 15 are different
/// doubles, so that it is the shortest.
bool decimal_number::take_few_digits() {
    constexpr int fraction_digits = 6;
    constexpr double scale = 1e6;
    if (!(value_ < 1e9)) {
        return false;
    }
    auto const scaled = static_cast<std::int64_t>(value_ * scale + 0.5);
    if (static_cast<double>(scaled) / scale != value_) {
        return false;
    }
    char const * const end = std::to_chars(digits_.data(), digits_.data() + digits_.size(), scaled).ptr;
    count_ = static_cast<int>(end - digits_.data());
    magnitude_ = count_ - 1 - fraction_digits;
    drop_zeros();
    return true;
}

void decimal_number::take_all_digits() {
    std::array<char, 32> text; // "d.ddde+dd"
    char const * const end =
        std::to_chars(text.data(), text.data() + text.size(), value_, std::chars_format::scientific).ptr;
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

// The estimate is the magnitude of the value as an integer of about 53 bits, which is rounded.
int decimal_number::estimated_magnitude() const {
    constexpr int precision = std::numeric_limits<double>::digits - 1;
    constexpr double bits_of_a_digit = 3.32192809488736234787;
    if (value_ < std::numeric_limits<double>::min() || (value_ < 0x1p53 && value_ == std::floor(value_))) {
        return magnitude_;
    }
    int const power = static_cast<int>((precision - std::ilogb(value_)) / bits_of_a_digit);
    auto integer = static_cast<std::int64_t>(std::floor(scaled(value_, power) + 0.5));
    int magnitude = -power;
    for (; integer >= 10; integer /= 10) {
        ++magnitude;
    }
    return magnitude;
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
