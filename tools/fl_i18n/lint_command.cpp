#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/lint/linter.hpp"
#include "tools/fl_i18n/lint/rules.hpp"
#include "tools/fl_i18n/locale_facts.hpp"

#include <CLI/CLI.hpp>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <string>
#include <vector>

namespace fl::tool {

namespace {

std::string check_rule(std::string const & name) {
    return lint::find_rule(name) != nullptr ? std::string()
                                            : "there is no rule \"" + name + "\"; see --rules";
}

std::string list_rules() {
    constexpr std::size_t name_width = 21;
    std::string list;
    for (lint::rule const & each : lint::all_rules()) {
        std::string const name(each.name);
        std::string const level(to_string(each.usual_severity));
        list += name + std::string(name_width - name.size(), ' ') + level +
                std::string(sizeof "warning" + 1 - level.size(), ' ') + std::string(each.meaning) + "\n";
    }
    return list;
}

int run(lint::lint_options const & options, std::vector<std::string> const & disabled, bool rules_wanted) {
    if (rules_wanted) {
        print(list_rules());
        return exit_good;
    }
    if (options.paths.empty()) {
        throw command_failure(exit_usage, "lint needs a path; see fl-i18n lint --help");
    }
    lint::lint_options complete = options;
    complete.measure.disabled.insert(disabled.begin(), disabled.end());
    return run_lint(complete, print,
                    [](std::string_view text) { write(stderr, i18n::utf8_to_ustring(std::string(text))); });
}

} // namespace

void add_lint_command(CLI::App & program, int & status) {
    auto const options = std::make_shared<lint::lint_options>();
    auto const disabled = std::make_shared<std::vector<std::string>>();
    auto const rules_wanted = std::make_shared<bool>(false);
    CLI::App * const command =
        program.add_subcommand("lint", "Find faults in catalogs, locale databases and catalog maps");
    command->add_option("path", options->paths, "Files, and directories with all XML files below them")
        ->check(check_file_name)
        ->option_text("PATH ...");
    command
        ->add_option(
            "--base", options->base,
            "Locale to compare the others with; by default en_US_POSIX, en_US or en, as there is one")
        ->check(check_locale_name)
        ->option_text("LOCALE");
    command->add_option("--format", options->format, "Form of the findings: text, json or sarif")
        ->check(CLI::IsMember({"text", "json", "sarif"}))
        ->option_text("FORMAT");
    command->add_flag("--werror", options->measure.warnings_are_errors, "Report warnings as errors");
    command->add_option("--disable", *disabled, "Rule to leave out")
        ->allow_extra_args(false)
        ->check(check_rule)
        ->option_text("RULE ...");
    command->add_flag("--rules", *rules_wanted,
                      "List the rules, with severity and meaning, and do nothing else");
    command->footer(
        "A file below a directory \"resources\" is the catalog that its path says:\n"
        "resources/app/ja/ui/main.xml is app:ui:main in ja. It is compared with the file of the base "
        "language.\n"
        "Any other file stands for itself. Locale databases and catalog maps are known by their root "
        "element.\n\n"
        "Findings are lines FILE:LINE:COLUMN: SEVERITY: TEXT [RULE]; columns count characters. An error "
        "makes the\n"
        "library refuse or lose something. The form json is one object: \"findings\", each with \"file\", "
        "\"line\",\n"
        "\"column\", \"severity\", \"rule\", \"text\", and where they apply \"mend\" (\"text\" goes in the "
        "place of all\n"
        "from there up to \"endLine\" and \"endColumn\") and \"first\" (the \"line\" and \"column\" of what "
        "is\n"
        "repeated); then \"errors\", \"warnings\" and \"files\", their numbers.\n\n"
        "Examples:\n"
        "  fl-i18n lint /opt/app\n"
        "  fl-i18n lint resources/app --base de --disable same-as-base --disable plural-categories\n"
        "  fl-i18n lint resources --format sarif --werror > findings.sarif\n"
        "  fl-i18n lint lcdata.xml\n\n"
        "Exit status: 0 nothing found, 1 something found, 2 wrong usage, 3 a file or directory cannot be "
        "read.");
    command->callback([=, &status] { status = run(*options, *disabled, *rules_wanted); });
}

} // namespace fl::tool
