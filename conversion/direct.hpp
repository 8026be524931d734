#pragma once

#include "conversion/conversion_error.hpp"

#include <algorithm>
#include <boost/throw_exception.hpp>
#include <cstddef>
#include <cstdint>
#include <fl/i18n/converter.hpp>

namespace fl::i18n {

/// Converts a whole source by one call of a string function of the conversion library; returns the full
/// length.
///
/// `transform(destination, capacity, &needed, source, length, &status)` counts in 32 bits; a source longer
/// than `source_limit`, or a result that cannot be counted, throws `CvtSizeTooLarge`. It adds a terminator
/// where `capacity` leaves room for one.
template <class To, class From, class Transform>
std::size_t run_direct(Transform transform, To * destination, std::size_t capacity, From const * source,
                       std::size_t source_length, std::size_t source_limit) {
    if (source_length > source_limit) {
        boost::throw_exception(CvtSizeTooLarge());
    }
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t needed = 0;
    auto const room = static_cast<std::int32_t>(std::min<std::size_t>(capacity, INT32_MAX));
    transform(destination, room, &needed, source, static_cast<std::int32_t>(source_length), &status);
    if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) {
        throw_conversion_error(status);
    }
    if (needed < 0) {
        boost::throw_exception(CvtSizeTooLarge());
    }
    return static_cast<std::size_t>(needed);
}

} // namespace fl::i18n
