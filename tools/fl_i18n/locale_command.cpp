#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/locale_facts.hpp"

#include <CLI/CLI.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <memory>
#include <optional>
#include <string>

namespace fl::tool {

namespace {

void run(std::optional<std::string> const & name) {
    if (name) {
        print(to_text(describe_locale(*i18n::QzLocale::createLocale(*name))));
        return;
    }
    std::vector<fact> facts = describe_locale(i18n::QzLocale::global());
    for (auto const & [setting, value] : i18n::QzLcUtil::getLocaleInformation()) {
        facts.push_back({"system setting", setting + ": " + (value.empty() ? "-" : value), {}});
    }
    print(to_text(facts));
}

} // namespace

void add_locale_command(CLI::App & program) {
    auto const name = std::make_shared<std::optional<std::string>>();
    CLI::App * const command = program.add_subcommand("locale", "Print what a locale means, and why");
    command->add_option("name", *name, "Locale; by default that of the system")
        ->check(check_locale_name)
        ->option_text("NAME");
    command->footer(
        "Prints the locale name of each category, the encodings, the order in which message catalogs are\n"
        "looked for and, in parentheses, where each comes from.\n\n"
        "Examples:\n"
        "  fl-i18n locale\n"
        "  fl-i18n locale ja_JP.eucJP\n\n"
        "Exit status: 0 printed, 2 wrong usage, 3 output failed.");
    command->callback([name] { run(*name); });
}

} // namespace fl::tool
