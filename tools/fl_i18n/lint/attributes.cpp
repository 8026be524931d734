#include "tools/fl_i18n/lint/attributes.hpp"

#include "tools/fl_i18n/lint/spelling.hpp"

#include <algorithm>

namespace fl::tool::lint {

void check_attribute_names(std::vector<xml::attribute> const & attributes,
                           std::vector<std::string> const & known, file_findings & out) {
    for (xml::attribute const & each : attributes) {
        if (std::ranges::find(known, each.name) != known.end() || each.name == "xmlns" ||
            each.name.find(':') != std::string::npos) {
            continue;
        }
        fault found{.offset = each.name_offset,
                    .text = "the library knows no attribute " + in_quotes(each.name) + " here"};
        if (auto const guess = guess_spelling(each.name, known); guess && !xml::find(attributes, *guess)) {
            found.repair = mend<std::size_t>{each.name_offset + each.name.size(), *guess};
        }
        out.add("unknown-attribute", found);
    }
}

} // namespace fl::tool::lint
