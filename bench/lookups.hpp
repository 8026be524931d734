#pragma once

#include "bench/contest.hpp"

#include <benchmark/benchmark.h>
#include <string>

namespace fl::bench {

inline std::string const & expected(std::uint32_t message, char const *) {
    return messages().narrow_texts[message];
}
inline std::string const & expected(std::uint32_t message, std::string const &) {
    return messages().narrow_texts[message];
}
inline std::u16string const & expected(std::uint32_t message, std::u16string const &) {
    return messages().texts[message];
}

/// Measures `answer`, which returns the text of a message by its number, over all messages in random order.
/// It must know every one; a thread begins where no other does.
template <typename Answer>
void measure_lookups(benchmark::State & state, Answer const & answer) {
    for (std::uint32_t i = 0; i < message_count; ++i) {
        auto const text = answer(i);
        if (text != expected(i, text)) {
            state.SkipWithError("a wrong text");
            return;
        }
    }
    auto const & order = messages().order;
    std::size_t place = static_cast<std::size_t>(state.thread_index()) * order.size() /
                        static_cast<std::size_t>(state.threads());
    for (auto _ : state) {
        auto text = answer(order[place]);
        benchmark::DoNotOptimize(text);
        place = place + 1 == order.size() ? 0 : place + 1;
    }
}

} // namespace fl::bench
