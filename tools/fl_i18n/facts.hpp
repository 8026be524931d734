#pragma once

#include <string>
#include <vector>

namespace fl::tool {

/// A line of a report: what, its value and, where known, where that comes from. Texts are UTF-8.
struct fact {
    std::string label;
    std::string value;
    std::string origin;

    friend bool operator==(fact const &, fact const &) = default;
};

/// Returns the facts in lines for people. A fact with the label of the one before it goes on below that.
std::string to_text(std::vector<fact> const & facts);

} // namespace fl::tool
