#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/pseudo.hpp"

#include <CLI/CLI.hpp>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <string>

namespace fl::tool {

namespace {

struct pseudo_options {
    std::string file;
    std::string output;
    pseudo_style style;
};

void run(pseudo_options const & options) {
    catalog contents = read_good_catalog(options.file);
    if (std::size_t const refused = make_pseudo(contents, options.style)) {
        write(stderr, i18n::utf8_to_ustring("fl-i18n: " + options.file + ": " + std::to_string(refused) +
                                            (refused == 1
                                                 ? " text is no message pattern and stays as it is\n"
                                                 : " texts are no message patterns and stay as they are\n")));
    }
    std::string const xml = write_catalog(contents);
    if (options.output.empty()) {
        print(xml);
    } else {
        write_file(options.output, xml);
    }
}

} // namespace

void add_pseudo_command(CLI::App & program) {
    auto const options = std::make_shared<pseudo_options>();
    CLI::App * const command = program.add_subcommand("pseudo", "Write a catalog in a pseudo-language");
    command->add_option("file", options->file, "Catalog file to start from")
        ->required()
        ->check(check_file_name)
        ->option_text("FILE");
    command->add_option("--output", options->output, "File to write; by default standard output")
        ->check(check_file_name)
        ->option_text("FILE");
    command->add_flag("--rtl", options->style.right_to_left,
                      "Write from right to left (ar_XB) instead of with accents (en_XA)");
    command
        ->add_option("--expansion", options->style.expansion,
                     "How much longer texts become, in percent (default 35); short ones grow more")
        ->check(CLI::Range(0, 1000))
        ->option_text("PERCENT");
    command->footer(
        "A program that runs in a pseudo-language shows texts that are not in catalogs (they have no "
        "accents),\n"
        "windows too narrow for longer languages (the closing bracket is missing), sentences put together "
        "from\n"
        "parts (brackets inside), and with --rtl what does not heed the direction of text. Holes, plurals "
        "and\n"
        "escapes stay as they are, and so do entries with translate=\"no\".\n\n"
        "Examples:\n"
        "  fl-i18n pseudo resources/app/en_US_POSIX/ui.xml --output resources/app/en_XA/ui.xml\n"
        "  fl-i18n pseudo resources/app/en_US_POSIX/ui.xml --rtl --output resources/app/ar_XB/ui.xml\n\n"
        "Exit status: 0 written, 2 wrong usage, 3 input or output failed.");
    command->callback([options] { run(*options); });
}

} // namespace fl::tool
