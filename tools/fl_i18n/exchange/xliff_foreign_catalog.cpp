// XLIFF files of others: their documents are kept as they are, cut at the translations.

#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/exchange/message_key.hpp"
#include "tools/fl_i18n/exchange/xliff_catalog.hpp"

#include <fl/i18n/ustring.hpp>
#include <set>
#include <utility>

namespace fl::tool {

namespace {

std::string format_name(int version) {
    return "xliff-" + std::to_string(version);
}

/// Returns a key that no entry has: the unit's name or identifier, else one made from these and the source.
std::string new_key(xliff_unit const & unit, std::set<std::string> & known) {
    std::string const place = unit.original + '\0' + unit.name + '\0' + unit.id;
    std::string const made = make_key(place, i18n::ustring_to_utf8(unit.source));
    for (std::string const & key : {unit.name, unit.id, made}) {
        if (is_key(key) && known.insert(key).second) {
            return key;
        }
    }
    std::string key;
    for (int number = 2; !known.insert(key = made + "_" + std::to_string(number)).second; ++number) {
    }
    return key;
}

/// Returns the prefix of elements, with its colon, as the last tag of a text has it.
std::string last_prefix(std::string const & text) {
    std::size_t const begin = text.find_first_not_of("</", text.rfind('<'));
    std::size_t const end = text.find_first_of(":> \t\r\n/", begin);
    return end != text.npos && text[end] == ':' ? text.substr(begin, end + 1 - begin) : std::string();
}

/// Returns a target element with another content.
std::string with_content(std::string const & element, std::string const & content) {
    std::string start = element.substr(0, end_of_tag(element, 0));
    if (start.ends_with("/>")) {
        start.replace(start.size() - 2, 1, "");
    }
    std::string const name = start.substr(1, start.find_first_of("> \t\r\n") - 1);
    return start + content + "</" + name + ">";
}

/// Makes the state in the tag at a place of a text, if it says that work is left, say that it is done.
void mark_translated(std::string & text, std::size_t tag) {
    constexpr std::string_view name = "state=";
    std::size_t const end = end_of_tag(text, tag);
    std::size_t at = text.find(name, tag);
    while (at < end && std::string_view(" \t\r\n").find(text[at - 1]) == std::string_view::npos) {
        at = text.find(name, at + 1);
    }
    if (at < end) {
        std::size_t const begin = at + name.size() + 1;
        std::size_t const length = text.find(text[begin - 1], begin) - begin;
        if (is_unfinished(text.substr(begin, length))) {
            text.replace(begin, length, "translated");
        }
    }
}

/// Returns the target of an entry; what stands before it is changed when that names its state.
std::string target_of(catalog_entry const & entry, std::string & before, int version) {
    auto const element = exchange_text(entry.attributes, "target");
    if (shows_original(entry)) {
        return element.value_or("");
    }
    // What elements stand for may be told outside the target.
    auto const text = exchange_text(entry.attributes, "target-text");
    bool has_codes = false;
    if (element && (read_target(*element, has_codes) == entry.text.units ||
                    (text && i18n::utf8_to_ustring(*text) == entry.text.units))) {
        return *element;
    }
    if (has_codes) {
        throw command_failure(
            exit_input_output,
            "the text of \"" + entry.key +
                "\" has changed, and elements stand in its target that would be lost; translate it in "
                "the XLIFF file");
    }
    std::string const prefix = last_prefix(before);
    std::string target = with_content(element.value_or("<" + prefix + "target>"),
                                      to_xliff_content(entry.text.units, version, false));
    std::size_t const segment = version == 1 ? before.npos : before.rfind("<" + prefix + "segment");
    if (segment != before.npos) {
        mark_translated(before, segment);
    } else {
        mark_translated(target, 0);
    }
    return target;
}

} // namespace

bool is_foreign_xliff(catalog const & contents, int version) {
    return exchange_text(contents.attributes, "format") == format_name(version);
}

catalog catalog_from_foreign_xliff(xliff_file const & xliff, std::string const & document) {
    catalog result;
    result.attributes = {{"version", "1.0"}, {"xmlns:x", exchange_namespace}};
    set_exchange_text(result.attributes, "format", format_name(xliff.version));
    std::set<std::string> known;
    std::size_t end = 0;
    for (xliff_unit const & unit : xliff.units) {
        catalog_entry entry;
        entry.key = new_key(unit, known);
        set_exchange_text(entry.attributes, "source", i18n::ustring_to_utf8(unit.source));
        auto const translation = unit.translation();
        bool const translated = translation && !unit.needs_work();
        if (!translated) {
            set_exchange_text(entry.attributes, "state", translation ? "fuzzy" : "untranslated");
        }
        entry.text.units = translated ? *translation : original_text(entry, nullptr);
        if (unit.target) {
            set_exchange_text(entry.attributes, "target",
                              document.substr(unit.target_begin, unit.target_end - unit.target_begin));
        }
        if (translated && unit.target_has_codes) {
            set_exchange_text(entry.attributes, "target-text", i18n::ustring_to_utf8(*translation));
        }
        set_exchange_text(entry.attributes, "before", document.substr(end, unit.target_begin - end));
        end = unit.target_end;
        result.entries.push_back(std::move(entry));
    }
    set_exchange_text(result.attributes, "after", document.substr(end));
    return result;
}

std::string foreign_xliff_from_catalog(catalog const & contents, int version) {
    std::string document;
    for (catalog_entry const & entry : contents.entries) {
        auto before = exchange_text(entry.attributes, "before");
        if (!before) {
            throw command_failure(exit_input_output,
                                  "the entry \"" + entry.key +
                                      "\" has no attribute x:before, which the entries of a catalog "
                                      "made from an XLIFF file have");
        }
        std::string const target = target_of(entry, *before, version);
        document += *before + target;
    }
    return document + exchange_text(contents.attributes, "after").value_or("");
}

} // namespace fl::tool
