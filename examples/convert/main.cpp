// Converts text files from one encoding to another, or shows them on the terminal. See usage below.

#include "texts.hpp"

#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/ustring.hpp>

#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <variant>
#include <vector>

using namespace fl::i18n;

namespace {

constexpr char usage[] = "usage: convert [--from ENCODING] [--to ENCODING] [--on-error MODE] INPUT [OUTPUT]\n"
                         "       convert --encodings [NAME]...\n\n"
                         "Without OUTPUT the text is shown on the terminal. Without ENCODING it is that of "
                         "the process. MODE is for\n"
                         "what cannot be converted: stop (the default), substitute, or for characters that "
                         "ENCODING lacks question,\n"
                         "xml, xml-hex, java, c, css or unicode.\n";

std::map<std::string, codecvt_call_back_mode> const modes = {
    {"stop", call_back_stop},
    {"substitute", call_back_default}, // as each encoding has it by default
    {"question", call_back_substitute},
    {"xml", call_back_escape_xml_dec},
    {"xml-hex", call_back_escape_xml_hex},
    {"java", call_back_escape_java},
    {"c", call_back_escape_c},
    {"css", call_back_escape_css2},
    {"unicode", call_back_escape_unicode},
};

struct job {
    std::string from; // an empty name is the process encoding
    std::string to;
    codecvt_call_back_mode mode = call_back_stop;
    std::vector<std::string> files;
};

/// Reads the command line; nothing when it is wrong.
std::optional<job> parse(std::vector<std::string> const & arguments) {
    job result;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        bool const is_option = arguments[i].starts_with("--");
        std::string const value = is_option && i + 1 < arguments.size() ? arguments[i + 1] : std::string();
        if (!is_option) {
            result.files.push_back(arguments[i]);
            continue;
        } else if (arguments[i] == "--from" && !value.empty()) {
            result.from = value;
        } else if (arguments[i] == "--to" && !value.empty()) {
            result.to = value;
        } else if (arguments[i] == "--on-error" && modes.contains(value)) {
            result.mode = modes.at(value);
        } else {
            return std::nullopt;
        }
        ++i;
    }
    return result.files.size() == 1 || result.files.size() == 2 ? std::optional(result) : std::nullopt;
}

/// Tells whether two names, in the process encoding, are those of one file. The second may not be there yet.
bool name_one_file(std::string const & first, std::string const & second) {
    std::error_code ignored;
    return std::filesystem::equivalent(to_ustring(first), to_ustring(second), ignored);
}

void convert(job const & what) {
    auto const input = texts::open(what.files[0], "rb");
    bool const lenient = what.mode != call_back_stop;
    if (what.files.size() == 1) {
        // The terminal's converters substitute what the terminal cannot show.
        auto const to_terminal = create_codecvt_ustring_to_terminal_output();
        texts::reader reader(input.get(), what.from, lenient, texts::has_plain_lines(what.from));
        for (ustring piece = reader.next(); !piece.empty(); piece = reader.next()) {
            std::cout << to_string(piece, *to_terminal);
        }
        return;
    }
    bool const by_lines = texts::has_plain_lines(what.from) && texts::has_plain_lines(what.to);
    texts::reader reader(input.get(), what.from, lenient, by_lines);
    if (name_one_file(what.files[0], what.files[1])) {
        throw std::runtime_error("the output is the input");
    }
    auto const output = texts::open(what.files[1], "wb");
    texts::writer writer(output.get(), what.to, what.mode);
    for (ustring piece = reader.next(); !piece.empty(); piece = reader.next()) {
        writer.write(piece);
    }
    writer.flush();
}

/// Prints the encodings in use.
void print_encodings() {
    QzLocale const & locale = QzLocale::global();
    auto const terminal = [&](LcOptDataType item) { return std::get<std::string>(locale.getOptData(item)); };
    std::cout << "process: " << locale.getEncoding()
              << "\nterminal input: " << terminal(LcOptDataType::terminputencoding)
              << "\nterminal output: " << terminal(LcOptDataType::termoutputencoding) << '\n';
}

/// Prints the standard names of encodings.
void print_standard_names(std::vector<std::string> const & names) {
    for (std::string const & name : names) {
        std::string const standard = get_standard_encoding_name(name);
        std::cout << name << ": " << (standard.empty() ? "unknown" : standard) << '\n';
    }
}

int run(std::vector<std::string> const & arguments) {
    if (!arguments.empty() && arguments[0] == "--encodings") {
        arguments.size() == 1 ? print_encodings()
                              : print_standard_names({arguments.begin() + 1, arguments.end()});
        return 0;
    }
    auto const what = parse(arguments);
    if (!what) {
        std::cerr << usage;
        return 2;
    }
    convert(*what);
    if (!std::cout.flush()) {
        throw std::runtime_error("the text cannot be shown");
    }
    return 0;
}

} // namespace

int main(int argc, char ** argv) {
    std::vector<std::string> const arguments(argv + 1, argv + argc);
    try {
        return run(arguments);
    } catch (CvtInvalidEncodingName const & failure) {
        std::cerr << "convert: there is no encoding " << failure.getEncoding() << '\n';
    } catch (std::exception const & failure) {
        std::cerr << "convert: " << failure.what() << '\n';
    }
    return 1;
}
