#pragma once

#include "tools/fl_i18n/exchange/exchange.hpp"

#include <optional>
#include <string>
#include <vector>

namespace fl::tool {

enum class exchange_format { po, xliff1, xliff2 };

/// Returns the catalog of the bytes of a PO or XLIFF file, in the language that the file names unless
/// `locale` does.
///
/// `file` serves the places of errors. What the catalog cannot hold is told in `left_out`. Throws
/// `command_failure`.
catalog import_file(std::string const & file, std::string bytes, std::optional<std::string> const & locale,
                    std::vector<std::string> & left_out);

/// Tells whether a catalog was made from a file of this format that no export has made.
bool is_foreign(catalog const & contents, exchange_format format);

/// Returns the bytes of a catalog's PO or XLIFF file; throws `command_failure`. `name` is that of the
/// catalog's file.
std::string export_file(catalog const & contents, export_settings const & settings, exchange_format format,
                        std::string const & name);

} // namespace fl::tool
