#include "bench/measurement.hpp"

#include <istream>
#include <ostream>
#include <sstream>
#include <stdexcept>

namespace fl::bench {

bool split_name(std::string const & name, std::string & contest, std::string & contestant) {
    auto const after_subject = name.find('/');
    auto const after_case = after_subject == name.npos ? name.npos : name.find('/', after_subject + 1);
    if (after_case == name.npos || after_case + 1 == name.size()) {
        return false;
    }
    contest = name.substr(0, after_case);
    contestant = name.substr(after_case + 1);
    return true;
}

void write_measurements(std::ostream & stream, std::vector<measurement> const & measurements) {
    for (auto const & [contest, contestant, unit, values] : measurements) {
        stream << contest << '\t' << contestant << '\t' << unit;
        for (double const value : values) {
            stream << '\t' << value;
        }
        stream << '\n';
    }
}

void read_measurements(std::istream & stream, std::vector<measurement> & measurements) {
    for (std::string line; std::getline(stream, line);) {
        std::istringstream fields(line);
        measurement read;
        std::getline(fields, read.contest, '\t');
        std::getline(fields, read.contestant, '\t');
        std::getline(fields, read.unit, '\t');
        for (double value; fields >> value;) {
            read.values.push_back(value);
        }
        if (read.values.empty() || !fields.eof()) {
            throw std::runtime_error("not a line of measurements: " + line);
        }
        measurements.push_back(std::move(read));
    }
}

} // namespace fl::bench
