#include "tools/fl_i18n/exchange/po_file.hpp"
#include "tools/fl_i18n/exchange/po_lexer.hpp"

#include <algorithm>
#include <utility>

namespace fl::tool {

namespace {

class po_parser {
public:
    po_parser(std::string const & name, std::string const & text, std::string const & encoding)
        : lexer_(name, text, encoding)
        , token_(lexer_.next()) {}

    po_file parse() {
        for (; token_.kind != po_word::end; message_.domain = domain_) {
            if (token_.kind == po_word::comment) {
                lines_.push_back(take().value);
            } else if (is_keyword("domain")) {
                take();
                domain_ = message_.domain = texts();
            } else {
                parse_message();
            }
        }
        result_.last_lines = std::move(lines_);
        return std::move(result_);
    }

private:
    po_token take() { return std::exchange(token_, lexer_.next()); }

    bool is_keyword(char const * name) const { return token_.kind == po_word::name && token_.value == name; }

    void expect(char const * keyword) {
        if (!is_keyword(keyword)) {
            lexer_.fail(token_.offset, std::string("\"") + keyword + "\" is expected here");
        }
        check_mark();
        take();
    }

    void check_mark() const {
        if (token_.obsolete != message_.obsolete) {
            lexer_.fail(token_.offset, "only a part of the message is marked as obsolete");
        }
    }

    /// Reads the parts of a text.
    std::string texts() {
        if (token_.kind != po_word::text) {
            lexer_.fail(token_.offset, "a text in quotes is expected here");
        }
        std::string result;
        while (token_.kind == po_word::text) {
            check_mark();
            result += take().value;
        }
        return result;
    }

    void parse_message() {
        message_.offset = token_.offset;
        message_.obsolete = token_.obsolete;
        for (std::string const & line : std::exchange(lines_, {})) {
            add_comment(line);
        }
        if (is_keyword("msgctxt")) {
            take();
            message_.context = texts();
        }
        expect("msgid");
        message_.id = texts();
        if (is_keyword("msgid_plural")) {
            take();
            message_.plural_id = texts();
            parse_forms();
        } else {
            expect("msgstr");
            message_.texts.push_back(texts());
        }
        result_.messages.push_back(std::exchange(message_, {}));
    }

    void parse_forms() {
        do {
            expect("msgstr");
            if (token_.kind != po_word::form || token_.value != std::to_string(message_.texts.size())) {
                lexer_.fail(token_.offset, "\"[" + std::to_string(message_.texts.size()) +
                                               "]\" is expected here: plural forms are counted from 0");
            }
            take();
            message_.texts.push_back(texts());
        } while (is_keyword("msgstr"));
    }

    /// Sorts a comment by its second character.
    void add_comment(std::string const & line) {
        constexpr std::string_view marks = ".:,|!";
        constexpr po_comment kinds[] = {po_comment::extracted, po_comment::references, po_comment::flags,
                                        po_comment::previous, po_comment::flags};
        std::size_t const mark = line.size() > 1 ? marks.find(line[1]) : std::string_view::npos;
        std::size_t const begin = mark == std::string_view::npos ? 1 : 2;
        bool const separated = line.size() > begin && line[begin] == ' ';
        message_.lines(begin == 1 ? po_comment::translator : kinds[mark])
            .push_back(line.substr(separated ? begin + 1 : begin));
    }

    po_lexer lexer_;
    po_token token_;
    po_file result_;
    po_message message_;
    std::string domain_;
    std::vector<std::string> lines_;
};

} // namespace

std::vector<std::string> po_message::flags() const {
    std::vector<std::string> result;
    auto const & flag_lines = lines(po_comment::flags);
    std::string_view rest = flag_lines.empty() ? std::string_view() : flag_lines.back();
    while (!rest.empty()) {
        std::size_t const end = std::min(rest.find_first_of(" \t,"), rest.size());
        if (end > 0) {
            result.emplace_back(rest.substr(0, end));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return result;
}

bool po_message::is_fuzzy() const {
    auto const all = flags();
    return std::find(all.begin(), all.end(), "fuzzy") != all.end();
}

po_file read_po(std::string const & name, std::string const & text, std::string const & encoding) {
    return po_parser(name, text, encoding).parse();
}

std::string header_field(std::string_view header, std::string_view field) {
    while (!header.empty()) {
        std::size_t const end = std::min(header.find('\n'), header.size());
        std::string_view const line = header.substr(0, end);
        if (line.starts_with(field) && line.substr(field.size()).starts_with(":")) {
            std::size_t const first = line.find_first_not_of(' ', field.size() + 1);
            return first == std::string_view::npos
                       ? std::string()
                       : std::string(line.substr(first, line.find_last_not_of(' ') + 1 - first));
        }
        header.remove_prefix(std::min(end + 1, header.size()));
    }
    return {};
}

} // namespace fl::tool
