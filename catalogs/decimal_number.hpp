#pragma once

#include <array>
#include <cstddef>

namespace fl::i18n {

/// The shortest decimal number that reads back as a double: the digits that ICU rounds and writes, too.
class decimal_number {
public:
    /// Takes the absolute value of a finite double.
    explicit decimal_number(double value);

    /// Returns the power of ten that the first digit stands for; 0 when the number is 0.
    int magnitude() const { return magnitude_; }
    /// Returns what ICU takes for the magnitude before it rounds: it is one off for some doubles close to a
    /// power of ten.
    int estimated_magnitude() const;
    /// Returns the number of digits from the first to the last that is not 0; 0 when the number is 0.
    int count() const { return count_; }
    /// Returns a digit, counted from the first; "0" before and after those that there are.
    char16_t digit(int index) const {
        return index >= 0 && index < count_ ? static_cast<char16_t>(digits_[static_cast<std::size_t>(index)])
                                            : u'0';
    }

    /// Rounds to a multiple of a power of ten; the middle of two goes to the even one.
    void round(int power);

private:
    bool take_few_digits();
    void take_all_digits();
    bool rounds_up(int kept) const;
    void drop_zeros();

    double value_;
    std::array<char, 17> digits_; ///< only the first `count_` have values
    int count_ = 0;
    int magnitude_ = 0;
};

} // namespace fl::i18n
