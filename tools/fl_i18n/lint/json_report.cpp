#include "tools/fl_i18n/json.hpp"
#include "tools/fl_i18n/lint/report.hpp"

#include <utility>

namespace fl::tool::lint {

namespace {

std::string place(std::string_view line, std::string_view column, position const & at) {
    return to_json_string(line) + ": " + std::to_string(at.line) + ", " + to_json_string(column) + ": " +
           std::to_string(at.column);
}

class json_report final : public report {
public:
    explicit json_report(output out)
        : out_(std::move(out)) {}

    void add(std::string const & file, finding const & found) override {
        std::string item = separator_ + "    {\"file\": " + to_json_string(file) + ", " +
                           place("line", "column", found.begin) +
                           ", \"severity\": " + to_json_string(to_string(found.level)) +
                           ", \"rule\": " + to_json_string(found.broken->name) +
                           ", \"text\": " + to_json_string(found.text);
        if (found.repair) {
            item += ", \"mend\": {" + place("endLine", "endColumn", found.repair->end) +
                    ", \"text\": " + to_json_string(found.repair->text) + "}";
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

} // namespace fl::tool::lint
