#pragma once

#include "foundation/xml_reader.hpp"
#include "locale/lc_data.hpp"

#include <fl/filesystem/path.hpp>

namespace fl::i18n::lcmgmt {

/// Reads a locale database into the tables behind `data`; what was read before a fault stays applied.
xml::read_result read_lcdata(LcData const & data, xml::block_source const & source);

/// Reads the locale database at `path` into the tables behind `data`.
///
/// Throws one of the `LcRscExceptionBase` family; what was read before the fault stays applied.
void parse_lcdata(LcData const & data, filesystem::upath const & path);

} // namespace fl::i18n::lcmgmt
