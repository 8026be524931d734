#pragma once

#include <vector>

namespace fl::bench {

/// Returns a quantile of values that are not empty, `fraction` from 0 to 1, between neighbours by proportion.
double quantile(std::vector<double> values, double fraction);

/// Returns the median of values that are not empty.
double median(std::vector<double> const & values);

} // namespace fl::bench
