#include "foundation/ascii.hpp"
#include "locale/classic_name.hpp"
#include "tools/fl_i18n/catalog/xml_document.hpp"
#include "tools/fl_i18n/lint/attributes.hpp"
#include "tools/fl_i18n/lint/locale_names.hpp"
#include "tools/fl_i18n/lint/other_files.hpp"
#include "tools/fl_i18n/lint/spelling.hpp"

#include <algorithm>
#include <fl/i18n/codecvt.hpp>
#include <string_view>
#include <vector>

namespace fl::tool::lint {

namespace {

struct element_rule {
    std::string name;
    std::string parent;
    std::string required; ///< the attribute that it needs
    std::vector<std::string> attributes;
};

std::vector<element_rule> const & element_rules() {
    static std::vector<element_rule> const rules{
        {"lcdata", "", "", {}},
        {"locale", "lcdata", "name", {"name", "encoding", "xpg_name", "disable_user_locale"}},
        {"alias", "locale", "name", {"name"}},
        {"region_alias", "locale", "name", {"name"}},
        {"l10n", "locale", "disable", {"disable"}},
        {"codeset", "lcdata", "", {}},
        {"encoding", "codeset", "name", {"name", "jvm_encoding", "compat"}},
        {"encoding_alias", "encoding", "name", {"name"}},
    };
    return rules;
}

/// Returns an attribute with a value: an empty one counts as absent.
xml::attribute const * find_value(std::vector<xml::attribute> const & attributes, std::string_view name) {
    xml::attribute const * const found = xml::find(attributes, name);
    return found != nullptr && !found->value.empty() ? found : nullptr;
}

bool is_encoding_name(std::string_view name) {
    return name.find_first_of("/\\") == name.npos && name.find("..") == name.npos &&
           std::ranges::all_of(name, [](char c) { return c >= ' ' && c <= '~'; });
}

bool is_switch(std::string_view value) {
    constexpr std::string_view words[] = {"true", "yes", "on", "1", "false", "no", "off", "0"};
    return std::ranges::any_of(
        words, [&](std::string_view word) { return ascii::equal_ignoring_case(word, value); });
}

class database_reader final : public xml::events {
public:
    explicit database_reader(file_findings & out)
        : out_(out) {}

    void on_start(std::string_view name, std::vector<xml::attribute> const & attributes,
                  std::size_t offset) override {
        auto const & rules = element_rules();
        auto const found = std::ranges::find(rules, name, &element_rule::name);
        if (found == rules.end()) {
            report_unknown(name, offset);
        } else {
            check_place(*found, offset);
            check_attribute_names(attributes, found->attributes, out_);
            check_element(*found, attributes, offset);
        }
        open_.emplace_back(name);
    }

    void on_end(std::string_view, std::size_t) override { open_.pop_back(); }

    void on_text(std::string_view text, std::size_t offset, bool literal) override {
        std::size_t const first = text.find_first_not_of(" \t\r\n");
        if (first != std::string_view::npos) {
            out_.add("stray-text", {.offset = literal ? offset + first : offset,
                                    .text = "text in a locale database is ignored"});
        }
    }

    /// Reports what can be told at the end only.
    void finish() {
        locales_.check_aliases(out_);
        regions_.check_aliases(out_);
        encodings_.check_aliases(out_);
        for (xml::attribute const & each : named_encodings_) {
            if (!encodings_.contains(each.value) && i18n::get_standard_encoding_name(each.value).empty()) {
                out_.add("unknown-encoding",
                         {.offset = each.value_offset, .text = "unknown encoding " + in_quotes(each.value)});
            }
        }
    }

private:
    void report_unknown(std::string_view name, std::size_t offset) {
        std::vector<std::string> names;
        std::ranges::transform(element_rules(), std::back_inserter(names), &element_rule::name);
        auto const guess = guess_spelling(name, names);
        out_.add("unknown-element", {.offset = offset,
                                     .text = "unknown element " + in_quotes(name) +
                                             (guess ? ", perhaps " + in_quotes(*guess) : "")});
    }

    void check_place(element_rule const & rule, std::size_t offset) {
        std::string const parent = open_.empty() ? "" : open_.back();
        if (parent != rule.parent) {
            out_.add("misplaced-element",
                     {.offset = offset,
                      .text = in_quotes(rule.name) +
                              (rule.parent.empty() ? " is the root element alone"
                                                   : " stands directly in " + in_quotes(rule.parent))});
        }
    }

    void check_element(element_rule const & rule, std::vector<xml::attribute> const & attributes,
                       std::size_t offset) {
        if (rule.required.empty()) {
            return;
        }
        xml::attribute const * const value = find_value(attributes, rule.required);
        if (value == nullptr) {
            xml::attribute const * const empty = xml::find(attributes, rule.required);
            out_.add("missing-attribute",
                     {.offset = empty != nullptr ? empty->value_offset : offset,
                      .text = in_quotes(rule.name) + " needs the attribute " + in_quotes(rule.required)});
        } else if (rule.name == "l10n") {
            check_switch(*value);
        } else if (rule.parent == "lcdata" || rule.parent == "locale") {
            check_locale_name(rule, *value, attributes);
        } else {
            check_encoding_name(rule, *value, attributes);
        }
    }

    void check_switch(xml::attribute const & value) {
        if (!is_switch(value.value)) {
            out_.add("bad-value",
                     {.offset = value.value_offset,
                      .text = in_quotes(value.value) + " is none of \"true\" and \"false\" and leaves "
                                                       "localised resources on"});
        }
    }

    void check_locale_name(element_rule const & rule, xml::attribute const & name,
                           std::vector<xml::attribute> const & attributes) {
        if (!is_locale_name(name.value)) {
            report_bad_name(name, "a locale");
        }
        if (rule.name == "alias") {
            if (check_free(name, name.value == i18n::lcmgmt::classic_name)) {
                locales_.add_alias(name.value, locale_, name.value_offset, out_);
            }
        } else if (rule.name == "region_alias") {
            regions_.add_alias(name.value, locale_, name.value_offset, out_);
        } else {
            locale_ = name.value;
            locales_.add_name(locale_, name.value_offset, out_);
            xml::attribute const * const encoding = find_value(attributes, "encoding");
            note_encoding(encoding);
            if (encoding != nullptr && encoding->value != i18n::lcmgmt::classic_encoding) {
                check_free(*encoding, locale_ == i18n::lcmgmt::classic_name);
            }
        }
    }

    void check_encoding_name(element_rule const & rule, xml::attribute const & name,
                             std::vector<xml::attribute> const & attributes) {
        if (!is_encoding_name(name.value)) {
            report_bad_name(name, "an encoding");
        }
        if (rule.name == "encoding_alias") {
            if (check_free(name, ascii::equal_ignoring_case(name.value, i18n::lcmgmt::classic_encoding))) {
                encodings_.add_alias(name.value, encoding_, name.value_offset, out_);
            }
            return;
        }
        encoding_ = name.value;
        encodings_.add_name(encoding_, name.value_offset, out_);
        note_encoding(find_value(attributes, "compat"));
    }

    /// Reports a name that the library keeps to itself; tells whether it is free.
    bool check_free(xml::attribute const & name, bool fixed) {
        if (fixed) {
            out_.add("bad-name",
                     {.offset = name.value_offset,
                      .text = in_quotes(name.value) +
                              " is not taken here: the locale \"en_US_POSIX\" in \"UTF-8\" is fixed"});
        }
        return !fixed;
    }

    void note_encoding(xml::attribute const * name) {
        if (name == nullptr) {
            return;
        }
        if (is_encoding_name(name->value)) {
            named_encodings_.push_back(*name);
        } else {
            report_bad_name(*name, "an encoding");
        }
    }

    void report_bad_name(xml::attribute const & name, std::string const & what) {
        out_.add("bad-name", {.offset = name.value_offset,
                              .text = in_quotes(name.value) + " cannot be the name of " + what});
    }

    file_findings & out_;
    std::vector<std::string> open_;
    std::string locale_;
    std::string encoding_;
    name_table locales_{"locale", [](std::string_view name) { return std::string(name); }};
    name_table regions_{"locale", [](std::string_view name) { return std::string(name); }};
    name_table encodings_{"encoding", [](std::string_view name) { return ascii::to_lower(name); }};
    std::vector<xml::attribute> named_encodings_;
};

/// Checks the XML declaration: one that is there must name UTF-8.
void check_declaration(std::string const & bytes, file_findings & out) {
    std::size_t const begin = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    // Not the target of an instruction that begins like it.
    constexpr std::string_view blanks = " \t\r\n";
    if (bytes.compare(begin, 5, "<?xml") != 0 || bytes.find_first_of(blanks, begin) != begin + 5) {
        return;
    }
    std::size_t const end = bytes.find("?>", begin);
    std::size_t const name = bytes.find("encoding", begin);
    if (name == std::string::npos || name > end) {
        out.add("declaration", {.offset = begin, .text = "the declaration must name the encoding UTF-8"});
        return;
    }
    std::size_t const value = std::min(bytes.find_first_of("\"'", name), bytes.size() - 1) + 1;
    std::string const encoding = bytes.substr(value, bytes.find_first_of("\"'", value) - value);
    if (!ascii::equal_ignoring_case(encoding, "UTF-8")) {
        out.add("declaration",
                {.offset = value, .text = "the encoding must be UTF-8, not " + in_quotes(encoding)});
    }
}

} // namespace

void check_locale_database(source_text const & source, file_findings & out) {
    check_declaration(source.bytes(), out);
    database_reader reader(out);
    if (auto const malformed = xml::read(source.bytes(), reader, true)) {
        out.add("xml", {.offset = malformed->offset, .text = malformed->text});
    }
    reader.finish();
}

} // namespace fl::tool::lint
