#include "tools/fl_i18n/lint/attributes.hpp"
#include "tools/fl_i18n/lint/catalog_rules.hpp"

#include <algorithm>
#include <fl/i18n/catalog_id.hpp>
#include <string_view>
#include <unordered_map>

namespace fl::tool::lint {

namespace {

using places = std::unordered_map<std::string_view, std::size_t>;

bool can_be_named(std::string const & key) {
    try {
        i18n::MessageID{"component:name:" + key};
        return key.find(':') == std::string::npos;
    } catch (i18n::MessageID::badMessageIDException const &) {
        return false;
    }
}

bool is_refused(catalog_case const & subject) {
    return std::ranges::any_of(subject.faults, &catalog_fault::refused);
}

void check_missing_keys(catalog_case const & subject, places const & present, file_findings & out) {
    constexpr std::size_t shown = 3;
    std::string names;
    std::size_t missing = 0;
    for (std::string const & key : subject.base->keys()) {
        if (!present.contains(key) && !key.empty() && ++missing <= shown) {
            names += (missing == 1 ? "" : ", ") + in_quotes(key);
        }
    }
    if (missing > 0) {
        std::string const rest = missing > shown ? " and " + std::to_string(missing - shown) + " more" : "";
        out.add("missing-translation",
                {.offset = subject.contents.end_offset,
                 .text = "no text for " + names + rest +
                         (missing == 1 ? ": looking it up fails" : ": looking them up fails")});
    }
}

} // namespace

void check_attributes(catalog_case const & subject, file_findings & out) {
    static std::vector<std::string> const of_root{"version", "locale"};
    static std::vector<std::string> const of_entry{"key", "translate"};
    check_attribute_names(subject.contents.attributes, of_root, out);
    for (catalog_entry const & entry : subject.contents.entries) {
        if (!entry.attributes.empty()) {
            check_attribute_names(entry.attributes, of_entry, out);
        }
    }
}

void check_keys(catalog_case const & subject, file_findings & out) {
    places present;
    for (catalog_entry const & entry : subject.contents.entries) {
        if (entry.key.empty()) {
            continue;
        }
        auto const [first, is_new] = present.try_emplace(entry.key, entry.key_offset);
        if (!is_new) {
            out.add("repeated-key",
                    {.offset = entry.key_offset,
                     .text = "the key " + in_quotes(entry.key) + " is there already: this text is ignored",
                     .first = first->second});
            continue;
        }
        if (!can_be_named(entry.key)) {
            out.add("bad-key", {.offset = entry.key_offset,
                                .text = "no message identifier can name the key " + in_quotes(entry.key) +
                                        ": it has letters, digits and \"_\", and begins with no digit"});
        }
        if (subject.base != nullptr && subject.base->find(entry.key) == nullptr) {
            out.add("unknown-key", {.offset = entry.key_offset,
                                    .text = "the base language has no key " + in_quotes(entry.key)});
        }
    }
    if (subject.base != nullptr && !is_refused(subject)) {
        check_missing_keys(subject, present, out);
    }
}

} // namespace fl::tool::lint
