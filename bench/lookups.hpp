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

/// Measures `answer`, which returns the text of a message by its place in `messages()`, over all of them.
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
    auto place = message_count * static_cast<std::uint32_t>(state.thread_index()) /
                 static_cast<std::uint32_t>(state.threads());
    for (auto _ : state) {
        auto text = answer(place);
        benchmark::DoNotOptimize(text);
        place = place + 1 == message_count ? 0 : place + 1;
    }
}

} // namespace fl::bench
