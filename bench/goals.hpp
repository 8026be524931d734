#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace fl::bench {

/// How many times what we need a contestant shall need at least.
struct goal {
    std::string contest;
    std::string contestant;
    double ratio;
};

/// Reads lines "subject/case/contestant<TAB>ratio"; empty lines and those that begin with "#" are passed
/// over.
///
/// Throws `std::runtime_error` with the line's number for any other line, and for a contestant named twice.
std::vector<goal> read_goals(std::istream & stream);

} // namespace fl::bench
