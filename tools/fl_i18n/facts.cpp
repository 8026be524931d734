#include "tools/fl_i18n/facts.hpp"

#include <algorithm>

namespace fl::tool {

std::string to_text(std::vector<fact> const & facts) {
    std::size_t width = 0;
    for (fact const & each : facts) {
        width = std::max(width, each.label.size());
    }
    std::string text;
    std::string last;
    for (fact const & each : facts) {
        std::string const label = each.label == last ? std::string() : each.label;
        last = each.label;
        text += label + std::string(width + 2 - label.size(), ' ') + (each.value.empty() ? "-" : each.value) +
                (each.origin.empty() ? "" : "  (" + each.origin + ")") + "\n";
    }
    return text;
}

} // namespace fl::tool
