#pragma once

#include "locale/lc_data.hpp"

#include <fl/filesystem/path.hpp>

namespace fl::i18n::lcmgmt {

/// Reads the locale database at `path` into the tables behind `data`.
///
/// Throws one of the `LcRscExceptionBase` family; what was read before the fault stays applied.
void parse_lcdata(LcData const & data, filesystem::upath const & path);

} // namespace fl::i18n::lcmgmt
