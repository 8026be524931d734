#include "foundation/ascii.hpp"
#include "tools/fl_i18n/json.hpp"
#include "tools/fl_i18n/lint/report.hpp"

#include <utility>

namespace fl::tool::lint {

namespace {

/// Returns a file's name as a relative URI, or a "file:" one where the name is absolute.
std::string to_uri(std::string const & file) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    bool const has_drive = file.size() > 1 && ascii::is_letter(file[0]) && file[1] == ':';
    std::string uri = has_drive ? "file:///" : file.starts_with('/') ? "file://" : "";
    for (char const c : file) {
        if (ascii::is_letter(c) || ascii::is_digit(c) ||
            std::string_view("-._~/").find(c) != std::string::npos || (c == ':' && has_drive)) {
            uri += c;
        } else if (c == '\\') {
            uri += '/';
        } else {
            auto const byte = static_cast<unsigned char>(c);
            uri += {'%', digits[byte >> 4], digits[byte & 0xF]};
        }
    }
    return uri;
}

std::string region(position const & begin, position const * end) {
    std::string result = "{\"startLine\": " + std::to_string(begin.line) +
                         ", \"startColumn\": " + std::to_string(begin.column);
    if (end != nullptr) {
        result +=
            ", \"endLine\": " + std::to_string(end->line) + ", \"endColumn\": " + std::to_string(end->column);
    }
    return result + "}";
}

std::string location(std::string const & artifact, position const & at) {
    return "\"physicalLocation\": {\"artifactLocation\": " + artifact +
           ", \"region\": " + region(at, nullptr) + "}";
}

/// The log format 2.1.0 of static analysis results.
class sarif_report final : public report {
public:
    explicit sarif_report(output out)
        : out_(std::move(out)) {
        std::string head = "{\n  \"$schema\": \"https://json.schemastore.org/sarif-2.1.0.json\",\n"
                           "  \"version\": \"2.1.0\",\n  \"runs\": [{\n    \"tool\": {\"driver\": {"
                           "\"name\": \"fl-i18n\", \"rules\": [";
        for (rule const & each : all_rules()) {
            head +=
                std::string(&each == &all_rules().front() ? "\n" : ",\n") +
                "      {\"id\": " + to_json_string(each.name) +
                ", \"shortDescription\": {\"text\": " + to_json_string(each.meaning) +
                "}, \"defaultConfiguration\": {\"level\": " + to_json_string(to_string(each.usual_severity)) +
                "}}";
        }
        out_(head + "\n    ]}},\n    \"columnKind\": \"unicodeCodePoints\",\n    \"results\": [");
    }

    void add(std::string const & file, finding const & found) override {
        std::string const artifact = "{\"uri\": " + to_json_string(to_uri(file)) + "}";
        std::string item = std::exchange(separator_, ",\n") +
                           "      {\"ruleId\": " + to_json_string(found.broken->name) +
                           ", \"level\": " + to_json_string(to_string(found.level)) +
                           ", \"message\": {\"text\": " + to_json_string(found.text) +
                           "}, \"locations\": [{" + location(artifact, found.begin) + "}]";
        if (found.first) {
            item += ", \"relatedLocations\": [{" + location(artifact, *found.first) +
                    ", \"message\": {\"text\": \"the first\"}}]";
        }
        if (found.repair) {
            item += ", \"fixes\": [{\"artifactChanges\": [{\"artifactLocation\": " + artifact +
                    ", \"replacements\": [{\"deletedRegion\": " + region(found.begin, &found.repair->end) +
                    ", \"insertedContent\": {\"text\": " + to_json_string(found.repair->text) + "}}]}]}]";
        }
        out_(item + "}");
    }

    void finish(totals const &) override { out_("\n    ]\n  }]\n}\n"); }

private:
    output out_;
    std::string separator_ = "\n";
};

} // namespace

std::unique_ptr<report> make_sarif_report(output out) {
    return std::make_unique<sarif_report>(std::move(out));
}

} // namespace fl::tool::lint
