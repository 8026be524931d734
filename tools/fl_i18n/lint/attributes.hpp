#pragma once

#include "tools/fl_i18n/catalog/xml_document.hpp"
#include "tools/fl_i18n/lint/finding.hpp"

#include <string>
#include <vector>

namespace fl::tool::lint {

/// Reports attributes of other names than the known ones; those of a namespace are nobody's business here.
void check_attribute_names(std::vector<xml::attribute> const & attributes,
                           std::vector<std::string> const & known, file_findings & out);

} // namespace fl::tool::lint
