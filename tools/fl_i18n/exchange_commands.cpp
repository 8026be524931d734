#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/exchange/exchange_file.hpp"
#include "tools/fl_i18n/files.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fl/i18n/ustring.hpp>
#include <iterator>
#include <memory>
#include <utility>

namespace fl::tool {

namespace {

struct import_options {
    std::string file;
    std::string output;
    std::optional<std::string> locale;
};

struct export_options {
    std::string file;
    std::string output;
    std::string format;
    std::string base;
    std::string source_locale;
    bool is_template = false;
};

void tell(std::string const & line) {
    write(stderr, i18n::utf8_to_ustring(line + "\n"));
}

void summarize(std::string const & file, exchange_counts const & counts) {
    tell(file + ": " + std::to_string(counts.messages) + " messages, " + std::to_string(counts.untranslated) +
         " untranslated, " + std::to_string(counts.fuzzy) + " fuzzy");
}

void run(import_options const & options) {
    std::vector<std::string> left_out;
    catalog const result = import_file(options.file, read_file(options.file), options.locale, left_out);
    write_file(options.output, write_catalog(result));
    for (std::string const & part : left_out) {
        tell(options.file + ": left out: " + part);
    }
    summarize(options.output, count(result));
}

std::string last_element(std::string const & name) {
    return to_name(to_path(name).filename());
}

catalog load(std::string const & file) {
    catalog result = read_good_catalog(file);
    check_keys(file, result);
    return result;
}

constexpr std::pair<std::string_view, exchange_format> formats[] = {
    {"po", exchange_format::po}, {"xliff1", exchange_format::xliff1}, {"xliff2", exchange_format::xliff2}};

/// Returns the format asked for, else the one that the output's name ends in, if it does.
std::optional<exchange_format> format_of(export_options const & options, catalog const & contents) {
    std::string const & name = options.output;
    for (auto const & [known, format] : formats) {
        if (options.format == known) {
            return format;
        }
    }
    if (name.ends_with(".po") || name.ends_with(".pot")) {
        return exchange_format::po;
    }
    if (name.ends_with(".xlf") || name.ends_with(".xliff")) {
        return is_foreign(contents, exchange_format::xliff2) ? exchange_format::xliff2
                                                             : exchange_format::xliff1;
    }
    return std::nullopt;
}

void run(export_options const & options) {
    catalog const contents = load(options.file);
    auto const format = format_of(options, contents);
    if (!format) {
        throw CLI::ValidationError("--output",
                                   "its name tells no format: name it .po, .pot or .xlf, or give --format");
    }
    export_settings settings;
    settings.is_template = options.is_template || options.output.ends_with(".pot");
    bool const is_any_foreign = std::any_of(std::begin(formats), std::end(formats), [&](auto const & each) {
        return is_foreign(contents, each.second);
    });
    if (is_any_foreign && !options.base.empty()) {
        throw command_failure(exit_usage,
                              "the catalog was made from a file of translators and has its own originals");
    }
    bool const is_xliff =
        is_foreign(contents, exchange_format::xliff1) || is_foreign(contents, exchange_format::xliff2);
    if (is_xliff && !is_foreign(contents, *format)) {
        throw command_failure(exit_usage,
                              "the catalog was made from an XLIFF file and becomes only that again: "
                              "name the output .xlf, without --format");
    }
    if (is_foreign(contents, *format) && settings.is_template) {
        throw command_failure(exit_usage,
                              "the catalog was made from a file of this format and becomes that again, with "
                              "its own originals and translations");
    }
    catalog const base = options.base.empty() ? catalog() : load(options.base);
    settings.base = options.base.empty() ? nullptr : &base;
    settings.source_locale = options.source_locale;
    write_file(options.output, export_file(contents, settings, *format, last_element(options.file)));
    exchange_counts counts = count(contents);
    for (entry_pair const & pair : pair_entries(contents, settings.base)) {
        counts.messages += pair.entry == nullptr;
        counts.untranslated += pair.entry == nullptr;
    }
    if (settings.is_template) {
        counts.untranslated = counts.messages;
        counts.fuzzy = 0;
    }
    summarize(options.output, counts);
}

} // namespace

void add_import_command(CLI::App & program) {
    auto const options = std::make_shared<import_options>();
    CLI::App * const command =
        program.add_subcommand("import", "Make a catalog from a translators' file, PO or XLIFF");
    command->add_option("file", options->file, "PO file, or XLIFF file of version 1.2 or 2.0")
        ->required()
        ->check(check_file_name)
        ->option_text("FILE");
    command->add_option("--output", options->output, "Catalog to write")
        ->required()
        ->check(check_file_name)
        ->option_text("CATALOG");
    command
        ->add_option("--locale", options->locale,
                     "Locale of the catalog; by default the one that the file names")
        ->option_text("NAME");
    command->footer(
        "A file that \"fl-i18n export\" has made gives its catalog again, with the texts as they are now. A "
        "message\n"
        "without translation is left out of it; of one that is marked as fuzzy the catalog shows the "
        "original text.\n\n"
        "Messages of any other PO file get keys: the beginning of the original text and a hash of it and its "
        "context,\n"
        "the same in every language. What else the file holds stands in attributes x:... of the catalog, "
        "which the\n"
        "loader ignores, and \"fl-i18n export\" makes the same PO file of it. Untranslated and fuzzy "
        "messages show\n"
        "their original text until that is changed in the catalog. A message with plural forms becomes an "
        "entry for\n"
        "each (KEY_0, KEY_1 ...): plurals within one text are chosen by the rule of English.\n\n"
        "Any other XLIFF file is kept in such attributes as it is, between its translations.\n\n"
        "Examples:\n"
        "  fl-i18n import ja.po --output resources/app/ja/ui.xml\n"
        "  fl-i18n import ui_fr.xlf --output resources/app/fr_CA/ui.xml --locale fr_CA\n\n"
        "Exit status: 0 done, 2 wrong usage, 3 a file cannot be read, is malformed or cannot be written.");
    command->callback([options] { run(*options); });
}

void add_export_command(CLI::App & program) {
    auto const options = std::make_shared<export_options>();
    CLI::App * const command =
        program.add_subcommand("export", "Make a translators' file, PO or XLIFF, from a catalog");
    command->add_option("catalog", options->file, "Catalog file")
        ->required()
        ->check(check_file_name)
        ->option_text("CATALOG");
    command
        ->add_option(
            "--output", options->output,
            "File to write; its ending tells the format: .po, .pot (without translations), .xlf (XLIFF 1.2)")
        ->required()
        ->check(check_file_name)
        ->option_text("FILE");
    command->add_option("--format", options->format, "Format, whatever the ending")
        ->check(CLI::IsMember({"po", "xliff1", "xliff2"}))
        ->option_text("po|xliff1|xliff2");
    command
        ->add_option(
            "--base", options->base,
            "Catalog of the original language: its texts are the originals, its comments the notes, and what "
            "it alone has is to be translated; by default the catalog itself")
        ->option_text("CATALOG");
    command
        ->add_option("--source-locale", options->source_locale,
                     "Original language in XLIFF; by default the base's")
        ->option_text("NAME");
    command->add_flag("--template", options->is_template, "Leave the translations out");
    command->footer(
        "Each message has its key as context (PO) or name (XLIFF). Plain holes, {0} or {name}, are "
        "protected: PO gets\n"
        "the flag python-brace-format, by which \"msgfmt -c\" compares them; XLIFF has placeholders for all "
        "holes but\n"
        "plurals and choices. A catalog that was made from a PO or XLIFF file of others becomes that file "
        "again.\n\n"
        "Examples:\n"
        "  fl-i18n export resources/app/ja/ui.xml --base resources/app/en/ui.xml --output ja.po\n"
        "  fl-i18n export resources/app/en/ui.xml --output ui.pot\n"
        "  fl-i18n export resources/app/ja/ui.xml --base resources/app/en/ui.xml --format xliff2 --output "
        "ja.xlf\n\n"
        "Exit status: 0 done, 2 wrong usage, 3 a file cannot be read, is malformed or cannot be written.");
    command->callback([options] { run(*options); });
}

} // namespace fl::tool
