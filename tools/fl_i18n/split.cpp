#include "tools/fl_i18n/split.hpp"

#include <algorithm>

namespace fl::tool {

std::vector<std::string> split(std::string const & text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin <= text.size();) {
        std::size_t const end = std::min(text.find(separator, begin), text.size());
        parts.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

} // namespace fl::tool
