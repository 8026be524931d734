#pragma once

#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/ustring_type.hpp>

namespace fl::tool {

/// Returns a report in lines for people to read.
i18n::ustring explain(i18n::LookupReport const & report);

} // namespace fl::tool
