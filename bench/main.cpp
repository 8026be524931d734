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
    run_options run{"", 17, 0.02};
    std::string goals = FL_I18N_BENCH_GOALS;
    std::string raw_file;
    std::string table_file;
    std::vector<std::string> read_files;
    bool list = false;
};

void add_options(CLI::App & app, settings & chosen) {
    app.add_option("--filter", chosen.run.filter, "Regular expression, found in \"subject/case\"");
    app.add_option("--repetitions", chosen.run.repetitions, "How often each contestant is measured (17)")
        ->check(CLI::PositiveNumber);
    app.add_option("--min-time", chosen.run.least_time, "Least seconds of one measurement (0.02)")
        ->check(CLI::PositiveNumber);
    app.add_option("--goals", chosen.goals, "File of goals instead of bench/goals.txt");
    app.add_option("--raw", chosen.raw_file, "File for all figures, with tabs between them");
    app.add_option("--table", chosen.table_file, "File for the table, which is printed anyhow");
    app.add_option("--read", chosen.read_files, "Makes the table of such files instead of measuring");
    app.add_flag("--list", chosen.list, "Prints the names of all contestants");
}

std::ifstream opened(std::string const & name) {
    std::ifstream stream(name);
    if (!stream) {
        throw std::runtime_error("cannot be opened: " + name);
    }
    return stream;
}

template <typename Writer>
void write_file(std::string const & name, Writer const & writer) {
    if (name.empty()) {
        return;
    }
    std::ofstream stream(name);
    writer(stream);
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

std::vector<measurement> read_all(std::vector<std::string> const & names) {
    std::vector<measurement> measurements;
    for (std::string const & name : names) {
        auto stream = opened(name);
        read_measurements(stream, measurements);
    }
    return measurements;
}

/// Leaves the goals of the cases that were measured: another program measures the others, or the filter
/// leaves them out.
void keep_goals_of(std::vector<measurement> const & measurements, std::vector<goal> & goals) {
    std::set<std::string> contests;
    for (measurement const & measured : measurements) {
        contests.insert(measured.contest);
    }
    std::erase_if(goals, [&contests](goal const & wanted) { return !contests.contains(wanted.contest); });
}

void act(settings const & chosen) {
    if (chosen.list) {
        for (std::string const & name : registered_names()) {
            std::cout << name << '\n';
        }
        return;
    }
    auto goals = goals_of(chosen.goals);
    bool const measure = chosen.read_files.empty();
    auto const measurements = measure ? run(chosen.run) : read_all(chosen.read_files);
    write_file(chosen.raw_file, [&](std::ostream & stream) { write_measurements(stream, measurements); });
    if (measure) {
        keep_goals_of(measurements, goals);
    }
    std::string const table = table_of(measurements, goals);
    std::cout << table << std::flush;
    write_file(chosen.table_file, [&](std::ostream & stream) { stream << table; });
    if (auto const missing = goals_without_figures(measurements, goals); !missing.empty()) {
        std::cerr << "[bench] goals without figures:\n" << missing;
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
