#pragma once

#include "bench/measurement.hpp"

#include <string>
#include <vector>

namespace fl::bench {

/// How to measure.
struct run_options {
    /// A regular expression, searched for in "subject/case"; a case runs with all of its contestants.
    std::string filter;
    int repetitions;
    /// The least time of one repetition of one contestant, in seconds.
    double least_time;
};

/// Returns the names of all registered benchmarks, "subject/case/contestant" and what the library appends.
std::vector<std::string> registered_names();

/// Runs the registered benchmarks, case after case, the repetitions of a case's contestants in random order.
///
/// What a benchmark reports is the time of an iteration, of the wall clock where it says `UseRealTime` and of
/// the thread elsewhere, or its counter "bytes" when it has one. Progress goes to the standard error stream.
/// Throws `std::runtime_error` when a benchmark fails, has no proper name or when the filter leaves nothing.
std::vector<measurement> run(run_options const & options);

} // namespace fl::bench
