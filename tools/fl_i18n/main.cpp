#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/exit_status.hpp"
#include "tools/fl_i18n/lookup_command.hpp"

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
    add_lookup_command(program, status);
    // The parser takes its arguments in reverse.
    std::reverse(arguments.begin(), arguments.end());
    try {
        program.parse(std::move(arguments));
        return status;
    } catch (CLI::ParseError const & outcome) {
        std::ostringstream output;
        std::ostringstream errors;
        bool const failed = program.exit(outcome, output, errors) != 0;
        write(stdout, i18n::utf8_to_ustring(output.str()));
        write(stderr, i18n::utf8_to_ustring(errors.str()));
        return failed ? exit_usage : exit_good;
    }
}

} // namespace

} // namespace fl::tool

int main(int argc, char ** argv) {
    try {
        return fl::tool::run(fl::tool::program_arguments(argc, argv));
    } catch (std::exception const & failure) {
        fl::tool::write(stderr, fl::i18n::utf8_to_ustring(std::string("fl-i18n: ") + failure.what() + "\n"));
        return fl::tool::exit_input_output;
    }
}
