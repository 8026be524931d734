#pragma once

#include "bench/goals.hpp"
#include "bench/measurement.hpp"

#include <string>
#include <vector>

namespace fl::bench {

/// Returns a table with a row for each contestant beside ours: both medians, the ratio of the medians (theirs
/// by ours), the quartiles of the ratio over the repetitions, the goal and whether it is reached. The
/// subjects are in the order of their names, their cases in that of the measurements.
///
/// Below it stands how many goals are reached, and which are missed.
std::string table_of(std::vector<measurement> measurements, std::vector<goal> const & goals);

/// Returns the goals whose contestant, or "ours" beside it, was not measured, one a line.
std::string goals_without_figures(std::vector<measurement> const & measurements,
                                  std::vector<goal> const & goals);

} // namespace fl::bench
