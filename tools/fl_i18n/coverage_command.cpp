#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/coverage.hpp"
#include "tools/fl_i18n/files.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <string>

namespace fl::tool {

namespace {

struct coverage_options {
    std::string path;
    std::string base;
    std::string format = "text";
    bool missing = false;
};

bool is_complete(coverage const & measured) {
    return measured.problems.empty() &&
           std::all_of(measured.languages.begin(), measured.languages.end(), [](auto const & language) {
               return std::all_of(language.second.begin(), language.second.end(),
                                  [](auto const & entry) { return entry.second.missing_keys.empty(); });
           });
}

void run(coverage_options const & options, int & status) {
    coverage const measured = measure_coverage(options.path, options.base);
    print(options.format == "json" ? to_json(measured, options.missing) : to_text(measured, options.missing));
    for (std::string const & problem : measured.problems) {
        write(stderr, i18n::utf8_to_ustring("fl-i18n: " + problem + "\n"));
    }
    status = is_complete(measured) ? exit_good : exit_findings;
}

} // namespace

void add_coverage_command(CLI::App & program, int & status) {
    auto const options = std::make_shared<coverage_options>();
    CLI::App * const command =
        program.add_subcommand("coverage", "Tell how much of the catalogs is translated");
    command->add_option("path", options->path, "Directory with a directory \"resources\", or that directory")
        ->required()
        ->check(check_file_name)
        ->option_text("PATH");
    command
        ->add_option(
            "--base", options->base,
            "Language to compare with; by default en_US_POSIX, else en_US, else en, for each catalog")
        ->option_text("LOCALE");
    command->add_flag("--missing", options->missing, "List the messages that are missing");
    command->add_option("--format", options->format, "Format of the output: text (default) or json")
        ->check(CLI::IsMember({"text", "json"}))
        ->option_text("FORMAT");
    command->footer(
        "A message is translated when the language has a text for it that is not the base language's own; "
        "such\n"
        "texts are counted apart, since a name or an \"OK\" may well stay as it is.\n\n"
        "Examples:\n"
        "  fl-i18n coverage /opt/app\n"
        "  fl-i18n coverage resources --base de --missing\n"
        "  fl-i18n coverage resources --format json\n\n"
        "Exit status: 0 nothing missing, 1 something missing, 2 wrong usage, 3 input or output failed.");
    command->callback([options, &status] { run(*options, status); });
}

} // namespace fl::tool
