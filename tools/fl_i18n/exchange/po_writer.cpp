#include "tools/fl_i18n/exchange/po_file.hpp"

namespace fl::tool {

namespace {

std::string escape(char c) {
    constexpr std::string_view characters = "\a\b\f\n\r\t\v\\\"";
    constexpr std::string_view letters = "abfnrtv\\\"";
    std::size_t const known = characters.find(c);
    if (known != std::string_view::npos) {
        return {'\\', letters[known]};
    }
    auto const byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte != 0x7F) {
        return {c};
    }
    auto const digit = [](unsigned value) { return static_cast<char>('0' + value); };
    return {'\\', digit(byte >> 6), digit((byte >> 3) & 7), digit(byte & 7)};
}

/// Writes the lines of messages, with their mark where they are obsolete.
class message_writer {
public:
    explicit message_writer(std::string & out, bool obsolete)
        : out_(out)
        , mark_(obsolete ? "#~ " : "") {}

    void comments(po_message const & message) {
        constexpr std::string_view marks[po_comment_kinds] = {"#", "#.", "#:", "#,", "#|"};
        for (std::size_t kind = 0; kind < po_comment_kinds; ++kind) {
            for (std::string const & line : message.comments[kind]) {
                bool const previous = kind == static_cast<std::size_t>(po_comment::previous);
                out_.append(previous && message.obsolete ? "#~|" : marks[kind]);
                out_.append(line.empty() ? "" : " ").append(line) += '\n';
            }
        }
    }

    /// Writes a text, each of its lines on one of its own.
    void text(std::string const & keyword, std::string const & text) {
        out_.append(mark_).append(keyword).append(" ");
        if (text.find('\n') < text.size() - 1) {
            out_ += "\"\"\n" + mark_;
        }
        out_ += '"';
        for (std::size_t i = 0; i < text.size(); ++i) {
            out_ += escape(text[i]);
            if (text[i] == '\n' && i + 1 < text.size()) {
                out_ += "\"\n" + mark_ + "\"";
            }
        }
        out_ += "\"\n";
    }

private:
    std::string & out_;
    std::string mark_;
};

void write_message(std::string & out, po_message const & message) {
    message_writer writer(out, message.obsolete);
    writer.comments(message);
    if (message.context) {
        writer.text("msgctxt", *message.context);
    }
    writer.text("msgid", message.id);
    if (message.plural_id) {
        writer.text("msgid_plural", *message.plural_id);
    }
    for (std::size_t form = 0; form < message.texts.size(); ++form) {
        writer.text(message.plural_id ? "msgstr[" + std::to_string(form) + "]" : "msgstr",
                    message.texts[form]);
    }
}

} // namespace

std::string write_messages(std::vector<po_message> const & messages) {
    std::string result;
    std::string domain;
    for (po_message const & message : messages) {
        result += result.empty() ? "" : "\n";
        if (message.domain != domain) {
            domain = message.domain;
            message_writer(result, false).text("domain", domain);
            result += "\n";
        }
        write_message(result, message);
    }
    return result;
}

} // namespace fl::tool
