#pragma once

#include "tests/faults/process_state.hpp"

#include <cstdint>
#include <fl/filesystem/path.hpp>
#include <fl/i18n/locale.hpp>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <type_traits>
#include <vector>

namespace fl::test {

/// Ends faults: the action is over, and what follows only reports on it.
void done();

/// Returns an answer as a text.
std::string text_of(bool answer);
std::string text_of(int answer);
std::string text_of(std::string const & answer);
std::string text_of(std::u16string const & answer);
std::string text_of(filesystem::upath const & answer);
std::string text_of(std::error_code const & answer);
std::string text_of(std::shared_ptr<i18n::QzLocale const> const & answer);

/// Returns the function that performs an action, to which faults happen, and returns its answer as a text.
template <class Action>
std::function<std::string()> acting(Action action) {
    return [action] {
        if constexpr (std::is_void_v<decltype(action())>) {
            action();
            done();
            return std::string("done");
        } else {
            auto const answer = action();
            done();
            return text_of(answer);
        }
    };
}

/// An action on a prepared state, with what it needs and what is to be seen of that.
struct trial {
    /// Acts and returns the answer as a text; one that begins with "failed" reports an error.
    std::function<std::string()> act;
    /// Returns the state of the trial's own objects as a text.
    std::function<std::string()> look = [] { return std::string(); };
    /// What, done one after the other, brings the states in which an action that fails may end, besides the
    /// old.
    std::vector<std::function<void()>> steps = {};
    /// Undoes what a reported error is documented to leave behind.
    std::function<void()> recover = [] {};
};

/// An action to try, and how it may fail.
struct scenario {
    char const * name;
    std::function<trial(fault_files const & files)> prepare;
    /// The beginnings of the texts of the exceptions with which it may report a fault, besides no memory.
    std::vector<std::string> errors = {};
    /// The beginnings of further answers that are right when a call of the system has failed.
    std::vector<std::string> other_answers = {};
    /// Whether a call that fails may leave a catalog known as not loaded, or a root out.
    bool may_lack_files = false;
    /// Whether these hold also when a query says that there is no memory.
    bool goes_on_without_memory = false;
};

/// Returns what prepares an action that needs nothing, or what `prepare` does.
template <class Action>
std::function<trial(fault_files const &)> action(
    Action action, void (*prepare)() = [] {}) {
    return [=](fault_files const &) {
        prepare();
        return trial{acting(action)};
    };
}

/// Returns what prepares an action on an object, which `show` shows.
template <class T, class Show, class Action>
std::function<trial(fault_files const &)> action_on(T initial, Show show, Action action) {
    return [=](fault_files const &) {
        auto const object = std::make_shared<T>(initial);
        return trial{acting([=] { return action(*object); }), [=] { return show(*object); }};
    };
}

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
