#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// The one operation of a fuzz target; returns 0.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size);

namespace fl::fuzz {

/// Reports an input for which an answer is wrong, by ending the process.
inline void require(bool holds, char const * what) {
    if (!holds) {
        std::fprintf(stderr, "wrong answer: %s\n", what);
        std::abort();
    }
}

} // namespace fl::fuzz
