#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <unicode/ucnv.h>

namespace fl {

/// What 256 bytes that follow each other, or units, are in the other encoding.
struct encoding_page {
    /// No value but a mark: the byte is the first of two.
    static constexpr std::uint16_t lead_byte = 0xFFFE;
    /// No value but a mark: only a converter knows.
    static constexpr std::uint16_t unknown = 0xFFFF;

    /// UTF-16 units; in the other direction a byte, or two with the first in the high half.
    std::array<std::uint16_t, 256> values;
    /// Whether printable ASCII is itself.
    bool keeps_printable_ascii;
};

/// Returns what single bytes are, without the ones that a converter takes together with others; null when the
/// converter cannot be cloned.
std::unique_ptr<encoding_page const> make_single_byte_page(UConverter const * converter);

/// Returns what pairs of bytes are that begin with a certain one; null when the converter cannot be cloned.
std::unique_ptr<encoding_page const> make_double_byte_page(UConverter const * converter, unsigned char lead);

/// Returns what the UTF-16 units with a certain high byte are; null when the converter cannot be cloned.
std::unique_ptr<encoding_page const> make_unit_page(UConverter const * converter, unsigned char high);

} // namespace fl
