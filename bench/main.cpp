#include "bench/report.hpp"
#include "bench/runner.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <set>

// Measures the contestants of each case side by side and prints who needs how much. The exit status tells of
// errors only: whether a goal is reached is for the reader of the table, who knows what else the machine did.

namespace {

using namespace fl::bench;

struct settings {
    run_options run{"", 17, 0.01};
    std::string goals = FL_I18N_BENCH_GOALS;
    std::string raw_file;
    std::string read_file;
    bool list = false;
};

void add_options(CLI::App & app, settings & chosen) {
    app.add_option("--filter", chosen.run.filter, "Regular expression, found in \"subject/case\"");
    app.add_option("--repetitions", chosen.run.repetitions, "How often each contestant is measured (17)")
        ->check(CLI::PositiveNumber);
    app.add_option("--min-time", chosen.run.least_time, "Least seconds of one measurement (0.01)")
        ->check(CLI::PositiveNumber);
    app.add_option("--goals", chosen.goals, "File of goals instead of bench/goals.txt");
    app.add_option("--raw", chosen.raw_file, "Writes all figures to a file, instead of the table");
    app.add_option("--read", chosen.read_file, "Makes the table of such a file instead of measuring");
    app.add_flag("--list", chosen.list, "Prints the names of all contestants");
}

std::ifstream opened(std::string const & name) {
    std::ifstream stream(name);
    if (!stream) {
        throw std::runtime_error("cannot be opened: " + name);
    }
    return stream;
}

void write_raw(std::string const & name, std::vector<measurement> const & measurements) {
    std::ofstream stream(name);
    write_measurements(stream, measurements);
    if (!stream.flush()) {
        throw std::runtime_error("cannot be written: " + name);
    }
}

std::vector<goal> goals_of(std::string const & name) {
    auto stream = opened(name);
    try {
        return read_goals(stream);
    } catch (std::runtime_error const & error) {
        throw std::runtime_error(name + ": " + error.what());
    }
}

std::vector<measurement> read_raw(std::string const & name) {
    auto stream = opened(name);
    std::vector<measurement> measurements;
    read_measurements(stream, measurements);
    return measurements;
}

void print_names() {
    for (std::string const & name : registered_names()) {
        std::cout << name << '\n';
    }
}

/// Prints the table and the goals of its cases; `all_goals` tells that cases without any figure count, too.
void print_table(std::vector<measurement> const & measurements, std::vector<goal> goals, bool all_goals) {
    std::set<std::string> contests;
    for (measurement const & measured : measurements) {
        contests.insert(measured.contest);
    }
    std::erase_if(goals,
                  [&](goal const & wanted) { return !all_goals && !contests.contains(wanted.contest); });
    std::cout << table_of(measurements, goals) << std::flush;
    if (auto const missing = goals_without_figures(measurements, goals); !missing.empty()) {
        std::cerr << "[bench] goals without figures:\n" << missing;
    }
}

void act(settings const & chosen) {
    auto const goals = goals_of(chosen.goals);
    if (chosen.list) {
        print_names();
    } else if (!chosen.raw_file.empty()) {
        write_raw(chosen.raw_file, run(chosen.run));
    } else if (!chosen.read_file.empty()) {
        print_table(read_raw(chosen.read_file), goals, chosen.run.filter.empty());
    } else {
        print_table(run(chosen.run), goals, false);
    }
}

} // namespace

int main(int argc, char ** argv) {
    settings chosen;
    CLI::App app("Measures this library beside others");
    add_options(app, chosen);
    CLI11_PARSE(app, argc, argv);
    try {
        act(chosen);
    } catch (std::exception const & error) {
        std::cerr << "[bench] " << error.what() << '\n';
        return 1;
    }
    return 0;
}
