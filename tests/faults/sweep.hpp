#pragma once

#include "tests/faults/process_state.hpp"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace fl::test {

/// Ends faults: the action is over, and what follows only reports on it.
void done();

/// One action on a prepared state, with what it needs and what is to be seen of that.
struct trial {
    /// Acts and returns the answer as a text; one that begins with "failed" reports an error.
    std::function<std::string()> act;
    /// Returns the state of the trial's own objects as a text.
    std::function<std::string()> look = [] { return std::string(); };
    /// The parts of the action, where it has some that may stay done when the next fails.
    std::vector<std::function<void()>> steps = {};
    /// Undoes what a reported error is documented to leave behind.
    std::function<void()> recover = [] {};
};

/// An action to try, and how it may fail.
struct scenario {
    char const * name;
    trial (*prepare)(fault_files const & files);
    /// The beginnings of the texts of the exceptions with which it may report a fault, besides no memory.
    std::vector<std::string> errors = {};
    /// The beginnings of further answers that are right when a call of the system has failed.
    std::vector<std::string> other_answers = {};
    /// Whether a fault of a file may leave a catalog known as not loaded, or a root out.
    bool may_lack_files = false;
    /// Whether these hold also when a query says that there is no memory.
    bool goes_on_without_memory = false;
};

/// What a sweep is to do.
struct sweep_options {
    std::uint64_t stride = 1; ///< 1 for every point, N for every Nth
    std::string only;         ///< the beginning of the scenarios' names
    bool verbose = false;     ///< print the points of each scenario
};

/// Counts points and failures of one kind, and prints the failures.
struct tally {
    char const * kind;
    std::uint64_t points = 0;
    std::uint64_t failures = 0;

    void fail(std::string const & what);
    void print() const;
};

/// Returns the first line in which two texts differ, from both.
std::string difference(std::string const & expected, std::string const & found);

/// Fails every allocation of each scenario, once and with all further ones.
tally sweep_allocations(std::vector<scenario> const & scenarios, fault_files const & files,
                        sweep_options const & options);
/// Fails every call of the system of each scenario, with each error.
tally sweep_files(std::vector<scenario> const & scenarios, fault_files const & files,
                  sweep_options const & options);
/// Cuts a catalog and a database at every byte, and changes every byte.
tally sweep_truncations(fault_files const & files, sweep_options const & options);
/// Fails every allocation of what is used first in a process, each in a process of its own. The calling
/// process must not have used the library.
void sweep_first_uses(tally & allocations, fault_files const & files, sweep_options const & options);

std::vector<scenario> catalog_scenarios();
std::vector<scenario> locale_scenarios();
std::vector<scenario> text_scenarios();

} // namespace fl::test
