#pragma once

#include <malloc.h>

namespace fl::bench {

/// Returns how many bytes of the heap more are in use after `action`, with what the heap itself needs for
/// them. It sees what operator new and ICU take, in the main thread only.
template <typename Action>
double heap_growth(Action const & action) {
    auto const in_use = [] {
        auto const heap = mallinfo2();
        return static_cast<double>(heap.uordblks + heap.hblkhd);
    };
    double const before = in_use();
    action();
    return in_use() - before;
}

} // namespace fl::bench
