#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

namespace fl::i18n {

/// Copies the units of a text that fit, one to one, and returns their number.
template <class To, class From>
std::size_t copy_units(To * destination, std::size_t destination_length, From const * source,
                       std::size_t source_length) {
    std::size_t const length = std::min(destination_length, source_length);
    if constexpr (sizeof(To) == sizeof(From)) {
        std::memmove(destination, source, length * sizeof(To));
    } else {
        std::transform(source, source + length, destination, [](From unit) { return static_cast<To>(unit); });
    }
    return length;
}

/// Returns a copy of a text, unit for unit.
template <class To, class From>
std::basic_string<To> copy_text(From const * source, std::size_t length) {
    std::basic_string<To> result(length, To());
    copy_units(result.data(), length, source, length);
    return result;
}

} // namespace fl::i18n
