#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/doctor.hpp"
#include "tools/fl_i18n/files.hpp"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

namespace fl::tool {

namespace {

void run(std::vector<std::string> const & roots, int & status) {
    diagnosis const result = diagnose(roots);
    std::string text = to_text(result.facts) + "\n";
    text += result.problems.empty() ? "no problems found\n" : "problems found:\n";
    for (std::string const & problem : result.problems) {
        text += "- " + problem + "\n";
    }
    print(text);
    status = result.problems.empty() ? exit_good : exit_findings;
}

} // namespace

void add_doctor_command(CLI::App & program, int & status) {
    auto const roots = std::make_shared<std::vector<std::string>>();
    CLI::App * const command =
        program.add_subcommand("doctor", "Look at the installation and the settings, and tell what is wrong");
    command
        ->add_option("--root", *roots,
                     "Directory with a directory \"resources\"; by default that of the installation")
        ->allow_extra_args(false)
        ->check(check_file_name)
        ->option_text("DIR ...");
    command->footer(
        "Prints the versions, paths, environment variables, events of the start-up, locales and catalogs,\n"
        "and then the problems, each with what to do. The output is fit for a report of a fault.\n\n"
        "Examples:\n"
        "  fl-i18n doctor\n"
        "  fl-i18n doctor --root /opt/app\n\n"
        "Exit status: 0 no problems, 1 problems found, 2 wrong usage, 3 input or output failed.");
    command->callback([roots, &status] { run(*roots, status); });
}

} // namespace fl::tool
