#pragma once

#include "tools/fl_i18n/facts.hpp"

#include <map>
#include <string>
#include <vector>

/// A look at everything that the library needs.
namespace fl::tool {

struct diagnosis {
    std::vector<fact> facts;
    /// Sentences that say what is wrong and what to do.
    std::vector<std::string> problems;
};

/// The library's environment variables that are set, by name, in UTF-8.
using variables = std::map<std::string, std::string>;

/// Looks at the versions of what the library runs on.
void examine_versions(diagnosis & result);
/// Looks at the library's environment variables.
void examine_variables(variables const & set, diagnosis & result);
/// Looks at the start-up of the locale management, its database and its events.
void examine_start_up(diagnosis & result);
/// Looks at the global and the system locale and at the encodings.
void examine_locales(diagnosis & result);
/// Looks at a directory that is to have catalogs.
void examine_root(std::string const & root, diagnosis & result);

/// Returns the variables as the process has them.
variables read_variables();

/// Looks at everything: below the roots or, without any, below the library's installation.
diagnosis diagnose(std::vector<std::string> const & roots);

} // namespace fl::tool
