#include "bench/runner.hpp"

#include "bench/statistics.hpp"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace fl::bench {

namespace {

/// Sets options of the benchmark library, which takes them as a command line only.
void set_library_options(std::vector<std::string> words) {
    words.insert(words.begin(), "bench");
    std::vector<char *> arguments;
    for (std::string & word : words) {
        arguments.push_back(word.data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
}

std::string escaped(std::string const & text) {
    std::string result;
    for (char const c : text) {
        if (std::string_view(R"(\^$.|?*+()[]{})").find(c) != std::string_view::npos) {
            result += '\\';
        }
        result += c;
    }
    return result;
}

double value_of(benchmark::BenchmarkReporter::Run const & run) {
    auto const bytes = run.counters.find("bytes");
    if (bytes != run.counters.end()) {
        return bytes->second.value;
    }
    // Where the clock of threads ticks too slowly, that on the wall is taken throughout.
    bool const wall = FL_I18N_BENCH_WALL_CLOCK || run.run_name.time_type == "real_time";
    double const seconds = wall ? run.real_accumulated_time : run.cpu_accumulated_time;
    return seconds / static_cast<double>(run.iterations) * 1e9;
}

class collector final : public benchmark::BenchmarkReporter {
public:
    explicit collector(double least_time)
        : least_time_(least_time) {}

    bool ReportContext(Context const &) override { return true; }

    // The repetitions of one benchmark.
    void ReportRuns(std::vector<Run> const & runs) override {
        measurement result;
        std::vector<double> durations;
        for (Run const & run : runs) {
            if (run.error_occurred) {
                throw std::runtime_error(run.benchmark_name() + ": " + run.error_message);
            }
            if (run.run_type != Run::RT_Iteration) {
                return;
            }
            split_name(run.run_name.function_name, result.contest, result.contestant);
            result.unit = run.counters.contains("bytes") ? "B" : "ns";
            result.values.push_back(value_of(run));
            durations.push_back(run.real_accumulated_time);
        }
        too_short_ = too_short_ || (result.unit == "ns" && median(durations) < least_time_ / 4);
        measurements_.push_back(std::move(result));
    }

    /// Tells whether something was measured over too few iterations: their number is chosen by the first try,
    /// which may have been held up.
    bool too_short() const { return too_short_; }
    /// Returns the figures by contestant; they come in any order.
    std::vector<measurement> sorted() const {
        auto result = measurements_;
        std::sort(result.begin(), result.end(),
                  [](auto const & left, auto const & right) { return left.contestant < right.contestant; });
        return result;
    }

private:
    double least_time_;
    std::vector<measurement> measurements_;
    bool too_short_ = false;
};

/// A reporter that is only there for the stream that names are printed to.
class silent_reporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(Context const &) override { return true; }
    void ReportRuns(std::vector<Run> const &) override {}
};

/// Returns the cases to run, "subject/case", in the order of their registration.
std::vector<std::string> chosen_contests(std::string const & filter) {
    std::regex const pattern(filter);
    std::vector<std::string> result;
    for (std::string const & name : registered_names()) {
        std::string contest;
        std::string contestant;
        if (!split_name(name, contest, contestant)) {
            throw std::runtime_error("not \"subject/case/contestant\": " + name);
        }
        if (std::regex_search(contest, pattern) &&
            std::find(result.begin(), result.end(), contest) == result.end()) {
            result.push_back(contest);
        }
    }
    if (result.empty()) {
        std::fprintf(stderr, "[bench] no case here has \"%s\" in its name\n", filter.c_str());
    }
    return result;
}

std::vector<measurement> run_contest(std::string const & contest, double least_time) {
    constexpr int most_tries = 5;
    for (int i = 1;; ++i) {
        collector reporter(least_time);
        benchmark::RunSpecifiedBenchmarks(&reporter, '^' + escaped(contest) + '/');
        if (!reporter.too_short() || i == most_tries) {
            return reporter.sorted();
        }
    }
}

} // namespace

std::vector<std::string> registered_names() {
    std::ostringstream names;
    silent_reporter reporter;
    reporter.SetOutputStream(&names);
    set_library_options({"--benchmark_list_tests=true"});
    benchmark::RunSpecifiedBenchmarks(&reporter, ".");
    set_library_options({"--benchmark_list_tests=false"});
    std::vector<std::string> result;
    std::istringstream lines(names.str());
    for (std::string line; std::getline(lines, line);) {
        result.push_back(line);
    }
    return result;
}

std::vector<measurement> run(run_options const & options) {
    auto const contests = chosen_contests(options.filter);
    set_library_options({"--benchmark_repetitions=" + std::to_string(options.repetitions),
                         "--benchmark_min_time=" + std::to_string(options.least_time),
                         "--benchmark_enable_random_interleaving=true"});
    std::vector<measurement> measurements;
    for (std::size_t i = 0; i < contests.size(); ++i) {
        std::fprintf(stderr, "[bench] %zu of %zu: %s\n", i + 1, contests.size(), contests[i].c_str());
        auto const measured = run_contest(contests[i], options.least_time);
        measurements.insert(measurements.end(), measured.begin(), measured.end());
    }
    return measurements;
}

} // namespace fl::bench
