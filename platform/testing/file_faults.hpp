#pragma once

#include <cstddef>
#include <span>
#include <vector>

/// Failing calls of the system, for tests: a program that links this with the linker options beside it has
/// its calls counted, and one of them, or that and all further ones, fail. One thread only.
namespace fl::platform::testing {

/// A function of the system and the `errno` values with which its manual page says that it fails.
struct system_function {
    char const * name;
    std::span<int const> errors;
};

/// Counts calls from now on, and lets none fail.
void record_calls();
/// Counts calls from now on, and lets the one of this number fail, from 0 on, and perhaps all after it: those
/// of the same function with the same error, others with their first one.
void fail_call(std::size_t number, int error, bool and_all_further);
/// Ends both, for the calls that follow.
void stop_faults();
/// Does so, and returns the functions called, in the order of the calls.
std::vector<system_function const *> end_faults();
/// Keeps calls from being counted and from failing while it lives, or to `end`.
class hold_faults {
public:
    hold_faults();
    ~hold_faults() { end(); }
    hold_faults(hold_faults const &) = delete;
    hold_faults & operator=(hold_faults const &) = delete;
    void end();

private:
    bool was_active_;
};
/// Tells whether a call has failed since `fail_call`.
bool call_has_failed();

} // namespace fl::platform::testing
