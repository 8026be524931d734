#pragma once

namespace CLI {
class App;
} // namespace CLI

/// The commands of the program. Each function adds one with its options and what runs when it is named.
///
/// A command that fails throws `command_failure`; one whose answer can be bad sets `status`, which stays
/// `exit_good` otherwise.
namespace fl::tool {

void add_convert_command(CLI::App & program, int & status);
void add_coverage_command(CLI::App & program, int & status);
void add_doctor_command(CLI::App & program, int & status);
void add_export_command(CLI::App & program);
void add_import_command(CLI::App & program);
void add_lint_command(CLI::App & program, int & status);
void add_locale_command(CLI::App & program);
void add_lookup_command(CLI::App & program);
void add_pseudo_command(CLI::App & program);

} // namespace fl::tool
