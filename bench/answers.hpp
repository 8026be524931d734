#pragma once

#include <benchmark/benchmark.h>
#include <string>

namespace fl::bench {

/// Measures a function that always gives the same text, once it has given the expected one.
template <typename Text, typename Function>
void measure_answer(benchmark::State & state, Text const & expected, Function const & function) {
    if (function() != expected) {
        state.SkipWithError("a wrong text");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(function());
    }
}

/// Registers that under a name; `expected` has to live on.
template <typename Text, typename Function>
void add_answer(std::string const & name, Text const & expected, Function function) {
    benchmark::RegisterBenchmark(name.c_str(), [&expected, function](benchmark::State & state) {
        measure_answer(state, expected, function);
    });
}

} // namespace fl::bench
