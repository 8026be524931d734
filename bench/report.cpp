#include "bench/report.hpp"

#include "bench/statistics.hpp"

#include <algorithm>
#include <cstdio>

namespace fl::bench {

namespace {

constexpr char our_name[] = "ours";

template <typename... Values>
std::string formatted(char const * format, Values... values) {
    char text[400];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

/// Returns a figure of three or four digits in a unit that suits it.
std::string figure(double value, std::string const & unit) {
    struct scale {
        double factor;
        char const * unit;
    };
    static constexpr scale scales[] = {{1, "ns"}, {1e3, "us"}, {1e6, "ms"}, {1e9, "s"}};
    scale chosen{1, unit.c_str()};
    if (unit == "ns") {
        chosen = *std::find_if(std::begin(scales), std::end(scales) - 1,
                               [value](scale const & candidate) { return value < candidate.factor * 1e4; });
    }
    double const shown = value / chosen.factor;
    return formatted("%.*f %s", shown < 100 ? 1 : 0, shown, chosen.unit);
}

measurement const * find(std::vector<measurement> const & measurements, std::string const & contest,
                         std::string const & contestant) {
    auto const position =
        std::find_if(measurements.begin(), measurements.end(), [&](measurement const & candidate) {
            return candidate.contest == contest && candidate.contestant == contestant;
        });
    return position == measurements.end() ? nullptr : &*position;
}

/// Returns the ratio in each repetition, that is of figures measured within moments.
std::vector<double> ratios(measurement const & peer, measurement const & ours) {
    std::vector<double> result;
    for (std::size_t i = 0; i < std::min(peer.values.size(), ours.values.size()); ++i) {
        result.push_back(peer.values[i] / ours.values[i]);
    }
    return result;
}

/// The rows of the table, and what is counted on the way.
class table {
public:
    explicit table(std::vector<goal> const & goals)
        : goals_(goals) {
        add_line("contest", "ours", "against", "theirs", "ratio", "quartiles", "goal", "");
    }

    void add(measurement const & ours, measurement const & peer) {
        double const ratio = median(peer.values) / median(ours.values);
        auto const spread = ratios(peer, ours);
        auto const quartiles = formatted("%.2f to %.2f", quantile(spread, 0.25), quantile(spread, 0.75));
        auto const goal = std::find_if(goals_.begin(), goals_.end(), [&peer](auto const & candidate) {
            return candidate.contest == peer.contest && candidate.contestant == peer.contestant;
        });
        std::string least;
        std::string verdict;
        if (goal != goals_.end()) {
            bool const is_reached = ratio >= goal->ratio;
            least = formatted("%.2f", goal->ratio);
            verdict = is_reached ? "reached" : "MISSED";
            ++(is_reached ? reached_ : missed_);
        }
        add_line(ours.contest, figure(median(ours.values), ours.unit), peer.contestant,
                 figure(median(peer.values), peer.unit), formatted("%.2f", ratio), quartiles, least, verdict);
    }

    void add_alone(measurement const & ours) {
        add_line(ours.contest, figure(median(ours.values), ours.unit), "-", "", "", "", "", "");
    }

    std::string text() const {
        return text_ +
               formatted("\n%d goals: %d reached, %d missed\n", reached_ + missed_, reached_, missed_);
    }

private:
    void add_line(std::string const & contest, std::string const & ours, std::string const & against,
                  std::string const & theirs, std::string const & ratio, std::string const & quartiles,
                  std::string const & least, std::string const & verdict) {
        std::string line =
            formatted("%-42s %9s  %-40s %9s %8s %18s %7s  %s", contest.c_str(), ours.c_str(), against.c_str(),
                      theirs.c_str(), ratio.c_str(), quartiles.c_str(), least.c_str(), verdict.c_str());
        line.erase(line.find_last_not_of(' ') + 1);
        text_ += line + '\n';
    }

    std::vector<goal> const & goals_;
    std::string text_;
    int reached_ = 0;
    int missed_ = 0;
};

} // namespace

std::string table_of(std::vector<measurement> measurements, std::vector<goal> const & goals) {
    std::stable_sort(measurements.begin(), measurements.end(),
                     [](auto const & left, auto const & right) { return left.subject() < right.subject(); });
    table result(goals);
    for (measurement const & ours : measurements) {
        if (ours.contestant != our_name) {
            continue;
        }
        bool alone = true;
        for (measurement const & peer : measurements) {
            if (peer.contest == ours.contest && &peer != &ours) {
                result.add(ours, peer);
                alone = false;
            }
        }
        if (alone) {
            result.add_alone(ours);
        }
    }
    return result.text();
}

std::string goals_without_figures(std::vector<measurement> const & measurements,
                                  std::vector<goal> const & goals) {
    std::string result;
    for (goal const & wanted : goals) {
        if (find(measurements, wanted.contest, wanted.contestant) == nullptr ||
            find(measurements, wanted.contest, our_name) == nullptr) {
            result += wanted.contest + '/' + wanted.contestant + '\n';
        }
    }
    return result;
}

} // namespace fl::bench
