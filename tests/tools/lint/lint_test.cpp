// What lint finds in planted faults and where, what it finds in the files that come with the library, how it
// says so and with which status it ends.

#include "tests/support/std_path.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/commands.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/lint/linter.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

namespace fl::tool::lint {
namespace {

struct outcome {
    int status = 0;
    std::string findings; ///< file names begin below the directory
    std::string log;
};

outcome lint(test::temporary_directory const & directory, lint_options options) {
    std::string const root = to_name(test::std_path(directory.path()));
    outcome result;
    options.paths = {root};
    result.status = run_lint(
        options, [&](std::string_view text) { result.findings += text; },
        [&](std::string_view text) { result.log += text; });
    for (auto at = result.findings.find(root); at != std::string::npos; at = result.findings.find(root)) {
        result.findings.erase(at, root.size() + 1);
    }
    return result;
}

void replace_all(std::string & text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

/// A section of the file of planted faults.
struct planted {
    std::string name;
    std::string path;
    std::string base;
    std::string content;
    std::vector<std::string> findings;

    bool is_text() const { return !path.ends_with(".xml"); }
    std::string file() const { return is_text() ? "resources/app/" + path + "/ui.xml" : path; }
    std::string complete(std::string const & part) const {
        std::string const entries = is_text() ? "<entry key=\"k\">" + part + "</entry>" : part;
        bool const wanted = entries.starts_with("<entry") || entries.starts_with("^<entry");
        return wanted ? "<rsccat version=\"1.0\"><message>\n" + entries + "\n</message></rsccat>\n" : entries;
    }
};

std::vector<planted> read_planted() {
    std::istringstream lines(read_file(FL_I18N_SOURCE_DIRECTORY "/tests/tools/lint/faults.txt"));
    std::vector<planted> sections;
    bool first = true;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("== ")) {
            std::size_t const blank = line.find(' ', 3);
            sections.push_back({line.substr(3, blank - 3), line.substr(blank + 1), {}, {}, {}});
            first = true;
        } else if (sections.empty() || line.empty()) {
            continue;
        } else if (line.starts_with("> ")) {
            sections.back().findings.push_back(line.substr(2));
        } else if (line.starts_with("base ")) {
            sections.back().base = line.substr(5);
        } else {
            sections.back().content += (first ? "" : "\n") + line;
            first = false;
        }
    }
    return sections;
}

/// Takes the marks out of a file and returns the findings that are expected there.
std::string take_marks(planted const & section, std::string & content) {
    std::string expected;
    std::size_t line = 1;
    std::size_t column = 1;
    std::size_t found = 0;
    std::string const marked = std::exchange(content, {});
    for (char const c : marked) {
        if (c == '^') {
            expected += section.file() + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " +
                        (found < section.findings.size() ? section.findings[found] : "?") + "\n";
            ++found;
            continue;
        }
        content += c;
        if (c == '\n') {
            ++line;
            column = 1;
        } else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {
            ++column;
        }
    }
    EXPECT_EQ(found, section.findings.size());
    return expected;
}

TEST(Lint, FindsPlantedFaultsAtTheirPlaces) {
    auto const sections = read_planted();
    ASSERT_GT(sections.size(), 100u);
    for (planted const & section : sections) {
        SCOPED_TRACE(section.name);
        test::temporary_directory directory;
        lint_options options;
        if (!section.base.empty()) {
            directory.write(u"resources/app/en/ui.xml", section.complete(section.base));
        } else if (section.is_text()) {
            options.measure.disabled = {"missing-base"};
        }
        std::string content = section.complete(section.content);
        std::string const expected = take_marks(section, content);
        replace_all(content, "\\xFF", "\xFF");
        replace_all(content, "\\xFE", "\xFE");
        directory.write(i18n::utf8_to_ustring(section.file()), content);
        outcome const found = lint(directory, options);
        EXPECT_EQ(found.findings, expected);
        EXPECT_EQ(found.status, expected.empty() ? exit_good : exit_findings) << found.log;
    }
}

TEST(Lint, FindsNothingInTheFilesOfTheLibrary) {
    std::string findings;
    std::string log;
    lint_options options;
    options.paths = {FL_I18N_SOURCE_DIRECTORY "/resources"};
    int const status = run_lint(
        options, [&](std::string_view text) { findings += text; },
        [&](std::string_view text) { log += text; });
    EXPECT_EQ(status, exit_good);
    EXPECT_EQ(findings, "");
    EXPECT_EQ(log, "0 errors, 0 warnings in 11 files\n");
}

TEST(Lint, WritesFindingsInEveryFormat) {
    test::temporary_directory directory;
    directory.write(u"resources/app/en/\u00E9.xml", "<rsccat><message><entry key=\"k\">l'{0}</entry>\n"
                                                    "<entry key='k'/></message></rsccat>");
    struct {
        std::string format;
        std::string expected;
    } const cases[] = {
        {"text",
         R"(resources/app/en/é.xml:1:1: error: "app:é" is no catalog identifier: letters, digits and "_" in each name, and no digit at its beginning [unreachable-file]
resources/app/en/é.xml:1:34: error: the apostrophe makes "{0}" plain text, write "''" [quoted-hole]
resources/app/en/é.xml:2:13: error: the key "k" is there already: this text is ignored; the first is in line 1, column 30 [repeated-key]
)"},
        {"json", R"({
  "findings": [
    {"file": "resources/app/en/é.xml", "line": 1, "column": 1, "severity": "error", "rule": "unreachable-file", "text": "\"app:é\" is no catalog identifier: letters, digits and \"_\" in each name, and no digit at its beginning"},
    {"file": "resources/app/en/é.xml", "line": 1, "column": 34, "severity": "error", "rule": "quoted-hole", "text": "the apostrophe makes \"{0}\" plain text, write \"''\"", "mend": {"endLine": 1, "endColumn": 35, "text": "''"}},
    {"file": "resources/app/en/é.xml", "line": 2, "column": 13, "severity": "error", "rule": "repeated-key", "text": "the key \"k\" is there already: this text is ignored; the first is in line 1, column 30", "first": {"line": 1, "column": 30}}
  ],
  "errors": 3,
  "warnings": 0,
  "files": 1
}
)"},
    };
    for (auto const & [format, expected] : cases) {
        lint_options options;
        options.format = format;
        EXPECT_EQ(lint(directory, options).findings, expected);
    }
    lint_options options;
    options.format = "sarif";
    std::string const log = lint(directory, options).findings;
    for (
        std::string const part :
        {R"("version": "2.1.0")", R"({"id": "quoted-hole", "shortDescription": )",
         R"("columnKind": "unicodeCodePoints")", R"("ruleId": "quoted-hole", "level": "error", "message": )",
         R"(resources/app/en/%C3%A9.xml"}, "region": {"startLine": 1, "startColumn": 34}}}])",
         R"("replacements": [{"deletedRegion": {"startLine": 1, "startColumn": 34, "endLine": 1, "endColumn": 35}, "insertedContent": {"text": "''"}}])",
         R"("relatedLocations": [{"physicalLocation": )"}) {
        EXPECT_NE(log.find(part), std::string::npos) << part << " in " << log;
    }
}

TEST(Lint, TakesOptionsAndEndsWithAStatus) {
    test::temporary_directory directory;
    directory.write(u"resources/app/en/ui.xml", "<rsccat Version='1'><message/></rsccat>");
    directory.write(u"resources/app/de/ui.xml",
                    "<rsccat><message><entry key='k'>x</entry></message></rsccat>");
    // Where there are links: one that leads to itself is no file.
    std::error_code ignored;
    std::filesystem::create_symlink(
        "loop.xml", test::std_path(directory.path()) / "resources" / "app" / "de" / "loop.xml", ignored);
    lint_options options;
    EXPECT_EQ(lint(directory, options).log, "0 errors, 2 warnings in 2 files\n");
    options.base = "de";
    options.measure.warnings_are_errors = true;
    outcome const strict = lint(directory, options);
    EXPECT_EQ(strict.log, "2 errors, 0 warnings in 2 files\n");
    EXPECT_NE(strict.findings.find("en/ui.xml:1:31: error: no text for \"k\""), std::string::npos)
        << strict.findings;
    options.measure.disabled = {"missing-translation", "unknown-attribute"};
    EXPECT_EQ(lint(directory, options).status, exit_good);

    std::string const root = to_name(test::std_path(directory.path()));
    int status = exit_good;
    auto const run = [&status](std::vector<std::string> arguments) {
        CLI::App program;
        add_lint_command(program, status);
        arguments.insert(arguments.begin(), "lint");
        std::reverse(arguments.begin(), arguments.end());
        program.parse(std::move(arguments));
        return status;
    };
    EXPECT_EQ(run({root, "--base", "en", "--disable", "unknown-key"}), exit_findings);
    EXPECT_EQ(run({root, "--disable", "unknown-key", "--disable", "unknown-attribute"}), exit_good);
    EXPECT_EQ(run({root + "/none.xml"}), exit_input_output);
    // The base language is found from any path; a file that is named is a catalog, whatever it holds.
    EXPECT_EQ(run({root + "/resources/app/de", root + "/resources/app/de/ui.xml"}), exit_findings);
    directory.write(u"other.xml", "<project/>");
    EXPECT_EQ(run({root + "/other.xml"}), exit_findings);
    EXPECT_THROW(run({root, "--disable", "no-rule"}), CLI::ParseError);
    EXPECT_THROW(run({root, "--format", "xml"}), CLI::ParseError);
    try {
        run({});
        ADD_FAILURE() << "a path is needed";
    } catch (command_failure const & failure) {
        EXPECT_EQ(failure.status(), exit_usage);
    }
}

} // namespace
} // namespace fl::tool::lint
