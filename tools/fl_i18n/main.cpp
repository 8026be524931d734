#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/console.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <fl/i18n/ustring.hpp>
#include <sstream>

namespace fl::tool {

namespace {

int run(std::vector<std::string> arguments) {
    int status = exit_good;
    CLI::App program("Tools for localised messages", "fl-i18n");
    program.set_version_flag("--version", FL_I18N_VERSION);
    program.require_subcommand(1);
    // A name that begins with a slash is a path.
    program.allow_windows_style_options(false);
    add_convert_command(program, status);
    add_coverage_command(program, status);
    add_doctor_command(program, status);
    add_export_command(program);
    add_import_command(program);
    add_lint_command(program, status);
    add_locale_command(program);
    add_lookup_command(program);
    add_pseudo_command(program);
    // The parser would only say that a command is missing.
    auto const is_named = [&](CLI::App const * command) { return command->get_name() == arguments.front(); };
    if (!arguments.empty() && !arguments.front().starts_with('-') &&
        program.get_subcommands(is_named).empty()) {
        throw command_failure(exit_usage,
                              "there is no command \"" + arguments.front() + "\"; see fl-i18n --help");
    }
    // The parser takes its arguments in reverse.
    std::reverse(arguments.begin(), arguments.end());
    try {
        program.parse(std::move(arguments));
        return status;
    } catch (CLI::ParseError const & outcome) {
        std::ostringstream output;
        std::ostringstream errors;
        bool const failed = program.exit(outcome, output, errors) != 0;
        print(output.str());
        write(stderr, i18n::utf8_to_ustring(errors.str()));
        return failed ? exit_usage : exit_good;
    }
}

} // namespace

} // namespace fl::tool

int main(int argc, char ** argv) {
    using namespace fl::tool;
    auto const report = [](std::exception const & failure) {
        write(stderr, fl::i18n::utf8_to_ustring(std::string("fl-i18n: ") + failure.what() + "\n"));
    };
    try {
        return run(program_arguments(argc, argv));
    } catch (command_failure const & failure) {
        report(failure);
        return failure.status();
    } catch (std::exception const & failure) {
        report(failure);
        return exit_input_output;
    }
}
