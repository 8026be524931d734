#include "tests/faults/sweep.hpp"

#include "platform/testing/file_faults.hpp"
#include "tests/faults/allocation_faults.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <fl/filesystem/exceptions.hpp>
#include <new>
#include <set>
#include <sstream>

namespace fl::test {

namespace {

constexpr char file_error[] = "an error of the file system";

/// What fails: an allocation, a query that says that there is no memory, or another call of the system.
enum class fault { allocation, call_without_memory, call };

enum class end { answer, error, no_memory };

struct outcome {
    end how;
    std::string text;

    bool operator==(outcome const &) const = default;
};

std::set<std::string> lines_of(std::string const & text) {
    std::istringstream stream(text);
    std::set<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.insert(line);
    }
    return lines;
}

bool begins_with_one_of(std::string const & text, std::vector<std::string> const & beginnings) {
    return std::any_of(beginnings.begin(), beginnings.end(), [&](std::string const & beginning) {
        return beginning.empty() ? text.empty() : text.starts_with(beginning);
    });
}

/// Tells whether a state is another, but for catalogs that are known as not loaded and roots left out.
bool is_but_for_files(std::string const & state, std::string const & other) {
    auto const lines = lines_of(state);
    auto const others = lines_of(other);
    auto const is_free = [](std::string const & line) {
        return line.starts_with("root ") || line.starts_with("cached ");
    };
    auto const is_there = [&](std::string const & line) {
        return others.contains(line) ||
               (line.starts_with("cached ") && line.find(" not loaded ") != line.npos);
    };
    return std::all_of(lines.begin(), lines.end(), is_there) &&
           std::all_of(others.begin(), others.end(),
                       [&](std::string const & line) { return is_free(line) || lines.contains(line); });
}

/// A scenario's runs without faults, against which those with faults are compared.
class experiment {
public:
    experiment(scenario const & what, fault_files const & files, tally & result)
        : what_(what)
        , files_(files)
        , result_(result) {
        // The first runs fill what lives as long as the process.
        for (int i = 0; i < 3; ++i) {
            learn();
        }
    }

    /// Runs the action after `arm` and judges how it ended, if the fault has happened.
    template <class Arm, class HasHappened>
    void try_point(std::string const & point, fault kind, Arm arm, HasHappened has_happened) {
        renew_process_state(files_);
        auto const blocks = live_blocks();
        auto const icu_blocks = live_icu_blocks();
        int const open_files = open_files_mark();
        {
            trial t = what_.prepare(files_);
            arm();
            outcome const found = run(t);
            if (!has_happened()) {
                return;
            }
            ++result_.points;
            judge(point, kind, found, state(t));
            if (found != good_) {
                t.recover();
                outcome const again = run(t);
                check(point + ", then without", good_.text, again.text);
                check(point + ", then the state", after_, state(t));
            }
        }
        renew_process_state(files_);
        auto const blocks_after = live_blocks();
        check(point + ", blocks", std::to_string(blocks), std::to_string(blocks_after));
        check(point + ", more blocks of ICU", "0",
              std::to_string(std::max<std::int64_t>(live_icu_blocks() - icu_blocks, 0)));
        check(point + ", open files", std::to_string(open_files), std::to_string(open_files_mark()));
    }

    /// Runs the action after `arm`, for what that counts.
    template <class Arm>
    void observe(Arm arm) {
        renew_process_state(files_);
        trial const t = what_.prepare(files_);
        arm();
        run(t);
    }

private:
    static std::string state(trial const & t) { return process_state() + t.look(); }

    static outcome run(trial const & t) {
        try {
            std::string answer = t.act();
            done();
            end const how = answer.starts_with("failed") ? end::error : end::answer;
            return {how, std::move(answer)};
        } catch (std::bad_alloc const &) {
            done();
            return {end::no_memory, "no memory"};
        } catch (filesystem::FsysExceptionBase const &) {
            done();
            return {end::error, file_error};
        } catch (std::exception const & error) {
            done();
            return {end::error, error.what()};
        }
    }

    void learn() {
        renew_process_state(files_);
        trial t = what_.prepare(files_);
        states_ = {state(t)};
        for (auto const & step : t.steps) {
            step();
            states_.push_back(state(t));
        }
        t = {};
        renew_process_state(files_);
        t = what_.prepare(files_);
        good_ = run(t);
        after_ = state(t);
        if (good_.how != end::answer && !is_known(after_)) {
            check("an action that is refused", states_.front(), after_);
        }
    }

    /// Tells whether a state is one in which an action that failed may leave the process.
    bool is_known(std::string const & now) const {
        return std::find(states_.begin(), states_.end(), now) != states_.end();
    }

    void judge(std::string const & point, fault kind, outcome const & found, std::string const & now) {
        bool const may_differ =
            kind == fault::call || (kind == fault::call_without_memory && what_.goes_on_without_memory);
        if (found == good_) {
            check(point + ", the state after success", after_, now, may_differ);
        } else if (found.how == end::answer) {
            if (!may_differ || !begins_with_one_of(found.text, what_.other_answers)) {
                check(point + ", the answer", good_.text, found.text);
            }
            if (!is_known(now)) {
                check(point + ", the state after another answer", after_, now, may_differ);
            }
        } else {
            bool const is_documented =
                found.how == end::no_memory || begins_with_one_of(found.text, what_.errors) ||
                (kind != fault::allocation && begins_with_one_of(found.text, {file_error, "failed"}));
            if (!is_documented) {
                result_.fail(std::string(what_.name) + ", " + point + ": ends with " + found.text);
            }
            if (!is_known(now)) {
                check(point + ", the state after failure", states_.front(), now, may_differ);
            }
        }
    }

    void check(std::string const & point, std::string const & expected, std::string const & found,
               bool may_lack_files = false) {
        if (expected == found ||
            (may_lack_files && what_.may_lack_files && is_but_for_files(found, expected))) {
            return;
        }
        result_.fail(std::string(what_.name) + ", " + point + ": " + difference(expected, found));
    }

    scenario const & what_;
    fault_files const & files_;
    tally & result_;
    std::vector<std::string> states_; ///< before the action and after its steps
    outcome good_;
    std::string after_;
};

} // namespace

void done() {
    end_allocation_faults();
    platform::testing::stop_faults();
}

void tally::fail(std::string const & what) {
    constexpr std::uint64_t most_printed = 40;
    if (++failures <= most_printed) {
        std::printf("FAILED %s: %s\n", kind, what.c_str());
    }
}

void tally::print() const {
    std::printf("%s: %llu points, %llu failures\n", kind, static_cast<unsigned long long>(points),
                static_cast<unsigned long long>(failures));
}

std::string difference(std::string const & expected, std::string const & found) {
    std::istringstream expected_lines(expected);
    std::istringstream found_lines(found);
    std::string a;
    std::string b;
    do {
        a = b = "(nothing)";
        std::getline(expected_lines, a);
        std::getline(found_lines, b);
    } while (a == b && (expected_lines || found_lines));
    return "\n    expected " + a.substr(0, 300) + "\n    found    " + b.substr(0, 300);
}

std::string text_of(bool answer) {
    return answer ? "true" : "false";
}
std::string text_of(int answer) {
    return answer == 0 ? "0" : "failed " + std::to_string(answer);
}
std::string text_of(std::string const & answer) {
    return answer;
}
std::string text_of(std::u16string const & answer) {
    return i18n::ustring_to_utf8(answer);
}
std::string text_of(filesystem::upath const & answer) {
    return i18n::ustring_to_utf8(answer.string());
}
std::string text_of(std::error_code const & answer) {
    return answer.message();
}
std::string text_of(std::shared_ptr<i18n::QzLocale const> const & answer) {
    std::string text = answer->getXpgName();
    for (unsigned i = 0; i < 6; ++i) {
        text += ' ' + answer->getLcName(static_cast<i18n::QzLocale::LcCategory>(i));
    }
    return text;
}

tally sweep_allocations(std::vector<scenario> const & scenarios, fault_files const & files,
                        sweep_options const & options) {
    tally result{"allocation faults"};
    std::uint64_t number = 0;
    for (scenario const & s : scenarios) {
        if (!std::string(s.name).starts_with(options.only)) {
            continue;
        }
        experiment e(s, files, result);
        e.observe([] { fail_allocation(0, false); });
        std::uint64_t const count = end_allocation_faults();
        std::uint64_t const before = result.points;
        for (std::uint64_t n = 1; n <= count; ++n) {
            for (bool const and_all_further : {false, true}) {
                if (number++ % options.stride == 0) {
                    e.try_point(
                        "allocation " + std::to_string(n) + (and_all_further ? " and all further" : ""),
                        fault::allocation, [&] { fail_allocation(n, and_all_further); },
                        [&] { return end_allocation_faults() >= n; });
                }
            }
        }
        if (options.verbose) {
            std::printf("  %-50s %6llu\n", s.name, static_cast<unsigned long long>(result.points - before));
        }
    }
    return result;
}

tally sweep_files(std::vector<scenario> const & scenarios, fault_files const & files,
                  sweep_options const & options) {
    namespace testing = platform::testing;
    tally result{"file faults"};
    std::uint64_t number = 0;
    for (scenario const & s : scenarios) {
        if (!std::string(s.name).starts_with(options.only)) {
            continue;
        }
        experiment e(s, files, result);
        e.observe(testing::record_calls);
        auto const calls = testing::end_faults();
        std::uint64_t const before = result.points;
        for (std::size_t n = 0; n < calls.size(); ++n) {
            for (int const error : calls[n]->errors) {
                bool const is_query = calls[n]->name == std::string("stat");
                auto const kind = is_query && error == ENOMEM ? fault::call_without_memory : fault::call;
                for (bool const and_all_further : {false, true}) {
                    if (number++ % options.stride == 0) {
                        e.try_point(
                            "call " + std::to_string(n) + " of " + calls[n]->name + " with error " +
                                std::to_string(error) + (and_all_further ? " and all further" : ""),
                            kind, [&] { testing::fail_call(n, error, and_all_further); },
                            testing::call_has_failed);
                    }
                }
            }
        }
        if (options.verbose) {
            std::printf("  %-50s %6llu\n", s.name, static_cast<unsigned long long>(result.points - before));
        }
    }
    return result;
}

} // namespace fl::test
