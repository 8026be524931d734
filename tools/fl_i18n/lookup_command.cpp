#include "tools/fl_i18n/commands.hpp"

#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/explanation.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/locale_facts.hpp"

#include <CLI/CLI.hpp>
#include <charconv>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/lookup_report.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace fl::tool {

namespace {

using i18n::MessageCatalog;

struct lookup_options {
    std::string id;
    std::optional<std::string> locale;
    std::vector<std::string> roots;
    std::vector<std::string> arguments;
    bool explain = false;
};

template <class Number>
std::optional<Number> to_number(std::string const & text) {
    Number number{};
    char const * const end = text.data() + text.size();
    auto const result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

/// Reads "s:TEXT", "i:N" or "d:X"; nothing for anything else.
std::optional<MessageCatalog::Argument> to_argument(std::string const & text) {
    std::string const kind = text.substr(0, 2);
    std::string const value = text.size() > 2 ? text.substr(2) : std::string();
    if (kind == "s:") {
        return MessageCatalog::Argument(value);
    }
    if (kind == "i:") {
        auto const number = to_number<std::int64_t>(value);
        return number ? std::optional<MessageCatalog::Argument>(*number) : std::nullopt;
    }
    if (kind == "d:") {
        auto const number = to_number<double>(value);
        return number ? std::optional<MessageCatalog::Argument>(*number) : std::nullopt;
    }
    return std::nullopt;
}

std::string check_argument(std::string const & text) {
    return to_argument(text) ? std::string() : "\"" + text + "\" is none of s:TEXT, i:INTEGER, d:NUMBER";
}

std::string check_id(std::string const & id) {
    try {
        i18n::MessageID{id};
        return {};
    } catch (i18n::MessageID::badMessageIDException const &) {
        return "\"" + id + "\" is no message identifier, such as fl:i18n:QzLcInvLcName";
    }
}

void run(lookup_options const & options) {
    if (!options.roots.empty()) {
        std::vector<i18n::ustring> roots;
        for (std::string const & root : options.roots) {
            roots.push_back(i18n::utf8_to_ustring(root));
        }
        try {
            MessageCatalog::MessageCatalogInit(roots);
        } catch (MessageCatalog::MessageCatalogIncorrectRoot const & failure) {
            throw command_failure(exit_input_output,
                                  std::string(failure.what()) + ": no root has a directory \"resources\"");
        }
    }
    std::vector<MessageCatalog::Argument> arguments;
    for (std::string const & text : options.arguments) {
        arguments.push_back(*to_argument(text));
    }
    auto const locale = options.locale ? i18n::QzLocale::createLocale(*options.locale)
                                       : i18n::QzLocale::createLocale(i18n::QzLocale::global());
    i18n::LookupReport const report = i18n::explain_lookup(options.id, *locale, arguments, std::nullopt);
    bool const done = report.step == i18n::LookupStep::done;
    if (options.explain) {
        print(i18n::ustring_to_utf8(explain(report)));
    } else if (done) {
        print(i18n::ustring_to_utf8(report.text + u"\n"));
    }
    if (!done) {
        throw command_failure(exit_findings, report.error);
    }
}

} // namespace

void add_lookup_command(CLI::App & program) {
    auto const options = std::make_shared<lookup_options>();
    CLI::App * const command = program.add_subcommand("lookup", "Print the text of a message");
    command
        ->add_option("id", options->id, "Message identifier: component, sub-components and key, with colons")
        ->required()
        ->check(check_id)
        ->option_text("ID");
    command->add_option("--locale", options->locale, "Locale; by default that of the system")
        ->check(check_locale_name)
        ->option_text("NAME");
    command
        ->add_option("--root", options->roots,
                     "Directory with a directory \"resources\"; by default that of the installation")
        ->allow_extra_args(false)
        ->check(check_file_name)
        ->option_text("DIR ...");
    command
        ->add_option("--arg", options->arguments,
                     "Argument for the next hole: text, integer or floating-point number")
        ->allow_extra_args(false)
        ->check(check_argument)
        ->option_text("s:TEXT|i:N|d:X ...");
    command->add_flag("--explain", options->explain,
                      "Print how the text was found, or why not: fallbacks, files, cache, holes");
    command->footer(
        "Examples:\n"
        "  fl-i18n lookup fl:i18n:QzLcInvLcName --locale ja_JP --explain\n"
        "  fl-i18n lookup fl:i18n:LcRscOpenFileFailure --locale fr --arg s:lcdata.xml\n"
        "  fl-i18n lookup app:ui:FilesFound --root /opt/app --arg i:3\n\n"
        "Exit status: 0 found, 1 not found or not filled, 2 wrong usage, 3 input or output failed.");
    command->callback([options] { run(*options); });
}

} // namespace fl::tool
