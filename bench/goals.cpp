#include "bench/goals.hpp"

#include "bench/measurement.hpp"

#include <algorithm>
#include <charconv>
#include <istream>
#include <stdexcept>

namespace fl::bench {

namespace {

bool read_goal(std::string const & line, goal & result) {
    auto const tab = line.find('\t');
    if (tab == line.npos || !split_name(line.substr(0, tab), result.contest, result.contestant)) {
        return false;
    }
    char const * const end = line.data() + line.size();
    auto const [rest, error] = std::from_chars(line.data() + tab + 1, end, result.ratio);
    return error == std::errc() && rest == end && result.ratio > 0;
}

} // namespace

std::vector<goal> read_goals(std::istream & stream) {
    std::vector<goal> goals;
    int number = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        goal read;
        if (!read_goal(line, read)) {
            throw std::runtime_error("line " + std::to_string(number) +
                                     " is not \"subject/case/contestant<TAB>ratio\": " + line);
        }
        if (std::any_of(goals.begin(), goals.end(), [&read](goal const & other) {
                return other.contest == read.contest && other.contestant == read.contestant;
            })) {
            throw std::runtime_error("line " + std::to_string(number) + " names a contestant again: " + line);
        }
        goals.push_back(std::move(read));
    }
    return goals;
}

} // namespace fl::bench
