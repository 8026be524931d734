#pragma once

#include "tools/fl_i18n/lint/report.hpp"

#include <string>
#include <vector>

namespace fl::tool::lint {

struct lint_options {
    std::vector<std::string> paths;
    std::string base;            ///< the locale of the base language; the usual ones when empty
    std::string format = "text"; ///< or "json", "sarif"
    strictness measure;
};

/// Checks all files of the paths and writes the findings to `out`, how many there are and which files cannot
/// be read to `log`. Returns the status for the program to exit with; throws `command_failure`.
int run_lint(lint_options const & options, output const & out, output const & log);

} // namespace fl::tool::lint
