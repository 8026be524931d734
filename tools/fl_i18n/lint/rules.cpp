#include "tools/fl_i18n/lint/rules.hpp"

#include <algorithm>

namespace fl::tool::lint {

namespace {

using enum severity;

constexpr rule rules[] = {
    // All files
    {"xml", error, "the file is no well-formed XML"},
    {"unknown-element", error, "an element of a name that the library does not know"},
    {"misplaced-element", error, "an element where the library does not expect it"},
    {"unknown-attribute", warning, "an attribute that the library does not know"},
    {"unknown-entity", error, "a reference to an entity that is left out, being defined elsewhere"},
    {"stray-text", warning, "text where none is read"},
    // Keys and files of catalogs
    {"missing-key", error, "an entry without key"},
    {"repeated-key", error, "a key that is there already: only the first text counts"},
    {"bad-key", warning, "a key that no message identifier can name"},
    {"unknown-key", warning, "a key that the base language does not have"},
    {"missing-translation", warning, "keys of the base language without a text: looking them up fails"},
    {"missing-base", warning, "no file in the base language to compare with"},
    {"unreachable-file", error, "a name in the path that no look-up asks for"},
    {"locale-mismatch", warning, "the locale in the file is not that of its directory"},
    // Texts
    {"bad-escape", error, "a malformed backslash escape: the text becomes empty"},
    {"empty-text", warning, "an empty text where the base language has one"},
    {"same-as-base", warning, "a text equal to that of the base language"},
    {"bad-pattern", error, "a text with braces that is no pattern"},
    {"stray-brace", warning, "a closing brace that closes nothing and is shown"},
    {"quoted-hole", error, "an apostrophe that turns a hole into plain text"},
    {"bad-format", error, "a type or style of a hole that cannot be built"},
    {"repeated-branch", error, "a branch that is there already: only the first counts"},
    {"mixed-holes", error, "named and numbered holes in one text"},
    {"hole-gap", error, "numbers of holes that leave one out"},
    {"hole-missing", error, "a hole of the base language that the text has not"},
    {"hole-extra", error, "a hole that the base language has not"},
    {"hole-type", error, "a hole of another type than in the base language"},
    {"plural-categories", warning, "plural categories that are missing, or that the language does not use"},
    // Locale databases
    {"declaration", error, "an XML declaration that does not name UTF-8"},
    {"missing-attribute", error, "an element without an attribute that it needs"},
    {"bad-name", error, "a name that the library does not take"},
    {"bad-value", warning, "a value without a meaning"},
    {"repeated-name", warning, "a name that is there already"},
    {"alias-cycle", error, "an alias that leads back to itself"},
    {"shadowed-name", error, "an alias that hides a locale of its name"},
    {"unknown-encoding", error, "an encoding that nobody knows"},
    // Catalog maps
    {"bad-catalog-id", error, "an entry that is no catalog identifier"},
    {"missing-catalog", warning, "a catalog without a file"},
};

} // namespace

std::span<rule const> all_rules() {
    return rules;
}

rule const * find_rule(std::string_view name) {
    auto const found = std::ranges::find(rules, name, &rule::name);
    return found == std::end(rules) ? nullptr : found;
}

std::string_view to_string(severity level) {
    return level == severity::error ? "error" : "warning";
}

} // namespace fl::tool::lint
