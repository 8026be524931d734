#include "tools/fl_i18n/byte_streams.hpp"
#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/convert.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/progress.hpp"

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <fl/i18n/ustring.hpp>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace fl::tool {

namespace {

constexpr std::size_t piece_size = 65536;
constexpr std::uint64_t most_listed = 20;

struct convert_options {
    std::string from;
    std::string to;
    std::string on_error = "stop";
    std::string file;
    std::string output;
    bool all = false;
};

struct escape_kind {
    char const * name;
    char const * letter;
};

/// The names of the library's call-back modes, and the option letters that these stand for.
constexpr std::array<escape_kind, 7> escape_kinds = {{{"icu", ""},
                                                      {"java", "J"},
                                                      {"c", "C"},
                                                      {"xml-decimal", "D"},
                                                      {"xml-hex", "X"},
                                                      {"unicode", "U"},
                                                      {"css2", "S"}}};

std::optional<loss_handling> to_handling(std::string const & text) {
    using kind = loss_handling::kind;
    if (text == "stop") {
        return loss_handling{kind::stop, {}};
    }
    if (text == "substitute") {
        return loss_handling{kind::substitute, {}};
    }
    for (escape_kind const & each : escape_kinds) {
        if (text == std::string("escape=") + each.name) {
            return loss_handling{kind::escape, each.letter};
        }
    }
    return std::nullopt;
}

std::string check_handling(std::string const & text) {
    return to_handling(text) ? std::string() : "\"" + text + "\" is none of stop, substitute, escape=KIND";
}

std::string hexadecimal(std::string const & bytes) {
    std::string text;
    for (char const byte : bytes) {
        std::array<char, 4> digits{};
        std::snprintf(digits.data(), digits.size(), "%02X", static_cast<unsigned char>(byte));
        text += (text.empty() ? "" : " ") + std::string(digits.data());
    }
    return text;
}

std::string name_of(char32_t character) {
    std::array<char, 16> name{};
    std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned>(character));
    return name.data();
}

std::string describe(conversion_loss const & loss, convert_options const & options) {
    std::string const place = (options.file.empty() ? "standard input" : options.file) + ":" +
                              std::to_string(loss.line) + ": byte " + std::to_string(loss.offset);
    return place + ": " +
           (loss.bytes.empty() ? name_of(loss.character) + " is not in " + options.to
                               : hexadecimal(loss.bytes) + " is malformed in " + options.from);
}

void say(std::string const & line) {
    write(stderr, i18n::utf8_to_ustring(line + "\n"));
}

void transfer(byte_source & source, byte_sink & sink, encoding_conversion & conversion, progress & shown) {
    for (bool last = false; !last && !conversion.stopped();) {
        std::string const piece = source.read(piece_size);
        last = piece.size() < piece_size;
        sink.write(conversion.convert(piece, last));
        shown.advance();
    }
}

void run(convert_options const & options, int & status) {
    std::optional<progress> shown;
    std::uint64_t losses = 0;
    encoding_conversion conversion(options.from, options.to, *to_handling(options.on_error),
                                   [&](conversion_loss const & loss) {
                                       if (++losses <= most_listed || options.all) {
                                           shown->hide();
                                           say(describe(loss, options));
                                       }
                                   });
    byte_source source(options.file);
    byte_sink sink(options.output);
    std::uint64_t const size = source.size();
    shown.emplace("converting " + source.display_name() + ", piece", size > 0 ? size / piece_size + 1 : 0);
    transfer(source, sink, conversion, *shown);
    shown.reset();
    if (losses > most_listed && !options.all) {
        say("and " + std::to_string(losses - most_listed) + " more; --all lists them");
    }
    if (conversion.stopped()) {
        throw command_failure(exit_findings,
                              "stopped at what cannot be converted" +
                                  (options.output.empty() ? "" : "; " + options.output + " was not written"));
    }
    sink.finish();
    if (losses > 0) {
        say(std::to_string(losses) + (losses == 1 ? " loss" : " losses"));
        status = exit_findings;
    }
}

} // namespace

void add_convert_command(CLI::App & program, int & status) {
    auto const options = std::make_shared<convert_options>();
    CLI::App * const command = program.add_subcommand("convert", "Convert a text between encodings");
    command->add_option("--from", options->from, "Encoding of the input")
        ->required()
        ->option_text("ENCODING");
    command->add_option("--to", options->to, "Encoding of the output")->required()->option_text("ENCODING");
    command
        ->add_option("--on-error", options->on_error,
                     "What becomes of what cannot be converted: stop (default), substitute, escape=KIND")
        ->check(check_handling)
        ->option_text("HOW");
    command->add_option("file", options->file, "Input; by default standard input")
        ->check(check_file_name)
        ->option_text("FILE");
    command->add_option("--output", options->output, "File to write; by default standard output")
        ->check(check_file_name)
        ->option_text("FILE");
    command->add_flag("--all", options->all, "List every loss, not only the first 20");
    command->footer(
        "KIND is icu, java, c, xml-decimal, xml-hex, unicode or css2. Malformed bytes become U+FFFD first.\n"
        "Every loss is listed with its line, the offset of its first byte in the input and what it is. An "
        "output\n"
        "file is written whole or not at all.\n\n"
        "Examples:\n"
        "  fl-i18n convert --from Shift_JIS --to UTF-8 old.txt --output new.txt\n"
        "  fl-i18n convert --from UTF-8 --to US-ASCII --on-error escape=xml-hex < page.html\n\n"
        "Exit status: 0 everything converted, 1 something lost, 2 wrong usage, 3 input or output failed.");
    command->callback([options, &status] { run(*options, status); });
}

} // namespace fl::tool
