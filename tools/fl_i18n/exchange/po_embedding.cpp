#include "tools/fl_i18n/exchange/po_embedding.hpp"

#include <algorithm>

namespace fl::tool {

namespace {

/// Tells whether a text can stand as a line of its own: "# text" for the comment "<!-- text -->".
bool is_plain_line(std::string_view comment) {
    return comment.size() > 2 && comment.front() == ' ' && comment.back() == ' ' && comment[1] != '<' &&
           comment[1] != ' ' && comment[comment.size() - 2] != ' ' &&
           comment.find_first_of("\t\n\r") == std::string_view::npos;
}

class tag_reader final : public xml::events {
public:
    void on_start(std::string_view, attributes const & all, std::size_t) override { tag = all; }
    void on_end(std::string_view, std::size_t) override {}
    void on_text(std::string_view, std::size_t, bool) override {}

    attributes tag;
};

/// Goes through embedded lines, which are joined.
class embedded_reader {
public:
    embedded run(std::string_view text) {
        while (!text.empty()) {
            text.remove_prefix(take(text));
        }
        return std::move(result_);
    }

private:
    /// Takes what begins the text and returns its length, with the line end.
    std::size_t take(std::string_view text) {
        std::size_t const line = text.find('\n');
        if (text.starts_with("<!--")) {
            std::size_t const end = text.find("-->", 4);
            if (end != std::string_view::npos) {
                add_comment(text.substr(4, end - 4));
                return std::min(end + 4, text.size());
            }
        } else if (text.starts_with("<?")) {
            std::size_t const end = text.find("?>");
            if (end != std::string_view::npos) {
                result_.instructions.emplace_back(text.substr(2, end - 2));
                return std::min(end + 3, text.size());
            }
        } else if (take_tag(text.substr(0, line))) {
            return line + 1;
        }
        add_line(text.substr(0, line));
        return line + 1;
    }

    bool take_tag(std::string_view line) {
        tag_reader reader;
        bool const is_tag = (line.starts_with("<entry") || line.starts_with("<rsccat")) &&
                            line.ends_with("/>") && !xml::read(std::string(line), reader, true);
        if (is_tag) {
            result_.has_tag = true;
            result_.tag = reader.tag;
        }
        return is_tag;
    }

    void add_comment(std::string_view comment) {
        (result_.has_tag ? result_.later_comments : result_.comments).emplace_back(comment);
    }

    void add_line(std::string_view line) {
        std::string const comment = " " + std::string(line) + " ";
        if (fits_comment(comment)) {
            add_comment(comment);
        } else {
            result_.other_lines.emplace_back(line);
        }
    }

    embedded result_;
};

} // namespace

bool fits_comment(std::string_view text) {
    return text.find("--") == std::string_view::npos && !text.ends_with('-') &&
           std::none_of(text.begin(), text.end(), [](char c) {
               return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n';
           });
}

void embed_comment(std::vector<std::string> & lines, std::string const & comment) {
    std::string const text =
        is_plain_line(comment) ? comment.substr(1, comment.size() - 2) : "<!--" + comment + "-->";
    for (std::size_t begin = 0; begin <= text.size();) {
        std::size_t const end = std::min(text.find('\n', begin), text.size());
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

void embed_tag(std::vector<std::string> & lines, std::string_view name, attributes const & all) {
    lines.push_back("<" + std::string(name) + write_attributes(all) + "/>");
}

embedded read_embedded(std::vector<std::string> const & lines) {
    std::string text;
    for (std::string const & line : lines) {
        text += line + "\n";
    }
    return embedded_reader().run(text);
}

} // namespace fl::tool
