#pragma once

#include <CLI/CLI.hpp>

namespace fl::tool {

/// Adds the command "lookup" to the program; it sets `status` when it runs.
void add_lookup_command(CLI::App & program, int & status);

} // namespace fl::tool
