#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace fl::bench {

/// What one contestant of a case needed, once for each repetition.
struct measurement {
    /// "subject/case": the contestants that are compared have it in common.
    std::string contest;
    std::string contestant;
    /// "ns" for the time of one operation, "B" for bytes.
    std::string unit;
    std::vector<double> values;

    std::string_view subject() const { return std::string_view(contest).substr(0, contest.find('/')); }
};

/// Splits "subject/case/contestant" and returns whether there are three parts; a contestant's name may hold
/// slashes.
bool split_name(std::string const & name, std::string & contest, std::string & contestant);

/// Writes a line for each measurement: contest, contestant, unit and the values, with tabs between them.
void write_measurements(std::ostream & stream, std::vector<measurement> const & measurements);

/// Appends what `write_measurements` wrote; throws `std::runtime_error` for a line that it did not write.
void read_measurements(std::istream & stream, std::vector<measurement> & measurements);

} // namespace fl::bench
