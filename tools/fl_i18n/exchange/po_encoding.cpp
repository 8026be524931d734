#include "foundation/ascii.hpp"
#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/exchange/exchange.hpp"
#include "tools/fl_i18n/exchange/po_file.hpp"

#include <algorithm>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>

namespace fl::tool {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::string_view charset = "charset=";

/// Returns the lines of the header's translation; none for a file without header. Before it is decoded a file
/// cannot be cut into words.
std::string_view header_lines(std::string_view bytes) {
    constexpr std::string_view blanks = " \t\r";
    bool has_context = false;
    bool after_empty_id = false;
    std::size_t header = std::string_view::npos;
    for (std::size_t begin = 0; begin < bytes.size();) {
        std::size_t const end = std::min(bytes.find('\n', begin), bytes.size());
        std::string_view line = bytes.substr(begin, end - begin);
        line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
        line.remove_suffix(line.size() - std::min(line.find_last_not_of(blanks) + 1, line.size()));
        if (header != std::string_view::npos && !line.starts_with('"')) {
            return bytes.substr(header, begin - header);
        }
        if (after_empty_id && line.starts_with("msgstr")) {
            header = begin;
        }
        if (!line.empty() && !line.starts_with('#')) {
            after_empty_id = !has_context && line.starts_with("msgid") && line.ends_with("\"\"") &&
                             line.find_first_not_of(blanks, 5) + 2 == line.size();
            has_context = line.starts_with("msgctxt") || (has_context && line.starts_with('"'));
        }
        begin = end + 1;
    }
    return header != std::string_view::npos ? bytes.substr(header) : std::string_view();
}

/// Returns the encoding that the header names, a part of the bytes; UTF-8 for a file without one and for a
/// template's placeholder.
std::string_view named_encoding(std::string_view bytes) {
    std::string_view const header = header_lines(bytes);
    std::size_t const begin = header.find(charset);
    if (begin == std::string_view::npos) {
        return "UTF-8";
    }
    std::string_view const rest = header.substr(begin + charset.size());
    std::string_view const name = rest.substr(0, rest.find_first_of("\\\" \t\r\n;"));
    return name.empty() || name == "CHARSET" ? "UTF-8" : name;
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
    std::string_view const named = named_encoding(bytes);
    encoding = named;
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
        fail_at(name, bytes, static_cast<std::size_t>(named.data() - bytes.data()),
                "the encoding " + encoding + " is not known");
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
    std::string const encoding(named_encoding(text));
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
