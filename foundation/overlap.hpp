#pragma once

#include <cstddef>
#include <cstdint>

namespace fl {

/// Tells whether two ranges of bytes share any, also where they belong to different objects.
inline bool overlap(void const * a, std::size_t a_size, void const * b, std::size_t b_size) {
    // The differences wrap around where they are negative.
    auto const a_address = reinterpret_cast<std::uintptr_t>(a);
    auto const b_address = reinterpret_cast<std::uintptr_t>(b);
    return b_address - a_address < a_size || a_address - b_address < b_size;
}

} // namespace fl
