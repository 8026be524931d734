#include "tools/fl_i18n/lint/linter.hpp"

#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/files.hpp"
#include "tools/fl_i18n/lint/catalog_rules.hpp"
#include "tools/fl_i18n/lint/inputs.hpp"
#include "tools/fl_i18n/lint/other_files.hpp"
#include "tools/fl_i18n/progress.hpp"

#include <optional>
#include <stdexcept>
#include <utility>

namespace fl::tool::lint {

namespace {

class linter {
public:
    explicit linter(lint_options const & options)
        : options_(options) {}

    /// Returns the findings of a file; nothing for one that is none of the library's. Throws
    /// `command_failure` when it cannot be read.
    std::optional<std::vector<finding>> check(input const & subject) {
        std::string bytes = read_file(subject.file.name);
        bool decoded = false;
        std::string text;
        try {
            text = decode_xml(bytes, decoded);
        } catch (std::runtime_error const & failure) {
            return report_undecodable(subject, source_text(std::move(bytes)), failure.what());
        }
        return check(subject, std::move(bytes), source_text(std::move(text)), decoded);
    }

private:
    std::optional<std::vector<finding>> report_undecodable(input const & subject, source_text const & source,
                                                           std::string const & reason) const {
        if (!subject.named && subject.file.resources.empty()) {
            return std::nullopt;
        }
        file_findings out(source, options_.measure);
        out.add("xml", {.text = reason});
        return out.take();
    }

    std::optional<std::vector<finding>> check(input const & subject, std::string bytes,
                                              source_text const & source, bool decoded) {
        file_findings out(source, options_.measure);
        switch (kind_of(subject, source, decoded)) {
        case file_kind::catalog:
            if (subject.too_high) {
                out.add("unreachable-file",
                        {.text = "no look-up asks for a catalog here: below \"resources\" "
                                 "come a component, a locale and then the file"});
            }
            check_catalog(subject.file, source, decoded, out);
            return out.take();
        case file_kind::catalog_map:
            check_catalog_map(source, decoded, catalogs_beside(subject.file.name), out);
            return out.take();
        case file_kind::locale_database: {
            // The library reads its bytes as UTF-8, whatever they are.
            source_text const raw(std::move(bytes));
            file_findings database(raw, options_.measure);
            check_locale_database(raw, database);
            return database.take();
        }
        case file_kind::other:
            break;
        }
        return std::nullopt;
    }

    void check_catalog(catalog_file const & file, source_text const & source, bool decoded,
                       file_findings & out) {
        std::vector<catalog_fault> faults;
        catalog const contents = read_catalog(source, decoded, faults);
        for (catalog_fault const & each : faults) {
            // An entry that is only out of its place is read all the same.
            bool const read = !each.refused && each.rule == "misplaced-element";
            out.add(each.rule, {.offset = each.offset,
                                .text = each.text,
                                .level = read ? std::optional(severity::warning) : std::nullopt});
        }
        catalog_case subject{file, contents, faults, file.locale, nullptr};
        if (file.resources.empty()) {
            subject.locale = contents.attribute("locale");
        } else {
            subject.base = find_base(file, contents, out);
        }
        check_path(subject, out);
        check_attributes(subject, out);
        check_keys(subject, out);
        texts_.check(subject, out);
    }

    /// Returns what to compare a file with; null for the base language itself.
    base_catalog const * find_base(catalog_file const & file, catalog const & contents, file_findings & out) {
        if (file.resources != base_resources_ || file.catalog != base_name_) {
            base_resources_ = file.resources;
            base_name_ = file.catalog;
            base_ = load_base(file, options_.base);
            if (!base_) {
                out.add(
                    "missing-base",
                    {.offset = contents.offset,
                     .text = "the catalog " + in_quotes(file.catalog) + " has no readable file in " +
                             (options_.base.empty() ? "English" : "the locale " + in_quotes(options_.base)) +
                             " to compare with"});
            }
        }
        return base_ && base_->locale() != file.locale ? &*base_ : nullptr;
    }

    lint_options const & options_;
    text_rules texts_;
    std::string base_resources_;
    std::string base_name_;
    std::optional<base_catalog> base_;
};

std::unique_ptr<report> make_report(std::string const & format, output out) {
    if (format == "json") {
        return make_json_report(std::move(out));
    }
    return format == "sarif" ? make_sarif_report(std::move(out)) : make_text_report(std::move(out));
}

std::string summary(totals const & counts) {
    auto const number = [](std::size_t count, std::string const & what) {
        return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
    };
    return number(counts.errors, "error") + ", " + number(counts.warnings, "warning") + " in " +
           number(counts.files, "file") + "\n";
}

} // namespace

int run_lint(lint_options const & options, output const & out, output const & log) {
    auto const inputs = find_inputs(options.paths);
    std::string pending;
    auto const format = make_report(options.format, [&pending](std::string_view text) { pending += text; });
    linter checker(options);
    totals counts;
    bool all_read = true;
    {
        // Not between the findings.
        std::optional<progress> shown;
        if (!is_terminal(stdout)) {
            shown.emplace("Checking file", inputs.size());
        }
        for (input const & each : inputs) {
            try {
                if (auto const findings = checker.check(each)) {
                    ++counts.files;
                    for (finding const & found : *findings) {
                        ++(found.level == severity::error ? counts.errors : counts.warnings);
                        format->add(each.file.name, found);
                    }
                }
            } catch (command_failure const & failure) {
                all_read = false;
                log(std::string(failure.what()) + "\n");
            }
            out(std::exchange(pending, {}));
            if (shown) {
                shown->advance();
            }
        }
    }
    format->finish(counts);
    out(pending);
    log(summary(counts));
    if (!all_read) {
        return exit_input_output;
    }
    return counts.errors + counts.warnings == 0 ? exit_good : exit_findings;
}

} // namespace fl::tool::lint
