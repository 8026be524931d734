#include "foundation/ascii.hpp"
#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/exchange/po_file.hpp"

#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>

namespace fl::tool {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::string_view charset = "charset=";

/// Returns the encoding that the header names; UTF-8 for a file without one and for a template's placeholder.
std::string named_encoding(std::string_view bytes) {
    std::size_t const begin = bytes.find(charset);
    if (begin == std::string_view::npos) {
        return "UTF-8";
    }
    std::string_view const rest = bytes.substr(begin + charset.size());
    std::string_view const name = rest.substr(0, rest.find_first_of("\\\" \t\r\n;"));
    return name.empty() || name == "CHARSET" ? "UTF-8" : std::string(name);
}

/// Returns the number of the first line that cannot be decoded.
std::size_t malformed_line(i18n::codecvt_string_to_ustring & converter, std::string const & bytes) {
    std::size_t number = 1;
    for (std::size_t begin = 0; begin < bytes.size(); ++number) {
        std::size_t const end = std::min(bytes.find('\n', begin), bytes.size());
        try {
            converter.convert(bytes.substr(begin, end - begin));
        } catch (i18n::CvtExceptionBase const &) {
            break;
        }
        begin = end + 1;
    }
    return number;
}

} // namespace

std::string decode_po(std::string const & name, std::string bytes, std::string & encoding) {
    bytes.erase(0, bytes.starts_with(byte_order_mark) ? byte_order_mark.size() : 0);
    encoding = named_encoding(bytes);
    try {
        i18n::codecvt_string_to_ustring converter(encoding, false);
        try {
            return i18n::ustring_to_utf8(converter.convert(bytes));
        } catch (i18n::CvtExceptionBase const &) {
            throw command_failure(exit_input_output,
                                  name + ":" + std::to_string(malformed_line(converter, bytes)) +
                                      ":1: the line is not valid in the file's encoding " + encoding);
        }
    } catch (i18n::CvtInvalidEncodingName const &) {
        throw command_failure(exit_input_output, name + ": the encoding " + encoding + " is not known");
    }
}

std::string write_po(po_file const & file) {
    std::string text = write_messages(file.messages);
    if (!text.empty() && !file.last_lines.empty()) {
        text += "\n";
    }
    for (std::string const & line : file.last_lines) {
        text += line + "\n";
    }
    std::string const encoding = named_encoding(text);
    if (ascii::equal_ignoring_case(encoding, "UTF-8")) {
        return text;
    }
    try {
        i18n::codecvt_ustring_to_string converter(encoding, false);
        return converter.convert(i18n::utf8_to_ustring(text));
    } catch (i18n::CvtExceptionBase const &) {
        throw command_failure(exit_input_output, "a text cannot be written in the encoding " + encoding +
                                                     " that the header names; make that UTF-8");
    }
}

} // namespace fl::tool
