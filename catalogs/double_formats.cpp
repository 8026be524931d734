#include "catalogs/double_formats.hpp"

#include "catalogs/icu_check.hpp"
#include "foundation/process_singleton.hpp"

#include <memory>
#include <optional>
#include <unicode/numberformatter.h>
#include <unordered_map>

namespace fl::i18n {

namespace {

using icu::number::LocalizedNumberFormatter;
using icu::number::Notation;
using icu::number::Precision;

icu::UnicodeString write(double value, LocalizedNumberFormatter const & formatter) {
    UErrorCode status = U_ZERO_ERROR;
    auto text = formatter.formatDouble(value, status).toString(status);
    check_format(status, text);
    return text;
}

/// A way to write doubles; with an alternative the shorter text is taken, and of equal ones the
/// alternative's.
struct double_format {
    LocalizedNumberFormatter formatter;
    std::optional<LocalizedNumberFormatter> alternative;

    icu::UnicodeString operator()(double value) const {
        auto text = write(value, formatter);
        if (alternative) {
            auto other = write(value, *alternative);
            if (other.length() <= text.length()) {
                return other;
            }
        }
        return text;
    }
};

LocalizedNumberFormatter make(Notation const & notation, Precision const & precision) {
    return icu::number::NumberFormatter::with().notation(notation).precision(precision).locale(
        pattern_locale());
}

double_format shortest(int fraction_digits, int significant_digits) {
    // The relaxed priority keeps the digits that either limit allows: 1e-300 must not become 0.
    auto const precision = Precision::maxFraction(fraction_digits)
                               .withSignificantDigits(1, significant_digits, UNUM_ROUNDING_PRIORITY_RELAXED);
    return {make(Notation::simple(), precision), make(Notation::scientific(), precision)};
}

class format_table {
public:
    format_table()
        : formats_{
              {numeric_format::simple_short, {make(Notation::simple(), Precision::fixedFraction(4)), {}}},
              {numeric_format::simple_long, {make(Notation::simple(), Precision::fixedFraction(15)), {}}},
              {numeric_format::scientific_short,
               {make(Notation::scientific(), Precision::fixedFraction(4)), {}}},
              {numeric_format::scientific_long,
               {make(Notation::scientific(), Precision::fixedFraction(15)), {}}},
              {numeric_format::shortest_short, shortest(4, 5)},
              {numeric_format::shortest_long, shortest(15, 15)},
              {numeric_format::engineering_short,
               {make(Notation::engineering(), Precision::fixedFraction(4)), {}}},
              {numeric_format::engineering_long,
               {make(Notation::engineering(), Precision::fixedSignificantDigits(15)), {}}},
          } {}

    double_format const & operator[](numeric_format format) const {
        auto const position = formats_.find(format);
        return position == formats_.end() ? formats_.at(numeric_format::simple_short) : position->second;
    }

private:
    std::unordered_map<numeric_format, double_format> formats_;
};

constinit process_singleton<format_table> process_formats;

} // namespace

icu::UnicodeString write_double(double value, numeric_format format) {
    return process_formats.get()[format](value);
}

} // namespace fl::i18n
