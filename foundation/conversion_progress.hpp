#pragma once

#include <cstddef>

namespace fl {

/// How far a conversion came, in units of its source and of its destination.
struct conversion_progress {
    std::size_t consumed = 0;
    std::size_t produced = 0;

    /// Tells whether it came anywhere.
    explicit operator bool() const { return consumed != 0; }
};

} // namespace fl
