#include "bench/statistics.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace fl::bench {

double quantile(std::vector<double> values, double fraction) {
    std::sort(values.begin(), values.end());
    double const place = fraction * static_cast<double>(values.size() - 1);
    auto const below = static_cast<std::size_t>(place);
    std::size_t const above = std::min(below + 1, values.size() - 1);
    return std::lerp(values[below], values[above], place - std::floor(place));
}

double median(std::vector<double> const & values) {
    return quantile(values, 0.5);
}

} // namespace fl::bench
