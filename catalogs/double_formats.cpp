#include "catalogs/double_formats.hpp"

#include "catalogs/decimal_number.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <fl/i18n/catalog_config.hpp>
#include <limits>
#include <string_view>

namespace fl::i18n {

namespace {

/// How a number is rounded and laid out.
struct layout {
    int exponent_step;          ///< 0 for no exponent; otherwise exponents are multiples of it
    int fraction_digits;        ///< rounded to so many digits after the point,
    int significant_digits;     ///< or to so many digits, if not 0 and if that keeps more of them
    int min_fraction_digits;    ///< zeros fill up to so many digits after the point,
    int min_significant_digits; ///< and to so many digits
};

constexpr layout fixed(int exponent_step, int fraction_digits) {
    return {exponent_step, fraction_digits, 0, fraction_digits, 0};
}

constexpr layout at_most(int exponent_step, int digits, int significant_digits = 0) {
    return {exponent_step, digits, significant_digits, 0, 0};
}

char16_t * write(std::u16string_view text, char16_t * out) {
    return std::copy(text.begin(), text.end(), out);
}

int exponent_of(int magnitude, int step) {
    return step == 0 ? 0 : magnitude - (magnitude % step + step) % step;
}

/// Writes digits with a point before that of the power -1 of ten.
char16_t * write_digits(decimal_number const & number, int magnitude, int fraction_digits, char16_t * out) {
    for (int power = std::max(magnitude, 0); power >= -fraction_digits; --power) {
        if (power == -1) {
            *out++ = u'.';
        }
        *out++ = number.digit(magnitude - power);
    }
    return out;
}

/// Returns the power of ten to whose multiples a number is rounded.
int rounding_power(layout const & rule, int exponent, int magnitude) {
    int const power = exponent - rule.fraction_digits;
    return rule.significant_digits == 0 ? power : std::min(power, magnitude - rule.significant_digits + 1);
}

/// Rounds a number and returns its exponent, step by step as ICU does: where its estimate is off, the digits
/// are.
int round(decimal_number & number, layout const & rule) {
    bool const is_plain = rule.exponent_step == 0 && rule.significant_digits == 0;
    int const estimate = is_plain ? 0 : number.estimated_magnitude();
    int const exponent = exponent_of(estimate, rule.exponent_step);
    number.round(rounding_power(rule, exponent, estimate));
    if (rule.exponent_step == 0 || number.count() == 0 || number.magnitude() == estimate) {
        return exponent;
    }
    int const next = exponent_of(estimate + 1, rule.exponent_step);
    if (next != exponent) {
        number.round(rounding_power(rule, next, number.magnitude()));
    }
    return next;
}

char16_t * write_finite(decimal_number number, layout const & rule, char16_t * out) {
    int const exponent = round(number, rule);
    int const magnitude = number.magnitude() - exponent;
    int const fraction_digits = std::max({number.count() - 1 - magnitude, rule.min_fraction_digits,
                                          rule.min_significant_digits - 1 - magnitude});
    out = write_digits(number, magnitude, fraction_digits, out);
    if (rule.exponent_step != 0) {
        *out++ = u'E';
        out = write_integer(exponent, out);
    }
    return out;
}

/// Writes what is not finite, or null when the value is finite.
char16_t * write_other(double value, char16_t * out) {
    return std::isfinite(value) ? nullptr : write(std::isnan(value) ? u"NaN" : u"INF", out);
}

/// Writes the shorter of two forms; of equal ones the scientific.
char16_t * write_shorter(decimal_number const & number, int fraction_digits, int significant_digits,
                         char16_t * out) {
    std::array<char16_t, longest_double> simple;
    auto const size =
        write_finite(number, at_most(0, fraction_digits, significant_digits), simple.data()) - simple.data();
    char16_t * const end = write_finite(number, at_most(1, fraction_digits, significant_digits), out);
    return end - out <= size ? end : std::copy_n(simple.data(), size, out);
}

char16_t * write_sign(double value, char16_t * out) {
    if (std::signbit(value)) {
        *out++ = u'-';
    }
    return out;
}

/// Returns a number of decimal digits that is enough for so many bits.
std::size_t digits_for(std::size_t bits) {
    return bits * 78 / 256 + 1;
}

} // namespace

std::size_t room_for(std::int64_t value) {
    auto const bits = static_cast<std::uint64_t>(value);
    return value < 0 ? 1 + digits_for(std::bit_width(0 - bits)) : digits_for(std::bit_width(bits));
}

std::size_t room_for(double value) {
    // Besides those before the point: a sign, a point, 15 digits and another, an exponent with a sign.
    constexpr std::size_t others = 24;
    int const exponent = static_cast<int>(std::bit_cast<std::uint64_t>(value) >> 52 & 0x7FF) - 1022;
    return digits_for(static_cast<std::size_t>(std::max(exponent, 0))) + others;
}

numeric_format default_double_format() {
    auto const provider = messagecatalog::ConfigurationManagerFactory::Get().FindDoubleFormat();
    return provider ? provider->GetORBLANDoubleFormat() : numeric_format::simple_short;
}

char16_t * write_double(double value, numeric_format format, char16_t * out) {
    out = write_sign(value, out);
    if (char16_t * const end = write_other(value, out)) {
        return end;
    }
    decimal_number const number(value);
    switch (format) {
    case numeric_format::simple_long:
        return write_finite(number, fixed(0, 15), out);
    case numeric_format::scientific_short:
        return write_finite(number, fixed(1, 4), out);
    case numeric_format::scientific_long:
        return write_finite(number, fixed(1, 15), out);
    case numeric_format::shortest_short:
        return write_shorter(number, 4, 5, out);
    case numeric_format::shortest_long:
        return write_shorter(number, 15, 15, out);
    case numeric_format::engineering_short:
        return write_finite(number, fixed(3, 4), out);
    case numeric_format::engineering_long:
        return write_finite(number, {3, 0, 15, 0, 15}, out);
    default:
        return write_finite(number, fixed(0, 4), out);
    }
}

char16_t * write_number(double value, int fraction_digits, char16_t * out) {
    out = write_sign(value, out);
    if (char16_t * const end = write_other(value, out)) {
        return end;
    }
    return write_finite(decimal_number(value), at_most(0, fraction_digits), out);
}

char16_t * write_integer(std::int64_t value, char16_t * out) {
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> text; // with a digit more and a sign
    char const * const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return std::copy(static_cast<char const *>(text.data()), end, out);
}

} // namespace fl::i18n
