#pragma once

#include "conversion/output_buffer.hpp"
#include "foundation/kept_encoding.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <unicode/ucnv.h>

namespace fl::i18n {

/// How a conversion is cut up. The conversion library counts in 32 bits; tests use small numbers.
struct driver_limits {
    output_limits output;
    /// The most source units that one call of the conversion library gets.
    std::size_t source_chunk = 0x3fffffff;
    /// The room for destination units in one call, as a number of largest characters.
    std::size_t destination_piece = 32768;
};

/// The narrow to UTF-16 direction of the conversion library.
struct to_unicode_direction {
    using from = char;
    using to = char16_t;
    /// The most units that tables make of one.
    static constexpr std::size_t most_units = 1;
    static conversion_progress by_tables(kept_encoding const & encoding, to * destination,
                                         std::basic_string_view<from> source) {
        return encoding.decode(destination, source);
    }
    static void step(UConverter * converter, to ** next, to const * end, from const ** source,
                     from const * source_end, bool flush, UErrorCode * status) {
        ucnv_toUnicode(converter, next, end, source, source_end, nullptr, flush, status);
    }
};

/// The UTF-16 to narrow direction of the conversion library.
struct from_unicode_direction {
    using from = char16_t;
    using to = char;
    static constexpr std::size_t most_units = 3;
    static conversion_progress by_tables(kept_encoding const & encoding, to * destination,
                                         std::basic_string_view<from> source) {
        return encoding.encode(destination, source);
    }
    static void step(UConverter * converter, to ** next, to const * end, from const ** source,
                     from const * source_end, bool flush, UErrorCode * status) {
        ucnv_fromUnicode(converter, next, end, source, source_end, nullptr, flush, status);
    }
};

/// Converts a whole source in one pass and returns the length of the full result.
///
/// Writes up to `capacity` units and counts the others; a null `destination` with capacity 0 only counts. The
/// converter is used with the call-backs that it carries and is reset afterwards, also when this throws
/// `CvtInvalidCharacter` or `CvtConversionFailure`. A null converter is a `CvtConversionFailure`.
template <class Direction>
std::size_t run_pass(UConverter * converter, typename Direction::to * destination, std::size_t capacity,
                     typename Direction::from const * source, std::size_t source_length,
                     driver_limits const & limits = {});

/// Converts a whole source into a new string; as `run_pass` otherwise.
template <class Direction>
std::basic_string<typename Direction::to>
run_driver(UConverter * converter, typename Direction::from const * source, std::size_t source_length,
           driver_limits const & limits = {}) {
    return collect_output<typename Direction::to>(
        source_length, limits.output, [&](typename Direction::to * destination, std::size_t capacity) {
            return run_pass<Direction>(converter, destination, capacity, source, source_length, limits);
        });
}

} // namespace fl::i18n
