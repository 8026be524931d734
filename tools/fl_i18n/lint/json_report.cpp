#include "tools/fl_i18n/lint/report.hpp"

#include <utility>

namespace fl::tool::lint {

namespace {

std::string place(std::string_view line, std::string_view column, position const & at) {
    return to_json(line) + ": " + std::to_string(at.line) + ", " + to_json(column) + ": " +
           std::to_string(at.column);
}

class json_report final : public report {
public:
    explicit json_report(output out)
        : out_(std::move(out)) {}

    void add(std::string const & file, finding const & found) override {
        std::string item =
            separator_ + "    {\"file\": " + to_json(file) + ", " + place("line", "column", found.begin) +
            ", \"severity\": " + to_json(to_string(found.level)) +
            ", \"rule\": " + to_json(found.broken->name) + ", \"text\": " + to_json(found.text);
        if (found.repair) {
            item += ", \"mend\": {" + place("endLine", "endColumn", found.repair->end) +
                    ", \"text\": " + to_json(found.repair->text) + "}";
        }
        if (found.first) {
            item += ", \"first\": {" + place("line", "column", *found.first) + "}";
        }
        out_(item + "}");
        separator_ = ",\n";
    }

    void finish(totals const & counts) override {
        out_((separator_ == ",\n" ? "\n  ]" : separator_ + "  ]") + ",\n  \"errors\": " +
             std::to_string(counts.errors) + ",\n  \"warnings\": " + std::to_string(counts.warnings) +
             ",\n  \"files\": " + std::to_string(counts.files) + "\n}\n");
    }

private:
    output out_;
    std::string separator_ = "{\n  \"findings\": [\n";
};

} // namespace

std::unique_ptr<report> make_json_report(output out) {
    return std::make_unique<json_report>(std::move(out));
}

std::string to_json(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result = "\"";
    for (char const c : text) {
        if (c == '"' || c == '\\') {
            result += '\\';
            result += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            result += "\\u00";
            result += digits[static_cast<std::size_t>(c) >> 4];
            result += digits[static_cast<std::size_t>(c) & 0xF];
        } else {
            result += c;
        }
    }
    return result + '"';
}

} // namespace fl::tool::lint
