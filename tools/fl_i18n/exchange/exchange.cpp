#include "tools/fl_i18n/exchange/exchange.hpp"

#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/files.hpp"

#include <algorithm>
#include <fl/i18n/ustring.hpp>
#include <map>
#include <set>

namespace fl::tool {

namespace {

constexpr std::string_view prefix = "x:";

std::string escaped(i18n::ustring const & text) {
    return i18n::ustring_to_utf8(escape_text(text));
}

bool is_used(attributes const & all) {
    return std::any_of(all.begin(), all.end(),
                       [](xml::attribute const & each) { return each.name.starts_with(prefix); });
}

} // namespace

std::optional<std::string> exchange_text(attributes const & from, std::string_view name) {
    auto const * const found = xml::find(from, std::string(prefix).append(name));
    if (found == nullptr) {
        return std::nullopt;
    }
    return i18n::ustring_to_utf8(unescape_text(i18n::utf8_to_ustring(found->value)));
}

void set_exchange_text(attributes & to, std::string_view name, std::string const & text) {
    set_attribute(to, {std::string(prefix).append(name), escaped(i18n::utf8_to_ustring(text))});
}

void declare_exchange_namespace(catalog & contents) {
    bool const used = is_used(contents.attributes) ||
                      std::any_of(contents.entries.begin(), contents.entries.end(),
                                  [](catalog_entry const & entry) { return is_used(entry.attributes); });
    if (used && xml::find(contents.attributes, "xmlns:x") == nullptr) {
        // Before the attributes that use it.
        auto const place =
            std::find_if(contents.attributes.begin(), contents.attributes.end(),
                         [](xml::attribute const & each) { return each.name.starts_with(prefix); });
        contents.attributes.insert(place, {"xmlns:x", exchange_namespace});
    }
}

void check_keys(std::string const & file, catalog const & contents) {
    std::set<std::string_view> keys;
    for (catalog_entry const & entry : contents.entries) {
        if (!keys.insert(entry.key).second) {
            bool decoded = false;
            fail_at(file, decode_xml(read_file(file), decoded), entry.key_offset,
                    "the key \"" + entry.key +
                        "\" is there already, and only its first text is ever shown; remove one");
        }
    }
}

i18n::ustring kept_original(catalog const & contents, catalog_entry const & entry,
                            i18n::ustring const & original) {
    bool const kept = xml::find(contents.attributes, "x:format") != nullptr &&
                      xml::find(entry.attributes, "x:source") != nullptr;
    return kept ? original_text(entry, nullptr) : original;
}

void set_translation(catalog_entry & entry, i18n::ustring const & original,
                     std::optional<i18n::ustring> const & translation, bool fuzzy) {
    renew_source(entry.attributes, original);
    if (translation && !fuzzy) {
        remove_attribute(entry.attributes, "x:state");
        remove_attribute(entry.attributes, "x:draft");
        entry.text.units = *translation;
        return;
    }
    set_attribute(entry.attributes, {"x:state", fuzzy ? "fuzzy" : "untranslated"});
    set_attribute(entry.attributes, {"x:source", escaped(original)});
    if (fuzzy) {
        set_attribute(entry.attributes, {"x:draft", escaped(*translation)});
    } else {
        remove_attribute(entry.attributes, "x:draft");
    }
    entry.text.units = original;
}

i18n::ustring original_text(catalog_entry const & entry, catalog_entry const * base) {
    if (base != nullptr) {
        return base->text.units;
    }
    auto const * const source = xml::find(entry.attributes, "x:source");
    return source != nullptr ? unescape_text(i18n::utf8_to_ustring(source->value)) : entry.text.units;
}

std::optional<i18n::ustring> translation_of(catalog_entry const & entry, bool & fuzzy) {
    fuzzy = false;
    if (!shows_original(entry)) {
        return entry.text.units;
    }
    auto const * const draft = xml::find(entry.attributes, "x:draft");
    fuzzy = draft != nullptr;
    return fuzzy ? std::optional(unescape_text(i18n::utf8_to_ustring(draft->value))) : std::nullopt;
}

std::vector<entry_pair> pair_entries(catalog const & contents, catalog const * base) {
    static catalog const none;
    std::map<std::string_view, std::size_t> own; // places by key, from 1
    for (catalog_entry const & entry : contents.entries) {
        own.emplace(entry.key, own.size() + 1);
    }
    std::vector<catalog_entry const *> bases(contents.entries.size() + 1);
    std::multimap<std::size_t, catalog_entry const *> missing; // by the place after which they come
    std::size_t last = 0;
    for (catalog_entry const & entry : (base != nullptr ? *base : none).entries) {
        auto const found = own.find(entry.key);
        if (found == own.end()) {
            missing.emplace(last, &entry);
        } else {
            last = found->second;
            bases[last] = &entry;
        }
    }
    std::vector<entry_pair> result;
    for (std::size_t place = 0; place <= contents.entries.size(); ++place) {
        if (place > 0) {
            result.push_back({&contents.entries[place - 1], bases[place]});
        }
        auto const [begin, end] = missing.equal_range(place);
        for (auto each = begin; each != end; ++each) {
            result.push_back({nullptr, each->second});
        }
    }
    return result;
}

void set_attribute(attributes & all, xml::attribute const & value) {
    auto const known = std::find_if(all.begin(), all.end(),
                                    [&](xml::attribute const & each) { return each.name == value.name; });
    if (known != all.end()) {
        *known = value;
    } else {
        all.push_back(value);
    }
}

bool remove_attribute(attributes & from, std::string_view name) {
    return std::erase_if(from, [&](xml::attribute const & each) { return each.name == name; }) > 0;
}

std::string join_lines(std::vector<std::string> const & lines) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text += (i > 0 ? "\n" : "") + lines[i];
    }
    return text;
}

exchange_counts count(catalog const & contents) {
    exchange_counts counts;
    for (catalog_entry const & entry : contents.entries) {
        bool fuzzy = false;
        bool const translated = translation_of(entry, fuzzy).has_value();
        ++counts.messages;
        counts.untranslated += !translated;
        counts.fuzzy += fuzzy;
    }
    return counts;
}

void fail_at(std::string const & file, std::string const & text, std::size_t offset,
             std::string const & what) {
    position const at = source_text(text).position_of(offset);
    throw command_failure(exit_input_output, file + ":" + std::to_string(at.line) + ":" +
                                                 std::to_string(at.column) + ": " + what);
}

void renew_source(attributes & tag, i18n::ustring const & original) {
    if (xml::find(tag, "x:source") != nullptr) {
        set_attribute(tag, {"x:source", escaped(original)});
    }
}

bool shows_original(catalog_entry const & entry) {
    return exchange_text(entry.attributes, "state") && entry.text.units == original_text(entry, nullptr);
}

} // namespace fl::tool
